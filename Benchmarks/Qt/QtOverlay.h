#pragma once

#include <QWidget>

namespace Benchmarks {

/// The same overlay in Qt Widgets. It is never shown, so it has no pixels either.
class QtOverlay : public QWidget {
public:
    QtOverlay();

    /// Makes the application object that widgets need, once.
    static void prepare();
};

} // namespace Benchmarks
