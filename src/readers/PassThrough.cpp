#include "PassThrough.h"

#include "TarvoConfigSet.h"

bool forcePassThrough(ConfigSet& config) {
    constexpr double kPassThrough = TarvoConfigSet::DOQC_PASS;
    double mode = TarvoConfigSet::DOQC_NORMAL;
    config.value("DoQC", mode);
    if (mode == kPassThrough) {
        return false;
    }
    config.add("DoQC", kPassThrough, false, false, true);
    return true;
}
