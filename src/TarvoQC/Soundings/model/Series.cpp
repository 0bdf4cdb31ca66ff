#include "Series.h"

#include "DCapture.h"

#include <cmath>
#include <cstdio>

namespace {

bool between(double x, double a, double b) {
    return (a <= x && x <= b) || (b <= x && x <= a);
}

/// y at x on the straight line through (x0, y0) and (x1, y1), exactly that of an end at the end, even when the other
/// end isn't a number; the mean of the two when x0 equals x1.
double onLine(double x, double x0, double y0, double x1, double y1) {
    if (x0 == x1) {
        return (y0 + y1) / 2.0;
    }
    if (x == x0 || x == x1) {
        return x == x0 ? y0 : y1;
    }
    return y0 + (y1 - y0) * (x - x0) / (x1 - x0);
}

} // namespace

/// The data or the number of values changed, the order of the times didn't.
void Series::dataChanged() {
    _dirty = true;
    _hull.low.clear();
    _hull.high.clear();
}

void Series::timesChanged() {
    dataChanged();
    _order = Order::Unknown;
}

void Series::reset(const Id& id) {
    removeAll();
    _id = id;
}

void Series::removeAll() {
    _values.clear();
    _trend = Trend();
    timesChanged();
}

void Series::setTime(int i, double time) {
    at(i).setTime(time);
    timesChanged();
}

void Series::setData(int i, double data) {
    at(i).setData(data);
    dataChanged();
}

void Series::remove(int i) {
    _values.erase(_values.begin() + i);
    dataChanged();
}

void Series::appendValue(double data, double time) {
    const bool stillAscending = _order == Order::Ascending && (empty() || _values.back().time() <= time);
    _values.emplace_back(data, time);
    timesChanged();
    if (stillAscending) {
        _order = Order::Ascending;
    }
}

void Series::prependValue(double data, double time) {
    _values.insert(_values.begin(), Value(data, time));
    timesChanged();
}

int Series::insertValue(const Value& value) {
    const auto where =
        std::find_if(_values.begin(), _values.end(), [&](const Value& other) { return other.time() >= value.time(); });
    const auto placed = _values.insert(where, value);
    timesChanged();
    return static_cast<int>(placed - _values.begin());
}

void Series::sortByTime() {
    if (!isAscending()) {
        std::stable_sort(_values.begin(), _values.end());
        timesChanged();
    }
}

std::vector<double> Series::timeArray() const {
    std::vector<double> times;
    times.reserve(_values.size());
    for (const Value& value : _values) {
        times.push_back(value.time());
    }
    return times;
}

std::vector<double> Series::dataArray() const {
    std::vector<double> data;
    data.reserve(_values.size());
    for (const Value& value : _values) {
        data.push_back(value.data());
    }
    return data;
}

const Trend& Series::trend() const {
    if (_dirty) {
        _trend = Trend(*this);
        _dirty = false;
    }
    return _trend;
}

void Series::clearAttribute(Value::AttributeType attribute) {
    for (Value& value : _values) {
        value.clearAttribute(attribute);
    }
}

bool Series::isAscending() const {
    if (_order == Order::Unknown) {
        const auto backward = std::adjacent_find(
            _values.begin(), _values.end(), [](const Value& a, const Value& b) { return !(a.time() <= b.time()); });
        _order = backward == _values.end() ? Order::Ascending : Order::Other;
    }
    return _order == Order::Ascending;
}

/// Index of the first value at or after \p time in an ascending series; the size when there is none. Tries the place of
/// the last look-up and the one behind it before it searches.
int Series::lowerBound(double time) const {
    const auto isIt = [&](int i) {
        return i <= lastIndex() && at(i).time() >= time && (i == 0 || at(i - 1).time() < time);
    };
    if (!isIt(_cursor) && !isIt(++_cursor)) {
        _cursor =
            static_cast<int>(std::lower_bound(_values.begin(), _values.end(), Value(0.0, time)) - _values.begin());
    }
    return _cursor;
}

int Series::indexFromTime(double time) const {
    if (isAscending()) {
        const int i = lowerBound(time);
        return i <= lastIndex() && at(i).time() == time ? i : -1;
    }
    const auto found =
        std::find_if(_values.begin(), _values.end(), [&](const Value& value) { return value.time() == time; });
    return found == _values.end() ? -1 : static_cast<int>(found - _values.begin());
}

int Series::indexNear(double time, double tolerance) const {
    // A little early, since the difference of two times is rounded, and the rest of the way on foot.
    const int start = isAscending() ? lowerBound(time - 2.0 * tolerance) : 0;
    const auto found = std::find_if(_values.begin() + start, _values.end(),
                                    [&](const Value& value) { return time - value.time() < tolerance; });
    return found == _values.end() ? -1 : static_cast<int>(found - _values.begin());
}

/// Index of the first member of the first adjacent pair that brackets \p time, in either order, or has a member at it
/// next to a time that isn't a number; -1 without one.
int Series::firstPairAtTime(double time) const {
    if (isAscending()) {
        const int i = lowerBound(time);
        if (i > lastIndex() || (i == 0 && at(0).time() != time)) {
            return -1;
        }
        return std::max(i - 1, 0);
    }
    for (int i = 0; i < lastIndex(); ++i) {
        const double a = at(i).time();
        const double b = at(i + 1).time();
        if (time == a || time == b || between(time, a, b)) {
            return i;
        }
    }
    return -1;
}

/// The same for a datum. Between two samples a series passes through every datum, so the first pair that brackets one
/// is the first whose second member widens the range of the data so far to hold it.
int Series::firstPairAtData(double data) const {
    if (_hull.low.empty() && !makeHull()) {
        for (int i = 0; i < lastIndex(); ++i) {
            if (between(data, at(i).data(), at(i + 1).data())) {
                return i;
            }
        }
        return -1;
    }
    const auto low = std::partition_point(_hull.low.begin(), _hull.low.end(), [&](double x) { return x > data; });
    const auto high = std::partition_point(_hull.high.begin(), _hull.high.end(), [&](double x) { return x < data; });
    const int i = static_cast<int>(std::max(low - _hull.low.begin(), high - _hull.high.begin()));
    return i > lastIndex() || std::isnan(data) ? -1 : std::max(i - 1, 0);
}

/// False, and no hull, when a datum isn't a number: ranges say nothing then.
bool Series::makeHull() const {
    if (std::any_of(_values.begin(), _values.end(), [](const Value& value) { return std::isnan(value.data()); })) {
        return false;
    }
    double low = at(0).data();
    double high = low;
    _hull.low.reserve(_values.size());
    _hull.high.reserve(_values.size());
    for (const Value& value : _values) {
        low = std::min(low, value.data());
        high = std::max(high, value.data());
        _hull.low.push_back(low);
        _hull.high.push_back(high);
    }
    return true;
}

bool Series::interpolate(double time, double maxGap, double& out) const {
    if (lastIndex() < 1) {
        if (empty() || at(0).time() != time) {
            return false;
        }
        out = at(0).data();
        return true;
    }
    const int i = firstPairAtTime(time);
    if (i < 0) {
        return false;
    }
    const Value& a = at(i);
    const Value& b = at(i + 1);
    if (time == a.time() || time == b.time()) {
        out = time == a.time() ? a.data() : b.data();
        return true;
    }
    if (std::abs(b.time() - a.time()) > maxGap) {
        return false;
    }
    out = onLine(time, a.time(), a.data(), b.time(), b.data());
    return true;
}

bool Series::interpTime(double data, double& out) const {
    if (lastIndex() < 1) {
        if (empty() || at(0).data() != data) {
            return false;
        }
        out = at(0).time();
        return true;
    }
    const int i = firstPairAtData(data);
    if (i < 0) {
        return false;
    }
    const Value& a = at(i);
    const Value& b = at(i + 1);
    out = onLine(data, a.data(), a.time(), b.data(), b.time());
    return true;
}

bool Series::extrapolate(double time, double span, double& out) const {
    if (empty()) {
        return false;
    }
    const double firstTime = at(0).time();
    const double lastTime = at(lastIndex()).time();
    if (firstTime <= time && time <= lastTime) {
        return interpolate(time, span, out);
    }
    const bool before = time < firstTime;
    const int step = before ? 1 : -1;
    int n = 0;
    bool oneTime = true;
    double sumT = 0.0;
    double sumY = 0.0;
    double sumTY = 0.0;
    double sumTT = 0.0;
    for (int i = before ? 0 : lastIndex(); i >= 0 && i <= lastIndex() && std::abs(at(i).time() - time) <= span;
         i += step) {
        ++n;
        oneTime = oneTime && at(i).time() == (before ? firstTime : lastTime);
        sumT += at(i).time();
        sumY += at(i).data();
        sumTY += at(i).time() * at(i).data();
        sumTT += at(i).time() * at(i).time();
    }
    if (n == 0) {
        return false;
    }
    const double meanT = sumT / n;
    const double meanY = sumY / n;
    if (n == 1) {
        out = meanY;
        return true;
    }
    const double variance = sumTT - n * meanT * meanT;
    // Rounding can leave a variance to values of one time, and a line out of nothing.
    if (oneTime || variance == 0.0) {
        return false;
    }
    const double slope = (sumTY - n * meanT * meanY) / variance;
    out = meanY + slope * (time - meanT);
    return true;
}

bool Series::average(int first, int last, double& out) const {
    if (first >= last || first < 0 || last > lastIndex() + 1) {
        return false;
    }
    double sum = 0.0;
    for (int i = first; i < last; ++i) {
        sum += at(i).data();
    }
    out = sum / (last - first);
    return true;
}

void Series::timeTrimLeft(double t) {
    const auto kept =
        std::find_if(_values.begin(), _values.end(), [&](const Value& value) { return value.time() > t; });
    if (kept != _values.begin()) {
        _values.erase(_values.begin(), kept);
        dataChanged();
    }
}

void Series::timeTrimRight(double t) {
    std::size_t kept = _values.size();
    while (kept > 1 && _values[kept - 1].time() > t) {
        --kept;
    }
    if (kept < _values.size()) {
        _values.resize(kept);
        dataChanged();
    }
}

void Series::timeTrim(double t0, double t1) {
    timeTrimLeft(t0);
    timeTrimRight(t1);
}

void Series::timeTrimMiddle(double t0, double t1) {
    removeIf([&](int, const Value& value) { return t0 < value.time() && value.time() < t1; });
}

void Series::matchSeries(const Series& other, Series& result) const {
    Series matched(_id);
    for (const Value& value : _values) {
        if (other.indexFromTime(value.time()) >= 0) {
            matched._values.push_back(value);
        }
    }
    result = std::move(matched);
}

std::pair<Series, Series> Series::matchSeries(const Series& other) const {
    std::vector<Value> theirs = other._values;
    std::stable_sort(theirs.begin(), theirs.end());
    std::vector<int> order(_values.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        order[i] = static_cast<int>(i);
    }
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return at(a) < at(b); });

    std::vector<std::pair<int, Value>> pairs; // index here, partner there
    auto partner = theirs.begin();
    for (const int i : order) {
        while (partner != theirs.end() && *partner < at(i)) {
            ++partner;
        }
        if (partner != theirs.end() && partner->time() == at(i).time()) {
            pairs.emplace_back(i, *partner++);
        }
    }
    std::sort(pairs.begin(), pairs.end(), [](const auto& a, const auto& b) { return a.first < b.first; });

    std::pair<Series, Series> matched{Series(_id), Series(other._id)};
    for (const auto& [i, value] : pairs) {
        matched.first._values.push_back(at(i));
        matched.second._values.push_back(value);
    }
    return matched;
}

std::vector<std::string> Series::dump(int first, int last, const std::string& title) const {
    last = std::min(last, lastIndex());
    std::vector<std::string> lines;
    lines.push_back(_id.name() + " values for indices " + std::to_string(first) + ":" + std::to_string(last) + " " +
                    title + "\n");
    for (int i = std::max(first, 0); i <= last; ++i) {
        char line[64];
        std::snprintf(line, sizeof line, "%12.4g (t %6.1f)", data(i), time(i));
        lines.emplace_back(line);
    }
    return lines;
}

void Series::capture(int first, int last, const std::string& title) const {
    if (!DCapture::enabled()) {
        return;
    }
    for (const std::string& line : dump(first, last, title)) {
        DCapture::dcout << line << "\n";
    }
}
