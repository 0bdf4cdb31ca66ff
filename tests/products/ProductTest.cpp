#include "DataFileSaveCsv.h"
#include "ProductColumns.h"
#include "SkewTPicture.h"
#include "SummaryText.h"

#include "MadeAnalysis.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>

namespace {

struct Analysis : MadeAnalysis {
    std::string csv(const ProductColumns& c) {
        std::ostringstream out;
        using C = ProductColumns;
        DataFileSaveCsv("p", out, c.nRows(), editor.getSndMetaData(true), editor, c[C::Time], c[C::Pres], c[C::Tdry],
                        c[C::RH], c[C::Wspd], c[C::Wdir], c[C::U], c[C::V], c[C::Lat], c[C::Lon], c[C::Alt],
                        c[C::GpsAlt], c[C::Dz], c.firstDataIsPrelaunch());
        return out.str();
    }
};

/// \p text from the line on that begins with \p first.
std::string stretch(const std::string& text, const std::string& first) {
    const auto start = text.find("\n" + first);
    return start == std::string::npos ? "" : text.substr(start + 1);
}

} // namespace

TEST(DataFileSave, Formats) {
    const DataFileSave save("x");
    EXPECT_EQ(save.formatVal("%5.1f", 1.25), "  1.2");
    EXPECT_EQ(save.formatVal("%5.1f", -999.0, 999.0), "999.0");
    EXPECT_EQ(save.formatVal("%5.1f", 2.0, 999.0), "  2.0");
    EXPECT_EQ(save.formatVal("%03d", -999, 7), "007");
    EXPECT_EQ(save.formatVal("%.0f", 1.0, 2.0, false), "2");
    EXPECT_EQ(save.formatLoc(104.5), "104 30.00");
    EXPECT_EQ(save.formatLoc(-0.5), "0 30.00");
    EXPECT_EQ(save.formatLoc(7.0), "7 00.00");
}

TEST(CsvProduct, WritesTheRawSounding) {
    Analysis analysis;
    const std::string text = analysis.csv(ProductColumns::raw(analysis.editor));
    EXPECT_EQ(text.substr(0, text.find("SvnRevision")), "FileFormat,CSV\n"
                                                        "Year,2021\nMonth,08\nDay,01\nHour,12\nMinute,00\nSecond,03\n"
                                                        "Pressure,500.0,\"units=mb\"\n"
                                                        "Temperature,-5.5,\"units=deg C\"\n"
                                                        "RH,,\"units=%\"\n"
                                                        "Speed,,\"units=m/s\"\n"
                                                        "Direction,,\"units=deg\"\n"
                                                        "Latitude,25.1235,\"units=deg\"\n"
                                                        "Longitude,,\"units=deg\"\n"
                                                        "Altitude,,\"units=m\"\n"
                                                        "GpsAltitude,,\"units=m\"\n"
                                                        "Ascending,\"false\"\n"
                                                        "Comments,\"synthetic\"\n"
                                                        "DataType,\"\"\n"
                                                        "EquipmentType,\"0\"\n"
                                                        "PlatformType,\"\"\n"
                                                        "PlatformId,\"\"\n"
                                                        "Project,\"\"\n"
                                                        "Flight,\"\"\n"
                                                        "PtuWindTimeDiff,\"-0.5\"\n"
                                                        "RadiationCorr,\"0\"\n"
                                                        "TrackingType,\"19\"\n"
                                                        "SondeId,\"204715063\"\n"
                                                        "SondeModel,\"\"\n"
                                                        "Operator,\"\"\n"
                                                        "LaunchObsSource,\"unknown\"\n"
                                                        "LaunchObsTime,\"unknown\"\n");
    EXPECT_NE(text.find("\nTarvoVersion,\"V3.4.8\"\n"), std::string::npos);
    EXPECT_NE(text.find("\nDoQC,\"1\"\n"), std::string::npos);
    // The dew point of -5.25 deg C at 50 %: 2353 / (9.4051 - log10(0.5 E)) with log10 E = 9.4051 - 2353 / 267.9.
    EXPECT_EQ(stretch(text, "Fields"),
              "Fields,Time,Pressure,Temperature,RH,Speed,Direction,Latitude,Longitude,Altitude,GPS Altitude,Dewpoint,"
              "Uwnd,Vwnd,Ascent\n"
              "Units,sec,mb,deg C,%,m/s,deg,deg,deg,m,m,deg C,m/s,m/s,m/s\n"
              "Data,0.0,500.00,-5.50,,10.00,90.00,25.12346,-80.50000,5500.0,5510.0,,,,-11.00\n"
              "Data,0.5,505.50,-5.25,50.00,10.00,90.00,,,5420.0,,-14.13,,,-11.00\n");
}

TEST(ProductColumns, TakeTheirSeries) {
    Analysis analysis;
    using C = ProductColumns;
    const C raw = C::raw(analysis.editor);
    ASSERT_EQ(raw.nRows(), 3); // the launch row ahead of two records
    EXPECT_TRUE(raw.firstDataIsPrelaunch());
    EXPECT_EQ(raw[C::Time][0], -1.0);
    EXPECT_EQ(raw[C::Pres][1], 500.004);
    EXPECT_EQ(raw[C::U][1], -999.0);
    EXPECT_EQ(raw[C::Dz][2], -11.0);
    EXPECT_EQ(raw[C::GpsAlt][2], -999.0);
    EXPECT_EQ(raw[C::DewPoint], nullptr) << "the file gives none";
    analysis.editor.getSeries("RawDp")->appendValue(-20.0, 0.5);
    EXPECT_EQ(C::raw(analysis.editor)[C::DewPoint][2], -20.0);

    const C computed = C::qc(analysis.editor, analysis.config.set);
    EXPECT_EQ(computed[C::Lat][1], -999.0) << "nothing has computed a position yet";
    EXPECT_NEAR(computed[C::U][1], -10.0, 1e-4);
    analysis.config.set.set("ReportObservedPos", 1.0);
    EXPECT_EQ(C::qc(analysis.editor, analysis.config.set)[C::Lat][1], 25.123456);

    analysis.editor.getSeries("QCAltMissing")->appendValue(77.0, 0.5);
    analysis.config.set.set("SetHtsMissing", 1.0);
    EXPECT_EQ(C::qc(analysis.editor, analysis.config.set)[C::Alt][2], 77.0);
}

// The items are those of a window, which sets the remarkable ones in red.
TEST(SummaryText, HasNoMarkup) {
    Analysis made;
    made.editor.summaryAddItem("Zero", "1 < 2 > 0, a<b>c</b>");
    std::ostringstream out;
    saveSummaryText(made.editor, out);
    EXPECT_NE(out.str().find("\nFast Fall Test\nNot enough points for the fast fall check\n"), std::string::npos);
    EXPECT_EQ(stretch(out.str(), "Zero"), "Zero\n1 < 2 > 0, ac\n");
}

// What a diagram can be drawn in: no more lines than can be seen, and no range turned around.
TEST(SkewTSetup, KeepsTheLimitsWithinReason) {
    struct Case {
        double tmin, tmax, pTop, pBottom;
        std::vector<double> limits;
    };
    const double none = std::nan("");
    const double infinite = std::numeric_limits<double>::infinity();
    const Case cases[] = {
        {-60, 30, 50, 1000, {-60, 30, 50, 1000}},       {-1e7, 1e300, 0, 1e300, {-1000, 1000, 1, 2000}},
        {40, -40, 1000, 100, {-40, 40, 100, 1050}},     {20, 20, 500, 500, {-40, 40, 100, 1050}},
        {2000, 3000, 3000, 4000, {-40, 40, 100, 1050}}, {none, 30, 50, infinite, {-40, 40, 100, 1050}},
    };
    for (const Case& test : cases) {
        MadeConfig config;
        config.override("SkewTtmin", test.tmin);
        config.override("SkewTtmax", test.tmax);
        config.override("SkewTpmin", test.pTop);
        config.override("SkewTpmax", test.pBottom);
        const SkewTSetup setup(config.set);
        EXPECT_EQ((std::vector<double>{setup.tmin, setup.tmax, setup.pTop, setup.pBottom}), test.limits);
    }
}
