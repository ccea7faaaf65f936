// Rotation matrices: tests and products.
#include "kit/mtx3.h"

#include <cmath>

#include "ztmath/mtx3.h"

namespace ztmath {

namespace {

bool is_unit(Vec3 row) {
    return std::fabs(length_squared(row) - 1.0) <= ortho_normal_tolerance;
}

bool are_perpendicular(Vec3 a, Vec3 b) {
    return std::fabs(dot(a, b)) <= ortho_normal_tolerance;
}

bool is_close(Vec3 a, Vec3 b, double tolerance) {
    return std::fabs(a.x - b.x) <= tolerance && std::fabs(a.y - b.y) <= tolerance &&
           std::fabs(a.z - b.z) <= tolerance;
}

/// Writes a product of a and b, repaired if both are orthonormal; returns whether it was.
int store_product(Mat3 product, const Mat3& a, const Mat3& b, double* r) {
    const bool repaired = is_ortho_normal(a) && is_ortho_normal(b) && ortho_normalize(product);
    store(product, r);
    return repaired;
}

}  // namespace

bool is_ortho_normal(const Mat3& m) {
    return is_unit(m.x) && is_unit(m.y) && is_unit(m.z) && are_perpendicular(m.x, m.y) &&
           are_perpendicular(m.y, m.z) && are_perpendicular(m.z, m.x);
}

/// Kept as it stands: matrices that agree within any tolerance differ if only one is orthonormal.
bool is_equal(const Mat3& a, const Mat3& b, double tolerance) {
    return is_close(a.x, b.x, tolerance) && is_close(a.y, b.y, tolerance) &&
           is_close(a.z, b.z, tolerance) && is_ortho_normal(a) == is_ortho_normal(b);
}

}  // namespace ztmath

using namespace ztmath;

int MTX3_is_ortho_normal(const double m[9]) {
    return is_ortho_normal(load_mat3(m));
}

int MTX3_is_equal(const double a[9], const double b[9], double tolerance) {
    return is_equal(load_mat3(a), load_mat3(b), tolerance);
}

int MTX3_is_identity(const double m[9], double tolerance) {
    return is_equal(load_mat3(m), identity3, tolerance);
}

int MTX3_multiply(const double a[9], const double b[9], double r[9]) {
    const Mat3 first = load_mat3(a);
    const Mat3 second = load_mat3(b);
    return store_product(second * first, first, second, r);
}

int MTX3_multiply_t(const double a[9], const double b[9], double r[9]) {
    const Mat3 first = load_mat3(a);
    const Mat3 second = load_mat3(b);
    return store_product(times_transposed(second, first), first, second, r);
}
