#pragma once

#include <QBrush>
#include <QGraphicsItem>
#include <QPen>
#include <QPolygonF>
#include <array>
#include <vector>

/// All polygons or lines of one table as one item. It keeps them in several resolutions and paints the coarsest that
/// looks the same at the zoom, and of that only what is in view, so that a map of the world is as quick as one of a
/// bay.
class ShapeItem : public QGraphicsItem {
public:
    /// \p brush of Qt::NoBrush makes lines, any other closed polygons. The pen's width doesn't change with the zoom.
    ShapeItem(const QColor& line, const QBrush& brush);

    void add(const QPolygonF& shape);

    QRectF boundingRect() const override { return _bounds; }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    static constexpr std::size_t kResolutions = 5;
    struct Shape {
        QRectF bounds;
        std::array<QPolygonF, kResolutions> outlines; // from the finest on; shared where they are the same
    };

    QPen _pen;
    QBrush _brush;
    QRectF _bounds;
    std::vector<Shape> _shapes;
};
