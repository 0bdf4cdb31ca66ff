#include "SignificantSections.h"

#include "GroupCoders.h"
#include "LevelGroups.h"
#include "Levels.h"

namespace {

constexpr double kTopOfPartB = 100.0001; // mb
constexpr double kBottomOfPartD = 100.0; // mb
constexpr double kHi = 2000.0;           // mb

const std::vector<LevelType>& thermoTypes() {
    static const std::vector<LevelType> types{
        LevelType::ExtrapSfcPres,     LevelType::SurfaceThermo, LevelType::HighestThermo,   LevelType::LowestThermo,
        LevelType::Mb110Thermo,       LevelType::InversionTop,  LevelType::InversionBottom, LevelType::MissingTdryTop,
        LevelType::MissingTdryBottom, LevelType::MissingRHTop,  LevelType::MissingRHBottom, LevelType::StationBasePres,
        LevelType::Freezing,          LevelType::GDLTdry,       LevelType::GDLRH,
    };
    return types;
}

const std::vector<LevelType>& windTypes() {
    static const std::vector<LevelType> types{LevelType::SurfaceWind, LevelType::HighestWind, LevelType::LowestWind,
                                              LevelType::Mb110Wind,   LevelType::GDLWspd,     LevelType::GDLWdir};
    return types;
}

} // namespace

SignificantSection::SignificantSection(const Levels& levels, WMOpartType part, int sectionNumber)
    : WMOsection(levels, part, sectionNumber) {}

std::vector<Level> SignificantSection::select(const std::vector<LevelType>& types) const {
    return removeDupLevels(isUpper() ? _levels.subsetByType(types, 0.0, kBottomOfPartD, false)
                                     : _levels.subsetByType(types, kTopOfPartB, kHi, false));
}

void SignificantSection::addNumbered(const std::vector<Level>& selected, LevelType surface,
                                     std::string (*values)(const Level&)) {
    int number = 1;
    if (!isUpper()) {
        if (!selected.empty() && selected.back().levelType() == surface) {
            number = 0;
        } else {
            add("00///");
            add("/////");
        }
    }
    for (auto level = selected.rbegin(); level != selected.rend(); ++level) {
        double p = 0.0;
        level->getFieldData(LFpres, p);
        add(WMOgroup::nn(number) + WMOgroup::PPP(p));
        add(values(*level));
        number = number == 9 ? 1 : number + 1;
    }
}

WMOsection5::WMOsection5(const Levels& levels, WMOpartType part) : SignificantSection(levels, part, 5) {
    addNumbered(select(thermoTypes()), LevelType::SurfaceThermo, &TTTDD);
}

WMOsection6::WMOsection6(const Levels& levels, WMOpartType part) : SignificantSection(levels, part, 6) {
    const std::vector<Level> selected = select(windTypes());
    if (!selected.empty()) {
        addOnNewLine("21212");
    }
    addNumbered(selected, LevelType::SurfaceWind, &ddfff);
}
