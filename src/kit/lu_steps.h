// The steps of an LU decomposition that matrices of every size share: rows scaled implicitly, the
// pivot of a column, its elimination.
//
// Rows are row pointers or the rows of an array. A Size is an int, or an integral constant with
// which small matrices are decomposed without loops; the bits are the same.
#pragma once

#include <algorithm>
#include <cmath>

#include "frame/lanes.h"

namespace ztmath {

/// What a decomposition keeps between columns: the reciprocal of each row's largest magnitude, the
/// row exchanged with row j at step j, the parity of the exchanges.
struct Pivoting {
    double* scales;
    int* exchanges;
    double sign;
};

template <class Size>
double largest_magnitude(const double* row, Size n) {
    double largest = 0.0;
    for (int j = 0; j < n; ++j)
        if (std::fabs(row[j]) > largest) largest = std::fabs(row[j]);
    return largest;
}

/// Writes the scales; false if a row is entirely zero.
template <class Rows, class Size>
bool find_scales(Rows a, Size n, double* scales) {
    for (int i = 0; i < n; ++i) {
        const double largest = largest_magnitude(a[i], n);
        if (largest == 0.0) return false;
        scales[i] = 1.0 / largest;
    }
    return true;
}

/// The row whose scaled element in column j is largest; the last one of equals.
template <class Rows, class Size>
int best_pivot_row(Rows a, Size n, int j, const double* scales) {
    int best = j;
    double best_merit = 0.0;
    for (int i = j; i < n; ++i) {
        const double merit = scales[i] * std::fabs(a[i][j]);
        if (merit >= best_merit) {
            best_merit = merit;
            best = i;
        }
    }
    return best;
}

template <class Rows, class Size>
void exchange_pivot_row(Rows a, Size n, int j, Pivoting& pivoting) {
    const int best = best_pivot_row(a, n, j, pivoting.scales);
    if (best != j) {
        std::swap_ranges(a[j], a[j] + n, a[best]);
        pivoting.sign = -pivoting.sign;
        pivoting.scales[best] = pivoting.scales[j];
    }
    pivoting.exchanges[j] = best;
}

/// Pivots column j and eliminates it from the columns after it, up to `end`.
template <class Rows, class Size>
void eliminate_column(Rows a, Size n, int j, int end, Pivoting& pivoting) {
    constexpr double tiny_pivot = 1e-20;
    exchange_pivot_row(a, n, j, pivoting);
    if (a[j][j] == 0.0) a[j][j] = tiny_pivot;
    if (j == n - 1) return;
    const double reciprocal = 1.0 / a[j][j];
    for (int i = j + 1; i < n; ++i) {
        a[i][j] *= reciprocal;
        subtract_scaled(a[i] + j + 1, a[i][j], a[j] + j + 1, end - j - 1);
    }
}

}  // namespace ztmath
