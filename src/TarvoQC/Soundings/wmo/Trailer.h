#pragma once

#include "WMOsection.h"

/// The text that closes a part.
class Trailer : public WMOsection {
public:
    static constexpr int kNumber = 100;

    Trailer(const Levels& levels, WMOpartType part, const std::string& text) : WMOsection(levels, part, kNumber) {
        add(text);
    }
};
