// Banded systems: elimination by rows without pivoting, inside the band.
//
// Every element is divided and subtracted from in the order of the columns left of it, whatever the
// grouping of the loops: results are those of the plain triple loop, bit for bit.
#include "ztmath/banded.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <iterator>

#include "frame/lanes.h"
#include "frame/work_array.h"
#include "solve/error_register.h"

namespace ztmath {

namespace {

using Index = std::ptrdiff_t;

constexpr int bad_arguments = 280;
constexpr int no_storage = 950;
constexpr int null_pivot = 7235;
constexpr int failure_level = 4;

bool is_null_pivot(double pivot) {
    return std::fabs(pivot) < 1.0e-15;
}

/// The shape of a band matrix: which columns a row stores.
struct Band {
    Index n, width;

    Index first(Index row) const { return std::max<Index>(0, row - width); }
    Index last(Index row) const { return std::min(n - 1, row + width); }
    Index row_length(Index row) const { return last(row) - first(row) + 1; }

    Index element_count() const {
        const Index w = std::min(width, n - 1);
        return n * (2 * w + 1) - w * (w + 1);
    }
};

/// Fills the pointer array: the block, then the rows, each moved back by its first stored column.
void point_to_rows(const Band& band, double* block, double** pointers) {
    *pointers++ = block;
    for (Index i = 0; i < band.n; ++i) {
        pointers[i] = block - band.first(i);
        block += band.row_length(i);
    }
}

void make_system(const Band& band, double*** matrix, double** rhs) {
    SmArray<double> block(band.element_count(), Zeroed{});
    SmArray<double*> pointers(band.n + 1, Zeroed{});
    SmArray<double> b(band.n);
    point_to_rows(band, block.data(), pointers.data());
    block.release();
    *matrix = pointers.release() + 1;
    *rhs = b.release();
}

/// Eliminates column k of a row below row k.
void eliminate(double* row, const double* pivot_row, Index k, Index last) {
    const double factor = row[k] / pivot_row[k];
    row[k] = factor;
    subtract_scaled(row + k + 1, factor, pivot_row + k + 1, static_cast<int>(last - k));
}

/// Pivot rows are taken by fours, so that a row is fetched and stored once for all four.
constexpr Index group_size = 4;

struct Group {
    const double* u[group_size];
};

Group pivot_rows(double* const* matrix, Index k) {
    return {{matrix[k], matrix[k + 1], matrix[k + 2], matrix[k + 3]}};
}

struct Factors {
    double f[group_size];
};

/// Eliminates columns k to k + 3 of a row as far as these columns themselves go.
Factors eliminate_corner(double* row, const Group& group, Index k) {
    Factors factors;
    for (Index s = 0; s < group_size; ++s) {
        double value = row[k + s];
        for (Index t = 0; t < s; ++t)
            // cppcheck-suppress uninitvar ; those before s are written
            value -= factors.f[t] * group.u[t][k + s];
        factors.f[s] = row[k + s] = value / group.u[s][k + s];
    }
    return factors;
}

/// Subtracts four multiples of pivot rows from two rows, at n places.
void subtract_from_two(double* __restrict a, const Factors& p, double* __restrict b,
                       const Factors& q, const double* __restrict u0, const double* __restrict u1,
                       const double* __restrict u2, const double* __restrict u3, Index n) {
    const auto [p0, p1, p2, p3] = p.f;
    const auto [q0, q1, q2, q3] = q.f;
    for (Index j = 0; j < n; ++j) {
        a[j] = a[j] - p0 * u0[j] - p1 * u1[j] - p2 * u2[j] - p3 * u3[j];
        b[j] = b[j] - q0 * u0[j] - q1 * u1[j] - q2 * u2[j] - q3 * u3[j];
    }
}

/// Subtracts the multiples at the few places right of `common` that not all pivot rows reach.
void subtract_ends(double* row, const Factors& factors, const Group& group, Index k, Index common,
                   const Band& band) {
    for (Index t = 1; t < group_size; ++t)
        for (Index j = common + 1; j <= band.last(k + t); ++j)
            row[j] -= factors.f[t] * group.u[t][j];
}

/// Eliminates columns k to k + 3 of two rows.
void eliminate_group(double* a, double* b, double* const* matrix, Index k, const Band& band) {
    const Group group = pivot_rows(matrix, k);
    const Factors p = eliminate_corner(a, group, k);
    const Factors q = eliminate_corner(b, group, k);
    const Index first = k + group_size;
    const Index common = band.last(k);
    subtract_from_two(a + first, p, b + first, q, group.u[0] + first, group.u[1] + first,
                      group.u[2] + first, group.u[3] + first, common - first + 1);
    subtract_ends(a, p, group, k, common, band);
    subtract_ends(b, q, group, k, common, band);
}

/// Eliminates columns first to end - 1 of row i by the rows that have them on their diagonals.
void reduce_row(double* const* matrix, Index i, Index first, Index end, const Band& band) {
    for (Index k = first; k < end; ++k)
        eliminate(matrix[i], matrix[k], k, band.last(k));
}

/// Reduces rows i and i + 1 by the rows above i, which have no null pivot.
void reduce_two_rows(double* const* matrix, Index i, const Band& band) {
    Index k = band.first(i + 1);
    reduce_row(matrix, i, band.first(i), k, band);
    for (; k + group_size <= i; k += group_size)
        eliminate_group(matrix[i], matrix[i + 1], matrix, k, band);
    reduce_row(matrix, i, k, i, band);
    reduce_row(matrix, i + 1, k, i, band);
}

/// Reduces row i by the rows above it; false at a null pivot. The pivots above the last one have
/// been looked at with the rows before.
bool decompose_row(double* const* matrix, Index i, const Band& band) {
    const bool pivot_is_null = is_null_pivot(matrix[i - 1][i - 1]);
    reduce_row(matrix, i, band.first(i), pivot_is_null ? i - 1 : i, band);
    return !pivot_is_null;
}

/// Reduces rows begin to end - 1, two at a time; false at a null pivot.
bool decompose_rows(double* const* matrix, Index begin, Index end, const Band& band) {
    Index i = begin;
    for (; i + 1 < end && !is_null_pivot(matrix[i - 1][i - 1]); i += 2) {
        reduce_two_rows(matrix, i, band);
        if (is_null_pivot(matrix[i][i])) return false;
        eliminate(matrix[i + 1], matrix[i], i, band.last(i));
    }
    while (i < end && decompose_row(matrix, i, band))
        ++i;
    return i >= end;
}

/// The same for rows begin to end - 1 of a band of width W, none of which, nor the rows they are
/// reduced by, is cut short by an end of the matrix. Returns the row it came to.
template <int W>
Index decompose_inner_rows(double* const* matrix, Index begin, Index end) {
    Index i = begin;
    for (; i < end && !is_null_pivot(matrix[i - 1][i - 1]); ++i) {
        double* const row = matrix[i] + i - W;
        double work[2 * W];
        for (int j = 0; j < 2 * W; ++j)
            work[j] = row[j];
        for (int k = 0; k < W; ++k) {
            const double* const pivot_row = matrix[i - W + k] + (i - W + k);
            const double factor = work[k] / pivot_row[0];
            work[k] = factor;
            for (int j = 1; j <= W; ++j)
                work[k + j] -= factor * pivot_row[j];
        }
        for (int j = 0; j < 2 * W; ++j)
            row[j] = work[j];
    }
    return i;
}

using InnerRowsDecomposer = Index (*)(double* const* matrix, Index begin, Index end);

/// By width; wider bands have enough work in a row for loops of any length.
constexpr InnerRowsDecomposer inner_rows_decomposers[] = {
    nullptr,
    decompose_inner_rows<1>,
    decompose_inner_rows<2>,
    decompose_inner_rows<3>,
    decompose_inner_rows<4>,
    decompose_inner_rows<5>,
    decompose_inner_rows<6>,
    decompose_inner_rows<7>,
    decompose_inner_rows<8>,
};

/// False at a null pivot.
bool decompose(double* const* matrix, const Band& band) {
    if (band.width >= std::ssize(inner_rows_decomposers))
        return decompose_rows(matrix, 1, band.n, band);
    const Index inner = std::min(band.width, band.n);
    if (!decompose_rows(matrix, 1, inner, band)) return false;
    const Index rest = inner_rows_decomposers[band.width](matrix, inner, band.n - band.width + 1);
    return decompose_rows(matrix, rest, band.n, band);
}

void substitute_forward(double* const* matrix, const Band& band, double* b) {
    double above = b[0];  // the latest element, which need not go through memory
    for (Index i = 1; i < band.n; ++i) {
        const double* const row = matrix[i];
        double value = b[i];
        for (Index k = band.first(i); k < i - 1; ++k)
            value -= row[k] * b[k];
        if (band.width > 0) value -= row[i - 1] * above;
        b[i] = above = value;
    }
}

/// False at a null diagonal element, what is above it being unsolved.
bool substitute_back(double* const* matrix, const Band& band, double* b) {
    double below = 0.0;
    for (Index i = band.n - 1; i >= 0; --i) {
        const double* const row = matrix[i];
        const Index last = band.last(i);
        double value = b[i];
        if (last > i) value -= row[i + 1] * below;
        for (Index j = i + 2; j <= last; ++j)
            value -= row[j] * b[j];
        b[i] = value;
        if (is_null_pivot(row[i])) return false;
        b[i] = below = value / row[i];
    }
    return true;
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

void msetup_banded(int n, int bw, double*** matrix, double** rhs) {
    *matrix = nullptr;
    *rhs = nullptr;
    const Band band{n, bw};
    if (n < 1 || bw < 0)
        push_error(bad_arguments, failure_level);
    else if (band.element_count() < 1)          // never reached: there is a diagonal
        push_error(no_storage, failure_level);  // GCOVR_EXCL_LINE
    else
        make_system(band, matrix, rhs);
    // Kept as it stands: an error of before that was not flushed fails this set-up, too.
    if (error_register.level != 0) mdispose_banded(matrix, rhs);
}

void mdecompose_banded(double** matrix, int n, int bw) {
    if (bw < 1) return;
    if (!decompose(matrix, {n, bw})) push_error(null_pivot, failure_level);
}

void msolve_banded(double** matrix, int n, int bw, double* b) {
    if (n < 1) return;
    const Band band{n, std::max(bw, 0)};
    WorkArray<double, 64> x(n);
    std::copy_n(b, n, x.data());
    substitute_forward(matrix, band, x.data());
    const bool solved = substitute_back(matrix, band, x.data());
    std::copy_n(x.data(), n, b);
    if (!solved) push_error(null_pivot, failure_level);
}

void mdispose_banded(double*** matrix, double** rhs) {
    double** const rows = *matrix;
    double* const b = *rhs;
    *matrix = nullptr;
    *rhs = nullptr;
    if (rows != nullptr) {
        SM_free(rows[-1]);
        SM_free(rows - 1);
    }
    SM_free(b);
}

void mdump_banded(double** matrix, const double* rhs, int n, int bw) {
    for (int i = 0; i < n; ++i) {
        for (int j = 0; matrix != nullptr && j < n; ++j) {
            if (std::abs(i - j) <= bw)
                std::printf("%10.5f  ", matrix[i][j]);
            else
                std::printf("     0      ");
        }
        if (rhs != nullptr)
            std::printf("%10.5f\n", rhs[i]);
        else
            std::printf("\n");
    }
}
