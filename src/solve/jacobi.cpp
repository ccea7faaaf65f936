// Eigenvalues of a symmetric matrix: the exported routine.
#include "solve/jacobi.h"

#include <type_traits>

#include "frame/work_array.h"
#include "ztmath/nr.h"

namespace ztmath {

namespace {

void load_symmetric(const double* const* a, int n, double* matrix) {
    for (int i = 0; i < n; ++i)
        for (int j = i; j < n; ++j)
            matrix[static_cast<std::ptrdiff_t>(i) * n + j] =
                matrix[static_cast<std::ptrdiff_t>(j) * n + i] = a[i][j];
}

ZTMATH_WIDE_LANES void turn_wide(jacobi_detail::Rotation r, double* p, double* q, int n) {
    using namespace jacobi_detail;
    turn_lanes<double>(r, p, q, turn_lanes<Pair>(r, p, q, turn_lanes<Quad>(r, p, q, 0, n), n), n);
}

}  // namespace

/// The sizes of fits and of moments of inertia are unrolled.
JacobiResult jacobi(const JacobiArrays& arrays, int n, int max_sweeps) {
    if (n == 2) return jacobi(arrays, std::integral_constant<int, 2>{}, max_sweeps);
    if (n == 3) return jacobi(arrays, std::integral_constant<int, 3>{}, max_sweeps);
    constexpr int worth_wide_lanes = 16;
    if (n >= worth_wide_lanes && has_wide_lanes())
        return jacobi_detail::Iteration<int, turn_wide>(arrays, n).run(max_sweeps);
    return jacobi_detail::Iteration<int, jacobi_detail::turn>(arrays, n).run(max_sweeps);
}

void report_exhaustion(const JacobiResult& result) {
    if (!result.converged)
        eigen_module.internal("Too many iterations in routine NR_ask_eigenvalues_jacobi.");
}

}  // namespace ztmath

using namespace ztmath;

void NR_ask_eigenvalues_jacobi(double** a, int n, int max_sweeps, double* d, double** v,
                               int* nrot) {
    JacobiResult result;
    {
        // Matrix, vectors, values and work in one piece; up to 6 x 6 on the stack.
        const std::ptrdiff_t size = std::max(n, 0);
        const std::ptrdiff_t square = element_count(n, n);
        WorkArray<double, 96> work(2 * square + 3 * size);
        double* const matrix = work.data();
        double* const vectors = matrix + square;
        double* const values = vectors + square;
        load_symmetric(a, n, matrix);
        result =
            jacobi({matrix, vectors, values, values + size}, static_cast<int>(size), max_sweeps);
        std::copy_n(values, size, d);
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j)
                v[i][j] = vectors[static_cast<std::ptrdiff_t>(j) * n + i];
        *nrot = result.rotations;
    }
    report_exhaustion(result);
}
