// Segments run through the other way.
#include "arc_spline/evaluation.h"

namespace ztmath {

namespace {

constexpr Module report = arc_spline_module.part(22);

Segment reversed_straight(const Segment& s) {
    const Vec2 end = start_point(s) + direction(s) * s.radius;
    return straight_segment(end, start_point(s), direction(s) * -1.0);
}

Segment reversed_arc(const Segment& arc) {
    const Evaluated end = evaluate_arc(arc, false, arc.end_angle);
    if (end.status != 0) {
        report.internal("The function ARC_SPLINE_evaluate_1_seg_2d failed.");
        return arc;
    }
    Segment reversed = full_circle_at(end.point, end.tangent * -1.0, arc.radius, -arc.orientation);
    // Kept as it stands: the end angle comes from the old end and not from the old start, so that
    // the central angle may change.
    reversed.end_angle = arc.orientation == -1 ? arc.end_angle + 360.0 : arc.end_angle - 360.0;
    return reversed;
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

void ARC_SPLINE_reverse_parm_of_strt_2d(ARC_SPLINE_1_seg_2d_t* s) {
    *s = reversed_straight(*s);
}

void ARC_SPLINE_reverse_parm_of_arc_2d(ARC_SPLINE_1_seg_2d_t* s) {
    *s = reversed_arc(*s);
}

void ARC_SPLINE_reverse_parm_of_1_seg_2d(ARC_SPLINE_1_seg_2d_t* s) {
    const int type = s == nullptr ? single_point : s->type;
    if (type == straight_type)
        ARC_SPLINE_reverse_parm_of_strt_2d(s);
    else if (type == arc_type)
        ARC_SPLINE_reverse_parm_of_arc_2d(s);
    else
        report.internal("This segment type is not currently handled.");
}
