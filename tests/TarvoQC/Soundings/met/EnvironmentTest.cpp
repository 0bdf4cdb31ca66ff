#include "Environment.h"
#include "InTemporaryFolder.h"

#include <ctime>
#include <fstream>

using CheckTarvoFile = InTemporaryFolder;

TEST_F(CheckTarvoFile, looksInTheNamedFolderAndThenHere) {
    std::filesystem::create_directory("conf");
    for (const char* file : {"conf/there.xml", "conf/both.xml", "both.xml", "here.xml"}) {
        std::ofstream(file) << "x";
    }
    setenv("TARVOCONFIG", "conf", 1);
    setenv("TARVO_TEST_NOWHERE", "/nonexistent", 1);
    const struct {
        const char *file, *variable;
        bool found;
        const char* path;
    } cases[] = {
        {"both.xml", "", true, "conf/both.xml"},
        {"there.xml", "TARVOCONFIG", true, "conf/there.xml"},
        {"here.xml", "", true, "./here.xml"},
        {"absent.xml", "", false, "./absent.xml"},
        {"both.xml", "TARVO_TEST_NOWHERE", true, "./both.xml"},
        {"there.xml", "TARVO_TEST_UNSET", false, "./there.xml"},
    };
    for (const auto& c : cases) {
        std::string path = "before";
        EXPECT_EQ(checkTarvoFile(path, c.file, c.variable), c.found) << c.file << " " << c.variable;
        EXPECT_EQ(path, c.path) << c.file << " " << c.variable;
    }
}

TEST(SetTimeZone, entriesOutliveLaterCalls) {
    const std::time_t epoch = 0;
    setTimeZone("TZ=TST5");
    setTimeZone("TARVO_TEST_VARIABLE=" + std::string(200, 'x'));
    setTimeZone("TARVO_TEST_OTHER=" + std::string(4000, 'y'));
    EXPECT_EQ(std::getenv("TARVO_TEST_VARIABLE"), std::string(200, 'x'));
    EXPECT_EQ(std::localtime(&epoch)->tm_hour, 19);
    setTimeZone("TZ=GMT0");
    EXPECT_EQ(std::localtime(&epoch)->tm_hour, 0);
}
