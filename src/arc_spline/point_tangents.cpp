#include "arc_spline/point_tangents.h"

#include <cmath>
#include <utility>

#include "arc_spline/circle_relations.h"
#include "arc_spline/point_circles.h"
#include "arc_spline/point_queries.h"
#include "ztmath/arc_spline_tangents.h"

namespace ztmath {

namespace {

PointTangents failed(int status) {
    PointTangents none;
    none.status = status;
    return none;
}

/// The point itself, which lies on the circle.
PointTangents at_point(const Segment* circle, Vec2 point, bool bounded, const double* tols) {
    const PointOnSegment on = point_on(circle, point, bounded, tols);
    if (on.status != 0) return failed(2);
    return {0, on.flag == 1 ? 0 : 1, {point}, {on.parm}, {on.flag, -1}};
}

void exchange(PointTangents& found) {
    std::swap(found.points[0], found.points[1]);
    std::swap(found.parms[0], found.parms[1]);
    std::swap(found.flags[0], found.flags[1]);
}

bool is_in_order_of_travel(const PointTangents& found, int orientation) {
    if (orientation == 0) return true;
    return orientation == -1 ? found.parms[0] >= found.parms[1] : found.parms[0] <= found.parms[1];
}

void count_those_inside(PointTangents& found, int orientation) {
    const bool first = found.flags[0] != 1;
    const bool second = found.flags[1] != 1;
    found.count = (first ? 1 : 0) + (second ? 1 : 0);
    const bool stays = found.count == 2 ? is_in_order_of_travel(found, orientation) : !second;
    if (!stays) exchange(found);
}

/// From outside the circle, by the circle of Thales.
PointTangents from_outside(const Segment& circle, Vec2 point, bool bounded, const double* tols) {
    const Vec2 way = point - center(circle);
    const ConstructedCircles<2> thales =
        circles_on_chord(center(circle), point, length(way) / 2.0, 1, tols[0]);
    if (thales.status != 0 || thales.count == 0) return failed(3);
    // The two cross on their radical axis, the point first that lies back along it. The places are
    // told by the distances: on the axis they lose digits when the point is far away.
    constexpr int crossing = 2;
    const RadicalAxis common = radical_axis(circle_of(circle), circle_of(thales.circles[0]));
    if (common.relation != crossing) return failed(4);
    Leaning outwards = leaning(way, circle.radius);
    if (cross(way, common.axis.direction) > 0.0) std::swap(outwards.left, outwards.right);
    PointTangents found;
    found.points[0] = center(circle) + outwards.left * circle.radius;
    found.points[1] = center(circle) + outwards.right * circle.radius;
    for (int i = 0; i < 2; ++i) {
        const PointOnSegment on = point_on(&circle, found.points[i], bounded, tols);
        if (on.status != 0) return failed(4);
        found.parms[i] = on.parm;
        found.flags[i] = on.flag;
    }
    count_those_inside(found, circle.orientation);
    return found;
}

}  // namespace

Leaning leaning(Vec2 way, double height) {
    const double d = length(way);
    const Vec2 along = way * (height / d / d);
    const Vec2 aside = left_normal(way) * (std::sqrt((d - height) * (d + height)) / d / d);
    return {along + aside, along - aside};
}

PointTangents tangents_through(const Segment* circle, Vec2 point, bool bounded,
                               const double* tols) {
    const CenterRadius read = center_radius_of(circle);
    if (read.status != 0) return failed(1);
    if (read.type == straight_type) return {};
    const double d = length(point - read.center);
    if (std::fabs(d - read.radius) <= tols[0]) return at_point(circle, point, bounded, tols);
    if (!(d > read.radius)) return {};
    return from_outside(*circle, point, bounded, tols);
}

}  // namespace ztmath

using namespace ztmath;

void ARC_SPLINE_ask_tangents_thru_a_point_2d(const ARC_SPLINE_1_seg_2d_t* circle,
                                             const double pt[2], int bounded, const double* tols,
                                             int* count, double tangent_pt_1[2],
                                             double tangent_pt_2[2], double parms[2], int flags[2],
                                             int* status) {
    const PointTangents found = tangents_through(circle, load2(pt), bounded != 0, tols);
    *count = found.count;
    store(found.points[0], tangent_pt_1);
    store(found.points[1], tangent_pt_2);
    for (int i = 0; i < 2; ++i) {
        parms[i] = found.parms[i];
        flags[i] = found.flags[i];
    }
    *status = found.status;
}
