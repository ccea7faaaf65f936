// LU decomposition.
//
// Each element a(i, j) is reduced by l(i, k) u(k, j) for k ascending, one product at a time, as in
// Crout's inner products; but the loops run along rows and over panels of columns, so that the work
// goes on in vector lanes and in the cache. The bits are the same.
#include "solve/lu.h"

#include <algorithm>
#include <utility>

#include "frame/lanes.h"
#include "frame/wide_lanes.h"
#include "frame/work_array.h"
#include "kit/lu_steps.h"
#include "ztmath/solve.h"

namespace ztmath {

namespace {

/// Columns that are decomposed together before those right of them are touched: wide panels within
/// the matrix, narrow ones within a wide one.
constexpr int wide_panel = 32;
constexpr int narrow_panel = 8;

/// The block of the matrix that is updated in registers.
constexpr int tile_rows = 4;
constexpr int tile_groups = 2;

/// A run of indices, the end left out.
struct Range {
    int begin, end;
};

/// Reduces columns of row i by other rows, whose columns are decomposed.
void reduce_row(double* const* a, int i, Range by, Range columns) {
    for (int k = by.begin; k < by.end; ++k)
        subtract_scaled(a[i] + columns.begin, a[i][k], a[k] + columns.begin,
                        columns.end - columns.begin);
}

/// Reduces Rows rows of lane groups by all of a panel, in registers.
template <class Lanes, int Rows>
[[gnu::always_inline]] inline void reduce_tile(double* const* a, Range panel, int row, int column) {
    constexpr std::ptrdiff_t width = width_of<Lanes>;
    double* rows[Rows];
    Lanes tile[Rows][tile_groups];
    for (int r = 0; r < Rows; ++r) {
        rows[r] = a[row + r];
        for (int g = 0; g < tile_groups; ++g)
            load(rows[r] + column + g * width, tile[r][g]);
    }
    for (int k = panel.begin; k < panel.end; ++k)
        for (int g = 0; g < tile_groups; ++g) {
            Lanes u;
            load(a[k] + column + g * width, u);
            for (int r = 0; r < Rows; ++r)
                // cppcheck-suppress uninitvar ; written above
                tile[r][g] -= rows[r][k] * u;
        }
    for (int r = 0; r < Rows; ++r)
        for (int g = 0; g < tile_groups; ++g)
            store(tile[r][g], rows[r] + column + g * width);
}

/// Reduces, below a panel, the columns from `column` up to `end` that fill tiles; returns the first
/// column left.
template <class Lanes>
[[gnu::always_inline]] inline int reduce_tiles(double* const* a, int n, Range panel, int column,
                                               int end) {
    constexpr int strip = tile_groups * width_of<Lanes>;
    for (; column + strip <= end; column += strip) {
        int row = panel.end;
        for (; row + tile_rows <= n; row += tile_rows)
            reduce_tile<Lanes, tile_rows>(a, panel, row, column);
        for (; row < n; ++row)
            reduce_tile<Lanes, 1>(a, panel, row, column);
    }
    return column;
}

ZTMATH_WIDE_LANES int reduce_wide_tiles(double* const* a, int n, Range panel, int column, int end) {
    return reduce_tiles<Quad>(a, n, panel, column, end);
}

/// Reduces the columns between a panel and `end`: the panel's own rows one after the other, then
/// the rows below it by tiles.
void reduce_rest(double* const* a, int n, Range panel, int end) {
    if (panel.end == end) return;
    for (int i = panel.begin + 1; i < panel.end; ++i)
        reduce_row(a, i, {panel.begin, i}, {panel.end, end});
    int column = panel.end;
    if (has_wide_lanes()) column = reduce_wide_tiles(a, n, panel, column, end);
    column = reduce_tiles<Pair>(a, n, panel, column, end);
    if (column == end) return;
    for (int i = panel.end; i < n; ++i)
        reduce_row(a, i, panel, {column, end});
}

void decompose_narrow(double** a, int n, Range columns, Pivoting& pivoting) {
    for (int j = columns.begin; j < columns.end; ++j)
        eliminate_column(a, n, j, columns.end, pivoting);
}

/// Decomposes columns, over all rows from their diagonal down, by panels that `decompose_panel`
/// does.
template <class DecomposePanel>
void decompose_by_panels(double** a, int n, Range columns, int width, Pivoting& pivoting,
                         DecomposePanel decompose_panel) {
    for (int begin = columns.begin; begin < columns.end; begin += width) {
        const Range panel{begin, std::min(begin + width, columns.end)};
        decompose_panel(a, n, panel, pivoting);
        reduce_rest(a, n, panel, columns.end);
    }
}

void decompose_wide(double** a, int n, Range columns, Pivoting& pivoting) {
    decompose_by_panels(a, n, columns, narrow_panel, pivoting, decompose_narrow);
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

/// Rows that are substituted among themselves once the known part has been.
constexpr int substitution_block = 4;

/// Calls substitute_known on a block of rows: on a whole one side by side, so that no sum waits for
/// itself.
void substitute_known(const double* const* a, Range rows, Range known, double* b) {
    if (rows.end - rows.begin == substitution_block) {
        substitute_known<substitution_block>(a, rows.begin, known, b);
        return;
    }
    for (int i = rows.begin; i < rows.end; ++i)
        substitute_known<1>(a, i, known, b);
}

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
    decompose_by_panels(a, n, {0, n}, wide_panel, pivoting, decompose_wide);
    sign = pivoting.sign;
    return true;
}

void lu_solve(const double* const* a, int n, const int* exchanges, double* b) {
    if (n < 1) return;
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
