// Fits of circles and spheres.
#include <ztmath/ztmath.h>

#include <limits>

#include "cloud.h"
#include "library_call.h"

namespace tool {

namespace {

constexpr double degrees = 57.29577951308232;

/// A centre and a radius, and how far the points are from what they describe.
template <std::size_t N>
struct Round {
    bool found = false;
    Vec<N> centre{};
    double radius = 0.0;
    Deviations distances;
};

/// Fits with a call fit(points, centre, radius) of the library, which says whether it found
/// anything; what was not found is farther away than anything.
template <std::size_t N, class Call, class Distance>
Round<N> round_at(const Cloud<N>& cloud, const Scaling<N>& scaling, Call fit, Distance distance) {
    const std::vector<double> scaled = scaling.apply(cloud);
    Round<N> round;
    call_library([&] { round.found = fit(scaled.data(), round.centre.data(), round.radius); });
    round.centre = scaling.undo(round.centre);
    round.radius /= scaling.factor;
    if (round.found)
        round.distances = cloud.deviations(
            [&](const Vec<N>& p) { return distance(p - round.centre) - round.radius; });
    else
        round.distances.rms = std::numeric_limits<double>::infinity();
    return round;
}

Round<2> circle_at(const Cloud<2>& cloud, const Scaling<2>& scaling) {
    const auto fit = [&](const double* points, double* centre, double& radius) {
        int failed = 0;
        double statistics[3];
        LSFIT_circle_to_points_2d(points, cloud.count(), centre, &radius, &failed, statistics);
        return failed == 0;
    };
    return round_at(cloud, scaling, fit, length<2>);
}

/// In the plane of this normal; distances are within it.
Round<3> circle_3d_at(const Cloud<3>& cloud, const Scaling<3>& scaling, const Vec3& normal) {
    const auto fit = [&](const double* points, double* centre, double& radius) {
        int failed = 0;
        Vec3 plane_point{};
        Vec3 plane_normal = normal;
        double statistics[3];
        double frame[12];
        LSFIT_circle_to_points_3d(points, cloud.count(), plane_point.data(), plane_normal.data(),
                                  centre, &radius, &failed, statistics, frame);
        return failed == 0;
    };
    return round_at(cloud, scaling, fit, [&](const Vec3& offset) {
        return length(along(offset, -dot(offset, normal), normal));
    });
}

Round<3> sphere_at(const Cloud<3>& cloud, const Scaling<3>& scaling) {
    const auto fit = [&](const double* points, double* centre, double& radius) {
        int failed = 0;
        double statistics[3];
        LSFIT_sphere_to_points_3d(points, cloud.count(), centre, &radius, &failed, statistics);
        return failed == 0;
    };
    return round_at(cloud, scaling, fit, length<3>);
}

double direction_of(const Vec2& v) {
    return degrees * std::atan2(v[1], v[0]);
}

/// Where the points lie around the circle.
void add_arc(CircleFit& fit, const Cloud<2>& cloud) {
    std::vector<double> directions;
    for (int i = 0; i < cloud.count(); ++i)
        directions.push_back(direction_of(cloud.at(i) - fit.centre));
    std::sort(directions.begin(), directions.end());
    double gap = directions.front() + 360.0 - directions.back();
    fit.start = directions.front();
    for (std::size_t i = 1; i < directions.size(); ++i)
        if (directions[i] - directions[i - 1] > gap) {
            gap = directions[i] - directions[i - 1];
            fit.start = directions[i];
        }
    fit.covered = 360.0 - gap;
}

/// Gives the circle in space its points in the plane, about the centre.
void add_in_plane(Circle3Fit& fit, const Points& points) {
    fit.in_plane.lines = points.lines;
    for (int i = 0; i < points.count(); ++i)
        for (const Vec3& axis : fit.axes)
            fit.in_plane.coordinates.push_back(dot(load<3>(points.at(i)) - fit.centre, axis));
    add_arc(fit.circle, Cloud<2>(fit.in_plane));
}

}  // namespace

double CircleFit::angle_of(const Vec2& p) const {
    const double angle = direction_of(p - centre) - start;
    return angle < 0.0 ? angle + 360.0 : angle;
}

CircleFit fit_circle(const Points& points, const Unit& unit) {
    const Cloud<2> cloud(points);
    CircleFit fit;
    fit.centre = cloud.centroid;
    fit.shape = cloud.shape(3, unit);
    if (fit.shape != Shape::regular) return fit;
    const Round<2> round = better_fit(cloud, unit, circle_at);
    if (!round.found || fit_line_2d(points, unit).distances.max < cloud.resolution(unit)) {
        fit.shape = Shape::collinear;
        return fit;
    }
    fit.centre = round.centre;
    fit.radius = round.radius;
    fit.distances = round.distances;
    add_arc(fit, cloud);
    return fit;
}

Circle3Fit fit_circle_3d(const Points& points, const Unit& unit) {
    Circle3Fit fit;
    const PlaneFit plane = fit_plane(points, unit);
    fit.shape = plane.shape;
    fit.centre = plane.point;
    if (fit.shape != Shape::regular) return fit;
    const Round<3> round =
        better_fit(Cloud<3>(points), unit, [&](const Cloud<3>& cloud, const Scaling<3>& scaling) {
            return circle_3d_at(cloud, scaling, plane.normal);
        });
    if (!round.found) {
        fit.shape = Shape::collinear;
        return fit;
    }
    fit.centre = round.centre;
    fit.normal = plane.normal;
    std::copy_n(plane.axes, 2, fit.axes);
    fit.plane_distances = plane.distances;
    fit.circle.radius = round.radius;
    fit.circle.distances = round.distances;
    add_in_plane(fit, points);
    return fit;
}

SphereFit fit_sphere(const Points& points, const Unit& unit) {
    const Cloud<3> cloud(points);
    SphereFit fit;
    fit.centre = cloud.centroid;
    fit.shape = cloud.shape(4, unit);
    if (fit.shape != Shape::regular) return fit;
    const PlaneFit plane = fit_plane(points, unit);
    fit.shape = plane.shape;
    if (fit.shape != Shape::regular) return fit;
    const Round<3> round = better_fit(cloud, unit, sphere_at);
    if (!round.found || plane.distances.max < cloud.resolution(unit)) {
        fit.shape = Shape::coplanar;
        return fit;
    }
    fit.centre = round.centre;
    fit.radius = round.radius;
    fit.distances = round.distances;
    return fit;
}

}  // namespace tool
