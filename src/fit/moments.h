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

namespace moments_detail {

inline constexpr int block_size = 512;
inline constexpr int lanes = 4;

/// Adds up f(point) over the points, in lanes of successive points that are summed in a fixed
/// order. Each f(point, sums) adds to Count sums.
template <int Dimension, int Count, class F>
std::array<double, Count> sum_over_points(const double* points, std::ptrdiff_t n, F add_terms) {
    double sums[Count][lanes] = {};
    std::ptrdiff_t i = 0;
    for (; i + lanes <= n; i += lanes, points += lanes * Dimension)
        for (int lane = 0; lane < lanes; ++lane) {
            const auto terms = add_terms(points + lane * Dimension);
            for (int s = 0; s < Count; ++s)
                sums[s][lane] += terms[s];
        }
    for (int lane = 0; i < n; ++i, ++lane, points += Dimension) {
        const auto terms = add_terms(points);
        for (int s = 0; s < Count; ++s)
            sums[s][lane] += terms[s];
    }
    std::array<double, Count> total;
    for (int s = 0; s < Count; ++s)
        total[s] = (sums[s][0] + sums[s][1]) + (sums[s][2] + sums[s][3]);
    return total;
}

/// The products of a vector with itself that a scatter matrix sums, row by row.
template <int Dimension>
auto products(const std::array<double, Dimension>& d) {
    std::array<double, Dimension*(Dimension + 1) / 2> p;
    int k = 0;
    for (int i = 0; i < Dimension; ++i)
        for (int j = i; j < Dimension; ++j)
            p[k++] = d[i] * d[j];
    return p;
}

template <int Dimension>
void set_mean(Moments<Dimension>& m) {
    for (int i = 0; i < Dimension; ++i)
        m.mean[i] = m.sum[i] / m.count;
}

template <int Dimension>
Moments<Dimension> block_moments(const double* points, std::ptrdiff_t n) {
    using Vector = std::array<double, Dimension>;
    Moments<Dimension> m;
    m.count = static_cast<double>(n);
    m.sum = sum_over_points<Dimension, Dimension>(points, n, [](const double* p) {
        Vector v;
        std::copy_n(p, Dimension, v.begin());
        return v;
    });
    set_mean(m);
    m.scatter = sum_over_points<Dimension, std::tuple_size_v<decltype(m.scatter)>>(
        points, n, [mean = m.mean](const double* p) {
            Vector d;
            for (int i = 0; i < Dimension; ++i)
                d[i] = p[i] - mean[i];
            return products<Dimension>(d);
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
    const auto shifted = products<Dimension>(shift);
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
