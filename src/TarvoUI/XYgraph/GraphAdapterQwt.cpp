#include "GraphAdapterQwt.h"

#include "UiText.h"
#include "Zoomer.h"

#include <QFrame>
#include <QPen>
#include <qwt_legend.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_layout.h>
#include <qwt_scale_div.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_engine.h>
#include <qwt_scale_widget.h>
#include <qwt_symbol.h>
#include <qwt_text.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kGridX = 1;
constexpr int kGridY = 2;
constexpr double kSameRect = 1e-12; // relative
constexpr double kCurveWidth = 1.0; // pixels
constexpr QSize kLegendIcon(24, 10);
const QColor kGridColor(0xdd, 0xdd, 0xdd);
const QColor kCreditColor(0x70, 0x70, 0x70);

/// The same numbers everywhere, without marks between thousands.
class PlainScaleDraw : public QwtScaleDraw {
public:
    QwtText label(double value) const override {
        constexpr int kDigits = 10;
        return QString::number(value, 'g', kDigits);
    }
};

struct SymbolRow {
    QwtSymbol::Style style;
    int size;
    bool filled;
    bool inLegend;
};

/// By Trace::TraceStyle. The one of a line is shown only where points are marked.
constexpr std::array<SymbolRow, 5> kSymbols{{
    {QwtSymbol::Star1, 5, false, true},
    {QwtSymbol::XCross, 4, false, true},
    {QwtSymbol::Triangle, 8, true, true},
    {QwtSymbol::DTriangle, 7, false, true},
    {QwtSymbol::Ellipse, 7, false, false},
}};

QwtSymbol* makeSymbol(Trace::TraceStyle style, const QColor& color) {
    const SymbolRow& row = kSymbols[static_cast<std::size_t>(style)];
    return new QwtSymbol(row.style, row.filled ? QBrush(color) : QBrush(Qt::NoBrush), QPen(color),
                         QSize(row.size, row.size));
}

bool isNear(double a, double b) {
    return std::abs(a - b) <= kSameRect * std::max(std::abs(a), std::abs(b));
}

bool isNear(const QRectF& a, const QRectF& b) {
    return isNear(a.left(), b.left()) && isNear(a.top(), b.top()) && isNear(a.width(), b.width()) &&
           isNear(a.height(), b.height());
}

/// The zooms up to the one that is shown.
QStack<QRectF> zoomsInUse(const QwtPlotZoomer& zoomer) {
    QStack<QRectF> stack = zoomer.zoomStack();
    stack.resize(static_cast<int>(zoomer.zoomRectIndex()) + 1);
    return stack;
}

} // namespace

GraphAdapterQwt::GraphAdapterQwt(QwtPlot* plot, const std::string& fontFamily, int fontSize,
                                 const std::string& background)
    : _plot(plot), _fontFamily(fontFamily), _fontSize(fontSize),
      _zoomerBottomLeft(new Zoomer(QwtPlot::xBottom, QwtPlot::yLeft, plot->canvas())),
      _zoomerTopRight(new Zoomer(QwtPlot::xTop, QwtPlot::yRight, plot->canvas())),
      _lowerLabels(QwtPlot::xBottom, QFont(toQString(fontFamily), fontSize - 2), _taken, true),
      _upperLabels(QwtPlot::xTop, QFont(toQString(fontFamily), fontSize - 2), _taken, false) {
    _plot->setAutoDelete(false);
    _plot->setAutoReplot(false);
    _plot->setCanvasBackground(QColor(toQString(background)));
    if (auto* canvas = qobject_cast<QFrame*>(_plot->canvas())) {
        canvas->setFrameShape(QFrame::Box);
        canvas->setFrameShadow(QFrame::Plain);
        canvas->setLineWidth(1);
    }
    const QFont font(toQString(_fontFamily), _fontSize);
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
        _plot->setAxisFont(axis, font);
        _plot->setAxisScaleDraw(axis, new PlainScaleDraw);
    }
    _plot->plotLayout()->setAlignCanvasToScales(true);
    _grid.setMajorPen(QPen(kGridColor));
    enableGrids();
    _grid.attach(_plot);
    _lowerLabels.attach(_plot);
    _upperLabels.attach(_plot);
    _zoomerBottomLeft->setRubberBand(QwtPicker::RectRubberBand);
    _zoomerBottomLeft->setRubberBandPen(QPen(Qt::blue));
    _zoomerBottomLeft->setTrackerMode(QwtPicker::AlwaysOn);
    _zoomerBottomLeft->setTrackerPen(QPen(Qt::black));
}

GraphAdapterQwt::~GraphAdapterQwt() = default;

void GraphAdapterQwt::plot(bool invertY, const std::string& credit) {
    plot(invertY, false, kMissing, kMissing, credit);
}

void GraphAdapterQwt::plot(bool invertY, bool resetAxes, double yMin, double yMax, const std::string& credit) {
    _curves.clear();
    setTitles(credit);
    _plot->axisScaleEngine(QwtPlot::yLeft)->setAttribute(QwtScaleEngine::Inverted, invertY);
    _plot->enableAxis(QwtPlot::xBottom, !_leftTraces.empty());
    _plot->enableAxis(QwtPlot::xTop, !_rightTraces.empty());

    const std::array<ZoomStack, 2> zooms{zoomsInUse(*_zoomerBottomLeft), zoomsInUse(*_zoomerTopRight)};
    startScales();
    if (_plot->legend() == nullptr) {
        constexpr double kAsHighAsNeeded = -1.0;
        auto* legend = new QwtLegend;
        legend->contentsWidget()->setFont(QFont(toQString(_fontFamily), _fontSize));
        _plot->insertLegend(legend, QwtPlot::BottomLegend, kAsHighAsNeeded);
    }
    for (const Trace& trace : _leftTraces) {
        addCurve(trace, QwtPlot::xBottom);
    }
    for (const Trace& trace : _rightTraces) {
        addCurve(trace, QwtPlot::xTop);
    }
    scaleY(invertY, yMin, yMax);
    scaleX(QwtPlot::xBottom, _leftTraces);
    scaleX(QwtPlot::xTop, _rightTraces);
    decorate(invertY);
    _plot->updateAxes();
    alignUnused();
    _zoomerBottomLeft->setZoomBase();
    _zoomerTopRight->setZoomBase();
    if (!resetAxes) {
        restoreZoom(zooms);
    }
    _plot->replot();
}

void GraphAdapterQwt::setTitles(const std::string& credit) {
    // The numbers on the axes follow the text size of the window; the titles do so as far as there is room for them.
    constexpr int kLargestTitle = 14;
    const int windowSize = _plot->axisWidget(QwtPlot::yLeft)->font().pointSize();
    const int size = std::max(_fontSize, std::min(windowSize, kLargestTitle));
    const auto styled = [&](const std::string& text, int points, bool bold) {
        QwtText title(toQString(text));
        QFont font(toQString(_fontFamily), points);
        font.setBold(bold);
        title.setFont(font);
        return title;
    };
    QwtText footer = styled(credit, _fontSize - 2, false);
    footer.setText(footer.text().trimmed());
    footer.setColor(kCreditColor);
    footer.setRenderFlags(Qt::AlignRight | Qt::AlignVCenter);
    _plot->setFooter(footer);
    if (!_yLabel.empty()) {
        _plot->setAxisTitle(QwtPlot::yLeft, styled(_yLabel, _fontSize, true));
    }
    if (!_xLabelBottom.empty()) {
        _plot->setAxisTitle(QwtPlot::xBottom, styled(_xLabelBottom, size, true));
    }
    if (!_xLabelTop.empty()) {
        _plot->setAxisTitle(QwtPlot::xTop, styled(_xLabelTop, size, true));
    }
    if (!_title.empty()) {
        QwtText title = styled(_title, size + 1, true);
        title.setRenderFlags(Qt::AlignCenter | Qt::TextWordWrap);
        _plot->setTitle(title);
    }
}

/// From the data, or from 0 to 1 where there are none.
void GraphAdapterQwt::startScales() {
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
        _plot->setAxisScale(axis, 0.0, 1.0);
    }
    _plot->updateAxes();
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
        _plot->setAxisAutoScale(axis);
    }
}

void GraphAdapterQwt::addCurve(const Trace& trace, int xAxis) {
    QVector<QPointF> points;
    points.reserve(trace.n());
    for (std::size_t i = 0; i < trace.x().size(); ++i) {
        if (trace.x()[i] != kMissing && trace.y()[i] != kMissing) {
            points.append({trace.x()[i], trace.y()[i]});
        }
    }
    Curve added{std::make_unique<QwtPlotCurve>(toQString(trace.title())), trace.style()};
    QwtPlotCurve& curve = *added.curve;
    curve.setSamples(points);
    curve.setPen(QColor(toQString(trace.color())), kCurveWidth);
    curve.setXAxis(xAxis);
    curve.setYAxis(QwtPlot::yLeft);
    curve.setLegendIconSize(kLegendIcon);
    const SymbolRow& row = kSymbols[static_cast<std::size_t>(trace.style())];
    curve.setItemAttribute(QwtPlotItem::Legend, row.inLegend);
    curve.setLegendAttribute(trace.style() == Trace::Line ? QwtPlotCurve::LegendShowLine
                                                          : QwtPlotCurve::LegendShowSymbol);
    styleCurve(added);
    curve.attach(_plot);
    _curves.push_back(std::move(added));
}

void GraphAdapterQwt::styleCurve(const Curve& curve) const {
    const bool isLine = curve.style == Trace::Line;
    curve.curve->setStyle(isLine && _drawLines ? QwtPlotCurve::Lines : QwtPlotCurve::Dots);
    curve.curve->setSymbol(isLine && !_markPoints ? nullptr : makeSymbol(curve.style, curve.curve->pen().color()));
}

void GraphAdapterQwt::scaleY(bool invertY, double yMin, double yMax) {
    if (yMin != kMissing && yMax != kMissing) {
        _plot->setAxisScale(QwtPlot::yLeft, invertY ? yMax : yMin, invertY ? yMin : yMax);
    }
}

void GraphAdapterQwt::scaleX(int axis, const std::vector<Trace>& traces) {
    double min = 0.0;
    double max = 0.0;
    if (!traces.empty() && traces.front().axisMin(min) && traces.front().axisMax(max)) {
        _plot->setAxisScale(axis, min, max);
    }
}

/// The axes on which there is nothing run as the other one does: grid and tracker hang on the lower one.
void GraphAdapterQwt::alignUnused() {
    if (_leftTraces.empty() && !_rightTraces.empty()) {
        _plot->setAxisScaleDiv(QwtPlot::xBottom, _plot->axisScaleDiv(QwtPlot::xTop));
    } else if (_rightTraces.empty()) {
        _plot->setAxisScaleDiv(QwtPlot::xTop, _plot->axisScaleDiv(QwtPlot::xBottom));
    }
}

void GraphAdapterQwt::restoreZoom(const std::array<ZoomStack, 2>& stacks) {
    const bool zoomed = stacks[0].size() > 1;
    if (zoomed && isNear(stacks[0].front(), _zoomerBottomLeft->zoomBase()) &&
        isNear(stacks[1].front(), _zoomerTopRight->zoomBase())) {
        _zoomerBottomLeft->setZoomStack(stacks[0]);
        _zoomerTopRight->setZoomStack(stacks[1]);
    }
}

void GraphAdapterQwt::decorate(bool /*invertY*/) {
    _labels.clear();
    const auto labelsOf = [this](const std::vector<Trace>& traces) {
        std::vector<DecorationItem::Label> labels;
        for (const Trace& trace : traces) {
            for (const Decoration& decoration : trace.getDecor()) {
                if (!decoration.label().empty()) {
                    labels.push_back({decoration, QColor(toQString(trace.color()))});
                    _labels.append(toQString(decoration.label()));
                }
            }
        }
        return labels;
    };
    _lowerLabels.setLabels(labelsOf(_leftTraces));
    _upperLabels.setLabels(labelsOf(_rightTraces));
}

void GraphAdapterQwt::markPoints(bool on) {
    _markPoints = on;
    std::for_each(_curves.begin(), _curves.end(), [this](const Curve& curve) { styleCurve(curve); });
    _plot->replot();
}

void GraphAdapterQwt::drawLines(bool on) {
    _drawLines = on;
    std::for_each(_curves.begin(), _curves.end(), [this](const Curve& curve) { styleCurve(curve); });
    _plot->replot();
}

void GraphAdapterQwt::gridType(int type) {
    _gridType = type;
    enableGrids();
    _plot->replot();
}

void GraphAdapterQwt::enableGrids() {
    _grid.enableX((_gridType & kGridX) != 0);
    _grid.enableY((_gridType & kGridY) != 0);
}

void GraphAdapterQwt::unZoom() {
    if (_zoomerBottomLeft->zoomRectIndex() > 0) {
        _zoomerBottomLeft->zoom(-1);
        _zoomerTopRight->zoom(-1);
    }
}
