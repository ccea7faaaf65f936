// Points and vectors of the plane for tests, in extended precision and rounded once.
#pragma once

#include "support/random.h"

namespace ztmath_test {

using Pair = std::array<double, 2>;

inline Pair pair_at(const double* p) {
    return {p[0], p[1]};
}

/// a + s b
inline Pair moved(const Pair& a, double s, const Pair& b) {
    const auto sum = [&](int i) { return a[i] + static_cast<long double>(s) * b[i]; };
    return {static_cast<double>(sum(0)), static_cast<double>(sum(1))};
}

inline Pair minus(const Pair& a, const Pair& b) {
    return moved(a, -1, b);
}

inline double dot(const Pair& a, const Pair& b) {
    return static_cast<double>(static_cast<long double>(a[0]) * b[0] +
                               static_cast<long double>(a[1]) * b[1]);
}

inline Pair left_of(const Pair& v) {
    return {-v[1], v[0]};
}

inline double distance(const Pair& a, const Pair& b) {
    return std::hypot(b[0] - a[0], b[1] - a[1]);
}

inline Pair direction_at(long double degrees) {
    const long double angle = degrees * std::numbers::pi_v<long double> / 180;
    return {static_cast<double>(std::cos(angle)), static_cast<double>(std::sin(angle))};
}

inline void expect_near(const Pair& actual, const Pair& expected, double tolerance) {
    EXPECT_LE(distance(actual, expected), tolerance)
        << actual[0] << ' ' << actual[1] << " not " << expected[0] << ' ' << expected[1];
}

/// A random rotation, scale and translation, with a reflection every other time.
class Similarity {
  public:
    explicit Similarity(Random& random)
        : scale(random.uniform(0.1, 10)),
          sense(random.integer(0, 1) == 1 ? 1 : -1),
          axis_(direction_at(random.uniform(0, 360))),
          shift_(random.vector<2>()) {}

    Pair direction(const Pair& d) const {
        return moved({d[0] * axis_[0], d[0] * axis_[1]}, sense * d[1], left_of(axis_));
    }
    Pair point(const Pair& p) const { return moved(shift_, scale, direction(p)); }

    const double scale;
    const int sense;  // of what turns left: 1 it still does, -1 it turns right

  private:
    Pair axis_, shift_;
};

}  // namespace ztmath_test
