#include "WMOsection4.h"

#include "GroupCoders.h"
#include "LevelGroups.h"
#include "Levels.h"
#include "Wind.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kNumber = 4;
constexpr double kBottomOfPartA = 100.0; // mb: a maximum at 100 mb stands in parts A and C
constexpr double kTopOfPartC = 100.00001;
constexpr double kHi = 2000.0;
constexpr double kLargestShear = 99.0; // knots

/// Two digits of the length of the vector difference, knots.
std::string shear(const Level& maximum, const std::vector<Level>& others) {
    double speed = 0.0;
    double direction = 0.0;
    double otherSpeed = 0.0;
    double otherDirection = 0.0;
    if (others.empty() || !maximum.getFieldData(LFwspd, speed) || !maximum.getFieldData(LFwdir, direction) ||
        !others.front().getFieldData(LFwspd, otherSpeed) || !others.front().getFieldData(LFwdir, otherDirection)) {
        return "//";
    }
    double u = 0.0;
    double v = 0.0;
    double otherU = 0.0;
    double otherV = 0.0;
    UandV(speed, direction, u, v);
    UandV(otherSpeed, otherDirection, otherU, otherV);
    const double knots = std::round(std::hypot(u - otherU, v - otherV) * kKnotsPerMetrePerSecond);
    return WMOgroup::twoDigits(static_cast<int>(std::min(knots, kLargestShear)));
}

} // namespace

WMOsection4::WMOsection4(const Levels& levels, WMOpartType part) : WMOsection(levels, part, kNumber) {
    const std::vector<Level> maxima = select(LevelType::MaxWind);
    if (maxima.empty()) {
        add("77999");
        return;
    }
    const Level& maximum = maxima.front();
    double p = 0.0;
    if (!maximum.has(LFwspd) || !maximum.has(LFwdir) || !maximum.getFieldData(LFpres, p)) {
        return;
    }
    const std::vector<Level> highest = select(LevelType::HighestWind);
    const bool atTop = !highest.empty() && highest.front() == maximum;
    add((atTop ? "66" : "77") + WMOgroup::PPP(p));
    add(ddfff(maximum));
    add("4" + shear(maximum, select(LevelType::ShearBelow)) + shear(maximum, select(LevelType::ShearAbove)));
}

std::vector<Level> WMOsection4::select(LevelType type) const {
    return isUpper() ? _levels.subsetByType(type, 0.0, kTopOfPartC, false)
                     : _levels.subsetByType(type, kBottomOfPartA, kHi, false);
}
