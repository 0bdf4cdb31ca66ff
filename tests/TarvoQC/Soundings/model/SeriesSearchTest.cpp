#include "MakeSeries.h"
#include "Series.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <random>

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

using Answer = std::optional<double>;

// The walks that the searches must agree with, one pair after the other.

bool brackets(double x, double a, double b) {
    return (a <= x && x <= b) || (a >= x && x >= b);
}

double line(double x, double x0, double y0, double x1, double y1) {
    if (x0 == x1) {
        return 0.5 * (y0 + y1);
    }
    if (x == x0 || x == x1) {
        return x == x0 ? y0 : y1;
    }
    const double part = (x - x0) / (x1 - x0);
    return (1.0 - part) * y0 + part * y1;
}

Answer walkToTime(const std::vector<Sample>& s, double time, double maxGap) {
    if (s.size() == 1) {
        return s[0].first == time ? Answer(s[0].second) : Answer();
    }
    for (std::size_t i = 1; i < s.size(); ++i) {
        const auto& [t0, y0] = s[i - 1];
        const auto& [t1, y1] = s[i];
        if (time == t0) {
            return y0;
        }
        if (time == t1) {
            return y1;
        }
        if (brackets(time, t0, t1)) {
            return std::fabs(t0 - t1) > maxGap ? Answer() : line(time, t0, y0, t1, y1);
        }
    }
    return {};
}

Answer walkToDatum(const std::vector<Sample>& s, double datum) {
    if (s.size() == 1) {
        return s[0].second == datum ? Answer(s[0].first) : Answer();
    }
    for (std::size_t i = 1; i < s.size(); ++i) {
        if (brackets(datum, s[i - 1].second, s[i].second)) {
            return line(datum, s[i - 1].second, s[i - 1].first, s[i].second, s[i].first);
        }
    }
    return {};
}

int walkNear(const std::vector<Sample>& s, double time, double tolerance) {
    for (std::size_t i = 0; i < s.size(); ++i) {
        if (time - s[i].first < tolerance) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

int walkToIndex(const std::vector<Sample>& s, double time) {
    for (std::size_t i = 0; i < s.size(); ++i) {
        if (s[i].first == time) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

constexpr double kUntouched = 12345.678;

bool agrees(const Answer& expected, bool found, double out) {
    if (!found || !expected) {
        return found == expected.has_value() && out == kUntouched;
    }
    return std::isnan(*expected) ? std::isnan(out) : std::abs(out - *expected) <= 1e-12 * (1 + std::abs(*expected));
}

/// Makes and changes series on coarse grids, so that a sample is often hit exactly.
class RandomSeries {
public:
    bool once(int in) { return number(0, in - 1) == 0; }
    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(_random); }
    double time() { return once(200) ? kNan : number(-2, 40) * 0.25; }
    double datum() { return once(100) ? kNan : number(-8, 8) * 0.5; }

    /// Of every sort: ascending, with repeated times, folded back, with gaps, with data and times that are no numbers.
    Series make() {
        const bool folded = once(3);
        const bool repeated = once(2);
        Series series;
        double t = -1;
        for (int i = 0, n = number(0, 12); i < n; ++i) {
            series.appendValue(datum(), once(200) ? kNan : t);
            t += folded && once(3) ? -0.5 : 0.25 * number(repeated ? 0 : 1, once(4) ? 12 : 3);
        }
        return series;
    }

    /// One change of any kind, so that a search that remembers too much is caught.
    void change(Series& series) {
        const int i = number(0, std::max(series.lastIndex(), 0));
        const int kind = number(series.empty() ? 4 : 0, 7);
        kind == 0   ? series.setData(i, datum())
        : kind == 1 ? series.setTime(i, time())
        : kind == 2 ? series.remove(i)
        : kind == 3 ? series.removeIf([&](int, const Value&) { return once(8); })
        : kind == 4 ? series.timeTrimMiddle(time(), time())
        : kind == 5 ? series.appendValue(datum(), time())
        : kind == 6 ? series.prependValue(datum(), time())
                    : static_cast<void>(series.insertValue(Value(datum(), time())));
    }

private:
    std::mt19937 _random{19980604};
};

} // namespace

TEST(SeriesSearch, agreesWithTheWalkOnRandomSeries) {
    RandomSeries random;
    for (int round = 0; round < 6000; ++round) {
        Series series = random.make();
        for (int query = 0; query < 36; ++query) {
            const auto samples = samplesOf(series);
            const double time = random.time() + (random.once(3) ? 0.1 : 0.0);
            const double datum = random.datum() + (random.once(3) ? 0.1 : 0.0);
            const double maxGap = random.number(0, 12) * 0.25;
            double atTime = kUntouched;
            double atDatum = kUntouched;
            const bool found = series.interpolate(time, maxGap, atTime);
            ASSERT_TRUE(agrees(walkToTime(samples, time, maxGap), found, atTime))
                << testing::PrintToString(samples) << " time " << time << " gap " << maxGap << " gave " << atTime;
            const bool crosses = series.interpTime(datum, atDatum);
            ASSERT_TRUE(agrees(walkToDatum(samples, datum), crosses, atDatum))
                << testing::PrintToString(samples) << " datum " << datum << " gave " << atDatum;
            ASSERT_EQ(series.indexFromTime(time), walkToIndex(samples, time)) << testing::PrintToString(samples);
            ASSERT_EQ(series.indexNear(time, 0.01), walkNear(samples, time, 0.01)) << testing::PrintToString(samples);
            if (query % 12 == 11) {
                random.change(series);
            }
        }
    }
}

TEST(SeriesSearch, extrapolateFitsWhatIsNear) {
    const std::vector<Sample> three{{10, 1}, {12, 3}, {20, 5}};
    const struct {
        std::vector<Sample> samples;
        double time, span;
        Answer expected;
    } cases[] = {
        {{}, 1, 9, {}},
        {three, 11, 2, 2},
        {three, 12, 0, 3},
        {three, 16, 7, {}},
        {three, 9, 0.5, {}},
        {three, 9, 1, 1},
        {three, 9, 3, 0},
        {three, 9, 11, 17.0 / 14.0}, // mean time 14, mean datum 3, slope 20/56
        {three, 21, 1, 5},
        {three, 21, 9, 5.25},
        {{{10, 7}}, 8, 2, 7},
        {{{10, 1}, {10, 2}}, 9, 5, {}},
        {{{0.1, 1}, {0.1, 2}, {0.1, 3}}, 0, 5, {}}, // three tenths don't add up to 0.3 in doubles
        {{{10, 1}, {15, 2}, {11, 9}}, 9, 3, 1},     // the first one too far away ends the walk
    };
    for (const auto& c : cases) {
        double out = kUntouched;
        const bool found = makeSeries(c.samples).extrapolate(c.time, c.span, out);
        EXPECT_TRUE(agrees(c.expected, found, out)) << testing::PrintToString(c.samples) << " at " << c.time << " span "
                                                    << c.span << " gave " << found << " " << out;
    }
}
