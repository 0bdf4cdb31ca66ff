#include "SkewTView.h"

#include "Levels.h"
#include "OpenSounding.h"
#include "QtHands.h"
#include "TemporaryFolder.h"
#include "TextEdits.h"

#include <QDir>
#include <QImage>
#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class SkewTTab : public testing::Test {
protected:
    void SetUp() override { open(1); }
    void open(int doQC) {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        sounding.config.set("DoQC", doQC);
        sounding.config.set("PlotPixelsX", 640.0);
        sounding.config.set("PlotPixelsY", 480.0);
        view = std::make_unique<SkewTView>(&sounding.doc, &sounding.printer, nullptr);
        view->resize(900, 700);
        view->update();
        view->show();
        QCoreApplication::processEvents();
    }
    void click(const char* name) {
        auto* button = view->findChild<QAbstractButton*>(name);
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    }
    bool isChecked(const char* name) const { return view->findChild<QAbstractButton*>(name)->isChecked(); }
    bool isEnabled(const char* name) const { return view->findChild<QAbstractButton*>(name)->isEnabled(); }
    void drag(int pixels) {
        const QPoint from(300, 300);
        const QPoint to = from + QPoint(pixels, pixels);
        QTest::mousePress(view->diagram(), Qt::LeftButton, {}, from);
        QTest::mouseRelease(view->diagram(), Qt::LeftButton, {}, to);
    }
    QImage picture() { return view->diagram()->grab().toImage(); }
    void saveAs(const QString& filter, const QString& path) {
        answerSave(answers, "Tarvo - Save Skew-T", path, filter, &offered);
        view->save();
    }
    QString path(const char* name) const { return QString::fromStdString((folder / name).string()); }
    /// How many temperatures the diagram holds, by the document that the tab saves.
    int temperatures() {
        saveAs("SVG Image (*.svg)", path("count.svg"));
        const std::string svg = readFile(folder / "count.svg");
        fs::remove(folder / "count.svg");
        return countOf(svg, "fill=\"red\"/>");
    }
    int levelsWithTemperature() {
        int count = 0;
        for (const Level& level : sounding.editor().levels()->levels()) {
            double p = 0.0;
            double t = 0.0;
            count += level.getFieldData(LFpres, p) && level.getFieldData(LFtdry, t) && p >= 100.0 && p <= 1050.0;
        }
        return count;
    }

    OpenedSounding sounding{"D20210914_043120.2"};
    ModalAnswers answers;
    TemporaryFolder folder;
    std::unique_ptr<SkewTView> view;
    SaveOffer offered;
};

} // namespace

TEST_F(SkewTTab, ShowsTheDataChosen) {
    EXPECT_TRUE(isChecked("_qcData"));
    const int qc = temperatures();
    click("_rawData");
    const int raw = temperatures();
    EXPECT_GT(raw, qc) << "what the checks took out";
    click("_levelsData");
    const int levels = levelsWithTemperature();
    EXPECT_EQ(temperatures(), levels);
    EXPECT_LT(levels, qc / 4);
    sounding.config.set("DoLevels", 0.0);
    sounding.doc.process();
    view->update();
    EXPECT_EQ(temperatures(), levels) << "as it was, without levels";
    click("_qcData");
    EXPECT_EQ(temperatures(), qc);
}

TEST_F(SkewTTab, WithoutQCThereIsRawOnly) {
    const int qc = temperatures();
    open(0);
    EXPECT_TRUE(isChecked("_rawData") && isEnabled("_rawData"));
    EXPECT_FALSE(isEnabled("_qcData") || isEnabled("_levelsData"));
    click("_qcData");
    EXPECT_GT(temperatures(), qc);
}

TEST_F(SkewTTab, ZoomsAndSwitchesWithoutNewDataAndFollowsANewRun) {
    const QImage whole = picture();
    drag(20);
    EXPECT_EQ(picture(), whole);
    drag(21);
    const QImage zoomed = picture();
    EXPECT_NE(zoomed, whole);
    for (const char* box : {"_markPoints", "_drawLines"}) {
        click(box);
        click(box);
        EXPECT_EQ(picture(), zoomed) << box;
    }
    view->update();
    EXPECT_EQ(picture(), zoomed) << "nothing has changed";
    click("_unzoom");
    EXPECT_EQ(picture(), whole);
    click("_markPoints");
    EXPECT_NE(picture(), whole);
    click("_markPoints");
    sounding.config.set("SkewTtmin", -60.0);
    view->update();
    const QImage colder = picture();
    EXPECT_NE(colder, whole);
    sounding.config.set("TdryOffset", 5.0);
    sounding.doc.process();
    view->update();
    EXPECT_NE(picture(), colder);
}

TEST_F(SkewTTab, SavesTheWholeDiagramInTheSizeAskedFor) {
    saveAs("PNG Image (*.png)", path("whole"));
    drag(200);
    saveAs("PNG Image (*.png)", path("ZOOMED.PNG"));
    EXPECT_EQ(QImage(path("whole.png"), "PNG").size(), QSize(640, 480));
    EXPECT_EQ(QImage(path("whole.png")), QImage(path("ZOOMED.PNG")));
    saveAs("JPEG Image (*.jpeg)", path("plot"));
    EXPECT_EQ(QImage(path("plot.jpeg"), "JPEG").size(), QSize(640, 480));
    saveAs("SVG Image (*.svg)", path("plot"));
    EXPECT_THAT(readFile(folder / "plot.svg"), HasSubstr(" width=\"640\" height=\"480\">\n"));
    EXPECT_EQ(folder.size(), 4) << "and nothing beside them";
    EXPECT_THAT(answers.texts(), IsEmpty());
    EXPECT_EQ(offered.filters, "JPEG Image (*.jpeg)|PNG Image (*.png)|SVG Image (*.svg)");
    EXPECT_EQ(offered.selected + " " + offered.name, "PNG Image (*.png) D20210914_043120skewt");
    EXPECT_EQ(sounding.text("SkewTPlotSaveDir"), folder.path().string());
}

TEST_F(SkewTTab, TellsOfASaveThatFails) {
    view->save(); // the dialog is given up
    saveAs("PNG Image (*.png)", path("no/such/place.png"));
    saveAs("SVG Image (*.svg)", path("no/such/place.svg"));
    EXPECT_THAT(answers.told(),
                ElementsAre("File Name Error: Empty file name", "File Save Error: Tarvo can't save the file.",
                            "File Save Error: Tarvo can't save the file."));
    EXPECT_EQ(answers.boxes()[0].icon, QMessageBox::Warning);
    EXPECT_EQ(folder.size(), 0);
}

TEST_F(SkewTTab, SavesByItself) {
    sounding.config.set("QCAutoSaveDir", folder.path().string());
    const std::string base = "D20210914_043120skewt";
    const char* const items[] = {"SkewtAutoSaveFmtJpg", "SkewtAutoSaveFmtPng", "SkewtAutoSaveFmtSvg"};
    for (const char* item : items) {
        sounding.config.set(item, 0.0);
    }
    view->autoSave();
    EXPECT_EQ(folder.size(), 0);
    for (const char* item : items) {
        sounding.config.set(item, 1.0);
    }
    QDir().mkpath(path((base + ".svg/inside").c_str())); // stands where the file should
    view->autoSave();
    EXPECT_EQ(QImage(path((base + ".jpeg").c_str()), "JPEG").size(), QSize(640, 480));
    EXPECT_EQ(QImage(path((base + ".png").c_str()), "PNG").size(), QSize(640, 480));
    EXPECT_EQ(folder.size(), 3);
    EXPECT_THAT(answers.texts(), ElementsAre("Tarvo can't save the file to format .svg"));
}

TEST_F(SkewTTab, PrintsThroughItsDialogs) {
    sounding.printer.setOutputFormat(QPrinter::PdfFormat);
    sounding.printer.setOutputFileName(path("saved_before.pdf"));
    bool wideEnough = false;
    QString file = "?";
    answers.operate("Tarvo - Print Preview Skew-T", [&](QDialog& dialog) {
        wideEnough = dialog.minimumWidth() == 750 && dialog.minimumHeight() == 600;
        file = sounding.printer.outputFileName();
        dialog.reject();
    });
    view->printPreview();
    EXPECT_TRUE(wideEnough);
    EXPECT_EQ(file.toStdString(), "") << "the file of before isn't written once more";
    answers.operate("Tarvo - Print Skew-T", [&](QDialog& dialog) {
        dialog.findChild<QLineEdit*>("filename")->setText(path("print.pdf")); // without printers a file is what is left
        dialog.accept();
    });
    sounding.printer.setPageOrientation(QPageLayout::Portrait); // as another window leaves it
    view->print();
    EXPECT_THAT(readFile(folder / "print.pdf"), testing::StartsWith("%PDF-"));
    EXPECT_GT(fs::file_size(folder / "print.pdf"), 5000U);
    EXPECT_EQ(folder.size(), 1);
    EXPECT_EQ(sounding.printer.pageLayout().orientation(), QPageLayout::Landscape);
}
