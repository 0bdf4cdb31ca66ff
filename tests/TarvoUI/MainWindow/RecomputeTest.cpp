// How an edit asks for a recompute.

#include "DesktopTest.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QPushButton>

using testing::ElementsAre;

namespace {

class RecomputeTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        start();
        open(makeSounding("one.csv"));
        QObject::connect(&window(), &TarvoMainWindow::updateSounding, [this] { ++runs; });
    }
    /// 1 or 2: which of its pictures the Recompute action shows.
    int picture() {
        const auto image = [](const QIcon& icon) { return icon.pixmap(24).toImage(); };
        const QImage shown = image(action("_actionRecompute").icon());
        return shown == image(QIcon(":/tarvo_icons/recompute1.png"))   ? 1
               : shown == image(QIcon(":/tarvo_icons/recompute2.png")) ? 2
                                                                       : 0;
    }
    std::string tip() { return action("_actionRecompute").toolTip().toStdString(); }
    bool changesTo(int wanted) {
        return QTest::qWaitFor([&] { return picture() == wanted; }, kPatience);
    }

    /// Does something in the dialog of the options, and leaves it with Ok.
    void inOptions(const std::function<void(QDialog&)>& how) {
        answers.operate("Options", [how](QDialog& dialog) {
            how(dialog);
            dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        });
        trigger("_actionOptions");
    }
    void setOption(const char* key, const char* text) {
        inOptions([=](QDialog& dialog) { dialog.findChild<QLineEdit*>(key)->setText(text); });
    }

    int runs = 0;
};

const char* const kNeeded = "Data or QC parameter(s) modified, recompute is needed.";

} // namespace

TEST_F(RecomputeTest, OptionsAndDefaultsThatGoBackAfterARunNeedAnother) {
    setOption("WindQCWL", "17");
    EXPECT_EQ(tip(), kNeeded);
    trigger("_actionRecompute");
    EXPECT_EQ(tip(), "Recompute");
    setOption("WindQCWL", "30"); // as it is stored
    EXPECT_EQ(tip(), kNeeded);
    trigger("_actionRecompute");
    setOption("WindQCWL", "30");
    EXPECT_EQ(tip(), "Recompute") << "nothing is different";
    trigger("_actionRestoreDefaults");
    trigger("_actionRecompute");
    trigger("_actionRestoreDefaults");
    EXPECT_EQ(tip(), "Recompute");
    setOption("WindQCWL", "17");
    trigger("_actionRecompute");
    trigger("_actionRestoreDefaults");
    EXPECT_EQ(tip(), kNeeded);
}

TEST_F(RecomputeTest, TheButtonOfTheMainTabKeepsWhatTheOptionsSet) {
    inOptions([](QDialog& dialog) { dialog.findChild<QCheckBox*>("SfcAltUnknown")->setChecked(true); });
    QTest::mouseClick(&inView("_recompute"), Qt::LeftButton);
    EXPECT_EQ(runs, 1);
    double unknown = 0.0;
    EXPECT_TRUE(view().configSet()->value("SfcAltUnknown", unknown));
    EXPECT_EQ(unknown, 1.0);
}

TEST_F(RecomputeTest, AnEditMakesTheActionFlashUntilTheRunOrTheLastWindow) {
    EXPECT_EQ(picture(), 1);
    EXPECT_EQ(tip(), "Recompute");
    QTest::keyClicks(&inView<QLineEdit>("_overridePres"), "9");
    EXPECT_EQ(tip(), kNeeded);
    EXPECT_EQ(picture(), 1) << "the first change comes after 0.7 s";
    EXPECT_TRUE(changesTo(2));
    EXPECT_TRUE(changesTo(1));
    EXPECT_TRUE(changesTo(2));
    EXPECT_EQ(runs, 0);
    trigger("_actionRecompute");
    EXPECT_EQ(picture(), 1);
    QTest::qWait(900);
    EXPECT_EQ(picture(), 1) << "it has ended";
    QTest::keyClicks(&inView<QLineEdit>("_overridePres"), "9");
    EXPECT_TRUE(changesTo(2));
    trigger("_actionClose");
    EXPECT_EQ(picture(), 1);
    EXPECT_EQ(tip(), "Recompute");
}

TEST_F(RecomputeTest, TheButtonRunsAtOnce) {
    QTest::keyClicks(&inView<QLineEdit>("_overridePres"), "999.5");
    QTest::mouseClick(&inView("_recompute"), Qt::LeftButton);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(tip(), "Recompute");
    const SndMetaData meta = view().editor()->getSndMetaData(true);
    EXPECT_DOUBLE_EQ(meta.launchPres.value(), 999.5);
}

TEST_F(RecomputeTest, AnEditOfRawDataCountsThemAnew) {
    const int version = view().editor()->rawVersion();
    trigger("_actionRecompute");
    EXPECT_EQ(view().editor()->rawVersion(), version + 1) << "QC marks raw data";
    QTest::keyClicks(&inView<QLineEdit>("_overridePres"), "9");
    EXPECT_EQ(view().editor()->rawVersion(), version + 1) << "not before the run";
    trigger("_actionRecompute");
    EXPECT_EQ(view().editor()->rawVersion(), version + 3);
    trigger("_actionRecompute");
    EXPECT_EQ(view().editor()->rawVersion(), version + 4) << "the mark is gone";
    QTest::mouseClick(&inView("_recompute"), Qt::LeftButton);
    EXPECT_EQ(view().editor()->rawVersion(), version + 6) << "also when the request runs at once";
}

TEST_F(RecomputeTest, TheFlashIsThatOfTheSoundingInFront) {
    QTest::keyClicks(&inView<QLineEdit>("_overridePres"), "9");
    EXPECT_TRUE(changesTo(2));
    open(makeSounding("two.csv"));
    EXPECT_EQ(tip(), "Recompute");
    EXPECT_EQ(picture(), 1);
    trigger("_actionRecompute");
    open(path("one.csv")); // is raised
    EXPECT_EQ(tip(), kNeeded) << "the run was that of the other one";
    EXPECT_TRUE(changesTo(2));
    trigger("_actionRecompute");
    EXPECT_EQ(tip(), "Recompute");
    open(path("two.csv"));
    EXPECT_EQ(tip(), "Recompute");
}

TEST_F(RecomputeTest, TheSummaryTellsTheTabs) {
    EXPECT_THAT(view().editor()->summaryItems("Processing Steps"),
                testing::Contains(testing::ContainsRegex("^Tabs updated \\(in (less than 1\\.0|[ 0-9.]{4,})s\\)$")));
}
