// The program from its start, in a process of its own.

#include "StartedProgram.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

class StartTest : public testing::Test {
protected:
    /// Starts in the home; boxes become titles and texts, and a shown window the line "shown". -1 for a crash.
    int run() {
        const StartedProgram program(MAINWINDOW_PROGRAM, home.path());
        lines.clear();
        for (const auto& box : program.boxes()) {
            lines.push_back(box.title + ": " + box.text);
        }
        return program.exitStatus();
    }
    std::string xml() const { return (home / ".config/Tarvo/tarvo.xml").string(); }

    TemporaryFolder home;
    std::vector<std::string> lines;
};

} // namespace

TEST_F(StartTest, ANewUserGetsTheFilesAndAWindow) {
    EXPECT_EQ(run(), 0);
    EXPECT_THAT(lines, testing::Contains("Tarvo V3.4.8: shown maximised"));
    EXPECT_EQ(run(), 0);
    EXPECT_THAT(lines, ElementsAre("Tarvo V3.4.8: shown maximised")) << "without a box the second time";
}

TEST_F(StartTest, ADamagedConfigurationEndsTheProgram) {
    ASSERT_EQ(run(), 0);
    std::string text = readFile(xml());
    text.erase(text.rfind("</tarvoConfig>"));
    writeFile(xml(), text);
    EXPECT_EQ(run(), 1);
    EXPECT_THAT(lines, ElementsAre("TARVO: There is a problem with the XML configuration file.\n"
                                   "It needs to be fixed before Tarvo can proceed\n\n"
                                   "Sorry, but Tarvo has to exit. :-(\n\n"
                                   "(Hint - after a new Tarvo install, you may need to logoff\n"
                                   "and login again several times to correct this.\n"
                                   "Another Hint - try opening the XML file in a web browser.)"));
    EXPECT_EQ(readFile(xml()), text);
}
