#include "SkewTPainter.h"

#include <QFontMetricsF>

#include <cmath>

namespace skewt {

namespace {

/// Points of a trace that lie closer than this can't be told apart, pixels.
constexpr double kSmallestStep = 0.25;

QColor colourOf(unsigned colour) {
    return QColor(SkewTAdapter::colourName(colour));
}

QFont fontOf(double size) {
    QFont font;
    font.setFamilies(QString(PageStyle::kFontFamilies).split(", "));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(qMax(1, qRound(size)));
    return font;
}

/// The middle of the pixel, where a thin line blackens one row and not two.
double snapped(double pixels) {
    return std::floor(pixels) + 0.5;
}

bool isNear(const QPointF& a, const QPointF& b) {
    return std::abs(a.x() - b.x()) < kSmallestStep && std::abs(a.y() - b.y()) < kSmallestStep;
}

} // namespace

SkewTPainter::SkewTPainter(QPainter& painter, const QSizeF& size, double fontSize)
    : _painter(painter), _size(size), _style(qRound(size.width()), qRound(size.height()), fontSize) {
    _painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
}

void SkewTPainter::drawBackground(const DisplayList& list) {
    if (list.polylines.drawn() == 0) {
        drawText(list.title, _style.titleSize(list.title.text));
        drawText(list.subTitle, _style.subTitleSize(list.subTitle.text));
    }
    for (std::size_t i = list.polylines.drawn(); i < list.polylines.size(); ++i) {
        drawPolyline(list.polylines[i]);
    }
}

void SkewTPainter::drawData(const DisplayList& list, bool marks, bool lines) {
    drawTrace(list.tdry, marks, lines);
    drawTrace(list.dp, marks, lines);
    drawMarks(list.symbols);
    for (std::size_t i = list.texts.drawn(); i < list.texts.size(); ++i) {
        drawText(list.texts[i], _style.labelSize());
    }
}

void SkewTPainter::drawText(const PageText& text, double size) {
    const QFont font = fontOf(size);
    const QString words = QString::fromStdString(text.text);
    const double width = QFontMetricsF(font, _painter.device()).horizontalAdvance(words);
    const double share = text.alignment == Alignment::Left ? 0.0 : text.alignment == Alignment::Right ? 1.0 : 0.5;
    const QPointF at = toPixels(text.at);
    _painter.setFont(font);
    _painter.setPen(QPen(colourOf(text.colour), 1.0, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    _painter.drawText(QPointF(at.x() - share * width, at.y() + PageStyle::kCapHeight * size / 2.0), words);
}

void SkewTPainter::drawPolyline(const Polyline& polyline) {
    QPen pen(colourOf(polyline.colour), PageStyle::kLineWidth, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
    if (polyline.type == LineType::Dashed) { // a pattern counts in widths of the pen
        pen.setDashPattern({PageStyle::kDash / PageStyle::kLineWidth, PageStyle::kDashGap / PageStyle::kLineWidth});
    }
    _painter.setPen(pen);
    QPolygonF points;
    points.reserve(static_cast<int>(polyline.points.size()));
    for (const Point& point : polyline.points) {
        points << toPixels(point);
    }
    const bool isLevel = points.size() == 2 && std::abs(points[0].y() - points[1].y()) < kSmallestStep;
    if (isLevel) {
        points[0].setY(snapped(points[0].y()));
        points[1].setY(points[0].y());
    }
    _painter.drawPolyline(points);
}

void SkewTPainter::drawTrace(const VectorPlus<Datum>& data, bool marks, bool lines) {
    if (marks) {
        drawMarks(data);
    }
    if (lines && data.size() > 1 && data.drawn() < data.size()) {
        QPolygonF points;
        const std::size_t first = data.drawn() == 0 ? 0 : data.drawn() - 1; // it goes on from what is there
        for (std::size_t i = first; i < data.size(); ++i) {
            const QPointF point = toPixels(data[i].at);
            if (points.isEmpty() || i + 1 == data.size() || !isNear(point, points.back())) {
                points << point;
            }
        }
        _painter.setPen(
            QPen(colourOf(data.front().colour), _style.traceWidth(), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        _painter.setBrush(Qt::NoBrush);
        _painter.drawPolyline(points);
    }
}

void SkewTPainter::drawMarks(const VectorPlus<Datum>& data) {
    _painter.setPen(Qt::NoPen);
    QPointF last(-1.0, -1.0);
    for (std::size_t i = data.drawn(); i < data.size(); ++i) {
        const QPointF at = toPixels(data[i].at);
        if (isNear(at, last)) {
            continue;
        }
        last = at;
        _painter.setBrush(colourOf(data[i].colour));
        _painter.drawEllipse(at, data[i].size / 2.0, data[i].size / 2.0);
    }
}

QPointF SkewTPainter::toPixels(const Point& page) const {
    return {page.x * _size.width(), (1.0 - page.y) * _size.height()};
}

} // namespace skewt
