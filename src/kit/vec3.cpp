// Vectors of three dimensions.
#include "kit/vec3.h"

#include <cmath>

#include "ztmath/vec3.h"

namespace ztmath {

namespace {

constexpr Module report = vec3_module.part(1);

constexpr double two_pi = 6.283185307179586;

/// Angles this close to 0 are 0, and so never come out as 2 pi.
constexpr double null_angle = 1.0e-10;

/// Of two components, the larger moves unchanged to the other's place, the smaller comes back
/// negated.
struct QuarterTurn {
    double first, second;
};

QuarterTurn exchange_negating_smaller(double first, double second, bool first_is_larger) {
    return first_is_larger ? QuarterTurn{-second, first} : QuarterTurn{second, -first};
}

void assert_finite(Vec3 u, Vec3 v) {
    ZTMATH_ASSERT(report, "VEC3_is_finite( u )", is_finite(u));
    ZTMATH_ASSERT(report, "VEC3_is_finite( v )", is_finite(v));
}

}  // namespace

bool is_parallel(Vec3 u, Vec3 v, double tolerance) {
    assert_finite(u, v);
    return is_parallel_unchecked(u, v, tolerance);
}

bool is_perpendicular(Vec3 u, Vec3 v, double tolerance) {
    assert_finite(u, v);
    return is_perpendicular_unchecked(u, v, tolerance);
}

Vec3 perpendicular(Vec3 u) {
    ZTMATH_ASSERT(report, "VEC3_is_finite (u)", is_finite(u));
    if (is_null(u)) return {0.0, 0.0, 0.0};
    const double x = std::fabs(u.x);
    const double y = std::fabs(u.y);
    const double z = std::fabs(u.z);
    // Kept as it stands: which component wins a tie decides which perpendicular every frame built
    // on one direction gets.
    if (z <= x && z <= y) {
        const QuarterTurn xy = exchange_negating_smaller(u.x, u.y, x > y);
        return {xy.first, xy.second, 0.0};
    }
    if (y <= x) {
        const QuarterTurn xz = exchange_negating_smaller(u.x, u.z, x >= z);
        return {xz.first, 0.0, xz.second};
    }
    const QuarterTurn yz = exchange_negating_smaller(u.y, u.z, y >= z);
    return {0.0, yz.first, yz.second};
}

double angle_between(Vec3 u, Vec3 v, Vec3 reference) {
    const auto from = unitize(u);
    const auto to = unitize(v);
    if (!from.done || !to.done) return 0.0;
    const double cosine = dot(from.unit, to.unit);
    const Vec3 normal = cross(from.unit, to.unit);
    const double sine = dot(normal, reference) < 0.0 ? -length(normal) : length(normal);
    const double angle = std::atan2(sine, cosine);
    if (std::fabs(angle) <= null_angle) return 0.0;
    return angle < 0.0 ? angle + two_pi : angle;
}

}  // namespace ztmath

using namespace ztmath;

int VEC3_unitize(const double u[3], double tolerance, double* magnitude, double unit[3]) {
    const auto result = unitize(load3(u), tolerance);
    *magnitude = result.magnitude;
    store(result.unit, unit);
    return result.done;
}

int VEC3_is_parallel(const double u[3], const double v[3], double tolerance) {
    return is_parallel(load3(u), load3(v), tolerance);
}

int VEC3_is_perpendicular(const double u[3], const double v[3], double tolerance) {
    return is_perpendicular(load3(u), load3(v), tolerance);
}

int VEC3_ask_perpendicular(const double u[3], double out[3]) {
    const Vec3 direction = load3(u);
    store(perpendicular(direction), out);
    return !is_null(direction);
}

double VEC3_angle_between(const double u[3], const double v[3], const double reference[3]) {
    return angle_between(load3(u), load3(v), load3(reference));
}

void VEC3_make_trihedral(const double u[3], const double a[3], double across[3], double third[3],
                         double along[3]) {
    const Vec3 vector = load3(u);
    const Vec3 axis = load3(a);
    const Vec3 along_part = axis * dot(vector, axis);
    const Vec3 across_part = vector - along_part;
    store(across_part, across);
    store(cross(axis, across_part), third);
    store(along_part, along);
}
