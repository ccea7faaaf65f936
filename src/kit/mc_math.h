// The compact vector kit: what its files share.
#pragma once

#include "frame/report.h"
#include "frame/vec.h"

namespace ztmath {

inline constexpr Module mc_math_module{"mc_math"};

/// The one reason code of the kit.
inline constexpr int mc_reason = 17;

/// Lengths below this are null, squared ones below its square.
inline constexpr double mc_null_length = 1.0e-4;
inline constexpr double mc_null_length_squared = 1.0e-8;

/// v divided by its length; a null vector is reported, and divided all the same.
Vec3 mc_unitize(Vec3 v);

bool mc_is_parallel(Vec3 a, Vec3 b);
bool mc_is_perpendicular(Vec3 a, Vec3 b);

}  // namespace ztmath
