#include "arc_spline/measures.h"

#include <cmath>

#include "arc_spline/center_radius.h"
#include "arc_spline/evaluation.h"
#include "arc_spline/line_line.h"

namespace ztmath {

namespace {

constexpr Module report = arc_spline_module.part(21);

/// What measuring a segment comes to: 0; 1 no record; 2 an arc whose radius counts as zero; 3
/// neither straight nor arc.
int measuring_status(const Segment* s) {
    if (s == nullptr) return 1;
    if (s->type == arc_type) return s->radius < zero_length ? 2 : 0;
    return s->type == straight_type ? 0 : 3;
}

/// All that can be asked of a segment at once.
struct SegmentData {
    int status;  // 1 the radius of an arc counts as zero, 2 there is no corner, 3 neither type
    CentralAngle angle;
    double length, curvature;
    EndPoints ends;
    Vec2 corner;
};

/// Where the tangents at the ends meet.
LineMeeting corner_of(const EndPoints& ends) {
    constexpr double tols[] = {zero_length, 0.005};
    return meet(tols, {ends.start, ends.start_tangent}, {ends.end, ends.end_tangent}, true);
}

SegmentData data_of(const Segment& s, bool want_corner) {
    SegmentData data{0, central_angle(s), 0.0, 0.0, end_points(s), center(s)};
    if (data.ends.status != 0) {
        data.status = data.ends.status == 2 ? 1 : 3;
        return data;
    }
    if (s.type == straight_type) {
        data.length = s.radius;
        return data;
    }
    data.length = arc_length(s.radius, data.angle.angle);
    data.curvature = 1.0 / s.radius;
    if (want_corner) {
        const LineMeeting corner = corner_of(data.ends);
        data.status = corner.status == 0 ? 0 : 2;
        data.corner = corner.point;
    }
    return data;
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

double ARC_SPLINE_ask_central_angle_from_inclination_angles(double start, double* end,
                                                            int orientation) {
    const CentralAngle found = central_angle(start, *end, orientation);
    *end = found.end;
    return found.angle;
}

double ARC_SPLINE_ask_central_angle_of_1_seg_2d(ARC_SPLINE_1_seg_2d_t* s) {
    ZTMATH_ASSERT(report, "segment_ptr", s != nullptr);
    if (s == nullptr) return 0.0;
    const CentralAngle found = central_angle(*s);
    s->end_angle = found.end;
    return found.angle;
}

double ARC_SPLINE_ask_arcl_of_1_seg_2d(const ARC_SPLINE_1_seg_2d_t* s, int* status) {
    *status = measuring_status(s);
    if (*status != 0) return 0.0;
    return s->type == straight_type ? s->radius : arc_length(s->radius, central_angle(*s).angle);
}

double ARC_SPLINE_ask_arcl_to_parm_of_1_seg_2d(const ARC_SPLINE_1_seg_2d_t* s, double parm,
                                               int* status) {
    *status = measuring_status(s);
    if (*status != 0) return 0.0;
    if (s->type == straight_type) return parm;
    return arc_length(s->radius, central_angle(s->start_angle, parm, s->orientation).angle);
}

double ARC_SPLINE_ask_arcl_of_trimmed_1_seg_2d(const ARC_SPLINE_1_seg_2d_t* s, double parms[2],
                                               int* status) {
    *status = measuring_status(s);
    if (*status != 0) return 0.0;
    if (s->type == straight_type) return std::fabs(parms[1] - parms[0]);
    const double radius = s->radius;
    const CentralAngle found = central_angle(parms[0], parms[1], s->orientation);
    parms[1] = found.end;
    return arc_length(radius, found.angle);
}

double ARC_SPLINE_ask_radius_of_1_seg_2d(const ARC_SPLINE_1_seg_2d_t* s) {
    return center_radius_of(s).radius;
}

void ARC_SPLINE_ask_center_radius_of_seg_2d(const ARC_SPLINE_1_seg_2d_t* s, int* type,
                                            double* radius, double center[2], int* status) {
    const CenterRadius read = center_radius_of(s);
    *type = read.type;
    *status = read.status;
    if (read.status == 1) return;
    store(read.center, center);
    if (read.status == 0) *radius = read.radius;
}

void ARC_SPLINE_ask_1_seg_2d_data(const ARC_SPLINE_1_seg_2d_t* s, int want_corner, int* type,
                                  int* orientation, double angles[2], double* length,
                                  double* curvature, double center[2], double start[2],
                                  double start_tangent[2], double end[2], double end_tangent[2],
                                  double corner[2], int* status) {
    const bool is_there = s != nullptr;
    const Segment segment = is_there ? *s : blank_segment();
    *type = single_point;
    *length = 0.0;
    *curvature = 0.0;
    *status = 0;
    if (!is_there) return;
    const SegmentData data = data_of(segment, want_corner == 1);
    *type = segment.type;
    *orientation = segment.orientation;
    angles[0] = segment.start_angle;
    angles[1] = data.angle.end;
    *length = data.length;
    *curvature = data.curvature;
    store(load2(segment.center), center);
    store(start_point(segment), start);
    *status = data.status;
    if (data.ends.status != 0) return;
    store(data.ends.start_tangent, start_tangent);
    store(data.ends.end, end);
    store(data.ends.end_tangent, end_tangent);
    const bool has_corner = segment.type == straight_type || want_corner == 1;
    if (has_corner && data.status == 0) store(data.corner, corner);
}

void ARC_SPLINE_ask_is_arc_rather_strt_2d(ARC_SPLINE_1_seg_2d_t* s, const double* tols,
                                          int* status) {
    *status = s == nullptr ? 2 : 0;
    if (s == nullptr || s->type != arc_type || !(s->radius > 1.0 / tols[2])) return;
    const EndPoints ends = end_points(*s);
    *status = ends.status == 0 ? 0 : 2;
    if (ends.status == 0) *s = straight_segment(ends.start, ends.end, ends.start_tangent);
}
