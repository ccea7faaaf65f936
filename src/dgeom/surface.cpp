// Differential geometry of surfaces.
#include <cmath>
#include <optional>

#include "dgeom/curve.h"
#include "frame/vec.h"
#include "ztmath/dgeom.h"

namespace ztmath {

namespace {

/// A quadratic form of the parameter plane: a du^2 + 2 b du dv + c dv^2.
struct Form {
    double a, b, c;

    double operator()(double du, double dv) const {
        return du * du * a + 2.0 * du * dv * b + dv * dv * c;
    }
};

struct Derivatives {
    Vec3 u, v, uu, uv, vv;
};

Derivatives load_derivatives(const double* su, const double* sv, const double* suu,
                             const double* suv, const double* svv) {
    return {load3(su), load3(sv), load3(suu), load3(suv), load3(svv)};
}

/// The first fundamental form, which measures lengths.
Form first_form(const Derivatives& s) {
    return {length_squared(s.u), dot(s.u, s.v), length_squared(s.v)};
}

/// The second, which measures how the surface bends towards the normal.
Form second_form(const Derivatives& s, Vec3 normal) {
    return {dot(normal, s.uu), dot(normal, s.uv), dot(normal, s.vv)};
}

double determinant(const Form& f) {
    return f.a * f.c - f.b * f.b;
}

struct Curvatures {
    double gaussian, mean;
    double first, second;
    double mean_absolute;
    double along_u, along_v;
};

std::optional<Curvatures> curvatures(const Derivatives& s) {
    const auto [E, F, G] = first_form(s);
    const double D = determinant({E, F, G});
    if (D < short_quantity) return std::nullopt;
    const Vec3 across = cross(s.u, s.v);
    const Form second = second_form(s, across * (1.0 / length(across)));
    const auto [L, M, N] = second;

    Curvatures c;
    c.gaussian = determinant(second) / D;
    // Kept as it stands: positive where the surface bends away from the normal, which callers know.
    c.mean = 0.5 * (2.0 * F * M - E * N - G * L) / D;
    const double q = c.mean * c.mean - c.gaussian;
    const double w = q > short_quantity ? std::sqrt(q) : 0.0;
    c.first = c.mean - w;
    c.second = c.mean + w;
    c.mean_absolute = (std::fabs(c.first) + std::fabs(c.second)) / 2.0;
    c.along_u = -L / E;
    c.along_v = -N / G;
    return c;
}

double normal_curvature(const Derivatives& s, Vec3 normal, Vec3 tangent) {
    const Form first = first_form(s);
    const double D = determinant(first);
    if (D < short_quantity || length(cross(normal, tangent)) == 0.0) return 0.0;
    const double along_u = dot(tangent, s.u);
    const double along_v = dot(tangent, s.v);
    const double du = (along_u * first.c - first.b * along_v) / D;
    const double dv = (first.a * along_v - along_u * first.b) / D;
    const double squared_length = first(du, dv);
    return squared_length == 0.0 ? 0.0 : second_form(s, normal)(du, dv) / squared_length;
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

int DGEOM_srf_curvatures(const double su[3], const double sv[3], const double suu[3],
                         const double suv[3], const double svv[3], int principal_wanted,
                         double* result) {
    const auto c = curvatures(load_derivatives(su, sv, suu, suv, svv));
    if (!c) return 1;
    result[0] = c->gaussian;
    result[1] = c->mean;
    if (principal_wanted == 0) return 0;
    result[2] = c->first;
    result[3] = c->second;
    result[4] = c->mean_absolute;
    result[5] = c->along_u;
    result[6] = c->along_v;
    return 0;
}

int DGEOM_srf_normal_curvature(const double su[3], const double sv[3], const double suu[3],
                               const double suv[3], const double svv[3], const double normal[3],
                               const double tangent[3], double* curvature) {
    *curvature =
        normal_curvature(load_derivatives(su, sv, suu, suv, svv), load3(normal), load3(tangent));
    return 0;
}
