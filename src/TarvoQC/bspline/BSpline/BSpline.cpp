#include "BSpline.h"

#include <algorithm>
#include <cmath>
#include <iostream>

namespace {

bool debugLines = false;

constexpr double kTwoPi = 6.2831854; // twice 3.1415927, not the full value

// The search for the number of intervals.
constexpr int kFirstIntervals = 6;
constexpr double kFewestNodes = 2.0;   // per wavelength
constexpr double kEnoughNodes = 4.0;   // per wavelength
constexpr double kMostNodes = 15.0;    // per wavelength
constexpr double kFewestSamples = 1.0; // per interval
constexpr double kEnoughSamples = 2.0; // per interval

/// How the basis functions beyond the two ends are folded into nodes 0, 1, M - 1 and M, by boundary condition.
constexpr double kBoundaryFactors[3][4] = {{-4, -1, -1, -4}, {0, 1, 1, 0}, {2, -1, -1, 2}};

/// Integrals over one interval of the product of the K-th derivatives of two basis functions, by K - 1, the distance of
/// their nodes, and the interval counted from the left of the lower node's support.
constexpr double kPenaltyParts[3][4][4] = {
    {{0.1125, 0.6375, 0.6375, 0.1125}, {0, 0.13125, -0.54375, 0.13125}, {0, 0, -0.225, -0.225}, {0, 0, 0, -0.01875}},
    {{0.75, 2.25, 2.25, 0.75}, {0, -1.125, -1.125, -1.125}, {0, 0, 0, 0}, {0, 0, 0, 0.375}},
    {{2.25, 20.25, 20.25, 2.25}, {0, -6.75, -20.25, -6.75}, {0, 0, 6.75, 6.75}, {0, 0, 0, 2.25}},
};

} // namespace

template <typename T>
BSplineBase<T>::BSplineBase(const T* x, int nx, double wl, int bc, int numNodes) {
    setDomain(x, nx, wl, bc, numNodes);
}

template <typename T>
bool BSplineBase<T>::setDomain(const T* x, int nx, double wl, int bc, int numNodes) {
    if (nx < 1 || x == nullptr || !(wl >= 0.0) || bc < 0 || bc > 2) {
        return false;
    }
    _ok = false;
    _waveLength = wl;
    _bc = bc;
    _x.assign(x, x + nx);
    _nodes.clear();
    if (!Setup(numNodes)) {
        return false;
    }
    _alpha = Alpha(_waveLength);
    _q = BandedMatrix<T>(_m + 1);
    calculateQ();
    addP();
    _ok = LU_factor_banded(_q, BandedMatrix<T>::kBand);
    if (debugLines) {
        std::cerr << "B-spline: " << nX() << " samples, " << _m << " intervals of " << _dx << ", alpha " << _alpha
                  << (_ok ? "" : ", not factored") << "\n";
    }
    return _ok;
}

/// Finds the domain and the number of intervals: 4 or more nodes for a wavelength and no more than 2 samples for an
/// interval where that can be had, never more than 15 nodes for a wavelength nor less than 1 sample for an interval.
template <typename T>
bool BSplineBase<T>::Setup(int numNodes) {
    const auto [least, greatest] = std::minmax_element(_x.begin(), _x.end());
    _xmin = *least;
    _xmax = *greatest;
    const double span = _xmax - _xmin;
    if (!std::isfinite(span) || span <= 0.0) {
        return false;
    }
    const auto nodesPerWavelength = [&](int M) { return _waveLength / (span / M); };
    const auto samplesPerInterval = [&](int M) { return static_cast<double>(_x.size()) / (M + 1); };
    const auto allowed = [&](int M) {
        return samplesPerInterval(M) >= kFewestSamples && nodesPerWavelength(M) <= kMostNodes;
    };

    if (numNodes > 1) {
        _m = numNodes - 1;
        _waveLength = _waveLength == 0.0 ? 1.0 : _waveLength;
    } else if (_waveLength == 0.0) {
        _m = 2 * nX();
        _waveLength = 1.0;
    } else if (_waveLength > span) {
        return false;
    } else {
        for (_m = kFirstIntervals;; ++_m) {
            if (samplesPerInterval(_m) < kFewestSamples) {
                return false;
            }
            if (nodesPerWavelength(_m) >= kFewestNodes) {
                break;
            }
        }
        if (allowed(_m + 1)) {
            ++_m;
            while ((nodesPerWavelength(_m) < kEnoughNodes || samplesPerInterval(_m) > kEnoughSamples) &&
                   allowed(_m + 1)) {
                ++_m;
            }
        }
    }
    _dx = static_cast<T>(span / _m);
    return true;
}

template <typename T>
T BSplineBase<T>::Alpha(double wl) const {
    const double square = (wl / (kTwoPi * _dx)) * (wl / (kTwoPi * _dx));
    return static_cast<T>(_k == 2 ? square * square : _k == 3 ? square * square * square : square);
}

template <typename T>
const T* BSplineBase<T>::nodes(int* n) const {
    if (_nodes.empty()) {
        for (int i = 0; i <= _m; ++i) {
            _nodes.push_back(_xmin + i * _dx);
        }
    }
    if (n != nullptr) {
        *n = nNodes();
    }
    return _nodes.data();
}

template <typename T>
bool BSplineBase<T>::Debug(int on) {
    if (on >= 0) {
        debugLines = on > 0;
    }
    return debugLines;
}

template <typename T>
std::unique_ptr<BSpline<T>> BSplineBase<T>::apply(const T* y) const {
    return std::make_unique<BSpline<T>>(*this, y);
}

template <typename T>
double BSplineBase<T>::Beta(int m) const {
    const double(&factors)[4] = kBoundaryFactors[_bc];
    if (m == 0 || m == 1) {
        return factors[m];
    }
    return m == _m - 1 ? factors[2] : m == _m ? factors[3] : 0.0;
}

template <typename T>
double BSplineBase<T>::plainBasis(int m, T x) const {
    const double y = std::abs((x - (_xmin + m * _dx)) / _dx);
    if (y >= 2.0) {
        return 0.0;
    }
    double z = 2.0 - y;
    double value = z * z * z / 4.0;
    z -= 1.0;
    if (z > 0.0) {
        value -= z * z * z;
    }
    return value;
}

template <typename T>
double BSplineBase<T>::plainDBasis(int m, T x) const {
    const double u = (x - (_xmin + m * _dx)) / _dx;
    const double y = std::abs(u);
    if (y >= 2.0) {
        return 0.0;
    }
    double z = 2.0 - y;
    double value = z * z / 4.0;
    z -= 1.0;
    if (z > 0.0) {
        value -= z * z;
    }
    return value * (u > 0.0 ? -3.0 / _dx : 3.0 / _dx);
}

template <typename T>
double BSplineBase<T>::Basis(int m, T x) const {
    double value = plainBasis(m, x);
    if (m == 0 || m == 1) {
        value += Beta(m) * plainBasis(-1, x);
    } else if (m == _m - 1 || m == _m) {
        value += Beta(m) * plainBasis(_m + 1, x);
    }
    return value;
}

template <typename T>
double BSplineBase<T>::DBasis(int m, T x) const {
    double value = plainDBasis(m, x);
    if (m == 0 || m == 1) {
        value += Beta(m) * plainDBasis(-1, x);
    } else if (m == _m - 1 || m == _m) {
        value += Beta(m) * plainDBasis(_m + 1, x);
    }
    return value;
}

template <typename T>
bool BSplineBase<T>::nodesAround(T x, int& first, int& last) const {
    const double position = (x - _xmin) / _dx;
    if (!(position > -kSupport && position < _m + kSupport)) {
        return false;
    }
    const int mx = static_cast<int>(position);
    first = std::max(mx - 1, 0);
    last = std::min(mx + 2, _m);
    return true;
}

template <typename T>
double BSplineBase<T>::qDelta(int m1, int m2) const {
    if (m1 > m2) {
        std::swap(m1, m2);
    }
    if (m2 - m1 > 3) {
        return 0.0;
    }
    double q = 0.0;
    for (int m = std::max(m1 - 2, 0); m < std::min(m1 + 2, _m); ++m) {
        q += kPenaltyParts[_k - 1][m2 - m1][m - m1 + 2];
    }
    return q * _alpha;
}

template <typename T>
void BSplineBase<T>::calculateQ() {
    if (_alpha == 0) {
        return;
    }
    for (int i = 0; i <= _m; ++i) {
        for (int j = std::max(i - 3, 0); j <= std::min(i + 3, _m); ++j) {
            _q.at(i, j) = static_cast<T>(qDelta(i, j));
        }
    }
    addBoundary(0, -1);
    addBoundary(_m - 1, _m + 1);
}

/// Folds the basis function of the node \p outer into the pairs that touch the nodes \p nearEnd and the next. The sums
/// are held in single precision, like those of the data term, so that a fit gives the digits it always gave.
template <typename T>
void BSplineBase<T>::addBoundary(int nearEnd, int outer) {
    const auto touches = [nearEnd](int m) { return m == nearEnd || m == nearEnd + 1; };
    for (int i = std::max(nearEnd - 3, 0); i <= std::min(nearEnd + 4, _m); ++i) {
        for (int j = std::max(i - 3, 0); j <= std::min(i + 3, _m); ++j) {
            if (!touches(i) && !touches(j)) {
                continue;
            }
            const auto betaI = static_cast<float>(Beta(i));
            const auto betaJ = static_cast<float>(Beta(j));
            auto q = static_cast<float>(betaJ * qDelta(outer, i));
            q = static_cast<float>(q + betaI * qDelta(outer, j));
            q = static_cast<float>(q + betaI * betaJ * qDelta(outer, outer));
            _q.at(i, j) += static_cast<T>(q);
        }
    }
}

template <typename T>
void BSplineBase<T>::addP() {
    for (const T x : _x) {
        int first = 0;
        int last = -1;
        nodesAround(x, first, last);
        std::array<float, kSupport> basis{};
        for (int m = first; m <= last; ++m) {
            basis[static_cast<std::size_t>(m - first)] = static_cast<float>(Basis(m, x));
        }
        for (int m = first; m <= last; ++m) {
            for (int n = first; n <= last; ++n) {
                const float product =
                    basis[static_cast<std::size_t>(m - first)] * basis[static_cast<std::size_t>(n - first)];
                _q.at(m, n) += static_cast<T>(product);
            }
        }
    }
}

template <typename T>
BSpline<T>::BSpline(const BSplineBase<T>& base, const T* y) : BSplineBase<T>(base) {
    solve(y);
}

template <typename T>
BSpline<T>::BSpline(const T* x, int nx, const T* y, double wl, int bc, int numNodes)
    : BSplineBase<T>(x, nx, wl, bc, numNodes) {
    solve(y);
}

template <typename T>
bool BSpline<T>::solve(const T* y) {
    if (!this->_ok) {
        return false;
    }
    this->_ok = false;
    const auto n = static_cast<std::size_t>(this->nX());
    double sum = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
        sum += y[i];
    }
    _mean = static_cast<T>(sum / static_cast<double>(n));
    std::vector<T> b(static_cast<std::size_t>(this->nNodes()), T(0));
    for (std::size_t i = 0; i < n; ++i) {
        int first = 0;
        int last = -1;
        this->nodesAround(this->_x[i], first, last);
        for (int m = first; m <= last; ++m) {
            b[static_cast<std::size_t>(m)] += static_cast<T>((y[i] - _mean) * this->Basis(m, this->_x[i]));
        }
    }
    if (!LU_solve_banded(this->_q, b, BandedMatrix<T>::kBand)) {
        return false;
    }
    _coefficients = std::move(b);
    this->_ok = true;
    return true;
}

template <typename T>
T BSpline<T>::evaluate(T x) const {
    if (!this->_ok) {
        return 0;
    }
    double y = _mean;
    int first = 0;
    int last = -1;
    this->nodesAround(x, first, last);
    for (int m = first; m <= last; ++m) {
        y += _coefficients[static_cast<std::size_t>(m)] * this->Basis(m, x);
    }
    return static_cast<T>(y);
}

template <typename T>
T BSpline<T>::slope(T x) const {
    if (!this->_ok) {
        return 0;
    }
    double dy = 0.0;
    int first = 0;
    int last = -1;
    this->nodesAround(x, first, last);
    for (int m = first; m <= last; ++m) {
        dy += _coefficients[static_cast<std::size_t>(m)] * this->DBasis(m, x);
    }
    return static_cast<T>(dy);
}

template <typename T>
T BSpline<T>::coefficient(int i) const {
    return this->_ok && i >= 0 && i <= this->_m ? _coefficients[static_cast<std::size_t>(i)] : T(0);
}

template class BSplineBase<double>;
template class BSpline<double>;
