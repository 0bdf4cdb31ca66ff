#pragma once

#include "SndMetaData.h"
#include "WMOsection.h"

/// 61616 and 62626: the mission of the aircraft, and remarks in plain language on what the sonde found. Both are put in
/// once the operator's words are there; until then it is the bare 61616.
class WMOsection10 : public WMOsection {
public:
    WMOsection10(const Levels& levels, WMOpartType part);

    /// What the operator adds to the remarks.
    struct Remarks {
        std::string text;         ///< such as "EYEWALL 045"
        int retransmitObNum = -1; ///< the observation that is sent anew; none below 0
        bool corrected = false;
        bool lastReport = false;
        std::string aev;  ///< version of the software
        std::string atcf; ///< identifier of the storm
    };

    /// Replaces 61616.
    void set61616(const std::string& text);
    /// Replaces 62626, which is made of the operator's remarks and of the layer winds and places of the level set;
    /// nothing of either leaves it out.
    void set62626(const Remarks& remarks, const SndMetaData& meta);

private:
    void erase(const char* from, const char* to);
    std::string splash(const SndMetaData& meta) const;
    std::string lastWind() const;
    std::string layerWind(const char* label, LevelType type) const;
    std::string deepLayerWind() const;
    std::string lowLayerWind() const;
    std::string place(const char* label, LevelType type, const SndMetaData& meta) const;
    bool first(LevelType type, Level& out) const;
};
