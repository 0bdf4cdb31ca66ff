#pragma once

#include "Series.h"

#include <vector>

/// Stamps one attribute on several series by time. The series are borrowed and must outlive it.
class QcAttribute {
public:
    QcAttribute(Series* series, Value::AttributeType attribute) : _series{series}, _attribute(attribute) {}
    QcAttribute(std::vector<Series*> series, Value::AttributeType attribute)
        : _series(std::move(series)), _attribute(attribute) {}
    virtual ~QcAttribute() = default;

    /// On the first value of each series whose time equals \p time.
    void setAttribute(double time) const;
    /// On every value with t0 < time < t1.
    void setAttributes(double t0, double t1) const;
    /// On every value after \p t.
    void setAttributesAfter(double t) const;

private:
    std::vector<Series*> _series;
    Value::AttributeType _attribute;
};
