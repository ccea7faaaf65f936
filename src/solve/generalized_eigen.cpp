// The generalized symmetric eigenproblem A x = lambda B x.
#include <algorithm>

#include "solve/cholesky.h"
#include "solve/jacobi.h"
#include "solve/matrix.h"
#include "ztmath/nr.h"
#include "ztmath/solve.h"

namespace ztmath {

namespace {

constexpr Module report = eigen_module.part(1);

using Matrix = FlatRows<double>;

/// L of B: the strict lower triangle of its factor, the diagonal from beside it, zeros above.
void load_factor(Matrix factored, const double* diagonal, int n, Matrix factor) {
    for (int i = 0; i < n; ++i) {
        std::copy_n(factored[i], i, factor[i]);
        factor[i][i] = diagonal[i];
        std::fill_n(factor[i] + i + 1, n - i - 1, 0.0);
    }
}

void zero_upper(Matrix m, int n) {
    for (int i = 0; i < n; ++i)
        std::fill_n(m[i] + i + 1, n - i - 1, 0.0);
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

}  // namespace ztmath

using namespace ztmath;

void NR_generalized_eigenvalues_symm(double* A, double* B, int n, int max_sweeps,
                                     double* eigenvalues, double** eigenvector_block, int* nrot,
                                     int* status) {
    const int size = std::max(n, 0);
    const std::ptrdiff_t square = element_count(size, size);
    // Work on copies: the caller may want the results over A, B or the start of either.
    SmArray<double> a(square);
    SmArray<double> b(square);
    SmArray<double> l(square);
    SmArray<double> product(square);
    SmArray<double> work(4 * std::ptrdiff_t{size});
    std::copy_n(A, square, a.data());
    std::copy_n(B, square, b.data());
    double* const diagonal = work.data();
    double* const values = diagonal + size;

    std::copy_n(eigenvalues, size, diagonal);
    const bool positive = cholesky_decompose(size, b.data(), diagonal);
    if (!positive) {
        std::copy_n(diagonal, size, eigenvalues);
        *status = 1;
        return;
    }

    const Matrix factor{l.data(), size};
    load_factor({b.data(), size}, diagonal, size, factor);
    const Matrix inverse{b.data(), size};
    cholesky_invert(size, diagonal, b.data());
    zero_upper(inverse, size);
    const Matrix left{product.data(), size};
    const Matrix reduced{a.data(), size};
    multiply(inverse, Matrix{a.data(), size}, size, size, size, left);
    transpose(inverse, size);
    multiply(left, inverse, size, size, size, reduced);

    mirror_upper(reduced, size);
    const Matrix vectors{b.data(), size};
    const JacobiResult result =
        jacobi({reduced.elements, vectors.elements, values, values + size}, size, max_sweeps);
    report_exhaustion(result);
    transpose(vectors, size);
    SmArray<double> own_block(*eigenvector_block == nullptr ? square : 0);
    if (!solve_transposed(factor, vectors, size))
        report.internal("The third call of SOLVE_lu_solver failed.");

    std::copy_n(values, size, eigenvalues);
    if (*eigenvector_block == nullptr) *eigenvector_block = own_block.release();
    std::copy_n(vectors.elements, square, *eigenvector_block);
    *nrot = result.rotations;
    *status = 0;
}
