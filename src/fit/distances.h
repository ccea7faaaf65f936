// Distances of points from what was fitted to them.
#pragma once

#include <cmath>
#include <cstddef>

#include "fit/lsfit.h"

namespace ztmath {

struct DistanceSums {
    double max = 0.0;
    double sum = 0.0;
    double sum_of_squares = 0.0;
};

/// Takes the distances of n points, in lanes of successive points that are added up in a fixed
/// order. A NaN is never the largest.
template <int Dimension, class Distance>
DistanceSums distance_sums(const double* points, std::ptrdiff_t n, Distance distance) {
    constexpr int lanes = 4;
    DistanceSums lane_sums[lanes];
    const auto take = [&](DistanceSums& s, const double* point) {
        const double d = distance(point);
        s.max = d > s.max ? d : s.max;
        s.sum += d;
        s.sum_of_squares += d * d;
    };
    std::ptrdiff_t i = 0;
    for (; i + lanes <= n; i += lanes, points += lanes * Dimension)
        for (int lane = 0; lane < lanes; ++lane)
            take(lane_sums[lane], points + lane * Dimension);
    for (int lane = 0; i < n; ++i, ++lane, points += Dimension)
        take(lane_sums[lane], points);

    DistanceSums total;
    for (const DistanceSums& s : lane_sums) {
        total.max = s.max > total.max ? s.max : total.max;
        total.sum += s.sum;
        total.sum_of_squares += s.sum_of_squares;
    }
    return total;
}

/// The point farthest from something, the first of equally far ones.
struct Farthest {
    const double* point;
    double distance;
};

template <int Dimension, class Distance>
Farthest farthest_point(const double* points, std::ptrdiff_t n, Distance distance) {
    Farthest farthest{points, distance(points)};
    for (std::ptrdiff_t i = 1; i < n; ++i) {
        const double* const point = points + i * Dimension;
        if (const double d = distance(point); d > farthest.distance) farthest = {point, d};
    }
    return farthest;
}

}  // namespace ztmath
