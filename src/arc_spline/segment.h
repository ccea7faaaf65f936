// Segments as values, and the circles and lines that they stand for.
#pragma once

#include "arc_spline/angle.h"
#include "frame/report.h"
#include "frame/vec.h"
#include "ztmath/arc_spline.h"

namespace ztmath {

/// Files with report sites take parts of their own: 11 line_distance, 12 vector_angles,
/// 21 measures, 22 reversal, 23 offsets, 31 tangent_circles, 32 circles_on_normal, 41 chord_arc.
inline constexpr Module arc_spline_module{"arc_spline_apollonian_constructions"};

using Segment = ARC_SPLINE_1_seg_2d_t;

enum SegmentType { single_point = -1, straight_type = 0, arc_type = 1 };

/// A length or radius below it counts as zero.
inline constexpr double zero_length = 1.0e-10;

/// The radius of a straight.
inline constexpr double infinite_radius = 1.0e19;

struct Circle {
    Vec2 center;
    double radius;
};

/// An infinite line.
struct Line {
    Vec2 point;
    Vec2 direction;
};

inline Vec2 start_point(const Segment& s) {
    return load2(s.start_point);
}
inline Vec2 center(const Segment& s) {
    return load2(s.center);
}
inline Vec2 direction(const Segment& s) {
    return load2(s.direction);
}

/// The circle that an arc lies on.
inline Circle circle_of(const Segment& arc) {
    return {center(arc), arc.radius};
}

/// The line that a straight lies on.
inline Line line_of(const Segment& straight) {
    return {start_point(straight), direction(straight)};
}

/// A record before anything is known: all zero.
inline Segment blank_segment() {
    return {};
}

/// The straight from `start` to `end`; `fallback` is its direction when they coincide.
Segment straight_segment(Vec2 start, Vec2 end, Vec2 fallback);

struct ArcAndEnd {
    Segment arc;
    Vec2 end, end_tangent;
};

/// The arc from a point with its unit tangent there; the central angle in degrees.
ArcAndEnd arc_segment(Vec2 start, Vec2 tangent, double central_angle, double radius,
                      int orientation);

/// The full circle, counter-clockwise from 90 degrees.
Segment full_circle(const Circle& circle);

/// The full circle through a point with its unit tangent there.
Segment full_circle_at(Vec2 point, Vec2 tangent, double radius, int orientation);

}  // namespace ztmath
