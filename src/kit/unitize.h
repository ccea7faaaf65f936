// What vectors of two and three dimensions have in common: unitizing, and the tests of direction.
#pragma once

#include "frame/vec.h"

namespace ztmath {

/// A vector is null when its squared length is at most this: its length is at most 1.0e-10.
inline constexpr double null_length_squared = 1.0e-20;

/// The tolerance with which directions are unitized inside the library.
inline constexpr double null_length = 1.0e-10;

template <class V>
bool is_null(V v) {
    return length_squared(v) <= null_length_squared;
}

/// A unit vector with the length it was made from; both zero when the vector was too short.
template <class V>
struct Unitized {
    bool done;
    double magnitude;
    V unit;
};

template <class V>
Unitized<V> unitize_unchecked(V u, double tolerance) {
    const double s = length_squared(u);
    if (tolerance * tolerance >= s) return {false, 0.0, {}};
    const double magnitude = std::sqrt(s);
    return {true, magnitude, u * (1.0 / magnitude)};
}

/// Squared sine within the squared tolerance; a null vector is parallel to everything.
template <class V>
bool is_parallel_unchecked(V u, V v, double tolerance) {
    if (is_null(u) || is_null(v)) return true;
    const double squared_sine =
        length_squared(cross(u, v)) / (length_squared(u) * length_squared(v));
    return tolerance * tolerance >= squared_sine;
}

/// Squared cosine within the squared tolerance; a null vector is perpendicular to everything.
template <class V>
bool is_perpendicular_unchecked(V u, V v, double tolerance) {
    if (is_null(u) || is_null(v)) return true;
    const double cosine = dot(u, v);
    const double squared_cosine = cosine * cosine / (length_squared(u) * length_squared(v));
    return tolerance * tolerance >= squared_cosine;
}

}  // namespace ztmath
