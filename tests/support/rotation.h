// Rotation matrices for tests, made and judged in extended precision.
#pragma once

#include "support/random.h"

namespace ztmath_test {

using Vector = std::array<double, 3>;
using Matrix = std::array<double, 9>;

inline constexpr Matrix identity = {1, 0, 0, 0, 1, 0, 0, 0, 1};

/// A rotation drawn uniformly: that of a normal quaternion, rounded once.
inline Matrix random_rotation(Random& random) {
    long double q[4];
    long double squared = 0;
    for (long double& component : q) {
        component = random.normal();
        squared += component * component;
    }
    const auto [w, x, y, z] = q;
    const long double s = 2 / squared;
    const auto entry = [](long double value) { return static_cast<double>(value); };
    return {entry(1 - s * (y * y + z * z)), entry(s * (x * y - z * w)),
            entry(s * (x * z + y * w)),     entry(s * (x * y + z * w)),
            entry(1 - s * (x * x + z * z)), entry(s * (y * z - x * w)),
            entry(s * (x * z - y * w)),     entry(s * (y * z + x * w)),
            entry(1 - s * (x * x + y * y))};
}

/// The largest difference of two elements; no number where one is none.
template <std::size_t N>
double distance(const std::array<double, N>& a, const std::array<double, N>& b) {
    double most = 0;
    for (std::size_t i = 0; i < N; ++i) {
        const double difference = std::fabs(a[i] - b[i]);
        if (std::isnan(difference)) return difference;
        most = std::fmax(most, difference);
    }
    return most;
}

/// r[i][j] = sum over k of a[i][k] b[k][j].
inline Matrix product(const Matrix& a, const Matrix& b) {
    Matrix r;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j) {
            long double sum = 0;
            for (std::size_t k = 0; k < 3; ++k)
                sum += static_cast<long double>(a[3 * i + k]) * b[3 * k + j];
            r[3 * i + j] = static_cast<double>(sum);
        }
    return r;
}

inline Matrix transposed(const Matrix& m) {
    return {m[0], m[3], m[6], m[1], m[4], m[7], m[2], m[5], m[8]};
}

inline double determinant(const Matrix& m) {
    return m[0] * (m[4] * m[8] - m[5] * m[7]) - m[1] * (m[3] * m[8] - m[5] * m[6]) +
           m[2] * (m[3] * m[7] - m[4] * m[6]);
}

/// How far a matrix is from a right-handed rotation.
inline double rotation_defect(const Matrix& m) {
    const double defect = distance(product(m, transposed(m)), identity);
    return std::fmax(defect, std::fabs(determinant(m) - 1));
}

}  // namespace ztmath_test
