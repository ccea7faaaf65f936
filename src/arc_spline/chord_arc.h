// Arcs and circles that leave a point along a tangent.
#pragma once

#include "arc_spline/constructed.h"

namespace ztmath {

/// The arc from the start along its tangent to the end; a straight when the end lies ahead. A
/// radius that is not negative must be that of the arc.
///
/// status: 1 the ends coincide, 2 the end lies straight behind, 3 another radius.
Constructed chord_arc(Vec2 start, Vec2 tangent, Vec2 end, double radius, double tol);

/// The circle through a point that touches a line at its point; the straight there when the point
/// lies on the line.
///
/// status: 1 the points coincide, 2 the line has no direction.
Constructed circle_touching_at(Vec2 point, const Line& line, double tol);

/// The arc that touches the lines of two rays, with the unit directions of these.
///
/// status: 1 a null direction, 2 both on one line, 3 there is no such arc.
struct RayToRay {
    Constructed arc;
    Vec2 direction_1, direction_2;
};

RayToRay ray_to_ray(const Line& ray_1, const Line& ray_2, bool unit, const double* tols);

/// The tangent at the other end of a chord.
///
/// status: 1 the ends coincide or there is no tangent.
struct EndTangent {
    int status;
    Vec2 tangent;
};

EndTangent other_end_tangent(Vec2 start, Vec2 tangent, Vec2 end, double tol);

}  // namespace ztmath
