// Fits of the library to points of any unit, with the distances that a person is shown.
//
// The library's thresholds are absolute in millimetres, so points are scaled into millimetres and
// results back; all lengths here are in the points' own unit.
#pragma once

#include <vector>

#include "points_file.h"
#include "unit.h"
#include "vec.h"

namespace tool {

/// What the points allow.
enum class Shape { regular, too_few, coincident, collinear, coplanar };

/// The distances of the points from what was fitted. All of them are computed here, from the true
/// line or plane, and not taken from the library: LSFIT_line_to_points_2d measures from a point
/// that lies off the line, and LSFIT_line_to_points_3d gives the distances from the plane only.
struct Deviations {
    std::vector<double> of_point;  // signed where the fit has two sides
    double max = 0.0;              // of the absolute values, as are the rest
    double rms = 0.0;
    double mean = 0.0;
    int farthest = 0;  // the point at the largest distance
};

/// Where the points lie along an axis through the centroid.
struct Extent {
    double low = 0.0;
    double high = 0.0;

    double length() const { return high - low; }
};

struct PlaneFit {
    Shape shape = Shape::regular;
    Vec3 point{};  // the centroid
    Vec3 normal{};
    Vec3 axes[2]{};  // of the plane: the direction of largest extent, and the one across
    Extent extents[2];
    Deviations distances;
};

struct Line2Fit {
    Shape shape = Shape::regular;
    Vec2 point{};  // the centroid
    Vec2 direction{};
    Vec2 normal{};
    Extent extent;
    Deviations distances;
};

struct Line3Fit {
    Shape shape = Shape::regular;
    Vec3 point{};
    Vec3 direction{};
    Vec3 across{};  // in the plane of the fit, perpendicular to the line
    Vec3 normal{};  // of that plane
    Extent extent;
    Deviations distances;        // from the line
    Deviations plane_distances;  // from the plane
};

struct CircleFit {
    Shape shape = Shape::regular;
    Vec2 centre{};
    double radius = 0.0;
    double start = 0.0;    // the direction, in degrees, in which the points begin after their
                           // largest gap
    double covered = 0.0;  // degrees, from there to the last of them
    Deviations distances;  // positive outside

    /// How far around from the start a point lies, in degrees.
    double angle_of(const Vec2& p) const;
};

struct Circle3Fit {
    Shape shape = Shape::regular;
    Vec3 centre{};
    Vec3 axes[2]{};              // of the plane
    Vec3 normal{};               // of the plane
    Points in_plane{2, {}, {}};  // the points in the axes, about the centre
    CircleFit circle;            // of them
    Deviations plane_distances;
};

struct SphereFit {
    Shape shape = Shape::regular;
    Vec3 centre{};
    double radius = 0.0;
    Deviations distances;  // positive outside
};

/// Each fit is made twice, in millimetres and with the points brought to a spread of their own: in
/// millimetres, rounding may turn the smallest eigenvalue of flat points negative, and the library
/// then passes it over for the next. The first is kept unless the second is clearly closer.
/// A fit whose shape is not regular holds the centroid, if any, and nothing else.
PlaneFit fit_plane(const Points& points, const Unit& unit);
Line2Fit fit_line_2d(const Points& points, const Unit& unit);
Line3Fit fit_line_3d(const Points& points, const Unit& unit);

/// Of circles and spheres the shape tells whether the library found one, too: those through points
/// almost on a line or in a plane may have no size that it could give.
CircleFit fit_circle(const Points& points, const Unit& unit);
Circle3Fit fit_circle_3d(const Points& points, const Unit& unit);
SphereFit fit_sphere(const Points& points, const Unit& unit);

}  // namespace tool
