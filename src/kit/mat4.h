// 4x4 transforms as values: a 3x3 block, a translation in the last column, a last row.
#pragma once

#include "frame/mat3.h"

namespace ztmath {

struct Mat4 {
    double at[4][4];
};

inline constexpr Mat4 identity4{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};

inline Mat4 load_mat4(const double* p) {
    Mat4 m;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            m.at[i][j] = p[4 * i + j];
    return m;
}

inline void store(const Mat4& m, double* p) {
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            p[4 * i + j] = m.at[i][j];
}

/// The 3x3 block.
inline Mat3 block(const Mat4& m) {
    return {load3(m.at[0]), load3(m.at[1]), load3(m.at[2])};
}

inline void set_block(Mat4& m, const Mat3& block) {
    store(block.x, m.at[0]);
    store(block.y, m.at[1]);
    store(block.z, m.at[2]);
}

inline Vec3 translation(const Mat4& m) {
    return {m.at[0][3], m.at[1][3], m.at[2][3]};
}

/// The transform p -> M p + t.
constexpr Mat4 transform(const Mat3& m, Vec3 t) {
    return {{{m.x.x, m.x.y, m.x.z, t.x},
             {m.y.x, m.y.y, m.y.z, t.y},
             {m.z.x, m.z.y, m.z.z, t.z},
             {0.0, 0.0, 0.0, 1.0}}};
}

/// b a: as it acts on column vectors, first a, then b.
inline Mat4 operator*(const Mat4& b, const Mat4& a) {
    Mat4 r;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            r.at[i][j] = b.at[i][0] * a.at[0][j] + b.at[i][1] * a.at[1][j] +
                         b.at[i][2] * a.at[2][j] + b.at[i][3] * a.at[3][j];
    return r;
}

inline Mat4 transposed(const Mat4& m) {
    Mat4 r;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            r.at[i][j] = m.at[j][i];
    return r;
}

}  // namespace ztmath
