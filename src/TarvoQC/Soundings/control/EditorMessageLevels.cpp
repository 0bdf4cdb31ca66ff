// A level set out of the levels that a WMO message holds.

#include "EditorControl.h"
#include "Humidity.h"
#include "Levels.h"
#include "UnLevels.h"

#include <algorithm>
#include <utility>

namespace {

constexpr double kNoPressure = 1200.0; ///< mb, where a level without a pressure counts as lying

constexpr double kSaturation = 100.0; ///< %, the most that a dew point stands for

/// A level under way, with the pressure it is sorted by.
using Placed = std::pair<double, Level>;

/// What the message gives of a level, with its humidity worked out.
struct Given {
    explicit Given(const UnLevels::Level& from) : level(from) {
        if (has(UnLevels::TDRY) && has(UnLevels::DP) && value(UnLevels::PRES) > 0.0) {
            relativeHumidity = rh(value(UnLevels::TDRY), value(UnLevels::DP), value(UnLevels::PRES));
            // There is none where the pressure is that of the vapour or less.
            hasRh = relativeHumidity >= 0.0 && relativeHumidity <= kSaturation;
        }
    }
    bool has(UnLevels::LEVEL_FIELD field) const { return level.has(field); }
    double value(UnLevels::LEVEL_FIELD field) const { return level.value(field); }
    double placeOf() const { return has(UnLevels::PRES) ? value(UnLevels::PRES) : kNoPressure; }

    void copy(Level& to, LevelFieldId id, UnLevels::LEVEL_FIELD field) const {
        EditorControl::addField(to, id, has(field), value(field));
    }
    void copyPressure(Level& to) const { copy(to, LFpres, UnLevels::PRES); }
    void copyThermo(Level& to) const {
        copy(to, LFtdry, UnLevels::TDRY);
        EditorControl::addField(to, LFrh, hasRh, relativeHumidity);
    }
    void copyWind(Level& to) const {
        copy(to, LFwspd, UnLevels::WSPD);
        copy(to, LFwdir, UnLevels::WDIR);
    }

    const UnLevels::Level& level;
    bool hasRh = false;
    double relativeHumidity = 0.0;
};

void addTwins(std::vector<Placed>& placed, const Given& given, LevelType first, LevelType second, bool thermo,
              bool wind) {
    for (const LevelType type : {first, second}) {
        Level level(type);
        given.copyPressure(level);
        if (thermo) {
            given.copyThermo(level);
        }
        if (wind) {
            given.copyWind(level);
        }
        placed.emplace_back(given.placeOf(), level);
    }
}

void addSignificant(std::vector<Placed>& placed, const Given& given) {
    if (given.has(UnLevels::TDRY) || given.hasRh) {
        addTwins(placed, given, LevelType::GDLTdry, LevelType::GDLRH, true, false);
    }
    if (given.has(UnLevels::WSPD) || given.has(UnLevels::WDIR)) {
        addTwins(placed, given, LevelType::GDLWspd, LevelType::GDLWdir, false, true);
    }
}

void addSingle(std::vector<Placed>& placed, const Given& given, LevelType type) {
    Level level(type);
    given.copyPressure(level);
    given.copyThermo(level);
    given.copyWind(level);
    if (type == LevelType::Standard || type == LevelType::Layer150m) {
        given.copy(level, LFalt, UnLevels::HEIGHT);
    }
    placed.emplace_back(given.placeOf(), level);
}

/// A layer has its place, whether it has a pressure or not.
void addLayer(std::vector<Placed>& placed, const Given& given, LevelType type) {
    addSingle(placed, given, type);
    Level& level = placed.back().second;
    level.setField(LFpres, given.placeOf());
    if (type == LevelType::DeepLayer) {
        given.copy(level, LFpresBot, UnLevels::PRES);
        given.copy(level, LFpresTop, UnLevels::PRES2);
    }
}

void add(std::vector<Placed>& placed, const Given& given) {
    switch (given.level.type()) {
    case UnLevels::SURFACE:
        addTwins(placed, given, LevelType::SurfaceThermo, LevelType::SurfaceWind, true, true);
        break;
    case UnLevels::MANDATORY:
        if (given.has(UnLevels::PRES)) {
            addSingle(placed, given, LevelType::Standard);
        }
        break;
    case UnLevels::SIGNIFICANT:
        addSignificant(placed, given);
        break;
    case UnLevels::TROPOPAUSE:
        addSingle(placed, given, LevelType::TropopauseLevel);
        break;
    case UnLevels::MAXWIND:
        addSingle(placed, given, LevelType::MaxWind);
        break;
    case UnLevels::LAYER150M:
        addLayer(placed, given, LevelType::Layer150m);
        break;
    case UnLevels::DEEPLAYER:
        addLayer(placed, given, LevelType::DeepLayer);
        break;
    case UnLevels::MEANBLWIND:
        addLayer(placed, given, LevelType::MeanBLWind);
        break;
    default: // nothing to show: heights and places of the remarks
        break;
    }
}

} // namespace

/// A message has no times: the rank of a level's pressure, from the highest one down, stands for its time.
void EditorControl::addWMOLevels() {
    const auto unLevels = _sounding->unLevels();
    if (unLevels == nullptr) {
        return;
    }
    std::vector<Placed> placed;
    for (const UnLevels::Level& level : unLevels->allLevels()) {
        add(placed, Given(level));
    }
    std::stable_sort(placed.begin(), placed.end(), [](const Placed& a, const Placed& b) { return a.first > b.first; });
    double rank = -1.0;
    double pressureBefore = -1.0;
    for (auto& [pressure, level] : placed) {
        if (pressure != pressureBefore) {
            rank += 1.0;
        }
        pressureBefore = pressure;
        level.setField(LFtime, rank);
        _levels->append(level);
    }
}
