#pragma once

#include "ConfigSet.h"

#include <string>

/// The set that registers every parameter of the system (see ParameterTable.h) against a store. It reflects the set
/// that is active in the store at construction.
class TarvoConfigSet : public ConfigSet {
public:
    /// The values of the parameter DoQC.
    enum DOQC_CHOICES {
        DOQC_NONE = 0, ///< no QC, no products
        DOQC_NORMAL = 1,
        DOQC_PASS = 2,       ///< no QC, products are made
        DOQC_TD_DRY_BIAS = 3 ///< only the correction of the temperature-dependent dry bias
    };

    explicit TarvoConfigSet(Registry* registry);

    /// "none", "normal", "pass" or "tddrybias"; "none" for a number that isn't a choice.
    static std::string doqcToString(int choice);
    /// The choice of that name. Throws std::runtime_error for an unknown one.
    static DOQC_CHOICES stringToDoqc(const std::string& name);

private:
    void init();
};
