#include "arc_spline/point_queries.h"

#include <algorithm>
#include <cmath>

#include "arc_spline/evaluation.h"
#include "kit/vec2.h"

namespace ztmath {

namespace {

InDomain in_interval(double low, double high, double tol, double parm) {
    const bool at_low = std::fabs(parm - low) <= tol;
    const bool at_high = std::fabs(parm - high) <= tol;
    if (at_low && parm < low) return {0, low};
    if (at_high && parm > high) return {0, high};
    if (at_low || at_high) return {0, parm};
    return {low < parm && parm < high ? -1 : 1, parm};
}

InDomain in_arc_domain(const Segment& arc, double tol, double parm) {
    const bool clockwise = arc.orientation == -1;
    return in_interval(clockwise ? arc.end_angle : arc.start_angle,
                       clockwise ? arc.start_angle : arc.end_angle, tol, parm);
}

/// The smallest t + 360 k that is not below the limit.
double not_below(double limit, double t) {
    const double moved = t + 360.0 * std::ceil((limit - t) / 360.0);
    return moved < limit ? moved + 360.0 : moved;  // the difference was rounded down
}

SegmentFoot foot_on_arc(const Segment& arc, Vec2 point, double angle_tol) {
    if (arc.radius < zero_length) return {2, {}, {}};
    const auto outwards = unitize(point - center(arc), zero_length);
    if (!outwards.done) return {3, {}, {}};
    const Vec2 tangent =
        arc.orientation == -1 ? right_normal(outwards.unit) : left_normal(outwards.unit);
    const double low = std::min(arc.start_angle, arc.end_angle);
    return {0, center(arc) + outwards.unit * arc.radius,
            not_below(low - angle_tol, inclination(tangent))};
}

struct SegmentDistance {
    Vec2 foot;
    double parm, distance;
};

/// The end that is nearer to a point; the start when neither is.
SegmentDistance nearer_end(const Segment& s, Vec2 point) {
    const EndPoints ends = end_points(s);
    const double to_start = length(point - ends.start);
    const double to_end = length(point - ends.end);
    const bool straight = s.type == straight_type;
    if (to_end < to_start) return {ends.end, straight ? s.radius : s.end_angle, to_end};
    return {ends.start, straight ? 0.0 : s.start_angle, to_start};
}

}  // namespace

InDomain in_domain(const Segment& segment, double distance_tol, double angle_tol, double parm) {
    return segment.type == straight_type ? in_interval(0.0, segment.radius, distance_tol, parm)
                                         : in_arc_domain(segment, angle_tol, parm);
}

SegmentFoot foot_on(const Segment* segment, Vec2 point, double angle_tol) {
    if (segment == nullptr) return {1, {}, {}};
    if (segment->type == arc_type) return foot_on_arc(*segment, point, angle_tol);
    if (segment->type != straight_type) return {2, {}, {}};
    const Line line = line_of(*segment);
    const double parm = dot(point - line.point, line.direction);
    return {0, line.point + line.direction * parm, parm};
}

PointOnSegment point_on(const Segment* segment, Vec2 point, bool bounded, const double* tols) {
    const SegmentFoot found = foot_on(segment, point, tols[1]);
    if (found.status != 0) return {found.status, 0.0, -1};
    const InDomain where = in_domain(*segment, tols[0], tols[1], found.parm);
    if (!std::isfinite(where.parm)) return {4, 0.0, -1};
    return {0, where.parm, bounded ? where.flag : -1};
}

}  // namespace ztmath

using namespace ztmath;

int ARC_SPLINE_ask_is_parm_in_arc_domain(const ARC_SPLINE_1_seg_2d_t* arc, double angle_tol,
                                         double* parm) {
    const InDomain found = in_arc_domain(*arc, angle_tol, *parm);
    *parm = found.parm;
    return found.flag;
}

void ARC_SPLINE_ask_parm_at_a_point_2d(const ARC_SPLINE_1_seg_2d_t* s, const double pt[2],
                                       const double* tols, double foot[2], double* parm,
                                       int* domain, int* status) {
    const SegmentFoot found = foot_on(s, load2(pt), tols[1]);
    *status = found.status;
    if (found.status != 0) return;
    const InDomain where = in_domain(*s, tols[0], tols[1], found.parm);
    store(found.foot, foot);
    *parm = where.parm;
    *domain = where.flag;
}

void ARC_SPLINE_ask_dist_pt_to_1_seg_2d(const ARC_SPLINE_1_seg_2d_t* s, const double pt[2],
                                        int bounded, const double* tols, double foot[2],
                                        double* parm, double* distance, int* status) {
    const Vec2 point = load2(pt);
    const SegmentFoot found = foot_on(s, point, tols[1]);
    *status = found.status;
    if (found.status != 0) return;
    SegmentDistance nearest{found.foot, found.parm, length(point - found.foot)};
    if (bounded == 1) {
        const InDomain where = in_domain(*s, tols[0], tols[1], found.parm);
        nearest.parm = where.parm;
        if (where.flag == 1) nearest = nearer_end(*s, point);
    }
    store(nearest.foot, foot);
    *parm = nearest.parm;
    *distance = nearest.distance;
}
