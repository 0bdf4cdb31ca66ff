#include "WMOsection2.h"

#include "GroupCoders.h"
#include "LevelGroups.h"
#include "Levels.h"

namespace {

constexpr int kNumber = 2;
constexpr double kLo = 0.0;    // mb
constexpr double kMid = 100.0; // mb, of part A
constexpr double kHi = 2000.0; // mb
const char* const kSlashes = "/////";

} // namespace

WMOsection2::WMOsection2(const Levels& levels, WMOpartType part) : WMOsection(levels, part, kNumber) {
    if (part == WMOpartType::A) {
        addSurface();
    }
    addStandardLevels();
}

void WMOsection2::addSurface() {
    std::vector<Level> thermo = _levels.subsetByType(LevelType::ExtrapSfcPres, kLo, kHi, true);
    if (thermo.empty()) {
        thermo = _levels.subsetByType(LevelType::SurfaceThermo, kLo, kHi, true);
    }
    const std::vector<Level> wind = _levels.subsetByType(LevelType::SurfaceWind, kLo, kHi, true);
    if (thermo.empty()) {
        add("99///");
        add(kSlashes);
        add(kSlashes);
        return;
    }
    const Level& surface = thermo.front();
    double p = 0.0;
    const bool coded = !surface.tag() && surface.getFieldData(LFpres, p);
    add("99" + (coded ? WMOgroup::PPP(p) : "///"));
    add(surface.tag() ? kSlashes : TTTDD(surface));
    add(wind.empty() || wind.front().tag() ? kSlashes : ddfff(wind.front()));
}

/// Winds stop with the highest level that has one, but for the slashes at 200 and 100 mb: Id has no value for a last
/// wind at 250 or 150 mb, and so promises one there.
void WMOsection2::addStandardLevels() {
    const std::vector<Level> standard = isUpper() ? _levels.subsetByType(LevelType::Standard, kLo, kMid, true)
                                                  : _levels.subsetByType(LevelType::Standard, kMid, kHi, true);
    double highestWind = 0.0;
    const bool hasWind = highestWindLevel(standard, highestWind);
    bool has250 = false;
    bool has150 = false;
    for (auto level = standard.rbegin(); level != standard.rend(); ++level) {
        double p = 0.0;
        double z = 0.0;
        level->getFieldData(LFpres, p);
        const bool hasHeight = level->getFieldData(LFalt, z) && !level->tag();
        add(WMOgroup::PP(p) + (hasHeight ? WMOgroup::hhh(z, p) : "///"));
        add(level->tag() ? kSlashes : TTTDD(*level));
        if (!hasWind) {
            continue;
        }
        if (p >= highestWind) {
            add(level->tag() ? kSlashes : ddfff(*level));
            has250 = has250 || p == 250.0;
            has150 = has150 || p == 150.0;
        } else if ((p == 200.0 && has250) || (p == 100.0 && has150)) {
            add(kSlashes);
        }
    }
}
