// Vectors of two or three components.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>

namespace tool {

template <std::size_t N>
using Vec = std::array<double, N>;
using Vec2 = Vec<2>;
using Vec3 = Vec<3>;

template <std::size_t N>
Vec<N> load(const double* p) {
    Vec<N> v;
    for (std::size_t k = 0; k < N; ++k)
        v[k] = p[k];
    return v;
}

template <std::size_t N>
Vec<N> operator-(const Vec<N>& u, const Vec<N>& v) {
    Vec<N> difference;
    for (std::size_t k = 0; k < N; ++k)
        difference[k] = u[k] - v[k];
    return difference;
}

/// p + t d
template <std::size_t N>
Vec<N> along(const Vec<N>& p, double t, const Vec<N>& d) {
    Vec<N> q;
    for (std::size_t k = 0; k < N; ++k)
        q[k] = p[k] + t * d[k];
    return q;
}

template <std::size_t N>
double dot(const Vec<N>& u, const Vec<N>& v) {
    double sum = 0.0;
    for (std::size_t k = 0; k < N; ++k)
        sum += u[k] * v[k];
    return sum;
}

template <std::size_t N>
double length(const Vec<N>& v) {
    return std::sqrt(dot(v, v));
}

inline Vec3 cross(const Vec3& u, const Vec3& v) {
    return {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
}

}  // namespace tool
