#pragma once

#include "IsoPleth.h"
#include "SkewTMetFormulas.h"

namespace skewt {

/// Pseudo-adiabats: the ways of saturated air whose water falls out at once, below 200 mb.
class PAdiabats : public IsoPleth {
public:
    using IsoPleth::IsoPleth;
    void draw() override;

private:
    SkewTMetFormulas _formulas;
};

} // namespace skewt
