// The points of a fit, and the two sizes in which the library is given them.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

#include "fit.h"

namespace tool {

/// Points closer together than this count as one, as in the library.
inline constexpr double coincidence_in_millimetres = 0.001;

/// The points, and what is asked of them before a fit.
template <std::size_t N>
struct Cloud {
    explicit Cloud(const Points& p) : points(p) {
        for (int i = 0; i < count(); ++i)
            centroid = along(centroid, 1.0, at(i));
        for (double& x : centroid)
            x /= std::max(count(), 1);
        Vec<N>
            rounding{};  // of that mean: small beside far coordinates, not beside small distances
        for (int i = 0; i < count(); ++i)
            rounding = along(rounding, 1.0 / count(), at(i) - centroid);
        centroid = along(centroid, 1.0, rounding);
        for (int i = 0; i < count(); ++i) {
            const Vec<N> offset = at(i) - centroid;
            radius = std::max(radius, length(offset));
            spread += dot(offset, offset);
            for (const double x : at(i))
                largest = std::max(largest, std::fabs(x));
        }
        spread = std::sqrt(spread);
    }

    int count() const { return points.count(); }
    Vec<N> at(int i) const { return load<N>(points.at(i)); }

    /// Below this, lengths say nothing: the coincidence of the library, or the rounding of
    /// coordinates.
    double resolution(const Unit& unit) const {
        return std::max(coincidence_in_millimetres / unit.millimetres,
                        8.0 * std::numeric_limits<double>::epsilon() * largest);
    }

    Shape shape(int needed, const Unit& unit) const {
        if (count() < needed) return Shape::too_few;
        return radius < resolution(unit) ? Shape::coincident : Shape::regular;
    }

    template <class Distance>
    Deviations deviations(Distance distance) const {
        Deviations result;
        result.of_point.reserve(static_cast<std::size_t>(count()));
        for (int i = 0; i < count(); ++i) {
            const double signed_distance = distance(at(i));
            const double size = std::fabs(signed_distance);
            result.of_point.push_back(signed_distance);
            result.rms += size * size;
            result.mean += size;
            if (size > result.max) {
                result.max = size;
                result.farthest = i;
            }
        }
        result.rms = std::sqrt(result.rms / count());
        result.mean /= count();
        return result;
    }

    Extent extent(const Vec<N>& point, const Vec<N>& axis) const {
        Extent result;
        for (int i = 0; i < count(); ++i) {
            const double t = dot(at(i) - point, axis);
            result.low = std::min(result.low, t);
            result.high = std::max(result.high, t);
        }
        return result;
    }

    const Points& points;
    Vec<N> centroid{};
    double spread = 0.0;   // root of the sum of the squared distances from the centroid
    double radius = 0.0;   // the largest of those distances
    double largest = 0.0;  // coordinate
};

/// Points as the library sees them: (p - origin) * factor.
template <std::size_t N>
struct Scaling {
    Vec<N> origin;
    double factor;

    std::vector<double> apply(const Cloud<N>& cloud) const {
        std::vector<double> scaled = cloud.points.coordinates;
        for (std::size_t i = 0; i < scaled.size(); ++i)
            scaled[i] = (scaled[i] - origin[i % N]) * factor;
        return scaled;
    }

    Vec<N> undo(const Vec<N>& p) const {
        Vec<N> q;
        for (std::size_t k = 0; k < N; ++k)
            q[k] = p[k] / factor + origin[k];
        return q;
    }
};

/// A spread at which the rounding of eigenvalues stays well below the 1e-10 that the library counts
/// as 0, and the 1e-10 at which it stops turning the matrix is fine enough.
inline constexpr double own_spread = 100.0;

/// The better of a fit in millimetres and one of points brought to that spread.
template <std::size_t N, class FitAt>
auto better_fit(const Cloud<N>& cloud, const Unit& unit, FitAt fit_at) {
    constexpr double clearly = 0.9;
    auto in_millimetres = fit_at(cloud, Scaling<N>{{}, unit.millimetres});
    auto at_own_spread = fit_at(cloud, Scaling<N>{cloud.centroid, own_spread / cloud.spread});
    return at_own_spread.distances.rms < clearly * in_millimetres.distances.rms
               ? std::move(at_own_spread)
               : std::move(in_millimetres);
}

}  // namespace tool
