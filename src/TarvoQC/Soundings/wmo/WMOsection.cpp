#include "WMOsection.h"

#include "LevelGroups.h"
#include "Levels.h"

#include <algorithm>
#include <array>

namespace {

/// A pressure below the bound (mb) has the digit; the first row that fits holds.
struct IdRow {
    double below;
    const char* digit;
};

constexpr std::array<IdRow, 9> kIdPartA{{{200.0, "1"},
                                         {300.0, "2"},
                                         {400.0, "3"},
                                         {500.0, "4"},
                                         {700.0, "5"},
                                         {850.0, "7"},
                                         {925.0, "8"},
                                         {1000.0, "9"},
                                         {1e9, "0"}}};
constexpr std::array<IdRow, 5> kIdPartC{{{20.0, "1"}, {30.0, "2"}, {50.0, "3"}, {70.0, "5"}, {1e9, "7"}}};

template <std::size_t N>
std::string digitOf(const std::array<IdRow, N>& table, double p) {
    return std::find_if(table.begin(), table.end() - 1, [p](const IdRow& row) { return p < row.below; })->digit;
}

} // namespace

void WMOsection::deleteGroup(int index) {
    if (index >= 0 && index < static_cast<int>(_groups.size())) {
        _groups.erase(_groups.begin() + index);
    }
}

void WMOsection::insertGroup(const std::string& text, int index) {
    const int size = static_cast<int>(_groups.size());
    _groups.emplace(_groups.begin() + std::clamp(index, 0, size), text, false);
}

std::string WMOsection::Id() const {
    double p = 0.0;
    if (_part == WMOpartType::A &&
        highestWindLevel(_levels.subsetByType(LevelType::Standard, 100.0, 2000.0, true), p)) {
        return digitOf(kIdPartA, p);
    }
    if (_part == WMOpartType::C && highestWindLevel(_levels.subsetByType(LevelType::Standard, 0.0, 100.0, true), p)) {
        return digitOf(kIdPartC, p);
    }
    return "/";
}
