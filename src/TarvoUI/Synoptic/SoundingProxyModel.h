#pragma once

#include <QSortFilterProxyModel>

/// Sorts the table of soundings by any column but that of the check boxes.
class SoundingProxyModel : public QSortFilterProxyModel {
    Q_OBJECT

public:
    explicit SoundingProxyModel(QObject* parent);
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;
};
