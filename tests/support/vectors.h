// Vectors and matrices for tests: the formulas, in extended precision and rounded once.
#pragma once

#include "support/rotation.h"

namespace ztmath_test {

inline double dot(const Vector& a, const Vector& b) {
    return static_cast<double>(std::inner_product(a.begin(), a.end(), b.begin(), 0.0L, std::plus(),
                                                  std::multiplies<long double>()));
}

inline Vector cross(const Vector& a, const Vector& b) {
    const auto minor = [&](std::size_t i, std::size_t j) {
        return static_cast<double>(static_cast<long double>(a[i]) * b[j] -
                                   static_cast<long double>(a[j]) * b[i]);
    };
    return {minor(1, 2), minor(2, 0), minor(0, 1)};
}

/// a + s b
inline Vector moved(const Vector& a, double s, const Vector& b) {
    Vector r;
    for (std::size_t i = 0; i < 3; ++i)
        r[i] = static_cast<double>(a[i] + static_cast<long double>(s) * b[i]);
    return r;
}

inline Vector scaled(const Vector& v, double s) {
    return moved({0, 0, 0}, s, v);
}

inline double length(const Vector& v) {
    return std::sqrt(dot(v, v));
}

inline Vector unit_of(const Vector& v) {
    return scaled(v, 1 / length(v));
}

inline Vector random_unit(Random& random) {
    return unit_of(random.vector());
}

inline Vector row(const Matrix& m, std::size_t i) {
    return {m[3 * i], m[3 * i + 1], m[3 * i + 2]};
}

inline Matrix transposed(const Matrix& m) {
    return {m[0], m[3], m[6], m[1], m[4], m[7], m[2], m[5], m[8]};
}

/// r[i][j] = sum over k of a[i][k] b[k][j].
inline Matrix product(const Matrix& a, const Matrix& b) {
    Matrix r;
    for (std::size_t i = 0; i < 9; ++i)
        r[i] = dot(row(a, i / 3), row(transposed(b), i % 3));
    return r;
}

/// How far a matrix is from a right-handed rotation.
inline double rotation_defect(const Matrix& m) {
    const double determinant = dot(row(m, 0), cross(row(m, 1), row(m, 2)));
    return std::fmax(distance(product(m, transposed(m)), identity), std::fabs(determinant - 1));
}

/// A frame record: origin, then axes.
struct Frame {
    Frame(const Vector& origin_, const Matrix& axes_) : origin(origin_), axes(axes_) {}
    explicit Frame(Random& random) : Frame(random.vector(), random_rotation(random)) {}

    const double* data() const { return origin.data(); }
    double* data() { return origin.data(); }

    /// The point with coordinates in this frame.
    Vector at(const Vector& coordinates) const {
        Vector p = origin;
        for (std::size_t k = 0; k < 3; ++k)
            p = moved(p, coordinates[k], row(axes, k));
        return p;
    }

    Vector origin;
    Matrix axes;
};
static_assert(sizeof(Frame) == 12 * sizeof(double));

}  // namespace ztmath_test
