#include "OmbraTdryTimeConstant.h"

#include "Assumptions.h"
#include "DropsondeFallRate.h"

OmbraTdryTimeConstant::OmbraTdryTimeConstant(RSTdryTC::T_SENSOR_TYPE type)
    : _series("RH80TdryTimeConstant"), _sensor(type) {}

bool OmbraTdryTimeConstant::value(double time, double& out) const {
    return _series.interpolate(time, kMaxGap, out);
}

/// \p fallRate(time, pressure, temperature, rate) gives the rate of a moment, or false.
template <typename FallRate>
void OmbraTdryTimeConstant::rebuild(const Series& pres, const Series& tdry, FallRate fallRate) {
    _series.removeAll();
    for (const Value& sample : pres) {
        double temperature = 0.0;
        double rate = 0.0;
        if (tdry.interpolate(sample.time(), kMaxGap, temperature) &&
            fallRate(sample.time(), sample.data(), temperature, rate)) {
            _series.appendValue(_sensor.value(sample.data(), temperature, rate), sample.time());
        }
    }
}

void OmbraTdryTimeConstant::update(const Series* pres, const Series* tdry, const Series* dz) {
    rebuild(*pres, *tdry,
            [dz](double time, double, double, double& rate) { return dz->interpolate(time, kMaxGap, rate); });
}

void OmbraTdryTimeConstant::update(const Series* pres, const Series* tdry, double chuteArea, double dragCoef,
                                   double mass) {
    rebuild(*pres, *tdry, [=](double, double pressure, double temperature, double& rate) {
        rate = DropsondeFallRate::value(pressure, temperature, chuteArea, dragCoef, mass);
        return true;
    });
}
