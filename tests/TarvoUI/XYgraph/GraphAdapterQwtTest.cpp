#include "GraphAdapterQwt.h"

#include <QtTest/QtTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <qwt_legend.h>
#include <qwt_plot_zoomer.h>
#include <qwt_scale_div.h>
#include <qwt_symbol.h>

namespace {

Trace trace(const char* title, Trace::TraceStyle style, std::vector<double> x, const char* color = "red") {
    std::vector<double> y;
    for (std::size_t i = 0; i < x.size(); ++i) {
        y.push_back(100.0 * static_cast<double>(i));
    }
    return {std::make_shared<std::vector<double>>(std::move(x)), std::make_shared<std::vector<double>>(std::move(y)),
            title, color, style};
}

class Canvas : public testing::Test {
protected:
    Canvas() : adapter(&plot, "helvetica", 10, "white") {
        plot.resize(600, 500);
        plot.show();
    }
    void add(int axis, const Trace& each) { adapter.addTrace(axis, each); }
    void draw(bool invert = false, bool reset = false, double min = -999.0, double max = -999.0) {
        adapter.plot(invert, reset, min, max, "credit");
        QCoreApplication::processEvents();
    }
    QwtPlotCurve& curve(const char* title) {
        for (QwtPlotItem* item : plot.itemList(QwtPlotItem::Rtti_PlotCurve)) {
            if (item->title().text() == title) {
                return static_cast<QwtPlotCurve&>(*item);
            }
        }
        throw std::runtime_error("no curve");
    }
    std::pair<double, double> scale(int axis) const {
        return {plot.axisScaleDiv(axis).lowerBound(), plot.axisScaleDiv(axis).upperBound()};
    }
    static QwtSymbol::Style symbol(const QwtPlotCurve& each) {
        return each.symbol() == nullptr ? QwtSymbol::NoSymbol : each.symbol()->style();
    }
    /// With the mouse, from and to in parts of the canvas.
    void zoom(double from, double to) {
        const QSize size = plot.canvas()->size();
        const auto at = [&](double part) { return QPoint(int(size.width() * part), int(size.height() * part)); };
        QTest::mousePress(plot.canvas(), Qt::LeftButton, {}, at(from));
        QMouseEvent move(QEvent::MouseMove, at(to), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(plot.canvas(), &move);
        QTest::mouseRelease(plot.canvas(), Qt::LeftButton, {}, at(to));
    }
    void rightClick(Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(plot.canvas(), Qt::RightButton, modifiers, {50, 50});
    }

    QwtPlot plot;
    GraphAdapterQwt adapter;
};

} // namespace

TEST_F(Canvas, StylesAndSymbols) {
    const struct {
        const char* title;
        Trace::TraceStyle style;
        QwtSymbol::Style symbol;
        int size;
        int axis;
    } looks[] = {{"line", Trace::Line, QwtSymbol::NoSymbol, 0, 0},
                 {"cross", Trace::Crosses, QwtSymbol::XCross, 4, 0},
                 {"triangle", Trace::LargeTriangles, QwtSymbol::Triangle, 8, 1},
                 {"inverted", Trace::InvertedTriangles, QwtSymbol::DTriangle, 7, 1},
                 {"circle", Trace::OpenCircles, QwtSymbol::Ellipse, 7, 1}};
    for (const auto& look : looks) {
        add(look.axis, trace(look.title, look.style, {1.0, 2.0}, "darkcyan"));
    }
    draw();
    for (const auto& look : looks) {
        SCOPED_TRACE(look.title);
        const QwtPlotCurve& drawn = curve(look.title);
        EXPECT_EQ(drawn.style(), look.style == Trace::Line ? QwtPlotCurve::Lines : QwtPlotCurve::Dots);
        EXPECT_EQ(symbol(drawn), look.symbol);
        EXPECT_EQ(drawn.symbol() == nullptr ? 0 : drawn.symbol()->size().width(), look.size);
        EXPECT_EQ(drawn.xAxis(), look.axis == 0 ? QwtPlot::xBottom : QwtPlot::xTop);
        EXPECT_EQ(drawn.testItemAttribute(QwtPlotItem::Legend), look.style != Trace::OpenCircles);
        EXPECT_EQ(drawn.pen().color(), QColor("darkcyan"));
    }
    EXPECT_TRUE(plot.axisEnabled(QwtPlot::xBottom) && plot.axisEnabled(QwtPlot::xTop));
    EXPECT_EQ(curve("triangle").symbol()->pen().color(), QColor("darkcyan"));
    EXPECT_EQ(curve("circle").symbol()->brush().style(), Qt::NoBrush);
}

TEST_F(Canvas, LeavesMissingValuesOut) {
    add(0, trace("gaps", Trace::Line, {1.0, -999.0, 3.0}));
    draw();
    ASSERT_EQ(curve("gaps").dataSize(), 2U);
    EXPECT_EQ(curve("gaps").sample(1), QPointF(3.0, 200.0));
    EXPECT_FALSE(plot.axisEnabled(QwtPlot::xTop));
    adapter.reset();
    add(0, trace("nothing", Trace::Line, {-999.0}));
    draw();
    EXPECT_EQ(curve("nothing").dataSize(), 0U);
    EXPECT_EQ(plot.itemList(QwtPlotItem::Rtti_PlotCurve).size(), 1);
}

TEST_F(Canvas, LimitsComeFromTheFirstTrace) {
    Trace fixed = trace("fixed", Trace::Line, {1.0, 2.0});
    fixed.setScale({false, -7.0, 13.0});
    Trace minimum = trace("minimum", Trace::Line, {1.0, 2.0});
    minimum.setAxisMin(-50.0);
    add(0, fixed);
    add(0, trace("wide", Trace::Line, {-100.0, 100.0}));
    add(1, minimum);
    add(1, fixed);
    draw();
    EXPECT_EQ(scale(QwtPlot::xBottom), std::make_pair(-7.0, 13.0));
    EXPECT_EQ(scale(QwtPlot::xTop), std::make_pair(1.0, 2.0));
}

TEST_F(Canvas, TheVerticalAxisRunsAsToldBetweenItsLimits) {
    add(0, trace("line", Trace::Line, {1.0, 2.0, 3.0}));
    draw(false);
    EXPECT_EQ(scale(QwtPlot::yLeft), std::make_pair(0.0, 200.0));
    draw(true);
    EXPECT_EQ(scale(QwtPlot::yLeft), std::make_pair(200.0, 0.0));
    draw(true, false, 100.0, 1050.0);
    EXPECT_EQ(scale(QwtPlot::yLeft), std::make_pair(1050.0, 100.0));
    draw(false, false, 0.0, 17000.0);
    EXPECT_EQ(scale(QwtPlot::yLeft), std::make_pair(0.0, 17000.0));
}

TEST_F(Canvas, MarksAndLinesChangePlainLinesOnly) {
    add(0, trace("line", Trace::Line, {1.0, 2.0}));
    add(0, trace("flagged", Trace::LargeTriangles, {1.0, 2.0}));
    draw();
    const QwtSeriesData<QPointF>* points = curve("line").data();
    adapter.markPoints(true);
    adapter.drawLines(false);
    zoom(0.2, 0.8);
    EXPECT_EQ(curve("line").data(), points); // no new samples for that
    EXPECT_EQ(symbol(curve("line")), QwtSymbol::Star1);
    EXPECT_EQ(curve("line").symbol()->size().width(), 5);
    EXPECT_EQ(curve("line").style(), QwtPlotCurve::Dots);
    EXPECT_EQ(symbol(curve("flagged")), QwtSymbol::Triangle);
    draw(); // a new plot keeps to it
    EXPECT_EQ(symbol(curve("line")), QwtSymbol::Star1);
    EXPECT_EQ(curve("line").style(), QwtPlotCurve::Dots);
    adapter.markPoints(false);
    adapter.drawLines(true);
    EXPECT_EQ(symbol(curve("line")), QwtSymbol::NoSymbol);
    EXPECT_EQ(curve("line").style(), QwtPlotCurve::Lines);
    EXPECT_EQ(curve("flagged").style(), QwtPlotCurve::Dots);
}

TEST_F(Canvas, GridBits) {
    auto& grid = static_cast<QwtPlotGrid&>(*plot.itemList(QwtPlotItem::Rtti_PlotGrid).first());
    EXPECT_TRUE(grid.xEnabled() && grid.yEnabled());
    adapter.gridType(1);
    EXPECT_TRUE(grid.xEnabled() && !grid.yEnabled());
    adapter.gridType(2);
    EXPECT_TRUE(!grid.xEnabled() && grid.yEnabled());
}

TEST_F(Canvas, TheRightButtonStepsBackAndWithCtrlToTheBase) {
    add(0, trace("lower", Trace::Line, {0.0, 100.0, 50.0}));
    add(1, trace("upper", Trace::Line, {0.0, 10.0, 5.0}));
    draw();
    const auto scales = [this] { return std::make_pair(scale(QwtPlot::xBottom), scale(QwtPlot::xTop)); };
    const auto base = scales();
    zoom(0.2, 0.8);
    const auto first = scales();
    EXPECT_NEAR(first.first.first, 20.0, 1.0);
    EXPECT_NEAR(first.first.second, 80.0, 1.0);
    EXPECT_NEAR(first.second.second, 8.0, 0.1);
    zoom(0.3, 0.7);
    EXPECT_NE(scales(), first);
    rightClick();
    EXPECT_EQ(scales(), first);
    zoom(0.3, 0.7);
    rightClick(Qt::ControlModifier);
    EXPECT_EQ(scales(), base);
    zoom(0.2, 0.8);
    for (int i = 0; i < 2; ++i) {
        adapter.unZoom();
        EXPECT_EQ(scales(), base);
    }
}

TEST_F(Canvas, AZoomOutlivesARecomputeButNoReset) {
    const auto redraw = [&](double x, bool reset) {
        adapter.reset();
        add(0, trace("lower", Trace::Line, {0.0, 100.0, x}));
        add(1, trace("upper", Trace::Line, {0.0, 10.0, 5.0}));
        draw(false, reset);
    };
    redraw(50.0, false);
    zoom(0.2, 0.8);
    const auto first = scale(QwtPlot::xBottom);
    const auto firstTop = scale(QwtPlot::xTop);
    const auto firstLeft = scale(QwtPlot::yLeft);
    redraw(51.0, false);
    EXPECT_EQ(scale(QwtPlot::xBottom), first);
    EXPECT_EQ(scale(QwtPlot::xTop), firstTop);
    EXPECT_EQ(scale(QwtPlot::yLeft), firstLeft);
    redraw(51.0, false); // and the next one
    EXPECT_EQ(scale(QwtPlot::xBottom), first);
    rightClick();
    EXPECT_EQ(scale(QwtPlot::xBottom), std::make_pair(0.0, 100.0));
    zoom(0.2, 0.8);
    redraw(500.0, false); // other axes
    EXPECT_EQ(scale(QwtPlot::xBottom), std::make_pair(0.0, 500.0));
    zoom(0.2, 0.8);
    redraw(500.0, true);
    EXPECT_EQ(scale(QwtPlot::xBottom), std::make_pair(0.0, 500.0));
}

TEST_F(Canvas, CollectsLabelsOfTheLowerAxisFirst) {
    Trace upper = trace("upper", Trace::Line, {1.0, 2.0});
    Trace lower = trace("lower", Trace::Line, {1.0, 2.0});
    upper.setDecor({{1.0, 0.0, "above"}});
    lower.setDecor({{1.0, 0.0, "below"}, {2.0, 100.0, ""}});
    add(1, upper);
    add(0, lower);
    draw();
    EXPECT_EQ(adapter.decorationLabels(), QStringList({"below", "above"}));
}

TEST_F(Canvas, AnAxisWithoutTracesFollowsTheOther) {
    add(1, trace("upper", Trace::Line, {0.0, 80.0}));
    draw();
    EXPECT_FALSE(plot.axisEnabled(QwtPlot::xBottom));
    EXPECT_EQ(scale(QwtPlot::xBottom), std::make_pair(0.0, 80.0));
}
