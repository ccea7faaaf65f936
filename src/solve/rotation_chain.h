// Chains of plane rotations, as QR steps make them.
#pragma once

namespace ztmath {

/// A plane rotation: (p, q) becomes (c p + s q, c q - s p).
struct Givens {
    double c, s;
};

/// Rotates two rows of n.
inline void rotate(double* __restrict p, double* __restrict q, Givens r, int n) {
    for (int i = 0; i < n; ++i) {
        const double x = p[i];
        const double z = q[i];
        p[i] = x * r.c + z * r.s;
        q[i] = z * r.c - x * r.s;
    }
}

/// Rotates rows 0 and 1 of a matrix by the first of `count` rotations, rows 1 and 2 by the second,
/// and so on: count + 1 rows of n, `stride` apart.
void rotate_chain(double* rows, int stride, int n, const Givens* rotations, int count);

}  // namespace ztmath
