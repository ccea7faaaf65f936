// 4x4 transforms: what other modules use of them.
#pragma once

#include <optional>

#include "kit/mat4.h"

namespace ztmath {

/// T(v): p -> p + v.
Mat4 translation_by(Vec3 v);

/// I - 2 n n^T: the reflection in the plane through the origin with the unit normal n.
Mat3 reflection_along(Vec3 n);

/// T(point) M T(-point): M with `point` in the origin's place.
Mat4 about(Vec3 point, const Mat3& m);

/// The inverse by LU decomposition; nothing if a row is entirely zero.
std::optional<Mat4> inverse(const Mat4& m);

}  // namespace ztmath
