// Cholesky factors of flat matrices: the strict lower triangle in the matrix, the diagonal apart.
//
// A Size is an int, or an integral constant with which small matrices are unrolled; the bits are
// the same.
#pragma once

#include <cmath>

#include "solve/matrix.h"

namespace ztmath {

/// Decomposes in place; false, with what has been reached, if the matrix is not positive definite.
template <class Size>
bool cholesky_decompose(Size n, double* a, double* diagonal) {
    constexpr double least_remainder = 1e-10;  // on the diagonal: an absolute bound
    const FlatRows rows{a, n};
    for (int i = 0; i < n; ++i)
        for (int j = i; j < n; ++j) {
            double sum = rows[i][j];
            for (int k = i - 1; k >= 0; --k)
                sum -= rows[i][k] * rows[j][k];
            if (i == j) {
                if (sum < least_remainder) return false;
                diagonal[i] = std::sqrt(sum);
            } else {
                rows[j][i] = sum / diagonal[i];
            }
        }
    return true;
}

/// Replaces the lower triangle of a factor, diagonal included, by that of its inverse.
template <class Size>
void cholesky_invert(Size n, const double* diagonal, double* a) {
    const FlatRows rows{a, n};
    for (int i = 0; i < n; ++i) {
        rows[i][i] = 1.0 / diagonal[i];
        for (int j = i + 1; j < n; ++j) {
            double sum = 0.0;
            for (int k = i; k < j; ++k)
                sum += rows[j][k] * rows[k][i];
            rows[j][i] = -sum / diagonal[j];
        }
    }
}

}  // namespace ztmath
