#pragma once

#include <cstdlib>

/// While it lives, products and headers tell this time of processing instead of the clock's: two of them made at
/// different moments can be compared.
class PrescribedTime {
public:
    /// 1 August 2021, 12:00:03 UTC.
    PrescribedTime() { set("1627819203"); }
    PrescribedTime(const PrescribedTime&) = delete;
    PrescribedTime& operator=(const PrescribedTime&) = delete;
    ~PrescribedTime() { unsetenv(kVariable); }

    /// Another time, in seconds since 1970.
    void set(const char* seconds) { setenv(kVariable, seconds, 1); }

private:
    static constexpr const char* kVariable = "TARVO_OVERRIDE_PROCESSING_TIME";
};
