#include "DataArray.h"
#include "MakeSeries.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

constexpr double kMissing = -999.0;

std::vector<double> column(const DataArray& rows, int i) {
    return {rows.getColumn(i), rows.getColumn(i) + rows.nRows()};
}

} // namespace

TEST(DataArray, oneRowForEachTime) {
    const Series a = makeSeries({{1, 10}, {2, 20}}, "a");
    const Series b = makeSeries({{2, 21}, {3, 31}, {3, 32}}, "b");
    const Series c = makeSeries({}, "c");
    DataArray rows;
    for (const Series* series : {&a, &b, &c}) {
        rows.addSeries(series);
    }
    rows.generate();
    ASSERT_EQ(rows.nRows(), 3);
    EXPECT_THAT(column(rows, 0), ElementsAre(10, 20, kMissing));
    EXPECT_THAT(column(rows, 1), ElementsAre(kMissing, 21, 32)) << "of equal times the last stands";
    EXPECT_THAT(column(rows, 2), ElementsAre(kMissing, kMissing, kMissing));
    EXPECT_EQ(rows.getColumn(Id("b")), rows.getColumn(1));
    EXPECT_EQ(rows.getColumn(Id("d")), nullptr);
}

TEST(DataArray, prelaunchIsToldByTheFirstRowOfAnyColumn) {
    const struct {
        int index;
        Value::AttributeType attribute;
        bool prelaunch;
    } cases[] = {{0, Value::ObsFlight, true},
                 {0, Value::ObsSurface, true},
                 {0, Value::CrcPtu, false},
                 {1, Value::ObsFlight, false}};
    for (const auto& c : cases) {
        const Series a = makeSeries({{-1, 10}, {5, 20}});
        Series b = makeSeries({{-1, 10}, {1, 20}});
        b.setAttribute(c.index, c.attribute);
        DataArray rows;
        rows.addSeries(&a);
        rows.addSeries(&b);
        rows.generate();
        EXPECT_EQ(rows.firstDataIsPrelaunch(), c.prelaunch) << c.index << " " << c.attribute;
    }
}
