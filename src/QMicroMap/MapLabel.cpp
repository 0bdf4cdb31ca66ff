#include "MapLabel.h"

#include <QPainter>

void MapLabel::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) {
    painter->translate(_offset);
    QGraphicsSimpleTextItem::paint(painter, option, widget);
    painter->translate(-_offset);
}
