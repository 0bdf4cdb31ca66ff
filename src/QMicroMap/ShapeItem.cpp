#include "ShapeItem.h"

#include <QPainter>
#include <QStyleOptionGraphicsItem>
#include <cmath>

namespace {

/// How far a point may be off, degrees. The first keeps every point.
constexpr std::array<double, 5> kTolerances{0.0, 0.01, 0.04, 0.12, 0.3};
constexpr double kInvisible = 0.5; // pixels

/// Leaves out points that are nearer than \p tolerance to the last one kept; the ends stay.
QPolygonF thinned(const QPolygonF& shape, double tolerance) {
    QPolygonF kept;
    for (int i = 0; i < shape.size(); ++i) {
        const QPointF step = kept.isEmpty() ? QPointF() : shape[i] - kept.back();
        if (kept.isEmpty() || i + 1 == shape.size() || std::hypot(step.x(), step.y()) >= tolerance) {
            kept.append(shape[i]);
        }
    }
    return kept;
}

} // namespace

ShapeItem::ShapeItem(const QColor& line, const QBrush& brush) : _pen(line), _brush(brush) {
    _pen.setWidth(0);
    _pen.setCosmetic(true);
    setFlag(ItemUsesExtendedStyleOption);
}

void ShapeItem::add(const QPolygonF& shape) {
    prepareGeometryChange();
    Shape added;
    added.bounds = shape.boundingRect();
    added.outlines[0] = shape;
    for (std::size_t i = 1; i < kResolutions; ++i) {
        const QPolygonF& finer = added.outlines[i - 1];
        const QPolygonF coarser = thinned(finer, kTolerances[i]);
        added.outlines[i] = coarser.size() < finer.size() ? coarser : finer;
    }
    // A straight line has no extent of its own, and would never be in view.
    constexpr double kSome = 1e-6;
    added.bounds.adjust(-kSome, -kSome, kSome, kSome);
    _bounds = _bounds.united(added.bounds);
    _shapes.push_back(std::move(added));
}

void ShapeItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* /*widget*/) {
    const double pixels = QStyleOptionGraphicsItem::levelOfDetailFromTransform(painter->worldTransform()); // per degree
    std::size_t resolution = 0;
    while (resolution + 1 < kResolutions && kTolerances[resolution + 1] * pixels <= kInvisible) {
        ++resolution;
    }
    painter->setPen(_pen);
    painter->setBrush(_brush);
    for (const Shape& shape : _shapes) {
        if (shape.bounds.intersects(option->exposedRect)) {
            const QPolygonF& outline = shape.outlines[resolution];
            _brush.style() == Qt::NoBrush ? painter->drawPolyline(outline) : painter->drawPolygon(outline);
        }
    }
}
