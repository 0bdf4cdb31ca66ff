#pragma once

#include "TarvoAdvConfig.h"

/// Scales of the XY graph and the Skew-T, and the type of the windows.
class TarvoGraphConfig : public TarvoAdvConfig {
    Q_OBJECT

public:
    explicit TarvoGraphConfig(TarvoConfigSet* configSet);
    void updateFormFromConfig() override;

private slots:
    void enablePresLimits() { enableLimits("Pres"); }
    void enableAltLimits() { enableLimits("Alt"); }
    void enableTdryLimits() { enableLimits("Tdry"); }
    void enableRHLimits() { enableLimits("RH"); }
    void enableWspdLimits() { enableLimits("Wspd"); }
    void enableWdirLimits() { enableLimits("Wdir"); }
    void enableDzDtLimits() { enableLimits("DzDt"); }
    void enableLatLimits() { enableLimits("Lat"); }
    void enableLonLimits() { enableLimits("Lon"); }

private:
    void connectSignals() override;
    /// The limits of a scale count only while it isn't automatic.
    void enableLimits(const char* quantity);
};
