// Segments cut short.
#include "arc_spline/evaluation.h"
#include "arc_spline/point_queries.h"
#include "ztmath/arc_spline_constructions.h"

namespace ztmath {

namespace {

struct Trimmed {
    int status;  // 1 the point has no foot, 2 the foot no point, 3 there is no such arc
    Segment segment;
};

Trimmed trimmed_straight(const Segment& s, Vec2 end, double parm) {
    const Vec2 along = direction(s);
    return {0, straight_segment(start_point(s), end, parm < 0.0 ? along * -1.0 : along)};
}

/// What starts off its circle, as a full circle about another point than the origin does, ends on
/// it all the same.
Trimmed trimmed_arc(const Segment& arc, Vec2 end, Vec2 tangent, const double* tols) {
    constexpr double computed_radius = -1.0;
    const EndPoints ends = end_points(arc);
    const double start[] = {ends.start.x, ends.start.y};
    const double start_tangent[] = {ends.start_tangent.x, ends.start_tangent.y};
    const double chord_end[] = {end.x, end.y};
    const double end_tangent[] = {tangent.x, tangent.y};
    Trimmed trimmed{};
    int status = 0;
    ARC_SPLINE_cre_circle_from_chord_end_data_2d(start, start_tangent, chord_end, end_tangent,
                                                 computed_radius, tols, &trimmed.segment, &status);
    trimmed.status = status == 0 ? 0 : 3;
    return trimmed;
}

Trimmed trimmed_to(Vec2 point, const double* tols, const Segment* segment) {
    const SegmentFoot foot = foot_on(segment, point, tols[1]);
    if (foot.status != 0) return {1, {}};
    const Evaluated end = evaluate(*segment, true, foot.parm);
    if (end.status != 0) return {2, {}};  // never reached: what has a foot has a point there
    return segment->type == straight_type ? trimmed_straight(*segment, foot.foot, foot.parm)
                                          : trimmed_arc(*segment, foot.foot, end.tangent, tols);
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

void ARC_SPLINE_trim_to_point_1_seg_2d(const double pt[2], const double* tols,
                                       ARC_SPLINE_1_seg_2d_t* s, int* status) {
    const Trimmed trimmed = trimmed_to(load2(pt), tols, s);
    *status = trimmed.status;
    if (trimmed.status == 0) *s = trimmed.segment;
}
