#include "arc_spline/equations.h"

#include <cmath>
#include <numbers>
#include <utility>

#include "ztmath/arc_spline_primitives.h"

namespace ztmath {

namespace {

constexpr double null_coefficient = 1.0e-12;
constexpr double null_discriminant = 1.0e-24;

/// An angle that solves p sin x + q cos x + r = 0, with the tangent of its half.
struct HalfAngle {
    double angle, tangent;
};

class Selection {
  public:
    Selection(bool radians, int mode, double margin)
        : radians_(radians), mode_(mode), most_(quarter() - margin) {}

    HalfAngle angle_of(double tangent) const {
        constexpr double degrees_per_half_radian = 114.5915590261647;
        const double angle = std::atan(tangent) * (radians_ ? 2.0 : degrees_per_half_radian);
        return {mode_ == 0 && tangent < 0.0 ? angle + 4.0 * quarter() : angle, tangent};
    }

    bool keeps(HalfAngle x) const {
        const bool in_quarter = x.tangent >= 0.0 && x.tangent <= 1.0;
        switch (mode_) {
            case 1:
                return in_quarter;
            case 10:
                return in_quarter && x.angle <= most_;
            case -11:
                return std::fabs(x.tangent) < 1.0 && std::fabs(x.angle) <= most_;
            default:
                return true;
        }
    }

  private:
    double quarter() const { return radians_ ? std::numbers::pi / 2.0 : 90.0; }

    bool radians_;
    int mode_;
    double most_;
};

struct Angles {
    int count;
    HalfAngle x[2];
};

Angles solve_sine_cosine(double p, double q, double r, const Selection& selection) {
    const double size = std::sqrt(p * p + q * q + r * r);
    if (size <= null_coefficient) return {-3, {}};
    p /= size;
    q /= size;
    r /= size;
    // Kept as it stands: x = 180 degrees, whose half has no tangent, is never found.
    const QuadraticRoots roots = quadratic_roots(q - r, -2.0 * p, -(q + r), true);
    if (roots.status == -3) return {-3, {}};  // never reached: p, q and r are not all null
    Angles found{0, {}};
    for (int i = 0; i < roots.status; ++i) {
        const HalfAngle x = selection.angle_of(roots.x[i]);
        if (selection.keeps(x)) found.x[found.count++] = x;
    }
    if (found.count == 2 && found.x[0].angle > found.x[1].angle) std::swap(found.x[0], found.x[1]);
    return found;
}

}  // namespace

QuadraticRoots quadratic_roots(double k2, double k1, double k0, bool normalise) {
    if (normalise) {
        const double size = std::sqrt(k2 * k2 + k1 * k1 + k0 * k0);
        if (size < null_coefficient) return {-3, {}};
        k2 /= size;
        k1 /= size;
        k0 /= size;
    }
    if (std::fabs(k2) < null_coefficient) {
        const bool is_constant = std::fabs(k1) < null_coefficient;
        if (is_constant && std::fabs(k0) < null_coefficient) return {-3, {}};
        if (std::fabs(k1) >= null_coefficient) return {1, {-k0 / k1, -k0 / k1}};
        return {0, {}};
    }
    double discriminant = k1 * k1 - 4.0 * k2 * k0;
    if (std::fabs(discriminant) < null_discriminant) discriminant = 0.0;
    if (discriminant < 0.0) return {-2, {-k1 / (2.0 * k2), std::sqrt(-discriminant) / (2.0 * k2)}};
    if (std::isnan(discriminant)) return {0, {}};
    const double root = std::sqrt(discriminant);
    const double x1 = (k1 >= 0.0 ? -k1 - root : -k1 + root) / (2.0 * k2);
    if (std::fabs(x1) < null_coefficient) return {2, {0.0, -k1 / k2}};
    return {2, {x1, k0 / (k2 * x1)}};
}

}  // namespace ztmath

using namespace ztmath;

int ARC_SPLINE_ask_sign_of_var(double x, double tol) {
    return sign_of(x, tol);
}

void ARC_SPLINE_solve_quadratic_eqt(double k2, double k1, double k0, int normalise, double roots[2],
                                    int* status) {
    const QuadraticRoots found = quadratic_roots(k2, k1, k0, normalise == 1);
    *status = found.status;
    if (found.status == 0 || found.status == -3) return;
    roots[0] = found.x[0];
    roots[1] = found.x[1];
}

void ARC_SPLINE_trig_eqt_linear_sin_cos(double p, double q, double r, char unit, int mode,
                                        double margin, int* count, double angles[2],
                                        double half_tangents[2]) {
    const Angles found = solve_sine_cosine(p, q, r, Selection(unit == 'r', mode, margin));
    *count = found.count;
    for (int i = 0; i < found.count; ++i) {
        angles[i] = found.x[i].angle;
        half_tangents[i] = found.x[i].tangent;
    }
}
