// Common tangents of two circles.
#include <cmath>
#include <utility>

#include "arc_spline/point_queries.h"
#include "arc_spline/point_tangents.h"
#include "arc_spline/tangency_inputs.h"
#include "ztmath/arc_spline_tangents.h"

namespace ztmath {

namespace {

/// An arc with its circle, and whether only what touches the arc counts.
struct Side {
    const Segment* arc;
    Circle circle;
    bool bounded;
};

/// status: 1, 2 the record of that number is no circle.
struct TwoSides {
    int status;
    Side sides[2];
};

TwoSides sides_of(const Segment* s1, const Segment* s2, int bounded_1, int bounded_2, double tol) {
    const double smallest = std::fmax(tol, zero_length);
    const auto c1 = circle_input(s1, smallest);
    const auto c2 = circle_input(s2, smallest);
    if (!c1) return {1, {}};
    if (!c2) return {2, {}};
    return {0, {{s1, *c1, bounded_1 != 0}, {s2, *c2, bounded_2 != 0}}};
}

/// Where tangents touch the two circles, tangent by tangent, and the direction of those of length
/// 0.
struct Touched {
    int status = 0;
    int count = 0;
    Vec2 points[2][2] = {};
    Vec2 fallback = {};

    void add(Vec2 on_1, Vec2 on_2) {
        points[count][0] = on_1;
        points[count++][1] = on_2;
    }
};

struct CommonTangents {
    int status;
    int count = 0;
    Segment straights[2] = {};
    double parms[2][2] = {};  // circle by circle, of the two tangents
};

/// Whether a tangent point is one to give: neither off a bounded arc, nor out of all bounds.
bool is_kept(Vec2 point, const PointOnSegment& on) {
    return on.status == 0 && on.flag != 1 && is_finite(point);
}

CommonTangents straights_between(const Touched& touched, const TwoSides& two, const double* tols) {
    CommonTangents made{touched.status};
    for (int k = 0; k < touched.count; ++k) {
        const auto& [p1, p2] = touched.points[k];
        const PointOnSegment on_1 = point_on(two.sides[0].arc, p1, two.sides[0].bounded, tols);
        const PointOnSegment on_2 = point_on(two.sides[1].arc, p2, two.sides[1].bounded, tols);
        if (!is_kept(p1, on_1) || !is_kept(p2, on_2)) continue;
        made.straights[made.count] = straight_segment(p1, p2, touched.fallback);
        made.parms[0][made.count] = on_1.parm;
        made.parms[1][made.count++] = on_2.parm;
    }
    return made;
}

// ---- Exterior ----

/// The tangent points of one circle as seen from a point, the one farther along the normal first.
struct Ordered {
    bool are_two;
    Vec2 first, second;
};

Ordered ordered_from(const Side& side, Vec2 point, Vec2 normal, const double* tols) {
    PointTangents found = tangents_through(side.arc, point, false, tols);
    if (found.status != 0 || found.count < 2) return {false, {}, {}};
    if (dot(found.points[0] - found.points[1], normal) < 0.0)
        std::swap(found.points[0], found.points[1]);
    return {true, found.points[0], found.points[1]};
}

/// From the external centre of similitude.
Touched touched_from_similitude(const TwoSides& two, Vec2 center, Vec2 along, const double* tols) {
    Touched touched;
    const Ordered on_1 = ordered_from(two.sides[0], center, left_normal(along), tols);
    const Ordered on_2 = ordered_from(two.sides[1], center, left_normal(along), tols);
    touched.status = !on_1.are_two ? 4 : !on_2.are_two ? 5 : 0;
    touched.fallback = along;
    if (touched.status != 0) return touched;
    touched.add(on_1.first, on_2.first);
    touched.add(on_1.second, on_2.second);
    return touched;
}

Touched exterior(const TwoSides& two, const double* tols) {
    const auto& [c1, r1] = two.sides[0].circle;
    const auto& [c2, r2] = two.sides[1].circle;
    const double difference = std::fabs(r1 - r2);
    const double d = length(c2 - c1);
    if (!(d >= tols[0] && difference - tols[0] <= d)) return {};
    const bool second_is_larger = r2 > r1;
    const Vec2 along = (second_is_larger ? c1 - c2 : c2 - c1) * (1.0 / d);
    const Vec2 left = left_normal(along);
    if (difference > tols[0]) {
        const Circle smaller = two.sides[second_is_larger ? 0 : 1].circle;
        const Vec2 similitude = smaller.center + along * (d * smaller.radius / difference);
        return touched_from_similitude(two, similitude, along, tols);
    }
    Touched touched;
    touched.fallback = along;
    touched.add(c1 + left * r1, c2 + left * r2);
    touched.add(c1 - left * r1, c2 - left * r2);
    return touched;
}

// ---- Interior ----

Touched interior(const TwoSides& two, const double* tols) {
    const auto& [c1, r1] = two.sides[0].circle;
    const auto& [c2, r2] = two.sides[1].circle;
    const Vec2 way = c2 - c1;
    const double d = length(way);
    const Vec2 along = way * (1.0 / d);
    const double sum = r1 + r2;
    Touched touched;
    if (std::fabs(d - sum) <= tols[0]) {
        const Vec2 middle = c1 + along * (r1 + (d - sum) / 2.0);
        touched.fallback = left_normal(along);
        touched.add(middle, middle);
    } else if (d > sum) {
        const Leaning outwards = leaning(way, sum);
        touched.fallback = along;
        touched.add(c1 + outwards.left * r1, c2 - outwards.left * r2);
        touched.add(c1 + outwards.right * r1, c2 - outwards.right * r2);
    }
    return touched;
}

// ---- Doors ----

void store(const CommonTangents& made, int* count, Segment* tangent_1, Segment* tangent_2,
           double* parms_1, double* parms_2, int* status) {
    *count = made.count;
    *tangent_1 = made.straights[0];
    *tangent_2 = made.straights[1];
    for (int k = 0; k < 2; ++k) {
        parms_1[k] = made.parms[0][k];
        parms_2[k] = made.parms[1][k];
    }
    *status = made.status;
}

CommonTangents common_tangents(Touched (*touching)(const TwoSides&, const double*),
                               const TwoSides& two, const double* tols) {
    if (two.status != 0) return {two.status};
    return straights_between(touching(two, tols), two, tols);
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

void ARC_SPLINE_ask_tangents_exterior_to_circles_2d(
    const ARC_SPLINE_1_seg_2d_t* c1, const ARC_SPLINE_1_seg_2d_t* c2, int bounded_1, int bounded_2,
    const double* tols, int* count, ARC_SPLINE_1_seg_2d_t* tangent_1,
    ARC_SPLINE_1_seg_2d_t* tangent_2, double parms_1[2], double parms_2[2], int* status) {
    store(common_tangents(exterior, sides_of(c1, c2, bounded_1, bounded_2, tols[0]), tols), count,
          tangent_1, tangent_2, parms_1, parms_2, status);
}

void ARC_SPLINE_ask_tangents_interior_to_circles_2d(
    const ARC_SPLINE_1_seg_2d_t* c1, const ARC_SPLINE_1_seg_2d_t* c2, int bounded_1, int bounded_2,
    const double* tols, int* count, ARC_SPLINE_1_seg_2d_t* tangent_1,
    ARC_SPLINE_1_seg_2d_t* tangent_2, double parms_1[2], double parms_2[2], int* status) {
    store(common_tangents(interior, sides_of(c1, c2, bounded_1, bounded_2, tols[0]), tols), count,
          tangent_1, tangent_2, parms_1, parms_2, status);
}
