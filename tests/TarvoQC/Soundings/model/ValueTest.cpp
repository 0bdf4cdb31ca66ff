#include "Value.h"

#include <gtest/gtest.h>

TEST(Value, attributesAccumulateAndClearExactly) {
    const auto both = static_cast<Value::AttributeType>(Value::CrcPtu | Value::QcKeep);
    Value value(850.5, 2);
    EXPECT_EQ(value.data(), 850.5);
    EXPECT_EQ(value.attributes(), 0U);
    value.setAttributes(Value::CrcPtu);
    EXPECT_FALSE(value.testAttribute(both));
    EXPECT_FALSE(value.isObservation());
    value.setAttributes(Value::QcKeep | Value::ObsSurface);
    EXPECT_EQ(value.attributes(), 0x26U);
    EXPECT_TRUE(value.testAttribute(both));
    value.clearAttribute(both);
    EXPECT_EQ(value.attributes(), 0x02U);
    EXPECT_TRUE(value.isObservation());
}
