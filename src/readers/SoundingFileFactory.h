#pragma once

#include "SoundingFile.h"

#include <istream>
#include <memory>
#include <string>

class ConfigSet;

class SoundingFileFactory {
public:
    /// Reads \p stream to its end, tells the format from the first two lines alone, and builds its reader. Null for a
    /// format that nobody here reads, an empty or unreadable stream among them. The reader keeps no reference to
    /// \p config or \p stream.
    static std::unique_ptr<SoundingFile> newSoundingFile(ConfigSet& config, std::string fileName, std::istream* stream);
};
