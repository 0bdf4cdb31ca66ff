#include "DataArray.h"

#include "Missing.h"

#include <algorithm>

void DataArray::addSeries(const Series* series) {
    const auto column = static_cast<std::int32_t>(_columns.size());
    std::vector<ValueId> values;
    values.reserve(static_cast<std::size_t>(series->lastIndex() + 1));
    for (const Value& value : *series) {
        values.emplace_back(value, column);
    }
    _columns.push_back(std::move(values));
    _ids.push_back(series->id());
}

void DataArray::generate() {
    _matrix.clear();
    _nRows = 0;

    std::vector<ValueId> merged;
    for (const auto& column : _columns) {
        merged.insert(merged.end(), column.begin(), column.end());
    }
    if (merged.empty()) {
        return;
    }
    // Stable, so that of equal times in one column the last one stands.
    std::stable_sort(merged.begin(), merged.end());

    _nRows = 1;
    for (std::size_t i = 1; i < merged.size(); ++i) {
        _nRows += merged[i].time() != merged[i - 1].time() ? 1 : 0;
    }
    _matrix.assign(_columns.size() * static_cast<std::size_t>(_nRows), kMissing);

    std::size_t row = 0;
    for (std::size_t i = 0; i < merged.size(); ++i) {
        if (i > 0 && merged[i].time() != merged[i - 1].time()) {
            ++row;
        }
        _matrix[static_cast<std::size_t>(merged[i].id()) * static_cast<std::size_t>(_nRows) + row] = merged[i].data();
        if (row == 0 && merged[i].isObservation()) {
            _firstDataIsPrelaunch = true;
        }
    }
}

const double* DataArray::getColumn(int column) const {
    if (column < 0 || static_cast<std::size_t>(column) >= _columns.size() || _nRows == 0) {
        return nullptr;
    }
    return _matrix.data() + static_cast<std::size_t>(column) * static_cast<std::size_t>(_nRows);
}

const double* DataArray::getColumn(const Id& id) const {
    const auto found = std::find(_ids.begin(), _ids.end(), id);
    return found == _ids.end() ? nullptr : getColumn(static_cast<int>(found - _ids.begin()));
}
