#pragma once

#include "Trace.h"

#include <string>
#include <vector>

/// The side of a plot that draws. The quantities run along two horizontal axes that share the vertical one. What an
/// adapter can't do does nothing.
class GraphAdapter {
public:
    GraphAdapter() = default;
    GraphAdapter(const GraphAdapter&) = delete;
    GraphAdapter& operator=(const GraphAdapter&) = delete;
    virtual ~GraphAdapter() = default;

    /// Forgets the traces.
    virtual void reset();
    /// Draws the traces. With \p ascending the vertical axis has its greatest value at the bottom; its limits are
    /// automatic at -999.0. \p resetAxes gives up a zoom.
    virtual void plot(bool ascending, bool resetAxes, double yMin, double yMax, const std::string& credit) = 0;
    virtual void print() {}
    virtual void unZoom() {}
    virtual void maximize() {}
    virtual void onMouseMove(short /*x*/, short /*y*/, int /*button*/, int /*modifiers*/) {}
    virtual void markPoints(bool /*on*/) {}
    virtual void drawLines(bool /*on*/) {}
    /// Bit 0 for lines at the values of x, bit 1 for those of y.
    virtual void gridType(int /*type*/) {}
    virtual void savePlot(const std::string& /*path*/) {}
    virtual void decorate(bool ascending) = 0;

    /// Axis 0 is the lower one, 1 the upper one.
    void addTrace(int axis, Trace trace);
    void labels(const std::string& title, const std::string& xLabelBottom, const std::string& xLabelTop,
                const std::string& yLabel, const std::string& credit);

protected:
    std::vector<Trace> _leftTraces;
    std::vector<Trace> _rightTraces;
    std::string _title;
    std::string _xLabelBottom;
    std::string _xLabelTop;
    std::string _yLabel;
    std::string _credit;
};
