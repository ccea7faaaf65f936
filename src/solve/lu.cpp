// LU decomposition.
//
// Each element a(i, j) is reduced by l(i, k) u(k, j) for k ascending, one product at a time, as in
// Crout's inner products; but the loops run along rows and over panels of columns, so that the work
// goes on in vector lanes and in the cache. The bits are the same.
#include "solve/lu.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "frame/work_array.h"
#include "solve/lanes.h"
#include "ztmath/solve.h"

namespace ztmath {

namespace {

/// Columns that are decomposed together before the rest of the matrix is touched.
constexpr int panel_width = 32;

/// The block of the matrix that is updated in registers.
constexpr int tile_rows = 4;
constexpr int tile_columns = 8;

constexpr double tiny_pivot = 1e-20;

/// A run of indices, the end left out.
struct Range {
    int begin, end;
};

double largest_magnitude(const double* row, int n) {
    double largest = 0.0;
    for (int j = 0; j < n; ++j)
        if (std::fabs(row[j]) > largest) largest = std::fabs(row[j]);
    return largest;
}

/// Writes the reciprocal of each row's largest magnitude; false if a row has none.
bool find_scales(const double* const* a, int n, double* scales) {
    for (int i = 0; i < n; ++i) {
        const double largest = largest_magnitude(a[i], n);
        if (largest == 0.0) return false;
        scales[i] = 1.0 / largest;
    }
    return true;
}

/// The row whose scaled element in column j is largest; the last one of equals.
int best_pivot_row(const double* const* a, int n, int j, const double* scales) {
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

/// What a decomposition keeps between columns.
struct Pivoting {
    double* scales;
    int* exchanges;
    double sign;
};

void exchange_pivot_row(double** a, int n, int j, Pivoting& pivoting) {
    const int best = best_pivot_row(a, n, j, pivoting.scales);
    if (best != j) {
        std::swap_ranges(a[j], a[j] + n, a[best]);
        pivoting.sign = -pivoting.sign;
        pivoting.scales[best] = pivoting.scales[j];
    }
    pivoting.exchanges[j] = best;
}

/// Decomposes the columns of a panel, over all rows from its diagonal down.
void decompose_panel(double** a, int n, Range panel, Pivoting& pivoting) {
    for (int j = panel.begin; j < panel.end; ++j) {
        exchange_pivot_row(a, n, j, pivoting);
        if (a[j][j] == 0.0) a[j][j] = tiny_pivot;
        if (j == n - 1) break;
        const double reciprocal = 1.0 / a[j][j];
        for (int i = j + 1; i < n; ++i) {
            a[i][j] *= reciprocal;
            subtract_scaled(a[i] + j + 1, a[i][j], a[j] + j + 1, panel.end - j - 1);
        }
    }
}

/// Reduces the panel's rows to the right of it.
void reduce_panel_rows(double** a, int n, Range panel) {
    for (int i = panel.begin + 1; i < panel.end; ++i)
        for (int k = panel.begin; k < i; ++k)
            subtract_scaled(a[i] + panel.end, a[i][k], a[k] + panel.end, n - panel.end);
}

/// Reduces Rows x Columns elements by all of a panel, in registers.
template <int Rows, int Columns>
void reduce_tile(double* const* a, Range panel, int row, int column) {
    double tile[Rows][Columns];
    for (int r = 0; r < Rows; ++r)
        for (int c = 0; c < Columns; ++c)
            tile[r][c] = a[row + r][column + c];
    for (int k = panel.begin; k < panel.end; ++k) {
        const double* __restrict u = a[k] + column;
        for (int r = 0; r < Rows; ++r) {
            const double l = a[row + r][k];
            for (int c = 0; c < Columns; ++c)
                tile[r][c] -= l * u[c];
        }
    }
    for (int r = 0; r < Rows; ++r)
        for (int c = 0; c < Columns; ++c)
            a[row + r][column + c] = tile[r][c];
}

template <int Columns>
void reduce_column_strip(double* const* a, int n, Range panel, int column) {
    int row = panel.end;
    for (; row + tile_rows <= n; row += tile_rows)
        reduce_tile<tile_rows, Columns>(a, panel, row, column);
    for (; row < n; ++row)
        reduce_tile<1, Columns>(a, panel, row, column);
}

/// Reduces everything below and to the right of a panel.
void reduce_rest(double* const* a, int n, Range panel) {
    int column = panel.end;
    for (; column + tile_columns <= n; column += tile_columns)
        reduce_column_strip<tile_columns>(a, n, panel, column);
    for (; column < n; ++column)
        reduce_column_strip<1>(a, n, panel, column);
}

/// Reduces Rows sums by the products of rows from `first_row` on with the known part of b.
template <int Rows>
void substitute_known(const double* const* a, int first_row, Range known, double* b) {
    double sum[Rows];
    for (int r = 0; r < Rows; ++r)
        sum[r] = b[first_row + r];
    for (int j = known.begin; j < known.end; ++j)
        for (int r = 0; r < Rows; ++r)
            sum[r] -= a[first_row + r][j] * b[j];
    for (int r = 0; r < Rows; ++r)
        b[first_row + r] = sum[r];
}

/// Calls substitute_known on `rows` rows: four side by side, so that no sum waits for itself.
void substitute_known(const double* const* a, Range rows, Range known, double* b) {
    int i = rows.begin;
    for (; i + 4 <= rows.end; i += 4)
        substitute_known<4>(a, i, known, b);
    for (; i < rows.end; ++i)
        substitute_known<1>(a, i, known, b);
}

/// Rows that are substituted among themselves once the known part has been.
constexpr int substitution_block = 4;

void substitute_forward(const double* const* a, int n, double* b) {
    const int first =
        static_cast<int>(std::find_if(b, b + n, [](double s) { return s != 0.0; }) - b);
    for (int begin = first; begin < n; begin += substitution_block) {
        const Range block{begin, std::min(begin + substitution_block, n)};
        substitute_known(a, block, {first, begin}, b);
        for (int i = begin + 1; i < block.end; ++i)
            substitute_known<1>(a, i, {begin, i}, b);
    }
}

void substitute_back(const double* const* a, int n, double* b) {
    for (int end = n; end > 0; end -= substitution_block) {
        const Range block{std::max(end - substitution_block, 0), end};
        substitute_known(a, block, {end, n}, b);
        for (int i = end - 1; i >= block.begin; --i) {
            substitute_known<1>(a, i, {i + 1, end}, b);
            b[i] /= a[i][i];
        }
    }
}

}  // namespace

bool lu_decompose(double** a, int n, int* exchanges, double& sign) {
    sign = 1.0;
    WorkArray<double, 64> scales(n);
    if (!find_scales(a, n, scales.data())) return false;
    Pivoting pivoting{scales.data(), exchanges, 1.0};
    for (int begin = 0; begin < n; begin += panel_width) {
        const Range panel{begin, std::min(begin + panel_width, n)};
        decompose_panel(a, n, panel, pivoting);
        if (panel.end == n) break;
        reduce_panel_rows(a, n, panel);
        reduce_rest(a, n, panel);
    }
    sign = pivoting.sign;
    return true;
}

void lu_solve(const double* const* a, int n, const int* exchanges, double* b) {
    for (int i = 0; i < n; ++i)
        std::swap(b[i], b[exchanges[i]]);
    substitute_forward(a, n, b);
    substitute_back(a, n, b);
}

}  // namespace ztmath

using namespace ztmath;

int ludcmp_a(double** a, int n, int* indx, double* d) {
    double sign;
    const bool decomposed = lu_decompose(a, n, indx, sign);
    *d = sign;
    return !decomposed;
}

void lubksb_a(double** a, int n, const int* indx, double* b) {
    WorkArray<double, 64> solution(n);
    std::copy_n(b, std::max(n, 0), solution.data());
    lu_solve(a, n, indx, solution.data());
    std::copy_n(solution.data(), std::max(n, 0), b);
}

int SOLVE_lu_solver(double** a, double** b, int n, int nrhs) {
    WorkArray<int, 64> exchanges(n);
    WorkArray<double, 64> column(n);
    double sign;
    if (!lu_decompose(a, n, exchanges.data(), sign)) return 1;
    for (int k = 0; k < nrhs; ++k) {
        for (int i = 0; i < n; ++i)
            column[i] = b[i][k];
        lu_solve(a, n, exchanges.data(), column.data());
        for (int i = 0; i < n; ++i)
            b[i][k] = column[i];
    }
    return 0;
}
