// Real roots of polynomials: what the solvers of the various degrees use of each other.
//
// Coefficients stand by ascending power. A double root stands twice, a triple root three times.
#pragma once

#include "frame/report.h"
#include "solve/complex.h"

namespace ztmath {

/// The module of the root finders.
inline constexpr Module solve_module{"solve"};

inline constexpr int largest_degree = 4;

struct RealRoots {
    int count = 0;
    double x[largest_degree];

    void append(double root) { x[count++] = root; }

    double* begin() { return x; }
    double* end() { return x + count; }
    const double* begin() const { return x; }
    const double* end() const { return x + count; }
};

/// Roots of c0 + c1 x + c2 x^2 where c2 is not 0.
RealRoots real_quadratic_roots(double c0, double c1, double c2);

/// Roots of c[0] + c[1] x + c[2] x^2, of lower degree where leading coefficients are within `tol`.
RealRoots quadratic_roots(const double* c, double tol);

/// Roots of c0 + c1 x + c2 x^2 + c3 x^3 where c3 is not 0. `carried_estimate` is the size of the
/// terms that the coefficients were summed from, 0 where they are as the caller gave them: sums
/// that are small beside it are taken for zero.
RealRoots real_cubic_roots(double c0, double c1, double c2, double c3, double carried_estimate);

/// Roots of a cubic, of lower degree where leading coefficients are within `tol`.
RealRoots cubic_roots(const double* c, double tol);

/// Roots of a quartic, of lower degree where leading coefficients are within `tol`.
RealRoots quartic_roots(const double* c, double tol);

/// Of `count` complex roots those that are real, or as good as real, in their order.
RealRoots real_ones(const Complex* roots, int count);

/// Writes the roots to a caller's array, nothing behind them, and returns how many there are.
inline int store(const RealRoots& roots, double* out) {
    if (roots.count > 0) out[0] = roots.x[0];
    if (roots.count > 1) out[1] = roots.x[1];
    if (roots.count > 2) out[2] = roots.x[2];
    if (roots.count > 3) out[3] = roots.x[3];
    return roots.count;
}

}  // namespace ztmath
