// Centroid and scatter matrix of points, in one pass over memory.
//
// The points are taken in blocks that fit the first-level cache. A block is summed, centred on its
// own mean and summed again; blocks are merged by the update formula of Chan, Golub and LeVeque
// (1979). The result is as accurate as centring all points on their centroid first, however far
// they are from the origin, and for a single block it is the same.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "fit/point_pairs.h"

namespace ztmath {

template <int Dimension>
struct Moments {
    using Vector = std::array<double, Dimension>;

    double count = 0.0;
    Vector sum{};
    Vector mean{};
    /// The upper triangle of the scatter matrix about the mean, row by row.
    std::array<double, Dimension*(Dimension + 1) / 2> scatter{};
};

/// Points that are summed together: what they take fits the first-level cache.
inline constexpr int block_size = 512;

/// The products of a vector with itself that a scatter matrix sums, row by row.
template <class Scalar, std::size_t Dimension>
auto products(const std::array<Scalar, Dimension>& d) {
    std::array<Scalar, Dimension*(Dimension + 1) / 2> p;
    std::size_t k = 0;
    for (std::size_t i = 0; i < Dimension; ++i)
        for (std::size_t j = i; j < Dimension; ++j)
            p[k++] = d[i] * d[j];
    return p;
}

namespace moments_detail {

template <int Dimension>
void set_mean(Moments<Dimension>& m) {
    for (int i = 0; i < Dimension; ++i)
        m.mean[i] = m.sum[i] / m.count;
}

template <int Dimension>
Moments<Dimension> block_moments(const double* points, std::ptrdiff_t n) {
    Moments<Dimension> m;
    m.count = static_cast<double>(n);
    m.sum = sum_over_points<Dimension>(points, n, [](const PointPair<Dimension>& p) { return p; });
    set_mean(m);
    m.scatter = sum_over_points<Dimension>(points, n, [&m](PointPair<Dimension> p) {
        for (int i = 0; i < Dimension; ++i)
            p[i] -= m.mean[i];
        return products(p);
    });
    return m;
}

/// Merges the moments of a further block into those of the blocks before.
template <int Dimension>
void merge(Moments<Dimension>& m, const Moments<Dimension>& block) {
    std::array<double, Dimension> shift;
    for (int i = 0; i < Dimension; ++i) {
        shift[i] = block.mean[i] - m.mean[i];
        m.sum[i] += block.sum[i];
    }
    const double weight = m.count * block.count / (m.count + block.count);
    const auto shifted = products(shift);
    for (std::size_t k = 0; k < shifted.size(); ++k)
        m.scatter[k] += block.scatter[k] + weight * shifted[k];
    m.count += block.count;
    set_mean(m);
}

}  // namespace moments_detail

/// The moments of n points, one after the other; n > 0.
template <int Dimension>
Moments<Dimension> moments(const double* points, std::ptrdiff_t n) {
    using namespace moments_detail;
    const std::ptrdiff_t first = std::min<std::ptrdiff_t>(n, block_size);
    Moments<Dimension> m = block_moments<Dimension>(points, first);
    for (std::ptrdiff_t done = first; done < n; done += block_size) {
        const std::ptrdiff_t size = std::min<std::ptrdiff_t>(n - done, block_size);
        merge(m, block_moments<Dimension>(points + done * Dimension, size));
    }
    return m;
}

}  // namespace ztmath
