#include "TarvoGraphConfig.h"

#include <array>
#include <utility>

TarvoGraphConfig::TarvoGraphConfig(TarvoConfigSet* configSet)
    : TarvoAdvConfig(configSet, "Visual Parameters", config_forms::visual()) {
    begin();
}

void TarvoGraphConfig::connectSignals() {
    using G = TarvoGraphConfig;
    const std::array<std::pair<const char*, void (G::*)()>, 9> boxes{{{"xyGraphPresAuto", &G::enablePresLimits},
                                                                      {"xyGraphAltAuto", &G::enableAltLimits},
                                                                      {"xyGraphTdryAuto", &G::enableTdryLimits},
                                                                      {"xyGraphRHAuto", &G::enableRHLimits},
                                                                      {"xyGraphWspdAuto", &G::enableWspdLimits},
                                                                      {"xyGraphWdirAuto", &G::enableWdirLimits},
                                                                      {"xyGraphDzDtAuto", &G::enableDzDtLimits},
                                                                      {"xyGraphLatAuto", &G::enableLatLimits},
                                                                      {"xyGraphLonAuto", &G::enableLonLimits}}};
    for (const auto& [key, slot] : boxes) {
        connect(box(key), &QCheckBox::toggled, this, slot);
    }
}

void TarvoGraphConfig::updateFormFromConfig() {
    TarvoAdvConfig::updateFormFromConfig();
    for (const char* quantity : {"Pres", "Alt", "Tdry", "RH", "Wspd", "Wdir", "DzDt", "Lat", "Lon"}) {
        enableLimits(quantity);
    }
}

void TarvoGraphConfig::enableLimits(const char* quantity) {
    const std::string scale = std::string("xyGraph") + quantity;
    const bool automatic = box((scale + "Auto").c_str())->isChecked();
    for (const char* end : {"Min", "Max"}) {
        edit((scale + end).c_str())->setEnabled(!automatic);
    }
}
