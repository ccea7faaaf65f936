// The compact vector kit: distances from and projections onto lines and planes.
#include <cmath>

#include "kit/mc_math.h"
#include "ztmath/mc.h"

using namespace ztmath;

namespace {

/// A line of unit direction.
struct Line {
    Vec3 direction, point;
};

Vec3 foot_on_line(Vec3 p, const Line& line) {
    const Vec3 u = line.direction;
    return line.point + u * (dot(p, u) - dot(line.point, u));
}

/// The distance of two parallel lines, a point of one being `between` away from a point of the
/// other; 0 where the lines cannot be told apart.
double parallel_line_distance(Vec3 direction, Vec3 between) {
    const Vec3 normal = cross(between, direction);
    if (length_squared(between) >= mc_null_length_squared &&
        length_squared(normal) >= mc_null_length_squared)
        return std::fabs(dot(between, mc_unitize(cross(direction, normal))));
    return 0.0;
}

}  // namespace

double MC_dist_lines(const double d1[3], const double p1[3], const double d2[3],
                     const double p2[3]) {
    const Vec3 between = load3(p1) - load3(p2);
    const Vec3 normal = cross(load3(d1), load3(d2));
    if (length_squared(normal) >= mc_null_length_squared)
        return std::fabs(dot(mc_unitize(normal), between));
    return parallel_line_distance(load3(d1), between);
}

double MC_signed_dist_planes(const double normal1[3], double dist1, const double normal2[3],
                             double dist2) {
    const Vec3 n1 = load3(normal1);
    const Vec3 n2 = load3(normal2);
    if (!mc_is_parallel(n1, n2)) return 0.0;
    return dot(n1, n2) <= 0.0 ? -dist2 - dist1 : dist2 - dist1;
}

double MC_signed_dist_plane_axis(const double n[3], double d, const double direction[3],
                                 const double point[3]) {
    if (!mc_is_perpendicular(load3(n), load3(direction))) return 0.0;
    return dot(load3(n), load3(point)) - d;
}

void MC_proj_point_onto_line(const double p[3], const double u[3], const double q[3],
                             double out[3]) {
    store(foot_on_line(load3(p), {load3(u), load3(q)}), out);
}

void MC_perp_from_line_to_point(const double p[3], const double u[3], const double q[3],
                                double out[3]) {
    const Vec3 point = load3(p);
    store(mc_unitize(point - foot_on_line(point, {load3(u), load3(q)})), out);
}

int MC_q_point_on_line(const double p[3], const double u[3], const double q[3]) {
    constexpr double on_line_squared = 1.0e-8;
    const Vec3 point = load3(p);
    return length_squared(point - foot_on_line(point, {load3(u), load3(q)})) <= on_line_squared;
}

void MC_proj_point_onto_plane(const double p[3], const double n[3], double d, double out[3]) {
    const Vec3 point = load3(p);
    const Vec3 normal = load3(n);
    store(point - normal * (dot(point, normal) - d), out);
}
