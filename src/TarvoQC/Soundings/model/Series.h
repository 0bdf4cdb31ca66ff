#pragma once

#include "Id.h"
#include "Trend.h"
#include "Value.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

/// A named sequence of samples of one quantity, ascending in time. Series are independent of one another: a sample that
/// is missing in a quantity simply has no Value in that series.
///
/// Only appendValue(), prependValue() and setTime() can break the order of the times, and their callers keep it. The
/// searches are right for any order and fast for an ascending one. Indices handed in are in range.
class Series {
public:
    Series() = default;
    explicit Series(const Id& id) : _id(id) {}
    /// A copy of \p other under a new name.
    Series(const Series& other, const Id& id) : Series(other) { _id = id; }

    /// Empties the series and gives it a new name.
    void reset(const Id& id);
    /// Empties the series; it keeps its name.
    void removeAll();
    /// Makes room for \p n values, so that appending up to there moves none.
    void reserve(std::size_t n) { _values.reserve(n); }

    bool empty() const { return _values.empty(); }
    /// The size minus 1, so -1 for an empty series.
    int lastIndex() const { return static_cast<int>(_values.size()) - 1; }
    const Id& id() const { return _id; }
    void id(const Id& id) { _id = id; }

    double time(int i) const { return at(i).time(); }
    double data(int i) const { return at(i).data(); }
    const Value& getValue(int i) const { return at(i); }
    std::uint32_t attributes(int i) const { return at(i).attributes(); }

    auto begin() const { return _values.begin(); }
    auto end() const { return _values.end(); }

    void setTime(int i, double time);
    void setData(int i, double data);

    void remove(int i);
    /// Removes every value for which \p condemned(index, value) is true; asked once for each, in order.
    template <typename Predicate>
    void removeIf(Predicate condemned);

    /// Add a value without attributes at the end, or at the front.
    void appendValue(double data, double time);
    void prependValue(double data, double time);
    /// Inserts before the first value at or after its time, attributes included. Returns the index.
    int insertValue(const Value& value);

    /// Puts the values in order of time; those that share one keep their order.
    void sortByTime();

    std::vector<double> timeArray() const;
    std::vector<double> dataArray() const;

    /// The straight-line fit, computed when it is asked for and kept until a value changes.
    const Trend& trend() const;

    void setAttribute(int i, Value::AttributeType attribute) { at(i).setAttributes(attribute); }
    void clearAttribute(int i, Value::AttributeType attribute) { at(i).clearAttribute(attribute); }
    bool testAttribute(int i, Value::AttributeType attribute) const { return at(i).testAttribute(attribute); }
    /// Clears the flag on every value.
    void clearAttribute(Value::AttributeType attribute);

    /// Index of the first value whose time equals \p time exactly, else -1.
    int indexFromTime(double time) const;
    /// Index of the first value less than \p tolerance before \p time or later, else -1.
    int indexNear(double time, double tolerance) const;

    /// The value at \p time on the straight line of the first adjacent pair that brackets it, or exactly that of a
    /// sample at \p time whatever the gaps around it. False, and \p out left alone, for a time outside the series or
    /// inside a gap of more than \p maxGap seconds. Of several samples at \p time the first in the walk counts.
    bool interpolate(double time, double maxGap, double& out) const;

    /// The time of the first crossing of \p data, on the straight line of the first adjacent pair that brackets it;
    /// there is no limit on the gap. Two equal data values give the mean of their times. False without a crossing.
    bool interpTime(double data, double& out) const;

    /// interpolate() inside the series. Outside of it the least-squares line through the samples within \p span seconds
    /// of \p time, taken from the nearest end inward up to the first one further away; a single one gives its datum.
    /// False when no sample is near enough, or all of them share one time.
    bool extrapolate(double time, double span, double& out) const;

    /// Mean of the data over the indices \p first to \p last - 1. False for an empty or impossible range.
    bool average(int first, int last, double& out) const;

    /// Removes the leading values at or before \p t, up to the first later one.
    void timeTrimLeft(double t);
    /// Removes the trailing values after \p t; the first value of the series is never removed.
    void timeTrimRight(double t);
    /// timeTrimLeft(t0), then timeTrimRight(t1).
    void timeTrim(double t0, double t1);
    /// Removes the values with t0 < time < t1.
    void timeTrimMiddle(double t0, double t1);

    /// \p result becomes those of this series' values whose times also occur in \p other, under this series' name.
    void matchSeries(const Series& other, Series& result) const;
    /// Both sides' values at the common times, attributes and names included: first this series', second \p other's.
    /// The two come out of equal length, index for index at the same time; values that share a time pair off in order.
    std::pair<Series, Series> matchSeries(const Series& other) const;

    /// A head line and one "%12.4g (t %6.1f)" line for each value from \p first to \p last (cut to lastIndex()).
    std::vector<std::string> dump(int first, int last, const std::string& title) const;
    /// Writes the dump() lines to the diagnostics stream, when capture is on.
    void capture(int first, int last, const std::string& title) const;

private:
    /// For each index, the least and the greatest datum up to it: the first pair that brackets a datum is where the
    /// datum first lies between the two.
    struct Hull {
        std::vector<double> low;
        std::vector<double> high;
    };

    const Value& at(int i) const { return _values[static_cast<std::size_t>(i)]; }
    Value& at(int i) { return _values[static_cast<std::size_t>(i)]; }

    void dataChanged();
    void timesChanged();
    bool isAscending() const;
    int lowerBound(double time) const;
    int firstPairAtTime(double time) const;
    int firstPairAtData(double data) const;
    bool makeHull() const;

    std::vector<Value> _values;
    Id _id;
    mutable bool _dirty = true;
    mutable Trend _trend;

    enum class Order { Unknown, Ascending, Other };
    mutable Order _order = Order::Unknown;
    mutable Hull _hull;
    mutable int _cursor = 0; ///< where the last look-up of a time ended; the next one is mostly near
};

template <typename Predicate>
void Series::removeIf(Predicate condemned) {
    int index = 0;
    const auto kept =
        std::remove_if(_values.begin(), _values.end(), [&](const Value& value) { return condemned(index++, value); });
    if (kept != _values.end()) {
        _values.erase(kept, _values.end());
        dataChanged();
    }
}
