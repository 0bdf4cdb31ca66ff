#include "SoundingTableModel.h"

#include <array>

namespace {

constexpr std::array<const char*, SoundingTableModel::COLUMNS> kHeaders{"", "Name", "Date/Time", "Platform", "Project"};

QStringList emptyRow() {
    QStringList row;
    for (int i = 0; i < SoundingTableModel::COLUMNS; ++i) {
        row.append(QString());
    }
    return row;
}

} // namespace

SoundingTableModel::SoundingTableModel(QList<QStringList> rows, QObject* parent)
    : QAbstractTableModel(parent), _rows(std::move(rows)) {
    for (int i = 0; i < _rows.size(); ++i) {
        _checks.append(false);
    }
}

int SoundingTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : _rows.size();
}

int SoundingTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : COLUMNS;
}

bool SoundingTableModel::has(const QModelIndex& index) const {
    return index.isValid() && index.row() < _rows.size() && index.column() < COLUMNS;
}

QVariant SoundingTableModel::data(const QModelIndex& index, int role) const {
    if (!has(index)) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return _rows[index.row()][index.column()];
    }
    if (role == Qt::CheckStateRole && index.column() == CHECK) {
        return _checks[index.row()] ? Qt::Checked : Qt::Unchecked;
    }
    return {};
}

QVariant SoundingTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) {
        return {};
    }
    if (orientation == Qt::Vertical) {
        return section + 1;
    }
    return section >= 0 && section < COLUMNS ? QString(kHeaders[static_cast<std::size_t>(section)]) : QVariant();
}

Qt::ItemFlags SoundingTableModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return Qt::ItemIsEnabled;
    }
    return QAbstractTableModel::flags(index) |
           (index.column() == CHECK ? Qt::ItemIsUserCheckable : Qt::ItemIsSelectable);
}

bool SoundingTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!has(index)) {
        return false;
    }
    if (role == Qt::CheckStateRole && index.column() == CHECK) {
        _checks[index.row()] = !_checks[index.row()];
    } else if (role == Qt::DisplayRole) {
        _rows[index.row()][index.column()] = value.toString();
    } else {
        return false;
    }
    emit dataChanged(index, index, {role});
    return true;
}

bool SoundingTableModel::insertRows(int row, int count, const QModelIndex& parent) {
    if (parent.isValid() || row < 0 || row > _rows.size() || count <= 0) {
        return false;
    }
    beginInsertRows(parent, row, row + count - 1);
    for (int i = 0; i < count; ++i) {
        _rows.insert(row, emptyRow());
        _checks.insert(row, false);
    }
    endInsertRows();
    return true;
}

bool SoundingTableModel::removeRows(int row, int count, const QModelIndex& parent) {
    if (parent.isValid() || row < 0 || count <= 0 || row + count > _rows.size()) {
        return false;
    }
    beginRemoveRows(parent, row, row + count - 1);
    for (int i = 0; i < count; ++i) {
        _rows.removeAt(row);
        _checks.removeAt(row);
    }
    endRemoveRows();
    return true;
}
