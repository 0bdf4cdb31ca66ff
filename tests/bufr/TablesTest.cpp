#include "ShippedTables.h"

#include "TemporaryFolder.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

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

} // namespace

TEST(ShippedTables, AreWhole) {
    const ShippedTables shipped;
    // As many as the tables of the WMO have. What the elements of the products mean there, another program tells.
    EXPECT_EQ(shipped.tables.version, 23);
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
