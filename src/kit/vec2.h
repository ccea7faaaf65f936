// Vectors of two dimensions: what other modules use of them.
#pragma once

#include "frame/report.h"
#include "kit/unitize.h"

namespace ztmath {

inline constexpr Module vec2_module{"vec2"};

inline Unitized<Vec2> unitize(Vec2 u, double tolerance = null_length) {
    ZTMATH_ASSERT(vec2_module, "VEC2_is_finite (u)", is_finite(u));
    return unitize_unchecked(u, tolerance);
}

}  // namespace ztmath
