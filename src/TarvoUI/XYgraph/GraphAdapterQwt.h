#pragma once

#include "DecorationItem.h"
#include "GraphAdapter.h"

#include <QRectF>
#include <QStack>
#include <QStringList>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

class Zoomer;

/// Draws plots with Qwt, and lets the user zoom in them. The plot is borrowed; it may go before the adapter.
class GraphAdapterQwt : public GraphAdapter {
public:
    GraphAdapterQwt(QwtPlot* plot, const std::string& fontFamily, int fontSize, const std::string& background);
    ~GraphAdapterQwt() override;

    /// With limits the vertical axis runs between them, in the direction of \p invertY. A horizontal axis has the
    /// limits of its first trace where that has both, and is automatic where it has none. Unless \p resetAxes, a zoom
    /// stays as long as the axes outside of it do.
    void plot(bool invertY, bool resetAxes, double yMin, double yMax, const std::string& credit) override;
    /// Automatic limits; a zoom stays.
    virtual void plot(bool invertY, const std::string& credit);
    /// One zoom back.
    void unZoom() override;
    /// A star at each point, and a line along them: of plain line traces only.
    void markPoints(bool on) override;
    void drawLines(bool on) override;
    void gridType(int type) override;
    /// Puts the labels of the traces on the plot.
    void decorate(bool invertY) override;

    /// The labels of all traces, those on the lower axis first.
    const QStringList& decorationLabels() const { return _labels; }

private:
    using ZoomStack = QStack<QRectF>;
    struct Curve {
        std::unique_ptr<QwtPlotCurve> curve;
        Trace::TraceStyle style;
    };

    void setTitles(const std::string& credit);
    void startScales();
    void addCurve(const Trace& trace, int xAxis);
    void styleCurve(const Curve& curve) const;
    void scaleY(bool invertY, double yMin, double yMax);
    void scaleX(int axis, const std::vector<Trace>& traces);
    void alignUnused();
    void restoreZoom(const std::array<ZoomStack, 2>& stacks);
    void enableGrids();

    QwtPlot* _plot;
    std::string _fontFamily;
    int _fontSize;
    QwtPlotGrid _grid;
    int _gridType = 3;
    Zoomer* _zoomerBottomLeft;
    Zoomer* _zoomerTopRight;
    std::vector<Curve> _curves;
    DecorationItem::Taken _taken;
    DecorationItem _lowerLabels;
    DecorationItem _upperLabels;
    QStringList _labels;
    bool _markPoints = false;
    bool _drawLines = true;
};
