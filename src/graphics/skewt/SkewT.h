#pragma once

#include "Adiabats.h"
#include "IsoMR.h"
#include "IsoPress.h"
#include "IsoTherms.h"
#include "PAdiabats.h"
#include "SkewTtrace.h"
#include "WindBarbs.h"

#include <memory>
#include <string>
#include <vector>

namespace skewt {

/// A Skew-T log-P diagram: the thermodynamic background, the traces of temperature and dew point, and wind barbs, drawn
/// on an adapter that it borrows and that outlives it.
class SkewT {
public:
    /// \p n samples of temperature and dew point (deg C), wind speed (m/s) and direction (degrees) and pressure (mb),
    /// which are copied. What is -999.0 or no finite number is missing, and a sample without a pressure is none.
    /// \p numWinds is how many barbs there are at most. The limits: temperature at the bottom (deg C), pressures of top
    /// and bottom (mb); a pair in the wrong order is turned round, one that spans nothing is widened.
    SkewT(SkewTAdapter& adapter, int n, const double* tdry, const double* dp, const double* wspd, const double* wdir,
          const double* pres, int numWinds, std::string subTitle, std::string title, std::string credit, double tmin,
          double tmax, double pTop, double pBottom);
    SkewT(const SkewT&) = delete;
    SkewT& operator=(const SkewT&) = delete;
    ~SkewT();

    /// Draws everything, with the objects of the last createRects().
    void draw();
    /// An empty page, and everything on it.
    void brandNewPlot();
    /// The page has another shape: everything anew, zoomed as it was.
    void resize() { brandNewPlot(); }
    /// Only what stands in the extents of the adapter, as far as they lie in the plot. A choice that spans less than
    /// the diagram can resolve changes nothing.
    void zoomin();
    /// The limits of the beginning.
    void unzoom();

    /// One more sample each, drawn at once; in one with a -999.0 there is nothing to draw. After brandNewPlot().
    void drawTdry(double t, double p);
    void drawDp(double t, double p);
    void drawWind(double spd, double dir, double p);

    void print() { _adapter.print(); }
    void maximize() { _adapter.maximize(); }
    /// Takes the limits of the beginning, without drawing.
    void initialLimits() { _limits = _initialLimits; }

    const Limits& limits() const { return _limits; }

    // The layout of the page.
    static constexpr PageBox kPlot{0.08, 0.9, 0.07, 0.9};
    static constexpr double kBarbsLeft = 0.9;
    static constexpr double kBarbsRight = 1.0;
    static constexpr double kSkew = 1.125;

private:
    void createRects();
    bool rescaleLimits();

    SkewTAdapter& _adapter;
    std::string _subTitle;
    std::string _title;
    std::string _credit;
    Limits _limits;
    Limits _initialLimits;
    int _numWinds;

    std::vector<double> _tdry;
    std::vector<double> _tdryPres;
    std::vector<double> _dp;
    std::vector<double> _dpPres;
    std::vector<double> _windSpd;
    std::vector<double> _windDir;
    std::vector<double> _windPres;

    std::unique_ptr<IsoTherms> _isoTherms;
    std::unique_ptr<Adiabats> _adiabats;
    std::unique_ptr<IsoPress> _isoPress;
    std::unique_ptr<PAdiabats> _pAdiabats;
    std::unique_ptr<IsoMR> _isoMR;
    std::unique_ptr<SkewTtrace> _tdryTrace;
    std::unique_ptr<SkewTtrace> _dpTrace;
    std::unique_ptr<WindBarbs> _windBarbs;
};

} // namespace skewt
