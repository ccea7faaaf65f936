// Angles between planar vectors, in degrees.
#pragma once

#include "arc_spline/angle.h"

namespace ztmath {

/// Counter-clockwise from a to b, in [0, 360).
inline double angle_between(Vec2 a, Vec2 b) {
    return inclination({dot(a, b), cross(a, b)});
}

}  // namespace ztmath
