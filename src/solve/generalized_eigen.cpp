// The generalized symmetric eigenproblem a x = lambda b x, by the Cholesky factor of b.
#include "solve/generalized_eigen.h"

#include <algorithm>

#include "solve/cholesky.h"
#include "solve/matrix.h"
#include "ztmath/nr.h"
#include "ztmath/solve.h"

namespace ztmath {

namespace {

constexpr Module report_part = eigen_module.part(1);

using Matrix = FlatRows<double>;

/// L of b: the strict lower triangle of its factor, the diagonal from beside it, zeros above.
void load_factor(Matrix factored, const double* diagonal, int n, Matrix factor) {
    for (int i = 0; i < n; ++i) {
        std::copy_n(factored[i], i, factor[i]);
        factor[i][i] = diagonal[i];
        std::fill_n(factor[i] + i + 1, n - i - 1, 0.0);
    }
}

/// Jacobi reads the upper triangle and works on both.
void mirror_upper(Matrix m, int n) {
    for (int i = 1; i < n; ++i)
        for (int j = 0; j < i; ++j)
            m[i][j] = m[j][i];
}

/// Solves factor^T y = x for every column of x, by the LU pair.
bool solve_transposed(Matrix factor, Matrix x, int n) {
    transpose(factor, n);
    WorkArray<double*, 64> pointers(2 * std::ptrdiff_t{n});
    double** const factor_rows = pointers.data();
    double** const x_rows = factor_rows + n;
    for (int i = 0; i < n; ++i) {
        factor_rows[i] = factor[i];
        x_rows[i] = x[i];
    }
    return SOLVE_lu_solver(factor_rows, x_rows, n, n) == 0;
}

}  // namespace

namespace pencil_detail {

bool reduce(const PencilArrays& w, int n) {
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

bool restore_vectors(const PencilArrays& w, int n) {
    const Matrix vectors{w.b, n};
    transpose(vectors, n);
    return solve_transposed({w.factor, n}, vectors, n);
}

}  // namespace pencil_detail

void report(const PencilResult& result) {
    report_exhaustion(result.jacobi);
    if (!result.has_vectors) report_part.internal("The third call of SOLVE_lu_solver failed.");
}

}  // namespace ztmath

using namespace ztmath;

void NR_generalized_eigenvalues_symm(double* A, double* B, int n, int max_sweeps,
                                     double* eigenvalues, double** eigenvector_block, int* nrot,
                                     int* status) {
    const int size = std::max(n, 0);
    const std::ptrdiff_t square = element_count(size, size);
    // Work on copies: the caller may want the results over A, B or the start of either. Up to 5 x 5
    // they are on the stack.
    WorkArray<double, pencil_size(5)> block(pencil_size(size));
    const PencilArrays w = pencil_arrays(block.data(), size);
    std::copy_n(A, square, w.a);
    std::copy_n(B, square, w.b);
    std::copy_n(eigenvalues, size, w.diagonal);
    const PencilResult result = solve_pencil(w, size, max_sweeps);
    if (!result.definite) {
        std::copy_n(w.diagonal, size, eigenvalues);
        *status = 1;
        return;
    }
    SmArray<double> own_block(*eigenvector_block == nullptr ? square : 0);
    report(result);
    std::copy_n(w.values, size, eigenvalues);
    if (*eigenvector_block == nullptr) *eigenvector_block = own_block.release();
    std::copy_n(w.b, square, *eigenvector_block);
    *nrot = result.jacobi.rotations;
    *status = 0;
}
