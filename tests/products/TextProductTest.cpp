// TROVE, ZOR and FRD: their headers word for word, and their rows read by the columns in which the fields stand.

#include "DataFileSaveFRD.h"
#include "DataFileSaveTrove.h"
#include "DataFileSaveZOR.h"
#include "ProductText.h"
#include "SndMetaData.h"
#include "Text.h"
#include "UtcTime.h"

#include "MadeAnalysis.h"
#include "MadeColumns.h"
#include "PrescribedTime.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

using C = ProductColumns;

SndMetaData launch() {
    SndMetaData meta;
    meta.ascending = false;
    meta.year = 2026, meta.month = 3, meta.day = 5, meta.hour = 12, meta.min = 7, meta.sec = 9;
    meta.launchTime = utcSeconds(2026, 3, 5, 12, 7, 9);
    meta.dataType = "drop test", meta.project = "PROJ", meta.flight = "F1", meta.siteId = "base";
    meta.platformType = "Twin jet of the very long name indeed", meta.platformId = "SYN01";
    meta.sondeId = "214350117", meta.sondeModel = "M1", meta.sysOperator = "A. Nimbus", meta.comments = "calm";
    meta.launchObsSource = "aircraft", meta.launchObsTime = "12:07:08";
    meta.launchLon.set(-104.5), meta.launchLat.set(39.75), meta.launchAlt.set(1700.4), meta.launchGpsAlt.set(1712.25);
    meta.launchPres.set(812.34), meta.launchTdry.set(20.0), meta.launchRH.set(50.0);
    meta.launchWspd.set(9.84), meta.launchWdir.set(200.4);
    return meta;
}

/// The same with as little known as can be.
SndMetaData bareLaunch() {
    SndMetaData meta = launch();
    meta.ascending = true;
    meta.flight.clear(), meta.platformId.clear();
    meta.launchLat = meta.launchGpsAlt = meta.launchWspd = LaunchParameter();
    meta.launchRH.set(0.0);
    return meta;
}

enum Kind { Trove, Zor, Frd };

std::string text(Kind kind, int n, const SndMetaData& meta, const EditorControl& editor, bool nulls = false) {
    const MadeColumns made(n);
    const auto c = [&](C::Column column) { return made[column]; };
    const auto optional = [&](C::Column column) { return nulls ? nullptr : made[column]; };
    std::ostringstream out;
    if (kind == Trove) {
        DataFileSaveTrove("p", out, n, meta, editor, c(C::Time), c(C::Pres), c(C::Tdry), c(C::RH), c(C::Wspd),
                          c(C::Wdir), c(C::U), c(C::V), optional(C::Lat), optional(C::Lon), optional(C::Alt),
                          optional(C::Dz));
    } else if (kind == Zor) {
        DataFileSaveZOR("p", out, n, meta, editor, c(C::Time), c(C::Pres), c(C::Tdry), c(C::RH), c(C::Wspd), c(C::Wdir),
                        c(C::U), c(C::V), optional(C::Lat), optional(C::Lon), optional(C::Alt), optional(C::GpsAlt),
                        optional(C::Dz));
    } else {
        DataFileSaveFRD("p", out, n, meta, editor, c(C::Time), c(C::Pres), c(C::Tdry), c(C::RH), c(C::Wspd), c(C::Wdir),
                        c(C::U), c(C::V), c(C::Lat), c(C::Lon), c(C::Alt), c(C::W), c(C::Sats));
    }
    return out.str();
}

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> all;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        all.push_back(line);
    }
    return all;
}

/// A field as it stands in the row: the columns it may fill, its decimals, and what a gap is written as.
struct Field {
    C::Column column;
    std::size_t first; ///< from 0
    std::size_t width;
    double gap;
    double step; ///< of the last decimal
};

constexpr double kAlwaysDry = -1.0;

double dewPointByFormula(double t, double rh) {
    return 2353.0 / (9.4051 - std::log10(rh / 100.0 * std::pow(10.0, 9.4051 - 2353.0 / (t + 273.15)))) - 273.15;
}

void expectRow(const std::string& line, int row, const std::vector<Field>& fields, const MadeColumns& made,
               double driest) {
    for (const Field& field : fields) {
        const std::string cell = line.substr(field.first, field.width);
        ASSERT_EQ(trimLeft(cell).find(' '), std::string::npos) << line;
        const auto i = static_cast<std::size_t>(row);
        double value = made.values[field.column][i];
        if (field.column == C::DewPoint) {
            const double t = made.values[C::Tdry][i];
            double rh = made.values[C::RH][i];
            rh = rh <= 0.0 && rh != -999.0 ? driest : rh;
            value = t == -999.0 || rh < 0.0 ? -999.0 : dewPointByFormula(t, rh);
        }
        const double slack = field.step / 2.0 + (field.column == C::DewPoint ? 0.006 : 1e-9);
        EXPECT_NEAR(std::stod(cell), value == -999.0 ? field.gap : value, slack) << "column " << field.column << " of\n"
                                                                                 << line;
    }
}

class TextProduct : public testing::Test {
protected:
    TextProduct() { analysis.config.set.set("PresOffset", -0.26); }

    std::string header(Kind kind, const SndMetaData& meta) { return text(kind, 0, meta, analysis.editor); }
    std::vector<std::string> all(Kind kind, int n, const SndMetaData& meta, bool nulls = false) {
        return lines(text(kind, n, meta, analysis.editor, nulls));
    }

    PrescribedTime processingTime;
    MadeAnalysis analysis;
};

} // namespace

TEST_F(TextProduct, TroveHeader) {
    EXPECT_EQ(header(Trove, launch()),
              "Data Type:                         drop test\n"
              "Project ID:                        PROJ, F1\n"
              "Launch Site Type/Site ID:          Twin jet of the very long name indeed, SYN01\n"
              "Launch Location (lon,lat,alt):     104 30.00'W, 39 45.00'N, -104.50000 39.75000 1700\n"
              "GMT Launch Time (y,m,d,h,m,s):     2026, 03, 05, 12:07:09\n"
              "Sonde Id:                          214350117\n"
              "/\n"
              "/\n"
              "/\n"
              "System Operator/Comments:          A. Nimbus,calm\n"
              "Post Processing Comments:          V3.4.8; Created on 01 Aug 2021 12:00 UTC\n"
              "/\n"
              " Time  Press  Temp  Dewpt  RH    Uwind  Vwind  Wspd  Dir   dZ      Lon     Lat    Rng   Az     Alt    "
              "Qp   Qt   Qh   Qu   Qv   Quv\n"
              "  sec    mb     C     C     %     m/s    m/s   m/s   deg   m/s     deg     deg     km   deg     m     "
              "mb   C    %    m/s  m/s  m/s\n"
              "------ ------ ----- ----- ----- ------ ------ ----- ----- ----- -------- ------- ----- ----- ------- "
              "---- ---- ---- ---- ---- ----\n");
    const auto bare = all(Trove, 0, bareLaunch());
    EXPECT_EQ(bare[1], "Project ID:                        PROJ");
    EXPECT_EQ(bare[2], "Launch Site Type/Site ID:          Twin jet of the very long name indeed");
    EXPECT_EQ(bare[3], "Launch Location (lon,lat,alt):     104 30.00'W, -999, -104.50000 -999 1700");
    processingTime.set("9000000000000000000"); // no calendar goes as far
    EXPECT_EQ(all(Trove, 0, launch())[10], "Post Processing Comments:          V3.4.8; Created on ");
}

TEST_F(TextProduct, ZorHeader) {
    EXPECT_EQ(header(Zor, launch()),
              "Data Type/Direction:                       drop test/Descending\n"
              "File Format/Version:                       ZOR Sounding Format/1.1\n"
              "Project Name/Platform:                     PROJ, F1/Twin jet of the very long name indeed, SYN01\n"
              "Launch Site:                               base\n"
              "Launch Location (lon,lat,alt):             104 30.00'W -104.500000, 39 45.00'N 39.750000,  1712.25\n"
              "UTC Launch Time (y,m,d,h,m,s):             2026, 03, 05, 12:07:09\n"
              "Sonde Id/Sonde Type:                       214350117/M1\n"
              "Reference Launch Data Source/Time:         aircraft/12:07:08\n"
              "System Operator/Comments:                  A. Nimbus/calm\n"
              "Post Processing Comments:                  V3.4.8; Created on 01 Aug 2021 12:00 UTC; Configuration "
              "internal\n"
              "/\n"
              "  Time   -- UTC  --   Press    Temp   Dewpt    RH     Uwind   Vwind   Wspd     Dir     dZ    GeoPoAlt   "
              "  Lon         Lat      GPSAlt \n"
              "   sec   hh mm   ss     mb      C       C       %      m/s     m/s     m/s     deg     m/s       m      "
              "  deg         deg         m   \n"
              "-------- -- -- ----- ------- ------- ------- ------- ------- ------- ------- ------- ------- -------- "
              "----------- ----------- --------\n");
    const auto bare = all(Zor, 0, bareLaunch());
    EXPECT_EQ(bare[0], "Data Type/Direction:                       drop test/Ascending");
    EXPECT_EQ(bare[2], "Project Name/Platform:                     PROJ/Twin jet of the very long name indeed");
    EXPECT_EQ(bare[4], "Launch Location (lon,lat,alt):             104 30.00'W -104.500000, -999 -999,  1700.40");
    processingTime.set("9000000000000000000"); // no calendar goes as far
    analysis.config.set.set("QCDisclaimer", "as is");
    const auto undated = all(Zor, 0, launch());
    EXPECT_EQ(undated[9], "Post Processing Comments:                  V3.4.8; Configuration internal");
    EXPECT_EQ(undated[10], "as is");
}

TEST_F(TextProduct, FrdHeader) {
    EXPECT_EQ(header(Frd, launch()), " ===========================================================================\n"
                                     " DROPWINDSONDE PROCESSING RECORD                            Sonde: 214350117\n"
                                     " FRD file written by V3.4.8, 01 Aug 2021 12:00 UTC\n"
                                     " Aircraft: Twin jet of the very long name indDate: 260305   Time: 120709 UTC\n"
                                     " ---------------------------------------------------------------------------\n"
                                     " Bias corrections:  PR =  -0.3 mb  TE =   0.0 C  RH =   0.0 %  PRB =  0.0 mb\n"
                                     " Filters (LPF):     PTH = \n"
                                     " Dyn RH correction = \n"
                                     " Estimated PR used = \n"
                                     " Dyn T correction  = \n"
                                     " ---------------------------------------------------------------------------\n"
                                     " COMMENT: calm\n"
                                     " ===========================================================================\n"
                                     "\n"
                                     " ===========================================================================\n"
                                     " Date: 260305   Lat:  39.75 N   TA:   20.0 C   PS:  812.3 mb   WD:   200 deg\n"
                                     " Time: 120709   Lon: 104.50 W   TD:    9.4 C   GA:   1712 m    WS:   9.8 m/s\n"
                                     " SID:  214350117                RH:   50.0 %   Navaid:   GP\n"
                                     " ===========================================================================\n"
                                     "\n"
                                     "IX      t (s)  P (mb)    T (C)    RH (%)  Z (m)   WD    WS (m/s)   U (m/s)   V "
                                     "(m/s)  NS  WZ (m/s)  ZW (m)   FP  FT  FH  FW    LAT (N)   LON (E)\n");
    const auto bare = all(Frd, 1, bareLaunch());
    ASSERT_EQ(bare.size(), 21U) << "row 0 isn't written";
    EXPECT_EQ(bare[3], " Aircraft: Twin jet of the very long name indDate: 260305   Time: 120709 UTC");
    EXPECT_EQ(bare[15], " Date: 260305   Lat: -999.0     TA:   20.0 C   PS:  812.3 mb   WD:   200 deg");
    // The dew point of 20 deg C at 0.1 %: 2353 / (9.4051 - log10(0.001 E)) with log10 E = 9.4051 - 2353 / 293.15.
    EXPECT_EQ(bare[16], " Time: 120709   Lon: 104.50 W   TD:  -59.8 C   GA:   1700 m    WS: -999.0 m/s");
    EXPECT_EQ(bare[17], " SID:  214350117                RH:    0.0 %   Navaid:   GP");
    SndMetaData unknown = launch();
    unknown.launchAlt = unknown.launchGpsAlt = unknown.launchRH = LaunchParameter();
    EXPECT_EQ(all(Frd, 0, unknown)[16], " Time: 120709   Lon: 104.50 W   TD: -999.0 C   GA:   -999 m    WS:   9.8 m/s");
}

TEST_F(TextProduct, TheDryBiasRemarkFollowsItsAttribute) {
    const std::string key = "TDDryBiasCorrApplied";
    for (const auto& [value, remark] : {std::pair("true", key), {"TRUE", key}, {"false", ""}, {"True", ""}}) {
        EXPECT_EQ(dryBiasRemark({{key, value}}), remark) << value;
    }
    EXPECT_EQ(dryBiasRemark({}), "");
}

TEST_F(TextProduct, TroveRowsRunUpward) {
    const std::vector<Field> fields{
        {C::Time, 0, 6, 99999, 0.1},    {C::Pres, 7, 6, 9999, 0.1},  {C::Tdry, 14, 5, 999, 0.1},
        {C::DewPoint, 20, 5, 999, 0.1}, {C::RH, 26, 5, 999, 0.1},    {C::U, 32, 6, 999, 0.1},
        {C::V, 39, 6, 999, 0.1},        {C::Wspd, 46, 5, 999, 0.1},  {C::Wdir, 52, 5, 999, 0.1},
        {C::Dz, 58, 5, 99, 0.1},        {C::Lon, 64, 8, 999, 0.001}, {C::Lat, 73, 7, 999, 0.001},
        {C::Alt, 93, 7, 99999, 0.1}};
    constexpr int kRows = 210;
    const MadeColumns made(kRows);
    for (const bool ascending : {true, false}) {
        SndMetaData meta = launch();
        meta.ascending = ascending;
        const auto written = all(Trove, kRows, meta);
        ASSERT_EQ(written.size(), 15U + kRows);
        for (int row = 0; row < kRows; ++row) {
            const std::string& line = written[static_cast<std::size_t>(15 + (ascending ? row : kRows - 1 - row))];
            expectRow(line, row, fields, made, kAlwaysDry);
            EXPECT_EQ(line.substr(80, 12), " 999.0 999.0");
            EXPECT_EQ(line.substr(100), " 99.0 99.0 99.0 99.0 99.0 99.0");
        }
    }
    const std::string withNulls = all(Trove, 1, launch(), true)[15];
    EXPECT_EQ(withNulls.substr(58), " 99.0  999.000 999.000 999.0 999.0 99999.0 99.0 99.0 99.0 99.0 99.0 99.0");
}

TEST_F(TextProduct, ZorRowsKeepTheOrderOfTime) {
    const std::vector<Field> fields{
        {C::Time, 0, 8, 99999, 0.01},     {C::Pres, 21, 7, -999, 0.01},   {C::Tdry, 29, 7, -999, 0.01},
        {C::DewPoint, 37, 7, -999, 0.01}, {C::RH, 45, 7, -999, 0.01},     {C::U, 53, 7, -999, 0.01},
        {C::V, 61, 7, -999, 0.01},        {C::Wspd, 69, 7, -999, 0.01},   {C::Wdir, 77, 7, -999, 0.01},
        {C::Dz, 85, 7, -999, 0.01},       {C::Alt, 93, 8, -999, 0.01},    {C::Lon, 102, 11, -999, 1e-6},
        {C::Lat, 114, 11, -999, 1e-6},    {C::GpsAlt, 126, 8, -999, 0.01}};
    constexpr int kRows = 210;
    const MadeColumns made(kRows);
    const auto written = all(Zor, kRows, launch());
    ASSERT_EQ(written.size(), 14U + kRows);
    for (int row = 0; row < kRows; ++row) {
        const std::string& line = written[static_cast<std::size_t>(14 + row)];
        expectRow(line, row, fields, made, 0.1);
        EXPECT_EQ(line.size(), 134U);
        // From 12:07:08.0 on, two rows a second.
        EXPECT_EQ(line.substr(8, 12),
                  stringFormat(" 12 %2d", 7 + (row + 16) / 120) + stringFormat(" %5.2f", ((row + 16) % 120) / 2.0));
    }
    const std::string withNulls = all(Zor, 1, launch(), true)[14];
    EXPECT_EQ(withNulls.substr(85), "-999.00  -999.00 -999.000000 -999.000000  -999.00");
    SndMetaData midnight = launch();
    midnight.launchTime = utcSeconds(2026, 3, 6, 0, 0, 0);
    EXPECT_EQ(all(Zor, 1, midnight)[14].substr(0, 20), "   -1.00 23 59 59.00");
}

TEST_F(TextProduct, FrdRowsAreNumbered) {
    const std::vector<Field> fields{
        {C::Time, 5, 7, 9999, 0.01},   {C::Pres, 14, 6, -999, 0.1},  {C::Tdry, 23, 7, -999, 0.01},
        {C::RH, 33, 6, -999, 0.1},     {C::Alt, 42, 5, -999, 1.0},   {C::Wdir, 49, 4, -999, 1.0},
        {C::Wspd, 55, 7, -999, 0.01},  {C::U, 65, 7, -999, 0.01},    {C::V, 75, 7, -999, 0.01},
        {C::Sats, 84, 4, -999, 1.0},   {C::W, 90, 6, -999, 0.1},     {C::Alt, 99, 5, -999, 1.0},
        {C::Lat, 126, 8, -999, 0.001}, {C::Lon, 136, 8, -999, 0.001}};
    constexpr int kRows = 210;
    const MadeColumns made(kRows);
    const auto written = all(Frd, kRows, launch());
    ASSERT_EQ(written.size(), 21U + kRows - 1U);
    for (int row = 1; row < kRows; ++row) {
        const std::string& line = written[static_cast<std::size_t>(20 + row)];
        expectRow(line, row, fields, made, kAlwaysDry);
        EXPECT_EQ(line.substr(0, 5), stringFormat("%04d ", row));
        EXPECT_EQ(line.substr(104, 22), "     0   0   0   0    ");
        EXPECT_EQ(line.size(), 144U);
    }
}
