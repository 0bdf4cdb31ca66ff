#pragma once

#include "WMOsection.h"

/// What significant levels of temperature and of wind have in common: the choice of levels and their numbering.
class SignificantSection : public WMOsection {
protected:
    SignificantSection(const Levels& levels, WMOpartType part, int sectionNumber);

    /// The untagged levels of these types in the layer of the part, smallest pressure first.
    std::vector<Level> select(const std::vector<LevelType>& types) const;
    /// Numbers the levels from the largest pressure up: 00 is the surface, a level of type \p surface, which has
    /// slashes when it isn't there, and the others run 11 to 99 and round again. \p values makes the second group.
    void addNumbered(const std::vector<Level>& selected, LevelType surface, std::string (*values)(const Level&));
};

/// Temperature and humidity.
class WMOsection5 : public SignificantSection {
public:
    WMOsection5(const Levels& levels, WMOpartType part);
};

/// Wind, behind 21212.
class WMOsection6 : public SignificantSection {
public:
    WMOsection6(const Levels& levels, WMOpartType part);
};
