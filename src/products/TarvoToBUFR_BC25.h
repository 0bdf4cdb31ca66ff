#pragma once

#include "TarvoToBUFR.h"

/// An ascending sounding: the sequence 309052 of TEMP, TEMP SHIP and TEMP MOBIL reports.
class TarvoToBUFR_BC25 : public TarvoToBUFR {
public:
    TarvoToBUFR_BC25();
    ~TarvoToBUFR_BC25() override = default;
};
