#include "XYgraphView.h"

#include "Pictures.h"
#include "QtHands.h"
#include "RawView.h"
#include "TarvoMainWindow.h"
#include "TarvoSettings.h"
#include "TarvoViewController.h"
#include "TemporaryFolder.h"

#include <QMenu>
#include <QPainter>
#include <QRegularExpression>
#include <QtTest/QtTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_scale_map.h>
#include <qwt_symbol.h>

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class XYgraph : public testing::Test {
protected:
    void open(const char* example, int doQC = 1) {
        window = std::make_unique<TarvoMainWindow>(); // the first one makes the files of the user
        RegistryXML registry(TarvoSettings::configFile().toStdString(), "");
        TarvoConfigSet set(&registry);
        set.set("DoQC", doQC);
        set.set("AutoFile", 0.0);
        set.save(false);
        window = std::make_unique<TarvoMainWindow>();
        window->resize(1280, 800);
        window->show();
        window->processFile(QString(TARVO_SOURCE_DIR "/examples/data/") + example);
        TabWidget* tabs = window->activeView()->tabs();
        for (int i = 0; i < tabs->count(); ++i) {
            if (tabs->tabText(i) == "&XY Graph") {
                tabs->setCurrentIndex(i);
            }
        }
        view = qobject_cast<XYgraphView*>(tabs->currentWidget());
        ASSERT_NE(view, nullptr);
        plot = view->findChild<QwtPlot*>();
    }
    void click(const char* name) {
        auto* button = view->findChild<QAbstractButton*>(name);
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    }
    void choose(const char* button, const char* choice) {
        for (QAction* action : view->findChild<ChoicesButton*>(button)->menu()->actions()) {
            if (action->text() == choice) {
                action->trigger();
            }
        }
    }
    std::vector<std::string> chosen(const char* button) const {
        std::vector<std::string> names;
        for (const auto& choice : view->findChild<ChoicesButton*>(button)->status()) {
            if (choice.checked) {
                names.push_back(choice.name.toStdString());
            }
        }
        return names;
    }
    bool isEnabled(const char* name) const { return view->findChild<QAbstractButton*>(name)->isEnabled(); }
    bool isChecked(const char* name) const { return view->findChild<QAbstractButton*>(name)->isChecked(); }
    std::vector<std::string> curves() const {
        std::vector<std::string> titles;
        for (const QwtPlotItem* item : plot->itemList(QwtPlotItem::Rtti_PlotCurve)) {
            titles.push_back(item->title().text().toStdString());
        }
        return titles;
    }
    /// What the canvas shows, as large as told, whatever room the words around it leave it.
    QImage canvas(const QSize& size) const {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::white);
        QwtScaleMap maps[QwtPlot::axisCnt];
        for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
            maps[axis] = plot->canvasMap(axis);
            const bool vertical = axis == QwtPlot::yLeft || axis == QwtPlot::yRight;
            maps[axis].setPaintInterval(vertical ? size.height() : 0, vertical ? 0 : size.width());
        }
        QPainter painter(&image);
        plot->drawItems(&painter, image.rect(), maps);
        return image;
    }
    /// All six types, two columns of three.
    QImage sheet() {
        constexpr QSize kTile(240, 180);
        QImage image(2 * kTile.width(), 3 * kTile.height(), QImage::Format_RGB32);
        QPainter painter(&image);
        int tile = 0;
        for (const char* type : {"_tdryRH", "_spdDir", "_latLon", "_satsDz", "_presAlt", "_RHs"}) {
            click(type);
            painter.drawImage(QPoint(tile % 2 * kTile.width(), tile / 2 * kTile.height()), canvas(kTile));
            ++tile;
        }
        return image;
    }
    void saveAs(const QString& path, const char* filter) {
        answerSave(answers, "Tarvo - Save XY Plot", path, filter);
        view->save();
    }

    ModalAnswers answers;
    TemporaryFolder folder;
    std::unique_ptr<TarvoMainWindow> window;
    XYgraphView* view = nullptr;
    QwtPlot* plot = nullptr;
};

} // namespace

TEST_F(XYgraph, StartsWithRawTemperatureAndRH) {
    open("D20210914_043120.2");
    EXPECT_THAT(curves(), ElementsAre("Raw Tdry", "Raw RH"));
    EXPECT_TRUE(isChecked("_tdryRH") && isChecked("_time") && isChecked("_raw"));
    EXPECT_FALSE(isChecked("_qc") || isChecked("_levels"));
    click("_qc");
    EXPECT_THAT(curves(), ElementsAre("Raw Tdry", "QC Tdry", "Raw RH", "QC RH"));
    click("_raw");
    click("_satsDz");
    EXPECT_THAT(curves(), ElementsAre("VVcheck dz/dt", "Hydrostatic dz/dt", "Vertical wind"));
    click("_latLon");
    EXPECT_THAT(curves(), ElementsAre("QC Lat", "QC Lon"));
    click("_presAlt");
    EXPECT_THAT(curves(), ElementsAre("VVcheck Pres", "QC Pres", "QC alt"));
}

TEST_F(XYgraph, RHsShowRawOnlyAndGiveBackTheChoice) {
    open("D20210914_043120.2");
    click("_qc");
    click("_levels");
    click("_raw");
    click("_RHs");
    EXPECT_THAT(curves(), ElementsAre("RH1", "RH2", "QC-Used RH"));
    EXPECT_FALSE(isEnabled("_raw") || isEnabled("_qc") || isEnabled("_levels"));
    EXPECT_TRUE(isChecked("_raw"));
    EXPECT_FALSE(isChecked("_qc") || isChecked("_levels"));
    click("_tdryRH");
    EXPECT_TRUE(isChecked("_qc") && isChecked("_levels") && isEnabled("_raw"));
    EXPECT_FALSE(isChecked("_raw"));
    EXPECT_THAT(curves(), Contains("Levels TdryStd"));
    click("_alt"); // at which levels are never plotted
    EXPECT_FALSE(isEnabled("_levels"));
    click("_spdDir");
    EXPECT_FALSE(isEnabled("_levels"));
    click("_pres");
    EXPECT_TRUE(isEnabled("_levels"));
    EXPECT_THAT(curves(), Contains("Levels WspdLyr"));
}

TEST_F(XYgraph, WithoutQCThereIsRawOnly) {
    open("summer_up_20220705.csv", 0);
    EXPECT_FALSE(isEnabled("_qc") || isEnabled("_levels"));
    EXPECT_FALSE(view->findChild<QAbstractButton*>("_RHs")->isVisible());
    click("_time");
    click("_qc");
    EXPECT_FALSE(isEnabled("_levels"));
    EXPECT_THAT(curves(), ElementsAre("Raw Tdry", "Raw RH"));
}

TEST_F(XYgraph, AllAndNoneOfTheFlags) {
    open("D20210914_043120.2");
    choose("_flags", "All");
    EXPECT_EQ(chosen("_flags").size(), 17U); // all but "None"
    EXPECT_THAT(chosen("_flags"), AllOf(Contains("Obs-Flight"), Not(Contains("None"))));
    EXPECT_THAT(curves(), ElementsAre("Raw Tdry", "Flagged Raw Tdry", "Raw RH", "Flagged Raw RH"));
    choose("_flags", "QC-Keep");
    EXPECT_EQ(chosen("_flags").size(), 15U); // nor "All" any more
    choose("_flags", "None");
    EXPECT_THAT(chosen("_flags"), ElementsAre("None"));
    EXPECT_THAT(curves(), ElementsAre("Raw Tdry", "Raw RH"));
    choose("_flags", "Telemetry-PTU");
    EXPECT_THAT(chosen("_flags"), ElementsAre("Telemetry-PTU"));
    EXPECT_THAT(curves(), Contains("Flagged Raw Tdry"));
    choose("_flags", "Telemetry-PTU");
    choose("_flags", "QC-Ignore"); // of nothing
    EXPECT_THAT(curves(), ElementsAre("Raw Tdry", "Raw RH"));
}

TEST_F(XYgraph, StylesReachThePlot) {
    open("summer_up_20220705.csv");
    const auto curve = [&] {
        return static_cast<const QwtPlotCurve*>(plot->itemList(QwtPlotItem::Rtti_PlotCurve).first());
    };
    EXPECT_EQ(view->findChild<ChoicesButton*>("_flags")->status()[2].name, "Obs-Surface");
    choose("_styles", "MarkPts");
    EXPECT_NE(curve()->symbol(), nullptr);
    EXPECT_EQ(curve()->style(), QwtPlotCurve::Lines);
    choose("_styles", "DrawLns");
    EXPECT_EQ(curve()->style(), QwtPlotCurve::Dots);
    choose("_styles", "Y-Grid");
    view->update();
    const auto* grid = static_cast<const QwtPlotGrid*>(plot->itemList(QwtPlotItem::Rtti_PlotGrid).first());
    EXPECT_TRUE(grid->xEnabled());
    EXPECT_FALSE(grid->yEnabled());
}

TEST_F(XYgraph, AZoomOutlivesARecomputeOfTheSounding) {
    open("D20210914_043120.2");
    const auto left = [&] { return plot->axisScaleDiv(QwtPlot::yLeft).lowerBound(); };
    const double base = left();
    QTest::mousePress(plot->canvas(), Qt::LeftButton, {}, {200, 150});
    QMouseEvent move(QEvent::MouseMove, QPoint(500, 350), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(plot->canvas(), &move);
    QTest::mouseRelease(plot->canvas(), Qt::LeftButton, {}, {500, 350});
    const double zoomed = left();
    ASSERT_NE(zoomed, base);
    window->activeView()->process();
    EXPECT_EQ(left(), zoomed);
    click("_unzoom");
    EXPECT_EQ(left(), base);
}

TEST_F(XYgraph, UnitButton) {
    open("summer_up_20220705.csv");
    click("_spdDir");
    EXPECT_EQ(view->findChild<QAbstractButton*>("_wspdunit")->text(), "m/s");
    const double metric = plot->axisScaleDiv(QwtPlot::xTop).upperBound();
    click("_wspdunit");
    EXPECT_EQ(view->findChild<QAbstractButton*>("_wspdunit")->text(), "knot");
    EXPECT_EQ(plot->axisTitle(QwtPlot::xTop).text(), "Wind Speed (knot)");
    EXPECT_GT(plot->axisScaleDiv(QwtPlot::xTop).upperBound(), 1.5 * metric);
    click("_wspdunit");
    EXPECT_EQ(plot->axisScaleDiv(QwtPlot::xTop).upperBound(), metric);
}

TEST_F(XYgraph, ScalesComeFromTheConfiguration) {
    open("summer_up_20220705.csv");
    TarvoConfigSet* set = window->activeView()->configSet();
    set->set("xyGraphTdryAuto", 0.0);
    set->set("xyGraphTdryMin", -77.0);
    set->set("xyGraphTdryMax", 44.0);
    set->set("xyGraphPresAuto", 0.0);
    set->set("xyGraphPresMin", 200.0);
    set->set("xyGraphPresMax", 900.0);
    view->update();
    EXPECT_EQ(plot->axisScaleDiv(QwtPlot::xBottom).lowerBound(), -77.0);
    EXPECT_EQ(plot->axisScaleDiv(QwtPlot::xBottom).upperBound(), 44.0);
    click("_pres");
    EXPECT_EQ(plot->axisScaleDiv(QwtPlot::yLeft).lowerBound(), 900.0);
    EXPECT_EQ(plot->axisScaleDiv(QwtPlot::yLeft).upperBound(), 200.0);
}

TEST_F(XYgraph, SavesPicturesByTheirExtension) {
    open("summer_up_20220705.csv");
    const QString base = QString::fromStdString((folder / "plot").string());
    saveAs(base, "PNG Image (*.png)");
    EXPECT_EQ(readFile(folder / "plot.png").substr(1, 3), "PNG");
    saveAs(base, "JPEG Image (*.jpeg)");
    EXPECT_EQ(readFile(folder / "plot.jpeg").substr(0, 2), "\xff\xd8");
    saveAs(base + ".pdf", "PDF (*.pdf)");
    EXPECT_EQ(readFile(folder / "plot.pdf").substr(0, 5), "%PDF-");
    saveAs(base + ".PNG", "PNG Image (*.png)");
    EXPECT_EQ(readFile(folder / "plot.PNG").substr(1, 3), "PNG");
    EXPECT_EQ(folder.size(), 4);
    std::string directory;
    window->activeView()->configSet()->text("XYPlotSaveDir", directory);
    EXPECT_EQ(directory, folder.path().string());
    EXPECT_THAT(answers.texts(), Not(Contains("Empty file name")));
}

TEST_F(XYgraph, IsSavedAcrossThePaperWhoeverPrintedBefore) {
    open("summer_up_20220705.csv");
    window->activeView()->findChild<RawView*>()->print(); // whose dialog is given up
    saveAs(QString::fromStdString((folder / "plot.pdf").string()), "PDF (*.pdf)");
    const QString page = QString::fromStdString(readFile(folder / "plot.pdf"));
    const auto box = QRegularExpression(R"(/MediaBox \[0 0 ([0-9.]+) ([0-9.]+)\])").match(page);
    ASSERT_TRUE(box.hasMatch());
    EXPECT_GT(box.captured(1).toDouble(), box.captured(2).toDouble());
}

TEST_F(XYgraph, RefusesAnEmptyName) {
    open("summer_up_20220705.csv");
    answers.forget();
    view->save(); // the dialog is given up
    ASSERT_THAT(answers.told(), ElementsAre("File Name Error: Empty file name"));
    EXPECT_EQ(answers.boxes()[0].icon, QMessageBox::Warning);
}

TEST_F(XYgraph, PrintsToPDFByItsPreviewAndItsDialog) {
    open("summer_up_20220705.csv");
    const QString path = QString::fromStdString((folder / "print.pdf").string());
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    view->xyPreview(&printer);
    EXPECT_EQ(readFile(folder / "print.pdf").substr(0, 5), "%PDF-");
    EXPECT_GT(readFile(folder / "print.pdf").size(), 5000U);
    writeFile(folder / "print.pdf", "");
    answers.operate("Tarvo - Print XY Graph", [&](QDialog& dialog) {
        dialog.findChild<QLineEdit*>("filename")->setText(path); // without printers a file is what is left
        dialog.accept();
    });
    view->print();
    EXPECT_EQ(readFile(folder / "print.pdf").substr(0, 5), "%PDF-");
}

TEST_F(XYgraph, LooksAsItDid) {
    open("D20210914_043120.2");
    click("_pres");
    click("_qc"); // no levels: their labels are words, which differ from machine to machine
    choose("_flags", "All");
    choose("_styles", "MarkPts");
    const QImage drawn = sheet();
    const QImage reference = referencePicture(TARVO_SOURCE_DIR "/tests/TarvoUI/XYgraph/reference/xy.png", drawn);
    ASSERT_EQ(drawn.size(), reference.size());
    constexpr int kSlack = 48; // another rasteriser
    EXPECT_LT(differences(drawn, reference, kSlack), 700) << "of 259200 pixels";
    choose("_flags", "None");
    EXPECT_GT(differences(sheet(), reference, kSlack), 1500) << "the comparison sees what is missing";
}
