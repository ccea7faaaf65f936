// Chains of plane rotations.
//
// The rows are taken by strips of columns, in which the row that two rotations share stays in
// registers.
#include "solve/rotation_chain.h"

#include <cstddef>

#include "frame/wide_lanes.h"

namespace ztmath {

namespace {

/// Rotates a strip of Count lane groups.
template <class Lanes, int Count>
[[gnu::always_inline]] inline void rotate_strip(double* p, std::ptrdiff_t stride,
                                                const Givens* rotations, int count) {
    constexpr std::ptrdiff_t width = width_of<Lanes>;
    Lanes shared[Count];
    for (int i = 0; i < Count; ++i)
        load(p + i * width, shared[i]);
    for (int j = 0; j < count; ++j, p += stride) {
        const Givens r = rotations[j];
        for (int i = 0; i < Count; ++i) {
            const Lanes x = shared[i];
            Lanes z;
            load(p + stride + i * width, z);
            store<Lanes>(x * r.c + z * r.s, p + i * width);
            shared[i] = z * r.c - x * r.s;
        }
    }
    for (int i = 0; i < Count; ++i)
        store(shared[i], p + i * width);
}

template <class Lanes>
[[gnu::always_inline]] inline void rotate_strips(double* rows, int stride, int n,
                                                 const Givens* rotations, int count) {
    constexpr int groups = 4;
    constexpr int strip = groups * width_of<Lanes>;
    int column = 0;
    for (; column + strip <= n; column += strip)
        rotate_strip<Lanes, groups>(rows + column, stride, rotations, count);
    for (; column + 2 <= n; column += 2)
        rotate_strip<Pair, 1>(rows + column, stride, rotations, count);
    if (column < n) rotate_strip<double, 1>(rows + column, stride, rotations, count);
}

ZTMATH_WIDE_LANES void rotate_wide_strips(double* rows, int stride, int n, const Givens* rotations,
                                          int count) {
    rotate_strips<Quad>(rows, stride, n, rotations, count);
}

}  // namespace

void rotate_chain(double* rows, int stride, int n, const Givens* rotations, int count) {
    if (has_wide_lanes())
        rotate_wide_strips(rows, stride, n, rotations, count);
    else
        rotate_strips<Pair>(rows, stride, n, rotations, count);
}

}  // namespace ztmath
