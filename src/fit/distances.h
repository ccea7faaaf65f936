// Distances of points from what was fitted to them.
#pragma once

#include <cmath>
#include <cstddef>

#include "fit/lsfit.h"
#include "fit/point_pairs.h"

namespace ztmath {

struct DistanceSums {
    double max = 0.0;
    double sum = 0.0;
    double sum_of_squares = 0.0;
};

/// Takes the distances of n points, distance(pair) giving two. A NaN is never the largest.
template <int Dimension, class Distance>
DistanceSums distance_sums(const double* points, std::ptrdiff_t n, Distance distance) {
    Pair max{};
    Pair sum{};
    Pair squares{};
    const auto take = [&](const PointPair<Dimension>& pair) {
        const Pair d = distance(pair);
        max = larger(d, max);
        sum += d;
        squares += d * d;
    };
    const auto take_last = [&](const PointPair<Dimension>& pair) {
        const double d = distance(pair)[0];
        max[0] = d > max[0] ? d : max[0];
        sum[0] += d;
        squares[0] += d * d;
    };
    for_each_pair<Dimension>(points, n, take, take_last);
    return {max[1] > max[0] ? max[1] : max[0], sum[0] + sum[1], squares[0] + squares[1]};
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
