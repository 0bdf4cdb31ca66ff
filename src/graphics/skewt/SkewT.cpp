#include "SkewT.h"

#include "Missing.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace skewt {

namespace {

// What a zoom has to leave: the labels couldn't tell less apart.
constexpr double kSmallestPressureSpan = 1.0;    // mb
constexpr double kSmallestTemperatureSpan = 0.5; // K
constexpr double kSmallestPressure = 0.01;       // mb, for the sake of the logarithm

bool isPressure(double p) {
    return isKnown(p) && p > 0.0;
}

Limits soundLimits(double tmin, double tmax, double pTop, double pBottom) {
    if (tmin > tmax) {
        std::swap(tmin, tmax);
    }
    if (pTop > pBottom) {
        std::swap(pTop, pBottom);
    }
    pTop = std::max(pTop, kSmallestPressure);
    return {tmin, std::max(tmax, tmin + kSmallestTemperatureSpan), pTop,
            std::max(pBottom, pTop + kSmallestPressureSpan)};
}

} // namespace

SkewT::SkewT(SkewTAdapter& adapter, int n, const double* tdry, const double* dp, const double* wspd, const double* wdir,
             const double* pres, int numWinds, std::string subTitle, std::string title, std::string credit, double tmin,
             double tmax, double pTop, double pBottom)
    : _adapter(adapter), _subTitle(std::move(subTitle)), _title(std::move(title)), _credit(std::move(credit)),
      _limits(soundLimits(tmin, tmax, pTop, pBottom)), _initialLimits(_limits), _numWinds(numWinds) {
    for (int i = 0; i < n; ++i) {
        if (!isPressure(pres[i])) {
            continue;
        }
        if (isKnown(tdry[i])) {
            _tdry.push_back(tdry[i]);
            _tdryPres.push_back(pres[i]);
        }
        if (isKnown(dp[i])) {
            _dp.push_back(dp[i]);
            _dpPres.push_back(pres[i]);
        }
        if (isKnown(wspd[i]) && isKnown(wdir[i])) {
            _windSpd.push_back(wspd[i]);
            _windDir.push_back(wdir[i]);
            _windPres.push_back(pres[i]);
        }
    }
    createRects();
}

SkewT::~SkewT() = default;

void SkewT::createRects() {
    _isoTherms = std::make_unique<IsoTherms>(_adapter, kPlot, _limits, kSkew);
    _adiabats = std::make_unique<Adiabats>(_adapter, kPlot, _limits, kSkew);
    _isoPress = std::make_unique<IsoPress>(_adapter, kPlot, _limits, kSkew);
    _pAdiabats = std::make_unique<PAdiabats>(_adapter, kPlot, _limits, kSkew);
    _isoMR = std::make_unique<IsoMR>(_adapter, kPlot, _limits, kSkew);
    _tdryTrace =
        std::make_unique<SkewTtrace>(_adapter, kPlot, _limits, kSkew, _tdry, _tdryPres, kRed, TraceSymbol::Datum);
    _dpTrace = std::make_unique<SkewTtrace>(_adapter, kPlot, _limits, kSkew, _dp, _dpPres, kBlue, TraceSymbol::Datum);
    _windBarbs = std::make_unique<WindBarbs>(_adapter, kBarbsLeft, kBarbsRight, kPlot.bottom, kPlot.top, _limits.pTop,
                                             _limits.pBottom, _windPres, _windSpd, _windDir, _numWinds);
}

void SkewT::draw() {
    _windBarbs->draw();
    _isoTherms->draw();
    _adiabats->draw();
    _isoPress->draw();
    _pAdiabats->draw();
    _isoMR->draw();
    drawFrame();
    _tdryTrace->draw(true);
    _dpTrace->draw(false);
    _adapter.title(_title);
    _adapter.subTitle(_subTitle);
    _adapter.Text("|l" + _credit, 0.12, 0.01, kBlack);
    _adapter.draw_finished();
}

/// The edges of the plot.
void SkewT::drawFrame() {
    Rect plot(_adapter, kPlot);
    const Point corners[] = {{0.0, 0.0}, {1.0, 0.0}, {1.0, 1.0}, {0.0, 1.0}, {0.0, 0.0}};
    for (std::size_t i = 1; i < std::size(corners); ++i) {
        plot.drawLine({corners[i - 1], corners[i]}, kBlack, LineType::Solid, false);
    }
}

void SkewT::brandNewPlot() {
    _adapter.init();
    createRects();
    draw();
}

void SkewT::zoomin() {
    if (rescaleLimits()) {
        brandNewPlot();
    }
}

void SkewT::unzoom() {
    initialLimits();
    brandNewPlot();
}

/// False when the limits stay as they are.
bool SkewT::rescaleLimits() {
    double x1 = 0.0;
    double x2 = 0.0;
    double y1 = 0.0;
    double y2 = 0.0;
    _adapter.extents(x1, x2, y1, y2);
    const SkewTRect rect(_adapter, kPlot, _limits, kSkew);
    const Point low =
        rect.convertToData({std::clamp(x1, kPlot.left, kPlot.right), std::clamp(y1, kPlot.bottom, kPlot.top)});
    const Point high =
        rect.convertToData({std::clamp(x2, kPlot.left, kPlot.right), std::clamp(y2, kPlot.bottom, kPlot.top)});
    const Limits zoomed{rect.t(low.x, low.y), rect.t(high.x, low.y), rect.p(high.y), rect.p(low.y)};
    if (zoomed.tmax - zoomed.tmin < kSmallestTemperatureSpan || zoomed.pBottom - zoomed.pTop < kSmallestPressureSpan) {
        return false;
    }
    _limits = zoomed;
    return true;
}

void SkewT::drawTdry(double t, double p) {
    if (isKnown(t) && isPressure(p)) {
        _tdry.push_back(t);
        _tdryPres.push_back(p);
        _tdryTrace->addTdry(t, p);
    }
}

void SkewT::drawDp(double t, double p) {
    if (isKnown(t) && isPressure(p)) {
        _dp.push_back(t);
        _dpPres.push_back(p);
        _dpTrace->addDp(t, p);
    }
}

void SkewT::drawWind(double spd, double dir, double p) {
    if (isKnown(spd) && isKnown(dir) && isPressure(p)) {
        _windSpd.push_back(spd);
        _windDir.push_back(dir);
        _windPres.push_back(p);
        _windBarbs->drawBarb(spd, dir, p);
    }
}

} // namespace skewt
