#pragma once

#include "Series.h"

#include <vector>

/// Series that are judged by the first of them and hold the same number of values at the same times, such as the four
/// wind series.
using SeriesList = std::vector<Series*>;

/// Removes the values at \p indices (ascending, of the first series) from every series, and stamps \p attribute at
/// their times on every one of \p flagSeries. Null series among the latter are passed over. Returns how many indices
/// there were.
int removeAndStamp(const SeriesList& series, const std::vector<int>& indices, const SeriesList& flagSeries,
                   Value::AttributeType attribute);

/// Leaves in each of \p series only the values at the times that all of them have, when they aren't parallel already.
void makeParallel(const SeriesList& series);

/// The range of indices that a check may judge: launch and surface observations at the ends are left out. Empty when
/// last is below first.
struct JudgedRange {
    explicit JudgedRange(const Series& series);
    int first;
    int last;
};
