// 3x3 matrices as values: three rows, the axes of a frame.
#pragma once

#include "frame/vec.h"

namespace ztmath {

struct Mat3 {
    Vec3 x, y, z;
};

inline constexpr Mat3 identity3{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};

inline Mat3 load_mat3(const double* p) {
    return {load3(p), load3(p + 3), load3(p + 6)};
}

inline void store(const Mat3& m, double* p) {
    store(m.x, p);
    store(m.y, p + 3);
    store(m.z, p + 6);
}

constexpr Mat3 transposed(const Mat3& m) {
    return {{m.x.x, m.y.x, m.z.x}, {m.x.y, m.y.y, m.z.y}, {m.x.z, m.y.z, m.z.z}};
}

/// M v: the components of v along the rows of M.
constexpr Vec3 operator*(const Mat3& m, Vec3 v) {
    return {dot(m.x, v), dot(m.y, v), dot(m.z, v)};
}

/// M^T v: the vector whose components along the rows of M are v.
constexpr Vec3 transposed_times(const Mat3& m, Vec3 v) {
    return m.x * v.x + m.y * v.y + m.z * v.z;
}

/// b a: each row of b carried through the frame a.
constexpr Mat3 operator*(const Mat3& b, const Mat3& a) {
    return {transposed_times(a, b.x), transposed_times(a, b.y), transposed_times(a, b.z)};
}

/// b a^T: the components of each row of b along the axes of a.
constexpr Mat3 times_transposed(const Mat3& b, const Mat3& a) {
    return {a * b.x, a * b.y, a * b.z};
}

}  // namespace ztmath
