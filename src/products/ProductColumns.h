#pragma once

#include "DataArray.h"

#include <array>
#include <vector>

class ConfigSet;
class EditorControl;

/// The nineteen columns that every product writer takes its subset of, in rows of one time each. Missing cells are
/// -999.0; a quantity that the sounding doesn't have is a column of nothing else. The last four, which can be worked
/// out from the others, are null when the file didn't give them.
class ProductColumns {
public:
    enum Column {
        Time,          ///< s from launch
        Pres,          ///< mb
        Tdry,          ///< deg C
        RH,            ///< %
        Wspd,          ///< m/s
        Wdir,          ///< degrees
        U,             ///< m/s eastward
        V,             ///< m/s northward
        W,             ///< m/s upward, of the air
        Lat,           ///< degrees
        Lon,           ///< degrees
        Alt,           ///< m
        GpsAlt,        ///< m
        Dz,            ///< m/s upward, of the sonde
        Sats,          ///< count
        DewPoint,      ///< deg C, as the file gave it
        MixingRatio,   ///< g/kg, likewise
        VirtualTemp,   ///< K, likewise
        PotentialTemp, ///< K, likewise
        NumColumns
    };

    /// The columns of the raw data.
    static ProductColumns raw(const EditorControl& editor);
    /// The columns of the QC data, with the observed position when ReportObservedPos is on and else the one integrated
    /// from the winds. No rows before QC has run.
    static ProductColumns qc(const EditorControl& editor, const ConfigSet& config);

    ProductColumns(const ProductColumns&) = delete;
    ProductColumns(ProductColumns&&) = default;
    ProductColumns& operator=(const ProductColumns&) = delete;

    int nRows() const { return _rows.nRows(); }
    /// The nRows() values of a column; null without rows.
    const double* operator[](Column column) const { return _columns[column]; }
    /// Whether row 0 is the launch observation.
    bool firstDataIsPrelaunch() const { return _rows.firstDataIsPrelaunch(); }

private:
    using Sources = std::array<const Series*, NumColumns>;

    explicit ProductColumns(const Sources& sources);

    DataArray _rows;
    std::vector<double> _missing;
    std::array<const double*, NumColumns> _columns{};
};
