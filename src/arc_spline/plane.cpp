#include "arc_spline/plane.h"

#include "kit/vec3.h"

namespace ztmath {

namespace {

struct PointAndNormal {
    Vec3 point, normal;
};

MongePlane normalised(const MongePlane& p) {
    const auto normal = unitize(load3(p.normal));
    MongePlane result{{}, p.offset / normal.magnitude, 1};
    store(normal.unit, result.normal);
    return result;
}

PointAndNormal point_and_normal(const MongePlane& p) {
    const MongePlane plane = p.normalised != 0 ? p : normalised(p);
    const Vec3 normal = load3(plane.normal);
    return {normal * -plane.offset, normal};
}

}  // namespace

CircleOfPoint circle_of_point(Vec3 p) {
    const double power = p.x * p.x + p.y * p.y - p.z;  // the squared radius
    if (std::fabs(power) <= 1.0e-20) return {true, {{p.x, p.y}, 0.0}};
    if (power < 0.0) return {false, {{p.x, p.y}, -1.0}};
    return {true, {{p.x, p.y}, std::sqrt(power)}};
}

CommonLine common_line(Vec3 q1, Vec3 n1, Vec3 q2, Vec3 n2, double sine_tolerance,
                       double distance_tolerance) {
    const Vec3 along = cross(n1, n2);
    const double sine = length(along);
    if (sine <= sine_tolerance) {
        const bool is_same = std::fabs(dot(q2 - q1, n1)) <= distance_tolerance;
        return {is_same ? same_plane : parallel_planes, {}, {}, sine};
    }
    const Vec3 direction = along * (1.0 / sine);
    const Vec3 point =
        (cross(n2, direction) * dot(q1, n1) + cross(direction, n1) * dot(q2, n2)) * (1.0 / sine);
    return {one_line, point, direction, sine};
}

CommonLine common_line(const MongePlane& a, const MongePlane& b, double sine_tolerance,
                       double distance_tolerance) {
    const PointAndNormal first = point_and_normal(a);
    const PointAndNormal second = point_and_normal(b);
    return common_line(first.point, first.normal, second.point, second.normal, sine_tolerance,
                       distance_tolerance);
}

}  // namespace ztmath

using namespace ztmath;

void ARC_SPLINE_convert_circle_to_3d_pt(const double center[2], double radius, double pt[3]) {
    store(point_of_circle({load2(center), radius}), pt);
}

void ARC_SPLINE_convert_3d_pt_to_circle_2d(const double pt[3], unsigned char* valid,
                                           ARC_SPLINE_1_seg_2d_t* out) {
    const CircleOfPoint answer = circle_of_point(load3(pt));
    *valid = answer.is_real ? 1 : 0;
    if (answer.is_real) *out = full_circle(answer.circle);
}

void ARC_SPLINE_ask_polar_plane_of_circle(const double center[2], double radius,
                                          ARC_SPLINE_monge_plane_t* out) {
    *out = polar_plane({load2(center), radius});
}

void ARC_SPLINE_copy_monge_plane(const ARC_SPLINE_monge_plane_t* in,
                                 ARC_SPLINE_monge_plane_t* out) {
    const MongePlane plane = *in;
    *out = plane;
}

void ARC_SPLINE_normalize_monge_plane(ARC_SPLINE_monge_plane_t* p) {
    *p = normalised(*p);
}

void ARC_SPLINE_ask_pt_and_normal_of_monge_plane(const ARC_SPLINE_monge_plane_t* p, double pt[3],
                                                 double normal[3]) {
    const PointAndNormal answer = point_and_normal(*p);
    store(answer.point, pt);
    store(answer.normal, normal);
}

void h634_(const double p1[3], const double n1[3], const double p2[3], const double n2[3],
           const double* sine_tolerance, const double* distance_tolerance, double point[3],
           double direction[3], int* status) {
    const CommonLine line = common_line(load3(p1), load3(n1), load3(p2), load3(n2), *sine_tolerance,
                                        *distance_tolerance);
    store(line.point, point);
    store(line.direction, direction);
    *status = line.status;
}

void ARC_SPLINE_inter_2_monge_planes(const ARC_SPLINE_monge_plane_t* p1,
                                     const ARC_SPLINE_monge_plane_t* p2, const double* tols,
                                     double pt[3], double dir[3], int* status) {
    const CommonLine line = common_line(*p1, *p2, std::sin(tols[1] * radians_per_degree), tols[0]);
    store(line.point, pt);
    store(line.direction, dir);
    *status = line.status;
}

void ARC_SPLINE_inter_3_monge_planes(const ARC_SPLINE_monge_plane_t* p1,
                                     const ARC_SPLINE_monge_plane_t* p2,
                                     const ARC_SPLINE_monge_plane_t* p3, const double* tols,
                                     double pt[3], int* status_12, int* status_23, int* status_13) {
    const double sine = std::sin(tols[1] * radians_per_degree);
    const double distance = tols[0];
    const int answer_12 = common_line(*p1, *p2, sine, distance).status;
    const int answer_23 = common_line(*p2, *p3, sine, distance).status;
    const int answer_13 = common_line(*p1, *p3, sine, distance).status;
    // Kept as it stands: the common point is not looked for; callers read the statuses.
    store(Vec3{0.0, 0.0, 0.0}, pt);
    *status_12 = answer_12;
    *status_23 = answer_23;
    *status_13 = answer_13;
}
