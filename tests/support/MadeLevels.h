#pragma once

#include "Levels.h"

#include <initializer_list>
#include <utility>

/// A level set that a test fills by hand: nothing is derived, and no series stands behind it.
class MadeLevels {
public:
    using Fields = std::initializer_list<std::pair<LevelFieldId, double>>;

    MadeLevels() : levels(_agent, _summary, series(), LevelCriteria{}, LevelSetting{}) {}

    Level& add(LevelType type, Fields fields) {
        Level level(type);
        for (const auto& [id, value] : fields) {
            level.setField(id, value);
        }
        levels.append(level);
        return levels.levels().back();
    }

private:
    LevelSeries series() const { return {_none, _none, _none, _none, _none, _none, _none, _none, _none, _none, _none}; }

    StatusAgent _agent;
    Summary _summary;
    Series _none;

public:
    Levels levels;
};
