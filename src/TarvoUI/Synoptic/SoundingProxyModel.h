#pragma once

#include <QSortFilterProxyModel>

/// Sorts the table of soundings by any column but that of the check boxes.
class SoundingProxyModel : public QSortFilterProxyModel {
    Q_OBJECT

public:
    explicit SoundingProxyModel(QObject* parent);
    /// The rows are numbered as they stand.
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;
};
