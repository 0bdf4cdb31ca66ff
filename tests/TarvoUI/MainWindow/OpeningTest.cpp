// Ways to open a sounding, and what becomes of a file that can't be opened.

#include "DesktopTest.h"

#include <QAccessible>
#include <algorithm>
#include <filesystem>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class OpeningTest : public DesktopTest {
protected:
    /// What the file dialog showed, and the file that it is answered with; none gives it up.
    void answerDialog(const std::string& file, const char* filter = nullptr) {
        onDialog("Tarvo - Open Sounding File", [this, file, filter](QFileDialog& files) {
            directory = files.directory().absolutePath().toStdString();
            selected = files.selectedNameFilter().toStdString();
            filters = files.nameFilters().join(";;").toStdString();
            if (filter != nullptr) {
                files.selectNameFilter(filter);
            }
            if (file.empty()) {
                files.reject();
                return;
            }
            files.selectFile(QString::fromStdString(file));
            QTest::keyClick(files.findChild<QLineEdit*>(), Qt::Key_Return);
        });
    }

    std::string directory;
    std::string selected;
    std::string filters;
};

} // namespace

TEST_F(OpeningTest, DialogStartsInTheFolderLastUsedAndKeepsItWithTheFilter) {
    std::filesystem::create_directory(path("last used"));
    configure("DataDir", path("last used") + "/");
    configure("OpenFileSeleFilter", "All D files (D*)");
    const std::string file = makeSounding("one.csv");
    start();
    answerDialog(file, "All files (*)");
    trigger("_actionOpen");
    EXPECT_EQ(directory, path("last used"));
    EXPECT_EQ(selected, "All D files (D*)");
    EXPECT_EQ(filters, "OMBRA D files (D*.?);;OMBRA P files (D*_P.?);;OMBRA P1 files (D*_P1.?);;All D files (D*);;"
                       "X files (X*.*);;All files (*)");
    EXPECT_THAT(openFiles(), ElementsAre("one.csv"));
    EXPECT_EQ(stored("OpenFileSeleFilter"), "All files (*)");
    EXPECT_EQ(stored("DataDir"), path(""));
    EXPECT_THAT(recent(), ElementsAre(file));
}

TEST_F(OpeningTest, DialogOfAFixedFolderGivenUpKeepsTheFilterOnly) {
    configure("DataDir", path(""));
    configure("FixedSrcDir", path("fixed"));
    configure("FixedSrcEnabled", 1.0);
    start();
    answerDialog("", "X files (X*.*)");
    trigger("_actionOpen");
    EXPECT_EQ(directory, QDir::homePath().toStdString()) << "the fixed folder doesn't exist";
    EXPECT_EQ(stored("OpenFileSeleFilter"), "X files (X*.*)");
    EXPECT_EQ(stored("DataDir"), path(""));
    EXPECT_THAT(openFiles(), IsEmpty());
    std::filesystem::create_directory(path("fixed"));
    trigger("_actionOpen");
    EXPECT_EQ(directory, path("fixed"));
}

TEST_F(OpeningTest, AutoFileShowsOneDialogOneSecondAfterTheStart) {
    configure("AutoFile", 1.0);
    QElapsedTimer clock;
    clock.start();
    start();
    int shown = 0;
    onDialog("Tarvo - Open Sounding File", [&](QFileDialog& dialog) {
        EXPECT_GE(clock.elapsed(), 900) << "ms since before the start";
        ++shown;
        dialog.reject();
    });
    EXPECT_TRUE(QTest::qWaitFor([&shown] { return shown > 0; }, kPatience));
    QTest::qWait(1300);
    EXPECT_EQ(shown, 1) << "once only";

    start();
    onDialog("Tarvo - Open Sounding File", [&](QFileDialog& dialog) {
        ++shown;
        QTest::qWait(1300);
        dialog.reject();
    });
    trigger("_actionOpen");
    EXPECT_EQ(shown, 2) << "none over another";
}

TEST_F(OpeningTest, ShowsTheSoundingMaximisedAndTheOthersBehindIt) {
    start();
    open(makeSounding("one.csv"));
    EXPECT_EQ(message(), "File 'one.csv' loaded.");
    open(makeSounding("two.csv"));
    EXPECT_THAT(openFiles(), ElementsAre("one.csv", "two.csv"));
    EXPECT_EQ(view().windowTitle(), "two.csv");
    EXPECT_TRUE(mdiArea().activeSubWindow()->isMaximized());
    EXPECT_TRUE(mdiArea().subWindowList()[0]->isMinimized());
    EXPECT_TRUE(QTest::qWaitFor([this] { return message().empty(); }, kPatience));
    EXPECT_EQ(label("_statusAgent"), "Ready");
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_THAT(answers.boxes(), IsEmpty());
}

TEST_F(OpeningTest, OpenFileIsOnlyRaised) {
    start();
    const std::string one = makeSounding("one.csv");
    open(one);
    open(makeSounding("two.csv"));
    std::filesystem::create_symlink(one, path("link.csv"));
    open(path("link.csv"));
    EXPECT_THAT(openFiles(), ElementsAre("one.csv", "two.csv"));
    EXPECT_EQ(view().windowTitle(), "one.csv");
    EXPECT_FALSE(mdiArea().activeSubWindow()->isMinimized()) << "an icon shows nothing";
    trigger("_actionArrangeIcons");
    answerDialog(path("two.csv"), "All files (*)");
    trigger("_actionOpen");
    EXPECT_EQ(view().windowTitle(), "two.csv");
    EXPECT_FALSE(mdiArea().activeSubWindow()->isMinimized());
    choose("_menuFile", "&2 one.csv");
    EXPECT_EQ(view().windowTitle(), "one.csv");
    EXPECT_THAT(openFiles(), ElementsAre("one.csv", "two.csv"));
    EXPECT_THAT(recent(), ElementsAre(one, path("two.csv"))) << "the link opened nothing";
}

TEST_F(OpeningTest, FailuresAreToldAndLeaveNothing) {
    start();
    const std::string good = makeSounding("good.csv");
    open(good);
    writeFile(path("empty.csv"), "");
    writeFile(path("letter.csv"), "Dear reader,\n");
    for (const std::string& bad :
         {path("vanished.csv"), path(""), std::string("/dev/null"), path("empty.csv"), path("letter.csv")}) {
        open(bad);
    }
    const char* const unable = "File Open Error: Unable to open sounding file!";
    EXPECT_THAT(answers.told(),
                ElementsAre(unable, unable, unable, "File Open Error: Sounding file is empty!",
                            testing::StartsWith("File Open Error: This file is not in an acceptable format for Tarvo. "
                                                "File opening errors are:\n\n")));
    EXPECT_EQ(window().findChildren<TarvoViewController*>().size(), 1);
    EXPECT_THAT(recent(), ElementsAre(good));
    EXPECT_EQ(view().windowTitle(), "good.csv");
    EXPECT_EQ(label("_statusAgent"), "Ready");
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(OpeningTest, AWarningIsToldAndAMessageBeginsWithItsLevels) {
    start();
    open(example("mirra_damaged_20200621.mir")); // which has a row without a time
    EXPECT_THAT(answers.told(), testing::Contains(testing::StartsWith("File Open Warning: ")));
    open(example("tempdrop_20210805.wmo"));
    EXPECT_TRUE(inView<QAbstractButton>("_levelsData").isChecked()) << "in the Skew-T";
    EXPECT_TRUE(inView<QAbstractButton>("_levels").isChecked()) << "in the graph";
}

TEST_F(OpeningTest, WhatQCFindsWrongIsToldAndTheTabsAreFilled) {
    start();
    open(makeSounding("short.csv", 20)); // too short for the filters
    ASSERT_EQ(answers.boxes().size(), 1U);
    EXPECT_EQ(answers.boxes()[0].title, "Processing Alert");
    EXPECT_EQ(answers.boxes()[0].icon, QMessageBox::Warning);
    EXPECT_THAT(answers.boxes()[0].text, testing::StartsWith("\"short.csv\":\n\n- Filter check failed for pressure\n"));
    EXPECT_EQ(inView("QCView").findChild<QTableView*>()->model()->rowCount(), 21);
    EXPECT_EQ(label("_statusAgent"), "Ready");
}

TEST_F(OpeningTest, AScreenReaderFindsNothingOfAClosedSounding) {
    start();
    open(makeSounding("one.csv"));
    std::map<QAccessible::Id, std::string> parts;
    for (QWidget* part : view().findChildren<QWidget*>()) {
        if (QAccessibleInterface* told = QAccessible::queryAccessibleInterface(part)) {
            parts[QAccessible::uniqueId(told)] = part->objectName().toStdString();
        }
    }
    ASSERT_GT(parts.size(), 100U);
    trigger("_actionCloseAll");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (const auto& [id, name] : parts) {
        EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr) << name;
    }
}

TEST_F(OpeningTest, DescentOpensByItselfWithTheSecondSet) {
    const std::string name = "pelo_updown_20220914.dat";
    std::filesystem::copy(example(name.c_str()), path(name));
    start();
    open(path(name));
    EXPECT_THAT(openFiles(), ElementsAre(name)) << "the item is off";
    EXPECT_FALSE(std::filesystem::exists(path(name + "d")));
    trigger("_actionCloseAll");

    configure("descendingPELO", 1.0);
    answers.forget();
    open(path(name));
    EXPECT_THAT(openFiles(), ElementsAre(name, name + "d"));
    EXPECT_EQ(view().windowTitle().toStdString(), name + "d");
    EXPECT_EQ(view().configSet()->getSetName(), "descending-PELO");
    window().updateStatusBar();
    EXPECT_EQ(label("_configLabel"), "ACTIVE CONFIG: descending-PELO ") << "that of the window";
    ASSERT_FALSE(answers.boxes().empty());
    const auto told = std::find_if(answers.boxes().begin(), answers.boxes().end(),
                                   [](const auto& box) { return box.title == "Descending PELO Sounding Processing"; });
    ASSERT_NE(told, answers.boxes().end());
    EXPECT_EQ(told->icon, QMessageBox::Information);
    EXPECT_EQ(told->text, "Tarvo will now process the descending PELO sounding '" + path(name + "d") +
                              "' using configuration set 'descending-PELO'.");
    EXPECT_EQ(RegistryXML(configFile(), "").getActive1SetName(), "editsonde") << "the first set is active again";
    trigger("_actionClose");
    EXPECT_EQ(label("_configLabel"), "ACTIVE CONFIG: editsonde ");
    trigger("_actionCloseAll");

    // Where it can't be written there is none, and nothing is said of it.
    std::filesystem::remove(path(name + "d"));
    std::filesystem::permissions(path(""), std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    answers.forget();
    open(path(name));
    std::filesystem::permissions(path(""), std::filesystem::perms::owner_all);
    EXPECT_THAT(openFiles(), ElementsAre(name));
    for (const auto& box : answers.boxes()) {
        EXPECT_NE(box.title, "Descending PELO Sounding Processing");
        EXPECT_NE(box.title, "File Open Error");
    }
}
