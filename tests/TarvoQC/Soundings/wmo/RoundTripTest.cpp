// What the coder writes, the decoder reads: soundings of every kind, to the resolution of the code.

#include "Humidity.h"
#include "MadeAtmosphere.h"
#include "UnLevels.h"
#include "WMO.h"
#include "WMOsection10.h"
#include "WMOsection9.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

using T = LevelType;

constexpr double kHalfKnot = 0.5 / 1.94; // m/s
constexpr double kKnotMismatch = 0.0021; // 1 - 1.94 * 0.5144: coder and decoder take their knots by different factors
constexpr double kDirectionStep = 2.501; // degrees

const std::vector<T> kThermo{T::SurfaceThermo,  T::HighestThermo,     T::LowestThermo, T::Mb110Thermo,
                             T::InversionTop,   T::InversionBottom,   T::MissingRHTop, T::MissingRHBottom,
                             T::MissingTdryTop, T::MissingTdryBottom, T::GDLTdry,      T::GDLRH,
                             T::ExtrapSfcPres,  T::StationBasePres};
const std::vector<T> kWind{T::SurfaceWind, T::HighestWind, T::LowestWind, T::Mb110Wind, T::GDLWspd, T::GDLWdir};

struct Kind {
    const char* name;
    MadeAtmosphere air;
    bool ascending;
    double pBottom;
    double pTop;
    double zStep;
    bool atSurface;
    double sfcAlt;
    TempMsgType message;
    std::size_t parts;
    std::size_t tropopauses;
};

void PrintTo(const Kind& kind, std::ostream* stream) {
    *stream << kind.name;
}

MadeAtmosphere hurricane() {
    MadeAtmosphere air;
    air.groundPressure = 921.0;
    air.tdry = {{0.0, 26.0}, {5000.0, 2.0}, {15000.0, -70.0}};
    air.rh = {{0.0, 98.0}, {12000.0, 90.0}};
    air.wspd = {{0.0, 65.0}, {500.0, 90.0}, {3000.0, 80.0}, {12000.0, 20.0}};
    air.wdir = {{0.0, 350.0}, {12000.0, 380.0}};
    return air;
}

MadeAtmosphere polar() {
    MadeAtmosphere air;
    air.groundPressure = 975.0;
    air.tdry = {{0.0, -20.0}, {800.0, -14.0}, {6500.0, -55.0}, {40000.0, -58.0}};
    air.rh = {{0.0, 90.0}, {6500.0, 30.0}, {9000.0, 3.0}};
    air.wspd = {{0.0, 3.0}, {7000.0, 45.0}, {30000.0, 70.0}};
    air.wdir = {{0.0, 180.0}, {30000.0, 290.0}};
    air.lat = 78.2;
    air.lon = 15.6;
    return air;
}

MadeAtmosphere threeTropopauses() {
    MadeAtmosphere air;
    air.tdry = {{0.0, 20.0},      {9000.0, -40.0},  {11500.0, -40.0}, {13000.0, -47.0},
                {15500.0, -47.0}, {17000.0, -56.0}, {40000.0, -50.0}};
    return air;
}

MadeAtmosphere southEast() {
    MadeAtmosphere air;
    air.groundAltitude = 25.0;
    air.lat = -33.9;
    air.lon = 151.2;
    return air;
}

MadeAtmosphere overLand() {
    MadeAtmosphere air;
    air.groundAltitude = 900.0;
    air.groundPressure = 912.0;
    return air;
}

const std::vector<Kind>& kinds() {
    static const std::vector<Kind> all{
        {"DropToTheSea", MadeAtmosphere(), false, 1013.2, 400.0, 6.0, true, 0.0, TempMsgType::TempDrop, 2, 0},
        {"DropThatStopsAt700mb", MadeAtmosphere(), false, 700.0, 195.0, 6.0, false, 0.0, TempMsgType::TempDrop, 2, 0},
        {"DropOverLand", overLand(), false, 895.0, 400.0, 6.0, false, -999.0, TempMsgType::TempDrop, 2, 0},
        {"DropThroughPartC", MadeAtmosphere(), false, 1013.2, 60.0, 8.0, true, 0.0, TempMsgType::TempDrop, 4, 1},
        {"Hurricane", hurricane(), false, 921.0, 196.0, 6.0, true, 0.0, TempMsgType::TempDrop, 2, 0},
        {"Polar", polar(), true, 975.0, 5.0, 5.0, true, 0.0, TempMsgType::Temp, 4, 1},
        {"ThreeTropopauses", threeTropopauses(), true, 1013.2, 30.0, 5.0, true, 0.0, TempMsgType::Temp, 4, 3},
        {"Ship", MadeAtmosphere(), true, 1013.2, 5.0, 5.0, true, 0.0, TempMsgType::TempShip, 4, 1},
        {"MobilSouthEast", southEast(), true, 1013.2, 4.9, 5.0, true, 25.0, TempMsgType::TempMobil, 4, 1},
        {"DropSouthEast", southEast(), false, 1013.2, 196.0, 6.0, true, 25.0, TempMsgType::TempDrop, 2, 0},
    };
    return all;
}

SndMetaData launchOf(const Kind& kind) {
    SndMetaData meta;
    meta.year = 2023;
    meta.month = 12;
    meta.day = 31;
    meta.hour = 23;
    meta.min = 45;
    meta.ascending = kind.ascending;
    meta.launchLat.set(kind.air.lat);
    meta.launchLon.set(kind.air.lon);
    meta.launchAlt.set(kind.air.groundAltitude);
    meta.BSN = "72469";
    meta.callSign = "WXYZ";
    meta.WMOsondeType = "96";
    meta.WMOtrackingType = "08";
    meta.WMOequipType = "8";
    return meta;
}

/// What PPP says of a pressure, mb.
double coded(double p) {
    return p <= 100.0 ? std::round(p * 10.0) / 10.0 : std::round(p);
}

double fieldOf(const Level& level, LevelFieldId id, double otherwise = -1.0) {
    level.getFieldData(id, otherwise);
    return otherwise;
}

bool sameThermo(const Level& level, const UnLevels::Level& read) {
    const double t = fieldOf(level, LFtdry);
    if (level.has(LFtdry) != read.has(UnLevels::TDRY) ||
        (level.has(LFtdry) && std::abs(read.value(UnLevels::TDRY) - t) > 0.151)) {
        return false;
    }
    if (!level.has(LFrh) || !level.has(LFtdry)) {
        return !read.has(UnLevels::DP);
    }
    const double depression = dewPtDepression(t, fieldOf(level, LFrh));
    const double readDepression = read.value(UnLevels::TDRY) - read.value(UnLevels::DP);
    const double resolution = depression < 5.0 ? 0.051 : 0.51;
    return depression > 49.0 ? std::abs(readDepression - 49.0) < 0.01
                             : std::abs(readDepression - depression) <= resolution;
}

bool sameWind(const Level& level, const UnLevels::Level& read) {
    const bool has = level.has(LFwspd) && level.has(LFwdir);
    if (has != read.has(UnLevels::WSPD) || !has) {
        return has == read.has(UnLevels::WSPD);
    }
    const double speed = fieldOf(level, LFwspd);
    const double turn = std::remainder(read.value(UnLevels::WDIR) - fieldOf(level, LFwdir), 360.0);
    return std::abs(read.value(UnLevels::WSPD) - speed) <= kHalfKnot + kKnotMismatch * speed + 1e-6 &&
           std::abs(turn) <= kDirectionStep;
}

using Same = bool (*)(const Level& level, const UnLevels::Level& read);

/// The levels that were read at the coded pressure of a level.
std::vector<UnLevels::Level> readAt(const UnLevels& message, const Level& level, UnLevels::LEVEL_TYPE type) {
    std::vector<UnLevels::Level> found;
    for (const UnLevels::Level& read : message.levels({type})) {
        if (read.has(UnLevels::PRES) && std::abs(read.value(UnLevels::PRES) - coded(fieldOf(level, LFpres))) < 1e-6) {
            found.push_back(read);
        }
    }
    return found;
}

/// Every level that a section codes must be found again among the significant ones: of several at one coded pressure
/// the highest.
void expectSignificant(const Levels& levels, const UnLevels& message, const std::vector<T>& types, Same same,
                       UnLevels::LEVEL_FIELD mark) {
    std::map<double, Level> highestAt;
    for (const Level& level : levels.subsetByType(types, 0.0, 2000.0, false)) {
        const double p = fieldOf(level, LFpres);
        if (p < 100.0 || p >= 100.0001) {
            highestAt.emplace(coded(p), level); // the set runs from the smallest pressure up: the first one stays
        }
    }
    int expected = 0;
    for (const auto& [p, level] : highestAt) {
        std::vector<UnLevels::Level> candidates = readAt(message, level, UnLevels::SIGNIFICANT);
        if (mark == UnLevels::TDRY ? !level.has(LFtdry) : !level.has(LFwspd)) {
            continue; // slashes
        }
        ++expected;
        EXPECT_TRUE(std::any_of(candidates.begin(), candidates.end(),
                                [&](const UnLevels::Level& read) { return read.has(mark) && same(level, read); }))
            << level.LTname() << " at " << p;
    }
    int found = 0;
    for (const UnLevels::Level& read : message.levels({UnLevels::SIGNIFICANT})) {
        found += read.has(mark) ? 1 : 0;
    }
    EXPECT_EQ(found, expected) << "and nothing else";
}

void expectStandard(const Levels& levels, const UnLevels& message) {
    std::size_t expected = 0;
    for (const Level& level : levels.subsetByType(T::Standard, 0.0, 2000.0, false)) {
        const double p = fieldOf(level, LFpres);
        if (level.empty() && !level.has(LFalt)) {
            continue; // only its place was kept
        }
        ++expected;
        const auto read = readAt(message, level, UnLevels::MANDATORY);
        ASSERT_EQ(read.size(), 1u) << p;
        EXPECT_TRUE(sameThermo(level, read[0])) << p;
        EXPECT_TRUE(sameWind(level, read[0])) << p;
        EXPECT_NEAR(read[0].value(UnLevels::HEIGHT), fieldOf(level, LFalt), p > 500.0 ? 0.51 : 5.01) << p;
    }
    EXPECT_EQ(message.levels({UnLevels::MANDATORY}).size(), expected);
}

void expectHighLevels(const Levels& levels, const UnLevels& message, const Kind& kind) {
    const auto tropopauses = levels.subsetByType(T::TropopauseLevel);
    EXPECT_EQ(tropopauses.size(), kind.tropopauses);
    EXPECT_EQ(message.levels({UnLevels::TROPOPAUSE}).size(), kind.tropopauses);
    for (const Level& level : tropopauses) {
        const auto read = readAt(message, level, UnLevels::TROPOPAUSE);
        ASSERT_EQ(read.size(), 1u) << fieldOf(level, LFpres);
        EXPECT_TRUE(sameThermo(level, read[0]) && sameWind(level, read[0])) << fieldOf(level, LFpres);
    }
    for (const Level& level : levels.subsetByType(T::MaxWind)) {
        const auto read = readAt(message, level, UnLevels::MAXWIND);
        ASSERT_GE(read.size(), 1u);
        EXPECT_TRUE(sameWind(level, read[0]));
    }
}

std::string textOf(const WMO& wmo) {
    std::ostringstream text;
    wmo.saveTextFile(text, true);
    return text.str();
}

class RoundTrip : public testing::TestWithParam<Kind> {};

} // namespace

TEST_P(RoundTrip, NothingIsLost) {
    const Kind& kind = GetParam();
    AtmosphereSounding sounding(kind.air, kind.ascending, kind.pBottom, kind.pTop, kind.zStep, kind.atSurface,
                                kind.sfcAlt);
    const Levels& levels = sounding.levels;
    const WMO wmo(levels, kind.message, launchOf(kind), false, "KWBC", "");
    ASSERT_EQ(wmo.parts().size(), kind.parts);
    std::vector<WMOsection*> remarks;
    wmo.findSection(10, remarks);
    for (WMOsection* section : remarks) {
        auto& remark = dynamic_cast<WMOsection10&>(*section);
        remark.set61616("SYN01 0103A SYNTHETIC    OB 07");
        remark.set62626({"EYEWALL 045", 3, true, true, "30408", "AL092023"}, launchOf(kind));
    }
    const std::string text = textOf(wmo);
    SCOPED_TRACE(text);
    UnLevels message;
    try {
        message = UnLevels(text);
    } catch (const std::string& error) {
        FAIL() << error;
    }
    expectStandard(levels, message);
    expectSignificant(levels, message, kThermo, &sameThermo, UnLevels::TDRY);
    expectSignificant(levels, message, kWind, &sameWind, UnLevels::WSPD);
    expectHighLevels(levels, message, kind);

    const auto surface = levels.subsetByType(T::SurfaceThermo, 0.0, 2000.0, false);
    const auto readSurface = message.levels({UnLevels::SURFACE});
    ASSERT_EQ(readSurface.size(), surface.empty() ? 0u : 1u);
    if (!surface.empty()) {
        EXPECT_EQ(readSurface[0].value(UnLevels::PRES), coded(fieldOf(surface[0], LFpres)));
        EXPECT_TRUE(sameThermo(surface[0], readSurface[0]));
        EXPECT_TRUE(sameWind(levels.subsetByType(T::SurfaceWind)[0], readSurface[0]));
    }
    EXPECT_EQ(message.dayOfMonth(), 1) << "a quarter to midnight of the last day";
    EXPECT_EQ(message.obsHour(), 0);
    EXPECT_EQ(message.obsTime(), 2345);
    if (kind.message == TempMsgType::Temp) {
        EXPECT_EQ(message.bsn(), "72469");
    } else {
        EXPECT_NEAR(message.latitude(), kind.air.lat, 0.0501);
        EXPECT_NEAR(message.longitude(), kind.air.lon, 0.0501);
    }
    for (const auto& [type, read] :
         {std::pair(T::DeepLayer, UnLevels::DEEPLAYER), std::pair(T::MeanBLWind, UnLevels::MEANBLWIND),
          std::pair(T::Layer150m, UnLevels::LAYER150M)}) {
        const auto made = levels.subsetByType(type);
        const auto found = message.levels({read});
        ASSERT_EQ(found.size(), made.size()) << Level::LTname(type);
        EXPECT_TRUE(made.empty() || sameWind(made[0], found[0])) << Level::LTname(type);
    }
    EXPECT_EQ(message.levels({UnLevels::SPLASHPOINTRAWGPS}).size(), kind.ascending ? 0u : 1u);
    EXPECT_EQ(message.levels({UnLevels::RELEASEPOINT}).size(), kind.ascending ? 0u : 1u);
}

INSTANTIATE_TEST_SUITE_P(Kinds, RoundTrip, testing::ValuesIn(kinds()),
                         [](const testing::TestParamInfo<Kind>& kind) { return std::string(kind.param.name); });
