// 4x4 transforms: the standard motions.
#include <cmath>

#include "kit/mtx3.h"
#include "kit/mtx4.h"
#include "kit/vec3.h"
#include "ztmath/mtx4.h"

namespace ztmath {

Mat4 translation_by(Vec3 v) {
    return transform(identity3, v);
}

Mat3 reflection_along(Vec3 n) {
    return {{1.0 - 2.0 * n.x * n.x, -2.0 * n.x * n.y, -2.0 * n.x * n.z},
            {-2.0 * n.x * n.y, 1.0 - 2.0 * n.y * n.y, -2.0 * n.y * n.z},
            {-2.0 * n.x * n.z, -2.0 * n.y * n.z, 1.0 - 2.0 * n.z * n.z}};
}

Mat4 about(Vec3 point, const Mat3& m) {
    return translation_by(point) * transform(m, {0.0, 0.0, 0.0}) * translation_by(-point);
}

}  // namespace ztmath

using namespace ztmath;

namespace {

/// The frame of two directions, the absolute one where they are not perpendicular.
Mat4 frame_or_identity(Vec3 x, Vec3 y) {
    return transform(frame_from_x_y(x, y).value_or(identity3), {});
}

}  // namespace

void MTX4_scaling(const double centre[3], const double factors[3], double out[16]) {
    const Vec3 s = load3(factors);
    store(about(load3(centre), {{s.x, 0.0, 0.0}, {0.0, s.y, 0.0}, {0.0, 0.0, s.z}}), out);
}

int MTX4_rotation(const double point[3], const double axis[3], double angle, double out[16]) {
    // Kept as it stands: pi / 180 to fifteen digits, so that a rotation made again is the same bits
    // as the one that was stored.
    constexpr double degree = 0.01745329251994328;
    const Vec3 direction = load3(axis);
    if (is_null(direction)) return 1;
    const Vec3 unit = unitize(direction).unit;
    const Mat3 rotation = rotation_about(angle < 0.0 ? -unit : unit, std::fabs(angle) * degree);
    store(about(load3(point), rotation), out);
    return 0;
}

int MTX4_mirror(const double point[3], const double normal[3], double out[16]) {
    const Vec3 direction = load3(normal);
    if (is_null(direction)) return 1;
    store(about(load3(point), reflection_along(unitize(direction).unit)), out);
    return 0;
}

int MTX4_csys_to_csys(const double origin1[3], const double x1[3], const double y1[3],
                      const double origin2[3], const double x2[3], const double y2[3],
                      double out[16]) {
    if (is_null(load3(x1)) || is_null(load3(y1)) || is_null(load3(x2)) || is_null(load3(y2)))
        return 1;
    const Mat4 from = frame_or_identity(load3(x1), load3(y1));
    const auto out_of_second = inverse(frame_or_identity(load3(x2), load3(y2)));
    if (!out_of_second) return 1;
    store(translation_by(load3(origin2)) * *out_of_second * from * translation_by(-load3(origin1)),
          out);
    return 0;
}
