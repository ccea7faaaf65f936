// Vectors against planes.
#pragma once

#include "frame/vec.h"

namespace ztmath {

/// The part of a vector that lies in the plane with a unit normal.
inline Vec3 in_plane(Vec3 v, Vec3 normal) {
    return v - normal * dot(v, normal);
}

}  // namespace ztmath
