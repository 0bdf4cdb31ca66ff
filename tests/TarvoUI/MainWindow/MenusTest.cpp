// The commands, where they stand, and when they can be given.

#include "DesktopTest.h"
#include "MadeGeography.h"
#include "SynopticWidget.h"

#include <QLineEdit>
#include <QMenuBar>
#include <QTableWidget>
#include <QToolBar>

#include <filesystem>
#include <sqlite3.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

class MenusTest : public DesktopTest {
protected:
    std::vector<std::string> enabled() {
        std::vector<std::string> names;
        for (const QAction* action : window().findChildren<QAction*>(QRegularExpression("^_action"))) {
            if (action->isEnabled() && action->isVisible()) {
                names.push_back(action->objectName().mid(7).toStdString());
            }
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    static std::vector<std::string> names(const QList<QAction*>& actions) {
        std::vector<std::string> all;
        for (const QAction* action : actions) {
            all.push_back(action->isSeparator() ? "-" : action->objectName().mid(7).toStdString());
        }
        return all;
    }
    void goTo(const char* tab) {
        auto* tabs = view().tabs();
        for (int i = 0; i < tabs->count(); ++i) {
            if (tabs->tabText(i) == tab) {
                QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, Qt::NoModifier, tabs->tabBar()->tabRect(i).center());
                ASSERT_EQ(tabs->currentIndex(), i);
                return;
            }
        }
        FAIL() << tab;
    }
};

} // namespace

TEST_F(MenusTest, CommandsHaveTipsAndKeys) {
    start();
    std::map<std::string, std::string> keys;
    const auto all = window().findChildren<QAction*>(QRegularExpression("^_action"));
    EXPECT_EQ(all.size(), 22);
    for (const QAction* made : all) {
        EXPECT_FALSE(made->statusTip().isEmpty()) << made->objectName().toStdString();
        EXPECT_EQ(made->icon().isNull(), made->icon().pixmap(16).isNull()) << made->objectName().toStdString();
        const std::string shortcut = made->shortcut().toString(QKeySequence::PortableText).toStdString();
        if (!shortcut.empty()) {
            keys[made->objectName().mid(7).toStdString()] = shortcut;
        }
    }
    const std::map<std::string, std::string> expected{
        {"Close", "Ctrl+F4"}, {"CloseAll", "Ctrl+Shift+F4"}, {"Configuration", "Ctrl+U"},
        {"Open", "Ctrl+O"},   {"Print", "Ctrl+P"},           {"Quit", "Ctrl+Q"},
        {"Save", "Ctrl+S"},   {"SaveAll", "Ctrl+L"},         {"Synoptic", "Ctrl+M"}};
    EXPECT_EQ(keys, expected);
    EXPECT_EQ(action("_actionOptions").menuRole(), QAction::NoRole);
    EXPECT_EQ(action("_actionAbout").menuRole(), QAction::NoRole);
}

TEST_F(MenusTest, MenusAndToolBarStandInTheirOrder) {
    start();
    EXPECT_EQ(window().windowTitle(), "Tarvo V3.4.8");
    std::vector<std::string> bar;
    for (const QAction* action : window().menuBar()->actions()) {
        bar.push_back(action->text().toStdString() + action->menu()->objectName().toStdString());
    }
    EXPECT_THAT(bar, ElementsAre("&File_menuFile", "&Tools_menuTools", "&View_menuView", "&Window_menuWindow",
                                 "&Help_menuHelp"));
    EXPECT_THAT(menu("_menuTools"), ElementsAre("&Options", "Restore &Defaults", "&Recompute", "-", "Synoptic &Map"));
    EXPECT_THAT(menu("_menuView"), ElementsAre("&Toolbar", "&Status Bar"));
    EXPECT_THAT(menu("_menuHelp"), ElementsAre("&About Tarvo...", "-", "Tarvo &User Manual...",
                                               "Tarvo online documentation", "Tarvo &Config Log"));
    auto* tools = window().findChild<QToolBar*>("_toolBar");
    EXPECT_THAT(names(tools->actions()),
                ElementsAre("Open", "Save", "SaveAll", "Print", "-", "Recompute", "Synoptic", "-", "About"));
    for (const QAction* tool : tools->actions()) {
        EXPECT_TRUE(tool->isSeparator() || !tool->icon().pixmap(16).isNull()) << tool->objectName().toStdString();
    }
    EXPECT_FALSE(tools->isMovable());
    EXPECT_EQ(window().toolBarArea(tools), Qt::TopToolBarArea);
    trigger("_actionToolbar");
    EXPECT_FALSE(tools->isVisible());
    trigger("_actionToolbar");
    EXPECT_TRUE(tools->isVisible());
    trigger("_actionStatusbar");
    EXPECT_FALSE(window().findChild<QLabel*>("_configLabel")->isVisible());
}

TEST_F(MenusTest, FileMenuTellsTheRecentFilesThatAreThere) {
    const std::string one = makeSounding("süd & %1.csv");
    const std::string two = makeSounding("two.csv");
    remember({path("gone.csv"), two, one});
    start();
    EXPECT_THAT(recent(), ElementsAre(path("gone.csv"), two, one)) << "looked for when the menu opens";
    EXPECT_THAT(menu("_menuFile"),
                ElementsAre("&Open...", "Config&uration...", "-", "&Save...", "&Close...", "Close &All", "-",
                            "Print Pre&view...", "&Print...", "-", "&1 two.csv", "&2 süd && %1.csv", "-", "&Quit"));
    EXPECT_THAT(recent(), ElementsAre(two, one));
    choose("_menuFile", "&2 süd && %1.csv");
    EXPECT_THAT(openFiles(), ElementsAre("süd & %1.csv"));
    EXPECT_THAT(recent(), ElementsAre(one, two));
    EXPECT_NE(entry("_menuFile", "&1 süd && %1.csv"), nullptr);
    std::filesystem::remove(two);
    EXPECT_EQ(entry("_menuFile", "&2 two.csv"), nullptr);
    EXPECT_THAT(recent(), ElementsAre(one));
    EXPECT_TRUE(answers.boxes().empty());
}

TEST_F(MenusTest, FileMenuWithoutRecentFilesHasOneSeparatorLess) {
    start();
    EXPECT_THAT(menu("_menuFile"), ElementsAre("&Open...", "Config&uration...", "-", "&Save...", "&Close...",
                                               "Close &All", "-", "Print Pre&view...", "&Print...", "-", "&Quit"));
    const auto all = window().findChild<QMenu*>("_menuFile")->actions();
    EXPECT_EQ(all[4]->objectName(), "_actionSaveAll");
}

TEST_F(MenusTest, TwentyFilesAreRemembered) {
    std::vector<std::string> paths;
    for (int i = 0; i < 20; ++i) {
        paths.push_back(makeSounding("old" + std::to_string(i) + ".csv"));
    }
    remember(paths);
    start();
    const std::string young = makeSounding("young.csv");
    open(young);
    paths.insert(paths.begin(), young);
    paths.pop_back();
    EXPECT_EQ(recent(), paths);
    EXPECT_NE(entry("_menuFile", "&20 old18.csv"), nullptr);
}

TEST_F(MenusTest, TileAndCascadeShowAllWindows) {
    start();
    for (const char* name : {"one.csv", "two.csv", "three.csv"}) {
        open(makeSounding(name));
    }
    const QMdiSubWindow& one = *mdiArea().subWindowList()[0];
    const QMdiSubWindow& two = *mdiArea().subWindowList()[1];
    ASSERT_TRUE(one.isMinimized() && two.isMinimized());
    trigger("_actionTile");
    EXPECT_FALSE(one.isMinimized() || two.isMinimized());
    EXPECT_FALSE(one.geometry().intersects(two.geometry()));
    EXPECT_EQ(view().windowTitle(), "three.csv");
    trigger("_actionCascade");
    EXPECT_TRUE(one.geometry().intersects(two.geometry()));
}

TEST_F(MenusTest, CommandsFollowTheActiveTab) {
    start();
    const std::vector<std::string> always{"About",    "ConfigLog", "Open",    "Quit",      "Statusbar",
                                          "Synoptic", "TarvoDocs", "Toolbar", "UserManual"};
    std::vector<std::string> without = always;
    without.emplace_back("Configuration");
    std::sort(without.begin(), without.end());
    EXPECT_EQ(enabled(), without);
    open(makeSounding("one.csv"));
    std::vector<std::string> onMain = always;
    for (const char* name : {"ArrangeIcons", "Cascade", "Close", "CloseAll", "Options", "Print", "PrintPreview",
                             "Recompute", "RestoreDefaults", "Tile"}) {
        onMain.emplace_back(name);
    }
    std::sort(onMain.begin(), onMain.end());
    EXPECT_EQ(enabled(), onMain);
    std::vector<std::string> onGrid = onMain;
    onGrid.emplace_back("Save");
    std::sort(onGrid.begin(), onGrid.end());
    goTo("&Raw");
    EXPECT_EQ(enabled(), onGrid);
    goTo("&QC");
    EXPECT_EQ(enabled(), onGrid);
    open(makeSounding("two.csv"));
    EXPECT_EQ(enabled(), onMain) << "its Main tab";
    choose("_menuWindow", "&1 one.csv");
    EXPECT_EQ(enabled(), onGrid) << "its QC tab";
    trigger("_actionCloseAll");
    EXPECT_EQ(enabled(), without);
}

TEST_F(MenusTest, CommandsFollowTheMap) {
    configure("GeoDBPath", makeGeography(path("world.sqlite")));
    start();
    open(makeSounding("one.csv"));
    const std::vector<std::string> withoutMap = enabled();
    const auto texts = [this] {
        std::vector<std::string> all;
        for (const char* name : {"_actionSave", "_actionClose"}) {
            all.push_back(action(name).text().toStdString());
            all.push_back(action(name).statusTip().toStdString());
        }
        return all;
    };
    const auto usual =
        ElementsAre("&Save...", "Save the active document", "&Close...", "Close the active sounding file");
    trigger("_actionSynoptic");
    trigger("_actionSynoptic"); // it is there by now
    EXPECT_THAT(menu("_menuWindow"),
                ElementsAre("&Cascade", "&Tile", "&Arrange Icons", "-", "&1 one.csv", "&2 Synoptic"));
    EXPECT_TRUE(entry("_menuWindow", "&2 Synoptic")->isChecked());
    EXPECT_THAT(texts(), ElementsAre("&Save Current Synoptic Level...", "Save current synoptic level",
                                     "&Close Synoptic Plot", "Close synoptic plot"));
    EXPECT_THAT(enabled(),
                ElementsAre("About", "Close", "ConfigLog", "Configuration", "Open", "Print", "PrintPreview", "Quit",
                            "Save", "SaveAll", "Statusbar", "Synoptic", "TarvoDocs", "Toolbar", "UserManual"));
    choose("_menuWindow", "&1 one.csv");
    EXPECT_THAT(texts(), usual);
    EXPECT_EQ(enabled(), withoutMap);
    choose("_menuWindow", "&2 Synoptic");
    trigger("_actionClose");
    EXPECT_TRUE(QTest::qWaitFor([this] { return window().findChild<SynopticWidget*>() == nullptr; }, kPatience));
    EXPECT_THAT(menu("_menuWindow"), ElementsAre("&Cascade", "&Tile", "&Arrange Icons", "-", "&1 one.csv"));
    EXPECT_THAT(texts(), usual);
    EXPECT_THAT(answers.boxes(), IsEmpty());
}

TEST_F(MenusTest, WhatIsEditedInATabIsSeenInTheOthers) {
    start();
    open(example("D20210801_120003.1"));
    const auto message = [this] {
        std::string all;
        const auto& cells = *inView("WMOView").findChild<QTableWidget*>();
        for (int row = 0; row < cells.rowCount(); ++row) {
            for (int column = 0; column < cells.columnCount(); ++column) {
                all += cells.item(row, column)->text().trimmed().toStdString() + " ";
            }
        }
        return all;
    };
    const auto has = [](const char* text) { return testing::HasSubstr(text); };
    goTo("&Comm");
    auto& agency = inView<QLineEdit>("_agencyAC");
    agency.setFocus();
    agency.selectAll();
    QTest::keyClicks(&agency, "noaa9");
    goTo("&WMO");                                                // which ends the entry
    EXPECT_THAT(message(), AllOf(has("NOAA9"), has(" 40759 "))); // the height of 400 mb
    goTo("&Levels");
    auto& levels = inView<QTableWidget>("_levelsGrid");
    ASSERT_EQ(levels.item(0, 3)->text(), "400.0");
    QTest::mouseClick(levels.viewport(), Qt::LeftButton, {}, levels.visualItemRect(levels.item(0, 0)).center());
    goTo("&WMO");
    EXPECT_THAT(message(), AllOf(has("NOAA9"), Not(has(" 40759 "))));
    trigger("_actionRecompute"); // the levels are new ones
    EXPECT_THAT(message(), AllOf(has("NOAA9"), has(" 40759 ")));
}

TEST_F(MenusTest, AboutTellsTheBuildAndTheDatabases) {
    start();
    trigger("_actionAbout");
    ASSERT_EQ(answers.boxes().size(), 1U);
    EXPECT_EQ(answers.boxes()[0].title, "About Tarvo");
    const std::string facts[] = {"<h2>Tarvo V3.4.8</h2><p>Sounding Quality Workbench</p>",
                                 "<p>Revision: <b>V3.4.8</b></p>",
                                 std::string("<p>Qt Version: <b>") + qVersion() + "</b></p>",
                                 "<p>Tarvo Config Version: <b>2.09</b></p>",
                                 "<p>Sounding Database: <b>" + database() + "</b></p>",
                                 "<p>Geo Database: <b>not open</b></p>",
                                 std::string("<p>SpatiaLiteDB: <b>SQLite version: ") + sqlite3_libversion() +
                                     ", SpatiaLite version: "};
    for (const std::string& fact : facts) {
        EXPECT_THAT(answers.boxes()[0].text, testing::HasSubstr(fact));
    }
}

TEST_F(MenusTest, DocumentsThatCannotBeShownAreTold) {
    start(); // no desktop here to show anything with
    qputenv("PATH", "");
    qputenv("BROWSER", "");
    for (const char* name : {"_actionUserManual", "_actionConfigLog", "_actionTarvoDocs"}) {
        trigger(name);
    }
    EXPECT_THAT(answers.told(), ElementsAre("ERROR: Unable to open the Tarvo User Manual!",
                                            "ERROR: Unable to open the Tarvo Config Log!",
                                            "ERROR: Unable to open the TarvoDocs website!"));
}
