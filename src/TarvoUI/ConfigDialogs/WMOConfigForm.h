#pragma once

#include "TarvoAdvConfig.h"

/// The messages TEMP and BUFR of a station.
class WMOConfigForm : public TarvoAdvConfig {
    Q_OBJECT

public:
    explicit WMOConfigForm(TarvoConfigSet* configSet);
};
