#pragma once

#include "ProductColumns.h"

#include <array>
#include <vector>

/// Columns as a QC run leaves them, each with a gap in every seventh row, made so that no two cells are alike.
struct MadeColumns {
    using C = ProductColumns;

    explicit MadeColumns(int rows) {
        for (int column = 0; column < C::NumColumns; ++column) {
            const Range& range = kRanges[static_cast<std::size_t>(column)];
            for (int row = 0; row < rows; ++row) {
                const double place = ((row * 37 + column * 11) % 101) / 100.0;
                const bool gap = column != C::Time && (row + column) % 7 == 3;
                const double value = range.low + place * (range.high - range.low);
                values[static_cast<std::size_t>(column)].push_back(gap                 ? -999.0
                                                                   : column == C::Time ? row * 0.5 - 1.0
                                                                                       : value);
            }
        }
    }
    const double* operator[](C::Column column) const { return values[column].data(); }

    std::array<std::vector<double>, C::NumColumns> values;

private:
    struct Range {
        double low;
        double high;
    };
    static constexpr std::array<Range, C::NumColumns> kRanges{{{0, 0},
                                                               {5, 1040},
                                                               {-60.3, 41.7},
                                                               {0, 100},
                                                               {0, 99.94},
                                                               {0, 360},
                                                               {-99.9, 99.9},
                                                               {-99.9, 99.9},
                                                               {-9.7, 9.7},
                                                               {-89.123, 89.123},
                                                               {-179.123456, 179.9},
                                                               {-99, 35999},
                                                               {-98, 35998.6},
                                                               {-29.9, 9.9},
                                                               {0, 12},
                                                               {-90, 30},
                                                               {0.01, 20},
                                                               {200, 310},
                                                               {250, 900}}};
};
