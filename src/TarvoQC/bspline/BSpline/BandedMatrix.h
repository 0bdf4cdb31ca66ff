#pragma once

#include <array>
#include <cstddef>
#include <vector>

/// A square matrix of which only the diagonals -3 to +3 are stored. Reads outside of that band give zero.
template <typename T>
class BandedMatrix {
public:
    static constexpr int kBand = 3;

    BandedMatrix() = default;
    explicit BandedMatrix(int size) : _size(size), _rows(static_cast<std::size_t>(size)) {}

    int size() const { return _size; }

    static bool inBand(int i, int j) { return j - i <= kBand && i - j <= kBand; }

    /// An element of the band, to be changed.
    T& at(int i, int j) { return _rows[static_cast<std::size_t>(i)][static_cast<std::size_t>(j - i + kBand)]; }
    T operator()(int i, int j) const {
        return inBand(i, j) ? _rows[static_cast<std::size_t>(i)][static_cast<std::size_t>(j - i + kBand)] : T(0);
    }

private:
    int _size = 0;
    std::vector<std::array<T, 2 * kBand + 1>> _rows;
};

/// Factors \p A in place into a unit lower and an upper triangle (Doolittle, without pivoting), using the band only.
/// False on a zero pivot.
template <typename T>
bool LU_factor_banded(BandedMatrix<T>& A, int bands) {
    const int n = A.size();
    for (int i = 0; i < n; ++i) {
        const int end = i + bands < n - 1 ? i + bands : n - 1;
        for (int j = i; j <= end; ++j) { // the row of the upper triangle
            T sum = A(i, j);
            for (int k = j - bands > 0 ? j - bands : 0; k < i; ++k) {
                sum -= A(i, k) * A(k, j);
            }
            A.at(i, j) = sum;
        }
        const T pivot = A(i, i);
        if (pivot == T(0)) {
            return false;
        }
        for (int j = i + 1; j <= end; ++j) { // the column of the lower triangle
            T sum = A(j, i);
            for (int k = j - bands > 0 ? j - bands : 0; k < i; ++k) {
                sum -= A(j, k) * A(k, i);
            }
            A.at(j, i) = sum / pivot;
        }
    }
    return true;
}

/// Solves in place for \p b with a matrix that LU_factor_banded() has factored. False on a zero diagonal element.
template <typename T>
bool LU_solve_banded(const BandedMatrix<T>& A, std::vector<T>& b, int bands) {
    const int n = A.size();
    const auto at = [&b](int i) -> T& { return b[static_cast<std::size_t>(i)]; };
    for (int i = 0; i < n; ++i) {
        T sum = at(i);
        for (int k = i - bands > 0 ? i - bands : 0; k < i; ++k) {
            sum -= A(i, k) * at(k);
        }
        at(i) = sum;
    }
    for (int i = n - 1; i >= 0; --i) {
        if (A(i, i) == T(0)) {
            return false;
        }
        T sum = at(i);
        for (int k = i + 1; k < n && k <= i + bands; ++k) {
            sum -= A(i, k) * at(k);
        }
        at(i) = sum / A(i, i);
    }
    return true;
}
