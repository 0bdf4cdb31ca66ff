#pragma once

#include "IsoPleth.h"

namespace skewt {

/// Lines of equal temperature, every 10 degrees.
class IsoTherms : public IsoPleth {
public:
    using IsoPleth::IsoPleth;
    void draw() override;
};

} // namespace skewt
