#include "Tropopause.h"

#include "BSpline.h"
#include "Smooth.h"

#include <algorithm>

namespace {

constexpr double kMustReach = 200.0;      ///< mb
constexpr double kSearchStart = 500.0;    ///< mb
constexpr double kLapseRateLimit = 2.0;   ///< K/km
constexpr double kMainLayer = 2000.0;     ///< m
constexpr double kFallbackLayer = 1000.0; ///< m
constexpr double kWideLapseLimit = 3.0;   ///< K/km, above a fallback candidate
constexpr double kLargestStep = 5.0;      ///< mb, across a fallback candidate
constexpr std::size_t kMostTropopauses = 3;
constexpr std::size_t kLeastSamples = 10;
constexpr double kGap = 60.0;               ///< s
constexpr double kNarrowWavelength = 100.0; ///< m
constexpr double kWideWavelength = 1000.0;  ///< m
constexpr int kZeroCurvature = 2;           ///< boundary condition of the spline
constexpr int kAutomaticNodes = 0;

double at(const std::vector<double>& values, int i) {
    return values[static_cast<std::size_t>(i)];
}

} // namespace

Tropopause::Tropopause(const Series* tdry, const Series* alt, const Series* pres, double wavelength, bool ascending) {
    Series smoothed = *tdry;
    bool failed = false;
    Smooth().smooth(&smoothed, wavelength, failed);
    collocateValues(failed ? tdry : &smoothed, alt, pres, ascending);
    if (!test200mb()) {
        return;
    }
    calcLapseRates();
    int start = 0;
    if (!find500mb(start)) {
        return;
    }
    int index = start;
    while (_tropTimesFound.size() < kMostTropopauses && index < _count) {
        if (locateTrop(index, index, true)) {
            _tropTimesFound.push_back(at(_times, index));
        }
    }
    if (_tropTimesFound.empty() && locateTrop(start, index, false)) {
        _tropTimesFound.push_back(at(_times, index));
    }
}

bool Tropopause::test200mb() const {
    return !_pressure.empty() && _pressure.back() <= kMustReach;
}

bool Tropopause::find500mb(int& index) const {
    const auto found =
        std::find_if(_pressure.begin(), _pressure.end(), [](double pressure) { return pressure < kSearchStart; });
    if (found == _pressure.end()) {
        return false;
    }
    index = static_cast<int>(found - _pressure.begin());
    return true;
}

void Tropopause::collocateValues(const Series* tdry, const Series* alt, const Series* pres, bool ascending) {
    if (tdry->lastIndex() < 2 || alt->lastIndex() < 2 || pres->lastIndex() < 2 ||
        !(pres->data(ascending ? pres->lastIndex() : 0) <= kMustReach)) {
        return;
    }
    for (int n = 0; n <= tdry->lastIndex(); ++n) {
        const int i = ascending ? n : tdry->lastIndex() - n;
        const double time = tdry->time(i);
        double altitude = 0.0;
        double pressure = 0.0;
        if (alt->interpolate(time, kGap, altitude) && pres->interpolate(time, kGap, pressure)) {
            _altitude.push_back(altitude);
            _temperature.push_back(tdry->data(i));
            _pressure.push_back(pressure);
            _times.push_back(time);
        }
    }
    if (_pressure.size() >= kLeastSamples && _pressure.back() <= kMustReach) {
        _count = static_cast<int>(_pressure.size());
    } else {
        for (std::vector<double>* values : {&_altitude, &_temperature, &_pressure, &_times}) {
            values->clear();
        }
    }
}

void Tropopause::calcLapseRates() {
    _lapseRate = lapseRates(kNarrowWavelength);
    _lapseRateWide = lapseRates(kWideWavelength);
}

std::vector<double> Tropopause::lapseRates(double wavelength) const {
    const BSpline<double> spline(_altitude.data(), _count, _temperature.data(), wavelength, kZeroCurvature,
                                 kAutomaticNodes);
    std::vector<double> rates;
    rates.reserve(_altitude.size());
    for (const double altitude : _altitude) {
        rates.push_back(-1000.0 * spline.slope(altitude));
    }
    return rates;
}

/// Walks up from the sample above \p index through the layer of \p depth (m) over its base at \p z0 (m) and \p t0
/// (deg C), until the mean lapse rate from the base exceeds \p limit (K/km) or the layer is passed.
Tropopause::Layer Tropopause::layerTest(int index, double depth, double limit, double z0, double t0) const {
    for (int k = index + 1; k < _count; ++k) {
        const double z = at(_altitude, k);
        if (z >= z0 + depth) {
            return Layer::Passed;
        }
        const double d = (z0 - z) / 1000.0;
        if (d != 0.0 && -(t0 - at(_temperature, k)) / d > limit) {
            return Layer::TooSteep;
        }
    }
    return Layer::RunsOut;
}

/// False, with \p index where to go on (the end when there is nothing more), when there is none at the next place that
/// looks like one.
bool Tropopause::locateTrop(int start, int& index, bool first) const {
    index = _count;
    return first ? locateFirst(start, index) : locateFallback(start, index);
}

bool Tropopause::locateFirst(int start, int& index) const {
    int candidate = start;
    while (candidate < _count && !(at(_lapseRate, candidate) >= kLapseRateLimit)) {
        ++candidate;
    }
    while (candidate < _count && !(at(_lapseRate, candidate) < kLapseRateLimit)) {
        ++candidate;
    }
    if (candidate == _count) {
        return false;
    }
    index = candidate;
    return layerTest(candidate + 1, kMainLayer, kLapseRateLimit, at(_altitude, candidate),
                     at(_temperature, candidate)) == Layer::Passed;
}

bool Tropopause::locateFallback(int start, int& index) const {
    for (int k = start; k > 0; --k) {
        if (isFallback(k)) {
            index = k;
            return true;
        }
    }
    return false;
}

bool Tropopause::isFallback(int k) const {
    return at(_lapseRate, k) <= kLapseRateLimit && at(_lapseRate, k - 1) > kLapseRateLimit &&
           at(_pressure, k - 1) - at(_pressure, k) < kLargestStep &&
           layerTest(k + 1, kFallbackLayer, kLapseRateLimit, at(_altitude, k), at(_temperature, k)) == Layer::Passed &&
           at(_altitude, k + 1) + kFallbackLayer <= _altitude.back() &&
           std::none_of(_lapseRateWide.begin() + k + 1, _lapseRateWide.end(),
                        [](double rate) { return rate > kWideLapseLimit; });
}
