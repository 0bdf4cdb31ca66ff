#include "QMicroMap.h"
#include "MadeGeography.h"
#include "TemporaryFolder.h"

#include <QGraphicsItem>
#include <QGraphicsProxyWidget>
#include <QSignalSpy>
#include <QtTest/QtTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Contains;
using testing::Not;

namespace {

class Map : public testing::Test {
protected:
    void SetUp() override {
        qRegisterMetaType<QMicroMap::MOUSE_MODE>("QMicroMap::MOUSE_MODE");
        map.resize(800, 400);
        map.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&map));
        QTest::qWait(150); // the pause behind a change of size
    }

    void drag(const QPoint& from, const QPoint& to) {
        QTest::mousePress(map.viewport(), Qt::LeftButton, {}, from);
        for (const QPoint& place : {(from + to) / 2, to}) {
            QMouseEvent move(QEvent::MouseMove, place, Qt::NoButton, Qt::LeftButton, {});
            QApplication::sendEvent(map.viewport(), &move);
        }
        QTest::mouseRelease(map.viewport(), Qt::LeftButton, {}, to);
    }
    void rightClick() { QTest::mouseClick(map.viewport(), Qt::RightButton, {}, {100, 100}); }
    QRectF seen() const { return map.mapToScene(map.viewport()->rect()).boundingRect(); }

    /// The texts that are in view.
    std::vector<std::string> texts() {
        std::vector<std::string> found;
        for (const QGraphicsItem* item : map.scene()->items()) {
            const auto* text = dynamic_cast<const QGraphicsSimpleTextItem*>(item);
            if (text != nullptr && text->isVisible() &&
                map.viewport()->rect().contains(text->deviceTransform(map.viewportTransform())
                                                    .mapRect(text->boundingRect())
                                                    .toAlignedRect()
                                                    .adjusted(2, 2, -2, -2))) {
                found.push_back(text->text().toStdString());
            }
        }
        return found;
    }

    TemporaryFolder folder;
    SpatiaLiteDB db{makeGeography((folder / "made.sqlite").string())};
    QMicroMap map{db, -180.0, -90.0, 180.0, 90.0, "lightblue", nullptr};
};

} // namespace

TEST_F(Map, DrawsWhatIsThereWithNorthUp) {
    const QImage image = map.viewport()->grab().toImage();
    const auto colorAt = [&](double lon, double lat) { return image.pixelColor(map.mapFromScene(lon, lat)); };
    EXPECT_EQ(colorAt(13.0, 7.0), QColor("beige")) << "the country";
    EXPECT_EQ(colorAt(100.0, 40.0), QColor("lightblue")) << "the sea";
    const QColor coast = colorAt(-40.0, 3.0);
    EXPECT_TRUE(coast.red() > 200 && coast.green() < 60 && coast.blue() < 60) << coast.name().toStdString();
    EXPECT_GT(map.mapFromScene(0.0, -50.0).y(), map.mapFromScene(0.0, 50.0).y());
}

TEST_F(Map, ZoomsToTheShapeOfTheViewAndStepsBack) {
    const QRectF whole = seen();
    drag({400, 200}, {500, 210});
    const QRectF first = map.currentView();
    EXPECT_NEAR(first.width() / first.height(), 800.0 / 400.0, 0.05);
    EXPECT_NEAR(first.width(), whole.width() / 8.0, whole.width() * 0.01) << "100 of 800 pixels";
    EXPECT_NEAR(first.center().x(), map.mapToScene(400, 200).x(), 0.5);
    drag({300, 100}, {320, 300});
    EXPECT_NEAR(map.currentView().height(), first.height() / 2.0, first.height() * 0.02) << "200 of 400 pixels";
    const QRectF second = map.currentView();
    drag({300, 100}, {301, 101});
    EXPECT_EQ(map.currentView(), second) << "a click is no band";
    rightClick();
    EXPECT_EQ(map.currentView(), first);
    rightClick();
    EXPECT_EQ(map.currentView(), QRectF(-180.0, -90.0, 360.0, 180.0));
    rightClick();
    EXPECT_NEAR(seen().width(), whole.width(), 0.01) << "nothing further back";
    drag({100, 100}, {300, 200});
    drag({100, 100}, {300, 200});
    map.reset();
    EXPECT_NEAR(seen().width(), whole.width(), 0.01);
}

TEST_F(Map, PansAndRemembersIt) {
    QSignalSpy modes(&map, &QMicroMap::mouseMode);
    drag({200, 100}, {600, 300});
    const QRectF zoomed = seen();
    QTest::mouseDClick(map.viewport(), Qt::LeftButton, {}, {400, 200});
    ASSERT_EQ(modes.size(), 1);
    EXPECT_EQ(modes[0][0].value<QMicroMap::MOUSE_MODE>(), QMicroMap::MOUSE_PAN);
    drag({400, 200}, {500, 200});
    EXPECT_NEAR(seen().center().x(), zoomed.center().x() - zoomed.width() / 8.0, 1.0) << "the map follows the hand";
    EXPECT_NEAR(map.currentView().center().x(), seen().center().x(), 0.01);
    rightClick();
    EXPECT_NEAR(seen().center().x(), zoomed.center().x(), 1.0);
    QTest::mouseDClick(map.viewport(), Qt::LeftButton, {}, {400, 200});
    EXPECT_EQ(modes.last()[0].value<QMicroMap::MOUSE_MODE>(), QMicroMap::MOUSE_ZOOM);
    map.setMouseMode(QMicroMap::MOUSE_NONE);
    QTest::mouseDClick(map.viewport(), Qt::LeftButton, {}, {400, 200});
    EXPECT_EQ(modes.last()[0].value<QMicroMap::MOUSE_MODE>(), QMicroMap::MOUSE_NONE);
}

TEST_F(Map, GridStepsAndLabelsFollowTheView) {
    EXPECT_THAT(texts(), testing::IsSupersetOf({"150W", "0E", "30N", "60S"})); // 36 degrees a fifth: steps of 30
    EXPECT_THAT(texts(), Not(Contains("15E")));
    drag({400, 200}, {410, 205}); // about 4.5 degrees of longitude, and steps of one
    EXPECT_THAT(texts(), testing::IsSupersetOf({"1E", "2E", "3E"}));
    EXPECT_THAT(texts(), Not(Contains("30E")));
    map.grid(0);
    EXPECT_THAT(texts(), Not(Contains("1E")));
    map.grid(2);
    EXPECT_THAT(texts(), Contains("1E"));
    for (int i = 0; i < 6; ++i) {
        drag({100, 100}, {700, 350});
    }
    EXPECT_LE(texts().size(), 14U) << "never less than a degree";
}

TEST_F(Map, NamesOfPlacesAndAnnotations) {
    EXPECT_THAT(texts(), Not(Contains("Northport")));
    map.labels(2);
    EXPECT_THAT(texts(), testing::IsSupersetOf({"Northport", "Southport"}));
    map.labels(0);
    EXPECT_THAT(texts(), Not(Contains("Northport")));

    map.setTopLeftAnnotation("A campaign\n/data/soundings.sqlite");
    map.setTopRightAnnotation("Tropopause");
    drag({200, 100}, {600, 300});
    int found = 0;
    for (const QGraphicsItem* item : map.scene()->items()) {
        const auto* proxy = dynamic_cast<const QGraphicsProxyWidget*>(item);
        if (proxy != nullptr) {
            const QRect rect =
                proxy->deviceTransform(map.viewportTransform()).mapRect(proxy->boundingRect()).toAlignedRect();
            EXPECT_TRUE(map.viewport()->rect().contains(rect)) << rect.x() << " " << rect.right();
            EXPECT_LT(rect.top(), 20);
            ++found;
        }
    }
    EXPECT_EQ(found, 2);
}

TEST_F(Map, TellsWhichTablesAreMissing) {
    testing::internal::CaptureStderr();
    const QMicroMap again(db, -180.0, -90.0, 180.0, 90.0, "lightblue", nullptr);
    const std::string told = testing::internal::GetCapturedStderr();
    for (const char* table : {"lakes", "rivers_lake_centerlines", "geographic_lines",
                              "admin_1_states_provinces_lines_shp", "geography_regions_points"}) {
        EXPECT_THAT(told, testing::HasSubstr(std::string(table) + " not found\n"));
    }
    EXPECT_THAT(told, Not(testing::HasSubstr("coastline")));
}
