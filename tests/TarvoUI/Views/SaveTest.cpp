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

namespace {

const char* const kRawDialog = "Tarvo - Save Raw";
const char* const kQcDialog = "Tarvo - Save QC";
const char* const kCsv = "Comma Separated (*.csv)";

template <typename View>
class SaveTab : public OpenSounding {
public:
    explicit SaveTab(const std::string& sounding = example(kFaulty)) : OpenSounding(sounding) {
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

/// A filter of a dialog, the file that becomes of "data", and its beginning.
using Format = std::tuple<const char*, const char*, const char*>;

/// The files of a tab that saves in these formats.
template <typename View>
void expectSaved(const char* dialog, const std::vector<Format>& formats) {
    SaveTab<View> tab;
    for (const auto& [filter, file, start] : formats) {
        tab.saveAs(dialog, filter, "data");
        EXPECT_THAT(readFile(tab.folder / file), StartsWith(start)) << filter;
    }
    tab.saveAs(dialog, kCsv, "OTHER.CSV");
    EXPECT_THAT(readFile(tab.folder / "OTHER.CSV"), StartsWith("FileFormat,CSV"));
    EXPECT_EQ(tab.folder.size(), static_cast<int>(formats.size()) + 1) << "and nothing beside them";
    EXPECT_THAT(tab.answers.texts(), IsEmpty());
}

} // namespace

TEST(Save, OffersTheFormatsAndANameInTheFolderOfTheTab) {
    {
        SaveTab<RawView> tab;
        tab.config.set("RawSaveDir", tab.folder.path().string());
        tab.saveAs(kRawDialog, kCsv, "");
        EXPECT_EQ(tab.offered.filters, "TROVE (*.trv)|netCDF (*.nc)|Comma Separated (*.csv)|KIVU ZOR (*.zor)");
        EXPECT_EQ(tab.offered.selected, "netCDF (*.nc)");
        EXPECT_EQ(tab.offered.name, "D20210914_043120RAW");
        EXPECT_EQ(tab.offered.folder, tab.folder.path().string());
    }
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

TEST(Save, EveryFormatOfTheTabsByItsExtension) {
    std::vector<Format> formats{{"TROVE (*.trv)", "data.trv", "Data Type:"},
                                {"netCDF (*.nc)", "data.nc", "CDF\1"},
                                {kCsv, "data.csv", "FileFormat,CSV"},
                                {"KIVU ZOR (*.zor)", "data.zor", "Data Type/Direction:"}};
    expectSaved<RawView>(kRawDialog, formats);
    formats.emplace_back("NOAA FRD (*.frd)", "data.frd", " ===");
    expectSaved<QCView>(kQcDialog, formats);
}

TEST(Save, AFileIsOnlyReplacedByConsentAndAFailureIsTold) {
    SaveTab<RawView> tab;
    writeFile(tab.folder / "data.csv", "precious");
    for (const auto& [answer, replaced] : {std::pair(QMessageBox::No, false), std::pair(QMessageBox::Yes, true)}) {
        tab.answers.press(kRawDialog, answer);
        tab.saveAs(kRawDialog, kCsv, "data");
        EXPECT_EQ(readFile(tab.folder / "data.csv") == "precious", !replaced);
        ASSERT_EQ(tab.answers.boxes().size(), 1U);
        EXPECT_EQ(tab.answers.boxes()[0].icon, QMessageBox::Question);
        tab.answers.forget();
    }
    EXPECT_EQ(tab.text("RawSaveDir"), tab.folder.path().string());
    tab.saveAs(kRawDialog, kCsv, "no/such/place");
    tab.saveAs(kRawDialog, "netCDF (*.nc)", "no/such/place");
    const char* const failed = "File Save Error: Tarvo can't save the file.";
    ASSERT_THAT(tab.answers.told(), ElementsAre(failed, failed));
    EXPECT_EQ(tab.answers.boxes()[1].icon, QMessageBox::Critical);
    EXPECT_EQ(tab.folder.size(), 1) << "no trace of what failed";
}

TEST(AutoSave, WritesEachFormatThatIsOnAndTellsOfEachFailure) {
    SaveTab<QCView> tab;
    tab.config.set("QCAutoSaveDir", tab.folder.path().string());
    QDir().mkpath(tab.path("D20210914_043120QC.zor/inside")); // where the file should stand
    for (const double on : {0.0, 1.0}) {
        for (const char* format : {"Zor", "Frd", "Trv", "Nc", "Csv"}) {
            tab.config.set(std::string("QCAutoSaveFmt") + format, on);
        }
        tab.view->autoSave();
        EXPECT_EQ(tab.folder.size(), on == 0.0 ? 1 : 5);
    }
    ASSERT_THAT(tab.answers.told(), ElementsAre("File Save Error: Tarvo can't save the file to format .zor"));
    EXPECT_EQ(tab.answers.boxes().front().icon, QMessageBox::Warning);
    for (const auto& [extension, start] :
         {std::pair("frd", " ==="), {"trv", "Data Type:"}, {"nc", "CDF\1"}, {"csv", "FileFormat,CSV"}}) {
        EXPECT_THAT(readFile(tab.folder / (std::string("D20210914_043120QC.") + extension)), StartsWith(start));
    }
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
    EXPECT_THAT(readFile(tab.folder / "D20210914_043120QC.bfr"), StartsWith("IUDA01 KWBC"));
    EXPECT_EQ(tab.answers.texts().size(), 1U);
}

TEST(AutoSave, AFolderThatIsGoneIsReplacedByTheHomeOnce) {
    SaveTab<QCView> tab;
    tab.config.set("QCAutoSaveDir", "/no/such/folder");
    tab.config.set("QCAutoSaveFmtCsv", 1.0);
    tab.view->autoSave();
    tab.view->autoSave();
    const std::string home = QDir::homePath().toStdString() + "/";
    ASSERT_THAT(tab.answers.told(),
                ElementsAre("Invalid Autosave Directory: QC Autosave - QCAutoSaveDir \"/no/such/folder/\" no longer "
                            "exists. Tarvo will use the home directory \"" +
                            home + "\"."));
    EXPECT_EQ(tab.answers.boxes()[0].icon, QMessageBox::Information);
    EXPECT_EQ(tab.text("QCAutoSaveDir"), home);
    EXPECT_TRUE(std::filesystem::exists(home + "D20210914_043120QC.csv"));
}

TEST(AutoSave, NamesKeepTheirBlanks) {
    const TemporaryFolder folder;
    std::filesystem::copy(OpenSounding::example("summer_up_20220705.csv"), folder / "Flight 1.csv");
    SaveTab<QCView> tab((folder / "Flight 1.csv").string());
    tab.config.set("QCAutoSaveDir", folder.path().string());
    tab.config.set("QCAutoSaveFmtCsv", 1.0);
    tab.view->autoSave();
    EXPECT_TRUE(std::filesystem::exists(folder / "Flight 1QC.csv"));
}
