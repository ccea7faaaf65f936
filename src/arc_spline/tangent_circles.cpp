// Circles that touch circles and pass through points, in their order.
#include <algorithm>
#include <cmath>
#include <utility>

#include "arc_spline/constructed.h"
#include "arc_spline/tangency_inputs.h"
#include "arc_spline/tangent_circle.h"
#include "ztmath/arc_spline_tangent_circles.h"

namespace ztmath {

namespace {

constexpr Module report = arc_spline_module.part(31);

/// Circles by their codes: a bit for each given circle, the first the most significant, that is set
/// when it is touched from inside. Equal codes by radius, equal radii from left to right.
class Found {
  public:
    // cppcheck-suppress uninitMemberVar ; of the circles, those that count are written
    Found(double tol, Vec2 from, Vec2 towards) : tol_(tol), from_(from), way_(towards - from) {}

    /// Leaves out what is no circle to report, and `given` ones and circles found before.
    template <std::size_t n>
    void add(const Circle& circle, unsigned code, const Touching (&given)[n]) {
        if (!is_reportable(circle, tol_)) return;
        for (const Touching& t : given)
            if (are_equal(circle, t.circle, tol_)) return;
        for (int i = 0; i < count_; ++i)
            if (are_equal(circle, found_[i].circle, tol_)) return;
        if (count_ < most) insert({circle, code});
    }

    template <int limit>
    ConstructedCircles<limit> made() const {
        ConstructedCircles<limit> result;
        for (int i = 0; i < std::min(count_, limit); ++i)
            result.add(full_circle(found_[i].circle));
        return result;
    }

  private:
    struct Candidate {
        Circle circle;
        unsigned code;
    };

    bool is_before(const Candidate& a, const Candidate& b) const {
        if (a.code != b.code) return a.code < b.code;
        if (std::fabs(a.circle.radius - b.circle.radius) > tol_)
            return a.circle.radius < b.circle.radius;
        return cross(way_, a.circle.center - from_) > cross(way_, b.circle.center - from_);
    }

    void insert(const Candidate& candidate) {
        int at = count_++;
        for (; at > 0 && is_before(candidate, found_[at - 1]); --at)
            found_[at] = found_[at - 1];
        found_[at] = candidate;
    }

    static constexpr int most = 16;
    double tol_;
    Vec2 from_, way_;
    Candidate found_[most];
    int count_ = 0;
};

/// The left to right of solutions is seen along the line from the first centre to the second, or to
/// the third thing when these are concentric.
Found found_along(const Circle& c1, const Circle& c2, Vec2 third, double tol) {
    const bool concentric = length(c2.center - c1.center) <= tol;
    return {tol, c1.center, concentric ? third : c2.center};
}

/// Adds the circles for every choice of sides of the first `sided` of the three.
void add_all_sides(Found& found, Touching (&three)[3], unsigned sided) {
    for (unsigned code = 0; code < 1U << sided; ++code) {
        for (unsigned i = 0; i < sided; ++i)
            three[i].inside = (code >> (sided - 1 - i) & 1U) != 0;
        const TwoCircles touching = circles_touching(three);
        for (int k = 0; k < touching.count; ++k)
            found.add(touching.circles[k], code, three);
    }
}

Touching point_to_touch(Vec2 p) {
    return {{p, 0.0}, false};
}

// ---- Two circles and a point ----

/// Circles that touch one of two circles at a point of it, and the other. Their centres lie on the
/// normal there.
void add_touching_at(Found& found, Vec2 p, const Touching (&two)[2], bool on_first) {
    const Circle& touched = two[on_first ? 0 : 1].circle;
    const Circle& other = two[on_first ? 1 : 0].circle;
    const Vec2 outwards = (p - touched.center) * (1.0 / length(p - touched.center));
    const Vec2 way = p - other.center;
    const double g = dot(outwards, way);
    const double power = (length(way) - other.radius) * (length(way) + other.radius);
    for (const double e : {other.radius, -other.radius}) {
        const double k = power / (2.0 * (e - g));  // the centre's way outwards from p
        const Circle circle{p + outwards * k, std::fabs(k)};
        const bool inside_touched = k < 0.0;
        const double distance = length(circle.center - other.center);
        const bool inside_other = std::fabs(distance - (circle.radius + other.radius)) >
                                  std::fabs(distance - std::fabs(circle.radius - other.radius));
        const unsigned of_touched = inside_touched ? 1U : 0U;
        const unsigned of_other = inside_other ? 1U : 0U;
        found.add(circle, on_first ? 2U * of_touched + of_other : 2U * of_other + of_touched, two);
    }
}

ConstructedCircles<4> through_point_touching(const Segment* s1, const Segment* s2, Vec2 p,
                                             double tol) {
    const auto c1 = circle_input(s1, tol);
    const auto c2 = circle_input(s2, tol);
    if (!c1) return {1};
    if (!c2) return {2};
    if (are_equal(*c1, *c2, tol)) return {3};
    const bool on_first = std::fabs(length(p - c1->center) - c1->radius) <= tol;
    const bool on_second = std::fabs(length(p - c2->center) - c2->radius) <= tol;
    Found found = found_along(*c1, *c2, p, tol);
    const Touching two[2] = {{*c1, false}, {*c2, false}};
    if (on_first != on_second) add_touching_at(found, p, two, on_first);
    if (!on_first && !on_second) {
        Touching three[3] = {two[0], two[1], point_to_touch(p)};
        add_all_sides(found, three, 2);
    }
    return found.made<4>();
}

// ---- Three circles ----

ConstructedCircles<8> touching_three(const Segment* s1, const Segment* s2, const Segment* s3,
                                     double tol) {
    const auto c1 = circle_input(s1, tol);
    const auto c2 = circle_input(s2, tol);
    const auto c3 = circle_input(s3, tol);
    if (!c1) return {1};
    if (!c2) return {2};
    if (!c3) return {3};
    if (are_equal(*c1, *c2, tol) || are_equal(*c2, *c3, tol) || are_equal(*c1, *c3, tol))
        return {4};
    Found found = found_along(*c1, *c2, c3->center, tol);
    Touching three[3] = {{*c1, false}, {*c2, false}, {*c3, false}};
    add_all_sides(found, three, 3);
    return found.made<8>();
}

// ---- Two circles and a radius ----

struct TwoPoints {
    int count;
    Vec2 points[2];
};

/// Where two circles meet; one point where they touch within the tolerance. The left one first.
TwoPoints crossings(const Circle& a, const Circle& b, double tol) {
    const Vec2 way = b.center - a.center;
    const double d = length(way);
    const double sum = a.radius + b.radius;
    const double difference = std::fabs(a.radius - b.radius);
    const bool touch = std::fabs(d - sum) <= tol || std::fabs(d - difference) <= tol;
    if (d <= tol || (!touch && (d > sum || d < difference))) return {0, {}};
    const Vec2 along = way * (1.0 / d);
    const double foot = ((a.radius - b.radius) * (sum / d) + d) * 0.5;
    if (touch) return {1, {a.center + along * std::copysign(a.radius, foot), {}}};
    const double height = std::sqrt(std::fmax((a.radius - foot) * (a.radius + foot), 0.0));
    const Vec2 middle = a.center + along * foot;
    const Vec2 aside = left_normal(along) * height;
    return {2, {middle + aside, middle - aside}};
}

Circle centers_around(const Touching& t, double radius) {
    return {t.circle.center, std::fabs(radius + t.excess())};
}

ConstructedCircles<8> touching_with_radius(const Segment* s1, const Segment* s2, double radius,
                                           double tol) {
    const auto c1 = circle_input(s1, tol);
    const auto c2 = circle_input(s2, tol);
    ZTMATH_ASSERT(report, "( given_radius >= tols[0] )", radius >= tol);
    if (!(radius >= tol)) return {4};
    ZTMATH_ASSERT(report, "( local_status_flag == 0 && type_1 == 1 && radius_1 >= tols[0] )",
                  c1.has_value());
    ZTMATH_ASSERT(report, "( local_status_flag == 0 && type_2 == 1 && radius_2 >= tols[0] )",
                  c2.has_value());
    if (!c1) return {1};
    if (!c2) return {2};
    if (are_equal(*c1, *c2, tol)) return {3};
    Found found = found_along(*c1, *c2, c2->center, tol);
    for (unsigned code = 0; code < 4; ++code) {
        const Touching two[2] = {{*c1, (code & 2U) != 0}, {*c2, (code & 1U) != 0}};
        const TwoPoints centers =
            crossings(centers_around(two[0], radius), centers_around(two[1], radius), tol);
        for (int i = 0; i < centers.count; ++i)
            found.add({centers.points[i], radius}, code, two);
    }
    return found.made<8>();
}

// ---- Two points and a circle ----

/// Two circles through two points, the one farther to the left of the way between them first.
void order_along_chord(TwoCircles& found, Vec2 p1, Vec2 p2) {
    const auto left = [&](const Circle& c) { return cross(p2 - p1, c.center - p1); };
    if (found.count == 2 && left(found.circles[1]) > left(found.circles[0]))
        std::swap(found.circles[0], found.circles[1]);
}

/// Touches a circle at a point of it and passes through another point.
TwoCircles touching_at_and_through(Vec2 at, Vec2 through, const Circle& circle, double tol) {
    const Vec2 outwards = (at - circle.center) * (1.0 / length(at - circle.center));
    const Vec2 chord = through - at;
    const double height = dot(outwards, chord);
    if (std::fabs(height) <= tol) return {0, {}};
    const double k = dot(chord, chord) / (2.0 * height);
    return {1, {{at + outwards * k, std::fabs(k)}, {}}};
}

TwoCircles through_two_points(Vec2 p1, Vec2 p2, const Circle& circle, double tol) {
    const double beyond_1 = length(p1 - circle.center) - circle.radius;
    const double beyond_2 = length(p2 - circle.center) - circle.radius;
    const bool on_1 = std::fabs(beyond_1) <= tol;
    const bool on_2 = std::fabs(beyond_2) <= tol;
    if (on_1 && on_2) return {0, {}};
    if (on_1) return touching_at_and_through(p1, p2, circle, tol);
    if (on_2) return touching_at_and_through(p2, p1, circle, tol);
    if ((beyond_1 < 0.0) != (beyond_2 < 0.0)) return {0, {}};

    TwoCircles found{0, {}};
    for (const bool inside : {false, true}) {
        const TwoCircles touching =
            circles_touching({point_to_touch(p1), point_to_touch(p2), {circle, inside}});
        for (int i = 0; i < touching.count && found.count < 2; ++i)
            found.circles[found.count++] = touching.circles[i];
    }
    const double to_chord = cross(p2 - p1, circle.center - p1) / length(p2 - p1);
    const bool chord_touches = std::fabs(std::fabs(to_chord) - circle.radius) <= tol;
    if (chord_touches && found.count == 2) {
        if (found.circles[1].radius < found.circles[0].radius) found.circles[0] = found.circles[1];
        found.count = 1;
    }
    order_along_chord(found, p1, p2);
    return found;
}

ConstructedCircles<2> through_two_points_touching(Vec2 p1, Vec2 p2, const Segment* s, double tol) {
    if (length(p2 - p1) <= tol) return {1};
    const auto circle = circle_input(s, tol);
    if (!circle) return {2};
    const TwoCircles found = through_two_points(p1, p2, *circle, tol);
    ConstructedCircles<2> made;
    for (int i = 0; i < found.count; ++i)
        if (is_reportable(found.circles[i], tol) && !are_equal(found.circles[i], *circle, tol))
            made.add(full_circle(found.circles[i]));
    return made;
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

void ARC_SPLINE_cre_circle_thru_2_points_tangent_to_circle(
    const double p1[2], const double p2[2], const ARC_SPLINE_1_seg_2d_t* circle, const double* tols,
    int* count, ARC_SPLINE_1_seg_2d_t* circle_1, ARC_SPLINE_1_seg_2d_t* circle_2, int* status) {
    store(through_two_points_touching(load2(p1), load2(p2), circle, tols[0]), count, circle_1,
          circle_2, status);
}

void ARC_SPLINE_cre_circle_thru_2_points_tangent_to_circle_2(
    const double p1[2], const double p2[2], const ARC_SPLINE_1_seg_2d_t* circle, const double* tols,
    int* count, ARC_SPLINE_1_seg_2d_t* circle_1, ARC_SPLINE_1_seg_2d_t* circle_2, int* status) {
    ARC_SPLINE_cre_circle_thru_2_points_tangent_to_circle(p1, p2, circle, tols, count, circle_1,
                                                          circle_2, status);
}

void ARC_SPLINE_cre_circle_tangent_to_2_circles_and_a_pt(
    const ARC_SPLINE_1_seg_2d_t* c1, const ARC_SPLINE_1_seg_2d_t* c2, const double pt[2],
    const double* tols, int* count, ARC_SPLINE_1_seg_2d_t circles[4], int* status) {
    store(through_point_touching(c1, c2, load2(pt), tols[0]), count, circles, status);
}

void ARC_SPLINE_cre_circle_tangent_to_2_circles_and_given_radius_2d(
    const ARC_SPLINE_1_seg_2d_t* c1, const ARC_SPLINE_1_seg_2d_t* c2, double given_radius,
    const double* tols, int* count, ARC_SPLINE_1_seg_2d_t circles[8], int* status) {
    store(touching_with_radius(c1, c2, given_radius, tols[0]), count, circles, status);
}

void ARC_SPLINE_cre_circle_tangent_to_3_circles(const ARC_SPLINE_1_seg_2d_t* c1,
                                                const ARC_SPLINE_1_seg_2d_t* c2,
                                                const ARC_SPLINE_1_seg_2d_t* c3, const double* tols,
                                                int* count, ARC_SPLINE_1_seg_2d_t circles[8],
                                                int* status) {
    store(touching_three(c1, c2, c3, tols[0]), count, circles, status);
}
