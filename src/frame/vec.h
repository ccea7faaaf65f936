// Vectors as values, and how they get in and out of the interface's arrays.
//
// Sums run from x to z and are never reassociated: callers rely on exact zeros.
#pragma once

#include <cmath>

namespace ztmath {

struct Vec2 {
    double x, y;
};

struct Vec3 {
    double x, y, z;
};

inline Vec2 load2(const double* p) {
    return {p[0], p[1]};
}
inline Vec3 load3(const double* p) {
    return {p[0], p[1], p[2]};
}

inline void store(Vec2 v, double* p) {
    p[0] = v.x;
    p[1] = v.y;
}

inline void store(Vec3 v, double* p) {
    p[0] = v.x;
    p[1] = v.y;
    p[2] = v.z;
}

constexpr Vec2 operator+(Vec2 a, Vec2 b) {
    return {a.x + b.x, a.y + b.y};
}
constexpr Vec2 operator-(Vec2 a, Vec2 b) {
    return {a.x - b.x, a.y - b.y};
}
constexpr Vec2 operator*(Vec2 a, double s) {
    return {a.x * s, a.y * s};
}
constexpr double dot(Vec2 a, Vec2 b) {
    return a.x * b.x + a.y * b.y;
}
constexpr double cross(Vec2 a, Vec2 b) {
    return a.x * b.y - a.y * b.x;
}

constexpr Vec3 operator+(Vec3 a, Vec3 b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr Vec3 operator-(Vec3 a, Vec3 b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr Vec3 operator-(Vec3 a) {
    return {-a.x, -a.y, -a.z};
}
constexpr Vec3 operator*(Vec3 a, double s) {
    return {a.x * s, a.y * s, a.z * s};
}
constexpr double dot(Vec3 a, Vec3 b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

constexpr Vec3 cross(Vec3 a, Vec3 b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

constexpr double length_squared(double s) {
    return s * s;
}
constexpr double length_squared(Vec2 v) {
    return dot(v, v);
}
constexpr double length_squared(Vec3 v) {
    return dot(v, v);
}

inline double length(Vec2 v) {
    return std::sqrt(length_squared(v));
}
inline double length(Vec3 v) {
    return std::sqrt(length_squared(v));
}

/// A component counts as finite below this bound; a NaN does not.
inline constexpr double finite_bound = 1.0e19;

inline bool is_finite(double s) {
    return std::fabs(s) < finite_bound;
}
inline bool is_finite(Vec2 v) {
    return is_finite(v.x) && is_finite(v.y);
}
inline bool is_finite(Vec3 v) {
    return is_finite(v.x) && is_finite(v.y) && is_finite(v.z);
}

}  // namespace ztmath
