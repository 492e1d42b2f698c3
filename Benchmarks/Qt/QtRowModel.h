#pragma once

#include <QAbstractListModel>

namespace Benchmarks {

/// Rows that all show the same text.
class QtRowModel : public QAbstractListModel {
public:
    explicit QtRowModel(int rows) : rows_(rows) {}

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : rows_; }
    QVariant data(const QModelIndex& /*index*/, int role) const override {
        return role == Qt::DisplayRole ? QVariant(text_) : QVariant();
    }

private:
    int rows_;
    QString text_ = "Commentary";
};

} // namespace Benchmarks
