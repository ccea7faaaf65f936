// Real roots of quartics in closed form: Ferrari's two quadratic factors, from a root of the
// resolvent cubic.
#include <cmath>
#include <optional>

#include "frame/acom.h"
#include "solve/roots.h"
#include "solve/term_sum.h"
#include "ztmath/roots.h"

namespace ztmath {

namespace {

/// Relative size of what rounding leaves of a sum that ought to vanish, after the divisions and
/// products that its terms have gone through.
constexpr double rounding = 1.0e-13;

double zeroed_if_insignificant(TermSum sum) {
    return is_insignificant(sum, rounding) ? 0.0 : sum.value;
}

/// x^4 + a3 x^3 + a2 x^2 + a1 x + a0.
struct MonicQuartic {
    double a0, a1, a2, a3;
};

MonicQuartic monic(const double* c) {
    return {c[0] / c[4], c[1] / c[4], c[2] / c[4], c[3] / c[4]};
}

/// y^4 + p y^2 + q y + r, which has the roots moved by a3/4.
struct DepressedQuartic {
    TermSum p, q, r;
};

DepressedQuartic depressed(const MonicQuartic& a) {
    const double square = a.a3 * a.a3;
    return {sum_by_magnitude({a.a2, -(3.0 / 8.0) * square}),
            sum_by_magnitude({a.a1, -a.a2 * a.a3 / 2.0, square * a.a3 / 8.0}),
            sum_by_magnitude({a.a0, -a.a1 * a.a3 / 4.0, a.a2 * square / 16.0,
                              -(3.0 / 256.0) * square * square})};
}

/// Roots where r is insignificant: those of y^3 + p y + q, and 0.
RealRoots roots_with_null(const DepressedQuartic& f) {
    const double p = zeroed_if_insignificant(f.p);
    RealRoots y;
    if (is_insignificant(f.q, rounding)) {
        y = real_quadratic_roots(p, 0.0, 1.0);
        y.append(0.0);
    } else {
        const double estimate = f.r.magnitude + f.q.magnitude + f.p.magnitude;
        y = real_cubic_roots(f.q.value, p, 0.0, 1.0, estimate);
    }
    y.append(0.0);
    return y;
}

/// y^3 + k2 y^2 + k1 y + k0. A root y is a sum x1 x2 + x3 x4 of products of the quartic's roots.
struct Resolvent {
    double k0, k1, k2;
};

/// A root of the resolvent with what is left of the resolvent there, and the part of that which
/// rounding accounts for.
struct ResolventRoot {
    double y;
    double residual, slope, bound;

    double size() const { return std::fabs(residual); }
    bool is_exact() const { return size() <= bound; }
};

ResolventRoot evaluated(const Resolvent& k, double y) {
    double value = 1.0;
    double slope = 0.0;
    double error = 1.0;
    const double rest[] = {k.k2, k.k1, k.k0};
    for (const double coefficient : rest) {
        slope = slope * y + value;
        value = value * y + coefficient;
        error = error * std::fabs(y) + std::fabs(value);
    }
    return {y, value, slope, 5.0e-16 * error};
}

/// Where Newton's method leads from a root that is not exact, if that is better. A step may make it
/// worse at first: two roots close to each other have been taken for one.
ResolventRoot polished(const Resolvent& k, double y) {
    constexpr int most_steps = 12;
    ResolventRoot best = evaluated(k, y);
    ResolventRoot latest = best;
    for (int i = 0; i < most_steps && !best.is_exact(); ++i) {
        latest = evaluated(k, latest.y - latest.residual / latest.slope);
        if (latest.size() < best.size()) best = latest;
    }
    return best;
}

/// The exact root that maximises a3^2/4 - a2 + y; without an exact one, the most nearly exact.
double chosen_root(const MonicQuartic& a, const Resolvent& k) {
    const RealRoots roots = real_cubic_roots(k.k0, k.k1, k.k2, 1.0, 0.0);
    double largest = -1.0e20;
    double smallest = 1.0e20;
    std::optional<double> best;
    double fallback = 0.0;
    for (const double x : roots) {
        const ResolventRoot root = polished(k, x);
        const double key = a.a3 * a.a3 / 4.0 - a.a2 + root.y;
        if (root.is_exact() && key > largest) {
            largest = key;
            best = root.y;
        }
        if (root.size() < smallest) {
            smallest = root.size();
            fallback = root.y;
        }
    }
    return best.value_or(fallback);
}

double resolvent_root(const MonicQuartic& a) {
    const TermSum k0 = sum_by_magnitude({4.0 * a.a0 * a.a2, -a.a1 * a.a1, -a.a0 * a.a3 * a.a3});
    if (is_insignificant(k0, rounding)) return 0.0;
    const TermSum k1 = sum_by_magnitude({a.a1 * a.a3, -4.0 * a.a0});
    return chosen_root(a, {k0.value, zeroed_if_insignificant(k1), -a.a2});
}

/// The factors y^2 - g y + h and y^2 + g y + k.
struct Factors {
    Complex g, h, k;
};

/// By g^2 = a3^2/4 - a2 + y for a root y of the resolvent, the sum h + k = p + g^2, and the
/// difference h - k = q/g or, where g counts as 0, plus or minus the root of y^2 - 4 a0.
Factors ferrari_factors(const MonicQuartic& a, const DepressedQuartic& f) {
    const double y = resolvent_root(a);
    const TermSum square = sum_by_magnitude({a.a3 * a.a3 / 4.0, -a.a2, y});
    Complex g{0.0, 0.0};
    Complex difference;
    double sum = f.p.value;
    if (is_insignificant(square, rounding)) {
        const Complex root = square_root({y * y - 4.0 * a.a0, 0.0});
        difference = f.q.value > 0.0 ? root : -1.0 * root;
    } else {
        g = square_root({square.value, 0.0});
        difference = Complex{f.q.value, 0.0} / g;
        sum += square.value;
    }
    return {g, 0.5 * (Complex{sum, 0.0} + difference), 0.5 * (Complex{sum, 0.0} - difference)};
}

/// Real factors, and what their product lacks of the quartic.
struct Trial {
    double g, h, k;
    double p, q, r;
    double size;  ///< of p, q and r beside the terms of the quartic's coefficients
};

Trial tried(double g, double h, double k, const DepressedQuartic& f) {
    const double p = f.p.value - (h + k - g * g);
    const double q = f.q.value - g * (h - k);
    const double r = f.r.value - h * k;
    const double size =
        std::fabs(p) / f.p.magnitude + std::fabs(q) / f.q.magnitude + std::fabs(r) / f.r.magnitude;
    return {g, h, k, p, q, r, size};
}

/// One step of Newton's method for p = q = r = 0.
Trial next_trial(const Trial& t, const DepressedQuartic& f) {
    const double sum = t.h + t.k;
    const double difference = t.h - t.k;
    const double twist = 2.0 * t.g * t.q + difference * t.p;
    const double determinant = 2.0 * t.g * t.g * sum + difference * difference;
    const double square = 2.0 * t.g * t.g * t.r;
    const double dg = (difference * t.q + 2.0 * t.g * t.r - t.g * sum * t.p) / determinant;
    const double dh = (t.h * twist + square - difference * t.r) / determinant;
    const double dk = (square + difference * t.r - t.k * twist) / determinant;
    return tried(t.g + dg, t.h + dh, t.k + dk, f);
}

/// Improved factors: where g is small, the resolvent has left little of its digits.
Trial refined(const Trial& start, const DepressedQuartic& f) {
    constexpr int most_steps = 8;
    constexpr double small_enough = 1.0e-17;
    Trial best = start;
    Trial latest = best;
    for (int i = 0; i < most_steps && best.size > small_enough; ++i) {
        latest = next_trial(latest, f);
        if (latest.size < best.size) best = latest;
    }
    return best;
}

/// From the factors of the quartic without q, whose g is 0; not numbers where these are not real.
Trial refined_from_even(const DepressedQuartic& f) {
    const double p = f.p.value;
    const double difference = std::copysign(std::sqrt(p * p - 4.0 * f.r.value), f.q.value);
    return refined(tried(0.0, 0.5 * (p + difference), 0.5 * (p - difference), f), f);
}

Factors factors_of(const Trial& t) {
    return {{t.g, 0.0}, {t.h, 0.0}, {t.k, 0.0}};
}

/// Ferrari's factors, improved where they are real. Where g is small beside a3 the resolvent may
/// have left none of its digits, and not even that it is real: g = 0 is the better start then.
Factors factors(const MonicQuartic& a, const DepressedQuartic& f) {
    constexpr double small_part = 1.0e-5;
    Factors found = ferrari_factors(a, f);
    const bool has_small_g = modulus(found.g * found.g) <= small_part * (a.a3 * a.a3);
    if (found.g.im == 0.0 && found.h.im == 0.0 && found.k.im == 0.0) {
        const Trial best = refined(tried(found.g.re, found.h.re, found.k.re, f), f);
        found = factors_of(best);
        if (best.size <= rounding) return found;
    }
    if (!has_small_g) return found;
    const Trial even = refined_from_even(f);
    return even.size <= rounding ? factors_of(even) : found;
}

/// The square root of g^2 - 4 h, the difference of a factor's roots. What rounding leaves of it
/// counts as zero, so that a double root comes out as two equal ones.
Complex root_difference(Complex g, Complex h, const DepressedQuartic& f) {
    const Complex square = g * g;
    const Complex four_h = 4.0 * h;
    const Complex discriminant = square - four_h;
    const double magnitude = modulus(square) + modulus(four_h) + f.p.magnitude;
    if (modulus(discriminant) <= rounding * magnitude) return {0.0, 0.0};
    return square_root(discriminant);
}

/// Roots by two quadratic factors (Ferrari).
RealRoots ferrari_roots(const MonicQuartic& a, const DepressedQuartic& f) {
    const auto [g, h, k] = factors(a, f);
    const Complex d = root_difference(g, h, f);
    const Complex e = root_difference(g, k, f);
    const Complex y[4] = {0.5 * g + 0.5 * d, 0.5 * g + -0.5 * d, -0.5 * g + 0.5 * e,
                          -0.5 * g + -0.5 * e};
    return real_ones(y, 4);
}

RealRoots general_quartic_roots(const double* c) {
    const MonicQuartic a = monic(c);
    const DepressedQuartic f = depressed(a);
    RealRoots roots = is_insignificant(f.r, rounding) ? roots_with_null(f) : ferrari_roots(a, f);
    for (double& root : roots)
        root -= a.a3 / 4.0;
    return roots;
}

RealRoots biquadratic_roots(double c0, double c2, double c4) {
    const RealRoots squares = real_quadratic_roots(c0, c2, c4);
    RealRoots roots;
    for (const double square : squares) {
        if (!(square > 0.0)) continue;
        roots.append(std::sqrt(square));
        roots.append(-std::sqrt(square));
    }
    return roots;
}

}  // namespace

RealRoots quartic_roots(const double* c, double tol) {
    if (std::fabs(c[4]) <= tol) return cubic_roots(c, tol);
    if (tol * tol * tol * tol >= std::fabs(c[0])) {
        RealRoots roots = cubic_roots(c + 1, tol);
        roots.append(0.0);
        return roots;
    }
    // Kept as it stands: odd coefficients within the tolerance are taken for 0, whatever the others
    // are.
    if (std::fabs(c[1]) <= tol && std::fabs(c[3]) <= tol)
        return biquadratic_roots(c[0], c[2], c[4]);
    return general_quartic_roots(c);
}

}  // namespace ztmath

using namespace ztmath;

int SOLVE_quartic(const double coeffs[5], double roots[4]) {
    return store(quartic_roots(coeffs, number_tolerance()), roots);
}
