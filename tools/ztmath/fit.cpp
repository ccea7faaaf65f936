#include "fit.h"

#include <ztmath/ztmath.h>

#include <algorithm>
#include <limits>
#include <utility>

#include "library_call.h"

namespace tool {

namespace {

/// Points closer together than this count as one, as in the library.
constexpr double coincidence_in_millimetres = 0.001;

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
constexpr double own_spread = 100.0;

/// The better of a fit in millimetres and one of points brought to that spread.
template <std::size_t N, class FitAt>
auto better_fit(const Cloud<N>& cloud, const Unit& unit, FitAt fit_at) {
    constexpr double clearly = 0.9;
    auto in_millimetres = fit_at(Scaling<N>{{}, unit.millimetres});
    auto at_own_spread = fit_at(Scaling<N>{cloud.centroid, own_spread / cloud.spread});
    return at_own_spread.distances.rms < clearly * in_millimetres.distances.rms
               ? std::move(at_own_spread)
               : std::move(in_millimetres);
}

/// The axis turned so that its largest component is positive.
template <std::size_t N>
Vec<N> pointing_forward(const Vec<N>& axis) {
    const double main = *std::max_element(
        axis.begin(), axis.end(), [](double a, double b) { return std::fabs(a) < std::fabs(b); });
    return along(Vec<N>{}, main < 0.0 ? -1.0 : 1.0, axis);
}

template <std::size_t N>
void require_direction(const Vec<N>& v) {
    if (!(length(v) > 0.5)) throw Failure{ExitCode::library, "the fit has no direction"};
}

PlaneFit plane_at(const Cloud<3>& cloud, const Scaling<3>& scaling) {
    const std::vector<double> scaled = scaling.apply(cloud);
    PlaneFit fit;
    Vec3 point{};
    double statistics[3];
    int collinear = 0;
    call_library([&] {
        LSFIT_plane_to_points(scaled.data(), cloud.count(), point.data(), fit.normal.data(),
                              &collinear, statistics);
    });
    require_direction(fit.normal);
    fit.point = scaling.undo(point);
    fit.distances = cloud.deviations([&](const Vec3& p) { return dot(p - fit.point, fit.normal); });
    return fit;
}

Line2Fit line_2d_at(const Cloud<2>& cloud, const Scaling<2>& scaling) {
    const std::vector<double> scaled = scaling.apply(cloud);
    Line2Fit fit;
    Vec2 x_twice{};  // the library's point holds the centroid's x in both coordinates
    double statistics[3];
    int coincident = 0;
    call_library([&] {
        LSFIT_line_to_points_2d(scaled.data(), cloud.count(), x_twice.data(), fit.normal.data(),
                                &coincident, statistics);
    });
    require_direction(fit.normal);
    fit.point = cloud.centroid;
    fit.direction = pointing_forward(Vec2{fit.normal[1], -fit.normal[0]});
    fit.distances = cloud.deviations([&](const Vec2& p) { return dot(p - fit.point, fit.normal); });
    return fit;
}

double distance_from_line(const Vec3& p, const Vec3& point, const Vec3& direction) {
    const Vec3 offset = p - point;
    return length(along(offset, -dot(offset, direction), direction));
}

Line3Fit line_3d_at(const Cloud<3>& cloud, const Scaling<3>& scaling) {
    const std::vector<double> scaled = scaling.apply(cloud);
    Line3Fit fit;
    Vec3 point{};
    Vec3 normal{};  // null: the plane is fitted as well
    double statistics[3];
    double frame[12];
    int collinear = 0;
    int coincident = 0;
    call_library([&] {
        LSFIT_line_to_points_3d(scaled.data(), cloud.count(), normal.data(), &collinear,
                                &coincident, point.data(), fit.direction.data(), statistics, frame);
    });
    require_direction(fit.direction);
    fit.normal = normal;
    fit.across = cross(normal, fit.direction);
    // Within the plane the point too holds one coordinate twice; the plane's origin being the
    // centroid, both are 0 but for rounding, and the point lies on the line.
    fit.point = scaling.undo(point);
    fit.distances = cloud.deviations(
        [&](const Vec3& p) { return distance_from_line(p, fit.point, fit.direction); });
    fit.plane_distances =
        cloud.deviations([&](const Vec3& p) { return dot(p - fit.point, fit.normal); });
    return fit;
}

Line3Fit line_through(const Cloud<3>& cloud, const Unit& unit) {
    return better_fit(cloud, unit, [&](const Scaling<3>& s) { return line_3d_at(cloud, s); });
}

/// Gives the plane its axes: the line's direction, turned into the plane, and the one across.
void add_axes(PlaneFit& fit, const Vec3& line_direction, const Cloud<3>& cloud) {
    const Vec3 in_plane = along(line_direction, -dot(line_direction, fit.normal), fit.normal);
    fit.axes[0] = pointing_forward(along(Vec3{}, 1.0 / length(in_plane), in_plane));
    fit.axes[1] = cross(fit.normal, fit.axes[0]);
    for (int k = 0; k < 2; ++k)
        fit.extents[k] = cloud.extent(fit.point, fit.axes[k]);
}

}  // namespace

PlaneFit fit_plane(const Points& points, const Unit& unit) {
    const Cloud<3> cloud(points);
    PlaneFit none;
    none.point = cloud.centroid;
    none.shape = cloud.shape(3, unit);
    if (none.shape != Shape::regular) return none;
    const Line3Fit line = line_through(cloud, unit);
    if (line.distances.max < cloud.resolution(unit)) {
        none.shape = Shape::collinear;
        return none;
    }
    PlaneFit fit = better_fit(cloud, unit, [&](const Scaling<3>& s) { return plane_at(cloud, s); });
    add_axes(fit, line.direction, cloud);
    return fit;
}

Line2Fit fit_line_2d(const Points& points, const Unit& unit) {
    const Cloud<2> cloud(points);
    Line2Fit none;
    none.point = cloud.centroid;
    none.shape = cloud.shape(2, unit);
    if (none.shape != Shape::regular) return none;
    Line2Fit fit =
        better_fit(cloud, unit, [&](const Scaling<2>& s) { return line_2d_at(cloud, s); });
    fit.extent = cloud.extent(fit.point, fit.direction);
    return fit;
}

Line3Fit fit_line_3d(const Points& points, const Unit& unit) {
    const Cloud<3> cloud(points);
    Line3Fit none;
    none.point = cloud.centroid;
    none.shape = cloud.shape(2, unit);
    if (none.shape != Shape::regular) return none;
    Line3Fit fit = line_through(cloud, unit);
    fit.extent = cloud.extent(fit.point, fit.direction);
    return fit;
}

}  // namespace tool
