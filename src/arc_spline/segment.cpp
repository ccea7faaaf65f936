// How segments are made.
#include "arc_spline/segment.h"

#include "kit/vec2.h"

namespace ztmath {

namespace {

Segment make_segment(int type, int orientation, Vec2 start, double start_angle, double end_angle,
                     Vec2 center, Vec2 direction, double radius) {
    return {type,      orientation,          {start.x, start.y},         start_angle,
            end_angle, {center.x, center.y}, {direction.x, direction.y}, radius,
            radius};
}

Segment point_circle(Vec2 point) {
    return make_segment(single_point, 1, point, 90.0, 450.0, point, {0.0, 0.0}, 0.0);
}

}  // namespace

Segment straight_segment(Vec2 start, Vec2 end, Vec2 fallback) {
    const double measured = length(end - start);
    const bool is_null = !(measured >= zero_length);
    const Vec2 far = is_null ? start : end;
    const Vec2 along = is_null ? fallback : unitize(end - start, zero_length).unit;
    const double angle = inclination(along);
    return make_segment(straight_type, 0, start, angle, angle, (start + far) * 0.5, along,
                        is_null ? 0.0 : measured);
}

ArcAndEnd arc_segment(Vec2 start, Vec2 tangent, double central_angle, double radius,
                      int orientation) {
    const double start_angle = inclination(tangent);
    const double end_angle = orientation * central_angle + start_angle;
    const double turn = central_angle * radians_per_degree;
    const Vec2 normal = left_normal(tangent);
    Vec2 end = start;
    if (orientation == 1)
        end = start + tangent * (radius * std::sin(turn)) +
              normal * (radius * (1.0 - std::cos(turn)));
    else if (orientation == -1)
        end = start + tangent * (radius * std::sin(turn)) -
              normal * (radius * (1.0 - std::cos(turn)));
    return {make_segment(arc_type, orientation, start, start_angle, end_angle,
                         start + normal * (orientation * radius), {0.0, 0.0}, radius),
            end, direction_of(end_angle)};
}

Segment full_circle(const Circle& circle) {
    // Kept as it stands: the start point does not move with the centre.
    return make_segment(arc_type, 1, {circle.radius, 0.0}, 90.0, 450.0, circle.center, {0.0, 0.0},
                        circle.radius);
}

Segment full_circle_at(Vec2 point, Vec2 tangent, double radius, int orientation) {
    const double start_angle = inclination(tangent);
    const double end_angle = orientation == -1 ? start_angle - 360.0 : start_angle + 360.0;
    return make_segment(arc_type, orientation, point, start_angle, end_angle,
                        point + left_normal(tangent) * (orientation * radius), {0.0, 0.0}, radius);
}

}  // namespace ztmath

using namespace ztmath;

void ARC_SPLINE_init_1_seg_2d(ARC_SPLINE_1_seg_2d_t* s) {
    *s = blank_segment();
}

void ARC_SPLINE_copy_1_seg_2d_pre_allocated(const ARC_SPLINE_1_seg_2d_t* source,
                                            ARC_SPLINE_1_seg_2d_t* target) {
    *target = *source;
}

void ARC_SPLINE_cre_strt_seg_2d(const double start[2], double end[2], const double fallback[2],
                                ARC_SPLINE_1_seg_2d_t* out) {
    const Vec2 from = load2(start);
    const Segment made = straight_segment(from, load2(end), load2(fallback));
    if (made.radius == 0.0) store(from, end);
    *out = made;
}

ARC_SPLINE_1_seg_2d_t* ARC_SPLINE_cre_arc_seg_2d(const double start[2], const double tangent[2],
                                                 double central_angle, double radius,
                                                 int orientation, ARC_SPLINE_1_seg_2d_t* out,
                                                 double end[2], double end_tangent[2]) {
    const ArcAndEnd made =
        arc_segment(load2(start), load2(tangent), central_angle, radius, orientation);
    *out = made.arc;
    store(made.end, end);
    store(made.end_tangent, end_tangent);
    return out;
}

ARC_SPLINE_1_seg_2d_t* ARC_SPLINE_cre_single_point_circle_2d(const double pt[2],
                                                             ARC_SPLINE_1_seg_2d_t* out) {
    *out = point_circle(load2(pt));
    return out;
}

ARC_SPLINE_1_seg_2d_t* ARC_SPLINE_cre_circle_from_center_and_radius_2d(const double center[2],
                                                                       double radius,
                                                                       ARC_SPLINE_1_seg_2d_t* out) {
    *out = full_circle({load2(center), radius});
    return out;
}

void ARC_SPLINE_cre_circle_from_point_tangent_radius_2d(const double pt[2], const double tangent[2],
                                                        double radius, int orientation,
                                                        ARC_SPLINE_1_seg_2d_t* out) {
    *out = full_circle_at(load2(pt), load2(tangent), radius, orientation);
}
