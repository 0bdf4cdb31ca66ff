#include "BufrRows.h"
#include "FileSaver.h"
#include "Missing.h"
#include "TarvoToBUFR_BC25.h"
#include "TarvoToBUFR_BC26.h"

#include "MadeLevels.h"
#include "PrescribedTime.h"
#include "TemporaryFolder.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

const char* const kTables = TARVO_SOURCE_DIR "/resources/bufr";

using Columns = BufrRows::Columns;
using Doubles = std::vector<double>;

/// Rows of which only some columns have values.
BufrRows rowsOf(const Doubles& time, const std::map<BufrRows::Column, Doubles>& given) {
    Columns columns;
    columns.fill(Doubles(time.size(), kMissing));
    for (const auto& [column, values] : given) {
        columns[column] = values;
    }
    return {time, columns};
}

Doubles times(const BufrRows& rows) {
    Doubles all;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        all.push_back(rows.time(row));
    }
    return all;
}

Doubles values(const BufrRows& rows, BufrRows::Column column) {
    Doubles all;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        all.push_back(rows.value(column, row));
    }
    return all;
}

std::vector<std::uint32_t> flags(const BufrRows& rows) {
    std::vector<std::uint32_t> all;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        all.push_back(rows.flags(row));
    }
    return all;
}

/// A sounding of a few rows that differ in time and pressure only, as a message.
class MadeProduct {
public:
    MadeProduct() {
        unsetenv("AFSISIO");
        unsetenv("BUFR_TABLES");
        TarvoToBUFR::set_bufr_table_dir(kTables);
        meta.year = 2021;
        meta.month = 8;
        meta.day = 1;
        meta.sondeId = "204715063";
    }

    bool code(int n) {
        const Doubles time(static_cast<std::size_t>(n), 0.0);
        const Doubles pres(static_cast<std::size_t>(n), 1000.0);
        const Doubles none(static_cast<std::size_t>(n), kMissing);
        const Doubles lons(static_cast<std::size_t>(n), lon);
        const double* no = none.data();
        testing::internal::CaptureStderr();
        std::unique_ptr<TarvoToBUFR> bufr;
        if (meta.ascending) {
            bufr = std::make_unique<TarvoToBUFR_BC25>();
        } else {
            bufr = std::make_unique<TarvoToBUFR_BC26>();
        }
        std::ostringstream stream;
        const bool processed =
            bufr->process(n, meta, attributes, nullptr, time.data(), pres.data(), no, no, no, no, no, lons.data(), no);
        const bool saved = bufr->save(&stream);
        said = testing::internal::GetCapturedStderr();
        message = stream.str();
        return processed && saved;
    }

    /// \p bits of Section 4 from bit \p first on, of a message without a header.
    unsigned data(std::size_t first, std::size_t bits) const {
        const std::size_t begin = 30 + static_cast<std::uint8_t>(message[32]) + 4U;
        unsigned value = 0;
        for (std::size_t bit = first; bit < first + bits; ++bit) {
            value = value << 1 | (static_cast<std::uint8_t>(message[begin + bit / 8]) >> (7 - bit % 8) & 1U);
        }
        return value;
    }

    SndMetaData meta;
    double lon = kMissing; ///< of all rows, degrees
    TarvoToBUFR::Attributes attributes;
    std::string message;
    std::string said;
};

} // namespace

TEST(BufrRows, AveragesWindsAsVectors) {
    Doubles dirs{345.0, 5.0, kMissing, 90.0};
    Doubles speeds{5.0, 5.0, 7.0, kMissing};
    Doubles dir;
    Doubles speed;
    BufrRows::average_wind(dirs, speeds, dir, speed);
    EXPECT_NEAR(dir.at(0), 355.0, 1e-5);
    EXPECT_NEAR(speed.at(0), 5.0 * std::cos(10.0 * 3.14159265 / 180.0), 1e-8);
    EXPECT_TRUE(dirs.empty());
    BufrRows::average_wind(dirs, speeds, dir, speed);
    EXPECT_EQ(dir.at(1), kMissing);
    EXPECT_EQ(speed.at(1), kMissing);
}

TEST(BufrRows, AreOneForEachSecond) {
    BufrRows rows =
        rowsOf({-1.0, 0.0, 0.5, 0.9, 2.0, 2.5}, {{BufrRows::Pres, {500.0, 501.0, 502.0, kMissing, 510.0, kMissing}},
                                                 {BufrRows::Wspd, {kMissing, 3.0, 3.0, kMissing, kMissing, 8.0}},
                                                 {BufrRows::Wdir, {kMissing, 90.0, 90.0, 90.0, kMissing, kMissing}}});
    rows.resample_data();
    EXPECT_EQ(times(rows), (Doubles{-1.0, 0.0, 2.0}));
    EXPECT_EQ(values(rows, BufrRows::Pres), (Doubles{500.0, 501.5, 510.0}));
    EXPECT_NEAR(rows.value(BufrRows::Wdir, 1), 90.0, 1e-6);
    EXPECT_EQ(values(rows, BufrRows::Tdry), (Doubles{kMissing, kMissing, kMissing}));
    EXPECT_EQ(rows.value(BufrRows::Wspd, 2), kMissing);

    BufrRows upward = rowsOf({0.0, 1.0}, {{BufrRows::Pres, {900.0, 899.0}}});
    upward.resample_data();
    EXPECT_EQ(times(upward), (Doubles{-1.0, 0.0, 1.0})) << "an empty second ahead of the first";
    upward.remove_missing();
    EXPECT_EQ(times(upward), (Doubles{0.0, 1.0}));

    BufrRows none = rowsOf({}, {});
    none.resample_data();
    EXPECT_EQ(none.size(), 0U);
}

TEST(BufrRows, AverageLongitudesAcrossTheDateLine) {
    const std::pair<Doubles, double> cases[] = {
        {{179.75, kMissing, -179.75}, -180.0},
        {{-179.75, 179.75}, -180.0},
        {{179.5, -179.75, -179.75}, -180.0},
        {{179.25, 179.75, -179.75}, 179.75},
        {{-179.5, 179.75}, -179.875},
        {{10.0, 10.5}, 10.25},
        {{kMissing, -75.5}, -75.5},
        {{kMissing}, kMissing},
        {{}, kMissing},
    };
    for (const auto& [longitudes, mean] : cases) {
        BufrRows rows = rowsOf(Doubles(longitudes.size(), 1.0), {{BufrRows::Lon, longitudes}});
        rows.resample_data();
        Doubles all = longitudes;
        EXPECT_EQ(BufrRows::average_longitudes(all), mean);
        EXPECT_TRUE(all.empty());
        if (rows.size() > 0) {
            EXPECT_EQ(rows.value(BufrRows::Lon, rows.size() - 1), mean);
        }
    }
}

TEST(BufrRows, AnEmptyLaunchRowStaysOfADropsonde) {
    BufrRows rows = rowsOf({-1.0, 0.0, 1.0}, {{BufrRows::Pres, {kMissing, kMissing, 500.0}}});
    rows.flagLaunch();
    rows.remove_missing();
    EXPECT_EQ(times(rows), (Doubles{-1.0, 1.0}));
    EXPECT_THAT(flags(rows), ElementsAre(0x08U, 0U));
}

TEST(BufrRows, TakeTheLevelsIn) {
    MadeLevels made;
    made.add(LevelType::Standard, {{LFtime, 1.7}, {LFpres, 850.0}, {LFtdry, 10.0}});
    made.add(LevelType::GDLTdry, {{LFtime, 1.2}, {LFpres, 851.0}, {LFtdry, 11.0}, {LFalt, 1500.0}});
    made.add(LevelType::InversionTop, {{LFtime, 1.2}, {LFpres, 851.0}, {LFtdry, 11.0}});
    made.add(LevelType::TropopauseLevel, {{LFtime, 9.0}, {LFpres, 100.0}, {LFwspd, 30.0}});
    made.add(LevelType::ShearAbove, {{LFtime, 1.5}, {LFpres, 852.0}, {LFwspd, 3.0}}); // has no flag
    made.add(LevelType::MaxWind, {{LFtime, 2.0}, {LFpres, 840.0}, {LFalt, 1600.0}});  // has no value
    made.add(LevelType::Freezing, {{LFtime, 2.0}, {LFtdry, 0.0}});                    // has no pressure
    made.add(LevelType::MaxWind, {{LFtime, 2.0}, {LFpres, 841.0}, {LFwspd, 5.0}}).tag(true);
    const auto rows = [] {
        return rowsOf({0.0, 1.0, 2.0}, {{BufrRows::Pres, {900.0, 860.0, 840.0}}, {BufrRows::RH, {50.0, 60.0, 70.0}}});
    };
    BufrRows whole = rows();
    whole.merge_levels(made.levels, true);
    whole.remove_missing();
    EXPECT_EQ(times(whole), (Doubles{0.0, 1.0, 2.0, 9.0}));
    EXPECT_THAT(flags(whole), ElementsAre(0U, 0x12000U, 0U, 0x8000U));
    EXPECT_EQ(values(whole, BufrRows::Pres), (Doubles{900.0, 852.0, 840.0, 100.0})) << "the last level stands";
    EXPECT_EQ(values(whole, BufrRows::RH), (Doubles{50.0, 60.0, 70.0, kMissing}));
    EXPECT_EQ(whole.value(BufrRows::Alt, 1), 1500.0);

    BufrRows exact = rows();
    exact.merge_levels(made.levels, false);
    exact.remove_missing();
    EXPECT_EQ(times(exact), (Doubles{0.0, 1.0, 1.2, 1.7, 2.0, 9.0}));
    EXPECT_THAT(flags(exact), ElementsAre(0U, 0U, 0x2000U, 0x10000U, 0U, 0x8000U));
    EXPECT_EQ(values(exact, BufrRows::Tdry), (Doubles{kMissing, kMissing, 11.0, 10.0, kMissing, kMissing}));
}

TEST(BufrRows, FlagEachKindOfLevel) {
    const std::map<LevelType, std::uint32_t> masks{
        {LevelType::Standard, 0x10000},     {LevelType::SurfaceThermo, 0x20000},
        {LevelType::SurfaceWind, 0x20000},  {LevelType::HighestThermo, 0x3000},
        {LevelType::Mb110Thermo, 0x3000},   {LevelType::HighestWind, 0x10},
        {LevelType::Mb110Wind, 0x800},      {LevelType::GDLWspd, 0x800},
        {LevelType::GDLWdir, 0x800},        {LevelType::TropopauseLevel, 0x8000},
        {LevelType::InversionTop, 0x2000},  {LevelType::InversionBottom, 0x2000},
        {LevelType::DoubtfulTemp, 0x2000},  {LevelType::GDLTdry, 0x2000},
        {LevelType::MissingTdryTop, 0x400}, {LevelType::MissingTdryBottom, 0x200},
        {LevelType::MissingRHTop, 0x100},   {LevelType::MissingRHBottom, 0x80},
        {LevelType::Freezing, 0x4},         {LevelType::GDLRH, 0x1000},
        {LevelType::MaxWind, 0x4000}};
    for (int type = 0; type <= static_cast<int>(LevelType::RELLocation); ++type) {
        const auto known = masks.find(static_cast<LevelType>(type));
        EXPECT_EQ(BufrRows::flagsOf(static_cast<LevelType>(type)), known == masks.end() ? 0U : known->second) << type;
    }
}

TEST(TarvoToBUFR, NamesStationAndSonde) {
    // 001081, 002017, 025061, 002191: 160 + 5 + 96 + 4 bits ahead of block (7), station (10), ship (72), type (8).
    struct {
        const char* station;
        unsigned block;
        unsigned number;
    } const cases[] = {{"72469", 72, 469},  {"01001", 1, 1}, {"99999", 127, 1023},
                       {"7246", 127, 1023}, {"", 127, 1023}, {"72A69", 127, 1023}};
    MadeProduct product;
    for (const auto& c : cases) {
        product.meta.BSN = c.station;
        ASSERT_TRUE(product.code(1)) << product.said;
        EXPECT_EQ(product.data(265, 7), c.block) << c.station;
        EXPECT_EQ(product.data(272, 10), c.number) << c.station;
    }
    EXPECT_EQ(product.data(0, 32), 0x32303437U) << "2047";
    EXPECT_EQ(product.data(165, 32), 0x54617276U) << "Tarv";
    EXPECT_EQ(product.data(282, 8), '/') << "the call sign that nobody has set";
    EXPECT_EQ(product.data(354, 8), 0U) << "//";
    EXPECT_EQ(product.data(366, 7), 0U) << "//";

    product.meta.sondeId = "";
    product.meta.callSign = "CALL";
    product.meta.WMOsondeType = "";
    product.meta.WMOtrackingType = "";
    ASSERT_TRUE(product.code(0)) << product.said;
    EXPECT_EQ(product.data(0, 32), 0xFFFFFFFFU);
    EXPECT_EQ(product.data(282, 32), 0xFFFFFFFFU);
    EXPECT_EQ(product.data(354, 8), 9U);
    EXPECT_EQ(product.data(362, 4), 4U) << "solar correction";
    EXPECT_EQ(product.data(366, 7), 19U);
    EXPECT_EQ(product.said, "");
}

TEST(TarvoToBUFR, TheDisplacementCrossesTheDateLine) {
    // 603 bits of the head and the count of rows, then time (15), flags (18), pressure (14), height (17) and the
    // displacement in latitude (25); that in longitude counts from -180 degrees in steps of 0.00001, all bits set being
    // a missing one.
    const double missing = 0x3FFFFFF * 1e-5 - 180.0;
    struct {
        double launch;
        double lon;
        double displacement;
    } const cases[] = {{179.9, -179.95, 0.15},  {-179.9, 179.95, -0.15}, {-75.0, -74.5, 0.5},
                       {0.0, -180.0, -180.0},   {10.0, -175.0, 175.0},   {200.0, -159.0, 1.0},
                       {-80.0, 999.0, missing}, {-80.0, 9999.0, missing}};
    for (const auto& c : cases) {
        MadeProduct product;
        product.meta.launchLat.set(10.0);
        product.meta.launchLon.set(c.launch);
        product.lon = c.lon;
        ASSERT_TRUE(product.code(1)) << product.said;
        EXPECT_NEAR(product.data(692, 26) * 1e-5 - 180.0, c.displacement, 1e-9) << c.launch << " " << c.lon;
    }
}

TEST(TarvoToBUFR, FillsSection1) {
    struct {
        bool ascending;
        const char* type; ///< null for no attribute
        int subCategory;
    } const cases[] = {{true, "0", 4}, {true, "1", 5},     {true, "2", 6},
                       {true, "3", 0}, {true, nullptr, 0}, {false, "1", 7}};
    for (const auto& c : cases) {
        MadeProduct product;
        product.meta.ascending = c.ascending;
        if (c.type != nullptr) {
            product.attributes = {{"TempMsgType", c.type}, {"BufrOrigCenter", "98.7"}};
        }
        ASSERT_TRUE(product.code(1)) << product.said;
        const char centre = c.type != nullptr ? 98 : 60;
        EXPECT_EQ(product.message.substr(12, 14),
                  std::string({0, centre, 0, 0, 0, 0, 2, static_cast<char>(c.subCategory), 0, 25, 0, 0x07, '\xE5', 8}));
        EXPECT_EQ(product.message[32], 7 + 2 * (c.ascending ? 5 : 6)) << "descriptors of Section 3";
    }
}

TEST(TarvoToBUFR, PutsAHeaderInFront) {
    MadeProduct product;
    product.meta.hour = 23;
    product.attributes = {{"BufrAddAbrHdr", "1"}};
    ASSERT_TRUE(product.code(1));
    EXPECT_EQ(product.message.substr(0, 25), "IUDA01 KWBC 012300\r\r\nBUFR");
    product.attributes = {{"BufrAddAbrHdr", "1"}, {"BufrOrigCenterICAO", "KNHC"}, {"BufrAbrHdr", ""}};
    {
        const PrescribedTime processingTime;
        ASSERT_TRUE(product.code(1));
    }
    EXPECT_EQ(product.message.substr(0, 25), "UZPN13 KNHC 011200\r\r\nBUFR") << "without a position";
    product.attributes["BufrAddAbrHdr"] = "0";
    ASSERT_TRUE(product.code(1));
    EXPECT_EQ(product.message.substr(0, 4), "BUFR");
}

TEST(TarvoToBUFR, SaysWhatItCantCode) {
    MadeProduct product;
    EXPECT_FALSE(product.code(65536));
    EXPECT_THAT(product.said, HasSubstr("65536 rows"));

    testing::internal::CaptureStderr();
    TarvoToBUFR::set_bufr_table_dir(std::string(488, 'x'));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "static void TarvoToBUFR::set_bufr_table_dir(std::string): BUFR_TABLES directory location string (" +
                  std::string(488, 'x') + ") is too long and cannot be used.\n");
    EXPECT_TRUE(product.code(1)) << "the directory before stands";

    const std::string unable = ": Internal error, template and/or dataset are undefined, unable to process the BUFR\n";
    TarvoToBUFR::set_bufr_table_dir(std::string(487, 'x'));
    EXPECT_FALSE(product.code(1));
    EXPECT_EQ(product.said, "void TarvoToBUFR::create_template(std::vector<int>): Internal error, unable to finalize "
                            "the BUFR template\nvoid TarvoToBUFR::process()" +
                                unable + "void TarvoToBUFR::save(std::ostream*)" + unable);
    EXPECT_EQ(product.message, "");

    // A place that the user names goes before.
    setenv("BUFR_TABLES", kTables, 1);
    EXPECT_TRUE(product.code(1));
    unsetenv("BUFR_TABLES");
}

TEST(TarvoToBUFR, DoesntTakeTablesThatDiffer) {
    const TemporaryFolder folder;
    writeFile(folder / "table_b_bufr", readFile(std::string(kTables) + "/table_b_bufr"));
    const std::string tableD = readFile(std::string(kTables) + "/table_d_bufr");
    struct {
        const char* from;
        const char* to;
        const char* says;
    } const cases[] = {
        {"301113 008021", "301113 008002",
         "TarvoToBUFR is expecting descriptor 8021, which doesn't match descriptor 8002 in the BUFR tables\n"},
        {"303054 004086 008042 007004", "303054 004086 008042 012101 012101",
         "unexpected descriptor found in the 303054 sequence\n"},
        {"303054 004086", "303054 004015", "unexpected descriptor found in the 303054 sequence\n"},
    };
    for (const auto& c : cases) {
        std::string changed = tableD;
        changed.replace(changed.find(c.from), std::string(c.from).size(), c.to);
        writeFile(folder / "table_d_bufr", changed);
        MadeProduct product;
        TarvoToBUFR::set_bufr_table_dir(folder.path().string());
        EXPECT_FALSE(product.code(2));
        EXPECT_THAT(product.said, HasSubstr(c.says));
    }
}
