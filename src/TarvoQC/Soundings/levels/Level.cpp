#include "Level.h"

namespace {

constexpr std::array<const char*, 35> kTypeNames{
    "Standard",
    "Surface Thermodynamic",
    "Surface Wind",
    "Extrapolated Sfc Pressure",
    "Lowermost Thermodynamic",
    "Lowermost Winds",
    "Uppermost Thermodynamic",
    "Uppermost Winds",
    "110-100mb Temperature",
    "110-100mb Winds",
    "Tropopause",
    "Inversion Top",
    "Inversion Bottom",
    "Missing Temperature Top",
    "Missing Temperature Bottom",
    "Missing RH Top",
    "Missing RH Bottom",
    "Doubtful Altitude",
    "Doubtful Temperature",
    "Extrapolated Altitude",
    "Station Base Pressure",
    "Freezing",
    "GDL Temperature",
    "GDL RH",
    "GDL Wind Speed",
    "GDL Wind Direction",
    "Maximum Wind",
    "Wind Shear Above",
    "Wind Shear Below",
    "62626 Last Wind Altitude",
    "62626 150m Layer Mean Wind",
    "62626 Deep Layer Mean Wind",
    "62626 Mean BL Wind",
    "62626 SPG Location",
    "62626 REL Location",
};

constexpr std::array<const char*, LFnone> kFieldNames{
    "time", "pres", "tdry", "rh", "wspd", "wdir", "u", "v", "alt", "pres top", "pres bot", "latitude", "longitude"};

template <std::size_t N>
std::string nameOf(const std::array<const char*, N>& names, int number) {
    return number >= 0 && number < static_cast<int>(N) ? names[static_cast<std::size_t>(number)] : "Unknown";
}

} // namespace

LevelField* Level::getField(LevelFieldId id) {
    return const_cast<LevelField*>(static_cast<const Level*>(this)->getField(id));
}

const LevelField* Level::getField(LevelFieldId id) const {
    if (!isField(id)) {
        return nullptr;
    }
    const std::optional<LevelField>& field = _fields[static_cast<std::size_t>(id)];
    return field ? &*field : nullptr;
}

bool Level::getFieldData(LevelFieldId id, double& out) const {
    const LevelField* field = getField(id);
    if (field == nullptr || field->tag()) {
        return false;
    }
    out = field->value();
    return true;
}

bool Level::has(LevelFieldId id) const {
    double ignored = 0.0;
    return getFieldData(id, ignored);
}

void Level::setField(LevelFieldId id, double value) {
    if (LevelField* field = getField(id)) {
        field->setValue(value);
    } else if (isField(id)) {
        _fields[static_cast<std::size_t>(id)].emplace(id, value);
    }
}

bool Level::empty() const {
    return !has(LFtdry) && !has(LFrh) && !has(LFwspd) && !has(LFwdir);
}

std::string Level::LTname(LevelType type) {
    return nameOf(kTypeNames, static_cast<int>(type));
}

std::string Level::LFname(LevelFieldId id) {
    return nameOf(kFieldNames, static_cast<int>(id));
}

bool Level::operator<(const Level& other) const {
    double pressure = 0.0;
    double otherPressure = 0.0;
    const bool bothHavePressure = getFieldData(LFpres, pressure) && other.getFieldData(LFpres, otherPressure);
    if (bothHavePressure && pressure != otherPressure) {
        return pressure < otherPressure;
    }
    double time = 0.0;
    double otherTime = 0.0;
    if (!getFieldData(LFtime, time) || !other.getFieldData(LFtime, otherTime)) {
        return false;
    }
    if (bothHavePressure && time == otherTime) {
        return _type < other._type;
    }
    return time < otherTime;
}

bool Level::operator==(const Level& other) const {
    double pressure = 0.0;
    double otherPressure = 0.0;
    return getFieldData(LFpres, pressure) && other.getFieldData(LFpres, otherPressure) && pressure == otherPressure;
}
