#include "SoundingProxyModel.h"

#include "SoundingTableModel.h"

SoundingProxyModel::SoundingProxyModel(QObject* parent) : QSortFilterProxyModel(parent) {
    setDynamicSortFilter(true);
}

QVariant SoundingProxyModel::headerData(int section, Qt::Orientation orientation, int role) const {
    return orientation == Qt::Vertical ? QAbstractItemModel::headerData(section, orientation, role)
                                       : QSortFilterProxyModel::headerData(section, orientation, role);
}

void SoundingProxyModel::sort(int column, Qt::SortOrder order) {
    if (column != SoundingTableModel::CHECK) {
        QSortFilterProxyModel::sort(column, order);
    }
}
