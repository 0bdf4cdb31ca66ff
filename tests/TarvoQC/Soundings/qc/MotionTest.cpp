#include "AmbientPoint.h"
#include "DropsondeFallRate.h"
#include "RSTdryTC.h"
#include "SeriesText.h"
#include "TDDryBiasCorr.h"

#include <gtest/gtest.h>

TEST(Motion, FallRateBalancesDragAndWeight) {
    EXPECT_NEAR(DropsondeFallRate::value(500.0, -10.0, 676.0, 0.61, 400.0), 16.946397894, 1e-8);
}

TEST(Motion, TimeConstantOfEverySensor) {
    const double expected[] = {3.343327170, 0.795652809, 0.835831792};
    for (int type = 0; type < 3; ++type) {
        const RSTdryTC sensor(static_cast<SensorType>(type));
        EXPECT_NEAR(sensor.value(500.0, -10.0, -12.0), expected[type], 1e-8) << type;
        EXPECT_EQ(sensor.value(500.0, -10.0, 12.0), sensor.value(500.0, -10.0, -12.0)) << "whichever way it moves";
    }
}

TEST(Motion, TimeConstantsUntilSettled) {
    EXPECT_EQ(AmbientPoint::numTimeConstants(0.0, 0.1), 0.0);
    EXPECT_EQ(AmbientPoint::numTimeConstants(0.05, 0.1), 0.0);
    EXPECT_NEAR(AmbientPoint::numTimeConstants(-10.0, 0.1), 4.605170186, 1e-9);
}

TEST(Motion, DryBiasAtFreezing) {
    EXPECT_NEAR(biasCorrect(50.0, 0.0), 50.80, 0.005);
    EXPECT_EQ(biasCorrect(100.0, 0.0), 100.0);
}

TEST(Motion, ValuesCorrectedAtTheSourceLoseTheirFloorButForTheFirst) {
    Series rh("QCRH");
    for (int i = 0; i < 4; ++i) {
        rh.appendValue(i == 2 ? 0.2 : 0.1, i);
    }
    Series raw(rh, "RawRH");
    EXPECT_EQ(TDDryBiasCorr().markDryBiasAtt(&rh, &raw), 2);
    EXPECT_EQ(textOf(rh), "0:0.1 2:0.2");
    EXPECT_FALSE(raw.testAttribute(0, Value::DryBiasCorrection));
    EXPECT_TRUE(raw.testAttribute(1, Value::DryBiasCorrection));
    EXPECT_TRUE(raw.testAttribute(3, Value::DryBiasCorrection));
}
