#pragma once

#include "SoundingFile.h"

#include <string>
#include <vector>

/// A text with a WMO TEMP, TEMP SHIP, TEMP MOBIL or TEMP DROP message. It has no samples: what it holds is unLevels().
///
/// A message knows the day of the month and the time, but no month and no year: they are those of January 1970. One
/// that doesn't decode makes the file invalid, and the error text says where it goes wrong. Of several soundings it
/// holds the first, and the error text says that there are more.
class WMOFile : public SoundingFile {
public:
    WMOFile(std::string fileName, std::vector<std::string> lines);

private:
    void takeTime();
};
