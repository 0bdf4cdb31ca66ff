#include "SkewTAdapterQt.h"

#include "MadeDiagram.h"
#include "Pictures.h"
#include "TemporaryFolder.h"
#include "TimeLimit.h"

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>

#include <gtest/gtest.h>

using namespace skewt;

namespace {

/// Counts the plots that were finished.
class CountingAdapter : public SkewTAdapterQt {
public:
    CountingAdapter(int width, int height, int holdOff) : SkewTAdapterQt(nullptr, width, height, 5, holdOff) {}
    void draw_finished() override {
        ++plots;
        SkewTAdapterQt::draw_finished();
    }
    int plots = 0;
};

struct Window {
    explicit Window(int width = 800, int height = 600, int holdOff = 60)
        : pause(2 * holdOff), adapter(width, height, holdOff), skewT(MadeDiagram(60).on(adapter)) {
        adapter.setSkewT(skewT.get());
        skewT->brandNewPlot();
    }
    void show() {
        adapter.show();
        QTest::qWait(pause);
        adapter.plots = 0;
    }
    void drag(const QPoint& from, const QPoint& to) {
        QTest::mousePress(&adapter, Qt::LeftButton, Qt::NoModifier, from);
        QTest::mouseMove(&adapter, to);
        QTest::mouseRelease(&adapter, Qt::LeftButton, Qt::NoModifier, to);
    }
    QImage picture() { return adapter.grab().toImage().convertToFormat(QImage::Format_RGB32); }

    int pause; // ms, after which a new size is drawn
    CountingAdapter adapter;
    std::unique_ptr<SkewT> skewT;
};

int pixelsOf(const QImage& image, QRgb colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixel(x, y) == colour;
        }
    }
    return count;
}

} // namespace

TEST(SkewTAdapterQt, zoomsIntoABoxOf21PixelsFromAnyCorner) {
    Window window;
    window.show();
    window.drag({300, 300}, {320, 400});
    window.drag({300, 300}, {400, 320});
    QTest::mousePress(&window.adapter, Qt::RightButton, Qt::NoModifier, {100, 100});
    QTest::mouseRelease(&window.adapter, Qt::RightButton, Qt::NoModifier, {400, 400});
    EXPECT_EQ(window.adapter.plots, 0);
    EXPECT_DOUBLE_EQ(window.skewT->limits().pTop, 100.0);
    const QPoint corners[] = {{300, 300}, {321, 321}};
    for (const int first : {0, 1}) {
        window.drag(corners[first], corners[1 - first]);
        // y 1 - 300 / 600 of the page is 0.43 / 0.83 of the plot, 1 - 321 / 600 is 0.395 / 0.83.
        EXPECT_NEAR(window.skewT->limits().pTop, 1050.0 * std::pow(100.0 / 1050.0, 0.43 / 0.83), 1e-6);
        EXPECT_NEAR(window.skewT->limits().pBottom, 1050.0 * std::pow(100.0 / 1050.0, 0.395 / 0.83), 1e-6);
        window.adapter.unzoom();
        EXPECT_EQ(window.adapter.plots, 2 * first + 2);
        EXPECT_DOUBLE_EQ(window.skewT->limits().pTop, 100.0);
    }
}

TEST(SkewTAdapterQt, rubberBandStaysInTheWidget) {
    Window window;
    window.show();
    const auto* band = window.adapter.findChild<QRubberBand*>();
    ASSERT_NE(band, nullptr);
    QTest::mousePress(&window.adapter, Qt::LeftButton, Qt::NoModifier, {400, 300});
    EXPECT_TRUE(band->isVisible());
    QMouseEvent move(QEvent::MouseMove, QPoint(900, -50), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window.adapter, &move);
    EXPECT_EQ(band->geometry(), QRect(QPoint(400, 0), QPoint(799, 299)));
    QTest::mouseRelease(&window.adapter, Qt::LeftButton, Qt::NoModifier, {410, 290});
    EXPECT_FALSE(band->isVisible());
    EXPECT_EQ(window.adapter.plots, 0);
}

TEST(SkewTAdapterQt, extentsAreTheWholePageWithoutABox) {
    Window window;
    double x1 = 0.5, x2 = 0.5, y1 = 0.5, y2 = 0.5;
    window.adapter.extents(x1, x2, y1, y2);
    EXPECT_DOUBLE_EQ(x1, 0.0);
    EXPECT_DOUBLE_EQ(x2, 1.0);
    EXPECT_DOUBLE_EQ(y1, 0.0);
    EXPECT_DOUBLE_EQ(y2, 1.0);
    EXPECT_DOUBLE_EQ(window.adapter.aspectRatio(), 0.75);
}

TEST(SkewTAdapterQt, manyNewSizesAreDrawnOnce) {
    Window window(800, 600, 1000);
    window.show();
    for (const int width : {810, 850, 900}) {
        window.adapter.resize(width, 700);
        QTest::qWait(5);
    }
    EXPECT_EQ(window.adapter.plots, 0) << "while it still changes";
    EXPECT_TRUE(QTest::qWaitFor([&window] { return window.adapter.plots > 0; }, kPatience));
    EXPECT_EQ(window.adapter.plots, 1);
    EXPECT_EQ(window.picture().size(), QSize(900, 700));
    window.adapter.setSkewT(nullptr);
    window.adapter.resizeTimeout();
    EXPECT_EQ(window.adapter.plots, 1);
}

TEST(SkewTAdapterQt, savedPictureHasTheSizeAskedFor) {
    Window window;
    const TemporaryFolder folder;
    const std::string png = (folder / "plot.png").string();
    const std::string jpeg = (folder / "plot.jpeg").string();
    ASSERT_TRUE(window.adapter.savePlot(png, 1234, 567, PlotFileType::Png));
    ASSERT_TRUE(window.adapter.savePlot(jpeg, 300, 200, PlotFileType::Jpeg));
    EXPECT_EQ(QImage(QString::fromStdString(png), "PNG").size(), QSize(1234, 567));
    EXPECT_EQ(QImage(QString::fromStdString(jpeg), "JPEG").size(), QSize(300, 200));
    EXPECT_GT(pixelsOf(QImage(QString::fromStdString(png)).convertToFormat(QImage::Format_RGB32), qRgb(255, 0, 0)), 150)
        << "of the trace";
    EXPECT_FALSE(window.adapter.savePlot((folder / "none/plot.png").string(), 300, 200, PlotFileType::Png));
    EXPECT_FALSE(window.adapter.savePlot(png, 0, 0, PlotFileType::Png));
}

TEST(SkewTAdapterQt, switchesChangeThePictureAndComeBack) {
    Window window;
    const QImage lines = window.picture();
    window.adapter.drawLines(false);
    const QImage nothing = window.picture();
    window.adapter.markPoints(true);
    const QImage marks = window.picture();
    window.adapter.drawLines(true);
    const QImage both = window.picture();
    const int pureRed = pixelsOf(nothing, qRgb(255, 0, 0));
    EXPECT_GT(pixelsOf(lines, qRgb(255, 0, 0)), pureRed + 100);
    EXPECT_GT(pixelsOf(marks, qRgb(255, 0, 0)), pureRed + 100);
    EXPECT_NE(both, lines);
    EXPECT_NE(both, marks);
    window.adapter.markPoints(false);
    EXPECT_EQ(window.picture(), lines);
    EXPECT_EQ(window.adapter.plots, 1) << "without new meteorology";
}

TEST(SkewTAdapterQt, newSamplesAreAddedAtOnce) {
    Window window;
    const QImage before = window.picture();
    window.skewT->drawTdry(0.0, 500.0);
    window.adapter.line(0.1, 0.1, 0.9, 0.9, kRed, LineType::Solid);
    const QImage grown = window.picture();
    EXPECT_NE(grown, before);
    EXPECT_EQ(window.adapter.plots, 1);
    window.adapter.markPoints(true);
    window.adapter.markPoints(false);
    EXPECT_LT(differences(window.picture(), grown, 0), 200) << "all stays, but for what lies over what";
    EXPECT_GT(differences(window.picture(), before, 0), 1200);
}

/// The diagram without its letters, which differ from machine to machine, as it was when people had looked at it and
/// found it good.
TEST(SkewTAdapterQt, looksAsItDid) {
    class Wordless : public SkewTAdapterQt {
    public:
        Wordless() : SkewTAdapterQt(nullptr, 400, 300, 5, 500) {}
        void Text(const std::string& /*text*/, double /*x*/, double /*y*/, unsigned /*colour*/) override {}
        void title(std::string /*text*/) override {}
        void subTitle(std::string /*text*/) override {}
    } adapter;
    const auto skewT = MadeDiagram(60).on(adapter);
    skewT->brandNewPlot();
    const QImage drawn = adapter.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QImage reference = referencePicture(TARVO_SOURCE_DIR "/tests/SkewtQt/reference/skewt.png", drawn);
    ASSERT_EQ(drawn.size(), reference.size());
    constexpr int kSlack = 24; // another rasteriser
    EXPECT_LT(differences(drawn, reference, kSlack), 60) << "of 120000 pixels";
}
