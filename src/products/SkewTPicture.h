#pragma once

#include "SkewT.h"

#include <memory>
#include <ostream>
#include <vector>

class ConfigSet;
class EditorControl;

/// What a Skew-T shows.
enum class SkewTSource { Raw = 0, QC = 1, Levels = 2 };

/// The columns of a diagram, of equal length: mb, deg C, m/s, degrees; -999.0 is missing.
struct SkewTData {
    std::vector<double> pres;
    std::vector<double> tdry;
    std::vector<double> dp;
    std::vector<double> wspd;
    std::vector<double> wdir;
};

/// The data of a source; empty when the sounding doesn't have it.
SkewTData skewTData(const EditorControl& editor, SkewTSource source);

/// The source of a picture that nobody chose one for: QC data where there are any.
SkewTSource defaultSkewTSource(const EditorControl& editor);

/// The limits of the diagram, and the size of pictures, as the configuration has them: temperatures within 1000 deg C
/// of 0, pressures from 1 to 2000 mb. Limits that make no range give way to the usual ones.
struct SkewTSetup {
    SkewTSetup() = default;
    explicit SkewTSetup(const ConfigSet& config);

    int numWinds = 20;
    double tmin = -40.0;     ///< deg C
    double tmax = 40.0;      ///< deg C
    double pTop = 100.0;     ///< mb
    double pBottom = 1050.0; ///< mb
    int pixelsX = 1000;
    int pixelsY = 700;
};
bool operator==(const SkewTSetup& a, const SkewTSetup& b);

/// A diagram of the sounding on \p adapter, which outlives it.
std::unique_ptr<skewt::SkewT> makeSkewT(skewt::SkewTAdapter& adapter, const SkewTData& data,
                                        const EditorControl& editor, const SkewTSetup& setup);

/// The diagram as an SVG document, with a mark at each datum of the traces or with their lines alone.
void writeSkewTSvg(std::ostream& stream, const SkewTData& data, const EditorControl& editor, const SkewTSetup& setup,
                   bool marks = true);
