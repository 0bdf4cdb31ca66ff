#include "ParallelSeries.h"

#include "QcAttribute.h"

#include <algorithm>

int removeAndStamp(const SeriesList& series, const std::vector<int>& indices, const SeriesList& flagSeries,
                   Value::AttributeType attribute) {
    if (series.empty() || indices.empty()) {
        return 0;
    }
    SeriesList flagged;
    std::copy_if(flagSeries.begin(), flagSeries.end(), std::back_inserter(flagged),
                 [](const Series* candidate) { return candidate != nullptr; });
    const QcAttribute stamp(flagged, attribute);
    std::vector<bool> condemned(static_cast<std::size_t>(series.front()->lastIndex()) + 1, false);
    for (const int i : indices) {
        condemned[static_cast<std::size_t>(i)] = true;
        stamp.setAttribute(series.front()->time(i));
    }
    for (Series* member : series) {
        member->removeIf([&](int i, const Value&) {
            return static_cast<std::size_t>(i) < condemned.size() && condemned[static_cast<std::size_t>(i)];
        });
    }
    return static_cast<int>(indices.size());
}

void makeParallel(const SeriesList& series) {
    const Series& first = *series.front();
    const auto sameTimes = [&](const Series* member) {
        return std::equal(member->begin(), member->end(), first.begin(), first.end(),
                          [](const Value& a, const Value& b) { return a.time() == b.time(); });
    };
    if (std::all_of(series.begin(), series.end(), sameTimes)) {
        return;
    }
    for (const Series* member : series) {
        *series.front() = series.front()->matchSeries(*member).first;
    }
    for (Series* member : series) {
        *member = member->matchSeries(*series.front()).first;
    }
}

JudgedRange::JudgedRange(const Series& series)
    : first(!series.empty() && series.getValue(0).isObservation() ? 1 : 0),
      last(series.lastIndex() - (!series.empty() && series.getValue(series.lastIndex()).isObservation() ? 1 : 0)) {}
