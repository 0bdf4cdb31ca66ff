// TROVE, ZOR and FRD, word for word.

#include "DataFileSaveFRD.h"
#include "DataFileSaveTrove.h"
#include "DataFileSaveZOR.h"
#include "ProductColumns.h"
#include "ProductText.h"
#include "SndMetaData.h"
#include "UtcTime.h"

#include "MadeAnalysis.h"
#include "PrescribedTime.h"
#include "TextEdits.h"

#include <array>
#include <gtest/gtest.h>
#include <sstream>
#include <vector>

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

using Rows = std::vector<std::array<double, C::Sats + 1>>;
constexpr double m = -999.0;

/// A reference observation, a row with a value in every column, one with none but the time.
const Rows kRows{
    {-1, 812.34, 20, 50, 9.84, 200.4, 3.43, 9.22, m, 39.75, -104.5, 1700.4, 1712.26, m, m},
    {0.5, 1013.24, -60.26, 0, 99.94, 359.96, -99.88, 99.88, -9.7, -89.1234, -179.123456, 35999, 35998.64, -29.94, 12},
    {51, m, m, m, m, m, m, m, m, m, m, m, m, m, m}};

enum Kind { Trove, Zor, Frd };

class TextProduct : public testing::Test {
protected:
    TextProduct() { analysis.config.set.set("PresOffset", -0.26); }

    /// The product of \p rows, whose positions the writer may not be given.
    std::string text(Kind kind, const SndMetaData& meta, const Rows& rows = {}, bool withPositions = true) {
        const int n = static_cast<int>(rows.size());
        std::array<std::vector<double>, C::Sats + 1> columns;
        for (const auto& row : rows) {
            for (std::size_t i = 0; i < row.size(); ++i) {
                columns[i].push_back(row[i]);
            }
        }
        const auto c = [&](C::Column column) {
            return (column == C::Lat || column == C::Lon) && !withPositions ? nullptr : columns[column].data();
        };
        const EditorControl& editor = analysis.editor;
        std::ostringstream out;
        if (kind == Trove) {
            DataFileSaveTrove("p", out, n, meta, editor, c(C::Time), c(C::Pres), c(C::Tdry), c(C::RH), c(C::Wspd),
                              c(C::Wdir), c(C::U), c(C::V), c(C::Lat), c(C::Lon), c(C::Alt), c(C::Dz));
        } else if (kind == Zor) {
            DataFileSaveZOR("p", out, n, meta, editor, c(C::Time), c(C::Pres), c(C::Tdry), c(C::RH), c(C::Wspd),
                            c(C::Wdir), c(C::U), c(C::V), c(C::Lat), c(C::Lon), c(C::Alt), c(C::GpsAlt), c(C::Dz));
        } else {
            DataFileSaveFRD("p", out, n, meta, editor, c(C::Time), c(C::Pres), c(C::Tdry), c(C::RH), c(C::Wspd),
                            c(C::Wdir), c(C::U), c(C::V), c(C::Lat), c(C::Lon), c(C::Alt), c(C::W), c(C::Sats));
        }
        return out.str();
    }
    std::vector<std::string> lines(Kind kind, const SndMetaData& meta) {
        std::istringstream stream(text(kind, meta));
        std::vector<std::string> all;
        for (std::string line; std::getline(stream, line);) {
            all.push_back(line);
        }
        return all;
    }
    /// What follows the header.
    std::string rowsOf(Kind kind, const SndMetaData& meta, const Rows& rows, bool withPositions = true) {
        return text(kind, meta, rows, withPositions).substr(text(kind, meta).size());
    }

    PrescribedTime processingTime;
    MadeAnalysis analysis;
};

} // namespace

TEST_F(TextProduct, TroveHeader) {
    EXPECT_EQ(text(Trove, launch()),
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
    const auto bare = lines(Trove, bareLaunch());
    EXPECT_EQ(bare[1], "Project ID:                        PROJ");
    EXPECT_EQ(bare[2], "Launch Site Type/Site ID:          Twin jet of the very long name indeed");
    EXPECT_EQ(bare[3], "Launch Location (lon,lat,alt):     104 30.00'W, -999, -104.50000 -999 1700");
}

TEST_F(TextProduct, ZorHeader) {
    EXPECT_EQ(text(Zor, launch()),
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
    const auto bare = lines(Zor, bareLaunch());
    EXPECT_EQ(bare[0], "Data Type/Direction:                       drop test/Ascending");
    EXPECT_EQ(bare[2], "Project Name/Platform:                     PROJ/Twin jet of the very long name indeed");
    EXPECT_EQ(bare[4], "Launch Location (lon,lat,alt):             104 30.00'W -104.500000, -999 -999,  1700.40");
    processingTime.set("9000000000000000000"); // no calendar goes as far
    analysis.config.set.set("QCDisclaimer", "as is");
    const auto undated = lines(Zor, launch());
    EXPECT_EQ(undated[9], "Post Processing Comments:                  V3.4.8; Configuration internal");
    EXPECT_EQ(undated[10], "as is");
}

TEST_F(TextProduct, FrdHeader) {
    EXPECT_EQ(text(Frd, launch()), " ===========================================================================\n"
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
    const auto bare = lines(Frd, bareLaunch());
    EXPECT_EQ(bare[15], " Date: 260305   Lat: -999.0     TA:   20.0 C   PS:  812.3 mb   WD:   200 deg");
    // The dew point of 20 deg C at 0.1 %: 2353 / (9.4051 - log10(0.001 E)) with log10 E = 9.4051 - 2353 / 293.15.
    EXPECT_EQ(bare[16], " Time: 120709   Lon: 104.50 W   TD:  -59.8 C   GA:   1700 m    WS: -999.0 m/s");
    EXPECT_EQ(bare[17], " SID:  214350117                RH:    0.0 %   Navaid:   GP");
    SndMetaData unknown = launch();
    unknown.launchAlt = unknown.launchGpsAlt = unknown.launchRH = LaunchParameter();
    EXPECT_EQ(lines(Frd, unknown)[16], " Time: 120709   Lon: 104.50 W   TD: -999.0 C   GA:   -999 m    WS:   9.8 m/s");
}

TEST_F(TextProduct, TheDryBiasRemarkFollowsItsAttribute) {
    const std::string key = "TDDryBiasCorrApplied";
    for (const auto& [value, remark] : {std::pair("true", key), {"TRUE", key}, {"false", ""}, {"True", ""}}) {
        EXPECT_EQ(dryBiasRemark({{key, value}}), remark) << value;
    }
    EXPECT_EQ(dryBiasRemark({}), "");
}

// At an RH of 0 % TROVE has no dew point, and ZOR that of 0.1 %, by the formula above.
TEST_F(TextProduct, Rows) {
    const std::string reference =
        "  -1.0  812.3  20.0   9.4  50.0    3.4    9.2   9.8 200.4  99.0 -104.500  39.750 999.0 "
        "999.0  1700.4 99.0 99.0 99.0 99.0 99.0 99.0\n";
    const std::string full = "   0.5 1013.2 -60.3 999.0   0.0  -99.9   99.9  99.9 360.0 -29.9 -179.123 -89.123 999.0 "
                             "999.0 35999.0 99.0 99.0 99.0 99.0 99.0 99.0\n";
    const std::string empty = "  51.0 9999.0 999.0 999.0 999.0  999.0  999.0 999.0 999.0  99.0  999.000 999.000 999.0 "
                              "999.0 99999.0 99.0 99.0 99.0 99.0 99.0 99.0\n";
    SndMetaData meta = launch();
    EXPECT_EQ(rowsOf(Trove, meta, kRows), empty + full + reference);
    meta.ascending = true;
    EXPECT_EQ(rowsOf(Trove, meta, kRows), reference + full + empty);
    EXPECT_EQ(rowsOf(Trove, meta, {kRows[0]}, false), replaced(reference, "-104.500  39.750", " 999.000 999.000"));

    EXPECT_EQ(rowsOf(Zor, launch(), kRows),
              "   -1.00 12  7  8.00  812.34   20.00    9.40   50.00    3.43    9.22    9.84  200.40 -999.00  1700.40 "
              "-104.500000   39.750000  1712.26\n"
              "    0.50 12  7  9.50 1013.24  -60.26 -105.71    0.00  -99.88   99.88   99.94  359.96  -29.94 35999.00 "
              "-179.123456  -89.123400 35998.64\n"
              "   51.00 12  8  0.00 -999.00 -999.00 -999.00 -999.00 -999.00 -999.00 -999.00 -999.00 -999.00  -999.00 "
              "-999.000000 -999.000000  -999.00\n");
    meta.launchTime = utcSeconds(2026, 3, 6, 0, 0, 0);
    EXPECT_EQ(rowsOf(Zor, meta, kRows).substr(0, 20), "   -1.00 23 59 59.00");

    EXPECT_EQ(
        rowsOf(Frd, launch(), kRows), // without the reference
        "0001    0.50  1013.2    -60.26      0.0   35999   360    99.94    -99.88     99.88    12    -9.7   35999 "
        "    0   0   0   0     -89.123  -179.123\n"
        "0002   51.00  -999.0   -999.00   -999.0    -999  -999  -999.00   -999.00   -999.00  -999  -999.0    -999 "
        "    0   0   0   0    -999.000  -999.000\n");
}
