// Dense solvers, eigenvalues, matrix helpers. Sizes are above what work memory holds in place, so
// that the platform is asked for some.
#include <algorithm>
#include <cmath>

#include "interface/row.h"
#include "syss/syss.h"
#include "ztmath/nr.h"
#include "ztmath/solve.h"

namespace ztmath_test {

namespace {

/// Row pointers over a flat matrix.
template <int rows>
struct RowsOf {
    RowsOf(double* elements, int columns) {
        for (int i = 0; i < rows; ++i)
            pointers[i] = elements + static_cast<std::ptrdiff_t>(i) * columns;
    }
    // Stands where the interface takes row pointers.
    // NOLINTNEXTLINE(google-explicit-constructor)
    operator double**() { return pointers; }

    double* pointers[rows];
};

template <int n>
double* copied(In in, Out out, int i) {
    return std::copy_n(in[i], n, out[i]) - n;
}

/// Symmetric matrices: the first, and where there is a second, that one positive definite.
template <std::size_t n>
void prepare_symmetric(Random&, Arrays& inputs) {
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < i; ++j)
            inputs[0][i * n + j] = inputs[0][j * n + i];
}

template <std::size_t n, std::size_t which>
void prepare_definite(Random&, Arrays& inputs) {
    auto& m = inputs[which];
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t j = 0; j < i; ++j)
            m[i * n + j] = m[j * n + i];
        m[i * n + i] = std::fabs(m[i * n + i]) + 2.0 * n;
    }
}

template <std::size_t n>
void prepare_pencil(Random& random, Arrays& inputs) {
    prepare_symmetric<n>(random, inputs);
    prepare_definite<n, 1>(random, inputs);
}

/// A factor L: ones, about, on the diagonal and little below it.
template <std::size_t n>
void prepare_factor(Random&, Arrays& inputs) {
    for (double& element : inputs[0])
        element /= n;
    for (double& element : inputs[1])
        element = 1 + std::fabs(element);
}

constexpr int lu_size = 66;

double lu_decomposed(In in, Out out) {
    RowsOf<lu_size> a(copied<lu_size * lu_size>(in, out, 0), lu_size);
    int exchanges[lu_size] = {};
    const int status = ludcmp_a(a, lu_size, exchanges, out[1]);
    std::copy_n(in[1], lu_size, out[2]);
    if (status == 0) lubksb_a(a, lu_size, exchanges, out[2]);
    return status;
}

double lu_solved(In in, Out out) {
    RowsOf<lu_size> a(copied<lu_size * lu_size>(in, out, 0), lu_size);
    RowsOf<lu_size> b(copied<lu_size * 2>(in, out, 1), 2);
    return SOLVE_lu_solver(a, b, lu_size, 2);
}

constexpr int svd_rows = 22;
constexpr int svd_columns = 18;

/// Of as many rows as are said to be there; fewer than columns is noted.
template <int rows, int said>
double svd_decomposed(In in, Out out) {
    RowsOf<rows> a(copied<rows * svd_columns>(in, out, 0), svd_columns);
    RowsOf<svd_columns> v(out[2], svd_columns);
    SOLVE_svd_decompose(a, said, svd_columns, out[1], v);
    return 0;
}

double svd_solved(In in, Out out) {
    RowsOf<svd_rows> a(copied<svd_rows * svd_columns>(in, out, 0), svd_columns);
    int n = svd_columns;
    SOLVE_svd_solver(a, svd_rows, &n, in[1], out[1]);
    return n;
}

double svd_solved_with_threshold(In in, Out out) {
    RowsOf<svd_rows> a(copied<svd_rows * svd_columns>(in, out, 0), svd_columns);
    int n = svd_columns;
    return *SOLVE_svd_solver_r(a, svd_rows, &n, in[1], out[1], *in[2]);
}

constexpr int jacobi_size = 9;

template <int max_sweeps>
double jacobi(In in, Out out) {
    RowsOf<jacobi_size> a(copied<jacobi_size * jacobi_size>(in, out, 0), jacobi_size);
    RowsOf<jacobi_size> v(out[2], jacobi_size);
    int rotations = -1;
    NR_ask_eigenvalues_jacobi(a, jacobi_size, max_sweeps, out[1], v, &rotations);
    return rotations;
}

constexpr int pencil_size = 33;

double pencil_solved(In in, Out out) {
    constexpr int n = pencil_size;
    double a[n * n];
    double b[n * n];
    std::copy_n(in[0], n * n, a);
    std::copy_n(in[1], n * n, b);
    double* block = nullptr;
    int rotations = -1;
    int status = -1;
    NR_generalized_eigenvalues_symm(a, b, n, 60, out[0], &block, &rotations, &status);
    if (block != nullptr) std::copy_n(block, n * n, out[1]);
    SM_free(block);
    return 10 * rotations + status;
}

constexpr int power_size = 40;

double power_iterated(In in, Out out) {
    double elements[power_size * power_size];
    std::copy_n(in[0], power_size * power_size, elements);
    RowsOf<power_size> a(elements, power_size);
    int not_converged = -1;
    NR_ask_max_eigen_val_vec(power_size, a, 50, in[1], out[0], out[1], &not_converged);
    return not_converged;
}

constexpr int factor_size = 66;

double cholesky_decomposed(In in, Out out) {
    copied<factor_size * factor_size>(in, out, 0);
    int status = -1;
    NR_cholesky_decomp(factor_size, out[0], out[1], &status);
    return status;
}

double cholesky_inverted(In in, Out out) {
    copied<factor_size * factor_size>(in, out, 0);
    NR_cholesky_inverse(factor_size, in[1], out[0]);
    return 0;
}

constexpr int helper_size = 9;
constexpr int helper_square = helper_size * helper_size;

/// A matrix made and filled row by row; its block, which holds the rows in order, goes to the
/// output.
double made(In in, Out out) {
    double* block = nullptr;
    double** const rows = NR_2d_matrix_allo(helper_size, helper_size, &block);
    for (int i = 0; i < helper_size; ++i)
        std::copy_n(in[0] + static_cast<std::ptrdiff_t>(i) * helper_size, helper_size, rows[i]);
    std::copy_n(block, helper_square, out[0]);
    SM_free(rows);
    SM_free(block);
    return 0;
}

/// Calls with square matrices, as row pointers or flat, and their size for every integer. The last
/// matrix is written; an only one is read as well.
template <class... Parameters>
void call_on_squares(void (*function)(Parameters...), In in, Out out) {
    constexpr int matrices = (std::is_pointer_v<Parameters> + ...);
    double elements[matrices][helper_square] = {};
    for (int k = 0; k < std::max(matrices - 1, 1); ++k)
        std::copy_n(in[k], helper_square, elements[k]);
    double* rows[matrices][helper_size];
    for (int k = 0; k < matrices; ++k)
        std::copy_n(RowsOf<helper_size>(elements[k], helper_size).pointers, helper_size, rows[k]);
    std::size_t next = 0;
    const auto argument = [&]<class Parameter>(std::type_identity<Parameter>) -> Parameter {
        if constexpr (std::is_same_v<Parameter, double**>)
            return rows[next++];
        else if constexpr (std::is_pointer_v<Parameter>)
            return elements[next++];
        else
            return helper_size;
    };
    const std::tuple<Parameters...> values{argument(std::type_identity<Parameters>())...};
    std::apply(function, values);
    std::copy_n(elements[matrices - 1], helper_square, out[0]);
}

template <auto function>
Call on_squares(std::size_t read = 1) {
    const auto run = [](In in, Out out) {
        call_on_squares(function, in, out);
        return 0.0;
    };
    constexpr std::size_t square = helper_square;
    return copying(name_of<function>(), std::vector(read, square), {square}, run);
}

}  // namespace

std::vector<Call> solve_calls() {
    constexpr std::size_t svd_elements = svd_rows * svd_columns;
    constexpr std::size_t svd_square = svd_columns * svd_columns;
    constexpr std::size_t jacobi_square = jacobi_size * jacobi_size;
    constexpr std::size_t lu_square = lu_size * lu_size;
    constexpr std::size_t pencil_square = pencil_size * pencil_size;
    constexpr std::size_t power_square = power_size * power_size;
    constexpr std::size_t factor_square = factor_size * factor_size;
    constexpr std::size_t square = helper_square;
    const std::vector<std::size_t> lu_outputs = {lu_square, 1, lu_size};
    const std::vector<std::size_t> jacobi_outputs = {jacobi_square, jacobi_size, jacobi_square};
    return {
        row<SOLVE_solve_3equations>({9, 3}, {3}),
        copying("ludcmp_a", {lu_square, lu_size}, lu_outputs, lu_decomposed),
        copying("lubksb_a", {lu_square, lu_size}, lu_outputs, lu_decomposed),
        copying("SOLVE_lu_solver", {lu_square, 2 * lu_size}, {lu_square, 2 * lu_size}, lu_solved),
        copying("SOLVE_svd_decompose", {svd_elements}, {svd_elements, svd_columns, svd_square},
                svd_decomposed<svd_rows, svd_rows>),
        copying("SOLVE_svd_decompose", {svd_square}, {svd_square, svd_columns, svd_square},
                svd_decomposed<svd_columns, svd_columns - 1>),
        copying("SOLVE_svd_solver", {svd_elements, svd_rows}, {svd_elements, svd_columns},
                svd_solved),
        copying("SOLVE_svd_solver_r", {svd_elements, svd_rows, 1}, {svd_elements, svd_columns},
                svd_solved_with_threshold),
        copying("NR_ask_eigenvalues_jacobi", {jacobi_square}, jacobi_outputs, jacobi<60>,
                prepare_symmetric<jacobi_size>),
        // Not enough sweeps, which is reported.
        copying("NR_ask_eigenvalues_jacobi", {jacobi_square}, jacobi_outputs, jacobi<3>,
                prepare_symmetric<jacobi_size>),
        copying("NR_generalized_eigenvalues_symm", {pencil_square, pencil_square},
                {pencil_size, pencil_square}, pencil_solved, prepare_pencil<pencil_size>),
        copying("NR_ask_max_eigen_val_vec", {power_square, power_size}, {1, power_size},
                power_iterated, prepare_definite<power_size, 0>),
        copying("NR_cholesky_decomp", {factor_square}, {factor_square, factor_size},
                cholesky_decomposed, prepare_definite<factor_size, 0>),
        row<NR_cholesky_solver, factor_size>({factor_square, factor_size, factor_size},
                                             {factor_size}, prepare_factor<factor_size>),
        copying("NR_cholesky_inverse", {factor_square, factor_size}, {factor_square},
                cholesky_inverted, prepare_factor<factor_size>),
        copying("NR_2d_matrix_allo", {square}, {square}, made),
        on_squares<NR_matrix_copy_1d_to_2d>(),
        on_squares<NR_matrix_copy_2d_to_1d>(),
        on_squares<NR_2d_matrix_identity>(),
        on_squares<NR_2d_matrix_init_zero>(),
        on_squares<NR_2d_matrix_nxn_transp>(),
        on_squares<NR_2d_matrix_product_of_2>(2),
        on_squares<NR_matrix_2d_as_1d_identity>(),
        on_squares<NR_matrix_2d_as_1d_init_zero>(),
        on_squares<NR_matrix_2d_as_1d_init_zero_ut>(),
        on_squares<NR_matrix_2d_as_1d_init_zero_lt>(),
        on_squares<NR_matrix_2d_as_1d_nxn_transp>(),
        on_squares<NR_matrix_2d_as_1d_product_of_2>(2),
    };
}

}  // namespace ztmath_test
