#pragma once

// What several steps of QC take for granted.

constexpr double kMaxGap = 60.0;    ///< s, across which a quantity may be interpolated
constexpr double kDefaultRH = 50.0; ///< %, of air whose humidity isn't known
