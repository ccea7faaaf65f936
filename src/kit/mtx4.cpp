// 4x4 transforms: products, tests and repair.
#include "ztmath/mtx4.h"

#include <cmath>

#include "kit/mat4.h"
#include "kit/mtx3.h"
#include "kit/mtx3_privileged.h"

using namespace ztmath;

namespace {

bool is_ortho_normal(const Mat4& m) {
    return is_ortho_normal(block(m));
}

bool is_close(const Mat4& a, const Mat4& b, double tolerance) {
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            if (!(std::fabs(a.at[i][j] - b.at[i][j]) <= tolerance)) return false;
    return true;
}

// Kept as it stands: matrices that agree within the tolerance differ if one is orthonormal and the
// other is not.
bool is_equal(const Mat4& a, const Mat4& b, double tolerance) {
    return is_close(a, b, tolerance) && is_ortho_normal(a) == is_ortho_normal(b);
}

}  // namespace

void MTX4_multiply(const double a[16], const double b[16], double r[16]) {
    store(load_mat4(b) * load_mat4(a), r);
}

void MTX4_multiply_t(const double a[16], const double b[16], double r[16]) {
    store(load_mat4(b) * transposed(load_mat4(a)), r);
}

int MTX4_is_ortho_normal(const double m[16]) {
    return is_ortho_normal(load_mat4(m));
}

int MTX4_ortho_normalize(double m[16]) {
    Mat4 transform = load_mat4(m);
    Mat3 rotation = block(transform);
    if (!ortho_normalize(rotation)) return 0;
    set_block(transform, rotation);
    store(transform, m);
    return 1;
}

int MTX4_fixup(double m[16]) {
    Mat4 transform = load_mat4(m);
    Mat3 rotation = block(transform);
    const bool fixed = fixup(rotation);
    set_block(transform, rotation);
    store(transform, m);
    return fixed;
}

int MTX4_is_equal(const double a[16], const double b[16], double tolerance) {
    return is_equal(load_mat4(a), load_mat4(b), tolerance);
}

int MTX4_is_identity(const double m[16], double tolerance) {
    return is_equal(load_mat4(m), identity4, tolerance);
}

int MTX4_is_equal_transform(const double a[16], const double b[16], double rotation_tolerance,
                            double translation_tolerance, double scale_tolerance) {
    const Mat4 first = load_mat4(a);
    const Mat4 second = load_mat4(b);
    return std::fabs(first.at[3][3] - second.at[3][3]) <= scale_tolerance &&
           length_squared(translation(first) - translation(second)) <=
               translation_tolerance * translation_tolerance &&
           is_equal(block(first), block(second), rotation_tolerance);
}
