#pragma once

#include "IsoPleth.h"

namespace skewt {

/// Lines of equal potential temperature.
class Adiabats : public IsoPleth {
public:
    using IsoPleth::IsoPleth;
    void draw() override;
};

} // namespace skewt
