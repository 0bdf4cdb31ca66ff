#include "WMOsection3.h"

#include "GroupCoders.h"
#include "LevelGroups.h"
#include "Levels.h"

namespace {

constexpr int kNumber = 3;
constexpr double kMid = 100.0001; // mb: a tropopause at 100 mb belongs to part C
constexpr double kHi = 2000.0;

} // namespace

WMOsection3::WMOsection3(const Levels& levels, WMOpartType part) : WMOsection(levels, part, kNumber) {
    const std::vector<Level> tropopauses = isUpper()
                                               ? levels.subsetByType(LevelType::TropopauseLevel, 0.0, kMid, false)
                                               : levels.subsetByType(LevelType::TropopauseLevel, kMid, kHi, false);
    if (tropopauses.empty()) {
        add("88999");
    }
    for (auto level = tropopauses.rbegin(); level != tropopauses.rend(); ++level) {
        double p = 0.0;
        level->getFieldData(LFpres, p);
        add("88" + WMOgroup::PPP(p));
        add(TTTDD(*level));
        add(ddfff(*level));
    }
}
