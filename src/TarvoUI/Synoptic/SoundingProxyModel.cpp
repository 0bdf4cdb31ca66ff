#include "SoundingProxyModel.h"

#include "SoundingTableModel.h"

SoundingProxyModel::SoundingProxyModel(QObject* parent) : QSortFilterProxyModel(parent) {
    setDynamicSortFilter(true);
}

void SoundingProxyModel::sort(int column, Qt::SortOrder order) {
    if (column != SoundingTableModel::CHECK) {
        QSortFilterProxyModel::sort(column, order);
    }
}
