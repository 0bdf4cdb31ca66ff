#pragma once

#include <string>

/// The kind of file a sounding came from. The numbers are part of stored data.
enum class SoundingType : int {
    Unknown = 0, ///< ascending CSV
    Mirra = 1,
    Trove = 2,
    Ombra = 3,      ///< Ombra D files, VESTA, descending CSV
    OmbraOther = 4, ///< no reader makes it
    Pelo = 5,
    Zor = 6,
    Frd = 7,
    Csv = 8, ///< no reader makes it
    Wmo = 9,
    Mw41 = 10,
};

/// The printable name of \p type; "Unknown" for a number outside the list.
std::string SoundingTypeName(SoundingType type);
