#pragma once

#include <QFont>
#include <QGraphicsSimpleTextItem>

/// A text that stands by a point of the map, so many pixels off it at every zoom.
class MapLabel : public QGraphicsSimpleTextItem {
public:
    MapLabel(const QString& text, const char* family) : QGraphicsSimpleTextItem(text) {
        setFont(QFont(family));
        setFlag(ItemIgnoresTransformations);
    }

    /// Of the upper left corner from the point, pixels.
    void setOffset(const QPointF& offset) {
        prepareGeometryChange();
        _offset = offset;
    }
    QRectF boundingRect() const override { return QGraphicsSimpleTextItem::boundingRect().translated(_offset); }
    QPainterPath shape() const override { return QGraphicsSimpleTextItem::shape().translated(_offset); }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    QPointF _offset;
};
