// The compact vector kit: arithmetic, unit vectors, directions.
#include "kit/mc_math.h"

#include <cmath>
#include <cstdio>
#include <numbers>

#include "ztmath/mc.h"

namespace ztmath {

namespace {

constexpr Module report = mc_math_module.part(1);

/// Valid for a unit vector: the component divided by is then not small.
Vec3 unit_perpendicular(Vec3 a) {
    if (std::fabs(a.x) <= 0.5) {
        if (std::fabs(a.y) <= 0.5) return mc_unitize({1.0, 0.0, -a.x / a.z});
        return mc_unitize({1.0, -a.x / a.y, 0.0});
    }
    return mc_unitize({-a.y / a.x, 1.0, 0.0});
}

}  // namespace

Vec3 mc_unitize(Vec3 v) {
    const double magnitude = length(v);
    if (magnitude < mc_null_length) {
        std::fputs("\nERROR: zero vector in unitize\n", stdout);
        report.raise(mc_reason, "tried to unitize null vector");
    }
    return {v.x / magnitude, v.y / magnitude, v.z / magnitude};
}

bool mc_is_parallel(Vec3 a, Vec3 b) {
    // Kept as it stands: an angle is compared with a squared sine, and one that grows with the
    // lengths. Callers rely on unit vectors within about 0.24 degrees being parallel.
    constexpr double thousandth_of_a_degree = 1.7453292519943296e-5;
    return length_squared(cross(a, b)) < thousandth_of_a_degree;
}

bool mc_is_perpendicular(Vec3 a, Vec3 b) {
    // Kept as it stands: the cosine grows with the lengths, and the test tightens with it.
    return std::fabs(dot(a, b)) < 1.0e-4;
}

}  // namespace ztmath

using namespace ztmath;

void MC_v_copy(const double a[3], double out[3]) {
    store(load3(a), out);
}

void MC_AmB(const double a[3], const double b[3], double out[3]) {
    store(load3(a) - load3(b), out);
}

void MC_ApB(const double a[3], const double b[3], double out[3]) {
    store(load3(a) + load3(b), out);
}

void MC_aA(double s, const double a[3], double out[3]) {
    store(load3(a) * s, out);
}

void MC_aApB(double s, const double a[3], const double b[3], double out[3]) {
    store(load3(a) * s + load3(b), out);
}

void MC_AxB(const double a[3], const double b[3], double out[3]) {
    store(cross(load3(a), load3(b)), out);
}

double MC_A_dot_B(const double a[3], const double b[3]) {
    return dot(load3(a), load3(b));
}

double MC_triple_product(const double a[3], const double b[3], const double c[3]) {
    return dot(cross(load3(a), load3(b)), load3(c));
}

double MC_length(const double a[3]) {
    return length(load3(a));
}

double MC_length2(const double a[3]) {
    return length_squared(load3(a));
}

double MC_dist(const double p[3], const double q[3]) {
    return length(load3(p) - load3(q));
}

double MC_dist2(const double p[3], const double q[3]) {
    return length_squared(load3(p) - load3(q));
}

void MC_v_unit(double a[3]) {
    store(mc_unitize(load3(a)), a);
}

int MC_q_parallel(const double a[3], const double b[3]) {
    return mc_is_parallel(load3(a), load3(b));
}

int MC_q_perp(const double a[3], const double b[3]) {
    return mc_is_perpendicular(load3(a), load3(b));
}

double MC_get_angle(const double a[3], const double b[3]) {
    constexpr double nearly_one = 0.9999999;
    const double cosine = dot(load3(a), load3(b));
    if (cosine > nearly_one) return 0.0;
    if (cosine < -nearly_one) return std::numbers::pi;
    return std::acos(cosine);
}

void MC_perp_vec(const double a[3], double out[3]) {
    store(unit_perpendicular(load3(a)), out);
}
