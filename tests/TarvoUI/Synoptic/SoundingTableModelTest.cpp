#include "SoundingTableModel.h"
#include "SoundingProxyModel.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

TEST(SoundingTableModel, RowsAndChecks) {
    SoundingTableModel model({{"", "b.csv", "2021", "P", "X"}, {"", "a.csv", "2022", "Q", "Y"}}, nullptr);
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.columnCount(), 5);
    EXPECT_EQ(model.headerData(2, Qt::Horizontal).toString(), "Date/Time");
    EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString(), "");
    EXPECT_EQ(model.index(1, 1).data().toString(), "a.csv");
    EXPECT_EQ(model.index(0, 0).data(Qt::CheckStateRole).toInt(), 0);
    EXPECT_FALSE(model.index(0, 1).data(Qt::CheckStateRole).isValid());
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    EXPECT_TRUE(model.setData(model.index(0, 0), {}, Qt::CheckStateRole));
    EXPECT_EQ(model.index(0, 0).data(Qt::CheckStateRole).toInt(), 2);
    EXPECT_FALSE(model.setData(model.index(0, 1), 2, Qt::CheckStateRole));
    EXPECT_FALSE(model.setData({}, "x", Qt::DisplayRole));
    EXPECT_EQ(changes.size(), 1);
    EXPECT_TRUE(model.insertRows(0, 1));
    EXPECT_EQ(model.index(0, 1).data().toString(), "");
    EXPECT_EQ(model.index(0, 0).data(Qt::CheckStateRole).toInt(), 0);
    EXPECT_EQ(model.index(1, 0).data(Qt::CheckStateRole).toInt(), 2) << "a check goes with its row";
    EXPECT_TRUE(model.removeRows(1, 1));
    EXPECT_EQ(model.index(1, 0).data(Qt::CheckStateRole).toInt(), 0);
    EXPECT_FALSE(model.removeRows(1, 2));
    EXPECT_EQ(static_cast<int>(model.flags({})), 32);
    EXPECT_TRUE(model.flags(model.index(0, 0)).testFlag(Qt::ItemIsUserCheckable));
    EXPECT_FALSE(model.flags(model.index(0, 1)).testFlag(Qt::ItemIsUserCheckable));
}

TEST(SoundingProxyModel, SortsByAnyColumnButTheChecks) {
    SoundingTableModel model({{"", "b", "2", "", ""}, {"", "a", "3", "", ""}, {"", "c", "1", "", ""}}, nullptr);
    SoundingProxyModel proxy(nullptr);
    proxy.setSourceModel(&model);
    const auto names = [&] {
        return proxy.index(0, 1).data().toString() + proxy.index(1, 1).data().toString() +
               proxy.index(2, 1).data().toString();
    };
    proxy.sort(1);
    EXPECT_EQ(names(), "abc");
    proxy.sort(2, Qt::DescendingOrder);
    EXPECT_EQ(names(), "abc");
    proxy.sort(2);
    EXPECT_EQ(names(), "cba");
    proxy.sort(0);
    EXPECT_EQ(names(), "cba");
    for (const int row : {0, 1, 2}) { // the numbers beside the rows
        EXPECT_EQ(proxy.headerData(row, Qt::Vertical).toInt(), row + 1);
    }
    EXPECT_EQ(proxy.headerData(1, Qt::Horizontal).toString(), "Name");
}
