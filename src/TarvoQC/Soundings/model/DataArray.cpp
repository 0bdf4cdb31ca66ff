#include "DataArray.h"

#include "Missing.h"

#include <algorithm>
#include <iterator>

void DataArray::addSeries(const Series* series) {
    const auto column = static_cast<std::int32_t>(_columns.size());
    std::vector<ValueId> values;
    values.reserve(static_cast<std::size_t>(series->lastIndex()) + 1);
    for (const Value& value : *series) {
        values.emplace_back(value, column);
    }
    _columns.push_back(std::move(values));
    _ids.push_back(series->id());
}

void DataArray::generate() {
    _matrix.clear();
    _nRows = 0;

    std::vector<double> times;
    std::vector<double> united;
    for (auto& column : _columns) {
        // Stable, so that of equal times in one column the last one stands.
        if (!std::is_sorted(column.begin(), column.end())) {
            std::stable_sort(column.begin(), column.end());
        }
        std::vector<double> own(column.size());
        std::transform(column.begin(), column.end(), own.begin(), [](const Value& value) { return value.time(); });
        united.clear();
        std::set_union(times.begin(), times.end(), own.begin(), own.end(), std::back_inserter(united));
        times.swap(united);
    }
    times.erase(std::unique(times.begin(), times.end()), times.end());
    _nRows = static_cast<int>(times.size());
    _matrix.assign(_columns.size() * times.size(), kMissing);
    for (std::size_t i = 0; i < _columns.size(); ++i) {
        double* const values = _matrix.data() + i * times.size();
        std::size_t row = 0;
        for (const Value& value : _columns[i]) {
            while (times[row] < value.time()) {
                ++row;
            }
            values[row] = value.data();
            _firstDataIsPrelaunch = _firstDataIsPrelaunch || (row == 0 && value.isObservation());
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
