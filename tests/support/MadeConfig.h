#pragma once

#include "ConfigSet.h"

/// A configuration without a store, holding the items that the analysis of a sounding reads.
class MadeConfig {
public:
    MadeConfig() : set(&_registry) {
        for (const char* key : {"DiscardBadCrcData", "DropsondeHitSfc", "UseIgnoredLaunch"}) {
            set.add(key, 1.0, false, false, true);
        }
        for (const char* key : {"SfcAltUnknown", "SetHtsMissing", "ReportObservedPos", "RHchoice", "PresOffset",
                                "TdryOffset", "RHOffset", "RHThreshold", "descendingPELO"}) {
            set.add(key, 0.0, false, false, true);
        }
        set.add("DoQC", 1.0, false, false, true);
        for (const char* key : {"Agency", "PlatformType", "PlatformId", "Project", "Flight", "QCDisclaimer"}) {
            set.add(key, "", false, false, false);
        }
        set.add("CallSign", "CALL", false, true, false);
    }

    /// As the user's override of one sounding.
    void override(const std::string& key, double value) { set.add(key, value, false, false, true); }

private:
    Registry _registry;

public:
    ConfigSet set;
};
