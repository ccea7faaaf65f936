#include "arc_spline/line_distance.h"

#include <algorithm>

#include "ztmath/arc_spline_primitives.h"

namespace ztmath {

namespace {

constexpr Module report = arc_spline_module.part(11);

struct LineSegmentFoot {
    bool is_defined;  // the ends do not coincide
    LineFoot foot;
};

LineSegmentFoot foot_on_line_segment(Vec2 point, Vec2 end_1, Vec2 end_2, double tol, bool bounded) {
    const double span = length(end_2 - end_1);
    if (span <= tol || span == 0.0) return {false, {end_1, 0.0, -1, length(point - end_1)}};
    const Vec2 along = (end_2 - end_1) * (1.0 / span);
    LineFoot found = foot_on_line(point, {end_1, along}, tol);
    if (bounded && (found.parm < 0.0 || found.parm > span)) {
        found.foot = found.parm < 0.0 ? end_1 : end_2;
        found.parm = std::clamp(found.parm, 0.0, span);
        found.distance = length(point - found.foot);
    }
    return {true, found};
}

void store(const LineFoot& found, double foot[2], double* parm, int* side) {
    store(found.foot, foot);
    *parm = found.parm;
    *side = found.side;
}

}  // namespace

LineFoot foot_on_line(Vec2 point, const Line& line, double tol) {
    const Vec2 way = point - line.point;
    LineFoot found{};
    found.parm = dot(way, line.direction);
    found.foot = line.point + line.direction * found.parm;
    if (length(found.foot - line.point) <= tol) {
        found.foot = line.point;
        found.parm = 0.0;
    }
    found.distance = length(found.foot - point);
    const int beside = dot(way, left_normal(line.direction)) <= 0.0 ? 1 : -1;
    found.side = found.distance <= tol ? 0 : beside;
    return found;
}

}  // namespace ztmath

using namespace ztmath;

double ARC_SPLINE_ask_dist_pt_to_line_2d(const double pt[2], const double line_pt[2],
                                         const double line_dir[2], double tol, double foot[2],
                                         double* parm, int* side) {
    const LineFoot found = foot_on_line(load2(pt), {load2(line_pt), load2(line_dir)}, tol);
    store(found, foot, parm, side);
    return found.distance;
}

double ARC_SPLINE_ask_dist_pt_to_line_seg_2d(const double pt[2], const double end_1[2],
                                             const double end_2[2], double tol, int bounded,
                                             double foot[2], double* parm, int* side) {
    const LineSegmentFoot found =
        foot_on_line_segment(load2(pt), load2(end_1), load2(end_2), tol, bounded == 1);
    store(found.foot, foot, parm, side);
    if (!found.is_defined)
        report.internal("The line segment is not defined; we have coincident points.");
    return found.foot.distance;
}

void ARC_SPLINE_mirror_point_wrt_line_2d(const double pt[2], const double line_pt[2],
                                         const double line_dir[2], double tol, double mirror[2],
                                         int* side) {
    const Vec2 point = load2(pt);
    const LineFoot found = foot_on_line(point, {load2(line_pt), load2(line_dir)}, tol);
    store(found.foot + (found.foot - point), mirror);
    *side = found.side;
}
