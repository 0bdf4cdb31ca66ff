// The management of configuration sets, and what the file holds afterwards.

#include "TarvoConfigMgt.h"
#include "FilePathDialog.h"
#include "ModalAnswers.h"
#include "QtText.h"
#include "ShippedConfiguration.h"
#include "TarvoSettings.h"
#include "TemporaryFolder.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest/QtTest>
#include <gmock/gmock.h>

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

class Management : public testing::Test {
protected:
    void SetUp() override {
        writeFile(folder / "tarvo.xml", shippedConfiguration());
        TarvoSettings().setValue(TarvoSettings::kXmlDir, QString::fromStdString(folder.path().string() + "/"));
        answers.press("Configuration Management", QMessageBox::Yes);
        open();
    }
    void open() {
        dialog = std::make_unique<TarvoConfigMgt>(TarvoSettings::kApplication, nullptr, nullptr);
        dialog->show();
    }
    void press(const char* name) { QTest::mouseClick(dialog->findChild<QPushButton*>(name), Qt::LeftButton); }
    void finish(QDialogButtonBox::StandardButton button) {
        dialog->findChild<QDialogButtonBox*>()->button(button)->click();
    }
    QComboBox& combo(const char* name) { return *dialog->findChild<QComboBox*>(name); }
    std::vector<std::string> items(const char* name) {
        std::vector<std::string> texts;
        for (int i = 0; i < combo(name).count(); ++i) {
            texts.push_back(combo(name).itemText(i).toStdString());
        }
        return texts;
    }
    void nameIt(const QString& name) {
        answers.operate("New Configuration Set Name", [name](QDialog& asked) {
            asked.findChild<QLineEdit*>("_pathEditor")->setText(name);
            asked.accept();
        });
    }
    RegistryXML file() const { return RegistryXML((folder / "tarvo.xml").string(), ""); }
    double stored(const std::string& set, const char* key) const {
        RegistryXML registry((folder / "tarvo.xml").string(), set);
        double value = 0.0;
        TarvoConfigSet(&registry).value(key, value);
        return value;
    }

    TemporaryFolder folder;
    ModalAnswers answers;
    std::unique_ptr<TarvoConfigMgt> dialog;
};

} // namespace

TEST_F(Management, ListsWhatMayBeChosen) {
    for (const char* name : {"_selectActive1", "_selectDelete", "_selectClone"}) {
        EXPECT_THAT(items(name), Not(Contains("sample")));
        EXPECT_THAT(items(name), Not(Contains("descending-PELO")));
        EXPECT_THAT(items(name), Contains("upsonde-1s"));
    }
    EXPECT_THAT(items("_selectActive2"), Contains("descending-PELO"));
    EXPECT_THAT(items("_selectActive2"), Not(Contains("sample")));
    EXPECT_EQ(combo("_selectActive1").currentText(), "editsonde");
    EXPECT_EQ(combo("_selectActive2").currentText(), "descending-PELO");
    EXPECT_FALSE(dialog->findChild<QGroupBox*>("_gbxActive2")->isVisible()) << "descents aren't processed";
    EXPECT_THAT(dialog->findChild<QLabel*>("_despActive1")->text().toStdString(),
                HasSubstr("[ editsonde ]:  Intended"));
}

TEST_F(Management, ShowsAllOfItsTextsWithTypeOfAnySize) {
    {
        RegistryXML registry((folder / "tarvo.xml").string(), "");
        TarvoConfigSet set(&registry);
        set.set("descendingPELO", 1.0); // both active sets show
        set.save(false);
    }
    for (const int points : {9, 12, 13}) { // what the screen of the tests has room for
        dialog = std::make_unique<TarvoConfigMgt>(TarvoSettings::kApplication, nullptr, nullptr);
        dialog->setStyleSheet(QString("* {font-size:%1pt;}").arg(points));
        dialog->show();
        for (int i = 0; i < combo("_selectActive1").count(); ++i) {
            combo("_selectActive1").setCurrentIndex(i);
            QCoreApplication::processEvents();
            for (const QLabel* label : dialog->findChildren<QLabel*>()) {
                EXPECT_TRUE(label->isVisible());
                const QSize needed =
                    label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
                EXPECT_GE(label->width(), needed.width()) << points << label->text().toStdString();
                EXPECT_GE(label->height(), needed.height()) << points << label->text().toStdString();
            }
        }
    }
}

TEST_F(Management, OkWritesTheActiveSetAndCancelDoesNot) {
    dialog.reset();
    {
        RegistryXML registry((folder / "tarvo.xml").string(), "");
        registry.setActive1SetName("descending-PELO"); // which isn't listed
        registry.setActive2SetName("gone");
        registry.save(false);
    }
    open();
    EXPECT_EQ(combo("_selectActive1").currentIndex(), -1);
    EXPECT_EQ(combo("_selectActive2").currentIndex(), -1);
    answers.press("Configuration Management", QMessageBox::No);
    press("_restoreActive1");
    EXPECT_THAT(answers.texts(), ElementsAre(HasSubstr("for the configuration 'descending-PELO'?")));
    for (const auto& [button, written] :
         {std::pair(QDialogButtonBox::Cancel, "descending-PELO"), std::pair(QDialogButtonBox::Ok, "upsonde-1s")}) {
        open();
        EXPECT_THAT(dialog->findChild<QLabel*>("_despActive1")->text().toStdString(), HasSubstr("[ descending-PELO ]"));
        QSignalSpy changed(dialog.get(), &TarvoConfigMgt::configChanged);
        combo("_selectActive1").setCurrentText("upsonde-1s");
        EXPECT_THAT(dialog->findChild<QLabel*>("_despActive1")->text().toStdString(), HasSubstr("[ upsonde-1s ]:"));
        finish(button);
        EXPECT_EQ(file().getActive1SetName(), written);
        EXPECT_EQ(file().getActive2SetName(), "gone");
        EXPECT_EQ(changed.size(), button == QDialogButtonBox::Ok ? 1 : 0);
    }
}

TEST_F(Management, ClonesAndDeletes) {
    combo("_selectClone").setCurrentText("upsonde-10s");
    nameIt("mine2ofTwentyLetters");
    press("_clone");
    EXPECT_THAT(answers.texts(), ElementsAre("Are you sure that you want to create a new configuration named "
                                             "'mine2ofTwentyLetters' from 'upsonde-10s'?"));
    EXPECT_THAT(items("_selectActive1"), Contains("mine2ofTwentyLetters"));
    finish(QDialogButtonBox::Ok);
    EXPECT_THAT(file().getSetNames(), Contains("mine2ofTwentyLetters"));
    EXPECT_EQ(stored("mine2ofTwentyLetters", "PresQCWL"), stored("upsonde-10s", "PresQCWL"));

    open();
    answers.forget();
    combo("_selectDelete").setCurrentText("mine2ofTwentyLetters");
    press("_delete");
    EXPECT_THAT(answers.texts(),
                ElementsAre("Are you sure that you want to delete the configuration 'mine2ofTwentyLetters'?"));
    finish(QDialogButtonBox::Ok);
    EXPECT_THAT(file().getSetNames(), Not(Contains("mine2ofTwentyLetters")));

    open();
    answers.forget();
    combo("_selectDelete").setCurrentText("editsonde");
    press("_delete");
    EXPECT_THAT(answers.texts(),
                ElementsAre("You cannot delete the currently active configuration set.\nChange the active "
                            "configuration set before deleting this one!"));
    EXPECT_THAT(items("_selectDelete"), Contains("editsonde"));
}

TEST_F(Management, RefusesNames) {
    const std::vector<std::pair<const char*, const char*>> cases{
        {"", "No name is entered. You must give a name\nfor the newly created configuration set."},
        {"abcdefghijklmnopqrstu",
         "'abcdefghijklmnopqrstu' is an invalid name. The name must begin with a\nletter or number "
         "and the maximum length is 20."},
        {"a b", "'a b' is an invalid name. The name must begin with a\nletter or number and the maximum length is 20."},
        {"editsonde", "'editsonde' is already an existing configuration set.\nPlease choose a unique name."}};
    for (const auto& [name, text] : cases) {
        answers.forget();
        nameIt(name);
        press("_clone");
        ASSERT_THAT(answers.texts(), ElementsAre(text));
        EXPECT_EQ(answers.boxes()[0].title, "ERROR");
    }
    answers.forget();
    answers.operate("New Configuration Set Name", [](QDialog& asked) { asked.reject(); });
    press("_clone");
    EXPECT_THAT(answers.boxes(), IsEmpty());
}

TEST_F(Management, EditsAndRestores) {
    answers.operate("Options", [](QDialog& options) {
        auto* edit = options.findChild<QLineEdit*>("PresQCWL");
        edit->setText("55");
        options.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    QSignalSpy changed(dialog.get(), &TarvoConfigMgt::configChanged);
    press("_editActive1");
    EXPECT_EQ(stored("editsonde", "PresQCWL"), 55.0);
    EXPECT_EQ(changed.size(), 1) << "the file has it, however the dialog is left";
    press("_restoreActive1");
    EXPECT_EQ(changed.size(), 2);
    ASSERT_THAT(answers.texts(),
                ElementsAre("Are you sure that you want to restore the defaults\nfor the configuration "
                            "'editsonde'?"));
    RegistryXML registry((folder / "tarvo.xml").string(), "editsonde");
    TarvoConfigSet set(&registry);
    EXPECT_EQ(set[Id("PresQCWL")]->value(), set[Id("PresQCWL")]->defaultValue());
}
