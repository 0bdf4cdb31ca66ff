#pragma once

#include "DisplayList.h"
#include "LabelLayout.h"
#include "PageStyle.h"

#include <QPainter>
#include <QSizeF>

namespace skewt {

/// Paints a display list, in the order of its layers, on whatever a QPainter paints on: a pixmap, an image, a printer.
/// Elements that count as drawn are left out.
class SkewTPainter {
public:
    /// The page is \p size, from the origin of the painter, which is borrowed.
    SkewTPainter(QPainter& painter, const QSizeF& size, double fontSize);

    /// What doesn't depend on the switches of the traces: titles, the lines of the background, and the white places of
    /// the labels in them.
    void drawBackground(const DisplayList& list);
    /// The traces, as marks, as lines or both, then symbols and texts.
    void drawData(const DisplayList& list, bool marks, bool lines);

private:
    void drawTitle(const PageText& text, double size);
    void drawText(const PageText& text, const QPointF& anchor, double size);
    void drawPolyline(const Polyline& polyline);
    void drawTrace(const VectorPlus<Datum>& data, bool marks, bool lines);
    void drawMarks(const VectorPlus<Datum>& data);
    LabelLayout layoutOf(const DisplayList& list) const;
    QPointF toPixels(const Point& page) const;

    QPainter& _painter;
    QSizeF _size;
    PageStyle _style;
};

} // namespace skewt
