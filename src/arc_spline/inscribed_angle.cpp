// The angle inscribed in a path of two vectors in space, seen against a normal.
#include <cmath>

#include "arc_spline/angle.h"
#include "arc_spline/plane_vectors.h"
#include "kit/vec3.h"
#include "ztmath/arc_spline_primitives.h"

namespace ztmath {

namespace {

/// type: -2 undefined, -1 straight on, 0 the path turns right, 1 left. v2: unit, in the plane when
/// projected.
struct Inscribed {
    double turn, angle;
    int type;
    Vec3 v2;
};

constexpr Inscribed undefined{0.0, 0.0, -2, {0.0, 0.0, 0.0}};

Inscribed inscribed_angle(Vec3 v1, Vec3 v2, Vec3 normal, bool project, double angle_tol) {
    constexpr double largest_tolerance = 0.001;  // degrees
    const double tol = angle_tol >= largest_tolerance ? largest_tolerance : angle_tol;
    const auto from = unitize(project ? in_plane(v1, normal) : v1);
    const auto to = unitize(project ? in_plane(v2, normal) : v2);
    if (!from.done || !to.done) return undefined;
    const double turn = angle_between(from.unit, to.unit, normal) * degrees_per_radian;
    const double sine = std::sin(tol * radians_per_degree);
    if (is_parallel(from.unit, to.unit, sine) && dot(from.unit, to.unit) > 0.0)
        return {turn, 180.0, -1, to.unit};
    Inscribed found = turn >= 180.0 ? Inscribed{turn, 360.0 - (turn - 180.0), 0, to.unit}
                                    : Inscribed{turn, 180.0 - turn, 1, to.unit};
    if (std::fabs(found.angle - 180.0) <= tol) found.type = -1;
    return found;
}

/// A vector turned about a unit axis by degrees, counter-clockwise (Rodrigues, 1840).
Vec3 turned(Vec3 v, Vec3 axis, double degrees) {
    const double angle = degrees * radians_per_degree;
    return v * std::cos(angle) + cross(axis, v) * std::sin(angle) +
           axis * (dot(axis, v) * (1.0 - std::cos(angle)));
}

struct Bisector {
    Vec3 direction;
    double inscribed;
    int type;
    int status;
};

Bisector bisector_of(Vec3 v1, Vec3 v2, Vec3 normal, bool project, double angle_tol) {
    const Inscribed found = inscribed_angle(v1, v2, normal, project, angle_tol);
    if (found.type == -2) return {{0.0, 0.0, 0.0}, 0.0, -2, 1};
    return {turned(found.v2, normal, found.angle / 2.0), found.angle, found.type, 0};
}

void store_bisector(const Bisector& found, double bisector[3], double* inscribed, int* type,
                    int* status) {
    store(found.direction, bisector);
    *inscribed = found.inscribed;
    *type = found.type;
    *status = found.status;
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

void ARC_SPLINE_ask_inscribed_angle_and_type(const double v1[3], const double v2[3],
                                             const double normal[3], int project, double angle_tol,
                                             double* angle, double* inscribed, int* type) {
    const Inscribed found =
        inscribed_angle(load3(v1), load3(v2), load3(normal), project != 0, angle_tol);
    *angle = found.turn;
    *inscribed = found.angle;
    *type = found.type;
}

void ARC_SPLINE_ask_bisector_of_inscribed_angle(const double v1[3], const double v2[3],
                                                const double normal[3], int project,
                                                double angle_tol, double bisector[3],
                                                double* inscribed, int* type, int* status) {
    store_bisector(bisector_of(load3(v1), load3(v2), load3(normal), project != 0, angle_tol),
                   bisector, inscribed, type, status);
}

void ARC_SPLINE_ask_bisector_of_polygon_angle(const double p1[3], const double p2[3],
                                              const double p3[3], const double* normal,
                                              double angle_tol, double bisector[3],
                                              double* inscribed, int* type, int* status) {
    const auto up = unitize(normal != nullptr ? load3(normal) : Vec3{0.0, 0.0, 1.0});
    const Vec3 corner = load3(p2);
    Bisector found{{0.0, 0.0, 0.0}, 0.0, -2, 1};
    if (up.done)
        found = bisector_of(corner - load3(p1), load3(p3) - corner, up.unit, true, angle_tol);
    store_bisector(found, bisector, inscribed, type, status);
}
