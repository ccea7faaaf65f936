#include "sphere_picture.h"

#include <algorithm>
#include <cmath>

#include "number.h"
#include "surface_picture.h"

namespace tool {

namespace {

Vec3 unit_vector(const Vec3& v) {
    return along(Vec3{}, 1.0 / length(v), v);
}

/// From the centre towards the middle of the points; upwards if they surround it evenly.
Vec3 middle_direction(const Points& points, const SphereFit& fit) {
    Vec3 sum{};
    for (int i = 0; i < points.count(); ++i)
        sum = along(sum, 1.0 / points.count(), load<3>(points.at(i)) - fit.centre);
    return length(sum) > 0.01 * fit.radius ? unit_vector(sum) : Vec3{0.0, 0.0, 1.0};
}

/// A direction square to another, as level as can be.
Vec3 level_direction(const Vec3& view) {
    const Vec3 level{-view[1], view[0], 0.0};
    return length(level) > 1e-6 ? unit_vector(level) : Vec3{1.0, 0.0, 0.0};
}

Range range_of(const std::vector<double>& places) {
    const auto [low, high] = std::minmax_element(places.begin(), places.end());
    return padded({*low, *high}, 0.06);
}

/// How far from the middle, over the surface.
std::vector<double> distances_from_middle(const Points& points, const SphereFit& fit,
                                          const Vec3& view) {
    std::vector<double> places;
    for (int i = 0; i < points.count(); ++i) {
        const Vec3 offset = load<3>(points.at(i)) - fit.centre;
        places.push_back(fit.radius * std::atan2(length(cross(view, offset)), dot(view, offset)));
    }
    return places;
}

}  // namespace

std::string sphere_picture(const Points& points, const SphereFit& fit, const Unit& unit,
                           const std::string& source) {
    const Vec3 view = middle_direction(points, fit);
    const Vec3 level = level_direction(view);
    const std::vector<double> u = places_along(points, fit.centre, level);
    const std::vector<double> v = places_along(points, fit.centre, cross(view, level));
    const std::vector<double> position = distances_from_middle(points, fit, view);
    const double extent = *std::max_element(position.begin(), position.end());
    const Pictured pictured(points, fit.distances, unit, "sphere", source, extent,
                            "radius " + with_unit(rounded(fit.radius, 6), unit));
    return surface_picture({"Distances of points from the sphere fitted to them",
                            {u, v, range_of(u), range_of(v), "The sphere from outside",
                             labelled("level", unit), labelled("upwards", unit), fit.radius},
                            position,
                            "Distance from the sphere, outside above",
                            labelled("along the surface, from the middle of the points", unit),
                            "distance from the sphere"},
                           pictured);
}

}  // namespace tool
