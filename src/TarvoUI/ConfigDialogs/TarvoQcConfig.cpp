#include "TarvoQcConfig.h"

TarvoQcConfig::TarvoQcConfig(TarvoConfigSet* configSet)
    : TarvoAdvConfig(configSet, "Quality Control Parameters", config_forms::qualityControl()) {
    begin();
}

void TarvoQcConfig::connectSignals() {
    connect(box("WindDisableSatsCheck"), &QCheckBox::toggled, this, &TarvoQcConfig::hideWindSatsLimit);
    connect(box("WindDisableErrorCheck"), &QCheckBox::toggled, this, &TarvoQcConfig::hideWindErrorLimit);
}

void TarvoQcConfig::updateFormFromConfig() {
    TarvoAdvConfig::updateFormFromConfig();
    hideWindSatsLimit();
    hideWindErrorLimit();
}

void TarvoQcConfig::hideWindSatsLimit() {
    showOption("WindSats", !box("WindDisableSatsCheck")->isChecked());
}

void TarvoQcConfig::hideWindErrorLimit() {
    for (const char* key : {"WindErrorHigh", "WindErrorLow"}) {
        showOption(key, !box("WindDisableErrorCheck")->isChecked());
    }
}
