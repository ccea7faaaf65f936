// Roll, pitch and yaw as pairs of cosine and sine, the form in which matrices are repaired.
#pragma once

#include "frame/mat3.h"

namespace ztmath {

struct Direction {
    double cos, sin;
};

struct RollPitchYaw {
    Direction roll, pitch, yaw;
};

/// The rotation of roll about X, then pitch about Y, then yaw about Z.
constexpr Mat3 rotation_matrix(const RollPitchYaw& a) {
    const auto [cr, sr] = a.roll;
    const auto [cp, sp] = a.pitch;
    const auto [cy, sy] = a.yaw;
    return {{cy * cp, cy * sp * sr - sy * cr, cy * sp * cr + sy * sr},
            {sy * cp, sy * sp * sr + cy * cr, sy * sp * cr - cy * sr},
            {-sp, cp * sr, cp * cr}};
}

/// The pairs that a matrix is made of, cleaned: unit length restored, right angles made exact.
RollPitchYaw cleaned_roll_pitch_yaw(const Mat3& m);

}  // namespace ztmath
