// Circles that touch three given ones, found as points of space.
#pragma once

#include "arc_spline/segment.h"

namespace ztmath {

/// A circle that is to be touched, from outside or from inside. A point is a circle of radius 0.
struct Touching {
    Circle circle;
    bool inside;

    /// By how much the distance of the centres exceeds the radius of the circle that touches.
    double excess() const { return inside ? -circle.radius : circle.radius; }
};

/// How far a circle is from touching; 0 when it does.
double gap(const Circle& c, const Touching& touched);

struct TwoCircles {
    int count;
    Circle circles[2];
};

/// The circles that touch all three, at most two.
///
/// A circle is the point (x, y, R) of space. Those that touch one given circle form a cone; what
/// two cones have in common lies in a plane, the polar plane of Monge's view. So the circles wanted
/// are where the line common to two planes meets one of the cones (after G. Monge and D. Pedoe,
/// Geometry, 1970). The view loses digits as squares do when circles nearly touch or lie far from
/// one another: it is taken in a frame of the data's own size, and what it finds is improved on the
/// distances themselves.
TwoCircles circles_touching(const Touching (&three)[3]);

}  // namespace ztmath
