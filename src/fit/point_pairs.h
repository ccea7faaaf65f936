// Points taken two at a time, coordinate by coordinate, in vector lanes.
//
// Sums have a lane for even and one for odd points, which are added up last: the same bits however
// the compiler vectorises.
#pragma once

#include <array>
#include <cstddef>

#include "frame/wide_lanes.h"

namespace ztmath {

template <int Dimension>
using PointPair = std::array<Pair, Dimension>;

/// The points p and q, transposed: each pair holds the same coordinate of both.
template <int Dimension>
PointPair<Dimension> load_pair(const double* p, const double* q) {
    PointPair<Dimension> pair;
    for (int i = 0; i < Dimension; ++i)
        pair[i] = Pair{p[i], q[i]};
    return pair;
}

inline Pair magnitude(Pair d) {
    return d < 0.0 ? -d : d;
}

/// Calls take(pair) for each two successive points, and take_last(pair), of which lane 0 counts,
/// for a last odd one.
template <int Dimension, class Take, class TakeLast>
void for_each_pair(const double* points, std::ptrdiff_t n, Take take, TakeLast take_last) {
    const double* const end = points + (n - n % 2) * Dimension;
    for (; points != end; points += std::ptrdiff_t{2} * Dimension)
        take(load_pair<Dimension>(points, points + Dimension));
    if (n % 2 != 0) take_last(load_pair<Dimension>(points, points));
}

/// Adds up terms(pair), an array of quantities, over all points.
template <int Dimension, class Terms>
auto sum_over_points(const double* points, std::ptrdiff_t n, Terms terms) {
    using Pairs = decltype(terms(PointPair<Dimension>{}));
    Pairs sums{};
    for_each_pair<Dimension>(
        points, n,
        [&](const PointPair<Dimension>& pair) {
            const Pairs t = terms(pair);
            for (std::size_t s = 0; s < t.size(); ++s)
                sums[s] += t[s];
        },
        [&](const PointPair<Dimension>& pair) {
            const Pairs t = terms(pair);
            for (std::size_t s = 0; s < t.size(); ++s)
                sums[s][0] += t[s][0];
        });
    std::array<double, std::tuple_size_v<Pairs>> totals;
    for (std::size_t s = 0; s < sums.size(); ++s)
        totals[s] = sums[s][0] + sums[s][1];
    return totals;
}

}  // namespace ztmath
