// Saving from the Raw and the QC tab, and saving by itself after a run.

#include "OpenSounding.h"
#include "QCView.h"
#include "QtHands.h"
#include "RawView.h"
#include "TarvoSettings.h"

#include <QDir>
#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;
using testing::UnorderedElementsAre;

namespace {

template <typename View>
class SaveTab : public OpenSounding {
public:
    SaveTab() : OpenSounding(example(kFaulty)) {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        doc.process();
        view = std::make_unique<View>(&doc, &printer, nullptr);
        view->show();
        view->update();
    }

    /// Saves with the dialog of \p title answered by a filter and a name; without a name it is given up.
    void saveAs(const char* title, const QString& filter, const QString& name) {
        answerSave(answers, title, name.isEmpty() ? "" : path(name), filter, &offered);
        view->save();
    }
    QString path(const QString& name) const { return QString::fromStdString((folder / name.toStdString()).string()); }

    TemporaryFolder folder;
    ModalAnswers answers;
    std::unique_ptr<View> view;
    SaveOffer offered;
};

/// What the files of a folder hold.
std::vector<std::string> contentsOf(const TemporaryFolder& folder) {
    std::vector<std::string> contents;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        if (entry.is_regular_file()) {
            contents.push_back(readFile(entry.path()));
        }
    }
    return contents;
}

template <typename View>
void expectSaved(const char* dialog, const char* filter, const char* start) {
    SaveTab<View> tab;
    tab.saveAs(dialog, filter, "data");
    EXPECT_THAT(contentsOf(tab.folder), ElementsAre(StartsWith(start))) << filter;
    EXPECT_THAT(tab.answers.texts(), IsEmpty());
}

const char* const kRawDialog = "Tarvo - Save Raw";
const char* const kQcDialog = "Tarvo - Save QC";
const char* const kCsv = "Comma Separated (*.csv)";

} // namespace

TEST(Save, RawOffersItsFormatsAndName) {
    SaveTab<RawView> tab;
    tab.config.set("RawSaveDir", tab.folder.path().string());
    tab.saveAs(kRawDialog, kCsv, "");
    EXPECT_EQ(tab.offered.filters, "TROVE (*.trv)|netCDF (*.nc)|Comma Separated (*.csv)|KIVU ZOR (*.zor)");
    EXPECT_EQ(tab.offered.selected, "netCDF (*.nc)");
    EXPECT_EQ(tab.offered.name, "D20210914_043120RAW");
    EXPECT_EQ(tab.offered.folder, tab.folder.path().string());
    EXPECT_EQ(tab.folder.size(), 0);
}

TEST(Save, QcOffersItsFormatsAndName) {
    SaveTab<QCView> tab;
    tab.config.set("QCSaveDir", "/no/such/folder");
    tab.saveAs(kQcDialog, kCsv, "");
    EXPECT_EQ(tab.offered.filters, "TROVE (*.trv)|netCDF (*.nc)|NOAA FRD (*.frd)|Comma Separated "
                                   "(*.csv)|KIVU ZOR (*.zor)|WMO BUFR (*.bfr)");
    EXPECT_EQ(tab.offered.selected, "netCDF (*.nc)");
    EXPECT_EQ(tab.offered.name, "D20210914_043120QC");
    EXPECT_EQ(tab.offered.folder, QDir::homePath().toStdString());
    tab.config.set("FixedSrcEnabled", 1.0);
    tab.config.set("FixedSrcDir", tab.folder.path().string());
    tab.saveAs(kQcDialog, kCsv, "");
    EXPECT_EQ(tab.offered.folder, tab.folder.path().string());
    EXPECT_EQ(tab.text("QCSaveDir"), "/no/such/folder"); // nothing was saved
}

TEST(Save, TheExtensionOfTheFilterIsAdded) {
    for (const char* name : {"data.csv", "data", "DATA.CSV"}) {
        SaveTab<QCView> tab;
        tab.saveAs(kQcDialog, kCsv, name);
        const std::string expected = name == std::string("data") ? "data.csv" : name;
        EXPECT_THAT(readFile(tab.folder / expected), testing::HasSubstr("FileFormat,CSV")) << name;
        EXPECT_EQ(tab.folder.size(), 1);
        EXPECT_THAT(tab.answers.texts(), IsEmpty());
        EXPECT_EQ(tab.text("QCSaveDir"), tab.folder.path().string());
    }
}

TEST(Save, EveryFormatOfTheTabs) {
    for (const auto& [filter, start] : {std::pair("TROVE (*.trv)", "Data Type:"),
                                        {"netCDF (*.nc)", "CDF\1"},
                                        {kCsv, "FileFormat,CSV"},
                                        {"KIVU ZOR (*.zor)", "Data Type/Direction:"}}) {
        expectSaved<RawView>(kRawDialog, filter, start);
        expectSaved<QCView>(kQcDialog, filter, start);
    }
    expectSaved<QCView>(kQcDialog, "NOAA FRD (*.frd)", " ===");
}

TEST(Save, AFileIsOnlyReplacedByConsent) {
    for (const auto& [answer, replaced] : {std::pair(QMessageBox::No, false), std::pair(QMessageBox::Yes, true)}) {
        SaveTab<RawView> tab;
        writeFile(tab.folder / "data.csv", "precious");
        tab.answers.press(kRawDialog, answer);
        tab.saveAs(kRawDialog, kCsv, "data");
        EXPECT_EQ(readFile(tab.folder / "data.csv") == "precious", !replaced);
        ASSERT_EQ(tab.answers.boxes().size(), 1U);
        EXPECT_EQ(tab.answers.boxes().front().icon, QMessageBox::Question);
    }
}

TEST(Save, WhatCantBeWrittenIsTold) {
    SaveTab<RawView> tab;
    QDir().mkpath(tab.path("folder.csv/inside"));
    tab.saveAs(kRawDialog, kCsv, "no/such/place.csv");
    tab.saveAs(kRawDialog, "netCDF (*.nc)", "no/such/place.nc");
    EXPECT_THAT(tab.answers.texts(), ElementsAre("Tarvo can't save the file.", "Tarvo can't save the file."));
    EXPECT_EQ(tab.answers.boxes().back().title, "File Save Error");
    EXPECT_EQ(tab.answers.boxes().back().icon, QMessageBox::Critical);
    EXPECT_EQ(tab.folder.size(), 1); // no trace of what failed
}

TEST(AutoSave, WritesEachFormatThatIsOnAndTellsOfEachFailure) {
    SaveTab<QCView> tab;
    tab.config.set("QCAutoSaveDir", tab.folder.path().string());
    for (const char* format : {"Zor", "Frd", "Trv", "Nc", "Csv", "Bufr"}) {
        tab.config.set(std::string("QCAutoSaveFmt") + format, 0.0);
    }
    tab.view->autoSave();
    EXPECT_EQ(tab.folder.size(), 0);
    EXPECT_THAT(tab.answers.texts(), IsEmpty());

    // A folder stands where the file should.
    QDir().mkpath(tab.path("D20210914_043120QC.zor/inside"));
    for (const char* format : {"Zor", "Frd", "Trv", "Nc", "Csv"}) {
        tab.config.set(std::string("QCAutoSaveFmt") + format, 1.0);
    }
    tab.view->autoSave();
    EXPECT_THAT(tab.answers.told(), ElementsAre("File Save Error: Tarvo can't save the file to format .zor"));
    EXPECT_EQ(tab.answers.boxes().front().icon, QMessageBox::Warning);
    EXPECT_THAT(contentsOf(tab.folder), UnorderedElementsAre(StartsWith(" ==="), StartsWith("Data Type:"),
                                                             StartsWith("CDF\1"), StartsWith("FileFormat,CSV")));
}

TEST(AutoSave, BufrTakesItsTablesFromTheFolderOfTheConfiguration) {
    SaveTab<QCView> tab;
    tab.config.set("QCAutoSaveDir", tab.folder.path().string());
    tab.config.set("QCAutoSaveFmtBufr", 1.0);
    TarvoSettings().setValue(TarvoSettings::kXmlDir, tab.path("no such folder/"));
    tab.view->autoSave();
    EXPECT_THAT(tab.answers.texts(), ElementsAre("Tarvo can't save the file to format .bfr"));
    EXPECT_EQ(tab.folder.size(), 0) << "no trace of what failed";
    TarvoSettings().setValue(TarvoSettings::kXmlDir, TARVO_SOURCE_DIR "/resources/bufr/");
    tab.view->autoSave();
    EXPECT_THAT(readFile(tab.folder / "D20210914_043120QC.bfr"), testing::StartsWith("IUDA01 KWBC"));
    EXPECT_EQ(tab.answers.texts().size(), 1U);
}

TEST(AutoSave, AFolderThatIsGoneIsReplacedByTheHomeOnce) {
    SaveTab<QCView> tab;
    tab.config.set("QCAutoSaveDir", "/no/such/folder");
    tab.config.set("QCAutoSaveFmtCsv", 1.0);
    tab.view->autoSave();
    tab.view->autoSave();
    const std::string home = QDir::homePath().toStdString() + "/";
    std::vector<std::string> told;
    for (const ModalAnswers::Box& box : tab.answers.boxes()) {
        if (box.title == "Invalid Autosave Directory") {
            told.push_back(box.text);
            EXPECT_EQ(box.icon, QMessageBox::Information);
        }
    }
    EXPECT_THAT(told,
                ElementsAre("QC Autosave - QCAutoSaveDir \"/no/such/folder/\" no longer exists. Tarvo will use the "
                            "home directory \"" +
                            home + "\"."));
    EXPECT_EQ(tab.text("QCAutoSaveDir"), home);
    EXPECT_TRUE(QFile::exists(QString::fromStdString(home) + "D20210914_043120QC.csv"));
}

TEST(AutoSave, NamesWithBlanksAreKeptApart) {
    const TemporaryFolder folder;
    ModalAnswers answers;
    for (const char* name : {"Flight 1.csv", "Flight 2.csv"}) {
        writeFile(folder / name, readFile(OpenSounding::example("summer_up_20220705.csv")));
        OpenSounding sounding((folder / name).string());
        sounding.config.set("QCAutoSaveDir", folder.path().string());
        sounding.config.set("QCAutoSaveFmtCsv", 1.0);
        sounding.doc.process();
        QCView view(&sounding.doc, &sounding.printer, nullptr);
        view.update();
        view.autoSave();
    }
    EXPECT_TRUE(std::filesystem::exists(folder / "Flight 1QC.csv"));
    EXPECT_TRUE(std::filesystem::exists(folder / "Flight 2QC.csv"));
    EXPECT_EQ(folder.size(), 4);
    EXPECT_THAT(answers.texts(), IsEmpty());
}
