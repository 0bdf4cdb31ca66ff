#include "SkewTPainter.h"

#include <QFont>
#include <QFontMetricsF>

#include <cmath>

namespace skewt {

namespace {

constexpr int kPiece = 40; // segments
/// A line that rises by less than this is level, pixels.
constexpr double kStraight = 1e-3;

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

/// Makes what is level or upright crisp.
void snapToPixels(QPolygonF& points) {
    const QPolygonF exact = points;
    for (int i = 1; i < points.size(); ++i) {
        if (std::abs(exact[i].y() - exact[i - 1].y()) < kStraight) {
            points[i - 1].setY(snapped(exact[i - 1].y()));
            points[i].setY(snapped(exact[i - 1].y()));
        }
        if (std::abs(exact[i].x() - exact[i - 1].x()) < kStraight) {
            points[i - 1].setX(snapped(exact[i - 1].x()));
            points[i].setX(snapped(exact[i - 1].x()));
        }
    }
}

bool isNear(const QPointF& a, const QPointF& b) {
    return std::abs(a.x() - b.x()) < PageStyle::kSmallestStep && std::abs(a.y() - b.y()) < PageStyle::kSmallestStep;
}

} // namespace

SkewTPainter::SkewTPainter(QPainter& painter, const QSizeF& size, double fontSize)
    : _painter(painter), _size(size), _style(qRound(size.width()), qRound(size.height()), fontSize) {
    _painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
}

void SkewTPainter::drawBackground(const DisplayList& list) {
    if (list.polylines.drawn() == 0) {
        drawTitle(list.title, _style.titleSize(list.title.text));
        drawTitle(list.subTitle, _style.subTitleSize(list.subTitle.text));
    }
    for (std::size_t i = list.polylines.drawn(); i < list.polylines.size(); ++i) {
        drawPolyline(list.polylines[i]);
    }
    const LabelLayout layout = layoutOf(list);
    for (std::size_t i = list.texts.drawn(); i < list.texts.size(); ++i) {
        const LabelLayout::Label& label = layout.labels()[i];
        if (label.visible) { // no line runs through it
            _painter.fillRect(QRectF(label.left, label.top, label.width, label.height), Qt::white);
        }
    }
}

void SkewTPainter::drawData(const DisplayList& list, bool marks, bool lines) {
    drawTrace(list.tdry, marks, lines);
    drawTrace(list.dp, marks, lines);
    drawMarks(list.symbols);
    const LabelLayout layout = layoutOf(list);
    for (std::size_t i = list.texts.drawn(); i < list.texts.size(); ++i) {
        const LabelLayout::Label& label = layout.labels()[i];
        if (label.visible) {
            drawText(list.texts[i], {label.anchor.x, label.anchor.y}, _style.labelSize());
        }
    }
}

LabelLayout SkewTPainter::layoutOf(const DisplayList& list) const {
    return {list.texts, _size.width(), _size.height(), _style};
}

void SkewTPainter::drawTitle(const PageText& text, double size) {
    drawText(text, toPixels(text.at), size);
}

void SkewTPainter::drawText(const PageText& text, const QPointF& anchor, double size) {
    const QFont font = fontOf(size);
    const QString words = QString::fromStdString(text.text);
    const double width = QFontMetricsF(font, _painter.device()).horizontalAdvance(words);
    const double share = text.alignment == Alignment::Left ? 0.0 : text.alignment == Alignment::Right ? 1.0 : 0.5;
    _painter.setFont(font);
    _painter.setPen(QPen(colourOf(text.colour), 1.0, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    _painter.drawText(QPointF(anchor.x() - share * width, anchor.y() + PageStyle::kCapHeight * size / 2.0), words);
}

void SkewTPainter::drawPolyline(const Polyline& polyline) {
    QPen pen(colourOf(polyline.colour), PageStyle::kLineWidth, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
    if (polyline.type == LineType::Dashed) { // a pattern counts in widths of the pen, of one pixel at least
        pen.setDashPattern({PageStyle::kDash, PageStyle::kDashGap});
    }
    _painter.setPen(pen);
    QPolygonF points;
    points.reserve(static_cast<int>(polyline.points.size()));
    for (const Point& point : polyline.points) {
        points << toPixels(point);
    }
    snapToPixels(points);
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
        // In pieces, since the work grows faster than the length.
        for (int i = 0; i + 1 < points.size(); i += kPiece) {
            _painter.drawPolyline(points.constData() + i, qMin(kPiece + 1, points.size() - i));
        }
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
