// Circles through points.
#pragma once

#include "arc_spline/constructed.h"

namespace ztmath {

/// status: 1 the points are collinear, 2 the outer points coincide, or how the bisectors are
/// parallel.
Constructed circle_through(Vec2 p1, Vec2 p2, Vec2 p3, const double* tols);

/// status: 1 the points coincide.
ConstructedCircles<2> circles_on_chord(Vec2 p1, Vec2 p2, double radius, int selector, double tol);

}  // namespace ztmath
