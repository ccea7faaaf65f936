// The generalized symmetric eigenproblem a x = lambda b x, by the Cholesky factor of b.
#include "solve/generalized_eigen.h"

#include <algorithm>

#include "ztmath/nr.h"
#include "ztmath/solve.h"

namespace ztmath {

namespace {

constexpr Module report_part = eigen_module.part(1);

}  // namespace

bool pencil_detail::solve_by_lu(Matrix factor, Matrix x, int n) {
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
