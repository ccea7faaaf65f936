// Differential geometry of curves.
#include "dgeom/curve.h"

#include <optional>

#include "ztmath/dgeom.h"

namespace ztmath {

namespace {

struct Frenet {
    Vec3 tangent{};
    Vec3 binormal{};
    Vec3 normal{};
    double curvature = 0.0;
    double torsion = 0.0;
};

double torsion(Vec3 d1, Vec3 d2, Vec3 d3, double b_squared) {
    return dot(d1, cross(d2, d3)) / b_squared;
}

Frenet frenet(Vec3 d1, Vec3 d2, Vec3 d3, bool torsion_wanted) {
    Frenet f;
    const double speed = length(d1);
    if (speed < short_quantity) return f;
    f.tangent = d1 * (1.0 / speed);
    const Vec3 b = cross(d1, d2);
    const double b_length = length(b);
    if (b_length < short_quantity) return f;
    const double curvature = b_length / (speed * speed * speed);
    if (curvature < short_quantity) return f;
    f.curvature = curvature;
    f.binormal = b * (1.0 / b_length);
    f.normal = cross(f.binormal, f.tangent);
    if (torsion_wanted) f.torsion = torsion(d1, d2, d3, length_squared(b));
    return f;
}

struct TorsionVector {
    double torsion;
    Vec3 vector;
};

TorsionVector torsion_vector(Vec3 d1, Vec3 d2, Vec3 d3) {
    const Vec3 b = cross(d1, d2);
    const double b_length = length(b);
    if (b_length < short_quantity) return {0.0, {}};
    const double tau = torsion(d1, d2, d3, length_squared(b));
    const Vec3 normal = cross(b * (1.0 / b_length), d1 * (1.0 / length(d1)));
    return {tau, normal * -tau};
}

Vec3 curvature_variation(Vec3 d1, Vec3 d2, Vec3 d3) {
    const double s = length(d1);
    if (s < short_quantity) return {};
    const double s3 = s * s * s;
    const double s5 = s3 * s * s;
    const double a = dot(d1, d2);
    const double along_d1 = -(length_squared(d2) + dot(d1, d3)) / s5 + 4.0 * a * a / (s5 * s * s);
    return d1 * along_d1 - d2 * (3.0 * a / s5) + d3 * (1.0 / s3);
}

std::optional<Vec3> reciprocal(Vec3 v) {
    constexpr double no_length_squared = 1e-38;
    const double squared = length_squared(v);
    if (squared < no_length_squared) return std::nullopt;
    return v * (1.0 / squared);
}

int store_reciprocal(const double* v, double* out) {
    const auto result = reciprocal(load3(v));
    if (!result) return 1;
    store(*result, out);
    return 0;
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

double DGEOM_crv_curvature(const double d1[3], const double d2[3], double curvature[3]) {
    const Vec3 k = curvature_vector(load3(d1), load3(d2));
    store(k, curvature);
    return length(k);
}

double DGEOM_crv_torsion(const double d1[3], const double d2[3], const double d3[3],
                         double vector[3]) {
    const TorsionVector result = torsion_vector(load3(d1), load3(d2), load3(d3));
    store(result.vector, vector);
    return result.torsion;
}

void DGEOM_crv_diff_property(const double d1[3], const double d2[3], const double d3[3],
                             int torsion_wanted, double properties[11]) {
    const Frenet f = frenet(load3(d1), load3(d2), load3(d3), torsion_wanted == 1);
    store(f.tangent, properties);
    store(f.binormal, properties + 3);
    store(f.normal, properties + 6);
    properties[9] = f.curvature;
    properties[10] = f.torsion;
}

void DGEOM_crv_curvature_variation(const double d1[3], const double d2[3], const double d3[3],
                                   double variation[3]) {
    store(curvature_variation(load3(d1), load3(d2), load3(d3)), variation);
}

int DGEOM_convert_crvatr_to_radius(const double curvature[3], double radius[3]) {
    return store_reciprocal(curvature, radius);
}

int DGEOM_convert_radius_to_crvatr(const double radius[3], double curvature[3]) {
    return store_reciprocal(radius, curvature);
}

void DGEOM_convert_crvatr_to_deriv2(const double d1[3], const double curvature[3], double d2[3]) {
    store(load3(curvature) * length_squared(load3(d1)), d2);
}
