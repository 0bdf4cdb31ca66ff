#include "AttributeTexts.h"

#include <gtest/gtest.h>

#include <string>

// The bits are stored and shown to users: this order is fixed for good.
TEST(AttributeTexts, everyBitHasItsTexts) {
    const char* const tips[] = {"F: Obs-Flight",
                                "S: Obs-Surface",
                                "P: CRC-PTU",
                                "G: CRC-GPS",
                                "Ig: QC-Ignore",
                                "Kp: QC-Keep",
                                "Ae: QC-AmbientEquilibration",
                                "Lc: QC-LimitCheck",
                                "Sc: QC-SatsCheck",
                                "Bc: QC-BuddyCheck",
                                "Oc: QC-OutlierCheck",
                                "Fc: QC-FilterCheck",
                                "Pc: QC-MonotonicPresCheck",
                                "Vc: QC-VerticalVelCheck",
                                "Rh: QC-RHThreshold",
                                "Bias: Dry bias correction",
                                "We: QC-WindErrorCheck",
                                "EoD: After end-of-drop time"};
    ASSERT_EQ(kAttributeTexts.size(), std::size(tips));
    for (std::size_t bit = 0; bit < std::size(tips); ++bit) {
        const std::string tip = tips[bit];
        EXPECT_EQ(kAttributeTexts[bit].attribute, 1U << bit);
        EXPECT_EQ(kAttributeTexts[bit].tip, tip);
        EXPECT_EQ(kAttributeTexts[bit].abbreviation, tip.substr(0, tip.find(':')));
    }
    EXPECT_EQ(Value::QcAmbientEquilibration, 0x00040U);
    EXPECT_EQ(Value::QcFilterCheck, 0x00800U);
    EXPECT_EQ(Value::AfterEndOfDrop, 0x20000U);
}
