#pragma once

#include "Decoration.h"
#include "Missing.h"

#include <memory>
#include <string>
#include <vector>

/// The limits of an axis; not in force while it is automatic.
struct TraceScale {
    bool automatic = true;
    double min = kMissing;
    double max = kMissing;
};

/// A named curve: how its points look and between which limits its axis runs. Traces share their points with whoever
/// made them, so that a copy costs nothing. A point with -999.0 in x or y isn't there.
class Trace {
public:
    using Points = std::shared_ptr<const std::vector<double>>;

    enum TraceStyle { Line = 0, Crosses = 1, LargeTriangles = 2, InvertedTriangles = 3, OpenCircles = 4 };

    /// \p x and \p y are of one length. \p color is a name such as "darkcyan".
    Trace(Points x, Points y, std::string title, std::string color, TraceStyle style);

    int n() const { return static_cast<int>(_x->size()); }
    const std::vector<double>& x() const { return *_x; }
    const std::vector<double>& y() const { return *_y; }
    const std::string& title() const { return _title; }
    const std::string& color() const { return _color; }
    TraceStyle style() const { return _style; }

    void setAxisMin(double min);
    void setAxisMax(double max);
    /// Sets both limits, unless the scale is automatic.
    void setScale(const TraceScale& scale);
    /// False, and the argument left alone, while there is no such limit.
    bool axisMin(double& min) const;
    bool axisMax(double& max) const;

    void setDecor(std::vector<Decoration> decor) { _decor = std::move(decor); }
    const std::vector<Decoration>& getDecor() const { return _decor; }

private:
    Points _x;
    Points _y;
    std::string _title;
    std::string _color;
    TraceStyle _style;
    bool _hasAxisMin = false;
    bool _hasAxisMax = false;
    double _axisMin = kMissing;
    double _axisMax = kMissing;
    std::vector<Decoration> _decor{1};
};
