#pragma once

#include "Levels.h"
#include "Lines.h"
#include "Series.h"
#include "Wind.h"

#include <cmath>
#include <utility>
#include <vector>

/// Air in hydrostatic balance, made to measure: by height, m.
struct MadeAtmosphere {
    double groundAltitude = 0.0;                                 ///< m
    double groundPressure = 1013.2;                              ///< mb
    Knots tdry{{0.0, 15.0}, {11000.0, -56.5}, {40000.0, -56.5}}; ///< deg C
    Knots rh{{0.0, 80.0}, {10000.0, 20.0}, {15000.0, 5.0}};      ///< %
    Knots wspd{{0.0, 5.0}, {10000.0, 25.0}, {20000.0, 10.0}};    ///< m/s
    Knots wdir{{0.0, 90.0}, {10000.0, 270.0}};                   ///< degrees
    double lat = 25.5;                                           ///< degrees
    double lon = -80.2;                                          ///< degrees
};

/// The QC series of a sounding through it, and its levels.
class AtmosphereSounding {
public:
    /// From pressure \p pBottom to \p pTop, mb; \p zStep (m) from sample to sample, one a second. \p atSurface makes
    /// the lowest sample the surface observation.
    AtmosphereSounding(const MadeAtmosphere& air, bool ascending, double pBottom, double pTop, double zStep,
                       bool atSurface, double sfcAlt)
        : levels(sample(air, ascending, pBottom, pTop, zStep, atSurface), _summary, series(), LevelCriteria{},
                 LevelSetting{ascending, 0.0, sfcAlt, 1}) {}

    Series pres, tdry, rh, wspd, wdir, u, v, alt, lat, lon, dz;

private:
    StatusAgent& sample(const MadeAtmosphere& air, bool ascending, double pBottom, double pTop, double zStep,
                        bool atSurface) {
        constexpr double kSubSteps = 10.0;
        constexpr double kGravityOverGas = 0.0341626;  // K/m
        std::vector<std::pair<double, double>> column; // height and pressure
        double z = air.groundAltitude;
        for (double p = air.groundPressure; p >= pTop; z += zStep) {
            if (p <= pBottom) {
                column.emplace_back(z, p);
            }
            for (double n = 0.5; n < kSubSteps; ++n) {
                p *= std::exp(-kGravityOverGas * zStep / kSubSteps /
                              (onLines(air.tdry, z + zStep * n / kSubSteps) + 273.15));
            }
        }
        const std::size_t last = column.size() - 1;
        for (std::size_t i = 0; i <= last; ++i) {
            add(air, column[ascending ? i : last - i], static_cast<double>(i), ascending ? zStep : -zStep);
        }
        if (atSurface) {
            const int index = ascending ? 0 : pres.lastIndex();
            for (Series* each : {&pres, &tdry, &rh, &alt, &u, &v, &wspd, &wdir}) {
                each->setAttribute(index, Value::ObsSurface);
            }
        }
        return _agent;
    }

    void add(const MadeAtmosphere& air, const std::pair<double, double>& point, double time, double rate) {
        const auto& [z, p] = point;
        double eastward = 0.0;
        double northward = 0.0;
        UandV(onLines(air.wspd, z), onLines(air.wdir, z), eastward, northward);
        const std::pair<Series*, double> values[] = {{&pres, p},
                                                     {&tdry, onLines(air.tdry, z)},
                                                     {&rh, onLines(air.rh, z)},
                                                     {&wspd, onLines(air.wspd, z)},
                                                     {&wdir, onLines(air.wdir, z)},
                                                     {&u, eastward},
                                                     {&v, northward},
                                                     {&alt, z},
                                                     {&lat, air.lat},
                                                     {&lon, air.lon},
                                                     {&dz, rate}};
        for (const auto& [series, value] : values) {
            series->appendValue(value, time);
        }
    }

    LevelSeries series() const { return {pres, tdry, rh, wspd, wdir, u, v, alt, lat, lon, dz}; }

    StatusAgent _agent;
    Summary _summary;

public:
    Levels levels;
};
