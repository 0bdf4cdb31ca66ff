#pragma once

class Series;

/// The least-squares straight line of a series over its time. All zero by default and for an empty series.
class Trend {
public:
    Trend() = default;
    explicit Trend(const Series& series);

    /// Units of the data per second.
    double slope() const { return _slope; }
    /// The line's value at time 0, in units of the data.
    double offset() const { return _offset; }
    /// Standard deviation about the line, divided by n and not by n - 1.
    double stdDevDetrend() const { return _stdDevDetrend; }

private:
    double _slope = 0.0;
    double _offset = 0.0;
    double _stdDevDetrend = 0.0;
};
