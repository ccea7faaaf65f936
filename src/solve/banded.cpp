// Banded systems: elimination by rows without pivoting, inside the band.
//
// Every element is divided and subtracted from in the order of the columns left of it, whatever the
// grouping of the loops: results are those of the plain triple loop, bit for bit.
#include "ztmath/banded.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>

#include "frame/work_array.h"
#include "solve/error_register.h"
#include "solve/lanes.h"

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

constexpr Index group_size = 4;

/// Eliminates columns k to k + 3 in one pass over the row.
void eliminate_group(double* __restrict row, double* const* matrix, Index k, const Band& band) {
    const double* __restrict u0 = matrix[k];
    const double* __restrict u1 = matrix[k + 1];
    const double* __restrict u2 = matrix[k + 2];
    const double* __restrict u3 = matrix[k + 3];
    const double f0 = row[k] / u0[k];
    const double f1 = (row[k + 1] - f0 * u0[k + 1]) / u1[k + 1];
    const double f2 = (row[k + 2] - f0 * u0[k + 2] - f1 * u1[k + 2]) / u2[k + 2];
    const double f3 = (row[k + 3] - f0 * u0[k + 3] - f1 * u1[k + 3] - f2 * u2[k + 3]) / u3[k + 3];
    row[k] = f0;
    row[k + 1] = f1;
    row[k + 2] = f2;
    row[k + 3] = f3;
    const Index common = band.last(k);
    for (Index j = k + group_size; j <= common; ++j)
        row[j] = row[j] - f0 * u0[j] - f1 * u1[j] - f2 * u2[j] - f3 * u3[j];
    for (Index j = common + 1; j <= band.last(k + 1); ++j)
        row[j] -= f1 * u1[j];
    for (Index j = common + 1; j <= band.last(k + 2); ++j)
        row[j] -= f2 * u2[j];
    for (Index j = common + 1; j <= band.last(k + 3); ++j)
        row[j] -= f3 * u3[j];
}

bool has_null_pivot(double* const* matrix, Index first, Index end) {
    for (Index k = first; k < end; ++k)
        if (is_null_pivot(matrix[k][k])) return true;
    return false;
}

/// Reduces row i by the rows above it; false at a null pivot.
bool reduce_row(double* const* matrix, Index i, const Band& band) {
    double* row = matrix[i];
    Index k = band.first(i);
    for (; k + group_size <= i && !has_null_pivot(matrix, k, k + group_size); k += group_size)
        eliminate_group(row, matrix, k, band);
    for (; k < i; ++k) {
        if (is_null_pivot(matrix[k][k])) return false;
        eliminate(row, matrix[k], k, band.last(k));
    }
    return true;
}

void substitute_forward(double* const* matrix, const Band& band, double* b) {
    for (Index i = 1; i < band.n; ++i) {
        const double* row = matrix[i];
        double value = b[i];
        for (Index k = band.first(i); k < i; ++k)
            value -= row[k] * b[k];
        b[i] = value;
    }
}

/// False at a null diagonal element, what is above it being unsolved.
bool substitute_back(double* const* matrix, const Band& band, double* b) {
    for (Index i = band.n - 1; i >= 0; --i) {
        const double* row = matrix[i];
        const Index last = band.last(i);
        double value = b[i];
        for (Index j = i + 1; j <= last; ++j)
            value -= row[j] * b[j];
        b[i] = value;
        if (is_null_pivot(row[i])) return false;
        b[i] = value / row[i];
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
    else if (band.element_count() < 1)
        push_error(no_storage, failure_level);
    else
        make_system(band, matrix, rhs);
    // Kept as it stands: an error of before that was not flushed fails this set-up, too.
    if (error_register.level != 0) mdispose_banded(matrix, rhs);
}

void mdecompose_banded(double** matrix, int n, int bw) {
    if (bw < 1) return;
    const Band band{n, bw};
    for (Index i = 1; i < n; ++i)
        if (!reduce_row(matrix, i, band)) return push_error(null_pivot, failure_level);
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
