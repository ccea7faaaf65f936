// Circles and arcs from points, radii and tangents.
#include "ztmath/arc_spline_constructions.h"

#include "support/segments.h"
#include "support/support.h"

namespace {

using namespace ztmath_test;

Made through_3(const Pair& p1, const Pair& p2, const Pair& p3) {
    return made_one(ARC_SPLINE_cre_circle_thru_3_points_2d, p1, p2, p3);
}
Made on_chord(const Pair& p1, const Pair& p2, double radius, int selector) {
    return made_two(ARC_SPLINE_cre_circle_thru_2_points_and_radius, p1, p2, radius, selector);
}
Made touching(const Pair& p1, const Pair& p2, const Pair& p = {0, 0}, const Pair& d = {1, 0}) {
    return made_two(ARC_SPLINE_cre_circle_thru_2_points_tangent_to_line, p1, p2, p, d);
}
Made touching_at(const Pair& pt, const Pair& p, const Pair& d) {
    return made_one(ARC_SPLINE_cre_circle_thru_pt_and_tangent_to_line_at_pt_2d, pt, p, d);
}
Made chord(const Pair& start, const Pair& tangent, const Pair& end, double radius = -1) {
    return made_one(ARC_SPLINE_cre_circle_from_chord_end_data_2d, start, tangent, end, end, radius);
}
Made ray_to_ray(const Pair& p1, Pair d1, const Pair& p2, Pair d2) {
    return made_one(ARC_SPLINE_cre_arc_from_ray_to_ray_2d, p1, d1.data(), p2, d2.data(), 0);
}

/// How far a point is from a circle, in radii.
double off(const Segment& s, const Pair& p) {
    return std::fabs(distance(center_of(s), p) / s.radius - 1);
}

/// How far a circle is from touching a line, in radii.
double gap(const Segment& s, const Pair& p, const Pair& d) {
    const double aside = dot(left_of(d), minus(center_of(s), p)) / std::hypot(d[0], d[1]);
    return std::fabs(std::fabs(aside) / s.radius - 1);
}

TEST(ArcSplineConstructions, ThroughThreePoints) {
    Random random;
    for (int i = 0; i < rounds(200); ++i) {
        const Pair p1 = random.vector<2>(), p2 = random.vector<2>(), way = minus(p2, p1);
        const int o = i % 2 == 0 ? 1 : -1;
        const Pair p3 =
            moved(moved(p2, random.normal(), way), o * random.uniform(0.01, 2), left_of(way));
        const Segment s = through_3(p1, p2, p3).first();
        for (const Pair& p : {p1, p2, p3})
            EXPECT_LT(off(s, p), 1e-9);
        EXPECT_EQ(s.orientation, o);
        expect_near(evaluated(s, s.start_angle + s.orientation * 360).point, p1, 1e-9 * s.radius);
    }
    EXPECT_EQ(through_3({0, 0}, {1, 0}, {std::nan(""), 0}).status, 1);
    EXPECT_EQ(through_3({0, 0}, {3, 1}, {0, 1e-10}).status, 2);
}

// The centres stand the radius away from the middle of the chord.
TEST(ArcSplineConstructions, ThroughTwoPointsWithARadius) {
    for (const int selector : {0, 1, 2}) {
        const std::vector<Segment> two = on_chord({1, 1}, {1, 5}, 1.5, selector).circles;
        // The tangent is square to the way from either centre to the first point.
        const double turn = std::atan2(1.5, 2) * 180 / std::numbers::pi;
        const int o = selector == 1 ? -1 : 1, q = selector == 0 ? -1 : 1;
        const double left = o == 1 ? turn : 180 + turn, right = q == 1 ? 360 - turn : 180 - turn;
        expect_equal(two.at(0), {1, o, {1, 1}, left, left + o * 360, {-0.5, 3}, {}, 1.5, 1.5});
        expect_equal(two.at(1), {1, q, {1, 1}, right, right + q * 360, {2.5, 3}, {}, 1.5, 1.5});
        expect_equal(on_chord({1, 1}, {1, 5}, 2 - 9e-10, selector).first(), Arc({1, 3}, 2, 0, 360));
    }
}

TEST(ArcSplineConstructions, ThroughTwoPointsTouchingALine) {
    const Kept kept(tols, {1e-9, 1e-4, 45});
    Random random;
    for (int i = 0; i < rounds(300); ++i) {
        const Pair p1{random.normal(), (i % 4 < 2 ? 1 : -1) * random.uniform(0.5, 3)};
        const double flat = i % 3 == 0 ? 0.03 : 1;  // chords next to parallel ones, too
        const double slope = flat * random.uniform(0.1, 0.9) * (i % 8 < 4 ? 1 : -1);
        const Pair p2{random.normal(), p1[1] * (i % 2 == 0 ? 1 + slope : slope)};
        const Similarity f(random);
        const Pair q1 = f.point(p1), q2 = f.point(p2), p = f.point({0, 0});
        const Pair d = f.direction({i % 7 - 3.5, 0});
        const Made m = touching(q1, q2, p, d);
        ASSERT_EQ(m.count, p1[1] * p2[1] > 0 ? 2 : 0);
        for (const Segment& s : m.circles) {
            EXPECT_LT(off(s, q1), 1e-9);
            EXPECT_LT(off(s, q2), 1e-9);
            EXPECT_LT(gap(s, p, d), 1e-9);
        }
        if (m.count == 2) expect_from_left(m, q1, q2);
    }
    const double cases[][7] = {{-1, 1, 1, 1, 1, 0, 1},
                               {1, -1, -1, -1, 1, 0, -1},  // parallel
                               {1, 1, -1, 1, 1, 0, 1},
                               {0, 0, 3, 1, 1, 0, 5},
                               {3, 1, 0, 9e-10, 1, 0, 5},  // on the line
                               {0, 2, 0, 1, 2, std::sqrt(2), 1.5}};
    for (const auto& [x1, y1, x2, y2, count, x, y] : cases) {
        const Made m = touching({x1, y1}, {x2, y2}, {7, 0}, {-1e-9, 0});
        EXPECT_EQ(m.count, count) << x1;
        expect_near(center_of(m.first()), {x, y}, 1e-5);
    }
    EXPECT_EQ(touching({0, 0}, {3, 0}).count, 0);
    EXPECT_EQ(touching({0, 1}, {0, 2}, {0, 0}, {0, 9e-11}).status, 2);
}

TEST(ArcSplineConstructions, AlongATangent) {
    Random random;
    for (int i = 0; i < rounds(200); ++i) {
        const Pair p = random.vector<2>(), pt = random.vector<2>();
        const double angle = random.uniform(0, 359);
        const Pair d = moved({}, 3, direction_at(angle));
        const Segment s = touching_at(pt, p, d).first();
        const int side = dot(left_of(d), minus(pt, p)) > 0 ? 1 : -1;
        const Pair c = moved(p, side * s.radius / 3, left_of(d));
        expect_equal(s, Arc(c, s.radius, angle, angle + side * 360, side), 1e-9);
        const Segment arc = chord(p, d, pt).first();
        EXPECT_TRUE(arc.start_angle == s.start_angle && arc.orientation == side);
        expect_near(evaluated(arc, arc.end_angle).point, pt, 1e-9 * s.radius);
        EXPECT_EQ(chord(p, d, pt, arc.radius + 2e-9).status, 3);
    }
    EXPECT_EQ(touching_at({0, 0}, {1, 0}, {0, 9e-11}).status, 2);
    EXPECT_EQ(chord({0, 0}, {3, 0}, {-2, 9e-10}).status, 2);
}

/// What is as far apart as the tolerance counts as one.
TEST(ArcSplineConstructions, TakeTheToleranceItselfForNothing) {
    const Kept kept(tols, {1e-6, 0});  // nothing is collinear, and the bisectors are parallel
    EXPECT_EQ(through_3({0, 0}, {1, 0}, {3, 0}).status, 1);
    EXPECT_EQ(touching({-1, 1}, {1, 1}).count, 1) << "but what is";
    tols = {-1, 1e-4};  // no point is on a line, but some are on neither side
    EXPECT_EQ(touching({0, 1}, {1, 0}).count, 0);
    EXPECT_EQ(touching({1, 0}, {0, 1}).count, 0);
    EXPECT_EQ(chord({0, 0}, {0, 1}, {0, 0}).first().orientation, -1);
    tols = {0.25, 1e-4};
    for (const auto& [radius, count] : {std::pair{1.75, 1}, {2.25, 1}, {0.25, 2}, {0.1875, 0}})
        EXPECT_EQ(on_chord({1, 1}, {1, 5}, radius, 0).count, count) << radius;
    EXPECT_EQ(on_chord({1, 1}, {1, 1.5}, 1, 0).status, 1);
    EXPECT_EQ(touching({0, 1}, {0, 1.25}).status, 1);
    EXPECT_EQ(touching({0, 0.25}, {1, 2}).count, 1);
    EXPECT_EQ(touching({1, 2}, {0, 0.25}).count, 1);
    EXPECT_EQ(touching({-0.17, 0.3}, {0.17, 0.3}).count, 0) << "a radius of 0.2";
    EXPECT_EQ(touching_at({0.25, 0}, {0, 0}, {0, 1}).status, 1);
    expect_equal(touching_at({-2, 0.25}, {0, 0}, {3, 0}).first(), made_straight({0, 0}, {-2, 0.25}),
                 0);
    expect_equal(chord({0, 0}, {3, 0}, {2, 0.25}).first(), made_straight({0, 0}, {2, 0.25}), 0);
    EXPECT_EQ(chord({0, 0}, {0, 1}, {0.25, 0}).status, 1);
    for (const double radius : {0.75, 1.25})  // of a half circle of radius 1
        EXPECT_EQ(chord({0, 0}, {0, 1}, {2, 0}, radius).first().radius, radius);
    EXPECT_EQ(chord({0, 0}, {0, 1}, {2, 0}, 0).status, 3);  // a known radius, and another
    EXPECT_EQ(chord({0, 0}, {1, 0}, {0, 3e10}).status, 2);  // square to a tangent is not ahead
    for (const double radius : {1e10, std::nextafter(1e10, HUGE_VAL)})  // of a quarter
        EXPECT_EQ(chord({0, 0}, {1, 0}, {radius, radius}).first().type, radius == 1e10);
}

TEST(ArcSplineConstructions, FromRayToRay) {
    Random random;
    for (int i = 0; i < rounds(200); ++i) {
        const Pair x = random.vector<2>();
        const double from = random.uniform(0, 360);
        const Pair d1 = direction_at(from), d2 = direction_at(from + random.uniform(10, 170));
        const double t1 = random.uniform(-3, 3), t2 = random.uniform(-3, 3);
        const Pair p1 = moved(x, -t1, d1), p2 = moved(x, -t2, d2);
        const Segment s = ray_to_ray(p1, moved({}, 2, d1), p2, d2).first();
        const At start = evaluated(s, s.start_angle), end = evaluated(s, s.end_angle);
        expect_near(start.tangent, d1, 1e-12);
        EXPECT_NEAR(dot(left_of(end.tangent), d2), 0, 1e-9);
        const double less = std::fmin(std::fabs(t1), std::fabs(t2));
        expect_near(start.point, moved(x, -std::copysign(less, t1), d1), 1e-9);
        expect_near(end.point, moved(x, -std::copysign(less, t2), d2), 1e-9);
    }
    const Pair o{0, 0}, right{1, 0}, up{0, 1};
    expect_equal(ray_to_ray(o, right, {3, 2}, right).first(), Arc({0, 1}, 1, 0, 180));
    EXPECT_EQ(ray_to_ray(o, right, {3, 2}, {0, 1e-8}).status, 1);
    EXPECT_EQ(ray_to_ray(o, {1e-8, 0}, {3, 2}, up).status, 1);
    EXPECT_EQ(ray_to_ray(o, {1.4e-8, 0}, {3, 2}, up).status, 0);
    EXPECT_EQ(ray_to_ray(o, right, {3, 0}, {-1, 0}).status, 2);
    EXPECT_EQ(ray_to_ray(o, right, {1e-8, 1e-8}, up).status, 0);
    const Segment same = ray_to_ray({0.1, 0}, right, {0.4, 0.4 - 0.1}, up).first();
    EXPECT_EQ(same.start_point[0], 0.1) << "of equally long ways, from where the first ray starts";
    ReportRecorder recorder;
    EXPECT_EQ(ray_to_ray(o, right, {0, 3}, up).status, 3);
    EXPECT_EQ(recorder.take(),
              Reports{internal(
                  arc_module, "The call to ARC_SPLINE_cre_circle_from_chord_end_data_2d failed.")});
}

}  // namespace
