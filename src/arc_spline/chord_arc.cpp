#include "arc_spline/chord_arc.h"

#include <cmath>

#include "arc_spline/rays.h"
#include "kit/vec2.h"
#include "ztmath/arc_spline_constructions.h"
#include "ztmath/arc_spline_tangents.h"

namespace ztmath {

namespace {

constexpr Module report = arc_spline_module.part(41);

/// The signed radius of the circle that touches a line at its point and passes another point;
/// positive when the centre lies to the left. `aside` is the other point's distance to the left.
double radius_through(Vec2 way, double aside) {
    return length_squared(way) / (2.0 * aside);
}

/// Whether the circle is none but the line itself.
bool is_straight(double aside, double radius, double tol) {
    return std::fabs(aside) <= tol || std::fabs(radius) > largest_radius;
}

Constructed arc_between(const Isosceles& on, const Line& ray_1, const Line& ray_2, double tol) {
    constexpr double computed_radius = -1.0;
    const bool from_first = on.is_parallel() || std::fabs(on.parms[0]) <= std::fabs(on.parms[1]);
    const Vec2 start = from_first ? ray_1.point : on.iso_1;
    const Vec2 end = from_first ? on.iso_2 : ray_2.point;
    const Constructed made =
        chord_arc(start, on.meeting.line_1.direction, end, computed_radius, tol);
    return made.status == 0 ? made : Constructed{3, blank_segment()};
}

}  // namespace

Constructed chord_arc(Vec2 start, Vec2 tangent, Vec2 end, double radius, double tol) {
    const Vec2 chord = end - start;
    if (!(length(chord) > tol)) return {1, blank_segment()};  // nor is a chord without numbers one
    const Vec2 along = unitize(tangent).unit;
    const double aside = cross(along, chord);
    const double signed_radius = radius_through(chord, aside);
    if (is_straight(aside, signed_radius, tol)) {
        const bool ahead = dot(along, chord) > 0.0;
        return ahead ? Constructed{0, straight_segment(start, end, along)}
                     : Constructed{2, blank_segment()};
    }
    const double computed = std::fabs(signed_radius);
    const bool is_known = !(radius < 0.0);
    if (is_known && !(std::fabs(radius - computed) <= tol)) return {3, blank_segment()};
    const double turn = 2.0 * std::atan2(std::fabs(aside), dot(along, chord)) * degrees_per_radian;
    const int orientation = aside > 0.0 ? 1 : -1;
    return {0, arc_segment(start, along, turn, is_known ? radius : computed, orientation).arc};
}

Constructed circle_touching_at(Vec2 point, const Line& line, double tol) {
    const Vec2 way = point - line.point;
    if (!(length(way) > tol)) return {1, blank_segment()};
    const auto along = unitize(line.direction, zero_length);
    if (!along.done) return {2, blank_segment()};
    const double aside = cross(along.unit, way);
    const double radius = radius_through(way, aside);
    if (is_straight(aside, radius, tol))
        return {0, straight_segment(line.point, point, along.unit)};
    if (std::fabs(radius) < tol) return {0, blank_segment()};
    return {0, full_circle_at(line.point, along.unit, std::fabs(radius), radius > 0.0 ? 1 : -1)};
}

RayToRay ray_to_ray(const Line& ray_1, const Line& ray_2, bool unit, const double* tols) {
    constexpr double null_direction = 1.0e-8;
    const Isosceles on = isosceles_to(tols, ray_1, ray_2, unit);
    RayToRay made{{0, blank_segment()}, on.meeting.line_1.direction, on.meeting.line_2.direction};
    if (length(ray_1.direction) <= null_direction || length(ray_2.direction) <= null_direction)
        made.arc.status = 1;
    else if (on.meeting.status == 2)
        made.arc.status = 2;
    else
        made.arc = arc_between(on, ray_1, ray_2, tols[0]);
    return made;
}

EndTangent other_end_tangent(Vec2 start, Vec2 tangent, Vec2 end, double tol) {
    if (circle_touching_at(end, {start, tangent}, tol).status != 0) return {1, {0.0, 0.0}};
    const Vec2 along = unitize(end - start).unit;
    const Vec2 mirrored = along * (2.0 * dot(tangent, along)) - tangent;
    if (!is_finite(mirrored)) return {1, {0.0, 0.0}};
    return {0, mirrored};
}

}  // namespace ztmath

using namespace ztmath;

void ARC_SPLINE_cre_circle_thru_pt_and_tangent_to_line_at_pt_2d(
    const double pt[2], const double line_pt[2], const double line_dir[2], const double* tols,
    ARC_SPLINE_1_seg_2d_t* out, int* status) {
    store(circle_touching_at(load2(pt), {load2(line_pt), load2(line_dir)}, tols[0]), out, status);
}

void ARC_SPLINE_cre_circle_from_chord_end_data_2d(const double start[2],
                                                  const double start_tangent[2],
                                                  const double end[2],
                                                  const double* /*end_tangent*/, double radius,
                                                  const double* tols, ARC_SPLINE_1_seg_2d_t* out,
                                                  int* status) {
    store(chord_arc(load2(start), load2(start_tangent), load2(end), radius, tols[0]), out, status);
}

void ARC_SPLINE_cre_arc_from_ray_to_ray_2d(const double p1[2], double d1[2], const double p2[2],
                                           double d2[2], int unit, const double* tols,
                                           ARC_SPLINE_1_seg_2d_t* out, int* status) {
    const RayToRay made =
        ray_to_ray({load2(p1), load2(d1)}, {load2(p2), load2(d2)}, unit != 0, tols);
    store(made.direction_1, d1);
    store(made.direction_2, d2);
    store(made.arc, out, status);
    if (made.arc.status == 3)
        report.internal("The call to ARC_SPLINE_cre_circle_from_chord_end_data_2d failed.");
}

void ARC_SPLINE_compute_tangent_at_other_end_of_chord_2d(const double start[2],
                                                         const double start_tangent[2],
                                                         const double end[2], const double* tols,
                                                         double end_tangent[2], int* status) {
    const EndTangent made =
        other_end_tangent(load2(start), load2(start_tangent), load2(end), tols[0]);
    store(made.tangent, end_tangent);
    *status = made.status;
    if (made.status != 0)
        report.internal(
            "The call to ARC_SPLINE_cre_circle_thru_pt_and_tangent_to_line_at_pt_2d failed.");
}
