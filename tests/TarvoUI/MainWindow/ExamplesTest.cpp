// Every example of the formats opens in the desktop.

#include "DesktopTest.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

using testing::Contains;
using testing::Not;

namespace {

class ExamplesTest : public DesktopTest {
protected:
    /// Opens a copy, since the reader of PELO may write beside its file.
    nlohmann::json openExample(const std::string& file) {
        std::filesystem::copy(example(file.c_str()), path(file));
        open(path(file));
        const std::string name = file.substr(0, file.rfind('.'));
        return nlohmann::json::parse(std::ifstream(TARVO_SOURCE_DIR "/examples/truth/" + name + ".json"));
    }
    int rows(const char* tab) { return inView(tab).findChild<QTableView*>()->model()->rowCount(); }
};

} // namespace

TEST_F(ExamplesTest, EachOpensWithItsRecords) {
    start();
    int opened = 0;
    for (const auto& entry : std::filesystem::directory_iterator(example(""))) {
        const std::string file = entry.path().filename().string();
        SCOPED_TRACE(file);
        answers.forget();
        const nlohmann::json truth = openExample(file);
        EXPECT_THAT(openFiles(), Contains(file));
        EXPECT_EQ(view().windowTitle().toStdString(), file);
        std::vector<std::string> titles;
        for (const auto& box : answers.boxes()) {
            titles.push_back(box.title);
        }
        EXPECT_THAT(titles, Not(Contains("File Open Error")));
        const bool warned = !truth["reader"]["warning"].is_null();
        EXPECT_EQ(std::count(titles.begin(), titles.end(), "File Open Warning"), warned ? 1 : 0);
        EXPECT_EQ(rows("RawView"), truth["reader"]["records"].get<int>() + 1) << "the launch row and the records";
        EXPECT_GT(rows("LevelsView"), 10);
        const bool message = truth.contains("coded");
        EXPECT_EQ(inView<QAbstractButton>("_levelsData").isChecked(), message) << "what the Skew-T begins with";
        EXPECT_EQ(inView<QAbstractButton>("_levels").isChecked(), message) << "what the graph begins with";
        ++opened;
        trigger("_actionCloseAll");
    }
    EXPECT_GE(opened, 26);
}
