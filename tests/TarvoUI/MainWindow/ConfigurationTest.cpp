// The private configuration of each window: when it is seen by others, and what is asked when a window closes.

#include "DesktopTest.h"

#include <QTabBar>
#include <filesystem>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const char* const kQuestion = "QC processing options were changed.\nDo you want to save them as the current "
                              "processing\noptions for the 'editsonde' configuration set?";
const char* const kTitle = "Configuration Management";

class ConfigurationTest : public DesktopTest {
protected:
    void changeInTwo() {
        start();
        open(makeSounding("one.csv"));
        view().configSet()->set("WindQCWL", 17.0);
        open(makeSounding("two.csv"));
        EXPECT_EQ(number("WindQCWL"), 30.0) << "the change is in the other one";
        view().configSet()->set("WindQCWL", 18.0);
    }
    double number(const char* item) {
        double value = -1.0;
        view().configSet()->value(item, value);
        return value;
    }
    std::vector<std::string> tabs() {
        std::vector<std::string> texts;
        for (int i = 0; i < view().tabs()->count(); ++i) {
            texts.push_back(view().tabs()->tabText(i).toStdString());
        }
        return texts;
    }
};

} // namespace

TEST_F(ConfigurationTest, NoForgetsAndEveryWindowIsAskedFor) {
    changeInTwo();
    answers.press(kTitle, QMessageBox::No);
    std::vector<std::string> inFront;
    answers.onBox([&](const ModalAnswers::Box& /*box*/) { inFront.push_back(view().windowTitle().toStdString()); });
    trigger("_actionQuit");
    EXPECT_THAT(answers.texts(), ElementsAre(kQuestion, kQuestion));
    EXPECT_THAT(inFront, ElementsAre("one.csv", "two.csv"));
    EXPECT_FALSE(window().isVisible());
    EXPECT_THAT(openFiles(), IsEmpty());
    EXPECT_EQ(stored("WindQCWL"), "30");
}

TEST_F(ConfigurationTest, NoToAllEndsTheProgramWithoutFurtherQuestions) {
    for (const char* command : {"_actionQuit", "_actionClose"}) {
        SCOPED_TRACE(command);
        changeInTwo();
        answers.forget();
        answers.press(kTitle, QMessageBox::NoToAll);
        QTimer::singleShot(0, [&] { trigger(command); });
        bool hung = false;
        QTimer limit;
        QObject::connect(&limit, &QTimer::timeout, [&hung] {
            hung = true;
            QApplication::exit();
        });
        limit.start(10000);
        QApplication::exec();
        EXPECT_FALSE(hung);
        EXPECT_THAT(answers.texts(), ElementsAre(kQuestion));
        EXPECT_EQ(stored("WindQCWL"), "30");
    }
}

TEST_F(ConfigurationTest, WhatTheUserEnteredForOneSoundingIsNoChangeOfTheConfiguration) {
    start();
    open(makeSounding("one.csv"));
    QTest::keyClicks(&inView<QLineEdit>("_overridePres"), "998.5");
    trigger("_actionRecompute");
    trigger("_actionClose");
    EXPECT_THAT(answers.boxes(), IsEmpty());
}

TEST_F(ConfigurationTest, RestoresDefaultsWhenConfirmed) {
    configure("WindQCWL", 17.0);
    start();
    open(makeSounding("one.csv"));
    answers.press(kTitle, QMessageBox::Cancel);
    trigger("_actionRestoreDefaults");
    EXPECT_THAT(answers.texts(),
                ElementsAre("Are you sure that you want to restore the defaults for the configuration 'editsonde'?"));
    EXPECT_EQ(number("WindQCWL"), 17.0);
    answers.forget();
    answers.press(kTitle, QMessageBox::Ok);
    trigger("_actionRestoreDefaults");
    ASSERT_EQ(answers.boxes().size(), 2U);
    EXPECT_EQ(answers.boxes()[1].title, "Tarvo");
    EXPECT_EQ(answers.boxes()[1].text, "QC Processing options have been set to default values."
                                       "You can save them when you close this sounding.");
    EXPECT_EQ(number("WindQCWL"), 30.0);
    EXPECT_EQ(stored("WindQCWL"), "17");
    answers.forget();
    answers.press(kTitle, QMessageBox::Yes);
    trigger("_actionClose");
    EXPECT_THAT(answers.texts(), ElementsAre(kQuestion, "The configuration 'editsonde' is being saved..."));
    EXPECT_EQ(stored("WindQCWL"), "30");
}

TEST_F(ConfigurationTest, WithoutQCThereAreOnlyTheTabsOfTheFile) {
    start();
    open(makeSounding("one.csv"));
    EXPECT_THAT(tabs(), ElementsAre("&Main", "&Raw", "&QC", "&XY Graph", "Skew-&T", "&Levels", "&WMO", "&Summary"));
    configure("DoQC", 0.0);
    open(makeSounding("two.csv"));
    EXPECT_THAT(tabs(), ElementsAre("&Main", "&Raw", "&XY Graph", "Skew-&T"));
    EXPECT_EQ(inView("RawView").findChild<QTableView*>()->model()->rowCount(), 121);
    trigger("_actionRecompute");
    EXPECT_THAT(answers.boxes(), IsEmpty());
}

TEST_F(ConfigurationTest, ADamagedFileInMidRunLosesNoWindow) {
    start();
    open(makeSounding("one.csv"));
    writeFile(configFile(), "<tarvoConfig>");
    open(makeSounding("two.csv"));
    ASSERT_EQ(answers.boxes().size(), 1U);
    EXPECT_EQ(answers.boxes()[0].icon, QMessageBox::Warning);
    EXPECT_EQ(answers.boxes()[0].text, "The sounding\n\"" + path("two.csv") +
                                           "\"\nwasn't opened, because the configuration file\n\"" + configFile() +
                                           "\"\ncan't be read.");
    trigger("_actionRecompute");
    EXPECT_THAT(openFiles(), ElementsAre("one.csv"));
    EXPECT_EQ(readFile(configFile()), "<tarvoConfig>") << "left as it is for the user to mend";
}
