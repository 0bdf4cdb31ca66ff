#pragma once

#include "SkewT.h"

#include <cmath>
#include <memory>
#include <vector>

/// A sounding made for pictures: warm and moist below, an inversion, a tropopause, and wind that turns and grows.
struct MadeDiagram {
    explicit MadeDiagram(int n) {
        for (int i = 0; i < n; ++i) {
            const double z = 16.0 * i / std::max(n - 1, 1); // km
            pres.push_back(1010.0 * std::exp(-z / 7.0));
            const double inversion = z > 1.0 && z < 1.5 ? 12.0 * (z - 1.0) : 0.0;
            tdry.push_back(24.0 - 6.5 * std::min(z, 11.0) + inversion);
            dp.push_back(tdry.back() - 2.0 - 20.0 * std::pow(std::sin(z / 3.0), 2));
            wspd.push_back(1.0 + 4.0 * z);
            wdir.push_back(std::fmod(150.0 + 10.0 * z, 360.0));
        }
    }

    std::unique_ptr<skewt::SkewT> on(skewt::SkewTAdapter& adapter, const char* title = "N14.2500 W52.6000") const {
        return std::make_unique<skewt::SkewT>(adapter, static_cast<int>(pres.size()), tdry.data(), dp.data(),
                                              wspd.data(), wdir.data(), pres.data(), 20, "a made sounding", title,
                                              "Tarvo", -40.0, 40.0, 100.0, 1050.0);
    }

    std::vector<double> pres, tdry, dp, wspd, wdir;
};
