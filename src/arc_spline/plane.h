// Circles as points of space, families of circles as planes.
#pragma once

#include "arc_spline/segment.h"
#include "frame/vec.h"
#include "ztmath/arc_spline_planes.h"

namespace ztmath {

using MongePlane = ARC_SPLINE_monge_plane_t;

/// (x, y, x^2 + y^2 - r^2).
inline Vec3 point_of_circle(const Circle& c) {
    return {c.center.x, c.center.y,
            c.center.x * c.center.x + c.center.y * c.center.y - c.radius * c.radius};
}

struct CircleOfPoint {
    bool is_real;  // else the point lies above the paraboloid
    Circle circle;
};

CircleOfPoint circle_of_point(Vec3 p);

/// The plane that cuts the paraboloid above the circle.
inline MongePlane polar_plane(const Circle& c) {
    const Vec3 p = point_of_circle(c);
    return {{2.0 * p.x, 2.0 * p.y, -1.0}, -p.z, 0};
}

enum CommonLineStatus { one_line = 0, parallel_planes = 1, same_plane = 2 };

struct CommonLine {
    CommonLineStatus status;
    Vec3 point, direction;  // zero without a line
    double sine;            // of the angle between the planes
};

/// The line common to the planes through q1 and q2 with unit normals n1 and n2.
CommonLine common_line(Vec3 q1, Vec3 n1, Vec3 q2, Vec3 n2, double sine_tolerance,
                       double distance_tolerance);

CommonLine common_line(const MongePlane& a, const MongePlane& b, double sine_tolerance,
                       double distance_tolerance);

}  // namespace ztmath
