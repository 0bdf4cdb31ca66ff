#include "DecorationItem.h"

#include <QFontMetricsF>
#include <QPainter>
#include <qwt_plot.h>
#include <qwt_scale_map.h>

#include <algorithm>

namespace {

constexpr double kAbove = 30.0;  // the curves
constexpr double kGap = 8.0;     // pixels between a point and its label
constexpr double kMargin = 2.0;  // around a label
constexpr int kBackground = 200; // opacity, so that a curve behind the text doesn't disturb it

} // namespace

DecorationItem::DecorationItem(int xAxis, const QFont& font, Taken& taken, bool first)
    : _font(font), _taken(taken), _first(first) {
    setXAxis(xAxis);
    setYAxis(QwtPlot::yLeft);
    setZ(first ? kAbove : kAbove + 1.0);
    setItemAttribute(QwtPlotItem::Legend, false);
}

void DecorationItem::draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                          const QRectF& canvasRect) const {
    if (_first) {
        _taken.clear();
    }
    painter->setFont(_font);
    const QFontMetricsF metrics(_font, painter->device());
    for (const Label& label : _labels) {
        const QString text = QString::fromStdString(label.decoration.label());
        const QPointF point(xMap.transform(label.decoration.x()), yMap.transform(label.decoration.y()));
        QRectF place;
        if (text.isEmpty() || !canvasRect.contains(point) ||
            !this->place(point, {metrics.horizontalAdvance(text), metrics.height()}, canvasRect, place)) {
            continue;
        }
        _taken.push_back(place);
        painter->fillRect(place, QColor(255, 255, 255, kBackground));
        painter->setPen(label.color.darker());
        painter->drawText(place, Qt::AlignCenter, text);
    }
}

/// To the right of its point where that is free, else to the left.
bool DecorationItem::place(const QPointF& point, const QSizeF& size, const QRectF& canvasRect, QRectF& out) const {
    const QSizeF outer(size.width() + 2.0 * kMargin, size.height());
    const double top = point.y() - outer.height() / 2.0;
    for (const double left : {point.x() + kGap, point.x() - kGap - outer.width()}) {
        out = QRectF(QPointF(left, top), outer);
        const bool isFree =
            std::none_of(_taken.begin(), _taken.end(), [&](const QRectF& r) { return r.intersects(out); });
        if (isFree && canvasRect.contains(out)) {
            return true;
        }
    }
    return false;
}
