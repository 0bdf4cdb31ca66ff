#include "MadeDiagram.h"
#include "SkewTAdapterSVG.h"

#include <iostream>

/// Writes the SVG of a made sounding, with what an SVG must escape in its title.
int main() {
    skewt::SkewTAdapterSVG adapter(std::cout, 800, 600, 4);
    MadeDiagram(400).on(adapter, "<R&D> \xE9 \x02 \"quoted\"")->brandNewPlot();
    return std::cout ? 0 : 1;
}
