#include "BSpline.h"

#include <cmath>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace {

using Numbers = std::vector<double>;

constexpr int kZeroValue = 0;
constexpr int kZeroSlope = 1;
constexpr int kZeroCurvature = 2;
constexpr double kPi = 3.14159265358979323846;

std::size_t at(int i) {
    return static_cast<std::size_t>(i);
}

int sizeOf(const Numbers& x) {
    return static_cast<int>(x.size());
}

/// \p n samples over \p span, the first at \p start.
Numbers evenly(int n, double span, double start = 0.0) {
    Numbers x;
    for (int i = 0; i < n; ++i) {
        x.push_back(start + span * i / (n - 1));
    }
    return x;
}

/// Samples whose distances vary, with a gap in the middle.
Numbers irregularly() {
    Numbers x;
    double time = -1.0;
    for (int i = 0; i < 90; ++i) {
        x.push_back(time);
        time += 0.3 + 0.25 * std::sin(1.7 * i) + (i == 40 ? 4.0 : 0.0);
    }
    return x;
}

template <typename Function>
Numbers valuesOf(const Numbers& x, Function f) {
    Numbers y;
    for (const double each : x) {
        y.push_back(f(each));
    }
    return y;
}

BSplineBase<double> baseOf(const Numbers& x, double wl, int bc = kZeroCurvature, int numNodes = 0) {
    return {x.data(), sizeOf(x), wl, bc, numNodes};
}

BSpline<double> fitOf(const Numbers& x, const Numbers& y, double wl, int bc = kZeroCurvature, int numNodes = 0) {
    return {x.data(), sizeOf(x), y.data(), wl, bc, numNodes};
}

/// The same fit by another road: the normal equations with full matrices in double precision, from the basis functions
/// as piecewise polynomials, the penalty integrated numerically, solved with pivoting.
class DenseFit {
public:
    DenseFit(const Numbers& x, const Numbers& y, int intervals, double wl, int bc)
        : _intervals(intervals), _bc(bc), _start(x.front()), _step((x.back() - x.front()) / intervals) {
        const std::size_t n = at(_intervals) + 1;
        std::vector<Numbers> rows(n, Numbers(n + 1, 0.0));
        for (const double each : y) {
            _mean += each / static_cast<double>(y.size());
        }
        for (std::size_t s = 0; s < x.size(); ++s) {
            const double u = (x[s] - _start) / _step;
            for (std::size_t i = 0; i < n; ++i) {
                for (std::size_t j = 0; j < n; ++j) {
                    rows[i][j] += folded(static_cast<int>(i), u, shape) * folded(static_cast<int>(j), u, shape);
                }
                rows[i][n] += folded(static_cast<int>(i), u, shape) * (y[s] - _mean);
            }
        }
        const double alpha = std::pow(wl / (2.0 * kPi * _step), 4.0);
        for (std::size_t i = 0; i < n; ++i) {
            for (std::size_t j = 0; j < n; ++j) {
                rows[i][j] += alpha * penalty(static_cast<int>(i), static_cast<int>(j));
            }
        }
        _coefficients = solved(rows);
    }

    double operator()(double x) const {
        double y = _mean;
        for (int i = 0; i <= _intervals; ++i) {
            y += _coefficients[at(i)] * folded(i, (x - _start) / _step, shape);
        }
        return y;
    }
    double coefficient(int i) const { return _coefficients[at(i)]; }

private:
    static double shape(double u) {
        const double t = std::abs(u);
        return t < 1.0 ? 1.0 - 1.5 * t * t + 0.75 * t * t * t : t < 2.0 ? (2.0 - t) * (2.0 - t) * (2.0 - t) / 4.0 : 0.0;
    }
    static double curvature(double u) {
        const double t = std::abs(u);
        return t < 1.0 ? 4.5 * t - 3.0 : t < 2.0 ? 1.5 * (2.0 - t) : 0.0;
    }

    /// With the function beyond an end folded in so that the end condition holds.
    double folded(int i, double u, double (*function)(double)) const {
        const double outermost = _bc == kZeroValue ? -4.0 : _bc == kZeroSlope ? 0.0 : 2.0;
        const double next = _bc == kZeroSlope ? 1.0 : -1.0;
        double value = function(u - i);
        if (i <= 1) {
            value += (i == 0 ? outermost : next) * function(u + 1.0);
        }
        if (i >= _intervals - 1) {
            value += (i == _intervals ? outermost : next) * function(u - _intervals - 1.0);
        }
        return value;
    }

    /// Simpson's rule on each interval: exact, since the product of two straight lines is a parabola.
    double penalty(int i, int j) const {
        const auto product = [&](double u) { return folded(i, u, curvature) * folded(j, u, curvature); };
        double sum = 0.0;
        for (int k = 0; k < _intervals; ++k) {
            sum += (product(k) + 4.0 * product(k + 0.5) + product(k + 1.0)) / 6.0;
        }
        return sum;
    }

    static Numbers solved(std::vector<Numbers> rows) {
        const std::size_t n = rows.size();
        for (std::size_t column = 0; column < n; ++column) {
            std::size_t pivot = column;
            for (std::size_t row = column; row < n; ++row) {
                pivot = std::abs(rows[row][column]) > std::abs(rows[pivot][column]) ? row : pivot;
            }
            std::swap(rows[column], rows[pivot]);
            for (std::size_t row = column + 1; row < n; ++row) {
                const double factor = rows[row][column] / rows[column][column];
                for (std::size_t k = column; k <= n; ++k) {
                    rows[row][k] -= factor * rows[column][k];
                }
            }
        }
        Numbers result(n);
        for (std::size_t row = n; row-- > 0;) {
            double sum = rows[row][n];
            for (std::size_t k = row + 1; k < n; ++k) {
                sum -= rows[row][k] * result[k];
            }
            result[row] = sum / rows[row][row];
        }
        return result;
    }

    int _intervals;
    int _bc;
    double _start;
    double _step;
    double _mean = 0.0;
    Numbers _coefficients;
};

double wavy(double x) {
    return 300.0 + 2.0 * std::sin(0.9 * x) + 0.4 * std::cos(5.0 * x) + 0.05 * x;
}

/// The amplitude that a fit leaves of a sine of amplitude 1, away from the ends.
double amplitudeLeft(const Numbers& x, double cutoff, double wavelength, int numNodes) {
    const auto sine = [&](double at) { return std::sin(2.0 * kPi * at / wavelength); };
    const BSpline<double> fit = fitOf(x, valuesOf(x, sine), cutoff, kZeroCurvature, numNodes);
    EXPECT_TRUE(fit.ok());
    double left = 0.0;
    double whole = 0.0;
    for (double t = 100.0; t < 300.0; t += 0.25) {
        left += fit.evaluate(t) * sine(t);
        whole += sine(t) * sine(t);
    }
    return left / whole;
}

} // namespace

class BSplineEnds : public testing::TestWithParam<int> {};

TEST_P(BSplineEnds, FitIsThatOfTheDenseNormalEquations) {
    // The matrix is rounded to single precision, 6e-8 of each element, and its condition amplifies that.
    constexpr double kTolerance = 1e-4;
    const Numbers x = irregularly();
    const Numbers y = valuesOf(x, wavy);
    for (const double wl : {2.0, 4.0, 12.0}) {
        const BSpline<double> fit = fitOf(x, y, wl, GetParam());
        ASSERT_TRUE(fit.ok()) << wl;
        const DenseFit dense(x, y, fit.nNodes() - 1, wl, GetParam());
        for (double t = x.front(); t <= x.back(); t += 0.1) {
            ASSERT_NEAR(fit.evaluate(t), dense(t), kTolerance) << "wavelength " << wl << " at " << t;
        }
        for (int i = 0; i < fit.nNodes(); ++i) {
            ASSERT_NEAR(fit.coefficient(i), dense.coefficient(i), kTolerance) << "wavelength " << wl << " node " << i;
        }
    }
}

TEST_P(BSplineEnds, SlopeIsTheDerivativeOfTheFit) {
    const Numbers x = irregularly();
    const BSpline<double> fit = fitOf(x, valuesOf(x, wavy), 4.0, GetParam());
    ASSERT_TRUE(fit.ok());
    constexpr double kStep = 1e-4;
    for (double t = x.front() + 0.05; t < x.back() - 0.05; t += 0.07) {
        EXPECT_NEAR(fit.slope(t), (fit.evaluate(t + kStep) - fit.evaluate(t - kStep)) / (2.0 * kStep), 1e-5) << t;
    }
}

INSTANTIATE_TEST_SUITE_P(All, BSplineEnds, testing::Values(kZeroValue, kZeroSlope, kZeroCurvature));

/// With d samples for an interval of length D, the fit of a sine of wavenumber k weighs d for the data against
/// alpha (kD)^4 for the penalty, and alpha is (cutoff / 2 pi D)^4: d / (d + (cutoff / wavelength)^4) is left.
TEST(BSpline, ResponseToAWavelength) {
    constexpr double kCutoff = 20.0;
    const Numbers everySecond = evenly(401, 400.0);
    constexpr int kNodeForEachSample = 401;
    struct {
        int numNodes;
        double samplesPerInterval;
    } const cases[] = {{kNodeForEachSample, 1.0}, {0, 2.0}};
    for (const auto& c : cases) {
        for (const double wavelength : {kCutoff, 2.0 * kCutoff, kCutoff / 2.0}) {
            const double ratio = std::pow(kCutoff / wavelength, 4.0);
            EXPECT_NEAR(amplitudeLeft(everySecond, kCutoff, wavelength, c.numNodes),
                        c.samplesPerInterval / (c.samplesPerInterval + ratio), 0.005)
                << c.samplesPerInterval << " samples for an interval, wavelength " << wavelength;
        }
    }
}

TEST(BSpline, NumberOfNodes) {
    struct {
        const char* what;
        int samples;
        double span, wl;
        int intervals;
    } const cases[] = {
        {"15 nodes for a wavelength end the search while there are more than 2 samples for an interval", 4000, 2000.0,
         20.0, 1500},
        {"the same, short: 38 would have 15.2 nodes for a wavelength", 100, 50.0, 20.0, 37},
        {"2 samples for an interval are enough: 401 / 201", 401, 400.0, 20.0, 200},
        {"4 nodes for a wavelength are asked for beyond 2 samples for an interval: 100 / 80 is 1.25", 100, 100.0, 5.0,
         80},
        {"1 sample for an interval is the least: 100 intervals would have 0.99", 100, 100.0, 2.5, 99},
        {"without a frequency constraint twice the samples", 2, 1.0, 0.0, 4},
        {"the same", 30, 10.0, 0.0, 60},
        {"a wavelength of the whole span: 20 / 10", 20, 50.0, 50.0, 9},
        {"7 samples are the fewest", 7, 6.0, 2.0, 6},
    };
    for (const auto& c : cases) {
        const BSplineBase<double> base = baseOf(evenly(c.samples, c.span), c.wl);
        EXPECT_TRUE(base.ok()) << c.what;
        EXPECT_EQ(base.nNodes(), c.intervals + 1) << c.what;
        EXPECT_EQ(base.nX(), c.samples);
    }
}

TEST(BSpline, FixedNumberOfNodes) {
    const BSplineBase<double> base = baseOf(evenly(50, 10.0, -2.0), 3.0, kZeroCurvature, 21);
    ASSERT_TRUE(base.ok());
    int n = 0;
    const double* nodes = base.nodes(&n);
    ASSERT_EQ(n, 21);
    for (int i = 0; i < n; ++i) {
        EXPECT_DOUBLE_EQ(nodes[i], -2.0 + 0.5 * i);
    }
    EXPECT_EQ(base.nodes(nullptr), nodes);
    EXPECT_EQ(base.Xmin(), -2.0);
    EXPECT_EQ(base.Xmax(), 8.0);
    EXPECT_DOUBLE_EQ(base.Alpha(6.2831854 * 0.5), 1.0);
    EXPECT_DOUBLE_EQ(base.Alpha(2.0 * 6.2831854 * 0.5), 16.0);
    EXPECT_DOUBLE_EQ(base.Alpha(), base.Alpha(3.0));

    const BSplineBase<double> unconstrained = baseOf(evenly(50, 10.0), 0.0, kZeroCurvature, 21);
    ASSERT_TRUE(unconstrained.ok());
    EXPECT_DOUBLE_EQ(unconstrained.Alpha(), unconstrained.Alpha(1.0));
}

TEST(BSpline, WhatCannotBeFitted) {
    EXPECT_TRUE(baseOf(evenly(40, 50.0), 50.0).ok());
    EXPECT_FALSE(baseOf(evenly(40, 50.0), std::nextafter(50.0, 51.0)).ok()) << "longer than the span";
    for (const double wl : {0.1, 1.0, 2.5, 5.0}) {
        EXPECT_FALSE(baseOf(evenly(6, 5.0), wl).ok()) << "six samples, wavelength " << wl;
    }
    EXPECT_FALSE(baseOf(evenly(7, 6.0), 1.99).ok()) << "7 intervals for 7 samples";
    EXPECT_FALSE(baseOf({1.0}, 0.0).ok()) << "no span";
    EXPECT_FALSE(baseOf({1.0, 1.0, 1.0}, 0.0).ok()) << "no span";
    EXPECT_FALSE(baseOf({0.0, 1.0, 2.0}, 1e-100, kZeroCurvature, 50).ok()) << "no penalty, nodes without a sample";
}

TEST(BSpline, AnUnfittedOneAnswersZero) {
    const Numbers x = evenly(6, 5.0);
    const BSpline<double> fit = fitOf(x, Numbers(6, 3.0), 2.0);
    ASSERT_FALSE(fit.ok());
    EXPECT_EQ(fit.evaluate(2.0), 0.0);
    EXPECT_EQ(fit.slope(2.0), 0.0);
    EXPECT_EQ(fit.coefficient(0), 0.0);
    BSpline<double> again = fit;
    EXPECT_FALSE(again.solve(x.data()));
}

TEST(BSpline, ArgumentsOutOfRangeChangeNothing) {
    const Numbers x = evenly(40, 50.0);
    const Numbers other = evenly(100, 50.0);
    BSplineBase<double> base = baseOf(x, 20.0);
    ASSERT_TRUE(base.ok());
    const int nodes = base.nNodes();
    EXPECT_FALSE(base.setDomain(other.data(), 0, 20.0, 2, 0));
    EXPECT_FALSE(base.setDomain(nullptr, 100, 20.0, 2, 0));
    EXPECT_FALSE(base.setDomain(other.data(), 100, -1.0, 2, 0));
    EXPECT_FALSE(base.setDomain(other.data(), 100, 20.0, -1, 0));
    EXPECT_FALSE(base.setDomain(other.data(), 100, 20.0, 3, 0));
    EXPECT_TRUE(base.ok());
    EXPECT_EQ(base.nX(), 40);
    EXPECT_EQ(base.nNodes(), nodes);

    EXPECT_TRUE(base.setDomain(other.data(), 100, 20.0, 2, 0));
    EXPECT_EQ(base.nNodes(), 38);
    EXPECT_FALSE(base.setDomain(other.data(), 100, 51.0, 2, 0));
    EXPECT_FALSE(base.ok());
}

TEST(BSpline, OneBaseServesSeveralSets) {
    const Numbers x = irregularly();
    const Numbers first = valuesOf(x, wavy);
    const Numbers second = valuesOf(x, [](double t) { return std::cos(t); });
    const BSplineBase<double> base = baseOf(x, 4.0);
    const auto fit = base.apply(first.data());
    ASSERT_TRUE(fit->ok());
    const BSpline<double> alone = fitOf(x, first, 4.0);
    const BSpline<double> secondAlone = fitOf(x, second, 4.0);
    EXPECT_EQ(fit->evaluate(3.3), alone.evaluate(3.3));
    EXPECT_TRUE(fit->solve(second.data()));
    EXPECT_EQ(fit->evaluate(3.3), secondAlone.evaluate(3.3));
    EXPECT_NE(alone.evaluate(3.3), secondAlone.evaluate(3.3));
}

TEST(BSpline, OutsideOfTheDomain) {
    const Numbers x = evenly(41, 40.0);
    const Numbers y = valuesOf(x, [](double t) { return 0.1 * t * t; });
    double mean = 0.0;
    for (const double each : y) {
        mean += each / 41.0;
    }
    const BSpline<double> fit = fitOf(x, y, 20.0, kZeroCurvature, 21);
    ASSERT_TRUE(fit.ok());
    const double last = fit.coefficient(20);
    ASSERT_GT(std::abs(last), 1.0);
    // At one interval beyond the end: its own function there, 1/4, and twice the function beyond the end at its node.
    EXPECT_NEAR(fit.evaluate(42.0), mean + 2.25 * last, 1e-9);
    EXPECT_NEAR(fit.evaluate(-2.0), mean + 2.25 * fit.coefficient(0) - fit.coefficient(1), 1e-9);
    for (const double far : {48.0, 1000.0, -8.0, -1000.0, 1e300, -1e300}) {
        EXPECT_NEAR(fit.evaluate(far), mean, 1e-9) << far;
        EXPECT_EQ(fit.slope(far), 0.0) << far;
    }
    EXPECT_EQ(fit.coefficient(-1), 0.0);
    EXPECT_EQ(fit.coefficient(21), 0.0);
}
