// Dense and banded solvers, eigenvalues, matrix helpers, roots, and the methods that call a
// function of the caller's. Sizes are above what work memory holds in place, so that the platform
// is asked for some.
#include "interface/row.h"
#include "interface/whole_calls.h"

namespace ztmath_test {

namespace {

/// Makes square matrices symmetric, and the one of this index positive definite.
template <std::size_t n, int definite = -1>
void prepare_symmetric(Random&, Arrays& inputs) {
    for (auto& m : inputs) {
        if (m.size() != n * n) continue;
        for (std::size_t i = 0; i < n; ++i)
            for (std::size_t j = 0; j < i; ++j)
                m[i * n + j] = m[j * n + i];
    }
    if constexpr (definite >= 0)
        for (std::size_t i = 0; i < n * n; i += n + 1)
            inputs[definite][i] = std::fabs(inputs[definite][i]) + 2.0 * n;
}

/// A factor L: ones, about, on the diagonal, which stands alone, and little below it.
template <std::size_t n>
void prepare_factor(Random&, Arrays& inputs) {
    for (auto& array : inputs)
        for (double& element : array)
            element = array.size() == n ? 1 + std::fabs(element) : element / n;
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

double function_root_found(In in, Out out) {
    return SOLVE_function_root(cubic, as_data(in[0]), in[1][0], in[1][1], 1e-9, out[0]);
}

double unique_found(In in, Out out) {
    double* unique;
    int count;
    get_unique_reals(in[0], 8, &unique, &count);
    std::copy_n(unique, count, out[0]);
    SM_free(unique);
    return count;
}

/// Of helpers with square matrices and their size for every integer.
template <unsigned in_out, auto... functions>
std::vector<Call> on_squares() {
    constexpr int n = helper_size;
    return {on_matrices<functions, in_out, n, n * n, n, n, n>()...};
}

}  // namespace

std::vector<Call> solve_calls() {
    constexpr auto square = [](std::size_t n) { return n * n; };
    constexpr int lu = 66, rows = 22, columns = 18, jacobi = 9, pencil = 33;
    constexpr int power = 40, factor = 66, helper = helper_size;
    const Lengths jacobi_outputs = {square(jacobi), jacobi, square(jacobi), 2};
    Call banded = row<banded_solved, 12, 2, 12, 2>({12 * 5, 12}, {12});
    banded.writes_shared = true;  // the error register
    return joined({
        {
            on_matrices<lu_solved, first, lu, square(lu), lu>({square(lu), lu},
                                                              {square(lu), 1, lu}),
            on_matrices<SOLVE_lu_solver, first | second, lu, square(lu), lu, 2>(),
            on_matrices<SOLVE_svd_decompose, first, columns, rows * columns, rows, columns>(
                {rows * columns}, {rows * columns, columns, square(columns)}),
            // Said to have fewer rows than columns, which is noted.
            on_matrices<SOLVE_svd_decompose, first, columns, square(columns), columns - 1, columns>(
                {square(columns)}, {square(columns), columns, square(columns)}),
            on_matrices<SOLVE_svd_solver, first | third, columns, rows * columns, rows, columns>(
                {rows * columns, rows}, {rows * columns, 2, columns}),
            on_matrices<SOLVE_svd_solver_r, first | third, columns, rows * columns, rows, columns>(
                {rows * columns, rows, 1}, {rows * columns, 2, columns}),
            on_matrices<NR_ask_eigenvalues_jacobi, first, jacobi, square(jacobi), jacobi, 60>(
                {square(jacobi)}, jacobi_outputs, prepare_symmetric<jacobi>),
            // Not enough sweeps, which is reported.
            on_matrices<NR_ask_eigenvalues_jacobi, first, jacobi, square(jacobi), jacobi, 3>(
                {square(jacobi)}, jacobi_outputs, prepare_symmetric<jacobi>),
            changing<NR_generalized_eigenvalues_symm, first | second, square(pencil), pencil, 60>(
                {square(pencil), square(pencil)},
                {square(pencil), square(pencil), pencil, square(pencil), 2, 2},
                prepare_symmetric<pencil, 1>),
            on_matrices<NR_ask_max_eigen_val_vec, second, power, square(power), power, 50>(
                {square(power), power}, {square(power), 1, power, 2}, prepare_symmetric<power, 0>),
            changing<NR_cholesky_decomp, second, square(factor), factor>(
                {square(factor)}, {square(factor), factor, 2}, prepare_symmetric<factor, 0>),
            row<NR_cholesky_solver, factor>({square(factor), factor, factor}, {factor},
                                            prepare_factor<factor>),
            changing<NR_cholesky_inverse, third, square(factor), factor>(
                {factor, square(factor)}, {square(factor)}, prepare_factor<factor>),
            {"NR_2d_matrix_allo", {square(helper)}, {square(helper)}, made},
        },
        on_squares<0, NR_matrix_copy_1d_to_2d>(),
        on_squares<first, NR_matrix_copy_2d_to_1d, NR_2d_matrix_identity, NR_2d_matrix_init_zero,
                   NR_2d_matrix_nxn_transp, NR_matrix_2d_as_1d_identity,
                   NR_matrix_2d_as_1d_init_zero, NR_matrix_2d_as_1d_init_zero_ut,
                   NR_matrix_2d_as_1d_init_zero_lt, NR_matrix_2d_as_1d_nxn_transp>(),
        on_squares<first | second, NR_2d_matrix_product_of_2, NR_matrix_2d_as_1d_product_of_2>(),
        {
            row<SOLVE_polynomial, 4>({5}, {4}),
            {"SOLVE_function_root", {4, 2}, {1}, function_root_found},
            on_matrices<minimised, first, 2, 6, 2, 3>({6, 3, 2}, {6, 3, 2}),
            changing<equation_integrated, first, 2, 2, 3>({2, 2, 4}, {2, 1, 2, 2}),
            row<integrated, 10>({4, 2}, {1, 2}),
            banded,
            {"get_unique_reals", {8}, {8}, unique_found},
        },
    });
}

}  // namespace ztmath_test
