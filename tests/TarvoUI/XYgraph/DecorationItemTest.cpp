#include "DecorationItem.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>
#include <qwt_plot.h>
#include <qwt_scale_map.h>

namespace {

/// Draws labels at these points of a canvas of 600 x 400 pixels, whose axes count in pixels.
void draw(const DecorationItem& item) {
    QImage image(600, 400, QImage::Format_RGB32);
    QPainter painter(&image);
    QwtScaleMap map; // 0 to 1 onto 0 to 1
    item.draw(&painter, map, map, {0.0, 0.0, 600.0, 400.0});
}

DecorationItem::Label label(double x, double y, const char* text = "Standard at 700.0 mb") {
    return {Decoration(x, y, text), Qt::red};
}

} // namespace

TEST(DecorationItem, LabelsGiveWayAndNeverCoverOneAnother) {
    DecorationItem::Taken taken{{0.0, 0.0, 600.0, 400.0}}; // of the drawing before
    DecorationItem lower(QwtPlot::xBottom, QFont("helvetica", 8), taken, true);
    DecorationItem upper(QwtPlot::xTop, QFont("helvetica", 8), taken, false);
    lower.setLabels({label(300, 200), label(300, 203), label(300, 206)});
    upper.setLabels({label(300, 201), label(300, 300)});
    draw(lower);
    ASSERT_EQ(taken.size(), 2U);
    EXPECT_GT(taken[0].left(), 300.0);
    EXPECT_LT(taken[1].right(), 300.0);
    draw(upper);
    ASSERT_EQ(taken.size(), 3U);
    EXPECT_GT(taken[2].top(), 250.0);
}

TEST(DecorationItem, LabelsStayOnTheCanvas) {
    DecorationItem::Taken taken;
    DecorationItem item(QwtPlot::xBottom, QFont("helvetica", 8), taken, true);
    item.setLabels({label(590, 200), label(650, 100), label(300, 1), label(300, 300, "")});
    draw(item);
    ASSERT_EQ(taken.size(), 1U);
    EXPECT_LT(taken[0].right(), 590.0);
}
