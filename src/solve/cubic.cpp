// Real roots of quadratics and cubics in closed form.
//
// No quantity is compared with zero by a tolerance of its own: it is summed with the size of its
// terms, and counts as zero when rounding alone could have made it.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "frame/acom.h"
#include "solve/roots.h"
#include "solve/term_sum.h"
#include "ztmath/roots.h"

namespace ztmath {

namespace {

/// Relative size of what rounding leaves of a sum that ought to vanish.
constexpr double rounding = 5.0e-16;

/// The same where the coefficients are sums themselves.
constexpr double inherited_rounding = 1.0e-13;

/// The sums that decide about x^3 + p2 x^2 + p1 x + p0: with the roots moved by p2/3 it is
/// x^3 - q/3 x + r/27, and d is the discriminant; 4 q^3 = r^2 + 27 d.
struct CubicInvariants {
    TermSum q, r, d;
};

CubicInvariants cubic_invariants(double p0, double p1, double p2) {
    const double square = p2 * p2;
    const double cube = square * p2;
    return {sum_by_magnitude({square, -3.0 * p1}),
            sum_by_magnitude({2.0 * cube, -9.0 * p2 * p1, 27.0 * p0}),
            sum_by_magnitude({square * p1 * p1, -4.0 * p1 * p1 * p1, -27.0 * p0 * p0,
                              -4.0 * cube * p0, 18.0 * p2 * p1 * p0})};
}

/// a + b for two numbers whose cubes add up to `cubes`; where they cancel, by that sum.
double sum_by_cubes(double a, double b, double cubes) {
    return b >= 0.0 ? a + b : cubes / (a * a - a * b + b * b);
}

RealRoots one_root(double q, double r_sum, double d, double shift) {
    const double r = r_sum / 54.0;
    const double a = std::pow(std::fabs(r) + std::sqrt(std::fabs(d) / 108.0), 1.0 / 3.0);
    const double sum = sum_by_cubes(a, q / 9.0 / a, 2.0 * std::fabs(r));
    RealRoots roots;
    roots.append((r <= 0.0 ? sum : -sum) - shift);
    return roots;
}

RealRoots simple_and_double_root(double q, double r, double shift) {
    const double sign = r <= 0.0 ? -1.0 : 1.0;
    const double t = sign * std::sqrt(std::fabs(q) / 9.0);
    RealRoots roots;
    roots.append(-2.0 * t - shift);
    roots.append(t - shift);
    roots.append(t - shift);
    return roots;
}

double clamped_cosine(double r, double m) {
    if (std::fabs(r) >= m) return r <= 0.0 ? -1.0 : 1.0;
    return r / m;
}

/// k cos(theta/3) and the same a third and two thirds of a turn on, less the shift.
RealRoots three_roots(double q_sum, double r_sum, double shift) {
    constexpr double sine_of_third = 0.5 * std::numbers::sqrt3;
    // A positive discriminant beside a negative q is rounding: the roots are one.
    const double q = std::max(0.0, q_sum) / 9.0;
    const double theta = std::acos(clamped_cosine(r_sum / 54.0, std::sqrt(q * q * q)));
    const double k = -2.0 * std::sqrt(q);
    const double cosine = std::cos(theta / 3.0);
    const double middle = -0.5 * cosine;
    const double swing = sine_of_third * std::sin(theta / 3.0);
    RealRoots roots;
    roots.append(k * cosine - shift);
    roots.append(k * (middle - swing) - shift);
    roots.append(k * (middle + swing) - shift);
    return roots;
}

RealRoots triple_root(double x) {
    RealRoots roots;
    for (int i = 0; i < 3; ++i)
        roots.append(x);
    return roots;
}

}  // namespace

RealRoots real_quadratic_roots(double c0, double c1, double c2) {
    RealRoots roots;
    const TermSum d = sum_by_magnitude({c1 * c1, -4.0 * c2 * c0});
    if (is_insignificant(d, rounding)) {
        const double x = -c1 / (2.0 * c2);
        roots.append(x);
        roots.append(x);
    } else if (d.value > 0.0) {
        const double root = std::sqrt(d.value);
        const double q = -(c1 >= 0.0 ? c1 + root : c1 - root) / 2.0;
        roots.append(q / c2);
        roots.append(c0 / q);
    }
    return roots;
}

RealRoots quadratic_roots(const double* c, double tol) {
    if (std::fabs(c[2]) <= tol) {
        RealRoots roots;
        if (std::fabs(c[1]) > tol) roots.append(-c[0] / c[1]);
        return roots;
    }
    return real_quadratic_roots(c[0], c[1], c[2]);
}

RealRoots real_cubic_roots(double c0, double c1, double c2, double c3, double carried_estimate) {
    const double p2 = c2 / c3;
    const double shift = p2 / 3.0;
    const double eps = carried_estimate > 0.0 ? inherited_rounding : rounding;
    auto [q, r, d] = cubic_invariants(c0 / c3, c1 / c3, p2);
    q.magnitude += carried_estimate;
    r.magnitude += carried_estimate;
    d.magnitude += 2.5 * carried_estimate;

    if (is_insignificant(q, eps) && is_insignificant(r, eps)) return triple_root(-shift);
    if (d.value <= 0.0)
        return is_insignificant(d, eps) ? simple_and_double_root(q.value, r.value, shift)
                                        : one_root(q.value, r.value, d.value, shift);
    if (d.value > 0.0) return three_roots(q.value, r.value, shift);
    return {};  // not a number
}

RealRoots cubic_roots(const double* c, double tol) {
    if (std::fabs(c[3]) <= tol) return quadratic_roots(c, tol);
    if (tol * tol * tol >= std::fabs(c[0])) {
        RealRoots roots = real_quadratic_roots(c[1], c[2], c[3]);
        roots.append(0.0);
        return roots;
    }
    return real_cubic_roots(c[0], c[1], c[2], c[3], 0.0);
}

}  // namespace ztmath

using namespace ztmath;

int SOLVE_quadratic(const double coeffs[3], double roots[2]) {
    return store(quadratic_roots(coeffs, number_tolerance()), roots);
}

int SOLVE_cubic(const double coeffs[4], double roots[3]) {
    return store(cubic_roots(coeffs, number_tolerance()), roots);
}
