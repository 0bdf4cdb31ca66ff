#include "Offset.h"

void Offset::apply(Series& series, double offset) {
    if (offset == 0.0 || series.empty()) {
        return;
    }
    for (int i = series.getValue(0).isObservation() ? 1 : 0; i <= series.lastIndex(); ++i) {
        series.setData(i, series.data(i) + offset);
    }
}
