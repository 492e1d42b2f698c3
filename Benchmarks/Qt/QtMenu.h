#pragma once

#include <QListView>

class QAbstractItemModel;

namespace Benchmarks {

/// A list of the size of a menu in Qt Widgets, laid out and not drawn.
class QtMenu : public QListView {
public:
    /// `model` outlives the list.
    explicit QtMenu(QAbstractItemModel& model);
};

} // namespace Benchmarks
