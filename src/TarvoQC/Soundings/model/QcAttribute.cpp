#include "QcAttribute.h"

namespace {

template <typename Predicate>
void stamp(const std::vector<Series*>& all, Value::AttributeType attribute, Predicate due) {
    for (Series* series : all) {
        for (int i = 0; i <= series->lastIndex(); ++i) {
            if (due(series->time(i))) {
                series->setAttribute(i, attribute);
            }
        }
    }
}

} // namespace

void QcAttribute::setAttribute(double time) const {
    for (Series* series : _series) {
        const int i = series->indexFromTime(time);
        if (i >= 0) {
            series->setAttribute(i, _attribute);
        }
    }
}

void QcAttribute::setAttributes(double t0, double t1) const {
    stamp(_series, _attribute, [=](double time) { return t0 < time && time < t1; });
}

void QcAttribute::setAttributesAfter(double t) const {
    stamp(_series, _attribute, [=](double time) { return time > t; });
}
