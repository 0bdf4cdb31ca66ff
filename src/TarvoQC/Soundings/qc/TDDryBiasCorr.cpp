#include "TDDryBiasCorr.h"

#include "DCapture.h"
#include "ParallelSeries.h"
#include "QcAttribute.h"

#include <algorithm>
#include <array>

namespace {

// How much too low the sensor reads, in % of RH, at 0 % (K) and at 100 % (M): sums of the powers 0 to 4 of the
// temperature in deg C. The source of these fits isn't known.
constexpr std::array<double, 5> kKi{0.5227, -0.0284, 0.000286, 8.97e-07, -1.26e-09};
constexpr std::array<double, 5> kMi{1.0757, -0.204, 0.009009, -5.83e-05, -1.04e-06};
constexpr double kLeastRH = 1.0;  // %, below which a corrected value is none
constexpr double kFullRH = 100.0; // %
constexpr double kFloorRH = 0.1;  // %, what the correction at the source left of a value below its range

/// The sum of coefficients times the powers 0 to 4 of \p t.
double polynomial(const std::array<double, 5>& coefficients, double t) {
    double sum = 0.0;
    double power = 1.0;
    for (const double coefficient : coefficients) {
        sum += coefficient * power;
        power *= t;
    }
    return sum;
}

} // namespace

double biasCorrect(double rh, double t) {
    const double K = polynomial(kKi, t);
    const double M = polynomial(kMi, t);
    return std::min((rh + K) / ((K - M) / kFullRH + 1.0), kFullRH);
}

int TDDryBiasCorr::correct(Series* rh, Series* flagSeries, const Series* tdry, double gap) const {
    DCapture::dcout << "**** TD dry bias correction for " << rh->id().name() << "\n";
    const QcAttribute stamp(flagSeries, Value::DryBiasCorrection);
    std::vector<bool> removed(static_cast<std::size_t>(rh->lastIndex() + 1), false);
    for (int i = !rh->empty() && rh->getValue(0).isObservation() ? 1 : 0; i <= rh->lastIndex(); ++i) {
        const double time = rh->time(i);
        const double old = rh->data(i);
        double temperature = 0.0;
        if (!tdry->interpolate(time, gap, temperature)) {
            removed[static_cast<std::size_t>(i)] = true;
            DCapture::dcout << "   RH at " << i << " " << time << " old:" << old
                            << " discarded due to missing temperature\n";
            continue;
        }
        const double corrected = biasCorrect(old, temperature);
        if (corrected < kLeastRH) {
            removed[static_cast<std::size_t>(i)] = true;
            stamp.setAttribute(time);
        } else {
            rh->setData(i, corrected);
            DCapture::dcout << "   RH at " << i << " " << time << " old:" << old << " new:" << corrected << "\n";
        }
    }
    rh->removeIf([&](int i, const Value&) { return removed[static_cast<std::size_t>(i)]; });
    return static_cast<int>(std::count(removed.begin(), removed.end(), true));
}

int TDDryBiasCorr::markDryBiasAtt(Series* rh, Series* flagSeries) const {
    std::vector<int> atFloor;
    for (int i = 1; i <= rh->lastIndex(); ++i) {
        if (rh->data(i) == kFloorRH) {
            atFloor.push_back(i);
        }
    }
    return removeAndStamp({rh}, atFloor, {flagSeries}, Value::DryBiasCorrection);
}
