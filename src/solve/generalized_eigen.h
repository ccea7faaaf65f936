// The generalized symmetric eigenproblem a x = lambda b x, for sizes known when compiling and not.
#pragma once

#include <cstddef>

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

/// a becomes the symmetric matrix with the same eigenvalues; false if b is not positive definite.
bool reduce(const PencilArrays& w, int n);

/// The eigenvectors of that matrix, in the rows of b, become those of the problem.
bool restore_vectors(const PencilArrays& w, int n);

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
