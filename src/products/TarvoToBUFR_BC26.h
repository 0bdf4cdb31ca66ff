#pragma once

#include "TarvoToBUFR.h"

/// A descending sounding: the sequence 309053 of TEMP DROP reports.
class TarvoToBUFR_BC26 : public TarvoToBUFR {
public:
    TarvoToBUFR_BC26();
    ~TarvoToBUFR_BC26() override = default;
};
