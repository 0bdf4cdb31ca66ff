#include "LevelGroups.h"

#include "GroupCoders.h"

#include <algorithm>

namespace {

std::string codedPressure(const Level& level) {
    double p = 0.0;
    return level.getFieldData(LFpres, p) ? WMOgroup::PPP(p) : "///";
}

} // namespace

std::string TTTDD(const Level& level) {
    double t = 0.0;
    double rh = 0.0;
    if (!level.getFieldData(LFtdry, t)) {
        return "/////";
    }
    return WMOgroup::TTT(t) + (level.getFieldData(LFrh, rh) ? WMOgroup::DD(t, rh) : "//");
}

std::string ddfff(const Level& level) {
    double speed = 0.0;
    double direction = 0.0;
    if (!level.getFieldData(LFwspd, speed) || !level.getFieldData(LFwdir, direction)) {
        return "/////";
    }
    return WMOgroup::dd(speed, direction) + WMOgroup::fff(speed, direction);
}

bool highestWindLevel(std::vector<Level> levels, double& p) {
    std::stable_sort(levels.begin(), levels.end());
    const auto found = std::find_if(levels.begin(), levels.end(), [](const Level& level) { return level.has(LFwspd); });
    return found != levels.end() && found->getFieldData(LFpres, p);
}

std::vector<Level> removeDupLevels(std::vector<Level> levels) {
    std::stable_sort(levels.begin(), levels.end());
    const auto end = std::unique(levels.begin(), levels.end(), [](const Level& kept, const Level& next) {
        return codedPressure(kept) == codedPressure(next);
    });
    levels.erase(end, levels.end());
    return levels;
}
