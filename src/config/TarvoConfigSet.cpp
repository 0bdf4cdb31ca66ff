#include "TarvoConfigSet.h"

#include "ParameterTable.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <stdexcept>

namespace {
constexpr std::array<const char*, 4> kDoqcNames = {"none", "normal", "pass", "tddrybias"};
}

TarvoConfigSet::TarvoConfigSet(Registry* registry) : ConfigSet(registry) {
    init();
}

void TarvoConfigSet::init() {
    for (const Parameter& parameter : parameterTable()) {
        if (!parameter.isRegistered()) {
            continue;
        }
        const std::string key(parameter.key);
        if (parameter.isNumeric()) {
            add(key, parameter.builtInNumber, parameter.isBound(), parameter.immediate, parameter.outputAttribute);
        } else {
            add(key, std::string(parameter.builtInText), parameter.isBound(), parameter.immediate,
                parameter.outputAttribute);
        }
    }
}

std::string TarvoConfigSet::doqcToString(int choice) {
    const bool known = choice >= DOQC_NONE && choice <= DOQC_TD_DRY_BIAS;
    return kDoqcNames[known ? static_cast<std::size_t>(choice) : 0];
}

TarvoConfigSet::DOQC_CHOICES TarvoConfigSet::stringToDoqc(const std::string& name) {
    const auto* const found = std::find(kDoqcNames.begin(), kDoqcNames.end(), name);
    if (found == kDoqcNames.end()) {
        throw std::runtime_error("not a recognized qc mode: " + name);
    }
    return static_cast<DOQC_CHOICES>(std::distance(kDoqcNames.begin(), found));
}
