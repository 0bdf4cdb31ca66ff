#pragma once

#include <cstdlib>

/// Ends the program, which the fuzzer takes for a finding, when what always holds doesn't.
inline void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}
