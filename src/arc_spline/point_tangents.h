// Tangents from a point to a circle.
#pragma once

#include "arc_spline/segment.h"

namespace ztmath {

/// The two unit vectors that lean from a way by the angle whose cosine is the height by the way's
/// length.
///
/// From the centre of a circle they lead to where the tangents from a point touch it, when the way
/// is that to the point and the height the radius.
struct Leaning {
    Vec2 left, right;
};

Leaning leaning(Vec2 way, double height);

/// status: 1 no circle to read, 2 no parameter of the point itself, 3 no circle of Thales, 4 no two
/// crossings of it. Points that miss the bounded arc have flag 1; they are behind those that count.
struct PointTangents {
    int status = 0;
    int count = 0;
    Vec2 points[2] = {};
    double parms[2] = {};
    int flags[2] = {-1, -1};
};

PointTangents tangents_through(const Segment* circle, Vec2 point, bool bounded, const double* tols);

}  // namespace ztmath
