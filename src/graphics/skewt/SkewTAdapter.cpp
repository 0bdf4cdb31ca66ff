#include "SkewTAdapter.h"

#include <array>

namespace skewt {

const char* SkewTAdapter::colourName(unsigned colour) {
    static constexpr std::array<const char*, 5> kNames{"black", "red", "green", "blue", "grey"};
    return colour < kNames.size() ? kNames[colour] : kNames[kBlack];
}

} // namespace skewt
