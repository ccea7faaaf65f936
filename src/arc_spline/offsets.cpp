// Segments moved aside.
#include "arc_spline/center_radius.h"
#include "arc_spline/evaluation.h"
#include "kit/vec2.h"

namespace ztmath {

namespace {

constexpr Module report = arc_spline_module.part(23);

Segment offset_circle(const Segment* arc, double offset, double dist_tol) {
    const CenterRadius read = center_radius_of(arc);
    const bool is_arc = read.status == 0 && read.type == arc_type;
    ZTMATH_ASSERT(report, "( local_status_flag == 0 && type == 1 )", is_arc);
    if (!is_arc) return blank_segment();
    const double radius = read.radius + offset;
    ZTMATH_ASSERT(report, "( new_radius >= dist_tol )", radius >= dist_tol);
    const EndPoints ends = end_points(*arc);
    ZTMATH_ASSERT(report, "( local_status_flag == 0 )", ends.status == 0);
    Segment moved = *arc;
    store(read.center + unitize(ends.start - read.center).unit * radius, moved.start_point);
    moved.radius = radius;
    moved.radius_2 = radius;
    return moved;
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

ARC_SPLINE_1_seg_2d_t* ARC_SPLINE_cre_offset_circle_2d(const ARC_SPLINE_1_seg_2d_t* arc,
                                                       double offset, double dist_tol,
                                                       ARC_SPLINE_1_seg_2d_t* out) {
    const bool is_there = arc != nullptr;
    const Segment from = is_there ? *arc : blank_segment();
    *out = blank_segment();  // what is there where a report leaves
    *out = offset_circle(is_there ? &from : nullptr, offset, dist_tol);
    return out;
}

void ARC_SPLINE_cre_offset_straight_2d(const ARC_SPLINE_1_seg_2d_t* straight, double offset,
                                       ARC_SPLINE_1_seg_2d_t* out) {
    if (straight == nullptr) {
        report.internal("The input segment is not available.");
        return;
    }
    if (straight->type != straight_type) {
        report.internal("The input segment is not of straight type.");
        return;
    }
    const EndPoints ends = end_points(*straight);
    if (ends.status != 0) {  // GCOVR_EXCL_START never reached: every straight has ends
        report.internal("The call to ARC_SPLINE_ask_end_pts_of_1_seg_2d failed.");
        return;
    }  // GCOVR_EXCL_STOP
    const Vec2 aside = left_normal(direction(*straight)) * offset;
    *out = straight_segment(ends.start + aside, ends.end + aside, direction(*straight));
}
