#pragma once

#include "ProductColumns.h"

#include <array>
#include <initializer_list>
#include <string>

/// The columns that a writer was given, by quantity. One that it wasn't given is null.
class GivenColumns {
public:
    struct Given {
        ProductColumns::Column quantity;
        const double* values;
    };

    GivenColumns(std::initializer_list<Given> columns);

    const double* operator[](ProductColumns::Column quantity) const { return _columns[quantity]; }
    /// The value in a row; -999.0 in every row of a quantity that isn't given.
    double at(ProductColumns::Column quantity, int row) const;

private:
    std::array<const double*, ProductColumns::NumColumns> _columns{};
};

/// A field in the rows of a text product.
struct FixedField {
    ProductColumns::Column quantity;
    const char* format; ///< with what stands around the number in every row
    double missing;     ///< goes through the format in place of a missing value
};

/// Appends one field of a row to \p line.
void appendField(std::string& line, const FixedField& field, const GivenColumns& columns, int row);

/// Appends the fields of a row to \p line, one behind the other.
template <std::size_t N>
void appendFields(std::string& line, const std::array<FixedField, N>& fields, const GivenColumns& columns, int row) {
    for (const FixedField& field : fields) {
        appendField(line, field, columns, row);
    }
}
