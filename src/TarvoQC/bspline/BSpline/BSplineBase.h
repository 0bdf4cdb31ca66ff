#pragma once

#include "BandedMatrix.h"

#include <memory>
#include <vector>

template <typename T>
class BSpline;

/// The part of a smoothing spline that depends on the x positions alone.
///
/// The filter is a penalised least-squares fit of cubic B-splines on evenly spaced nodes to samples that need not be
/// evenly spaced. The penalty on the second derivative is chosen from a cutoff wavelength in the unit of x: variations
/// shorter than it are removed. A base may serve several y sets over one x axis.
///
/// After Ooyama (1987), Scale-controlled objective analysis, Monthly Weather Review 115.
///
/// All failure shows in ok(): a wavelength longer than the span of x, fewer than one sample for each interval before
/// the nodes are dense enough (so fewer than 7 samples with any wavelength but 0), arguments out of range.
template <typename T>
class BSplineBase {
public:
    /// \p bc is the condition at both ends: 0 value zero, 1 first derivative zero, 2 second derivative zero. A
    /// wavelength of 0 puts no constraint on the frequency. \p numNodes above 1 fixes the number of nodes.
    BSplineBase(const T* x, int nx, double wl, int bc, int numNodes);

    /// The same on a new domain. False, and nothing changed, when an argument is out of range; false also when the
    /// matrix can't be set up.
    bool setDomain(const T* x, int nx, double wl, int bc, int numNodes);

    /// The fit to the nX() samples of \p y.
    std::unique_ptr<BSpline<T>> apply(const T* y) const;

    bool ok() const { return _ok; }
    int nX() const { return static_cast<int>(_x.size()); }
    int nNodes() const { return _m + 1; }
    T Xmin() const { return _xmin; }
    T Xmax() const { return _xmin + _m * _dx; }
    T Alpha() const { return _alpha; }
    /// The weight of the penalty for a cutoff wavelength.
    T Alpha(double wl) const;
    /// The positions of the nodes; their number through \p n when it isn't null.
    const T* nodes(int* n) const;

    /// Turns progress lines on the error stream on (1) or off (0), for the whole process. Returns what is in force.
    static bool Debug(int on = -1);

protected:
    static constexpr int kSupport = 4; ///< nodes whose basis functions reach one x

    /// The nodes that reach \p x: from first up to last, none when last is below first. False for an x beyond all of
    /// them.
    bool nodesAround(T x, int& first, int& last) const;
    double Basis(int m, T x) const;
    double DBasis(int m, T x) const;

    bool _ok = false;
    double _waveLength = 0.0;
    int _k = 2;
    int _bc = 2;
    T _xmin = 0;
    T _xmax = 0;
    int _m = 0;
    T _dx = 0;
    T _alpha = 0;
    std::vector<T> _x;
    BandedMatrix<T> _q;

private:
    bool Setup(int numNodes);
    double Beta(int m) const;
    double plainBasis(int m, T x) const;
    double plainDBasis(int m, T x) const;
    double qDelta(int m1, int m2) const;
    void calculateQ();
    void addBoundary(int nearEnd, int outer);
    void addP();

    mutable std::vector<T> _nodes;
};
