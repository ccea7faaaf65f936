#include "arc_spline/point_circles.h"

#include <cmath>

#include "arc_spline/line_line.h"
#include "arc_spline/three_points.h"
#include "kit/vec2.h"
#include "ztmath/arc_spline_constructions.h"

namespace ztmath {

namespace {

Line bisector(Vec2 a, Vec2 b) {
    return {(a + b) * 0.5, left_normal(unitize(b - a).unit)};
}

/// The full circle from a point of it, given outwards from the centre in radii.
Segment circle_from(Vec2 point, Vec2 outwards, double radius, int orientation) {
    const Vec2 tangent = orientation == -1 ? right_normal(outwards) : left_normal(outwards);
    return full_circle_at(point, tangent, radius, orientation);
}

Segment circle_about(Vec2 center, Vec2 point, double radius, bool clockwise) {
    return circle_from(point, (point - center) * (1.0 / radius), radius, clockwise ? -1 : 1);
}

}  // namespace

Constructed circle_through(Vec2 p1, Vec2 p2, Vec2 p3, const double* tols) {
    const Collinearity turn = collinearity_and_side(p1, p2, p3, tols);
    if (turn.answer > 0) return {turn.answer, blank_segment()};
    const LineMeeting middle = meet(tols, bisector(p1, p2), bisector(p1, p3), true);
    if (middle.status > 0) return {middle.status, blank_segment()};
    const Vec2 way = p1 - middle.point;
    if (!std::isfinite(length(way))) return {1, blank_segment()};  // no points, or far beyond all
    return {0, circle_from(p1, unitize(way).unit, length(way), turn.side == 1 ? -1 : 1)};
}

ConstructedCircles<2> circles_on_chord(Vec2 p1, Vec2 p2, double radius, int selector, double tol) {
    ConstructedCircles<2> made;
    const double half = length(p1 - p2) / 2.0;
    if (half <= tol) {
        made.status = 1;
        return made;
    }
    const Vec2 middle = (p1 + p2) * 0.5;
    const Vec2 along = unitize(p2 - p1).unit;
    if (std::fabs(radius - half) <= tol) {
        made.add(circle_from(p1, along * -1.0, half, 1));
        return made;
    }
    // Kept as it stands: the centres lie the radius away from the chord, so that there are two when
    // the radius is smaller than half the chord and none when it is larger; the circles miss the
    // points.
    if (!(radius < half) || radius < tol) return made;
    const Vec2 aside = left_normal(along) * radius;
    made.add(circle_about(middle + aside, p1, radius, selector == 1));
    made.add(circle_about(middle - aside, p1, radius, selector == 0));
    return made;
}

}  // namespace ztmath

using namespace ztmath;

void ARC_SPLINE_cre_circle_thru_3_points_2d(const double p1[2], const double p2[2],
                                            const double p3[2], const double* tols,
                                            ARC_SPLINE_1_seg_2d_t* out, int* status) {
    store(circle_through(load2(p1), load2(p2), load2(p3), tols), out, status);
}

void ARC_SPLINE_cre_circle_thru_2_points_and_radius(const double p1[2], const double p2[2],
                                                    double radius, int selector, const double* tols,
                                                    int* count, ARC_SPLINE_1_seg_2d_t* circle_1,
                                                    ARC_SPLINE_1_seg_2d_t* circle_2, int* status) {
    store(circles_on_chord(load2(p1), load2(p2), radius, selector, tols[0]), count, circle_1,
          circle_2, status);
}
