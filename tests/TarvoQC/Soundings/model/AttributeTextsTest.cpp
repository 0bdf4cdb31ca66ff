#include "AttributeTexts.h"

#include <gtest/gtest.h>

#include <string>

// The bits are stored and shown to users: this order is fixed for good.
TEST(AttributeTexts, bitsHaveTheirOrder) {
    std::string order;
    for (std::size_t bit = 0; bit < kAttributeTexts.size(); ++bit) {
        const std::string tip = kAttributeTexts[bit].tip;
        EXPECT_EQ(kAttributeTexts[bit].attribute, 1U << bit);
        EXPECT_EQ(kAttributeTexts[bit].abbreviation, tip.substr(0, tip.find(": ")));
        order += tip.substr(0, tip.find(": ")) + " ";
    }
    EXPECT_EQ(order, "F S P G Ig Kp Ae Lc Sc Bc Oc Fc Pc Vc Rh Bias We EoD ");
    EXPECT_EQ(Value::QcFilterCheck, 0x00800U);
    EXPECT_EQ(Value::AfterEndOfDrop, 0x20000U);
}
