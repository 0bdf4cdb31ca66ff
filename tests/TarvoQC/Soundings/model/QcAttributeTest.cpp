#include "QcAttribute.h"
#include "MakeSeries.h"

#include <gtest/gtest.h>

namespace {

/// One digit for each value of \p series: 1 where the flag is set.
std::string flagged(const Series& series) {
    std::string digits;
    for (const Value& value : series) {
        digits += value.testAttribute(Value::QcBuddyCheck) ? '1' : '0';
    }
    return digits;
}

} // namespace

TEST(QcAttribute, stampsByTime) {
    const struct {
        void (*stamp)(const QcAttribute&);
        const char *first, *second;
    } cases[] = {
        {[](const QcAttribute& a) { a.setAttribute(2); }, "01000", "10"},
        {[](const QcAttribute& a) { a.setAttribute(2.5); }, "00000", "00"},
        {[](const QcAttribute& a) { a.setAttributes(1, 4); }, "01110", "11"},
        {[](const QcAttribute& a) { a.setAttributes(4, 1); }, "00000", "00"},
        {[](const QcAttribute& a) { a.setAttributesAfter(2); }, "00011", "01"},
    };
    for (const auto& c : cases) {
        Series first = makeSeries({{1, 0}, {2, 0}, {2, 0}, {3, 0}, {4, 0}});
        Series second = makeSeries({{2, 0}, {3.5, 0}});
        Series none;
        c.stamp(QcAttribute({&first, &none, &second}, Value::QcBuddyCheck));
        EXPECT_EQ(flagged(first), c.first);
        EXPECT_EQ(flagged(second), c.second);
    }
}
