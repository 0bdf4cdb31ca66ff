#pragma once

#include "Series.h"

#include <vector>

/// A row matrix over several series, for the consumers that want rows: one row for each distinct time, one column for
/// each series, and -999.0 where a series has no sample. The series are read, not kept.
class DataArray {
public:
    /// Adds a column. All columns come before generate().
    void addSeries(const Series* series);

    /// Builds the matrix.
    void generate();

    int nRows() const { return _nRows; }
    /// The nRows() values of a column; null when no column has the number or the name.
    const double* getColumn(int column) const;
    const double* getColumn(const Id& id) const;

    /// Whether any value of row 0 is a launch or surface observation.
    bool firstDataIsPrelaunch() const { return _firstDataIsPrelaunch; }

private:
    std::vector<std::vector<ValueId>> _columns;
    std::vector<Id> _ids;
    int _nRows = 0;
    std::vector<double> _matrix;
    bool _firstDataIsPrelaunch = false;
};
