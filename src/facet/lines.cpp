// Parametric lines and their distances.
#include <cmath>

#include "kit/vec3.h"
#include "ztmath/facet.h"

namespace ztmath {

namespace {

/// Directions up to this length are none.
constexpr double null_direction = 1e-5;

struct Line {
    Vec3 origin, direction;

    Vec3 at(double t) const { return origin + direction * t; }
};

Line load_line(const double* origin, const double* direction) {
    return {load3(origin), load3(direction)};
}

struct ClosestParameters {
    double s, t;
};

ClosestParameters closest_parameters(const Line& first, const Line& second) {
    const auto [a, u] = first;
    const auto [b, v] = second;
    const double uu = dot(u, u);
    const double vv = dot(v, v);
    const double uv = dot(u, v);
    const double den = uu * vv - uv * uv;
    const double along_u = dot(b, u) - dot(a, u);
    const double along_v = dot(a, v) - dot(b, v);
    constexpr double no_determinant = 1e-10;
    if (std::fabs(den) > no_determinant)
        return {(along_u * vv + uv * along_v) / den, (uu * along_v + along_u * uv) / den};
    constexpr double no_length_squared = 1e-6;
    // Kept as it stands: a division by the square of the squared length. Callers pass unit
    // directions to lines that may be parallel.
    if (vv > no_length_squared) return {0.0, along_v / (vv * vv)};
    if (uu > no_length_squared) return {along_u / (uu * uu), 0.0};
    return {0.0, 0.0};
}

double distance_from(const Line& line, Vec3 p) {
    const auto direction = unitize(line.direction, null_direction);
    const Vec3 offset = p - line.origin;
    return length(direction.done ? cross(offset, direction.unit) : offset);
}

double signed_distance(const Line& first, const Line& second) {
    constexpr double parallel = 1e-6;
    const Vec3 w = cross(first.direction, second.direction);
    const double w_length = length(w);
    return w_length >= parallel ? dot(second.origin - first.origin, w) / w_length
                                : distance_from(second, first.origin);
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

void FACET_points_to_param_line(const double a[3], const double b[3], int unitize, double line[6]) {
    const Vec3 origin = load3(a);
    Vec3 direction = load3(b) - origin;
    if (unitize == 1)
        if (const auto result = ztmath::unitize(direction, null_direction); result.done)
            direction = result.unit;
    store(origin, line);
    store(direction, line + 3);
}

void FACET_point_on_param_line(const double origin[3], const double direction[3], double t,
                               double point[3]) {
    store(load_line(origin, direction).at(t), point);
}

void FACET_line_line_closest_point(const double a[3], const double u[3], const double b[3],
                                   const double v[3], double* s, double* t) {
    const ClosestParameters closest = closest_parameters(load_line(a, u), load_line(b, v));
    *s = closest.s;
    *t = closest.t;
}

double FACET_line_point_dist(const double a[3], const double b[3], const double p[3]) {
    return distance_from({load3(a), load3(b) - load3(a)}, load3(p));
}

double FACET_line_line_dist(const double a[3], const double u[3], const double b[3],
                            const double v[3]) {
    return signed_distance(load_line(a, u), load_line(b, v));
}

void FACET_point_line_proj(const double p[3], const double origin[3], const double direction[3],
                           int unit_direction, double point[3], double* t) {
    const Line line = load_line(origin, direction);
    double parameter = dot(load3(p) - line.origin, line.direction);
    const double squared = length_squared(line.direction);
    if (unit_direction == 0 && squared != 0.0) parameter /= squared;
    store(line.at(parameter), point);
    *t = parameter;
}

double FACET_compute_undirected_angle(const double u[3], const double v[3]) {
    return std::atan2(length(cross(load3(u), load3(v))), dot(load3(u), load3(v)));
}
