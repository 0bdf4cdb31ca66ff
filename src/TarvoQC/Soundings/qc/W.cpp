#include "W.h"

#include "Assumptions.h"
#include "DCapture.h"
#include "DropsondeFallRate.h"
#include "ParallelSeries.h"

bool W::w(const Series* dz, const Series* pres, const Series* tdry, double chuteArea, double dragCoef, double mass,
          Series* out) const {
    DCapture::dcout << "vertical wind computation for " << dz->id().name() << ", area: " << chuteArea
                    << ", Cd: " << dragCoef << ", mass: " << mass << "\n";
    out->removeAll();
    if (dz->lastIndex() < 2) {
        return false;
    }
    for (int i = JudgedRange(*dz).first; i <= dz->lastIndex(); ++i) {
        const double time = dz->time(i);
        double temperature = 0.0;
        double pressure = 0.0;
        if (tdry->interpolate(time, kMaxGap, temperature) && pres->interpolate(time, kMaxGap, pressure)) {
            out->appendValue(dz->data(i) + DropsondeFallRate::value(pressure, temperature, chuteArea, dragCoef, mass),
                             time);
        }
    }
    return true;
}
