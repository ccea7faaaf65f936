// Circles that touch circles and lines.
#include "ztmath/arc_spline_tangent_circles.h"

#include "support/by_value.h"
#include "support/reports.h"
#include "support/segments.h"
#include "support/session.h"

namespace {

using namespace ztmath_test;

constexpr double fine[] = {1.0e-9, 1.0e-7, 1.0e-9};
constexpr double quarter[] = {0.25, 1.0e-7, 1.0e-9};
const double* tols = fine;

struct Circle {
    Pair c;
    double r;
};

Segment record(const Circle& circle) {
    return made_circle(circle.c, circle.r);
}

Segment line(const Pair& p, const Pair& along) {
    return made_straight(p, moved(p, 1, along));
}

/// What a construction gave: its status and its circles.
struct Answer {
    int status = -1;
    int count = -1;
    std::vector<Segment> circles = std::vector<Segment>(8);
};

Answer without_blanks(Answer x) {
    for (std::size_t i = std::max(x.count, 0); i < x.circles.size(); ++i)
        EXPECT_EQ(x.circles[i].radius, 0.0) << "entries beyond the count are blank";
    x.circles.resize(std::max(x.count, 0));
    return x;
}

template <class Input>
auto argument(const Input& input) {
    if constexpr (std::is_same_v<Input, Segment>)
        return &input;
    else
        return passed(input);
}

template <class Function, class... Inputs>
Answer made(Function construct, const Inputs&... inputs) {
    Answer x;
    construct(argument(inputs)..., tols, &x.count, x.circles.data(), &x.status);
    return without_blanks(x);
}

template <class Function, class... Inputs>
Answer made_two(Function construct, const Inputs&... inputs) {
    Answer x;
    construct(argument(inputs)..., tols, &x.count, &x.circles[0], &x.circles[1], &x.status);
    return without_blanks(x);
}

Answer touching_three(const Circle& a, const Circle& b, const Circle& c) {
    return made(ARC_SPLINE_cre_circle_tangent_to_3_circles, record(a), record(b), record(c));
}
Answer through_point(const Circle& a, const Circle& b, const Pair& p) {
    return made(ARC_SPLINE_cre_circle_tangent_to_2_circles_and_a_pt, record(a), record(b), p);
}
Answer of_radius(const Circle& a, const Circle& b, double radius) {
    return made(ARC_SPLINE_cre_circle_tangent_to_2_circles_and_given_radius_2d, record(a),
                record(b), radius);
}
Answer through_two(const Pair& p, const Pair& q, const Circle& c) {
    const Segment circle = record(c);
    const Answer x = made_two(ARC_SPLINE_cre_circle_thru_2_points_tangent_to_circle, p, q, circle);
    const Answer y =
        made_two(ARC_SPLINE_cre_circle_thru_2_points_tangent_to_circle_2, p, q, circle);
    EXPECT_EQ(x.count, y.count);
    return x;
}

/// At a point of a line: against a circle, against a line, and at an angle to a circle.
Answer at_point(const Segment& other, const Segment& on, const Pair& p, double angle = -1.0) {
    if (other.type == 0)
        return made_two(ARC_SPLINE_cre_circle_tangent_to_line_and_line_at_pt_2d, other, on, p);
    if (angle < 0.0)
        return made_two(ARC_SPLINE_cre_circle_tangent_to_circle_and_line_at_pt_2d, other, on, p);
    return made_two(ARC_SPLINE_cre_circle_at_angle_to_c_tangent_to_l_at_pt_2d, other, on, p, angle);
}

/// How far a circle is from touching another, or from a point, from outside and from inside.
Pair gaps(const Segment& s, const Circle& c) {
    const double d = distance(center_of(s), c.c);
    return {std::fabs(d - (s.radius + c.r)), std::fabs(d - std::fabs(s.radius - c.r))};
}

double gap(const Segment& s, const Circle& c) {
    return std::ranges::min(gaps(s, c));
}

unsigned code_of(const Segment& s, const std::vector<Circle>& given) {
    unsigned code = 0;
    for (const Circle& c : given)
        code = 2 * code + (gaps(s, c)[0] > gaps(s, c)[1] ? 1 : 0);
    return code;
}

void expect_touching(const Answer& x, const std::vector<Circle>& given,
                     const std::vector<Pair>& through) {
    EXPECT_EQ(x.status, 0);
    for (const Segment& s : x.circles) {
        const double slack = 1.0e-13 * std::max(10.0, s.radius);
        for (const Circle& c : given)
            EXPECT_LT(gap(s, c), slack);
        for (const Pair& p : through)
            EXPECT_LT(gap(s, {p, 0.0}), slack);
    }
}

/// By code, and of one code by radius.
void expect_order(const Answer& x, const std::vector<Circle>& given) {
    for (std::size_t i = 1; i < x.circles.size(); ++i) {
        const Segment &before = x.circles[i - 1], &now = x.circles[i];
        EXPECT_LE(code_of(before, given), code_of(now, given));
        EXPECT_TRUE(code_of(before, given) < code_of(now, given) ||
                    before.radius <= now.radius + 1.0e-8);
    }
}

double signed_radius(const Segment& s) {
    return s.orientation * s.radius;
}

Circle random_circle(Random& random) {
    return {random.vector<2>(), std::exp(random.uniform(-3, 1))};
}

TEST(TangentCircles, TouchWhatTheyMust) {
    Random random;
    for (int round = 0; round < rounds(3000); ++round) {
        const Circle a = random_circle(random), b = random_circle(random),
                     c = random_circle(random);
        const Pair p = random.vector<2>(), q = random.vector<2>();
        SCOPED_TRACE(round);
        const Answer three = touching_three(a, b, c);
        expect_touching(three, {a, b, c}, {});
        expect_order(three, {a, b, c});
        const auto small = [](const Circle& x) {
            return Circle{{x.c[0] / 256, x.c[1] / 256}, x.r / 256};
        };
        const Answer less = touching_three(small(a), small(b), small(c));
        ASSERT_EQ(less.count, three.count);
        for (int i = 0; i < three.count; ++i)
            EXPECT_EQ(less.circles[i].radius, three.circles[i].radius / 256);
        const Answer two = through_point(a, b, p);
        expect_touching(two, {a, b}, {p});
        expect_order(two, {a, b});
        const Answer radius = of_radius(a, b, 0.7);
        expect_touching(radius, {a, b}, {});
        expect_order(radius, {a, b});
        const Pair on = moved(a.c, a.r, direction_at(round));
        const Answer at = through_point(a, b, on), there = through_point(b, a, on);
        expect_touching(at, {a, b}, {on});
        EXPECT_EQ(at.count + there.count, 4);
        expect_order(at, {a, b});
        expect_order(there, {b, a});
        expect_touching(through_two(on, q, a), {a}, {on, q});
        const Answer chord = through_two(p, q, a);
        expect_touching(chord, {a}, {p, q});
        const bool alike = (distance(p, a.c) < a.r) == (distance(q, a.c) < a.r);
        ASSERT_EQ(chord.count, alike ? 2 : 0);
        if (alike) {
            const Pair apart = moved(center_of(chord.circles[0]), -1, center_of(chord.circles[1]));
            EXPECT_GT(dot(left_of(moved(q, -1, p)), apart), 0);
        }
        ASSERT_FALSE(HasFailure());
    }
}

/// Nearly touching one another, or nearly in a row, so that the squares lose digits.
TEST(TangentCircles, TouchToTheRoundingOfTheirData) {
    Random random;
    for (int round = 0; round < rounds(500); ++round) {
        const double close = std::pow(10, random.uniform(-8, -2)), r = random.uniform(0.1, 1);
        const Circle a{{0, 0}, 1}, b{{1 + r + close, 0}, r}, c{{-1 - r - close, close}, r};
        SCOPED_TRACE(close);
        expect_touching(touching_three(a, b, c), {a, b, c}, {});
        expect_touching(through_point(a, b, {1 + close / 3, close}), {a, b},
                        {{1 + close / 3, close}});
    }
}

TEST(TangentCircles, AreAsManyAsTheyMustBe) {
    const double height = std::sqrt(3.0);
    const struct {
        Circle a, b, c;
        int count;
    } rows[] = {
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
    for (const auto& row : rows)
        EXPECT_EQ(touching_three(row.a, row.b, row.c).count, row.count) << &row - rows;
    const Circle a{{0, 0}, 1}, b{{4, 0}, 1};
    const std::pair<double, int> radii[] = {{0.5, 0}, {1, 1}, {3, 7}};
    for (const auto& [radius, count] : radii) {
        EXPECT_EQ(of_radius(a, b, radius).count, count);
        expect_touching(of_radius(a, b, radius), {a, b}, {});
    }
    for (const double x : {-9.0, 9.0})
        EXPECT_GT(of_radius({{x, x}, 1}, {{x + 4, x}, 1}, 3.0).circles[0].center[1], x)
            << "from left to right";
    EXPECT_GT(through_point({{-2, 0}, 1}, {{2, 0}, 1}, {-4, 0}).circles[0].center[1], 0);
    EXPECT_EQ(through_point({{0, 0}, 2}, {{4, 0}, 2}, {2, 0}).count, 0) << "on both";
    EXPECT_EQ(through_point({{0, 0}, 2}, {{0, 0}, 4}, {0, 3}).count, 4) << "in a ring";
    EXPECT_EQ(through_point({{0, 0}, 2}, {{2, 0}, 4}, {5, 0}).count, 3) << "touching inside";
    EXPECT_EQ(through_two({0, 0}, {-12.5, 0}, {{9.5, 0}, 5.5}).count, 2);
    EXPECT_EQ(through_two({-2, 1}, {2, 1}, a).count, 1) << "the line through them touches";
}

/// What is as far apart as the tolerance counts as one.
TEST(TangentCircles, TakeTheToleranceItselfForNothing) {
    tols = quarter;
    const Circle a{{0, 0}, 1}, b{{4, 0}, 1}, c{{0.25, 0}, 1.25};
    EXPECT_EQ(of_radius({{0, 0}, 0.25}, b, 3).status, 0);
    EXPECT_EQ(touching_three({{0, -5}, 4}, {{0, 5}, 5}, {{0, 4}, 4}).count, 2) << "found once each";
    for (const double apart : {2.5, 2.75})
        EXPECT_EQ(of_radius(a, {{apart, 0}, 1}, 0.25).count, 1);
    EXPECT_EQ(of_radius(a, {{2.25, 0}, 1}, 3).count, 6) << "two of them at the sides";
    EXPECT_EQ(of_radius(a, {{0.25, 0}, 2}, 0.5).count, 0);
    EXPECT_EQ(through_point(a, c, {9, 9}).status, 3);
    EXPECT_EQ(through_point(a, b, {-1.25, 0}).count, 2);
    EXPECT_EQ(through_point(b, a, {-1.25, 0}).count, 2);
    EXPECT_EQ(through_two({2, 1}, {2, 1.25}, a).status, 1);
    EXPECT_DOUBLE_EQ(through_two({-3, -0.75}, {1, -0.75}, {{-1, -2}, 1}).circles.at(0).radius,
                     145.0 / 72)
        << "the smaller one alone";
    for (const Answer& x : {through_two({0, 1.25}, {3, 3}, a), through_two({3, 3}, {0, 1.25}, a)})
        EXPECT_DOUBLE_EQ(x.circles.at(0).radius, 12.0625 / 3.5) << "touched at the point";
    EXPECT_EQ(through_two({0, 1}, {3, 1.25}, a).count, 0);
    EXPECT_LT(through_point({{0, 0}, 1}, {{0.25, 0}, 2}, {-1.4, 0}).circles[0].center[1], 0);
    const Segment circle = record(a), x_axis = line({0, 0}, {1, 0});
    EXPECT_EQ(at_point(circle, x_axis, {3, 0.25}, 0).status, 0);
    EXPECT_EQ(at_point(circle, line({3, 1.25}, {1, 0}), {3, 1.25}).count, 1)
        << "the line touches, too";
    EXPECT_EQ(at_point(line({0, -2}, {1, 0}), line({0, 0.25}, {1, 0}), {3, 0}).count, 1);
    const double exact[] = {0, 1e-7}, right_angle[] = {1e-9, 90}, negative[] = {-1, 1e-7},
                 wide[] = {1, 1e-7};
    tols = wide;  // those that are alike stay in the order in which they are found
    EXPECT_LT(through_two({0, 8}, {0, 2.5}, a).circles[0].center[0], 0);
    EXPECT_GT(through_point({{0, 3}, 2}, {{-2, 3}, 6}, {-0.5, -1.5}).circles[0].radius, 2);
    tols = exact;
    EXPECT_EQ(at_point(circle, x_axis, {1, 0}).count, 0);
    EXPECT_EQ(through_two({1, 0}, {1, 5}, a).count, 0) << "along the tangent there";
    EXPECT_EQ(through_two({0, 1}, {1, 0}, a).count, 0);
    tols = negative;
    EXPECT_GT(of_radius(a, b, 3).circles[0].center[1], 0) << "from left to right all the same";
    EXPECT_EQ(of_radius(a, b, 1).count, 2);
    EXPECT_EQ(of_radius(a, {{2, 0}, 1}, 3).count, 8) << "where centres meet in one point, too";
    EXPECT_EQ(through_two({1, 0}, {3, 1}, a).count, 1) << "no point is on a circle";
    EXPECT_EQ(through_two({3, 1}, {1, 0}, a).count, 1);
    EXPECT_EQ(through_two({3, 1}, {0, 0}, a).count, 0);
    const std::vector<Segment> once = through_point(a, b, {2, 3}).circles;
    EXPECT_NE(once.at(0).radius, once.at(1).radius);
    tols = right_angle;
    EXPECT_EQ(at_point(line({0, 0}, {0, 1}), x_axis, {3, 0}).count, 1);
    tols = fine;
    for (const double radius : {1e10, std::nextafter(1e10, HUGE_VAL)})
        EXPECT_EQ(of_radius(a, b, radius).count > 0, radius == 1e10);
    EXPECT_EQ(through_two({-20, 1 + 2e-9}, {20, 1 + 2e-9}, a).count, 1);
}

TEST(CirclesAtAPoint, TouchTheLineThereAndTheRest) {
    Random random;
    for (int round = 0; round < rounds(3000); ++round) {
        const Circle c = random_circle(random);
        const Pair p = random.vector<2>();
        const Segment on = line(p, random.vector<2>());
        const Segment other = line(random.vector<2>(), random.vector<2>());
        const double angle = random.uniform(0, 90);
        const auto expect_at_point = [&](const Answer& x, const auto& miss) {
            EXPECT_EQ(x.status, 0);
            for (int i = 0; i < x.count; ++i) {
                const Segment& s = x.circles[i];
                const Pair across = moved(center_of(s), -1, p);
                const Pair along = {on.direction[0], on.direction[1]};
                const double slack = 1e-9 * std::max(10.0, s.radius);
                EXPECT_NEAR(dot(across, along), 0, slack);
                EXPECT_NEAR(dot(across, left_of(along)), signed_radius(s), slack);
                EXPECT_EQ(s.start_point[0], p[0]);
                EXPECT_LT(std::fabs(miss(s)), slack);
            }
            for (int i = 1; i < x.count; ++i)
                EXPECT_GT(signed_radius(x.circles[i - 1]), signed_radius(x.circles[i]));
        };
        expect_at_point(at_point(other, on, p), [&](const Segment& s) {
            const Pair start = {other.start_point[0], other.start_point[1]};
            const Pair aside = left_of({other.direction[0], other.direction[1]});
            return std::fabs(dot(moved(center_of(s), -1, start), aside)) - s.radius;
        });
        // The law of cosines in the triangle of the centres and a crossing.
        for (const double at : {-1.0, angle})
            expect_at_point(at_point(record(c), on, p, at), [&](const Segment& s) {
                const double d = distance(center_of(s), c.c);
                const double twice = 2.0 * s.radius * c.r * direction_at(std::max(at, 0.0))[0];
                const double rest = d * d - s.radius * s.radius - c.r * c.r;
                return (std::fabs(rest) - twice) / (s.radius + c.r + d);
            });
        ASSERT_FALSE(HasFailure()) << round;
    }
    const Segment circle = record({{0, 0}, 1});
    const Segment x_axis = line({0, 0}, {1, 0});
    EXPECT_EQ(at_point(record({{0, 1 + 1.5e-9}, 1}), x_axis, {0, 0}).count, 0)
        << "one is too small, the other is the given circle";
    EXPECT_EQ(at_point(circle, line({0, 3}, {1, 0}), {0, 3}, 90.0).count, 1);
    EXPECT_EQ(at_point(line({0, 0}, {0, 1}), x_axis, {3, 0}).count, 2) << "square";
    EXPECT_EQ(at_point(line({0, 0}, {1, 1}), x_axis, {0, 0}).count, 0) << "where they meet";
}

TEST(TangentCircles, SayWhatCannotBeServed) {
    const CheckingLevel on(1);
    ReportRecorder recorder;
    const Segment circle = record({{0, 0}, 1});
    const Segment x_axis = line({0, 0}, {1, 0});
    const Circle a{{0, 0}, 1}, b{{4, 0}, 1}, null{{0, 0}, 0};
    EXPECT_EQ(touching_three(null, b, a).status, 1);
    EXPECT_EQ(touching_three(a, null, b).status, 2);
    EXPECT_EQ(touching_three(a, b, null).status, 3);
    EXPECT_EQ(touching_three(a, b, a).status, 4);
    EXPECT_EQ(touching_three(a, a, b).status, 4);
    EXPECT_EQ(touching_three(b, a, a).status, 4);
    EXPECT_EQ(through_point(a, null, {9, 9}).status, 2);
    EXPECT_EQ(of_radius(a, a, 1.0).status, 3);
    EXPECT_EQ(through_two({1, 1}, {1, 2}, null).status, 2);
    EXPECT_EQ(at_point(circle, x_axis, {3, 1}).status, 3);
    EXPECT_EQ(at_point(circle, circle, {3, 1}).status, 2);
    EXPECT_EQ(at_point(x_axis, x_axis, {3, 1}).status, 3);
    EXPECT_EQ(at_point({}, x_axis, {3, 0}).status, 1) << "a line without a direction";
    EXPECT_EQ(at_point(x_axis, {}, {3, 0}).status, 2);
    EXPECT_EQ(recorder.take(), Reports{});
    EXPECT_EQ(of_radius(null, b, 1.0).status, 1);
    EXPECT_EQ(of_radius(a, null, 1.0).status, 2);
    EXPECT_EQ(of_radius(null, b, 0.0).status, 4);
    EXPECT_EQ(at_point(circle, x_axis, {3, 0}, 91.0).status, 4);
    constexpr auto at_a_point = ARC_SPLINE_cre_circle_tangent_to_circle_and_line_at_pt_2d;
    EXPECT_EQ(made_two(at_a_point, nullptr, x_axis, a.c).status, 1);
    EXPECT_EQ(
        recorder.take(),
        (Reports{assertion(arc_module,
                           "( local_status_flag == 0 && type_1 == 1 && radius_1 >= tols[0] )"),
                 assertion(arc_module,
                           "( local_status_flag == 0 && type_2 == 1 && radius_2 >= tols[0] )"),
                 assertion(arc_module, "( given_radius >= tols[0] )"),
                 internal(arc_module, "The input value of the angle is not valid."),
                 assertion(arc_module, "seg_ptr_1 && seg_ptr_2")}));
    EXPECT_EQ(made_two(at_a_point, circle, nullptr, a.c).status, 2);
}

}  // namespace
