#include "ShippedTables.h"

#include "TemporaryFolder.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

std::string said;

void hear(const char* text) {
    said += text;
}

const char* const kTemperature =
    "012101  TEMPERATURE/DRY-BULB TEMPERATURE            K            2          0    16\n";

/// Tables B and D of a folder, loaded by its name in the environment.
class LoadedTables {
public:
    LoadedTables(const std::string& tableB, const std::string& tableD) {
        writeFile(_folder / "table_b_bufr", tableB);
        writeFile(_folder / "table_d_bufr", tableD);
        said.clear();
        bufr_set_debug_handler(&hear);
        unsetenv("AFSISIO");
        setenv("BUFR_TABLES", _folder.path().c_str(), 1);
        result = bufr_load_cmc_tables(&tables);
        bufr_set_debug_handler(nullptr);
    }
    BufrTables tables;
    int result;

private:
    TemporaryFolder _folder;
};

struct PrintedElement {
    int descriptor;
    const char* description;
    const char* unit;
    BufrType type;
    int scale;
    int reference;
    int bits;
};

constexpr BufrType N = BufrType::Numeric;
constexpr BufrType Q = BufrType::NumericWithScale;
constexpr BufrType C = BufrType::CodeTable;
constexpr BufrType F = BufrType::FlagTable;
constexpr BufrType T = BufrType::String;

/// What the products write, as their readers know it.
const PrintedElement kPrintedElements[] = {
    {1001, "WMO BLOCK NUMBER", "NUMERIC", N, 0, 0, 7},
    {1002, "WMO STATION NUMBER", "NUMERIC", N, 0, 0, 10},
    {1006, "AIRCRAFT FLIGHT NUMBER", "CCITT IA5", T, 0, 0, 64},
    {1011, "SHIP OR MOBILE LAND STATION IDENTIFIER", "CCITT IA5", T, 0, 0, 72},
    {1023, "OBSERVATION SEQUENCE NUMBER", "NUMERIC", N, 0, 0, 9},
    {1081, "RADIOSONDE SERIAL NUMBER", "CCITT IA5", T, 0, 0, 160},
    {2003, "TYPE OF MEASURING INSTRUMENT USED", "CODE TABLE", C, 0, 0, 4},
    {2011, "RADIOSONDE TYPE", "CODE TABLE", C, 0, 0, 8},
    {2013, "SOLAR AND INFRARED RADIATION CORRECTION", "CODE TABLE", C, 0, 0, 4},
    {2014, "TRACKING TECHNIQUE/STATUS OF THE SYSTEM", "CODE TABLE", C, 0, 0, 7},
    {2017, "CORRECTION ALGORITMS-HUMIDITY MEASUREMENTS", "CODE TABLE", C, 0, 0, 5},
    {2191, "GEOPOTENTIAL HEIGHT CALCULATION", "CODE TABLE", C, 0, 0, 4},
    {4001, "YEAR", "YEAR", Q, 0, 0, 12},
    {4002, "MONTH", "MONTH", Q, 0, 0, 4},
    {4003, "DAY", "DAY", Q, 0, 0, 6},
    {4004, "HOUR", "HOUR", Q, 0, 0, 5},
    {4005, "MINUTE", "MINUTES", Q, 0, 0, 6},
    {4006, "SECOND", "S", Q, 0, 0, 6},
    {4086, "LONG TIME PERIOD OR DISPLACEMENT", "S", Q, 0, -8192, 15},
    {5001, "LATITUDE(HIGH ACCURACY)", "DEGREE", Q, 5, -9000000, 25},
    {5015, "LATITUDE DEPLAC (HIGH ACCURACY)", "DEGREE", Q, 5, -9000000, 25},
    {6001, "LONGITUDE (HIGH ACCURACY)", "DEGREE", Q, 5, -18000000, 26},
    {6015, "LONGITUDE DEPLAC (HIGH ACCURACY)", "DEGREE", Q, 5, -18000000, 26},
    {7004, "PRESSURE", "PA", Q, -1, 0, 14},
    {7007, "HEIGHT", "M", Q, 0, -1000, 17},
    {7030, "HEIGHT OF STATION GROUND ABV MSL", "M", Q, 1, -4000, 17},
    {7031, "HEIGHT OF BAROMETER ABV MSL", "M", Q, 1, -4000, 17},
    {8002, "VERT. SIGNIFICANCE (SFC OBSERVATIONS)", "CODE TABLE", C, 0, 0, 6},
    {8021, "TIME SIGNIFICANCE", "CODE TABLE", C, 0, 0, 5},
    {8042, "EXTENDED VERTICAL SOUNDING SIGNIFICANCE   *", "FLAG TABLE", F, 0, 0, 18},
    {10009, "GEOPOTENTIAL HEIGHT", "GPM", Q, 0, -1000, 17},
    {11001, "WIND DIRECTION", "DEG TRUE", Q, 0, 0, 9},
    {11002, "WIND SPEED", "M/S", Q, 1, 0, 12},
    {11061, "ABSOLUTE WIND SHEAR IN 1 KM LAYER BELOW", "M/S", Q, 1, 0, 12},
    {11062, "ABSOLUTE WIND SHEAR IN 1 KM LAYER ABOVE", "M/S", Q, 1, 0, 12},
    {12101, "TEMPERATURE/DRY-BULB TEMPERATURE", "K", Q, 2, 0, 16},
    {12103, "DEW-POINT TEMPERATURE", "K", Q, 2, 0, 16},
    {20011, "CLOUD AMOUNT", "CODE TABLE", C, 0, 0, 4},
    {20012, "CLOUD TYPE", "CODE TABLE", C, 0, 0, 6},
    {20013, "HEIGHT OF BASE OF CLOUD (SA/SM)", "M", Q, -1, -40, 11},
    {22043, "SEA/WATER TEMPERATURE", "K", Q, 2, 0, 15},
    {25061, "SOFTWARE IDENTIFICATION AND VERS. NUMBER", "CCITT IA5", T, 0, 0, 96},
    {31001, "DELAYED DESCRIPTOR REPLICATION FACTOR", "NUMERIC", N, 0, 0, 8},
    {31002, "EXT DELAYED DESCRIPTOR REPLICATION FACTOR", "NUMERIC", N, 0, 0, 16},
    {33024, "MOBILE STATION ELEVATION QUALITY MARK", "CODE TABLE", C, 0, 0, 4},
};

struct PrintedSequence {
    int descriptor;
    std::vector<int> members;
};

const PrintedSequence kPrintedSequences[] = {
    {309052, {301111, 301113, 301114, 302049, 22043, 101000, 31002, 303054, 101000, 31001, 303051}},
    {309053, {301112, 301113, 301114, 101000, 31002, 303054, 101000, 31001, 303051}},
    {301111, {301001, 1011, 2011, 2013, 2014, 2003}},
    {301112, {1006, 2011, 2013, 2014, 2003}},
    {301113, {8021, 301011, 301013}},
    {301114, {301021, 7030, 7031, 7007, 33024}},
    {301001, {1001, 1002}},
    {301011, {4001, 4002, 4003}},
    {301013, {4004, 4005, 4006}},
    {301021, {5001, 6001}},
    {302049, {8002, 20011, 20013, 20012, 20012, 20012, 8002}},
    {303054, {4086, 8042, 7004, 10009, 5015, 6015, 12101, 12103, 11001, 11002}},
    {303051, {4086, 8042, 7004, 5015, 6015, 11061, 11062}},
};

} // namespace

TEST(ShippedTables, HaveWhatTheProductsWrite) {
    const ShippedTables shipped;
    EXPECT_EQ(shipped.tables.version, 23);
    for (const PrintedElement& row : kPrintedElements) {
        const EntryTableB* entry = bufr_fetch_tableB(&shipped.tables, row.descriptor);
        ASSERT_NE(entry, nullptr) << row.descriptor;
        EXPECT_EQ(entry->description, row.description);
        EXPECT_EQ(entry->unit, row.unit);
        EXPECT_EQ(entry->encoding.type, row.type) << row.descriptor;
        EXPECT_EQ(entry->encoding.scale, row.scale) << row.descriptor;
        EXPECT_EQ(entry->encoding.reference, row.reference) << row.descriptor;
        EXPECT_EQ(entry->encoding.bits, row.bits) << row.descriptor;
    }
    for (const PrintedSequence& row : kPrintedSequences) {
        const EntryTableD* entry = bufr_fetch_tableD(&shipped.tables, row.descriptor);
        ASSERT_NE(entry, nullptr) << row.descriptor;
        EXPECT_EQ(entry->members, row.members) << row.descriptor;
    }
}

TEST(ShippedTables, AreWhole) {
    const ShippedTables shipped;
    // As many as the tables of the WMO have, version 23.
    EXPECT_EQ(shipped.tables.tableB.size(), 1509U);
    EXPECT_EQ(shipped.tables.tableD.size(), 540U);
    EXPECT_THAT(readFile(TARVO_SOURCE_DIR "/resources/bufr/table_b_bufr"), HasSubstr(std::string("\n") + kTemperature));
    for (const EntryTableD& sequence : shipped.tables.tableD) {
        for (const int member : sequence.members) {
            EXPECT_TRUE(!bufr_is_table_b(member) || bufr_fetch_tableB(&shipped.tables, member) != nullptr) << member;
            EXPECT_TRUE(!bufr_is_table_d(member) || bufr_fetch_tableD(&shipped.tables, member) != nullptr) << member;
        }
    }
}

TEST(TableFiles, AreReadByTheirColumns) {
    const LoadedTables loaded(
        "** VERSION 023.076\nDATA_CATEGORY=Vertical\n# 0 a comment\n** VERSION 099\n" + std::string(kTemperature) +
            "001081  SERIAL NUMBER                               CCITT IA5    0          0   160\n"
            "012101  AGAIN                                       K            1          0    16\n"
            "008042  SIGNIFICANCE                                MARQUEURS    0          0    18\n"
            "020011  AMOUNT                                      TABLE CODE   0          0     4\n"
            "001001  TOO SHORT                                   NUMERIC      0          0  7\n",
        "* of two\n300002 012101 001081\n301001 300002 101000 031001 012101\n309999\n");
    EXPECT_EQ(loaded.result, 1);
    EXPECT_EQ(loaded.tables.version, 23);
    EXPECT_EQ(loaded.tables.dataCategory, "Vertical");
    ASSERT_EQ(loaded.tables.tableB.size(), 4U);
    EXPECT_EQ(loaded.tables.tableB[0].encoding.type, BufrType::String);
    EXPECT_EQ(loaded.tables.tableB[1].encoding.type, BufrType::FlagTable);
    EXPECT_EQ(loaded.tables.tableB[2].description, "TEMPERATURE/DRY-BULB TEMPERATURE");
    EXPECT_EQ(loaded.tables.tableB[3].encoding.type, BufrType::CodeTable);
    ASSERT_EQ(loaded.tables.tableD.size(), 2U);
    EXPECT_EQ(loaded.tables.tableD[0].description, "of two");
    EXPECT_THAT(loaded.tables.tableD[1].members, ElementsAre(300002, 101000, 31001, 12101));
}

TEST(TableFiles, MayLayOutTheirColumns) {
    EXPECT_THAT(bufr_parse_columns("====== ==== === == == =="), ElementsAre(0, 7, 12, 16, 19, 22));
    EXPECT_THAT(bufr_parse_columns(kTemperature), IsEmpty());
    const LoadedTables loaded("====== ==== === == == ==\n012101 TEMP K    2  0 16\n", "300002 012101\n");
    ASSERT_EQ(loaded.tables.tableB.size(), 1U);
    EXPECT_EQ(loaded.tables.tableB[0].unit, "K");
    EXPECT_EQ(loaded.tables.tableB[0].encoding.scale, 2);
    EXPECT_EQ(loaded.tables.tableB[0].encoding.bits, 16);
}

TEST(TableFiles, DamageCostsTheLineOrTheTable) {
    const std::string goodD = "300002 012101 012101\n";
    std::string noise = "\x7f"
                        "ELF\0\xff\n0";
    noise += std::string(300, '\0') + "\n3\x01\n3000\n";
    const std::string longLine = "300003" + std::string(5000, ' ') + "012101\n";
    std::string bits = kTemperature;
    bits.replace(bits.size() - 7, 6, "  9999"); // no element is that wide
    struct {
        std::string b;
        std::string d;
        int result;
        std::size_t sequences;
        const char* says;
    } const cases[] = {
        {"", goodD, 0, 1, ""},
        {kTemperature, "", 0, 0, ""},
        {noise, noise, 0, 0, "Table D"},
        {noise + kTemperature, noise + goodD, 1, 1, "Table D"},
        {kTemperature + std::string(100000, '0') + "\n", longLine + goodD, 1, 1, "Table D"},
        {bits, goodD, 0, 1, "12101"},
        {kTemperature, goodD + "300005 01210x\n300006 099999 399999\n", 1, 1, "300005"},
        {kTemperature, goodD + "300007 300007\n", 0, 0, "contains itself"},
        {kTemperature, goodD + "300007 300002 300008\n300008 300009\n300009 300008\n", 0, 0, "contains itself"},
        {"012101  T                                                        2          0    16\n", goodD, 1, 1,
         "Error reading descriptor: 12101 unit=\"\"\n"},
    };
    for (const auto& c : cases) {
        const LoadedTables loaded(c.b, c.d);
        EXPECT_EQ(loaded.result, c.result) << c.d.substr(0, 60);
        EXPECT_EQ(loaded.tables.tableD.size(), c.sequences) << c.d.substr(0, 60);
        EXPECT_THAT(said, HasSubstr(c.says));
    }
}

TEST(TableFiles, AreLookedForWhereTheEnvironmentSays) {
    BufrTables tables;
    unsetenv("AFSISIO");
    setenv("BUFR_TABLES", TARVO_SOURCE_DIR "/resources/bufr", 1);
    EXPECT_EQ(bufr_load_cmc_tables(&tables), 1);
    setenv("BUFR_TABLES", "/nonexistent", 1);
    EXPECT_EQ(bufr_load_cmc_tables(&tables), 0);
    EXPECT_TRUE(tables.tableB.empty());
    EXPECT_EQ(bufr_load_table_b(&tables, "/dev/zero"), 0);

    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "datafiles/constants");
    writeFile(folder / "datafiles/constants/table_b_bufr", kTemperature);
    writeFile(folder / "datafiles/constants/table_d_bufr", "300002 012101\n");
    setenv("AFSISIO", folder.path().c_str(), 1);
    EXPECT_EQ(bufr_load_cmc_tables(&tables), 1);
    EXPECT_EQ(tables.tableB.size(), 1U);

    unsetenv("AFSISIO");
    unsetenv("BUFR_TABLES");
    EXPECT_EQ(bufr_load_cmc_tables(&tables), -1);
}
