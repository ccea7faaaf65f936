// Differential geometry of curves: what other modules use of it.
#pragma once

#include "frame/vec.h"

namespace ztmath {

/// Lengths and other quantities of differential geometry below this are nothing.
inline constexpr double short_quantity = 1e-10;

/// The curvature vector of a curve with these derivatives; zero where the first is short.
inline Vec3 curvature_vector(Vec3 d1, Vec3 d2) {
    if (length(d1) < short_quantity) return {};
    const double speed_squared = length_squared(d1);
    return (d2 - d1 * (dot(d1, d2) / speed_squared)) * (1.0 / speed_squared);
}

}  // namespace ztmath
