// Numbers and arrays of tests, and random rotations, made in extended precision.
#pragma once

#include "support/random.h"

namespace ztmath_test {

using Vector = std::array<double, 3>;
using Matrix = std::array<double, 9>;

inline constexpr double pi = std::numbers::pi;

/// The next number above.
inline double up(double x) {
    return std::nextafter(x, HUGE_VAL);
}

inline constexpr Matrix identity = {1, 0, 0, 0, 1, 0, 0, 0, 1};

/// A rotation drawn uniformly: that of a normal quaternion, rounded once.
inline Matrix random_rotation(Random& random) {
    const auto q = random.vector<4>();
    const long double w = q[0], x = q[1], y = q[2], z = q[3];
    const long double s = 2 / (w * w + x * x + y * y + z * z);
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

}  // namespace ztmath_test
