// What a station model tells the painter to draw.

#include "PaintRecorder.h"
#include "QStationModelGraphicsItem.h"

#include <QApplication>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QMenu>
#include <QTimer>
#include <QtTest/QtTest>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr double kMissing = -999.0;

struct Values {
    double wspd = kMissing;
    double wdir = kMissing;
    double tdry = kMissing;
    double dp = kMissing;
    double presht = kMissing;
    bool isPres = true;
    unsigned long parts = 255;
};

std::unique_ptr<QStationModelGraphicsItem> model(const Values& values) {
    return std::make_unique<QStationModelGraphicsItem>("/data/D1", -80.0, 25.0, values.wspd, values.wdir, values.tdry,
                                                       values.dp, values.presht, values.isPres, 6, 5, 60.0,
                                                       values.parts, "Remove", "Process");
}

Recording drawn(QStationModelGraphicsItem& item) {
    Recording recording;
    PaintRecorder recorder(recording);
    QPainter painter(&recorder);
    item.paint(&painter, nullptr, nullptr);
    return recording;
}

/// The text of pressure or height, alone.
std::string presHt(double value, bool isPres) {
    const auto item = model({kMissing, kMissing, kMissing, kMissing, value, isPres, QStationModelGraphicsItem::PRESHT});
    const auto words = drawn(*item).words();
    return words.empty() ? "" : words[0];
}

/// Pennants, barbs and half barbs of a wind from the north, by the lengths of what is drawn beside the staff.
std::vector<int> flags(double knots) {
    const auto item = model({knots, 0.0});
    int pennants = 0;
    int full = 0;
    int half = 0;
    for (const QLineF& line : drawn(*item).lines) {
        const double length = line.length();
        const bool level = std::abs(line.dy()) < 0.01;
        full += level && std::abs(length - 12.0) < 0.01;
        half += level && std::abs(length - 6.0) < 0.01;
        pennants += std::abs(length - 12.0 / 0.8660249615191342) < 0.01;
    }
    return {pennants / 2, full, half};
}

} // namespace

TEST(StationModel, WindFlags) {
    EXPECT_EQ(flags(4.9), (std::vector<int>{0, 0, 0}));
    EXPECT_EQ(flags(5.0), (std::vector<int>{0, 0, 1}));
    EXPECT_EQ(flags(9.9), (std::vector<int>{0, 0, 1}));
    EXPECT_EQ(flags(10.0), (std::vector<int>{0, 1, 0}));
    EXPECT_EQ(flags(45.0), (std::vector<int>{0, 4, 1}));
    EXPECT_EQ(flags(50.0), (std::vector<int>{1, 0, 0}));
    EXPECT_EQ(flags(65.0), (std::vector<int>{1, 1, 1}));
    EXPECT_EQ(flags(115.0), (std::vector<int>{2, 1, 1}));
}

TEST(StationModel, TheStaffPointsWhereTheWindComesFrom) {
    struct Case {
        double wdir, x, y;
    };
    for (const Case& wind : {Case{0.0, 0.0, -60.0}, Case{90.0, 60.0, 0.0}, Case{180.0, 0.0, 60.0},
                             Case{270.0, -60.0, 0.0}, Case{360.0, 0.0, -60.0}, Case{45.0, 42.426, -42.426}}) {
        const auto item = model({3.0, wind.wdir});
        const auto lines = drawn(*item).lines;
        ASSERT_EQ(lines.size(), 1U);
        EXPECT_EQ(lines[0].p1(), QPointF(0.0, 0.0));
        EXPECT_NEAR(lines[0].x2(), wind.x, 0.01) << wind.wdir;
        EXPECT_NEAR(lines[0].y2(), wind.y, 0.01) << wind.wdir;
    }
    // The barbs of a wind from the north stand on the east side, clockwise of the staff.
    const auto item = model({10.0, 0.0});
    for (const QLineF& line : drawn(*item).lines) {
        EXPECT_GE(std::max(line.x1(), line.x2()), -0.01);
        EXPECT_GE(std::min(line.x1(), line.x2()), -0.01);
    }
}

TEST(StationModel, CalmAndMissingWind) {
    const QRectF circle(-3.0, -3.0, 6.0, 6.0);
    const QRectF calm(-4.0, -4.0, 9.0, 9.0);
    EXPECT_THAT(drawn(*model({0.0, 0.0})).ellipses, ElementsAre(circle, calm));
    EXPECT_THAT(drawn(*model({0.0, 0.0})).lines, IsEmpty());
    EXPECT_THAT(drawn(*model({0.05, 90.0})).ellipses, ElementsAre(circle));
    EXPECT_THAT(drawn(*model({0.05, 90.0})).lines, IsEmpty());
    EXPECT_THAT(drawn(*model({20.0, kMissing})).lines, IsEmpty()) << "a staff would tell of a direction";
    const Recording missing = drawn(*model({}));
    EXPECT_THAT(missing.ellipses, ElementsAre(circle));
    EXPECT_THAT(missing.words(), ElementsAre("0605")) << "the time alone";
}

TEST(StationModel, PressureTexts) {
    EXPECT_EQ(presHt(1013.2, true), "132");
    EXPECT_EQ(presHt(1000.0, true), "000");
    EXPECT_EQ(presHt(999.94, true), "999");
    EXPECT_EQ(presHt(999.96, true), "ERR") << "a thousand tenths above 900 mb";
    EXPECT_EQ(presHt(998.7, true), "987");
    EXPECT_EQ(presHt(900.0, true), "000");
    EXPECT_EQ(presHt(899.6, true), "900");
    EXPECT_EQ(presHt(850.0, true), "850");
    EXPECT_EQ(presHt(1105.0, true), "ERR");
    EXPECT_EQ(presHt(-3.0, true), "ERR");
    EXPECT_EQ(presHt(kMissing, true), "");
    EXPECT_EQ(presHt(5874.6, false), "5875");
    EXPECT_EQ(presHt(12.2, false), "012");
    EXPECT_EQ(presHt(-4.0, false), "");
}

TEST(StationModel, TextsAndTheirParts) {
    const auto item = model({10.0, 0.0, -5.25, -17.04, 1013.2});
    const Recording all = drawn(*item);
    EXPECT_THAT(all.words(), ElementsAre(testing::AnyOf("-5.2", "-5.3"), "-17.0", "132", "0605"));
    EXPECT_EQ(all.texts[0].color, QColor("#000050"));
    EXPECT_LT(all.texts[0].place.x(), -9.0) << "temperature on the left";
    EXPECT_LT(all.texts[0].place.y(), 0.0) << "and above";
    EXPECT_GT(all.texts[1].place.y(), 0.0) << "dew point below";
    EXPECT_EQ(all.texts[2].place, QPointF(9.0, -6.0)) << "cut toward zero";
    item->hidepart(QStationModelGraphicsItem::TDRY | QStationModelGraphicsItem::TIME);
    EXPECT_THAT(drawn(*item).words(), ElementsAre("-17.0", "132"));
    item->hidepart(QStationModelGraphicsItem::WIND);
    EXPECT_THAT(drawn(*item).lines, IsEmpty());
    EXPECT_EQ(drawn(*item).ellipses.size(), 1U);
    item->showpart(QStationModelGraphicsItem::TIME);
    EXPECT_THAT(drawn(*item).words(), ElementsAre("-17.0", "132", "0605"));
}

TEST(StationModel, PointerAndMenu) {
    QGraphicsScene scene(-90.0, 0.0, 90.0, 90.0);
    QGraphicsView view(&scene);
    view.resize(400, 300);
    auto* item = model({10.0, 0.0}).release();
    scene.addItem(item);
    view.show();
    view.centerOn(item);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    const QPoint middle = view.mapFromScene(item->pos());
    QTest::mouseMove(view.viewport(), middle);
    QCoreApplication::processEvents();
    EXPECT_EQ(drawn(*item).brushes[0].color(), QColor("red"));
    QTest::mouseMove(view.viewport(), middle + QPoint(30, 0));
    QCoreApplication::processEvents();
    EXPECT_EQ(drawn(*item).brushes[0].style(), Qt::NoBrush);
    const auto sizeInPixels = [&] {
        return item->deviceTransform(view.viewportTransform()).mapRect(item->boundingRect()).size();
    };
    view.scale(4.0, -4.0);
    EXPECT_EQ(sizeInPixels(), QSizeF(120.0, 120.0)) << "at any zoom";
    view.scale(0.25, -0.25);

    QStringList told;
    QObject::connect(item, &QStationModelGraphicsItem::process,
                     [&](const QString& file) { told << "process " + file; });
    QObject::connect(item, &QStationModelGraphicsItem::remove, [&](const QString& file) { told << "remove " + file; });
    for (const int entry : {0, 1}) {
        QTimer::singleShot(100, [entry] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            ASSERT_EQ(menu->actions().size(), 2);
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions()[entry]).center());
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, middle, view.viewport()->mapToGlobal(middle));
        QCoreApplication::sendEvent(view.viewport(), &event);
    }
    EXPECT_EQ(told, QStringList({"process /data/D1", "remove /data/D1"}));
}
