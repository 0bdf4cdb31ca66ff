// The synoptic window, by clicks.

#include "SynopticWidget.h"
#include "MadeGeography.h"
#include "ModalAnswers.h"
#include "PaintRecorder.h"
#include "QStationModelGraphicsItem.h"
#include "SndMetaData.h"
#include "SyntheticStations.h"
#include "TemporaryFolder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTableView>
#include <QtTest/QtTest>
#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

class Synoptic : public testing::Test {
protected:
    void SetUp() override {
        enter("/data/one.csv", 20.0, -80.0);
        enter("/data/two.csv", 22.0, -85.0);
        enter("/other/three.csv", -999.0, -999.0); // without a position
        open();
    }
    void TearDown() override { delete window; }

    void open() {
        window = new SynopticWidget(geography, soundings.get(), &printer);
        window->resize(1100, 700);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
        QTest::qWait(120);
    }
    void enter(const std::string& path, double lat, double lon) {
        SndMetaData data;
        data.year = 2021;
        data.month = 8;
        data.day = 4;
        data.hour = 6;
        data.min = 5;
        data.platformId = "P1";
        data.comments = "A comment that is longer than forty characters by far\nand a second line";
        if (lat != -999.0) {
            data.launchLat.set(lat);
            data.launchLon.set(lon);
        }
        const int id = soundings->addSounding(path, data, "CSV");
        for (const auto& [field, value] :
             {std::pair(SoundingDB::PRES, 1013.2), std::pair(SoundingDB::TDRY, 27.0), std::pair(SoundingDB::DP, 15.0),
              std::pair(SoundingDB::WSPD, 10.0), std::pair(SoundingDB::WDIR, 90.0)}) {
            soundings->addLevelData(field, value);
        }
        soundings->addLevel(id, 1013.2, LevelType::SurfaceThermo);
        soundings->addLevelData(SoundingDB::ALT, 1520.0);
        soundings->addLevel(id, 850.0, LevelType::Standard);
    }

    template <typename Widget = QPushButton>
    Widget& child(const char* name) {
        return *window->findChild<Widget*>(name);
    }
    QTableView& table() { return child<QTableView>("_soundingView"); }
    std::string text(const char* name) { return child<QLabel>(name).text().toStdString(); }
    std::string buttonText() { return child("_selectAll").text().toStdString(); }
    int rowOf(const std::string& name) {
        for (int row = 0; row < table().model()->rowCount(); ++row) {
            if (table().model()->index(row, 1).data().toString().toStdString() == name) {
                return row;
            }
        }
        return -1;
    }
    void click(const std::string& name, int column) {
        const QModelIndex index = table().model()->index(rowOf(name), column);
        table().scrollTo(index);
        const QRect cell = table().visualRect(index);
        // The box itself stands at the left of its cell.
        const QPoint place = column == 0 ? QPoint(cell.left() + 10, cell.center().y()) : cell.center();
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, place);
    }
    void press(const char* name) { QTest::mouseClick(&child(name), Qt::LeftButton); }
    std::vector<QStationModelGraphicsItem*> stations() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        std::vector<QStationModelGraphicsItem*> found;
        for (QGraphicsItem* item : window->findChild<QMicroMap*>()->scene()->items()) {
            if (auto* station = dynamic_cast<QStationModelGraphicsItem*>(item)) {
                found.push_back(station);
            }
        }
        return found;
    }
    /// What the only station draws.
    Recording drawn() {
        Recording recording;
        PaintRecorder recorder(recording);
        QPainter painter(&recorder);
        stations().at(0)->paint(&painter, nullptr, nullptr);
        return recording;
    }
    void chooseLevel(const char* level) { child<QComboBox>("_levelSelect").setCurrentText(level); }
    std::string path(const char* name) { return (folder / name).string(); }

    TemporaryFolder folder;
    SpatiaLiteDB geography{makeGeography((folder / "geography.sqlite").string())};
    std::unique_ptr<SoundingDB> soundings = SoundingDB::openOrCreate((folder / "soundings.sqlite").string());
    QPrinter printer;
    ModalAnswers answers;
    SynopticWidget* window = nullptr;
};

} // namespace

TEST_F(Synoptic, LevelsOfTheCombo) {
    const std::pair<const char*, int> some[] = {
        {"Surface", 0},   {"1000 mb", 1},   {"925 mb", 2},    {"850 mb", 3},     {"150 mb", 10}, {"100 mb", 11},
        {"20 mb", 15},    {"10 mb", 16},    {"5 mb", 18},     {"2 mb", 20},      {"1 mb", 21},   {"150m Wind", 22},
        {"DLM Wind", 23}, {"MBL Wind", 24}, {"Max Wind", 25}, {"Tropopause", 26}};
    for (const auto& [text, level] : some) {
        EXPECT_EQ(SynopticWidget::stationLevel(text), level) << text;
    }
    EXPECT_EQ(child<QComboBox>("_levelSelect").count(), 27);
    EXPECT_EQ(child<QComboBox>("_levelSelect").currentText(), "Surface");
}

TEST_F(Synoptic, ANameIsPlottedAndACheckIsNot) {
    EXPECT_EQ(text("_soundingCount"), "(0/3)");
    EXPECT_THAT(stations(), IsEmpty());
    click("one.csv", 1);
    EXPECT_EQ(text("_soundingCount"), "(1/3)");
    ASSERT_EQ(stations().size(), 1U);
    EXPECT_EQ(stations()[0]->pos(), QPointF(-80.0, 20.0));
    EXPECT_THAT(stations()[0]->toolTip().toStdString(),
                HasSubstr("one.csv\nA comment that is longer than forty char\nacters by far\nand a second line"));
    for (int column = 1; column <= 4; ++column) {
        EXPECT_TRUE(table().selectionModel()->isSelected(table().model()->index(rowOf("one.csv"), column))) << column;
    }
    click("two.csv", 0);
    EXPECT_EQ(table().model()->index(rowOf("two.csv"), 0).data(Qt::CheckStateRole).toInt(), 2);
    EXPECT_EQ(stations().size(), 1U);
    click("two.csv", 2);
    EXPECT_EQ(stations().size(), 2U);
    click("one.csv", 3);
    EXPECT_EQ(text("_soundingCount"), "(1/3)");
    EXPECT_EQ(stations()[0]->pos(), QPointF(-85.0, 22.0));
}

TEST_F(Synoptic, WholeRowsArePlottedWhereverTheCurrentCellIs) {
    click("two.csv", 0); // the current cell is that of a check box now
    for (const char* plottedAndTakenBack : {"(1/3)", "(0/3)"}) {
        table().selectRow(rowOf("one.csv"));
        EXPECT_EQ(text("_soundingCount"), plottedAndTakenBack);
    }
    EXPECT_THAT(stations(), IsEmpty());
    click("two.csv", 0);
    QTest::keyClick(&table(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(text("_soundingCount"), "(3/3)");
    EXPECT_EQ(buttonText(), "Clear Plot");
    click("one.csv", 0);
    EXPECT_EQ(text("_soundingCount"), "(3/3)");
}

TEST_F(Synoptic, FollowsADatabaseThatOthersChange) {
    click("one.csv", 1);
    click("two.csv", 1);
    soundings->deleteSounding("/data/two.csv");
    window->addNewSounding("/data/one.csv");
    EXPECT_EQ(text("_soundingCount"), "(1/2)");
    EXPECT_EQ(table().model()->rowCount(), 2);
    ASSERT_EQ(stations().size(), 1U);
    EXPECT_EQ(stations()[0]->pos(), QPointF(-80.0, 20.0));

    soundings->clear();
    enter("/data/three.csv", 24.0, -70.0); // which may have the number of the first now
    chooseLevel("850 mb");
    EXPECT_THAT(stations(), IsEmpty());
    enter("/data/one.csv", 21.0, -81.0); // under another number
    window->readAnew();
    EXPECT_EQ(text("_soundingCount"), "(1/2)");
    ASSERT_EQ(stations().size(), 1U);
    EXPECT_EQ(stations()[0]->pos(), QPointF(-81.0, 21.0));

    soundings->clear();
    window->readAnew();
    EXPECT_EQ(text("_soundingCount"), "(0/0)");
    EXPECT_EQ(table().model()->rowCount(), 0);
    EXPECT_THAT(stations(), IsEmpty());
    EXPECT_EQ(buttonText(), "Plot All");
    EXPECT_THAT(answers.boxes(), IsEmpty());
}

TEST_F(Synoptic, PlotAllAndClear) {
    press("_selectAll");
    EXPECT_EQ(buttonText(), "Clear Plot");
    EXPECT_EQ(child("_selectAll").toolTip(), "Clear all soundings\non synoptic map");
    EXPECT_EQ(text("_soundingCount"), "(3/3)");
    EXPECT_EQ(stations().size(), 2U) << "one has no position";
    EXPECT_EQ(child<QLabel>("_soundingCount").toolTip(), "1 of them without a position, and so not on the map");
    press("_selectAll");
    EXPECT_EQ(buttonText(), "Plot All");
    EXPECT_THAT(stations(), IsEmpty());
    EXPECT_EQ(child<QLabel>("_soundingCount").toolTip(), "");
}

TEST_F(Synoptic, AStationIsRemovedOrProcessed) {
    click("one.csv", 1);
    click("two.csv", 1);
    QSignalSpy opened(window, &SynopticWidget::openSounding);
    const auto station = [this](double lon) {
        const auto all = stations();
        return *std::find_if(all.begin(), all.end(), [&](const auto* item) { return item->x() == lon; });
    };
    emit station(-80.0)->process("/data/one.csv");
    EXPECT_TRUE(opened.isEmpty());
    ASSERT_THAT(answers.told(),
                ElementsAre("File Open Error: Tarvo cannot open sounding\n\"/data/one.csv\"\nFile not found!"));
    const std::string real = path("real.csv");
    writeFile(real, "FileFormat,CSV\n");
    emit station(-80.0)->process(QString::fromStdString(real));
    EXPECT_EQ(opened.size(), 1);
    emit station(-85.0)->remove("/data/two.csv");
    ASSERT_EQ(stations().size(), 1U);
    emit station(-80.0)->remove("/data/one.csv");
    EXPECT_THAT(stations(), IsEmpty());
    EXPECT_EQ(buttonText(), "Plot All");
    EXPECT_EQ(text("_soundingCount"), "(0/3)");
}

TEST_F(Synoptic, TheTableProcessesItsRow) {
    const std::string real = path("real.csv");
    writeFile(real, "FileFormat,CSV\n");
    enter(real, 10.0, 10.0);
    window->addNewSounding(QString::fromStdString(real));
    EXPECT_EQ(text("_soundingCount"), "(0/4)");
    QSignalSpy opened(window, &SynopticWidget::openSounding);
    table().setCurrentIndex(table().model()->index(rowOf("real.csv"), 1));
    ASSERT_EQ(table().actions().size(), 1);
    EXPECT_EQ(table().actions()[0]->text(), "Reprocess this sounding with Tarvo");
    table().actions()[0]->trigger();
    ASSERT_EQ(opened.size(), 1);
    EXPECT_EQ(opened[0][0].toString().toStdString(), real);
    window->addNewSounding(QString::fromStdString(real));
    EXPECT_EQ(table().model()->rowCount(), 4) << "known by now";
    for (const char* other : {"/mnt/data/one.csv.1", "/mnt/data/one.csv"}) { // parts of paths, and with parts of them
        enter(other, 30.0, -60.0);
        window->addNewSounding(other);
    }
    EXPECT_EQ(table().model()->rowCount(), 6);
}

TEST_F(Synoptic, AStationTellsWhatItsLevelHas) {
    const int id = soundings->id("/data/one.csv");
    const auto enterLevel = [&](LevelType type, double pres, double alt, double wspd) {
        for (const auto& [field, value] : {std::pair(SoundingDB::PRES, pres), std::pair(SoundingDB::ALT, alt),
                                           std::pair(SoundingDB::WSPD, wspd), std::pair(SoundingDB::WDIR, 0.0)}) {
            soundings->addLevelData(field, value);
        }
        soundings->addLevel(id, pres, type);
    };
    enterLevel(LevelType::DeepLayer, 690.0, 3100.0, 25.75); // 49.955 knots: no pennant yet
    enterLevel(LevelType::MeanBLWind, 960.4, 480.0, 0.0);
    enterLevel(LevelType::Layer150m, 1004.0, 75.0, 25.8); // 50.05
    click("one.csv", 1);
    struct Case {
        const char* level;
        std::vector<std::string> words;
        std::size_t lines; ///< staff, barbs and what a pennant has
    };
    for (const Case& each : {Case{"Surface", {"27.0", "15.0", "132", "0605"}, 3}, Case{"850 mb", {"1520", "0605"}, 0},
                             Case{"DLM Wind", {"690", "0605"}, 6}, Case{"MBL Wind", {"604", "0605"}, 0},
                             Case{"150m Wind", {"075", "0605"}, 4}, Case{"500 mb", {"0605"}, 0}}) {
        chooseLevel(each.level);
        EXPECT_EQ(drawn().words(), each.words) << each.level;
        EXPECT_EQ(drawn().lines.size(), each.lines) << each.level;
        EXPECT_EQ(drawn().ellipses.size(), each.level == std::string("MBL Wind") ? 2U : 1U) << "calm or not";
    }
}

TEST_F(Synoptic, AFeatureBoxRulesWhatIsDrawnNowAndLater) {
    click("one.csv", 1);
    const std::vector<std::string> all{"27.0", "15.0", "132", "0605"};
    for (const auto& [box, word] : {std::pair("_tdry", "27.0"), std::pair("_dp", "15.0"), std::pair("_presht", "132"),
                                    std::pair("_time", "0605"), std::pair("_wind", "")}) {
        std::vector<std::string> left = all;
        left.erase(std::remove(left.begin(), left.end(), word), left.end());
        child<QCheckBox>(box).click();
        EXPECT_EQ(drawn().words(), left) << box;
        EXPECT_EQ(drawn().lines.empty(), box == std::string("_wind"));
        chooseLevel("850 mb");
        chooseLevel("Surface");
        EXPECT_EQ(drawn().words(), left) << box << " of an item that was made later";
        EXPECT_EQ(drawn().lines.empty(), box == std::string("_wind"));
        child<QCheckBox>(box).click();
        EXPECT_EQ(drawn().words(), all) << box;
        EXPECT_EQ(drawn().lines.size(), 3U) << box;
    }
}

TEST_F(Synoptic, MouseModesFollowEachOther) {
    auto& map = *window->findChild<QMicroMap*>();
    const auto chosen = [this] {
        return std::string(child<QRadioButton>("_modePan").isChecked() ? "pan" : "") +
               (child<QRadioButton>("_modeSelect").isChecked() ? "select" : "") +
               (child<QRadioButton>("_modeZoom").isChecked() ? "zoom" : "");
    };
    EXPECT_EQ(chosen(), "zoom");
    QTest::mouseDClick(map.viewport(), Qt::LeftButton, {}, {50, 50});
    EXPECT_EQ(chosen(), "pan");
    EXPECT_EQ(map.dragMode(), QGraphicsView::ScrollHandDrag);
    child<QRadioButton>("_modeSelect").click();
    EXPECT_EQ(map.dragMode(), QGraphicsView::NoDrag);
    EXPECT_EQ(map.viewport()->cursor().shape(), Qt::ArrowCursor);
    child<QRadioButton>("_modeZoom").click();
    EXPECT_EQ(map.viewport()->cursor().shape(), Qt::CrossCursor);
}

TEST_F(Synoptic, DeletesTheCheckedOnes) {
    press("_delete");
    EXPECT_THAT(answers.texts(),
                ElementsAre("No sounding is selected.  \nCheck the checkbox to select the sounding to be "
                            "deleted."));
    press("_selectAll");
    click("one.csv", 0);
    click("three.csv", 0);
    answers.forget();
    answers.press("Delete Sounding", QMessageBox::Cancel);
    press("_delete");
    EXPECT_THAT(answers.texts(),
                ElementsAre("Are you sure you want to delete the 2 selected sounding(s) from database?"));
    EXPECT_EQ(soundings->getSoundings().size(), 3U);
    answers.press("Delete Sounding", QMessageBox::Yes);
    press("_delete");
    ASSERT_EQ(soundings->getSoundings().size(), 1U);
    EXPECT_EQ(soundings->getSoundings()[0].filename, "/data/two.csv");
    EXPECT_EQ(text("_soundingCount"), "(1/1)");
    EXPECT_EQ(stations().size(), 1U);

    soundings->deleteSounding("/data/two.csv"); // by somebody else
    click("two.csv", 0);
    answers.forget();
    press("_delete");
    ASSERT_EQ(answers.boxes().size(), 2U);
    EXPECT_EQ(answers.boxes()[1].title, "Sounding Delete Error");
    EXPECT_EQ(answers.boxes()[1].text, "Cannot delete sounding\n\"/data/two.csv\"\nSounding not found in database!");
}

TEST_F(Synoptic, DeletesTheCopiesOfASounding) {
    enter("/copy/one.csv", 20.0, -80.0);
    window->readAnew();
    for (int row = 0; row < table().model()->rowCount(); ++row) {
        if (table().model()->index(row, 1).data() == "one.csv") {
            table().model()->setData(table().model()->index(row, 0), Qt::Checked, Qt::CheckStateRole);
        }
    }
    answers.press("Delete Sounding", QMessageBox::Yes);
    press("_delete");
    EXPECT_THAT(answers.texts(),
                ElementsAre("Are you sure you want to delete the 2 selected sounding(s) from database?"));
    EXPECT_EQ(text("_soundingCount"), "(0/2)");
    EXPECT_EQ(rowOf("one.csv"), -1);
    EXPECT_EQ(soundings->id("/data/one.csv") + soundings->id("/copy/one.csv"), -2);
}

TEST_F(Synoptic, GoesOverToAnotherDatabase) {
    press("_selectAll");
    QSignalSpy asked(window, qOverload<QString>(&SynopticWidget::changeSoundingDB));
    const QString other = QString::fromStdString(path("other.sqlite"));
    answers.operate("Tarvo - Browse for Sounding Database", [&](QDialog& dialog) {
        auto* edit = dialog.findChild<QLineEdit*>("_pathEditor");
        EXPECT_EQ(edit->text().toStdString(), path("soundings.sqlite"));
        edit->setText(other);
        dialog.accept();
    });
    press("_changeDB");
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked[0][0].toString(), other);
    auto second = SoundingDB::openOrCreate(other.toStdString());
    window->setSoundingDB(second.get());
    soundings.swap(second);
    window->setMapTitle("A title");
    EXPECT_EQ(text("_soundingCount"), "(0/0)");
    EXPECT_EQ(buttonText(), "Plot All");
    EXPECT_THAT(stations(), IsEmpty());
    press("_selectAll");
    EXPECT_EQ(text("_soundingCount"), "(0/0)");
}

TEST_F(Synoptic, SavesTheLevelsThatHaveData) {
    press("_selectAll");
    const auto save = [this](const char* title, const std::string& name) {
        answers.operate(title, [name](QDialog& dialog) {
            // A file that is selected may give way to the name that was suggested, once the folder is read.
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(name));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    };
    save("Tarvo - Save Synoptic Map", path("now"));
    window->save();
    EXPECT_TRUE(fs::exists(path("now.png")));
    EXPECT_FALSE(QImage(QString::fromStdString(path("now.png"))).isNull());
    writeFile(path("kept.png"), "precious");
    answers.press("Tarvo - Save Synoptic Map", QMessageBox::No);
    save("Tarvo - Save Synoptic Map", path("kept"));
    window->save();
    EXPECT_EQ(readFile(path("kept.png")), "precious");

    fs::create_directories(path("all"));
    save("Tarvo - Save Synoptic Maps", path("all/map_LevelName"));
    window->saveAll();
    std::vector<std::string> made;
    for (const auto& entry : fs::directory_iterator(path("all"))) {
        made.push_back(entry.path().filename().string());
    }
    EXPECT_THAT(made, UnorderedElementsAre("map_850mb.png", "map_925mb.png", "map_1000mb.png", "map_Surface.png",
                                           "map_150mWind.png", "map_DLMWind.png", "map_MBLWind.png", "map_MaxWind.png",
                                           "map_Tropopause.png"))
        << "from the first one with data on";
    EXPECT_EQ(child<QComboBox>("_levelSelect").currentText(), "Surface");

    fs::create_directories(path("cancelled"));
    save("Tarvo - Save Synoptic Maps", path("cancelled/map_LevelName"));
    answers.operate("Saving Levels...", [](QDialog& dialog) { dynamic_cast<QProgressDialog&>(dialog).cancel(); });
    window->saveAll();
    EXPECT_LT(std::distance(fs::directory_iterator(path("cancelled")), {}), 9);
}

TEST_F(Synoptic, AMapThatCantBeGrabbedIsLogged) {
    static QStringList logged;
    logged.clear();
    press("_selectAll");
    child<QFrame>("_mapFrame").setFixedSize(0, 0);
    for (const char* title : {"Tarvo - Save Synoptic Map", "Tarvo - Save Synoptic Maps"}) {
        answers.operate(title, [this](QDialog& dialog) {
            dynamic_cast<QFileDialog&>(dialog).selectFile(QString::fromStdString(path("map_LevelName.png")));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }
    const auto before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) { logged << message; });
    window->save();
    window->saveAll();
    qInstallMessageHandler(before);
    EXPECT_EQ(logged.filter("Failed"), (QStringList{"Failed to capture the synoptic map for saving",
                                                    "Failed to capture the synoptic map for printing"}));
    EXPECT_EQ(answers.texts(), std::vector<std::string>{"Tarvo can't save the file."});
}

TEST(SynopticMany, AllAtOnce) {
    const TemporaryFolder folder;
    SpatiaLiteDB geography(makeGeography((folder / "geography.sqlite").string()));
    auto soundings = SoundingDB::openOrCreate((folder / "many.sqlite").string());
    SyntheticStations::enter(*soundings, 20, 25);
    QPrinter printer;
    const auto window = std::make_unique<SynopticWidget>(geography, soundings.get(), &printer);
    window->findChild<QPushButton*>("_selectAll")->click();
    EXPECT_EQ(window->findChild<QLabel*>("_soundingCount")->text(), "(500/500)");
}
