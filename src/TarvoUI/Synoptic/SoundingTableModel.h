#pragma once

#include <QAbstractTableModel>
#include <QList>
#include <QStringList>

/// The soundings of a database as a table: a check box, name, launch time, platform and project of each.
class SoundingTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum COLUMN { CHECK = 0, NAME = 1, TIME = 2, PLATFORM = 3, PROJECT = 4, COLUMNS = 5 };

    using QAbstractTableModel::QAbstractTableModel;
    /// \p rows have COLUMNS texts each.
    SoundingTableModel(QList<QStringList> rows, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// The check state, whatever \p value, is flipped; the display role takes a text.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    bool insertRows(int row, int count, const QModelIndex& parent = {}) override;
    bool removeRows(int row, int count, const QModelIndex& parent = {}) override;

private:
    bool has(const QModelIndex& index) const;

    QList<QStringList> _rows;
    QList<bool> _checks;
};
