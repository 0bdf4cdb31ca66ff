#include "BuddyCheck.h"

#include "DCapture.h"

#include <cmath>

int BuddyCheck::check(const SeriesList& series, double limit, const SeriesList& flagSeries) const {
    const Series& judged = *series.front();
    DCapture::dcout << "Buddy check for " << judged.id().name() << ", limit " << limit << "\n";
    const int last = judged.lastIndex();
    if (last < 2) {
        return 0;
    }
    const double slope = judged.trend().slope();
    const double offset = judged.trend().offset();
    const auto residual = [&](int i) { return judged.data(i) - (judged.time(i) * slope + offset); };
    const auto steepness = [&](int i) { // from the value before to value i
        return (residual(i) - residual(i - 1)) / (judged.time(i) - judged.time(i - 1));
    };
    std::vector<int> failed;
    const auto fail = [&](int i) {
        if (!judged.testAttribute(i, Value::QcKeep)) {
            failed.push_back(i);
        }
    };
    double before = steepness(1);
    for (int i = 2; i <= last; ++i) {
        const double behind = steepness(i);
        if (std::abs(before) > limit && std::abs(behind) > limit && before * behind < 0.0) {
            fail(i - 1);
        }
        if (i == last && std::abs(behind) > limit) {
            fail(i);
        }
        before = behind;
    }
    for (auto i = failed.rbegin(); i != failed.rend(); ++i) {
        DCapture::dcout << "   Removing " << judged.data(*i) << " (time " << judged.time(*i) << ")\n";
    }
    return removeAndStamp(series, failed, flagSeries, Value::QcBuddyCheck);
}

int BuddyCheck::check(Series* series, double limit, Series* flagSeries) const {
    return check(SeriesList{series}, limit, SeriesList{flagSeries});
}
