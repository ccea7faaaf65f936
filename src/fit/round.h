// The algebraic fit of circles and spheres (Pratt, 1987), in two or three dimensions.
//
// A |p|^2 + B . p + D = 0 with the least sum of squares under |B|^2 - 4 A D = 1 is an eigenvector
// of the points' moments of (1, p, |p|^2), which are taken about the centroid.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <type_traits>

#include "fit/distances.h"
#include "fit/lsfit.h"
#include "fit/moments.h"
#include "solve/generalized_eigen.h"

namespace ztmath {

/// The radius of what could not be fitted.
inline constexpr double no_radius = 1e19;

/// A circle or a sphere.
template <int Dimension>
struct Round {
    std::array<double, Dimension> centre{};
    double radius = no_radius;
};

template <int Dimension>
struct RoundFit {
    Round<Dimension> round;
    int failed = 0;
    FitStatistics statistics;
    bool needs_fallback = false;  ///< there is no usable eigenvalue, and nothing else is set
    PencilResult pencil;
};

namespace round_detail {

/// The sums of terms(pair) over all points, block by block, so that rounding does not grow with
/// their number.
template <int Dimension, class Terms>
auto sum_in_blocks(const double* points, std::ptrdiff_t n, Terms terms) {
    const auto block = [&](std::ptrdiff_t first) {
        return sum_over_points<Dimension>(points + first * Dimension,
                                          std::min<std::ptrdiff_t>(n - first, block_size), terms);
    };
    auto sums = block(0);
    for (std::ptrdiff_t first = block_size; first < n; first += block_size) {
        const auto more = block(first);
        for (std::size_t k = 0; k < sums.size(); ++k)
            sums[k] += more[k];
    }
    return sums;
}

template <int Dimension>
std::array<double, Dimension> mean_of(const double* points, std::ptrdiff_t n) {
    auto mean =
        sum_in_blocks<Dimension>(points, n, [](const PointPair<Dimension>& p) { return p; });
    for (double& component : mean)
        component /= static_cast<double>(n);
    return mean;
}

template <int Dimension>
Pair squared_length(const PointPair<Dimension>& d) {
    Pair squared = d[0] * d[0];
    for (int i = 1; i < Dimension; ++i)
        squared += d[i] * d[i];
    return squared;
}

template <int Dimension>
PointPair<Dimension> offset_from(const std::array<double, Dimension>& origin,
                                 PointPair<Dimension> p) {
    for (int i = 0; i < Dimension; ++i)
        p[i] -= origin[i];
    return p;
}

/// The sums of the products of (1, d, |d|^2), d being a point's offset from the mean; the upper
/// triangle, row by row. Those of 1 with d are what rounding of the mean leaves.
template <int Dimension>
auto moments_about(const std::array<double, Dimension>& mean, const double* points,
                   std::ptrdiff_t n) {
    return sum_in_blocks<Dimension>(points, n, [&mean](const PointPair<Dimension>& p) {
        const PointPair<Dimension> d = offset_from<Dimension>(mean, p);
        std::array<Pair, Dimension + 2> terms;
        terms[0] = Pair{1.0, 1.0};
        std::copy(d.begin(), d.end(), terms.begin() + 1);
        terms[Dimension + 1] = squared_length<Dimension>(d);
        return products(terms);
    });
}

/// |B|^2 - 4 A D as a matrix.
template <int Size>
void set_constraint(double* matrix) {
    std::fill_n(matrix, Size * Size, 0.0);
    constexpr std::ptrdiff_t last = Size - 1;
    for (std::ptrdiff_t i = 1; i < last; ++i)
        matrix[i * Size + i] = 1.0;
    matrix[last] = matrix[last * Size] = -2.0;
}

template <int Size, class Triangle>
void set_symmetric(const Triangle& upper, double* matrix) {
    for (int i = 0, k = 0; i < Size; ++i)
        for (int j = i; j < Size; ++j, ++k)
            matrix[i * Size + j] = matrix[j * Size + i] = upper[k];
}

/// The largest eigenvalue, if it is large enough to be used.
inline int usable_eigenvalue(const double* values, int count) {
    constexpr double none = 1e-19;
    constexpr double least = 1e-10;
    int largest = -1;
    for (int i = 0; i < count; ++i)
        if (values[i] > (largest < 0 ? none : values[largest])) largest = i;
    return largest >= 0 && !(values[largest] < least) ? largest : -1;
}

}  // namespace round_detail

/// The deviations of points from a circle or sphere: how far they are off its line or surface.
template <int Dimension>
DistanceSums deviation_sums(const double* points, int n, const Round<Dimension>& round) {
    return distance_sums<Dimension>(points, n, [&round](const PointPair<Dimension>& p) {
        using namespace round_detail;
        const Pair squared = squared_length<Dimension>(offset_from<Dimension>(round.centre, p));
        return magnitude(Pair{std::sqrt(squared[0]), std::sqrt(squared[1])} - round.radius);
    });
}

/// Fits n points, n > 0.
template <int Dimension>
RoundFit<Dimension> fit_round(const double* points, int n) {
    using namespace round_detail;
    constexpr int size = Dimension + 2;
    const auto mean = mean_of<Dimension>(points, n);
    double block[pencil_size(size)];
    const PencilArrays pencil = pencil_arrays(block, size);
    set_constraint<size>(pencil.a);
    set_symmetric<size>(moments_about<Dimension>(mean, points, n), pencil.b);

    RoundFit<Dimension> fit;
    fit.pencil = solve_pencil(pencil, std::integral_constant<int, size>{}, fit_sweeps);
    const int chosen = fit.pencil.definite ? usable_eigenvalue(pencil.values, size) : -1;
    fit.needs_fallback = chosen < 0;
    if (fit.needs_fallback) return fit;

    const auto coefficient = [&](int i) { return pencil.b[i * size + chosen]; };
    const double a = coefficient(size - 1);
    constexpr double straight = 1e-19;
    fit.failed = std::fabs(a) <= straight;
    if (fit.failed) return fit;
    double squared = 0.0;
    for (int i = 0; i < Dimension; ++i) {
        const double offset = -0.5 * coefficient(i + 1) / a;
        squared += offset * offset;
        fit.round.centre[i] = offset + mean[i];
    }
    fit.round.radius = std::sqrt(std::fabs(squared - coefficient(0) / a));

    const DistanceSums sums = deviation_sums<Dimension>(points, n, fit.round);
    const double eta = 1.0 / pencil.values[chosen];
    // Kept as it stands: multiplied by the count where a mean would be divided by it. Callers who
    // want the mean divide by n themselves.
    fit.statistics = {sums.max, std::sqrt(n * eta), sums.sum / n};
    return fit;
}

}  // namespace ztmath
