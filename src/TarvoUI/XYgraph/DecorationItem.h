#pragma once

#include "Decoration.h"

#include <QColor>
#include <QFont>
#include <qwt_plot_item.h>

#include <vector>

/// The labels of the traces on one horizontal axis. A label that would cover another one is left out; zooming in makes
/// room for it.
class DecorationItem : public QwtPlotItem {
public:
    /// What is taken on the canvas, shared by the items of one plot: who is drawn first begins it anew.
    using Taken = std::vector<QRectF>;

    struct Label {
        Decoration decoration;
        QColor color;
    };

    DecorationItem(int xAxis, const QFont& font, Taken& taken, bool first);

    void setLabels(std::vector<Label> labels) { _labels = std::move(labels); }
    const std::vector<Label>& labels() const { return _labels; }

    void draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
              const QRectF& canvasRect) const override;

private:
    bool place(const QPointF& point, const QSizeF& size, const QRectF& canvasRect, QRectF& out) const;

    QFont _font;
    Taken& _taken;
    bool _first;
    std::vector<Label> _labels;
};
