#include "BufrRows.h"

#include "Levels.h"
#include "Missing.h"

#include <algorithm>
#include <cmath>

namespace {

// The conversions of a pi of 3.14159265.
constexpr double kRadiansPerDegree = 0.0174532925;
constexpr double kDegreesPerRadian = 57.29577957855229;
constexpr double kLaunchTime = -1.0; // s
constexpr int kAircraftFlag = 15;

struct LevelColumn {
    LevelFieldId field;
    BufrRows::Column column;
};

constexpr std::array<LevelColumn, BufrRows::NumColumns> kLevelColumns{{
    {LFpres, BufrRows::Pres},
    {LFtdry, BufrRows::Tdry},
    {LFrh, BufrRows::RH},
    {LFwspd, BufrRows::Wspd},
    {LFwdir, BufrRows::Wdir},
    {LFalt, BufrRows::Alt},
    {LFlon, BufrRows::Lon},
    {LFlat, BufrRows::Lat},
}};

struct Bucket {
    BufrRows::Columns columns;

    /// Appends the averages at \p time to the rows, and is empty again.
    void close(double time, std::vector<double>& times, BufrRows::Columns& rows) {
        times.push_back(time);
        BufrRows::average_wind(columns[BufrRows::Wdir], columns[BufrRows::Wspd], rows[BufrRows::Wdir],
                               rows[BufrRows::Wspd]);
        for (const BufrRows::Column column :
             {BufrRows::Pres, BufrRows::Tdry, BufrRows::RH, BufrRows::Lat, BufrRows::Alt}) {
            rows[column].push_back(BufrRows::average_values(columns[column]));
        }
        rows[BufrRows::Lon].push_back(BufrRows::average_longitudes(columns[BufrRows::Lon]));
    }
};

} // namespace

BufrRows::BufrRows(std::vector<double> time, Columns columns)
    : _time(std::move(time)), _columns(std::move(columns)), _flags(_time.size(), 0) {}

double BufrRows::average_values(std::vector<double>& values) {
    double sum = 0.0;
    int count = 0;
    for (const double value : values) {
        if (value != kMissing) {
            sum += value;
            ++count;
        }
    }
    values.clear();
    return count == 0 ? kMissing : sum / count;
}

double BufrRows::halfTurn(double degrees) {
    if ((degrees >= -180.0 && degrees < 180.0) || std::abs(degrees) > 360.0) {
        return degrees;
    }
    const double rest = std::remainder(degrees, 360.0);
    return rest == 180.0 ? -180.0 : rest;
}

double BufrRows::average_longitudes(std::vector<double>& values) {
    const auto known = [](double value) { return value != kMissing; };
    const auto first = std::find_if(values.begin(), values.end(), known);
    if (first == values.end()) {
        return average_values(values);
    }
    const double start = *first;
    for (double& value : values) {
        if (known(value)) {
            value += halfTurn(value - start) - (value - start); // whole turns, so that the others keep their digits
        }
    }
    return halfTurn(average_values(values));
}

void BufrRows::average_wind(std::vector<double>& dirs, std::vector<double>& speeds, std::vector<double>& outDirs,
                            std::vector<double>& outSpeeds) {
    std::vector<double> us;
    std::vector<double> vs;
    for (std::size_t i = 0; i < dirs.size() && i < speeds.size(); ++i) {
        if (dirs[i] != kMissing && speeds[i] != kMissing) {
            us.push_back(-speeds[i] * std::sin(dirs[i] * kRadiansPerDegree));
            vs.push_back(-speeds[i] * std::cos(dirs[i] * kRadiansPerDegree));
        }
    }
    dirs.clear();
    speeds.clear();
    const double u = average_values(us);
    const double v = average_values(vs);
    if (u == kMissing || v == kMissing) {
        outDirs.push_back(kMissing);
        outSpeeds.push_back(kMissing);
        return;
    }
    const double dir = std::atan2(-u, -v) * kDegreesPerRadian;
    outDirs.push_back(dir < 0.0 ? dir + 360.0 : dir);
    outSpeeds.push_back(std::sqrt(u * u + v * v));
}

void BufrRows::resample_data() {
    std::vector<double> times;
    Columns rows;
    Bucket bucket;
    double current = kLaunchTime;
    for (std::size_t row = 0; row < size(); ++row) {
        const double second = std::trunc(_time[row]);
        if (second > current) {
            bucket.close(current, times, rows);
            current = second;
        }
        for (std::size_t column = 0; column < NumColumns; ++column) {
            bucket.columns[column].push_back(_columns[column][row]);
        }
        if (row + 1 == size()) {
            bucket.close(second, times, rows);
        }
    }
    *this = BufrRows(std::move(times), std::move(rows));
}

void BufrRows::flagLaunch() {
    const auto launch = std::find(_time.begin(), _time.end(), kLaunchTime);
    if (launch != _time.end()) {
        _flags[static_cast<std::size_t>(launch - _time.begin())] |= set_flag(kAircraftFlag);
    }
}

void BufrRows::merge_levels(const Levels& levels, bool floorTimes) {
    for (const Level& level : levels.sortByPres()) {
        double time = 0.0;
        if (level.tag() || level.empty() || !level.getFieldData(LFtime, time)) {
            continue;
        }
        const std::size_t row = rowAt(floorTimes ? std::floor(time) : time);
        _flags[row] |= flagsOf(level.levelType());
        if (_flags[row] != 0) {
            takeFields(level, row);
        }
    }
}

/// The first row at \p time, or else a new one ahead of the first later row.
std::size_t BufrRows::rowAt(double time) {
    const auto found = std::find_if(_time.begin(), _time.end(), [time](double t) { return t >= time; });
    const auto offset = found - _time.begin();
    if (found == _time.end() || *found != time) {
        _time.insert(found, time);
        for (std::vector<double>& column : _columns) {
            column.insert(column.begin() + offset, kMissing);
        }
        _flags.insert(_flags.begin() + offset, 0);
    }
    return static_cast<std::size_t>(offset);
}

void BufrRows::takeFields(const Level& level, std::size_t row) {
    for (const LevelColumn& taken : kLevelColumns) {
        double value = kMissing;
        if (level.getFieldData(taken.field, value)) {
            _columns[taken.column][row] = value;
        }
    }
}

void BufrRows::remove_missing() {
    std::size_t kept = 0;
    for (std::size_t row = 0; row < size(); ++row) {
        const bool hasValue = std::any_of(_columns.begin(), _columns.end(),
                                          [row](const std::vector<double>& column) { return column[row] != kMissing; });
        if (!hasValue && _flags[row] == 0) {
            continue;
        }
        _time[kept] = _time[row];
        _flags[kept] = _flags[row];
        for (std::vector<double>& column : _columns) {
            column[kept] = column[row];
        }
        ++kept;
    }
    _time.resize(kept);
    _flags.resize(kept);
    for (std::vector<double>& column : _columns) {
        column.resize(kept);
    }
}

std::uint32_t BufrRows::flagsOf(LevelType type) {
    switch (type) {
    case LevelType::SurfaceThermo:
    case LevelType::SurfaceWind:
        return set_flag(1);
    case LevelType::Standard:
        return set_flag(2);
    case LevelType::TropopauseLevel:
        return set_flag(3);
    case LevelType::MaxWind:
        return set_flag(4);
    case LevelType::InversionTop:
    case LevelType::InversionBottom:
    case LevelType::DoubtfulTemp:
    case LevelType::GDLTdry:
        return set_flag(5);
    case LevelType::HighestThermo:
    case LevelType::Mb110Thermo:
        return set_flag(5) | set_flag(6);
    case LevelType::GDLRH:
        return set_flag(6);
    case LevelType::Mb110Wind:
    case LevelType::GDLWspd:
    case LevelType::GDLWdir:
        return set_flag(7);
    case LevelType::MissingTdryTop:
        return set_flag(8);
    case LevelType::MissingTdryBottom:
        return set_flag(9);
    case LevelType::MissingRHTop:
        return set_flag(10);
    case LevelType::MissingRHBottom:
        return set_flag(11);
    case LevelType::HighestWind:
        return set_flag(14);
    case LevelType::Freezing:
        return set_flag(16);
    default:
        return 0;
    }
}
