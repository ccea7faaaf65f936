// Inclinations of planar vectors, in degrees.
#pragma once

#include <cmath>

#include "frame/vec.h"

namespace ztmath {

// The factors that all angles of this family are converted with.
inline constexpr double radians_per_degree = 0.01745329251994328;
inline constexpr double degrees_per_radian = 57.29577951308235;

/// The polar angle in radians, in [0, 2 pi).
double polar_angle(Vec2 v);

/// The inclination, in [0, 360).
inline double inclination(Vec2 v) {
    const double degrees = polar_angle(v) * degrees_per_radian;
    return degrees >= 360.0 ? 0.0 : degrees;  // the factor is a hair too large
}

/// The unit vector of an inclination in degrees.
inline Vec2 direction_of(double degrees) {
    const double angle = degrees * radians_per_degree;
    return {std::cos(angle), std::sin(angle)};
}

inline Vec2 left_normal(Vec2 v) {
    return {-v.y, v.x};
}
inline Vec2 right_normal(Vec2 v) {
    return {v.y, -v.x};
}

}  // namespace ztmath
