// Planes as a unit normal and a distance, and what meets them.
#include <cmath>
#include <optional>

#include "kit/vec3.h"
#include "ztmath/facet.h"

namespace ztmath {

namespace {

/// The points x with normal . x + d = 0.
struct Plane {
    Vec3 normal;
    double d;

    double at(Vec3 p) const { return dot(normal, p) + d; }
};

struct Meeting {
    Vec3 point;
    double t;
};

std::optional<Meeting> meet(Vec3 origin, Vec3 direction, const Plane& plane) {
    constexpr double parallel = 1e-10;
    const double rate = dot(plane.normal, direction);
    if (std::fabs(rate) < parallel) return std::nullopt;
    const double t = -plane.at(origin) / rate;
    return Meeting{origin + direction * t, t};
}

Vec3 point_on(const Plane& plane) {
    return unitize(plane.normal).unit * -plane.d;
}

/// How two planes lie to each other, as the interface numbers it.
enum Relation { coincident, apart, crossing };

struct CommonLine {
    Relation relation;
    Vec3 point, direction;
};

CommonLine common_line(const Plane& first, const Plane& second) {
    constexpr double parallel = 1.0000000000000002e-10;
    constexpr double least_gap = 1e-10;
    const Vec3 direction = cross(first.normal, second.normal);
    const Vec3 start = point_on(first);
    if (length_squared(direction) < parallel) {
        const double gap = dot(point_on(second) - start, first.normal);
        return {std::fabs(gap) >= least_gap ? apart : coincident, {}, direction};
    }
    const auto meeting = meet(start, cross(direction, first.normal), second);
    return {crossing, meeting ? meeting->point : start, direction};
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

int FACET_line_int_plane(const double a[3], const double b[3], const double normal[3], double d,
                         double point[3], double* t) {
    const auto meeting = meet(load3(a), load3(b) - load3(a), {load3(normal), d});
    if (!meeting) return 1;
    store(meeting->point, point);
    *t = meeting->t;
    return 0;
}

double FACET_point_plane_dist(const double point[3], const double normal[3], double d) {
    return Plane{load3(normal), d}.at(load3(point));
}

int FACET_point_plane_proj(const double p[3], const double normal[3], double d, double point[3]) {
    const auto meeting = meet(load3(p), load3(normal), {load3(normal), d});
    if (!meeting) return 1;
    store(meeting->point, point);
    return 0;
}

int FACET_plane_plane_int(const double normal1[3], double d1, const double normal2[3], double d2,
                          double point[3], double direction[3]) {
    const CommonLine line = common_line({load3(normal1), d1}, {load3(normal2), d2});
    if (line.relation == crossing) store(line.point, point);
    store(line.direction, direction);
    return line.relation;
}

void FACET_ask_point_on_plane(const double normal[3], double d, double point[3]) {
    store(point_on({load3(normal), d}), point);
}
