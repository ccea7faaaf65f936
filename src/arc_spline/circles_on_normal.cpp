// Circles that touch a line at a point: their centres lie on the normal there.
#include <cmath>
#include <utility>

#include "arc_spline/constructed.h"
#include "arc_spline/tangency_inputs.h"
#include "ztmath/arc_spline_tangent_circles.h"

namespace ztmath {

namespace {

constexpr Module report = arc_spline_module.part(32);

/// Ways of the centres along the left normal.
struct Ways {
    int count;
    double k[2];

    void add(double way) {
        if (std::isfinite(way)) k[count++] = way;
    }
};

bool is_on(Vec2 p, const Line& line, double tol) {
    return std::fabs(cross(line.direction, p - line.point)) <= tol;
}

/// The circles, the one farthest to the left first. A given one is left out.
ConstructedCircles<2> circles_at(Vec2 p, Vec2 along, Ways ways, const Circle* given, double tol) {
    if (ways.count == 2 && ways.k[1] > ways.k[0]) std::swap(ways.k[0], ways.k[1]);
    if (ways.count == 2 && std::fabs(ways.k[0] - ways.k[1]) <= tol) ways.count = 1;
    ConstructedCircles<2> made;
    for (int i = 0; i < ways.count; ++i) {
        const double k = ways.k[i];
        const Circle circle{p + left_normal(along) * k, std::fabs(k)};
        if (!is_reportable(circle, tol) || (given != nullptr && are_equal(circle, *given, tol)))
            continue;
        made.add(full_circle_at(p, along, circle.radius, k > 0.0 ? 1 : -1));
    }
    return made;
}

/// Circles that touch the line at p and meet the circle at an angle of the given cosine.
Ways ways_to_circle(Vec2 p, Vec2 along, const Circle& circle, double cosine, double tol) {
    const Vec2 out = p - circle.center;
    const double distance = length(out);
    if (std::fabs(distance - circle.radius) <= tol) return {0, {}};
    const double g = dot(left_normal(along), out);
    const double e = circle.radius * cosine;
    const double power = (distance - circle.radius) * (distance + circle.radius);
    Ways ways{0, {}};
    for (const double side : {e - g, -e - g})
        if (std::fabs(side) > tol) ways.add(power / (2.0 * side));
    return ways;
}

/// Circles that touch the line at p, and another line.
Ways ways_to_line(Vec2 p, Vec2 along, const Line& other, const double* tols) {
    const double height = cross(other.direction, p - other.point);
    if (std::fabs(height) <= tols[0]) return {0, {}};
    const double cosine = dot(along, other.direction);
    const double sine = cross(along, other.direction);
    // 1 - |cosine| without taking near numbers from each other.
    const double narrow = sine * sine / (1.0 + std::fabs(cosine));
    const double wide = 1.0 + std::fabs(cosine);
    const bool parallel = std::fabs(sine) <= std::sin(tols[1] * radians_per_degree);
    Ways ways{0, {}};
    ways.add(cosine > 0.0 ? -height / wide : height / wide);
    if (!parallel) ways.add(cosine > 0.0 ? height / narrow : -height / narrow);
    return ways;
}

void assert_given(const Segment* s1, const Segment* s2) {
    ZTMATH_ASSERT(report, "seg_ptr_1 && seg_ptr_2", s1 != nullptr && s2 != nullptr);
}

ConstructedCircles<2> at_cosine(const Segment* s1, const Segment* s2, Vec2 p, double cosine,
                                double tol) {
    const auto circle = circle_input(s1, tol);
    const auto line = line_input(s2);
    if (!circle) return {1};
    if (!line) return {2};
    if (!is_on(p, *line, tol)) return {3};
    return circles_at(p, line->direction, ways_to_circle(p, line->direction, *circle, cosine, tol),
                      &*circle, tol);
}

ConstructedCircles<2> at_angle(const Segment* s1, const Segment* s2, Vec2 p, double angle,
                               double tol) {
    if (!(angle >= 0.0 && angle <= 90.0)) {
        const ConstructedCircles<2> otherwise = at_cosine(s1, s2, p, 1.0, tol);
        if (otherwise.status != 0) return {otherwise.status};
        report.internal("The input value of the angle is not valid.");
        return {4};
    }
    return at_cosine(s1, s2, p, angle == 90.0 ? 0.0 : std::cos(angle * radians_per_degree), tol);
}

ConstructedCircles<2> touching_lines(const Segment* s1, const Segment* s2, Vec2 p,
                                     const double* tols) {
    const auto other = line_input(s1);
    const auto line = line_input(s2);
    if (!other) return {1};
    if (!line) return {2};
    if (!is_on(p, *line, tols[0])) return {3};
    return circles_at(p, line->direction, ways_to_line(p, line->direction, *other, tols), nullptr,
                      tols[0]);
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

void ARC_SPLINE_cre_circle_tangent_to_circle_and_line_at_pt_2d(
    const ARC_SPLINE_1_seg_2d_t* circle, const ARC_SPLINE_1_seg_2d_t* line, const double pt[2],
    const double* tols, int* count, ARC_SPLINE_1_seg_2d_t* circle_1,
    ARC_SPLINE_1_seg_2d_t* circle_2, int* status) {
    assert_given(circle, line);
    store(at_cosine(circle, line, load2(pt), 1.0, tols[0]), count, circle_1, circle_2, status);
}

void ARC_SPLINE_cre_circle_tangent_to_line_and_line_at_pt_2d(
    const ARC_SPLINE_1_seg_2d_t* line_1, const ARC_SPLINE_1_seg_2d_t* line_2, const double pt[2],
    const double* tols, int* count, ARC_SPLINE_1_seg_2d_t* circle_1,
    ARC_SPLINE_1_seg_2d_t* circle_2, int* status) {
    assert_given(line_1, line_2);
    store(touching_lines(line_1, line_2, load2(pt), tols), count, circle_1, circle_2, status);
}

void ARC_SPLINE_cre_circle_at_angle_to_c_tangent_to_l_at_pt_2d(
    const ARC_SPLINE_1_seg_2d_t* circle, const ARC_SPLINE_1_seg_2d_t* line, const double pt[2],
    double angle, const double* tols, int* count, ARC_SPLINE_1_seg_2d_t* circle_1,
    ARC_SPLINE_1_seg_2d_t* circle_2, int* status) {
    assert_given(circle, line);
    store(at_angle(circle, line, load2(pt), angle, tols[0]), count, circle_1, circle_2, status);
}
