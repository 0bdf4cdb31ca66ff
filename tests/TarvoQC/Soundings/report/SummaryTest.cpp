#include "Summary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;

TEST(Summary, SortsTopicsAndKeepsItemsInOrder) {
    Summary summary;
    summary.addItem("b", "second: ", 12);
    summary.addItem("b", "first");
    summary.addItem("B", "x");
    EXPECT_THAT(summary.items("b"), ElementsAre("second:  12", "first"));
    EXPECT_THAT(summary.items("unknown"), ElementsAre());
    EXPECT_THAT(summary.topics(), ElementsAre("B", "b", "unknown"));
    summary.clear();
    EXPECT_THAT(summary.topics(), ElementsAre());
}
