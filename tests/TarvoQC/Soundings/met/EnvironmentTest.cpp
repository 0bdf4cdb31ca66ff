#include "Environment.h"
#include "InTemporaryFolder.h"

#include <ctime>
#include <fstream>

using CheckTarvoFile = InTemporaryFolder;

TEST_F(CheckTarvoFile, looksInTheNamedFolderAndThenHere) {
    std::filesystem::create_directory("conf");
    for (const char* file : {"conf/both.xml", "both.xml", "here.xml"}) {
        std::ofstream(file) << "x";
    }
    setenv("TARVOCONFIG", "conf", 1);
    const auto found = [](const char* file, const char* variable) {
        std::string path;
        return (checkTarvoFile(path, file, variable) ? "" : "no ") + path;
    };
    EXPECT_EQ(found("both.xml", ""), "conf/both.xml");
    EXPECT_EQ(found("here.xml", ""), "./here.xml");
    EXPECT_EQ(found("absent.xml", ""), "no ./absent.xml");
    EXPECT_EQ(found("both.xml", "TARVO_TEST_UNSET"), "./both.xml");
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
