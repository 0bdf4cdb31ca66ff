#include "FixedFields.h"

#include "Missing.h"
#include "Text.h"

GivenColumns::GivenColumns(std::initializer_list<Given> columns) {
    for (const Given& column : columns) {
        _columns[column.quantity] = column.values;
    }
}

double GivenColumns::at(ProductColumns::Column quantity, int row) const {
    return _columns[quantity] == nullptr ? kMissing : _columns[quantity][row];
}

void appendField(std::string& line, const FixedField& field, const GivenColumns& columns, int row) {
    const double value = columns.at(field.quantity, row);
    appendFormat(line, field.format, value == kMissing ? field.missing : value);
}
