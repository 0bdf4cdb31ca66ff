#include "MainView.h"

#include "OpenSounding.h"

#include <QScrollArea>
#include <QSignalSpy>
#include <QtTest/QtTest>
#include <cstring>
#include <gmock/gmock.h>

namespace {

/// The Main tab of a sounding after its first run, operated by the names of its widgets.
class MainTab : public OpenSounding {
public:
    explicit MainTab(const std::string& name = kFaulty) : OpenSounding(example(name)) {
        doc.process();
        view = std::make_unique<MainView>(&doc, &printer, nullptr);
        view->show();
        view->update();
        requests = std::make_unique<QSignalSpy>(view.get(), &TarvoView::processRequest);
    }

    template <typename Widget>
    Widget* find(const std::string& name) const {
        auto* found = view->findChild<Widget*>(QString::fromStdString(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    std::string shown(const std::string& name) const { return find<QLineEdit>(name)->text().toStdString(); }
    void type(const std::string& name, const char* text) { QTest::keyClicks(find<QLineEdit>(name), text); }
    void click(const std::string& name) { find<QAbstractButton>(name)->click(); }
    bool isChecked(const std::string& name) const { return find<QAbstractButton>(name)->isChecked(); }
    bool isEnabled(const std::string& name) const { return find<QWidget>(name)->isEnabled(); }

    std::unique_ptr<MainView> view;
    std::unique_ptr<QSignalSpy> requests;
};

struct Override {
    const char* suffix; ///< of "_override..." and "_clear...Override"
    const char* item;
};

const Override kOverrides[] = {
    {"EndTime", "LastDataTimeOverride"}, {"Pres", "LaunchPresOverride"}, {"Tdry", "LaunchTdryOverride"},
    {"Rh", "LaunchRHOverride"},          {"Wspd", "LaunchWspdOverride"}, {"Wdir", "LaunchWdirOverride"},
    {"Lat", "LaunchLatOverride"},        {"Lon", "LaunchLonOverride"},   {"Alt", "LaunchAltOverride"},
    {"SfcPres", "SfcPresOverride"},      {"SfcAlt", "SfcAltOverride"},
};

/// The ignore boxes by the ends of their names, those that are checked.
std::string ignored(const MainTab& tab) {
    std::string all;
    for (const char* name : {"Pres", "Tdry", "Rh", "Wspd", "Wdir", "Lat", "Lon", "Alt"}) {
        const std::string item = std::string("IgnoreLaunch") + (name == std::string("Rh") ? "RH" : name);
        const bool checked = tab.isChecked(std::string("_ignore") + name);
        EXPECT_EQ(tab.number(item), checked ? 1.0 : 0.0) << item;
        all += checked ? std::string(name) + " " : "";
    }
    return all;
}

/// The override edits that hold text.
std::string overridden(const MainTab& tab) {
    std::string all;
    for (const Override& row : kOverrides) {
        const bool filled = !tab.shown(std::string("_override") + row.suffix).empty();
        EXPECT_EQ(tab.config.exists(row.item), filled) << row.item;
        all += filled ? std::string(row.suffix) + " " : "";
    }
    return all;
}

} // namespace

// From the pre-launch observation and the last lines of the file.
TEST(MainView, ShowsWhatTheFileReports) {
    const MainTab tab;
    const std::pair<const char*, const char*> expected[] = {
        {"_endTime", "537.00"}, {"_pres", "480.0"},  {"_tdry", "-8.5"},    {"_rh", "58.3"},    {"_wspd", "9.5"},
        {"_wdir", "245.6"},     {"_lat", "17.9000"}, {"_lon", "118.3500"}, {"_alt", "6162.0"}, {"_dropSfcAlt", "0.0"},
    };
    for (const auto& [name, text] : expected) {
        EXPECT_EQ(tab.shown(name), text) << name;
        EXPECT_TRUE(tab.find<QLineEdit>(name)->isReadOnly()) << name;
    }
    EXPECT_EQ(tab.find<QLabel>("_date")->text().toStdString(), "2021-09-14");
    EXPECT_EQ(tab.find<QLabel>("_time")->text().toStdString(), "04:31:20");
    EXPECT_EQ(tab.find<QLabel>("_main_topLabel")->text().section(' ', 0, 0).toStdString(), kFaulty);
    EXPECT_FALSE(tab.view->canSave());
    EXPECT_TRUE(tab.view->canPrint());
}

TEST(MainView, ShowsNothingWhereNothingWasComputed) {
    const MainTab drop;
    EXPECT_NEAR(std::stod(drop.shown("_estLaunchAlt")), 6162.0, 20.0);
    EXPECT_NEAR(std::stod(drop.shown("_estTermAlt")), 4.6, 5.0); // the last record reports 4.58 m
    EXPECT_NEAR(std::stod(drop.shown("_dropSfcPres")), 1007.3, 1.0);
    const MainTab up("polar_up_20230117.csv"); // integrated upward from the ground only
    EXPECT_EQ(up.shown("_estLaunchAlt"), "");
    EXPECT_EQ(up.shown("_estTermAlt"), "");
    const MainTab message("temp_20220708.wmo"); // its station isn't known to Tarvo
    EXPECT_EQ(message.shown("_dropSfcAlt"), "");
}

TEST(MainView, AnOverrideIsAnItemWhileItsEditHoldsText) {
    MainTab tab;
    for (const Override& row : kOverrides) {
        ASSERT_FALSE(tab.config.exists(row.item)) << row.item;
        tab.type(std::string("_override") + row.suffix, " 12.5");
        EXPECT_EQ(tab.number(row.item), 12.5) << row.item;
        EXPECT_EQ(overridden(tab), std::string(row.suffix) + " ");
        tab.click(std::string("_clear") + row.suffix + "Override");
        EXPECT_EQ(overridden(tab), "") << row.item;
    }
    // Five characters and a click each; nothing is computed until the user wants it.
    EXPECT_EQ(tab.requests->count(), 11 * 6);
    for (const QList<QVariant>& request : *tab.requests) {
        EXPECT_TRUE(request.front().toBool());
    }
    EXPECT_EQ(tab.editor().rawVersion(), 1);
}

TEST(MainView, DeletingTheLastCharacterRemovesTheOverrideAndWhatIsNoNumberIsZero) {
    MainTab tab;
    for (const auto& [text, number] : {std::pair("7", 7.0), {"a", 0.0}, {"-", 0.0}, {"nan", 0.0}, {"1013,2", 0.0}}) {
        tab.type("_overridePres", text);
        EXPECT_EQ(tab.number("LaunchPresOverride"), number) << text;
        for (std::size_t i = 0; i < std::strlen(text); ++i) {
            ASSERT_TRUE(tab.config.exists("LaunchPresOverride")) << text;
            QTest::keyClick(tab.find<QLineEdit>("_overridePres"), Qt::Key_Backspace);
        }
        EXPECT_FALSE(tab.config.exists("LaunchPresOverride")) << text;
    }
}

TEST(MainView, IgnoredTogetherAndNoLongerWithAnOverride) {
    struct Case {
        const char* box;
        const char* ignored; ///< after the box was checked, then what remains once it is unchecked: nothing
        const char* keptOverrides;
        const char* left; ///< after the first character of an override
    };
    const Case cases[] = {
        {"Pres", "Pres ", "Tdry Rh Wspd Wdir Lat Lon Alt ", ""},
        {"Tdry", "Tdry Rh ", "Pres Wspd Wdir Lat Lon Alt ", "Rh "},
        {"Rh", "Rh ", "Pres Tdry Wspd Wdir Lat Lon Alt ", ""},
        {"Wspd", "Wspd Wdir ", "Pres Tdry Rh Lat Lon Alt ", "Wdir "},
        {"Wdir", "Wspd Wdir ", "Pres Tdry Rh Lat Lon Alt ", "Wspd "},
        {"Lat", "Lat Lon ", "Pres Tdry Rh Wspd Wdir Alt ", "Lon "},
        {"Lon", "Lat Lon ", "Pres Tdry Rh Wspd Wdir Alt ", "Lat "},
        {"Alt", "Alt ", "Pres Tdry Rh Wspd Wdir Lat Lon ", ""},
    };
    for (const Case& c : cases) {
        MainTab tab;
        for (const char* name : {"Pres", "Tdry", "Rh", "Wspd", "Wdir", "Lat", "Lon", "Alt"}) {
            tab.type(std::string("_override") + name, "1");
        }
        tab.requests->clear();
        const std::string box = std::string("_ignore") + c.box;
        tab.click(box);
        EXPECT_EQ(ignored(tab), c.ignored) << c.box;
        EXPECT_EQ(overridden(tab), c.keptOverrides) << c.box;
        tab.click(box);
        EXPECT_EQ(ignored(tab), "") << c.box;
        EXPECT_EQ(overridden(tab), c.keptOverrides) << c.box;
        ASSERT_EQ(tab.requests->count(), 2);
        EXPECT_TRUE(tab.requests->at(0).front().toBool());
        tab.click(box);
        tab.type(std::string("_override") + c.box, "1");
        EXPECT_EQ(ignored(tab), c.left) << c.box;
        EXPECT_EQ(tab.shown(std::string("_override") + c.box), "1");
    }
}

TEST(MainView, UncheckingEitherOfAPairUnchecksBoth) {
    for (const auto& [checked, unchecked] :
         {std::pair("Wdir", "Wspd"), std::pair("Lon", "Lat"), std::pair("Lat", "Lon")}) {
        MainTab tab;
        tab.click(std::string("_ignore") + checked);
        tab.click(std::string("_ignore") + unchecked);
        EXPECT_EQ(ignored(tab), "");
    }
}

TEST(MainView, HeightFlagsAreItems) {
    for (const auto& [box, item] :
         {std::pair("_hitSurface", "DropsondeHitSfc"), std::pair("_heightsMissing", "SetHtsMissing"),
          std::pair("_sfcAltUnknown", "SfcAltUnknown")}) {
        MainTab tab;
        const double before = tab.number(item);
        EXPECT_EQ(tab.isChecked(box), before != 0.0) << box;
        tab.click(box);
        EXPECT_EQ(tab.number(item), 1.0 - before) << item;
        EXPECT_EQ(tab.requests->count(), 1);
    }
}

TEST(MainView, ShowsAnEndOfDropThatAnotherTabSet) {
    MainTab tab;
    tab.type("_overridePres", "479.55");
    tab.config.add("LastDataTimeOverride", 500.5, false, false, true);
    tab.doc.process();
    tab.view->update();
    EXPECT_EQ(tab.shown("_overrideEndTime"), "500.50");
    EXPECT_EQ(tab.shown("_overridePres"), "479.55") << "as it was typed";
    EXPECT_EQ(tab.shown("_pres"), "480.0");
    tab.click("_ignoreAlt"); // which writes all items
    EXPECT_EQ(tab.number("LastDataTimeOverride"), 500.5);
}

TEST(MainView, AnUpsondeHasNoSurfaceParameters) {
    for (const auto& [file, enabled] : {std::pair(kFaulty, true), std::pair("summer_up_20220705.csv", false)}) {
        const MainTab tab(file);
        for (const char* name : {"_hitSurface", "_sfcAltUnknown", "_overrideSfcPres", "_overrideSfcAlt",
                                 "_clearSfcPresOverride", "_clearSfcAltOverride"}) {
            EXPECT_EQ(tab.isEnabled(name), enabled) << file << name;
        }
        EXPECT_TRUE(tab.isEnabled("_heightsMissing"));
        EXPECT_TRUE(tab.isEnabled("_overridePres"));
    }
}

TEST(MainView, OffersTheRhChannelsThereAre) {
    EXPECT_FALSE(MainTab("summer_up_20220705.csv").find<QGroupBox>("_mainGroupBox_rhchannels")->isVisible());
    MainTab tab;
    const auto* group = tab.find<QGroupBox>("_mainGroupBox_rhchannels");
    EXPECT_TRUE(group->isVisible());
    EXPECT_EQ(group->title().toStdString(), "RH Channel for QC Use");
    EXPECT_TRUE(tab.isChecked("_rhOmbraSelected"));
    for (const auto& [button, channel] :
         {std::pair("_rhChannel2", 2), std::pair("_rhChannel1", 1), std::pair("_rhOmbraSelected", 0)}) {
        tab.requests->clear();
        tab.click(button);
        EXPECT_EQ(tab.editor().RHselection(), channel);
        ASSERT_EQ(tab.requests->count(), 1);
        EXPECT_TRUE(tab.requests->front().front().toBool());
        tab.view->update();
        EXPECT_TRUE(tab.isChecked(button));
    }
}

TEST(MainView, WithTheHeatingOnThereIsOneChannelToChoose) {
    const MainTab tab("D20100119_180708.4"); // its channels are the same throughout
    EXPECT_EQ(tab.find<QGroupBox>("_mainGroupBox_rhchannels")->title().toStdString(),
              "RH Channel for QC Use (Heating On)");
    EXPECT_TRUE(tab.isChecked("_rhOmbraSelected") && tab.isEnabled("_rhOmbraSelected"));
    EXPECT_FALSE(tab.isEnabled("_rhChannel1") || tab.isEnabled("_rhChannel2"));
}

TEST(MainView, TheTabKeyGoesDownTheOverrides) {
    MainTab tab;
    QWidget* at = tab.find<QLineEdit>("_overrideEndTime");
    std::string way;
    for (int i = 0; i < 10; ++i) {
        way += at->objectName().toStdString() + " ";
        do {
            at = at->nextInFocusChain();
        } while ((at->focusPolicy() & Qt::TabFocus) == 0 || at->objectName().isEmpty());
    }
    EXPECT_EQ(way, "_overrideEndTime _overridePres _overrideTdry _overrideRh _overrideWspd _overrideWdir _overrideLat "
                   "_overrideLon _overrideAlt _ignorePres ");
}

TEST(MainView, EachOverrideHasALetterOfItsOwn) {
    const MainTab tab;
    std::map<QString, std::string> letters; // the menus and the tabs have theirs
    for (const char* taken : {"F", "T", "V", "W", "H", "M", "R", "Q", "X", "L", "C", "S"}) {
        letters[QKeySequence(QString("Alt+") + taken).toString()] = "the window";
    }
    int found = 0;
    for (const QLabel* label : tab.view->findChildren<QLabel*>()) {
        if (label->buddy() != nullptr) {
            const QString letter = QKeySequence::mnemonic(label->text()).toString();
            EXPECT_FALSE(letter.isEmpty()) << label->text().toStdString();
            EXPECT_EQ(letters.count(letter), 0U) << label->text().toStdString() << " and " << letters[letter];
            letters[letter] = label->text().toStdString();
            ++found;
        }
    }
    EXPECT_EQ(found, 11);
}

TEST(MainView, NumbersFitAtAnySizeOfTheText) {
    for (const int points : {8, 12, 20}) {
        MainTab tab("D20210914_043120.2");
        tab.view->setStyleSheet(QString("* {font-size:%1pt}").arg(points));
        tab.view->resize(700, 400);
        QApplication::processEvents();
        const auto* lon = tab.find<QLineEdit>("_lon");
        EXPECT_GE(lon->width(), lon->fontMetrics().horizontalAdvance("-118.3500") + 8) << points;
    }
}

TEST(MainView, ALongDescriptionTakesTwoLines) {
    MainTab tab;
    const auto* description = tab.find<QLabel>("_main_topLabel");
    tab.view->resize(description->fontMetrics().horizontalAdvance(description->text()) * 2 / 3, 400);
    QApplication::processEvents();
    const int needed = description->heightForWidth(description->width());
    EXPECT_GT(needed, description->fontMetrics().height());
    EXPECT_GE(description->height(), needed);
}

TEST(MainView, IsPrintedWhole) {
    struct Printed : MainView {
        using MainView::MainView;
        using MainView::picture;
    };
    OpenSounding sounding(OpenSounding::example(kFaulty));
    Printed view(&sounding.doc, &sounding.printer, nullptr);
    view.resize(300, 200);
    view.show();
    const auto* farthest = view.findChild<QWidget*>("_clearSfcAltOverride");
    const QPoint corner =
        farthest->mapTo(farthest->window()->findChild<QScrollArea*>()->widget(), farthest->rect().bottomRight());
    EXPECT_GT(corner.x(), 300);
    EXPECT_GT(view.picture().width(), corner.x());
    EXPECT_GT(view.picture().height(), corner.y());
}

TEST(MainView, IsPrintedAcrossThePaper) {
    MainTab tab;
    tab.printer.setPageOrientation(QPageLayout::Portrait);
    tab.view->update();
    EXPECT_EQ(tab.printer.pageLayout().orientation(), QPageLayout::Landscape);
    EXPECT_EQ(tab.printer.pageLayout().margins(QPageLayout::Millimeter), QMarginsF(20.0, 20.0, 20.0, 20.0));
}
