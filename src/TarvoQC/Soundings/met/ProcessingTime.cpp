#include "ProcessingTime.h"

#include <cstdlib>
#include <ctime>

bool prescribedProcessingTime(std::int64_t& seconds) {
    const char* prescribed = std::getenv("TARVO_OVERRIDE_PROCESSING_TIME");
    if (prescribed == nullptr) {
        return false;
    }
    seconds = std::strtoll(prescribed, nullptr, 10);
    return true;
}

std::int64_t processingTime() {
    std::int64_t seconds = 0;
    return prescribedProcessingTime(seconds) ? seconds : std::time(nullptr);
}
