#include "WMOsection9.h"

#include "GroupCoders.h"
#include "Levels.h"

#include <algorithm>

namespace {

constexpr int kNumber = 9;
constexpr double kMid = 100.0001; // mb
constexpr double kHi = 2000.0;    // mb
const char* const kSection = "51515";
const char* const kDoubtful = "10166";
const char* const kExtrapolatedHeight = "10190";
const char* const kExtrapolatedSurface = "10191";

} // namespace

WMOsection9::WMOsection9(const Levels& levels, WMOpartType part) : WMOsection(levels, part, kNumber) {
    const std::vector<LevelType> types{LevelType::ExtrapAlt, LevelType::ExtrapSfcPres};
    const std::vector<Level> selected =
        isUpper() ? levels.subsetByType(types, 0.0, kMid, false) : levels.subsetByType(types, kMid, kHi, false);
    if (selected.empty()) {
        return;
    }
    addOnNewLine(kSection);
    for (auto level = selected.rbegin(); level != selected.rend(); ++level) {
        double p = 0.0;
        double z = 0.0;
        level->getFieldData(LFpres, p);
        if (level->levelType() == LevelType::ExtrapAlt) {
            add(kExtrapolatedHeight);
            add(WMOgroup::PP(p) + (level->getFieldData(LFalt, z) ? WMOgroup::hhh(z, p) : "///"));
        }
    }
    if (std::any_of(selected.begin(), selected.end(),
                    [](const Level& level) { return level.levelType() == LevelType::ExtrapSfcPres; })) {
        add(kExtrapolatedSurface);
    }
}

void WMOsection9::addDoubtfulHts(double p1, double p2) {
    const std::string surfaces = "0" + WMOgroup::PP(p1) + WMOgroup::PP(p2);
    if (_groups.empty() || _groups[0].text() != kSection) {
        _groups.emplace(_groups.begin(), kSection, true);
    }
    if (_groups.size() >= 2 && _groups[1].text() == kDoubtful) {
        if (_groups.size() == 2) {
            add(surfaces);
        } else {
            _groups[2] = WMOcodeGroup(surfaces, false);
        }
        return;
    }
    insertGroup(kDoubtful, 1);
    insertGroup(surfaces, 2);
}

void WMOsection9::removeDoubtfulHts() {
    if (_groups.size() < 2 || _groups[0].text() != kSection || _groups[1].text() != kDoubtful) {
        return;
    }
    deleteGroup(2);
    deleteGroup(1);
    if (_groups.size() == 1) {
        _groups.clear();
    }
}
