// Circles that touch circles and lines.
#include "ztmath/arc_spline_tangent_circles.h"

#include "support/segments.h"
#include "support/support.h"

namespace {

using namespace ztmath_test;

const Arc unit({0, 0}, 1), beside({4, 0}, 1);
const Segment x_axis = made_straight({0, 0}, {1, 0});

Segment line(const Pair& p, const Pair& along) {
    return made_straight(p, moved(p, 1, along));
}

template <class Function, class... Inputs>
Made made_several(std::size_t room, Function construct, const Inputs&... inputs) {
    Made m;
    called(construct, inputs..., tols, &m.count, m.circles, &m.status);
    return without_blanks(m, room);
}

Made touching_three(const Arc& a, const Arc& b, const Arc& c) {
    return made_several(8, ARC_SPLINE_cre_circle_tangent_to_3_circles, a, b, c);
}
Made through_point(const Arc& a, const Arc& b, const Pair& p) {
    return made_several(4, ARC_SPLINE_cre_circle_tangent_to_2_circles_and_a_pt, a, b, p);
}
Made of_radius(const Arc& a, const Arc& b, double radius) {
    return made_several(8, ARC_SPLINE_cre_circle_tangent_to_2_circles_and_given_radius_2d, a, b,
                        radius);
}
Made through_two(const Pair& p, const Pair& q, const Arc& c) {
    const Made x = made_two(ARC_SPLINE_cre_circle_thru_2_points_tangent_to_circle, p, q, c);
    const Made y = made_two(ARC_SPLINE_cre_circle_thru_2_points_tangent_to_circle_2, p, q, c);
    EXPECT_EQ(x.count, y.count);
    return x;
}

/// At a point of a line: against a circle, against a line, and at an angle to a circle.
Made at_point(const Segment& other, const Segment& on, const Pair& p, double angle = -1.0) {
    if (other.type == 0)
        return made_two(ARC_SPLINE_cre_circle_tangent_to_line_and_line_at_pt_2d, other, on, p);
    if (angle < 0.0)
        return made_two(ARC_SPLINE_cre_circle_tangent_to_circle_and_line_at_pt_2d, other, on, p);
    return made_two(ARC_SPLINE_cre_circle_at_angle_to_c_tangent_to_l_at_pt_2d, other, on, p, angle);
}

/// How far a circle is from touching another, or from a point, from outside and from inside.
Pair gaps(const Segment& s, const Segment& c) {
    const double d = distance(center_of(s), center_of(c));
    return {std::fabs(d - (s.radius + c.radius)), std::fabs(d - std::fabs(s.radius - c.radius))};
}

void expect_touching(const Made& x, const std::vector<Arc>& given,
                     const std::vector<Pair>& through = {}) {
    EXPECT_EQ(x.status, 0);
    for (const Segment& s : x.circles) {
        const double slack = 1.0e-13 * std::max(10.0, s.radius);
        for (const Arc& c : given)
            EXPECT_LT(std::ranges::min(gaps(s, c)), slack);
        for (const Pair& p : through)
            EXPECT_NEAR(distance(center_of(s), p), s.radius, slack);
    }
}

/// Expects, too, those that touch from outside first, and of equal ones the smaller.
void expect_in_order(const Made& x, const std::vector<Arc>& given,
                     const std::vector<Pair>& through = {}) {
    expect_touching(x, given, through);
    const auto inside = [&](const Segment& s) {
        std::vector<bool> sides;
        for (const Arc& c : given)
            sides.push_back(gaps(s, c)[0] > gaps(s, c)[1]);
        return sides;
    };
    for (std::size_t i = 1; i < x.circles.size(); ++i) {
        const Segment &before = x.circles[i - 1], &now = x.circles[i];
        EXPECT_LE(inside(before), inside(now));
        EXPECT_TRUE(inside(before) < inside(now) || before.radius <= now.radius + 1.0e-8);
    }
}

double signed_radius(const Segment& s) {
    return s.orientation * s.radius;
}

Arc random_circle(Random& random) {
    return {random.vector<2>(), std::exp(random.uniform(-3, 1))};
}

TEST(TangentCircles, TouchWhatTheyMust) {
    Random random;
    for (int round = 0; round < rounds(3000); ++round) {
        const Arc a = random_circle(random), b = random_circle(random), c = random_circle(random);
        const Pair p = random.vector<2>(), q = random.vector<2>();
        SCOPED_TRACE(round);
        const Made three = touching_three(a, b, c);
        expect_in_order(three, {a, b, c});
        const auto small = [](const Arc& x) {
            return Arc(moved({}, 1.0 / 256, center_of(x)), x.radius / 256);
        };
        const Made less = touching_three(small(a), small(b), small(c));
        const auto enlarged = [](const Segment& s) { return 256 * s.radius; };
        EXPECT_TRUE(
            std::ranges::equal(less.circles, three.circles, {}, enlarged, &Segment::radius));
        expect_in_order(through_point(a, b, p), {a, b}, {p});
        expect_in_order(of_radius(a, b, 0.7), {a, b});
        const Pair on = moved(center_of(a), a.radius, direction_at(round));
        const Made at = through_point(a, b, on), there = through_point(b, a, on);
        expect_in_order(at, {a, b}, {on});
        expect_in_order(there, {b, a}, {on});
        EXPECT_EQ(at.count + there.count, 4);
        expect_touching(through_two(on, q, a), {a}, {on, q});
        const Made chord = through_two(p, q, a);
        expect_touching(chord, {a}, {p, q});
        const auto is_inside = [&](const Pair& x) { return distance(x, center_of(a)) < a.radius; };
        ASSERT_EQ(chord.count, is_inside(p) == is_inside(q) ? 2 : 0);
        if (chord.count == 2) expect_from_left(chord, p, q);
        ASSERT_FALSE(HasFailure());
    }
}

/// Nearly touching one another, or nearly in a row, so that the squares lose digits.
TEST(TangentCircles, TouchToTheRoundingOfTheirData) {
    Random random;
    for (int round = 0; round < rounds(500); ++round) {
        const double close = std::pow(10, random.uniform(-8, -2)), r = random.uniform(0.1, 1);
        const Arc a{{0, 0}, 1}, b{{1 + r + close, 0}, r}, c{{-1 - r - close, close}, r};
        SCOPED_TRACE(close);
        expect_touching(touching_three(a, b, c), {a, b, c});
        const Pair amid{1 + close / 3, close};
        expect_touching(through_point(a, b, amid), {a, b}, {amid});
    }
}

TEST(TangentCircles, AreAsManyAsTheyMustBe) {
    const double height = std::sqrt(3.0);
    const std::tuple<Arc, Arc, Arc, int> rows[] = {
        {{{-3, 0}, 1}, {{3, 0.5}, 2}, {{0, 0}, 10}, 8},   // two inside the third
        {{{0, 0}, 1}, {{0.5, 0}, 3}, {{0, 0.3}, 9}, 0},   // one between the others
        {{{0, 0}, 1}, {{20, 0}, 1}, {{0.2, 0.1}, 5}, 0},  // on different sides of the third
        {{{0, 0}, 1}, {{2, 0}, 1}, {{1, height}, 1}, 2},  // touching one another
        {{{1e6, 1e6}, 1}, {{1e6 + 5, 1e6}, 2}, {{1e6, 1e6 + 7}, 1.5}, 8},  // far away
        {{{0, 0}, 1e-4}, {{1500, 0}, 1e3}, {{-2000, 6}, 2}, 8},            // of all sizes
        {{{0, 0}, 2}, {{0, 1.5}, 0.5}, {{0, 3.5}, 6}, 2},                  // two touch in the third
        {{{0, 0}, 2}, {{0, 1}, 3}, {{-1e-6, 0}, 2}, 1},                    // two nearly equal
        {{{6, 0}, 1}, {{-2, 0}, 1}, {{1, 0}, 4}, 2},                       // each touches the next
        {{{0, 0}, 2}, {{-6, 0}, 6}, {{-4, 0}, 4}, 6},
        {{{5, 5}, 4}, {{2, 4}, 5}, {{2, 5}, 4}, 5},  // touching one line, which is no circle
        {{{2, 4}, 4}, {{-2, 2}, 2}, {{2, -3}, 3}, 3},
    };
    for (const auto& [a, b, c, count] : rows)
        EXPECT_EQ(touching_three(a, b, c).count, count) << a.radius << ' ' << b.radius;
    for (const auto& [radius, count] : {std::pair{0.5, 0}, {1, 1}, {3, 7}}) {
        EXPECT_EQ(of_radius(unit, beside, radius).count, count);
        expect_touching(of_radius(unit, beside, radius), {unit, beside});
    }
    for (const double x : {-9.0, 9.0})
        EXPECT_GT(of_radius({{x, x}, 1}, {{x + 4, x}, 1}, 3.0).first().center[1], x)
            << "from left to right";
    EXPECT_GT(through_point({{-2, 0}, 1}, {{2, 0}, 1}, {-4, 0}).first().center[1], 0);
    EXPECT_EQ(through_point({{0, 0}, 2}, {{4, 0}, 2}, {2, 0}).count, 0) << "on both";
    EXPECT_EQ(through_point({{0, 0}, 2}, {{0, 0}, 4}, {0, 3}).count, 4) << "in a ring";
    EXPECT_EQ(through_point({{0, 0}, 2}, {{2, 0}, 4}, {5, 0}).count, 3) << "touching inside";
    EXPECT_EQ(through_two({0, 0}, {-12.5, 0}, {{9.5, 0}, 5.5}).count, 2);
    EXPECT_EQ(through_two({-2, 1}, {2, 1}, unit).count, 1) << "the line through them touches";
}

/// What is as far apart as the tolerance counts as one.
TEST(TangentCircles, TakeTheToleranceItselfForNothing) {
    const Kept kept(tols, {0.25, 1e-7, 1e-9});
    const Arc touched({0.25, 0}, 1.25);
    EXPECT_EQ(of_radius({{0, 0}, 0.25}, beside, 3).status, 0);
    EXPECT_EQ(touching_three({{0, -5}, 4}, {{0, 5}, 5}, {{0, 4}, 4}).count, 2) << "found once each";
    for (const double apart : {2.5, 2.75})
        EXPECT_EQ(of_radius(unit, {{apart, 0}, 1}, 0.25).count, 1);
    EXPECT_EQ(of_radius(unit, {{2.25, 0}, 1}, 3).count, 6) << "two of them at the sides";
    EXPECT_EQ(of_radius(unit, {{0.25, 0}, 2}, 0.5).count, 0);
    EXPECT_EQ(through_point(unit, touched, {9, 9}).status, 3);
    EXPECT_EQ(through_point(unit, beside, {-1.25, 0}).count, 2);
    EXPECT_EQ(through_point(beside, unit, {-1.25, 0}).count, 2);
    EXPECT_EQ(through_two({2, 1}, {2, 1.25}, unit).status, 1);
    EXPECT_DOUBLE_EQ(through_two({-3, -0.75}, {1, -0.75}, {{-1, -2}, 1}).first().radius, 145.0 / 72)
        << "the smaller one alone";
    for (const Made& x :
         {through_two({0, 1.25}, {3, 3}, unit), through_two({3, 3}, {0, 1.25}, unit)})
        EXPECT_DOUBLE_EQ(x.first().radius, 12.0625 / 3.5) << "touched at the point";
    EXPECT_EQ(through_two({0, 1}, {3, 1.25}, unit).count, 0);
    EXPECT_LT(through_point(unit, {{0.25, 0}, 2}, {-1.4, 0}).first().center[1], 0);
    EXPECT_EQ(at_point(unit, x_axis, {3, 0.25}, 0).status, 0);
    EXPECT_EQ(at_point(unit, line({3, 1.25}, {1, 0}), {3, 1.25}).count, 1)
        << "the line touches, too";
    EXPECT_EQ(at_point(line({0, -2}, {1, 0}), line({0, 0.25}, {1, 0}), {3, 0}).count, 1);
    tols = {1, 1e-7};  // those that are alike stay in the order in which they are found
    EXPECT_LT(through_two({0, 8}, {0, 2.5}, unit).first().center[0], 0);
    EXPECT_GT(through_point({{0, 3}, 2}, {{-2, 3}, 6}, {-0.5, -1.5}).first().radius, 2);
    tols = {0, 1e-7};
    EXPECT_EQ(at_point(unit, x_axis, {1, 0}).count, 0);
    EXPECT_EQ(through_two({1, 0}, {1, 5}, unit).count, 0) << "along the tangent there";
    EXPECT_EQ(through_two({0, 1}, {1, 0}, unit).count, 0);
    tols = {-1, 1e-7};
    EXPECT_GT(of_radius(unit, beside, 3).first().center[1], 0) << "from left to right all the same";
    EXPECT_EQ(of_radius(unit, beside, 1).count, 2);
    EXPECT_EQ(of_radius(unit, {{2, 0}, 1}, 3).count, 8) << "where centres meet in one point, too";
    EXPECT_EQ(through_two({1, 0}, {3, 1}, unit).count, 1) << "no point is on a circle";
    EXPECT_EQ(through_two({3, 1}, {1, 0}, unit).count, 1);
    EXPECT_EQ(through_two({3, 1}, {0, 0}, unit).count, 0);
    const std::vector<Segment> once = through_point(unit, beside, {2, 3}).circles;
    EXPECT_NE(once.at(0).radius, once.at(1).radius);
    tols = {1e-9, 90};
    EXPECT_EQ(at_point(line({0, 0}, {0, 1}), x_axis, {3, 0}).count, 1);
    for (const double radius : {1e10, std::nextafter(1e10, HUGE_VAL)})
        EXPECT_EQ(of_radius(unit, beside, radius).count > 0, radius == 1e10);
    EXPECT_EQ(through_two({-20, 1 + 2e-9}, {20, 1 + 2e-9}, unit).count, 1);
}

TEST(CirclesAtAPoint, TouchTheLineThereAndTheRest) {
    Random random;
    for (int round = 0; round < rounds(3000); ++round) {
        const Arc c = random_circle(random);
        const Pair p = random.vector<2>();
        const Segment on = line(p, random.vector<2>());
        const Segment other = line(random.vector<2>(), random.vector<2>());
        const double angle = random.uniform(0, 90);
        const auto expect_at_point = [&](const Made& x, const auto& miss) {
            EXPECT_EQ(x.status, 0);
            for (const Segment& s : x.circles) {
                const Pair across = minus(center_of(s), p), along = direction_of(on);
                const double slack = 1e-9 * std::max(10.0, s.radius);
                EXPECT_NEAR(dot(across, along), 0, slack);
                EXPECT_NEAR(dot(across, left_of(along)), signed_radius(s), slack);
                EXPECT_EQ(s.start_point[0], p[0]);
                EXPECT_LT(std::fabs(miss(s)), slack);
            }
            EXPECT_EQ(std::ranges::adjacent_find(x.circles, std::less_equal{}, signed_radius),
                      x.circles.end());
        };
        expect_at_point(at_point(other, on, p), [&](const Segment& s) {
            const Pair way = minus(center_of(s), start_of(other));
            return std::fabs(dot(way, left_of(direction_of(other)))) - s.radius;
        });
        // The law of cosines in the triangle of the centres and a crossing.
        for (const double at : {-1.0, angle})
            expect_at_point(at_point(c, on, p, at), [&](const Segment& s) {
                const double d = distance(center_of(s), center_of(c)), r = c.radius;
                const double twice = 2.0 * s.radius * r * direction_at(std::max(at, 0.0))[0];
                const double rest = d * d - s.radius * s.radius - r * r;
                return (std::fabs(rest) - twice) / (s.radius + r + d);
            });
        ASSERT_FALSE(HasFailure()) << round;
    }
    EXPECT_EQ(at_point(Arc({0, 1 + 1.5e-9}, 1), x_axis, {0, 0}).count, 0)
        << "one is too small, the other is the given circle";
    EXPECT_EQ(at_point(unit, line({0, 3}, {1, 0}), {0, 3}, 90.0).count, 1);
    EXPECT_EQ(at_point(line({0, 0}, {0, 1}), x_axis, {3, 0}).count, 2) << "square";
    EXPECT_EQ(at_point(line({0, 0}, {1, 1}), x_axis, {0, 0}).count, 0) << "where they meet";
}

TEST(TangentCircles, SayWhatCannotBeServed) {
    const CheckingLevel on(1);
    ReportRecorder recorder;
    const Arc null({0, 0}, 0);
    EXPECT_EQ(touching_three(null, beside, unit).status, 1);
    EXPECT_EQ(touching_three(unit, null, beside).status, 2);
    EXPECT_EQ(touching_three(unit, beside, null).status, 3);
    EXPECT_EQ(touching_three(unit, beside, unit).status, 4);
    EXPECT_EQ(touching_three(unit, unit, beside).status, 4);
    EXPECT_EQ(touching_three(beside, unit, unit).status, 4);
    EXPECT_EQ(through_point(unit, null, {9, 9}).status, 2);
    EXPECT_EQ(of_radius(unit, unit, 1.0).status, 3);
    EXPECT_EQ(through_two({1, 1}, {1, 2}, null).status, 2);
    EXPECT_EQ(at_point(unit, x_axis, {3, 1}).status, 3);
    EXPECT_EQ(at_point(unit, unit, {3, 1}).status, 2);
    EXPECT_EQ(at_point(x_axis, x_axis, {3, 1}).status, 3);
    EXPECT_EQ(at_point({}, x_axis, {3, 0}).status, 1) << "a line without a direction";
    EXPECT_EQ(at_point(x_axis, {}, {3, 0}).status, 2);
    EXPECT_EQ(recorder.take(), Reports{});
    EXPECT_EQ(of_radius(null, beside, 1.0).status, 1);
    EXPECT_EQ(of_radius(unit, null, 1.0).status, 2);
    EXPECT_EQ(of_radius(null, beside, 0.0).status, 4);
    EXPECT_EQ(at_point(unit, x_axis, {3, 0}, 91.0).status, 4);
    constexpr auto at_a_point = ARC_SPLINE_cre_circle_tangent_to_circle_and_line_at_pt_2d;
    EXPECT_EQ(made_two(at_a_point, nullptr, x_axis, center_of(unit)).status, 1);
    EXPECT_EQ(
        recorder.take(),
        (Reports{assertion(arc_module,
                           "( local_status_flag == 0 && type_1 == 1 && radius_1 >= tols[0] )"),
                 assertion(arc_module,
                           "( local_status_flag == 0 && type_2 == 1 && radius_2 >= tols[0] )"),
                 assertion(arc_module, "( given_radius >= tols[0] )"),
                 internal(arc_module, "The input value of the angle is not valid."),
                 assertion(arc_module, "seg_ptr_1 && seg_ptr_2")}));
    EXPECT_EQ(made_two(at_a_point, unit, nullptr, center_of(unit)).status, 2);
}

}  // namespace
