#pragma once

#include "Level.h"
#include "WMOcodeGroup.h"

#include <string>
#include <vector>

class Levels;

/// The letters of a message part.
enum class WMOpartType { A = 0, B = 1, C = 2, D = 3 };

/// The code form: FM 35 TEMP, FM 36 TEMP SHIP, FM 38 TEMP MOBIL, FM 37 TEMP DROP.
enum class TempMsgType { Temp = 0, TempShip = 1, TempMobil = 2, TempDrop = 3 };

/// One section of a message part: its groups, which it makes from the level set on construction and which may be edited
/// afterwards. The level set is borrowed and outlives it.
class WMOsection {
public:
    WMOsection(const WMOsection&) = delete;
    WMOsection& operator=(const WMOsection&) = delete;
    virtual ~WMOsection() = default;

    /// Orders the sections of a part.
    int sectionNumber() const { return _sectionNumber; }
    const std::vector<WMOcodeGroup>& groups() const { return _groups; }
    std::vector<WMOcodeGroup>& groups() { return _groups; }

    /// Takes out a group; an index that isn't one changes nothing.
    void deleteGroup(int index);
    /// Inserts a new group ahead of the one at \p index, at the end when there is none.
    void insertGroup(const std::string& text, int index);

protected:
    WMOsection(const Levels& levels, WMOpartType part, int sectionNumber)
        : _levels(levels), _part(part), _sectionNumber(sectionNumber) {}

    void add(std::string text) { _groups.emplace_back(std::move(text), false); }
    void addOnNewLine(std::string text) { _groups.emplace_back(std::move(text), true); }
    /// Whether part C or D: the levels above 100 mb.
    bool isUpper() const { return _part == WMOpartType::C || _part == WMOpartType::D; }

    /// Id of the code form, from the highest standard level with wind; "/" without one.
    std::string Id() const;

    std::vector<WMOcodeGroup> _groups;
    const Levels& _levels;
    WMOpartType _part;

private:
    int _sectionNumber;
};
