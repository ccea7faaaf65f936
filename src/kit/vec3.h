// Vectors of three dimensions: what other modules use of them.
#pragma once

#include "frame/report.h"
#include "kit/unitize.h"

namespace ztmath {

inline constexpr Module vec3_module{"vec3"};

inline Unitized<Vec3> unitize(Vec3 u, double tolerance = null_length) {
    ZTMATH_ASSERT(vec3_module, "VEC3_is_finite (u)", is_finite(u));
    return unitize_unchecked(u, tolerance);
}

/// Sine or cosine of the angle between two directions within the tolerance; a null vector is both
/// parallel and perpendicular to everything.
bool is_parallel(Vec3 u, Vec3 v, double tolerance);
bool is_perpendicular(Vec3 u, Vec3 v, double tolerance);

/// A vector perpendicular to u, as long as the two larger components of u; zero if u is null.
Vec3 perpendicular(Vec3 u);

/// The angle from u to v in [0, 2 pi), counter-clockwise about the reference.
double angle_between(Vec3 u, Vec3 v, Vec3 reference);

}  // namespace ztmath
