#include "fit.h"

#include <ztmath/ztmath.h>

#include <algorithm>

#include "cloud.h"
#include "library_call.h"

namespace tool {

namespace {

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

/// Gives the plane its axes: the line's direction, turned into the plane, and the one across.
void add_axes(PlaneFit& fit, const Vec3& line_direction, const Cloud<3>& cloud) {
    const Vec3 in_plane = along(line_direction, -dot(line_direction, fit.normal), fit.normal);
    fit.axes[0] = pointing_forward(along(Vec3{}, 1.0 / length(in_plane), in_plane));
    fit.axes[1] = cross(fit.normal, fit.axes[0]);
    for (int k = 0; k < 2; ++k)
        fit.extents[k] = cloud.extent(fit.point, fit.axes[k]);
}

/// A line of either dimension.
template <std::size_t N, class Fit>
Fit fit_line(const Points& points, const Unit& unit,
             Fit (*line_at)(const Cloud<N>&, const Scaling<N>&)) {
    const Cloud<N> cloud(points);
    Fit fit;
    fit.point = cloud.centroid;
    fit.shape = cloud.shape(2, unit);
    if (fit.shape != Shape::regular) return fit;
    fit = better_fit(cloud, unit, line_at);
    fit.extent = cloud.extent(fit.point, fit.direction);
    return fit;
}

}  // namespace

PlaneFit fit_plane(const Points& points, const Unit& unit) {
    const Cloud<3> cloud(points);
    PlaneFit fit;
    fit.point = cloud.centroid;
    fit.shape = cloud.shape(3, unit);
    if (fit.shape != Shape::regular) return fit;
    const Line3Fit line = better_fit(cloud, unit, line_3d_at);
    if (line.distances.max < cloud.resolution(unit)) {
        fit.shape = Shape::collinear;
        return fit;
    }
    fit = better_fit(cloud, unit, plane_at);
    add_axes(fit, line.direction, cloud);
    return fit;
}

Line2Fit fit_line_2d(const Points& points, const Unit& unit) {
    return fit_line<2>(points, unit, line_2d_at);
}

Line3Fit fit_line_3d(const Points& points, const Unit& unit) {
    return fit_line<3>(points, unit, line_3d_at);
}

}  // namespace tool
