// Points and circles against circles.
#pragma once

#include "arc_spline/center_radius.h"

namespace ztmath {

inline double power_of_point(Vec2 point, const Circle& circle) {
    return length_squared(circle.center - point) - circle.radius * circle.radius;
}

/// relation: 0 apart, 1 touching, 2 crossing, 3 concentric, which has no axis.
struct RadicalAxis {
    int relation;
    Line axis;
};

RadicalAxis radical_axis(const Circle& c1, const Circle& c2);

}  // namespace ztmath
