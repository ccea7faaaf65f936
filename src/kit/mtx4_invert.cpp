// 4x4 transforms: inversion by LU decomposition.
//
// All four unit vectors are substituted side by side. Each element still goes through the
// operations, in the order, of ludcmp_a and lubksb_a: the bits are theirs.
#include <type_traits>
#include <utility>

#include "kit/lu_steps.h"
#include "kit/mtx4.h"
#include "ztmath/mtx4.h"

namespace ztmath {

namespace {

/// L, unit diagonal left out, below the diagonal, and U on and above it.
struct Factors {
    Mat4 lu;
    int exchanges[4];
};

/// Decomposes the matrix in the place of its factors; false if a row is entirely zero.
bool decompose(Factors& f) {
    constexpr std::integral_constant<int, 4> size;
    double scales[size];
    if (!find_scales(f.lu.at, size, scales)) return false;
    Pivoting pivoting{scales, f.exchanges, 1.0};
    // Written out, so that the bounds of the loops inside are known when they are compiled.
    eliminate_column(f.lu.at, size, 0, size, pivoting);
    eliminate_column(f.lu.at, size, 1, size, pivoting);
    eliminate_column(f.lu.at, size, 2, size, pivoting);
    eliminate_column(f.lu.at, size, 3, size, pivoting);
    return true;
}

/// L^-1. What is zero in it is left alone, and so stays zero where L is not finite.
Mat4 substitute_forward(const Mat4& lu) {
    Mat4 x = identity4;
#pragma GCC unroll 4
    for (int i = 1; i < 4; ++i)
#pragma GCC unroll 4
        for (int j = 0; j < i; ++j)
            for (int c = 0; c <= j; ++c)
                x.at[i][c] -= lu.at[i][j] * x.at[j][c];
    return x;
}

/// Makes U^-1 x of x.
void substitute_back(const Mat4& lu, Mat4& x) {
#pragma GCC unroll 4
    for (int i = 3; i >= 0; --i) {
#pragma GCC unroll 4
        for (int j = i + 1; j < 4; ++j)
            for (int c = 0; c < 4; ++c)
                x.at[i][c] -= lu.at[i][j] * x.at[j][c];
        for (int c = 0; c < 4; ++c)
            x.at[i][c] /= lu.at[i][i];
    }
}

/// Puts the columns of x in the order that the rows had before they were exchanged.
Mat4 undo_exchanges(const Mat4& x, const int (&exchanges)[4]) {
    int column[] = {0, 1, 2, 3};
    for (int j = 3; j >= 0; --j)
        std::swap(column[j], column[exchanges[j]]);
    Mat4 r;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            r.at[i][j] = x.at[i][column[j]];
    return r;
}

}  // namespace

std::optional<Mat4> inverse(const Mat4& m) {
    Factors f{m, {}};
    if (!decompose(f)) return std::nullopt;
    Mat4 x = substitute_forward(f.lu);
    substitute_back(f.lu, x);
    return undo_exchanges(x, f.exchanges);
}

}  // namespace ztmath

int MTX4_invert(const double m[16], double inverse[16]) {
    const auto result = ztmath::inverse(ztmath::load_mat4(m));
    if (!result) return 1;
    store(*result, inverse);
    return 0;
}
