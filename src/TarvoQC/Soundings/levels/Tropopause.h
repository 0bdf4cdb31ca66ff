#pragma once

#include "Series.h"

#include <vector>

/// The search for the tropopause, after the definition of the World Meteorological Organization (1957): the lowest
/// level at which the lapse rate falls to 2 K/km, provided that the mean lapse rate to all higher levels within 2 km
/// doesn't exceed 2 K/km. Further tropopauses, up to three in all, are looked for above it in the same way. Where this
/// finds none, a layer of 1 km is tried from 500 mb down.
///
/// The arrays run from the bottom of the sounding upward, whatever the direction of the sounding. A sounding that
/// doesn't reach 200 mb has none.
class Tropopause {
public:
    /// Does all the work. Temperature in deg C, smoothed with \p wavelength (s) when that works; altitude in m,
    /// pressure in mb.
    Tropopause(const Series* tdry, const Series* alt, const Series* pres, double wavelength, bool ascending);
    virtual ~Tropopause() = default;

    /// The times of the tropopauses, lowest first.
    std::vector<double> tropTimes() const { return _tropTimesFound; }

    /// Whether the data reach 200 mb.
    bool test200mb() const;
    /// The first sample above 500 mb.
    bool find500mb(int& index) const;

private:
    enum class Layer { RunsOut = 2, Passed = 3, TooSteep = 4 };

    void collocateValues(const Series* tdry, const Series* alt, const Series* pres, bool ascending);
    void calcLapseRates();
    std::vector<double> lapseRates(double wavelength) const;
    Layer layerTest(int index, double depth, double limit, double z0, double t0) const;
    bool locateTrop(int start, int& index, bool first) const;
    bool locateFirst(int start, int& index) const;
    bool locateFallback(int start, int& index) const;
    bool isFallback(int k) const;

    std::vector<double> _altitude;    // m
    std::vector<double> _temperature; // deg C
    std::vector<double> _pressure;    // mb
    std::vector<double> _times;
    std::vector<double> _lapseRate;     // K/km, of the narrow spline
    std::vector<double> _lapseRateWide; // K/km, of the wide spline
    std::vector<double> _tropTimesFound;
    int _count = 0;
};
