// Calculations on curve defining data: parameters, weights, automatic values.
#include "ztmath/bcdf_calc.h"

#include <cmath>

#include "curve/auto_slope.h"
#include "curve/quadratic.h"
#include "curve/slope_length.h"
#include "ztmath/tolerance.h"

namespace ztmath {

namespace {

constexpr Module report = bcdf_calc_module.part(2);

double distance(const double* a, const double* b, int dimension) {
    double sum = 0.0;
    for (int j = 0; j < dimension; ++j)
        sum += (b[j] - a[j]) * (b[j] - a[j]);
    return std::sqrt(sum);
}

void write_even_parameters(int n, double* out) {
    out[0] = 0.0;
    // Kept as it stands: steps of n - 1, not of 1. Curves through coincident points have been
    // stored with these parameters.
    for (int i = 1; i < n; ++i)
        out[i] = out[i - 1] + (n - 1);
}

/// The weight at i, given at least two parameters.
double weight_at(std::span<const double> t, std::size_t i) {
    const std::size_t before = i == 0 ? 0 : i - 1;
    const std::size_t behind = i + 1 == t.size() ? i : i + 1;
    return (t[behind] - t[before]) / 2.0;
}

std::span<const double> span_of(int n, const double* values) {
    return {values, static_cast<std::size_t>(n)};
}

}  // namespace

void write_parameters(int n, int dimension, const double* points, double exponent, double* out) {
    out[0] = 0.0;
    for (int i = 1; i < n; ++i) {
        const double* at = points + static_cast<std::ptrdiff_t>(i) * dimension;
        const double d = distance(at - dimension, at, dimension);
        out[i] = out[i - 1] + (exponent == 1.0 ? d : std::pow(d, exponent));
    }
    if (parameters_match(out[n - 1], 0.0)) write_even_parameters(n, out);
}

void write_weights(std::span<const double> parameters, double* out) {
    if (parameters.size() == 1) out[0] = 0.0;
    if (parameters.size() < 2) return;
    for (std::size_t i = 0; i < parameters.size(); ++i)
        out[i] = weight_at(parameters, i);
}

}  // namespace ztmath

using namespace ztmath;

namespace {

/// Results on their way to outputs that may lie over the inputs.
using Results = WorkArray<double, 64>;

void store_first(int k, const Derivatives& d, double* out) {
    if (k >= 1) store(d.first, out);
    if (k >= 2) store(d.second, out + 3);
}

}  // namespace

void BCDF_CALC_parameters(int n, int dimension, const double* points, double exponent,
                          double* parameters) {
    if (n < 1) return;
    Results results(n);
    write_parameters(n, dimension, points, exponent, results.data());
    std::copy_n(results.data(), n, parameters);
}

void BCDF_CALC_weights(int n, const double* parameters, double* weights) {
    if (n < 1) return;
    Results results(n);
    write_weights(span_of(n, parameters), results.data());
    std::copy_n(results.data(), n, weights);
}

double BCDF_CALC_single_weight(int n, const double* parameters, int position) {
    if (n < 2) {
        if (checking()) report.internal("Not Enough Parameters");
        return 0.0;
    }
    if (position < 0 || position >= n) return 0.0;
    return weight_at(span_of(n, parameters), static_cast<std::size_t>(position));
}

int BCDF_CALC_quadratic_apprx(const double q0[3], const double q1[3], const double q2[3],
                              const double params[3], int mode, double t0, int k, double* out) {
    const QuadraticFit fit =
        fit_quadratic({{params[0], load3(q0)}, {params[1], load3(q1)}, {params[2], load3(q2)}},
                      static_cast<SlopeRow>(mode));
    if (fit.status != 0) return fit.status;
    if (k >= 0) store(fit.curve.at(t0), out);
    if (k >= 1) store(fit.curve.first_derivative(t0), out + 3);
    if (k >= 2) store(fit.curve.second_derivative(), out + 6);
    return 0;
}

void BCDF_CALC_auto_derivatives(const BCDF* record, int position, int k, double* out) {
    // Without a point nothing is read, and the report that says so need not return.
    if (!is_site(*record, position)) store_first(k, {true, {}, {}}, out);
    const Derivatives d = automatic_derivatives(*record, position);
    if (d.defined) store_first(k, d, out);
}

void BCDF_CALC_auto_slope(const BCDF* record, int position, double out[3]) {
    BCDF_CALC_auto_derivatives(record, position, 1, out);
}

void BCDF_CALC_auto_curvature(const BCDF* record, int position, double out[3]) {
    if (!is_site(*record, position)) store(Vec3{}, out);
    store(automatic_curvature(*record, position), out);
}

void BCDF_CALC_normalized_slope(const BCDF* record, int type, int position, double v[3]) {
    store(normalized_slope(*record, type, position, load3(v)), v);
}

void BCDF_CALC_mirror_slope(const double slope[3], const double a[3], const double b[3],
                            double out[3]) {
    store(mirrored_in_chord(load3(slope), load3(a), load3(b), EQ_ask_length_tolerance()), out);
}

double BCDF_CALC_denormalize_param(const BCDF* record, double u) {
    const auto t = parameters(*record);
    return t.empty() ? 0.0 : (1.0 - u) * t.front() + u * t.back();
}

void BCDF_CALC_unitize_slope(const double in[3], double out[3]) {
    const Vec3 slope = load3(in);
    store(Vec3{}, out);  // stays where a report that is raised does not return
    store(unit_slope(slope), out);
}
