#include "arc_spline/evaluation.h"

#include <cmath>

namespace ztmath {

namespace {

constexpr Evaluated not_of_type{1, {0.0, 0.0}, {0.0, 0.0}};

/// The parameter, moved onto an end that it is next to.
double snapped(const Segment& arc, double parm) {
    if (std::fabs(parm - arc.start_angle) < zero_length) parm = arc.start_angle;
    if (std::fabs(parm - arc.end_angle) < zero_length) parm = arc.end_angle;
    return parm;
}

}  // namespace

Evaluated evaluate_arc(const Segment& arc, bool extrapolate, double parm) {
    if (arc.type != arc_type) return not_of_type;
    const double t = snapped(arc, parm);
    Evaluated at{0, start_point(arc), direction_of(t)};
    const int o = arc.orientation;
    if (o != 1 && o != -1) return at;
    const double low = o == 1 ? arc.start_angle : arc.end_angle;
    const double high = o == 1 ? arc.end_angle : arc.start_angle;
    if (!extrapolate && (t < low || t > high)) {
        at.status = o == 1 ? 2 : 3;
        return at;
    }
    const double turn = o * (t - arc.start_angle) * radians_per_degree;
    const Vec2 tangent = direction_of(arc.start_angle);
    at.point = start_point(arc) + tangent * (arc.radius * std::sin(turn)) +
               left_normal(tangent) * (o * arc.radius * (1.0 - std::cos(turn)));
    return at;
}

Evaluated evaluate_straight(const Segment& straight, double parm) {
    if (straight.type != straight_type) return not_of_type;
    const Line line = line_of(straight);
    return {0, line.point + line.direction * parm, line.direction};
}

Evaluated evaluate(const Segment& segment, bool extrapolate, double parm) {
    return segment.type == straight_type ? evaluate_straight(segment, parm)
                                         : evaluate_arc(segment, extrapolate, parm);
}

EndPoints end_points(const Segment& segment) {
    const bool is_arc = segment.type == arc_type;
    if (!is_arc && segment.type != straight_type) return {3, {}, {}, {}, {}};
    if (is_arc && segment.radius < zero_length) return {2, {}, {}, {}, {}};
    const Vec2 start = start_point(segment);
    const Evaluated end = evaluate(segment, true, is_arc ? segment.end_angle : segment.radius);
    const Vec2 start_tangent = is_arc ? direction_of(segment.start_angle) : end.tangent;
    return {0, start, start_tangent, end.point, end.tangent};
}

namespace {

/// No record (null) is of no type that is evaluated.
Segment read(const Segment* s) {
    if (s != nullptr) return *s;
    Segment none = blank_segment();
    none.type = single_point;
    return none;
}

void store_evaluated(const Evaluated& at, double pt[2], double tangent[2], int* status) {
    if (at.status == 0) store(at.point, pt);
    if (at.has_tangent()) store(at.tangent, tangent);
    *status = at.status;
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

void ARC_SPLINE_evaluate_1_seg_2d(const ARC_SPLINE_1_seg_2d_t* s, int extrapolate, double parm,
                                  double pt[2], double tangent[2], int* status) {
    store_evaluated(evaluate(read(s), extrapolate != 0, parm), pt, tangent, status);
}

void ARC_SPLINE_evaluate_arc_seg_2d(const ARC_SPLINE_1_seg_2d_t* s, int extrapolate, double parm,
                                    double pt[2], double tangent[2], int* status) {
    store_evaluated(evaluate_arc(read(s), extrapolate != 0, parm), pt, tangent, status);
}

void ARC_SPLINE_evaluate_strt_seg_2d(const ARC_SPLINE_1_seg_2d_t* s, double parm, double pt[2],
                                     double tangent[2], int* status) {
    store_evaluated(evaluate_straight(read(s), parm), pt, tangent, status);
}

void ARC_SPLINE_ask_end_pts_of_1_seg_2d(const ARC_SPLINE_1_seg_2d_t* s, double start[2],
                                        double start_tangent[2], double end[2],
                                        double end_tangent[2], int* status) {
    *status = 1;
    if (s == nullptr) return;
    const EndPoints found = end_points(*s);
    *status = found.status;
    if (found.status != 0) return;
    store(found.start, start);
    store(found.start_tangent, start_tangent);
    store(found.end, end);
    store(found.end_tangent, end_tangent);
}
