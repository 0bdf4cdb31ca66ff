// Every option of the options dialog, by clicks and keys.

#include "ConfigForms.h"
#include "ParameterTable.h"
#include "QtHands.h"
#include "RegistryXML.h"
#include "ShippedConfiguration.h"
#include "SndMetaData.h"
#include "SoundingDB.h"
#include "TarvoAdvConfigController.h"
#include "TemporaryFolder.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest/QtTest>
#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

void PrintTo(const OptionField& field, std::ostream* out) {
    *out << field.key;
}

namespace {

bool isNumber(const OptionField& field) {
    return field.kind == OptionField::Double || field.kind == OptionField::Int;
}

bool hasLimits(const OptionField& field) {
    return field.min != 0.0 || field.max != 0.0;
}

std::vector<OptionField> allFields() {
    std::vector<OptionField> all;
    for (const auto* table : {&config_forms::qualityControl(), &config_forms::processing(), &config_forms::wmo(),
                              &config_forms::autoSave(), &config_forms::synopticMap(), &config_forms::visual()}) {
        all.insert(all.end(), table->begin(), table->end());
    }
    return all;
}

std::vector<OptionField> limitedFields() {
    std::vector<OptionField> limited;
    for (const OptionField& field : allFields()) {
        if (isNumber(field) && hasLimits(field)) {
            limited.push_back(field);
        }
    }
    return limited;
}

/// The dialog over the set editsonde of the shipped configuration.
class Options {
public:
    explicit Options(int openSoundings = 0)
        : registry(RegistryXML::fromText(shippedConfiguration(), "editsonde")), set(registry.get()),
          controller(new TarvoAdvConfigController(&dialog, &set, nullptr, openSoundings)) {
        dialog.show();
    }
    ~Options() { delete controller; }
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;

    template <typename Widget>
    Widget& child(const char* name) {
        Widget* found = dialog.findChild<Widget*>(name);
        if (found == nullptr) {
            throw std::runtime_error(std::string("no widget ") + name);
        }
        return *found;
    }
    ConfigItem& item(const char* key) { return *set[Id(key)]; }
    QPushButton& button(QDialogButtonBox::StandardButton which) {
        return *dialog.findChild<QDialogButtonBox*>()->button(which);
    }
    void apply() { button(QDialogButtonBox::Apply).click(); }

    std::unique_ptr<RegistryXML> registry;
    TarvoConfigSet set;
    QDialog dialog;
    TarvoAdvConfigController* controller;
};

QString shown(const ConfigItem& item) {
    return item.isNumeric() ? QString::number(item.value(), 'g', 6) : QString::fromStdString(item.text());
}

class EveryOption : public testing::TestWithParam<OptionField> {
protected:
    Options options;
    ModalAnswers answers;
};

class EveryLimit : public EveryOption {};

std::string nameOf(const testing::TestParamInfo<OptionField>& option) {
    return option.param.key;
}

} // namespace

TEST_P(EveryOption, IsShownEditedAndKept) {
    const OptionField& field = GetParam();
    ASSERT_NE(findParameter(field.key), nullptr);
    ConfigItem& item = options.item(field.key);
    if (field.kind == OptionField::Flag) {
        auto& box = options.child<QCheckBox>(field.key);
        ASSERT_TRUE(item.isNumeric());
        EXPECT_EQ(box.isChecked(), item.boolValue());
        const bool before = box.isChecked();
        box.setChecked(!before);
        EXPECT_EQ(item.boolValue(), before) << "not before Apply";
        options.apply();
        EXPECT_EQ(item.boolValue(), !before);
        EXPECT_THAT(box.toolTip().toStdString(), HasSubstr(field.key));
    } else if (field.kind == OptionField::Choice) {
        auto& group = options.child<QButtonGroup>(field.key);
        EXPECT_EQ(group.checkedId(), item.intValue());
        ASSERT_EQ(group.buttons().size(), static_cast<int>(field.choices.size()));
        const int other = group.checkedId() == 1 ? 2 : 1;
        group.button(other)->click();
        options.apply();
        EXPECT_EQ(item.intValue(), other);
    } else {
        auto& edit = options.child<QLineEdit>(field.key);
        EXPECT_EQ(edit.text(), shown(item));
        EXPECT_THAT(edit.toolTip().toStdString(), HasSubstr("\nSet: " + shown(item).toStdString() + "\nDefault: "));
        ASSERT_EQ(item.isNumeric(), isNumber(field));
        QString text = isNumber(field) ? hasLimits(field) ? QString::number(field.max, 'g', 6) : "7" : "abc";
        if (field.kind == OptionField::Pattern) {
            text = std::string(field.key) == "TempEmailAddress" ? "ops@site.org"
                   : std::string(field.key) == "BSN"            ? "72469"
                                                                : "KABC";
        }
        edit.setText(text); // what a greyed field takes only from its box
        options.apply();
        EXPECT_EQ(shown(item), text);
    }
    EXPECT_THAT(answers.boxes(), IsEmpty());
}

TEST_P(EveryLimit, RefusesAndAnEmptyFieldStoresNothing) {
    const OptionField& field = GetParam();
    ConfigItem& item = options.item(field.key);
    auto& edit = options.child<QLineEdit>(field.key);
    edit.setEnabled(true);
    edit.setVisible(true);
    const QString before = edit.text();
    const double step = field.kind == OptionField::Int ? 1.0 : 0.05;
    const std::string message = QString("The %1 must be greater than %2 and less than %3!")
                                    .arg(field.inMessages)
                                    .arg(static_cast<int>(field.min))
                                    .arg(static_cast<int>(field.max))
                                    .toStdString();
    for (const QString& wrong :
         {QString::number(field.max + step, 'g', 9), QString::number(field.min - step, 'g', 9), QString("many")}) {
        answers.forget();
        typeOver(edit, wrong);
        ASSERT_THAT(answers.texts(), ElementsAre(message)) << wrong.toStdString();
        EXPECT_EQ(answers.boxes()[0].title, "ERROR");
        EXPECT_EQ(answers.boxes()[0].icon, QMessageBox::Warning);
        EXPECT_EQ(edit.text(), before);
    }
    answers.forget();
    typeOver(edit, QString::number(field.min, 'g', 6));
    EXPECT_EQ(edit.text().toDouble(), field.min) << "the limit itself is accepted";
    typeOver(edit, "");
    options.apply();
    EXPECT_THAT(answers.boxes(), IsEmpty());
    const double kept = item.isImmediateSave() ? field.min : before.toDouble();
    EXPECT_DOUBLE_EQ(item.value(), kept);
}

INSTANTIATE_TEST_SUITE_P(Options, EveryOption, testing::ValuesIn(allFields()), nameOf);
INSTANTIATE_TEST_SUITE_P(Options, EveryLimit, testing::ValuesIn(limitedFields()), nameOf);

TEST(OptionsDialog, CancelChangesNothing) {
    Options options;
    const auto before = options.set.dump();
    typeOver(options.child<QLineEdit>("PresQCWL"), "44");
    options.child<QCheckBox>("PresMonoCheck").toggle();
    QSignalSpy saved(options.controller, &TarvoAdvConfigController::saveConfiguration);
    options.button(QDialogButtonBox::Cancel).click();
    const auto after = options.set.dump();
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < before.size(); ++i) {
        EXPECT_EQ(after[i], before[i]);
    }
    EXPECT_TRUE(saved.isEmpty());
    EXPECT_FALSE(options.dialog.isVisible());
}

TEST(OptionsDialog, OkAppliesAndCloses) {
    Options options;
    typeOver(options.child<QLineEdit>("PresQCWL"), "59.5");
    QSignalSpy saved(options.controller, &TarvoAdvConfigController::saveConfiguration);
    options.button(QDialogButtonBox::Ok).click();
    EXPECT_EQ(options.item("PresQCWL").value(), 59.5);
    ASSERT_EQ(saved.size(), 1);
    EXPECT_TRUE(saved[0][0].toBool());
    EXPECT_FALSE(options.dialog.isVisible());
}

TEST(OptionsDialog, QcModesRuleOtherBoxes) {
    Options options;
    auto& enable = options.child<QCheckBox>("QCAutoSaveEnable");
    enable.setChecked(true);
    options.child<QAbstractButton>("DoQC_0").click();
    EXPECT_FALSE(enable.isEnabled());
    EXPECT_FALSE(enable.isChecked());
    EXPECT_FALSE(options.child<QCheckBox>("DoLevels").isChecked());
    EXPECT_FALSE(options.child<QCheckBox>("DoWMO").isChecked());
    options.child<QAbstractButton>("DoQC_1").click();
    EXPECT_TRUE(enable.isEnabled());

    Options withOpen(2);
    for (const char* name : {"DoQC_0", "DoQC_1", "DoQC_2", "DoQC_3"}) {
        EXPECT_FALSE(withOpen.child<QAbstractButton>(name).isEnabled());
        EXPECT_EQ(withOpen.child<QAbstractButton>(name).toolTip(),
                  "To change the QC processing you must close all soundings");
    }
}

TEST(OptionsDialog, OptionsHideAndGreyOthers) {
    Options options;
    auto& sats = options.child<QLineEdit>("WindSats");
    options.child<QCheckBox>("WindDisableSatsCheck").setChecked(true);
    EXPECT_TRUE(sats.isHidden());
    options.child<QCheckBox>("WindDisableSatsCheck").setChecked(false);
    EXPECT_FALSE(sats.isHidden());
    options.child<QCheckBox>("xyGraphLatAuto").setChecked(true);
    EXPECT_FALSE(options.child<QLineEdit>("xyGraphLatMin").isEnabled());
    options.child<QCheckBox>("xyGraphLatAuto").setChecked(false);
    EXPECT_TRUE(options.child<QLineEdit>("xyGraphLatMax").isEnabled());
}

TEST(OptionsDialog, RefusedTextsStayAndReachNoItem) {
    Options options;
    ModalAnswers answers;
    auto& mail = options.child<QLineEdit>("TempEmailAddress");
    const std::string before = options.item("TempEmailAddress").text();
    typeOver(mail, "nobody");
    EXPECT_THAT(answers.texts(), ElementsAre("'nobody' is not an acceptable value for the email address!"));
    EXPECT_EQ(mail.text(), "nobody");
    options.apply();
    EXPECT_EQ(options.item("TempEmailAddress").text(), before);
}

TEST(OptionsDialog, AMaskChangesNoTextByItself) {
    Options options;
    const std::pair<const char*, const char*> texts[] = {
        {"BSN", "A1234"}, {"CallSign", "abc"}, {"UpsondeAbrHdr", "uuna19"}, {"UpsondeICAO", "K-BC"}};
    for (const auto& [key, text] : texts) {
        options.set.set(key, text);
    }
    QDialog dialog;
    const TarvoAdvConfigController controller(&dialog, &options.set, nullptr, 0);
    dialog.show();
    for (const auto& [key, text] : texts) {
        QTest::keyClick(dialog.findChild<QLineEdit*>(key), Qt::Key_Return); // passed by
        EXPECT_EQ(options.item(key).text(), text);
    }
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Apply)->click();
    for (const auto& [key, text] : texts) {
        EXPECT_EQ(options.item(key).text(), text);
    }
    typeOver(*dialog.findChild<QLineEdit*>("CallSign"), "xyz");
    EXPECT_EQ(options.item("CallSign").text(), "XYZ");
}

TEST(OptionsDialog, PathsAreBrowsedFor) {
    const TemporaryFolder folder;
    writeFile(folder / "there.sqlite", "");
    std::filesystem::create_directory(folder / "folder");
    struct Case {
        const char* key;
        const char* title;
        const char* filters;
        const char* chosen;
    };
    const char* const all = "All Files (*)";
    const char* const databases = "SQLite Database (*.sqlite)";
    for (const Case& each : {Case{"FixedSrcDir", "Tarvo - Browse for Folder", all, "folder"},
                             Case{"QCAutoSaveDir", "Tarvo - Browse for Folder", all, "folder"},
                             Case{"KermitPath", "Tarvo - Browse for Kermit Path", all, "there.sqlite"},
                             Case{"GeoDBPath", "Tarvo - Browse for Geo Database", databases, "there.sqlite"},
                             Case{"SoundingDBPath", "Tarvo - Browse for Sounding Database",
                                  "SQLite Database (*.sqlite);;All Files (*.*)", "not yet there.sqlite"}}) {
        SCOPED_TRACE(each.key);
        Options options;
        ModalAnswers answers;
        auto& edit = options.child<QLineEdit>(each.key);
        auto& browse = options.child<QPushButton>((each.key + std::string("_browse")).c_str());
        const QString before = edit.text();
        browse.click(); // the dialog is given up
        EXPECT_EQ(edit.text(), before);
        const QString chosen = QString::fromStdString((folder / each.chosen).string());
        std::string filters;
        answers.operate(each.title, [&](QDialog& dialog) {
            filters = dynamic_cast<QFileDialog&>(dialog).nameFilters().join(";;").toStdString();
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(chosen);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        browse.click();
        EXPECT_EQ(filters, each.filters);
        EXPECT_EQ(edit.text(), chosen);
        EXPECT_NE(options.item(each.key).text(), chosen.toStdString()) << "not before Apply";
        options.apply();
        EXPECT_EQ(options.item(each.key).text(), chosen.toStdString());
    }
}

TEST(OptionsDialog, TheDatabaseIsClearedByConsent) {
    const TemporaryFolder folder;
    const auto db = SoundingDB::openOrCreate((folder / "soundings.sqlite").string());
    db->addSounding("/a", SndMetaData(), "CSV");
    Options options; // without one
    EXPECT_FALSE(options.child<QPushButton>("_clearSoundingDB").isEnabled());
    ModalAnswers answers;
    QDialog dialog;
    const TarvoAdvConfigController controller(&dialog, &options.set, db.get(), 0);
    auto* clear = dialog.findChild<QPushButton*>("_clearSoundingDB");
    for (const auto& [answer, left] : {std::pair(QMessageBox::No, 1U), std::pair(QMessageBox::Yes, 0U)}) {
        answers.press("Configuration Management", answer);
        clear->click();
        EXPECT_EQ(db->getSoundings().size(), left);
        EXPECT_THAT(answers.texts().back(), HasSubstr(db->dbPath()));
    }
    answers.forget();
    std::filesystem::remove(db->dbPath());
    clear->click();
    ASSERT_EQ(answers.boxes().size(), 2U);
    EXPECT_EQ(answers.boxes()[1].title, "ERROR");
    EXPECT_THAT(answers.boxes()[1].text, HasSubstr("deleted or renamed"));
}

TEST(OptionsDialog, NumbersBeyondTheirLimitsReachNoItem) {
    const std::pair<const char*, const char*> wrong[] = {
        {"DragCoef", "1.5"}, {"DragCoef", "nan"}, {"WindSats", "3.5"}, {"WindSats", "25"}, {"GPSPosQCWL", "inf"}};
    for (const auto& [key, text] : wrong) {
        Options options;
        const double before = options.item(key).value();
        options.child<QLineEdit>(key).setText(text);
        options.apply();
        EXPECT_EQ(options.item(key).value(), before) << key << " " << text;
    }
}

TEST(OptionsDialog, ApplyTellsOfTheFieldThatIsBeingEdited) {
    Options options;
    ModalAnswers answers;
    options.child<QTabWidget>("_tabs").setCurrentIndex(1);
    QApplication::setActiveWindow(&options.dialog);
    auto& drag = options.child<QLineEdit>("DragCoef");
    drag.setFocus();
    ASSERT_TRUE(drag.hasFocus());
    const QString before = drag.text();
    drag.setText("1.5");
    options.apply();
    EXPECT_THAT(answers.texts(), ElementsAre("The drag coefficient must be greater than 0 and less than 1!"));
    EXPECT_EQ(drag.text(), before);
}

TEST(OptionsDialog, TheSearchFindsAnOption) {
    Options options;
    auto& search = options.child<QLineEdit>("_search");
    auto& tabs = options.child<QTabWidget>("_tabs");
    QTest::keyClicks(&search, "drag coef");
    EXPECT_EQ(tabs.currentIndex(), 1);
    EXPECT_TRUE(options.child<QLineEdit>("DragCoef").isVisible());
    EXPECT_FALSE(options.child<QLineEdit>("ChuteArea").isVisible());
    EXPECT_FALSE(tabs.isTabEnabled(0));
    search.clear();
    EXPECT_TRUE(options.child<QLineEdit>("ChuteArea").isVisible());
    EXPECT_TRUE(tabs.isTabEnabled(0));
    QTest::keyClicks(&search, "xygraphlonmax"); // by its key
    EXPECT_EQ(tabs.currentIndex(), 5);
    const auto& nothing = options.child<QLabel>("_nothingFound");
    EXPECT_FALSE(nothing.isVisible());
    QTest::keyClicks(&search, "nothing");
    EXPECT_FALSE(tabs.isTabEnabled(5));
    EXPECT_TRUE(nothing.isVisible());
    search.clear();
    EXPECT_FALSE(nothing.isVisible());
}
