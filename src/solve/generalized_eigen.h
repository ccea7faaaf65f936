// The generalized symmetric eigenproblem a x = lambda b x, for sizes known when compiling and not.
#pragma once

#include <algorithm>
#include <cstddef>

#include "frame/vec.h"
#include "solve/cholesky.h"
#include "solve/jacobi.h"

namespace ztmath {

/// Where the problem is solved; all arrays are the caller's.
struct PencilArrays {
    double* a;         ///< n x n, symmetric; destroyed
    double* b;         ///< n x n, symmetric; destroyed. out: column i is the eigenvector of value i
    double* factor;    ///< n x n
    double* product;   ///< n x n
    double* diagonal;  ///< n. out: of the Cholesky factor of b, as far as it came
    double* values;    ///< out: n
    double* work;      ///< 2 n
};

constexpr std::ptrdiff_t pencil_size(std::ptrdiff_t n) {
    return 4 * n * n + 4 * n;
}

/// The arrays one after the other in a block of that size.
inline PencilArrays pencil_arrays(double* block, std::ptrdiff_t n) {
    const std::ptrdiff_t square = n * n;
    double* const rest = block + 4 * square;
    return {block, block + square, block + 2 * square, block + 3 * square,
            rest,  rest + n,       rest + 2 * n};
}

struct PencilResult {
    bool definite = false;  ///< whether b is; else nothing has been solved
    bool has_vectors = true;
    JacobiResult jacobi{0, true};
};

/// Reports what went wrong in solving, as every routine that does so has to.
void report(const PencilResult& result);

namespace pencil_detail {

using Matrix = FlatRows<double>;

/// L of b: the strict lower triangle of its factor, the diagonal from beside it, zeros above.
template <class Size>
void load_factor(Matrix factored, const double* diagonal, Size n, Matrix factor) {
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            factor[i][j] = j < i ? factored[i][j] : j == i ? diagonal[i] : 0.0;
}

/// Jacobi reads the upper triangle and works on both.
template <class Size>
void mirror_upper(Matrix m, Size n) {
    for (int i = 1; i < n; ++i)
        for (int j = 0; j < i; ++j)
            m[i][j] = m[j][i];
}

/// a becomes the symmetric matrix with the same eigenvalues; false if b is not positive definite.
template <class Size>
bool reduce(const PencilArrays& w, Size n) {
    if (!cholesky_decompose(n, w.b, w.diagonal)) return false;
    const Matrix inverse{w.b, n};
    const Matrix left{w.product, n};
    const Matrix reduced{w.a, n};
    load_factor(inverse, w.diagonal, n, {w.factor, n});
    cholesky_invert(n, w.diagonal, w.b);
    zero_upper(inverse, n);
    multiply(inverse, reduced, n, n, n, left);
    transpose(inverse, n);
    multiply(left, inverse, n, n, n, reduced);
    mirror_upper(reduced, n);
    return true;
}

template <class Size>
bool is_finite_factor(const double* diagonal, Size n) {
    return std::all_of(diagonal, diagonal + n, [](double d) { return is_finite(d); });
}

/// Solves factor^T y = x for every column of x by the LU pair; false if it finds no solution.
bool solve_by_lu(Matrix factor, Matrix x, int n);

/// The same. For a factor that is finite, which has nothing to pivot or to eliminate, this is the
/// back substitution that the LU pair would come to.
template <class Size>
bool solve_transposed(const PencilArrays& w, Matrix x, Size n) {
    const Matrix factor{w.factor, n};
    if (!is_finite_factor(w.diagonal, n)) return solve_by_lu(factor, x, n);
    for (int i = n - 1; i >= 0; --i) {
        for (int j = i + 1; j < n; ++j)
            subtract_scaled(x[i], factor[j][i], x[j], n);
        for (int c = 0; c < n; ++c)
            x[i][c] /= factor[i][i];
    }
    return true;
}

/// The eigenvectors of the reduced matrix, in the rows of b, become those of the problem.
template <class Size>
bool restore_vectors(const PencilArrays& w, Size n) {
    const Matrix vectors{w.b, n};
    transpose(vectors, n);
    return solve_transposed(w, vectors, n);
}

}  // namespace pencil_detail

/// Size is an int, or an integral constant for which the iteration is unrolled; the bits are the
/// same.
template <class Size>
PencilResult solve_pencil(const PencilArrays& w, Size n, int max_sweeps) {
    PencilResult result;
    result.definite = pencil_detail::reduce(w, n);
    if (!result.definite) return result;
    result.jacobi = jacobi({w.a, w.b, w.values, w.work}, n, max_sweeps);
    result.has_vectors = pencil_detail::restore_vectors(w, n);
    return result;
}

}  // namespace ztmath
