#pragma once

#include "PresRect.h"

#include <set>
#include <vector>

namespace skewt {

/// The wind beside the plot. The range of log pressure is divided into equal segments, each of which shows the wind of
/// the highest pressure in it.
class WindBarbs : public PresRect {
public:
    /// Pressures in mb, speeds in m/s, directions in degrees. Samples outside of \p pTop and \p pBottom are left out;
    /// with \p numWinds below 1 there are no barbs.
    WindBarbs(SkewTAdapter& adapter, double left, double right, double bottom, double top, double pTop, double pBottom,
              const std::vector<double>& pres, const std::vector<double>& spd, const std::vector<double>& dir,
              int numWinds);

    void draw();
    /// The barb of one sample, unless its segment has one.
    void drawBarb(double spd, double dir, double p);

private:
    struct Wind {
        double p;
        double spd;
        double dir;
    };
    bool hasSegments() const;

    std::vector<Wind> _winds;
    int _numWinds;
    double _segment; ///< its width in log10 of pressure
    std::set<int> _usedSegments;
};

} // namespace skewt
