#pragma once

#include <cstdint>

// When products are made. The environment variable TARVO_OVERRIDE_PROCESSING_TIME (s since 1970) prescribes a time, so
// that products can be reproduced to the byte.

/// The prescribed time, s since 1970. False when none is prescribed.
bool prescribedProcessingTime(std::int64_t& seconds);

/// The prescribed time, or else the present, s since 1970.
std::int64_t processingTime();
