// Circles through two points that touch a line.
#include <cmath>
#include <utility>

#include "arc_spline/constructed.h"
#include "kit/unitize.h"
#include "kit/vec2.h"
#include "ztmath/arc_spline_constructions.h"

namespace ztmath {

namespace {

/// The chord of two points, seen from a line. A centre lies the way s to the left of the chord's
/// middle, as far from the line as from the points: |middle + s cosine| = hypot(half, s).
struct Chord {
    double half;          // of its length
    double middle;        // the distance of its middle to the left of the line
    double cosine, sine;  // of the turn from the line to the chord
    double y1, y2;        // the points' distances to the left of the line

    double radius(double s) const { return std::hypot(half, s); }
};

/// Ways of the centres, descending.
struct Ways {
    int count;
    double s[2];
};

/// The roots of sine^2 s^2 - 2 middle cosine s + half^2 - middle^2, whose discriminant is y1 y2.
Ways ways_of(const Chord& chord, double parallel_sine, double tol) {
    const bool on_1 = std::fabs(chord.y1) <= tol;
    const bool on_2 = std::fabs(chord.y2) <= tol;
    if (on_1 && on_2) return {0, {}};
    // The centre is square to the line at the point on it.
    if (on_1 || on_2)
        return {1, {(on_1 ? chord.half : -chord.half) * chord.cosine / chord.sine, 0.0}};
    const double b = chord.middle * chord.cosine;
    if ((chord.y1 > 0.0) != (chord.y2 > 0.0)) return {0, {}};
    const double root = std::sqrt(chord.y1 * chord.y2);
    const double q = b < 0.0 ? b - root : b + root;
    const double near = (chord.half - chord.middle) * (chord.half + chord.middle) / q;
    if (std::fabs(chord.sine) <= parallel_sine) return {1, {near, 0.0}};
    const double far = q / (chord.sine * chord.sine);
    Ways ways{2, {near, far}};
    if (ways.s[1] > ways.s[0]) std::swap(ways.s[0], ways.s[1]);
    return ways;
}

ConstructedCircles<2> through_points_touching_line(Vec2 p1, Vec2 p2, const Line& line,
                                                   const double* tols) {
    if (length(p2 - p1) <= tols[0]) return {1};
    const auto along_line = unitize_unchecked(line.direction, null_length);
    if (!along_line.done) return {2};
    const Vec2 along = unitize(p2 - p1).unit;
    const Vec2 middle = (p1 + p2) * 0.5;
    const auto aside = [&](Vec2 p) { return cross(along_line.unit, p - line.point); };
    const Chord chord{length(p2 - p1) * 0.5,         aside(middle), dot(along_line.unit, along),
                      cross(along_line.unit, along), aside(p1),     aside(p2)};
    const Ways ways = ways_of(chord, std::sin(tols[1] * radians_per_degree), tols[0]);
    ConstructedCircles<2> made;
    for (int i = 0; i < ways.count; ++i) {
        const Circle circle{middle + left_normal(along) * ways.s[i], chord.radius(ways.s[i])};
        if (is_reportable(circle, tols[0])) made.add(full_circle(circle));
    }
    return made;
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

void ARC_SPLINE_cre_circle_thru_2_points_tangent_to_line(
    const double p1[2], const double p2[2], const double line_pt[2], const double line_dir[2],
    const double* tols, int* count, ARC_SPLINE_1_seg_2d_t* circle_1,
    ARC_SPLINE_1_seg_2d_t* circle_2, int* status) {
    store(
        through_points_touching_line(load2(p1), load2(p2), {load2(line_pt), load2(line_dir)}, tols),
        count, circle_1, circle_2, status);
}
