#pragma once

#include "ConfigSet.h"

/// A configuration without a store, holding the items that the analysis of a sounding reads, and mild: every check that
/// can be switched off is, the limits of the others are out of reach, nothing is smoothed or adjusted, and sensors
/// settle at once. A test switches on what it is about.
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
        for (const char* key :
             {"WindDisableQCFilter", "WindDisableOutlierCheck", "WindDisableSatsCheck", "WindDisableErrorCheck",
              "PresDisableOutlierCheck", "TdryDisableOutlierCheck", "RHDisableOutlierCheck", "WindDisableW"}) {
            set.add(key, 1.0, false, false, false);
        }
        for (const char* quantity : {"Wind", "Pres", "Tdry", "RH", "GPSPos", "GPSAlt"}) {
            set.add(std::string(quantity) + "BuddySlope", 1e9, false, false, true);
            set.add(std::string(quantity) + "QCDev", 1e9, false, false, true);
            set.add(std::string(quantity) + "QCWL", 10.0, false, false, true);
            set.add(std::string(quantity) + "SmoothWL", 0.0, false, false, true);
        }
        set.add("WindVVdelta", 1e9, false, false, true);
        set.add("AltInterpSpan", 60.0, false, false, true);
        set.add("PosInterpSpan", 60.0, false, false, true);
        set.add("CabinTemp", -50.0, false, false, true); // what an unknown launch temperature counts as
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
