// Roots, banded systems, and the methods that call a function of the caller's.
#include <algorithm>
#include <iterator>

#include "interface/row.h"
#include "syss/syss.h"
#include "ztmath/banded.h"
#include "ztmath/nr_functions.h"
#include "ztmath/roots.h"

namespace ztmath_test {

namespace {

constexpr int band_size = 12;
constexpr int band_width = 2;
constexpr std::size_t band_elements = band_size * (2 * band_width + 1);

/// A cubic's value by the four coefficients behind data.
double cubic(double x, void* data) {
    const auto* c = static_cast<const double*>(data);
    return ((c[3] * x + c[2]) * x + c[1]) * x + c[0];
}

/// The callbacks' pointer to input that they only read.
void* as_data(const double* in) {
    return const_cast<double*>(in);
}

double function_root_found(In in, Out out) {
    return SOLVE_function_root(cubic, as_data(in[0]), in[1][0], in[1][1], 1e-9, out[0]);
}

double bounded_bowl(const double* x, int n, void* data) {
    const auto* centre = static_cast<const double*>(data);
    double sum = 0.0;
    for (int i = 0; i < n; ++i)
        sum += (x[i] - centre[i]) * (x[i] - centre[i]);
    return sum;
}

double minimised(In in, Out out) {
    std::copy_n(in[0], 6, out[0]);
    std::copy_n(in[1], 3, out[1]);
    double* rows[] = {out[0], out[0] + 2, out[0] + 4};
    int evaluations;
    const int status =
        NR_amoeba(rows, out[1], 2, 1e-6, bounded_bowl, as_data(in[2]), 200, &evaluations);
    return 1000.0 * status + evaluations;
}

void linear_slope(double x, const double* y, double* dydx, void* data) {
    const auto* a = static_cast<const double*>(data);
    dydx[0] = a[0] * y[0] + a[1] * y[1] + x;
    dydx[1] = a[2] * y[0] + a[3] * y[1];
}

double integrated(In in, Out out) {
    std::copy_n(in[0], 2, out[0]);
    int good;
    int bad;
    const int status = NR_odeint(out[0], 2, in[1][0], in[1][1], 1e-6, 0.0, 0.0, 100, linear_slope,
                                 as_data(in[2]), nullptr, out[1], &good, &bad);
    return 1e6 * status + 1e3 * good + bad;
}

double area_found(In in, Out out) {
    int evaluations;
    const int status =
        NR_qsimp(cubic, as_data(in[0]), in[1][0], in[1][1], 1e-9, 10, out[0], &evaluations);
    return 1e6 * status + evaluations;
}

double band_solved(In in, Out out) {
    merrorflush();
    double** matrix;
    double* b;
    msetup_banded(band_size, band_width, &matrix, &b);
    const double* next = in[0];
    for (int i = 0; i < band_size; ++i)
        for (int j = std::max(0, i - band_width); j <= std::min(band_size - 1, i + band_width); ++j)
            matrix[i][j] = *next++;
    std::copy_n(in[1], band_size, b);
    mdecompose_banded(matrix, band_size, band_width);
    msolve_banded(matrix, band_size, band_width, b);
    std::copy_n(b, band_size, out[0]);
    mdispose_banded(&matrix, &b);
    const int number = merrornum() + merrorlevel();
    merrorflush();
    return number;
}

double unique_found(In in, Out out) {
    double* unique;
    int count;
    get_unique_reals(in[0], 8, &unique, &count);
    std::copy_n(unique, count, out[0]);
    SM_free(unique);
    return count;
}

}  // namespace

std::vector<Call> root_calls() {
    return {
        row<SOLVE_quadratic>({3}, {2}),
        row<SOLVE_cubic>({4}, {3}),
        row<SOLVE_quartic>({5}, {4}),
        row<SOLVE_polynomial, 4>({5}, {4}),
        {"SOLVE_function_root", {4, 2}, {1}, function_root_found, nullptr, false},
        {"NR_amoeba", {6, 3, 2}, {6, 3}, minimised, nullptr, false},
        {"NR_odeint", {2, 2, 4}, {2, 1}, integrated, nullptr, false},
        {"NR_qsimp", {4, 2}, {1}, area_found, nullptr, false},
        // The last: it writes what all calls share.
        {"msolve_banded", {band_elements, band_size}, {band_size}, band_solved, {}, false, true},
        {"get_unique_reals", {8}, {8}, unique_found, nullptr, false},
    };
}

}  // namespace ztmath_test
