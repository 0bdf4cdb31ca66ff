#include "QStationModelGraphicsItem.h"

#include "Angles.h"
#include "Missing.h"

#include <QGraphicsSceneContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <cmath>

namespace {

constexpr double kNoWind = 0.1; // knots
constexpr double kTextRadius = 11.0;
constexpr double kBarbPart = 0.2; // of the staff
constexpr double kPennantPart = 0.8660249615191342;
constexpr unsigned long kPartMask = 0xFFFF;

const QRect kCircle(QPoint(-3, -3), QPoint(2, 2));
const QRect kCalm(QPoint(-4, -4), QPoint(4, 4));
const QRectF kSensitive(-10.0, -10.0, 20.0, 20.0);

void drawTextField(QPainter& painter, const TextSectors& sectors, TextSectors::TEXT_TYPE type, const QString& text) {
    const QRect bounds = painter.fontMetrics().boundingRect(text);
    const double dx = sectors.horizontal(type) == TextSectors::RIGHT ? -bounds.width() : 0.0;
    const double dy = sectors.vertical(type) == TextSectors::TOP ? bounds.height() : 0.0;
    painter.drawText(static_cast<int>(sectors.x(type) + dx), static_cast<int>(sectors.y(type) + dy), text);
}

QString threeDigits(double value) {
    return QString("%1").arg(std::lround(value), 3, 10, QChar('0'));
}

} // namespace

QStationModelGraphicsItem::QStationModelGraphicsItem(QString text, double x, double y, double wspd, double wdir,
                                                     double tdry, double dp, double presht, bool isPres, int hour,
                                                     int minute, double size, unsigned long parts,
                                                     const std::string& removeText, const std::string& processText)
    : _text(std::move(text)), _wspd(wspd), _wdir(wdir), _tdry(tdry), _dp(dp), _presht(presht), _isPres(isPres),
      _hh(hour), _mm(minute), _size(static_cast<int>(size)), _parts(parts & kPartMask),
      _processAction(new QAction(QString::fromStdString(processText), this)),
      _removeAction(new QAction(QString::fromStdString(removeText), this)) {
    setPos(x, y);
    setAcceptedMouseButtons(Qt::LeftButton);
    setFlags(ItemIgnoresTransformations | ItemIsSelectable);
    setAcceptHoverEvents(true);
}

QRectF QStationModelGraphicsItem::boundingRect() const {
    return QRectF(-_size, -_size, 2.0 * _size, 2.0 * _size);
}

QPainterPath QStationModelGraphicsItem::shape() const {
    QPainterPath path;
    path.addEllipse(kSensitive);
    return path;
}

void QStationModelGraphicsItem::showpart(unsigned long parts) {
    _parts |= parts & kPartMask;
    update();
}

void QStationModelGraphicsItem::hidepart(unsigned long parts) {
    _parts &= ~(parts & kPartMask);
    update();
}

void QStationModelGraphicsItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* /*option*/,
                                      QWidget* /*widget*/) {
    const QPen before = painter->pen();
    painter->setBrush(_hover ? QBrush(QColor("red")) : QBrush(Qt::NoBrush));
    painter->setPen(QColor("black"));
    if ((_parts & WIND) != 0) {
        drawWindFlag(*painter);
    } else {
        painter->drawEllipse(kCircle);
    }
    painter->setPen(QColor("#000050"));
    drawTextFields(*painter);
    painter->setPen(before);
}

QPointF QStationModelGraphicsItem::xyang(const QPointF& point, double angle, double length) const {
    const double radians = angle * kShortPi / 180.0;
    return {point.x() + length * std::cos(radians), point.y() - length * std::sin(radians) / _aspect};
}

void QStationModelGraphicsItem::drawWindFlag(QPainter& painter) const {
    painter.drawEllipse(kCircle);
    if (_wspd == 0.0) {
        painter.drawEllipse(kCalm);
    }
    if (_wspd < kNoWind || _wdir == kMissing) { // a staff without a direction would tell of one
        return;
    }
    double angle = 450.0 - _wdir;
    angle += angle < 0.0 ? 360.0 : angle >= 360.0 ? -360.0 : 0.0;
    const double barb = kBarbPart * _size;
    QPointF point = xyang({0.0, 0.0}, angle, _size);
    painter.drawLine(QPointF(0.0, 0.0), point);

    double left = _wspd;
    const auto lineTo = [&painter](QPointF& from, const QPointF& to) {
        painter.drawLine(from, to);
        from = to;
    };
    if (left >= 50.0) {
        for (; left >= 50.0; left -= 50.0) {
            lineTo(point, xyang(point, angle - 120.0, barb / kPennantPart));
            lineTo(point, xyang(point, angle + 120.0, barb / kPennantPart));
        }
        lineTo(point, xyang(point, angle + 180.0, barb / 3.0));
    }
    const auto drawBarb = [&](double length) {
        const QPointF end = xyang(point, angle - 90.0, length);
        painter.drawLine(point, end);
        point = xyang(xyang(end, angle + 90.0, length), angle + 180.0, 0.5 * barb);
    };
    for (; left >= 10.0; left -= 10.0) {
        drawBarb(barb);
    }
    for (; left >= 5.0; left -= 5.0) {
        drawBarb(0.5 * barb);
    }
}

QString QStationModelGraphicsItem::presHtText() const {
    if (!_isPres) {
        return _presht < 0.0 && _presht != kMissing ? QString() : threeDigits(_presht);
    }
    const double shortened = _presht >= 1000.0  ? (_presht - 1000.0) * 10.0
                             : _presht >= 900.0 ? (_presht - 900.0) * 10.0
                                                : _presht;
    const long rounded = std::lround(shortened);
    return _presht != kMissing && (rounded > 999 || rounded < 0) ? QString("ERR") : threeDigits(shortened);
}

void QStationModelGraphicsItem::drawTextFields(QPainter& painter) const {
    const TextSectors sectors(_wdir, kTextRadius);
    const auto draw = [&](TextSectors::TEXT_TYPE type, unsigned long part, double value, const QString& text) {
        if (value != kMissing && (_parts & part) != 0) {
            drawTextField(painter, sectors, type, text);
        }
    };
    draw(TextSectors::TDRY, TDRY, _tdry, QString::number(_tdry, 'f', 1));
    draw(TextSectors::DP, DP, _dp, QString::number(_dp, 'f', 1));
    draw(TextSectors::PRESHT, PRESHT, _presht, presHtText());
    draw(TextSectors::TIME, TIME, 0.0, QString("%1").arg(100 * _hh + _mm, 4, 10, QChar('0')));
}

void QStationModelGraphicsItem::hoverEnterEvent(QGraphicsSceneHoverEvent* /*event*/) {
    _hover = true;
    update(boundingRect());
}

void QStationModelGraphicsItem::hoverLeaveEvent(QGraphicsSceneHoverEvent* /*event*/) {
    _hover = false;
    update(boundingRect());
}

void QStationModelGraphicsItem::mousePressEvent(QGraphicsSceneMouseEvent* event) {
    QGraphicsItem::mousePressEvent(event);
}

void QStationModelGraphicsItem::contextMenuEvent(QGraphicsSceneContextMenuEvent* event) {
    QMenu menu;
    menu.addAction(_processAction);
    menu.addAction(_removeAction);
    connect(&menu, &QMenu::triggered, this, &QStationModelGraphicsItem::contextAction);
    menu.exec(event->screenPos());
}

void QStationModelGraphicsItem::contextAction(QAction* action) {
    if (action == _processAction) {
        emit process(_text);
    } else if (action == _removeAction) {
        emit remove(_text);
    }
}
