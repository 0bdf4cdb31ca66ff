#pragma once

#include "BSplineBase.h"

#include <vector>

/// A smoothing spline: the curve through one y data set. The caller tests ok() after construction.
template <typename T>
class BSpline : public BSplineBase<T> {
public:
    /// Copies the base and fits \p y, nX() samples of it.
    BSpline(const BSplineBase<T>& base, const T* y);
    BSpline(const T* x, int nx, const T* y, double wl, int bc, int numNodes);
    virtual ~BSpline() = default;

    /// Fits new y on the same x.
    bool solve(const T* y);
    /// The fitted value at \p x; 0 when not ok(). Far outside of the domain it is the mean of y.
    T evaluate(T x) const;
    /// The derivative of the fit at \p x; 0 when not ok().
    T slope(T x) const;
    /// The coefficient of node \p i; 0 when not ok() or for a node that isn't one.
    T coefficient(int i) const;

private:
    T _mean = 0;
    std::vector<T> _coefficients;
};
