#pragma once

#include "IsoPleth.h"
#include "SkewTMetFormulas.h"

namespace skewt {

/// Lines of equal saturation mixing ratio, below 200 mb.
class IsoMR : public IsoPleth {
public:
    using IsoPleth::IsoPleth;
    void draw() override;

private:
    SkewTMetFormulas _formulas;
};

} // namespace skewt
