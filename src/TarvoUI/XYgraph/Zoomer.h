#pragma once

#include <qwt_plot_zoomer.h>

/// A zoomer of one pair of axes, still invisible: neither rubber band nor tracker. The left button draws the zoom, the
/// right one goes one zoom back, with Ctrl to the base.
class Zoomer : public QwtPlotZoomer {
public:
    Zoomer(int xAxis, int yAxis, QWidget* canvas);
};
