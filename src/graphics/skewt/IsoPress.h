#pragma once

#include "IsoPleth.h"

namespace skewt {

/// Lines of equal pressure, the closer the less the plot spans.
class IsoPress : public IsoPleth {
public:
    using IsoPleth::IsoPleth;
    void draw() override;
};

} // namespace skewt
