#include "AmbientPoint.h"
#include "DropsondeFallRate.h"
#include "RSTdryTC.h"
#include "SeriesText.h"
#include "TDDryBiasCorr.h"

#include <cmath>
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

// By hand at -40 deg C: K = 0.5227 + 1.136 + 0.4576 - 0.0574 - 0.0032 = 2.0557, M = 1.0757 + 8.16 + 14.4144 + 3.7312 -
// 2.6624 = 24.7189. At 30 deg C: K = -0.0487, M = 0.6473.
TEST(Motion, DryBiasGoesByTheTemperature) {
    EXPECT_NEAR(biasCorrect(50.0, 0.0), 50.80, 0.005);
    EXPECT_EQ(biasCorrect(100.0, 0.0), 100.0);
    EXPECT_NEAR(biasCorrect(50.0, -40.0), 67.310374, 1e-6);
    EXPECT_NEAR(biasCorrect(20.0, 30.0), 20.091133, 1e-6);
}

// At 0 deg C 0.471 and 0.482 % become 0.9992 and 1.0103. At 4 s the temperature is known across just 10 s, at 15 s not.
TEST(Motion, DryBiasTakesOutWhatIsBelow1PercentOrHasNoTemperature) {
    Series rh("QCRH");
    const double data[] = {0.4, 50.0, 0.471, 0.482, 50.0, 50.0};
    const double times[] = {-1.0, 0.0, 1.0, 2.0, 4.0, 15.0};
    for (int i = 0; i < 6; ++i) {
        rh.appendValue(data[i], times[i]);
    }
    rh.setAttribute(0, Value::ObsFlight);
    Series raw(rh, "RawRH");
    Series tdry("QCTdry");
    for (const double time : {0.0, 1.0, 2.0, 3.0, 13.0, 23.1}) {
        tdry.appendValue(0.0, time);
    }
    EXPECT_EQ(TDDryBiasCorr().correct(&rh, &raw, &tdry, 10.0), 2);
    EXPECT_EQ(timesOf(rh), "-1 0 2 4");
    EXPECT_EQ(rh.data(0), 0.4) << "the launch value is no value of the sensor";
    EXPECT_NEAR(rh.data(1), 50.80, 0.005);
    EXPECT_NEAR(rh.data(2), 1.0103, 1e-4);
    for (int i = 0; i <= raw.lastIndex(); ++i) {
        EXPECT_EQ(raw.testAttribute(i, Value::DryBiasCorrection), i == 2) << i;
    }
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

TEST(Motion, AirThatIsNoneGivesNoTimeToSettle) {
    Series tdry("QCTdry");
    tdry.appendValue(-5.0, 0.0);
    Series pres("QCPres");
    pres.appendValue(500.0, 0.0);
    const AmbientPoint bead(SensorType::RS80);
    const auto time = [&](double pressure, double ambient) {
        return bead.temperature(&tdry, &pres, pressure, ambient, 25.0, 0.1, 400.0, 676.0, 0.61).time;
    };
    // From 35 deg C to 0.1, at 16.95 m/s in place of the 12 above.
    EXPECT_NEAR(time(500.0, -10.0), 3.343327170 * std::pow(12.0 / 16.946397894, 0.6) * std::log(350.0), 1e-6);
    EXPECT_EQ(time(0.0, -10.0), 0.0);
    EXPECT_EQ(time(-5.0, -10.0), 0.0);
    EXPECT_EQ(time(500.0, -300.0), 0.0);
    const Series none("none");
    EXPECT_EQ(bead.temperature(&none, &pres, 500.0, -10.0, 25.0, 0.1, 400.0, 676.0, 0.61).time, 0.0);
    EXPECT_EQ(bead.temperature(&tdry, &none, 500.0, -10.0, 25.0, 0.1, 400.0, 676.0, 0.61).time, 0.0);
}

TEST(Motion, HumidityTimeToSettle) {
    Series rh("QCRH");
    Series pres("QCPres");
    for (const double t : {4.0, 5.0}) {
        rh.appendValue(50.0, t);
        pres.appendValue(500.0, t);
    }
    const auto thin = AmbientPoint(SensorType::RS41).RH(&rh, &pres, 50.0, -20.0, 25.0, 5.0);
    EXPECT_NEAR(thin.timeConstants, 0.98177267, 1e-8);
    EXPECT_NEAR(thin.time, 27.702679, 1e-6);

    const AmbientPoint bead(SensorType::RS80);
    const auto settled = bead.RH(&rh, &pres, 50.0, -20.0, 25.0, 5.0);
    EXPECT_NEAR(settled.timeConstants, 3.65740998, 1e-8);
    EXPECT_NEAR(settled.time, 37.378730, 1e-6);
    EXPECT_EQ(bead.RH(&rh, &pres, 0.5, -20.0, 25.0, 5.0).time, bead.RH(&rh, &pres, 1.0, -20.0, 25.0, 5.0).time)
        << "below 1 % the RH doesn't count";
    EXPECT_EQ(bead.RH(&rh, &pres, 50.0, 25.0, 25.0, 5.0).time, 4.0) << "nothing to settle: the first sample";
    EXPECT_EQ(bead.RH(&rh, &pres, 50.0, 25.0, 25.0, 5.0).timeConstants, 0.0);

    const Series empty("QCRH");
    for (const SensorType type : {SensorType::RS80, SensorType::RS41}) {
        const auto nothing = AmbientPoint(type).RH(&empty, &pres, 50.0, -20.0, 25.0, 5.0);
        EXPECT_EQ(nothing.time, 0.0) << "without a sample";
        EXPECT_EQ(nothing.timeConstants, 0.0);
    }

    const Series none("QCPres");
    const auto blind = bead.RH(&rh, &none, 50.0, -20.0, 25.0, 5.0);
    EXPECT_EQ(blind.timeConstants, 5.5);
    EXPECT_NEAR(blind.time, 4.0 + 5.5 * 12.8475, 1e-3) << "by the time constant at 250 mb";
}
