// Circles and arcs from points, radii and tangents.
#include "ztmath/arc_spline_constructions.h"

#include "support/reports.h"
#include "support/segments.h"

namespace {

using namespace ztmath_test;

constexpr double tols[] = {1e-6, 1e-4};

/// What a construction gave, in records that were full of other numbers.
struct Made {
    int count = 9, status = 9;
    Segment s[2] = {{7, 7, {7, 7}, 7, 7, {7, 7}, {7, 7}, 7, 7},
                    {7, 7, {7, 7}, 7, 7, {7, 7}, {7, 7}, 7, 7}};

    /// Records beyond the count, and all those after a failure, are blank.
    Made blank_after(int filled) const {
        for (int i = filled; i < 2; ++i)
            expect_equal(s[i], {}, 0);
        return *this;
    }
};

Made through_3(const Pair& p1, const Pair& p2, const Pair& p3) {
    Made m;
    ARC_SPLINE_cre_circle_thru_3_points_2d(p1.data(), p2.data(), p3.data(), tols, m.s, &m.status);
    return m;
}

Made on_chord(const Pair& p1, const Pair& p2, double radius, int selector) {
    Made m;
    ARC_SPLINE_cre_circle_thru_2_points_and_radius(p1.data(), p2.data(), radius, selector, tols,
                                                   &m.count, &m.s[0], &m.s[1], &m.status);
    return m.blank_after(m.count);
}

Made touching(const Pair& p1, const Pair& p2, const Pair& p, const Pair& d) {
    Made m;
    ARC_SPLINE_cre_circle_thru_2_points_tangent_to_line(
        p1.data(), p2.data(), p.data(), d.data(), tols, &m.count, &m.s[0], &m.s[1], &m.status);
    return m.blank_after(m.count);
}

Made touching_at(const Pair& pt, const Pair& p, const Pair& d) {
    Made m;
    ARC_SPLINE_cre_circle_thru_pt_and_tangent_to_line_at_pt_2d(pt.data(), p.data(), d.data(), tols,
                                                               m.s, &m.status);
    return m;
}

Made chord(const Pair& start, const Pair& tangent, const Pair& end, double radius = -1) {
    Made m;
    ARC_SPLINE_cre_circle_from_chord_end_data_2d(start.data(), tangent.data(), end.data(), nullptr,
                                                 radius, tols, m.s, &m.status);
    return m;
}

Made ray_to_ray(const Pair& p1, Pair d1, const Pair& p2, Pair d2) {
    Made m;
    ARC_SPLINE_cre_arc_from_ray_to_ray_2d(p1.data(), d1.data(), p2.data(), d2.data(), 0, tols, m.s,
                                          &m.status);
    return m;
}

/// How far a point is from a circle, in radii.
double off(const Segment& s, const Pair& p) {
    return std::fabs(distance(center_of(s), p) / s.radius - 1);
}

/// How far a circle is from touching a line, in radii.
double gap(const Segment& s, const Pair& p, const Pair& d) {
    return std::fabs(std::fabs(dot(left_of(d), moved(center_of(s), -1, p))) /
                         std::hypot(d[0], d[1]) / s.radius -
                     1);
}

double sign(double x) {
    return x > 0 ? 1 : -1;
}

TEST(ArcSplineConstructions, ThroughThreePoints) {
    Random random;
    for (int i = 0; i < rounds(200); ++i) {
        const Pair p1 = random.vector<2>(), p2 = random.vector<2>(), p3 = random.vector<2>();
        const Segment s = through_3(p1, p2, p3).s[0];
        for (const Pair& p : {p1, p2, p3})
            EXPECT_LT(off(s, p), 1e-9);
        EXPECT_EQ(s.orientation, sign(dot(left_of(moved(p2, -1, p1)), moved(p3, -1, p2))));
        EXPECT_EQ((Pair{s.start_point[0], s.start_point[1]}), p1);
        EXPECT_NEAR(s.orientation * (s.end_angle - s.start_angle), 360, 1e-11);
        expect_near(evaluated(s, s.start_angle, 1).point, p1, 1e-9 * s.radius);
        double parms[] = {0, 0};
        for (const int k : {0, 1}) {
            Pair foot{};
            int domain = 9, status = 9;
            ARC_SPLINE_ask_parm_at_a_point_2d(&s, k == 0 ? p2.data() : p3.data(), tols, foot.data(),
                                              &parms[k], &domain, &status);
        }
        EXPECT_GT(s.orientation * (parms[1] - parms[0]), 0);  // p2 is passed first
    }
    const double nan = std::nan("");
    const struct {
        Pair p2, p3;
        int status;
    } cases[] = {{{1, 1}, {3, 3}, 1}, {{3, 1}, {0, 1e-7}, 2}, {{1, 0}, {nan, nan}, 1}};
    for (const auto& at : cases) {
        const Made m = through_3({0, 0}, at.p2, at.p3);
        EXPECT_EQ(m.status, at.status);
        expect_equal(m.s[0], {}, 0);
    }
}

// The centres stand the radius away from the middle of the chord.
TEST(ArcSplineConstructions, ThroughTwoPointsWithARadius) {
    for (const int selector : {0, 1, 2}) {
        const Made two = on_chord({1, 1}, {1, 5}, 1.5, selector);
        EXPECT_EQ(two.count, 2);
        const int first = selector == 1 ? -1 : 1, second = selector == 0 ? -1 : 1;
        // Towards the point from either centre: the tangent is square to it.
        const double turn = std::atan2(1.5, 2) * 180 / std::numbers::pi;
        const double left = first == 1 ? turn : 180 + turn;
        const double right = second == 1 ? 360 - turn : 180 - turn;
        expect_equal(two.s[0],
                     {1, first, {1, 1}, left, left + first * 360, {-0.5, 3}, {}, 1.5, 1.5});
        expect_equal(two.s[1],
                     {1, second, {1, 1}, right, right + second * 360, {2.5, 3}, {}, 1.5, 1.5});
        const Made one = on_chord({1, 1}, {1, 5}, 2 - 9e-7, selector);
        EXPECT_EQ(one.count, 1);
        expect_equal(one.s[0], {1, 1, {1, 1}, 0, 360, {1, 3}, {}, 2, 2});
        EXPECT_EQ(on_chord({1, 1}, {1, 5}, 2 + 2e-6, selector).count, 0);
        EXPECT_EQ(on_chord({1, 1}, {1, 5}, 9e-7, selector).count, 0);
    }
    EXPECT_EQ(on_chord({1, 1}, {1, 1 + 1.9e-6}, 1e-7, 0).status, 1);
}

TEST(ArcSplineConstructions, ThroughTwoPointsTouchingALine) {
    Random random;
    for (int i = 0; i < rounds(300); ++i) {
        const Pair p{0, 0}, d{random.uniform(-3, 3), 0},
            p1{random.normal(), (i % 4 < 2 ? 1 : -1) * random.uniform(0.5, 3)};
        const double flat = i % 3 == 0 ? 1e-3 : 1;  // chords next to parallel ones, too
        const Pair p2{random.normal(),
                      i % 2 == 0 ? p1[1] * (1 + flat * random.uniform(0.1, 1)) : random.normal()};
        const Made m = touching(p1, p2, p, d);
        EXPECT_EQ(m.status, 0);
        EXPECT_EQ(m.count, p1[1] * p2[1] > 0 ? 2 : 0);
        for (int k = 0; k < m.count; ++k) {
            EXPECT_LT(off(m.s[k], p1), 1e-9);
            EXPECT_LT(off(m.s[k], p2), 1e-9);
            EXPECT_LT(gap(m.s[k], p, d), 1e-9);
            EXPECT_EQ(m.s[k].orientation, 1);
        }
        if (m.count < 2) continue;
        const Pair apart = moved(center_of(m.s[0]), -1, center_of(m.s[1]));
        EXPECT_GT(dot(left_of(moved(p2, -1, p1)), apart), 0);
        const Similarity f(random);  // which a mirror image reverses
        const Made n = touching(f.point(p1), f.point(p2), f.point(p), f.direction(d));
        EXPECT_EQ(n.count, 2);
        for (const int k : {0, 1}) {
            const Segment& image = n.s[f.sense == 1 ? k : 1 - k];
            expect_near(center_of(image), f.point(center_of(m.s[k])), 1e-9 * image.radius);
            EXPECT_NEAR(image.radius / (f.scale * m.s[k].radius), 1, 1e-9);
        }
    }
    const struct {
        Pair p1, p2;
        int count;
        Pair center;
    } cases[] = {{{-1, 1}, {1, 1}, 1, {0, 1}}, {{1, -1}, {-1, -1}, 1, {0, -1}},  // parallel
                 {{0, 0}, {3, 1}, 1, {0, 5}},  {{3, 1}, {0, 9e-7}, 1, {0, 5}},   // one on the line
                 {{0, 0}, {3, 0}, 0, {0, 0}},  {{0, 1}, {0, 2}, 2, {std::sqrt(2), 1.5}}};
    for (const auto& at : cases) {
        const Made m = touching(at.p1, at.p2, {7, 0}, {-1e-9, 0});
        EXPECT_EQ(m.count, at.count) << at.p1[0];
        const bool upwards = at.p2[0] == 0 && at.p1[0] == 0;
        expect_near(center_of(m.s[upwards ? 1 : 0]), at.center, 1e-5);
    }
    // One point barely on the line and the other barely off it: within the tolerance all the same.
    const Made low = touching({0, 9.9e-7}, {1, 1.1e-6}, {0, 0}, {1, 0});
    EXPECT_EQ(low.count, 1);
    EXPECT_LE(gap(low.s[0], {0, 0}, {1, 0}) * low.s[0].radius, 2e-6);
    EXPECT_EQ(touching({0, 1}, {0, 1 + 9e-7}, {0, 0}, {0, 0}).status, 1);
    EXPECT_EQ(touching({0, 1}, {0, 2}, {0, 0}, {0, 9e-11}).status, 2);
}

TEST(ArcSplineConstructions, AlongATangent) {
    Random random;
    for (int i = 0; i < rounds(200); ++i) {
        const Pair p = random.vector<2>(), pt = random.vector<2>();
        const double angle = random.uniform(0, 359);
        const Pair d = moved({}, random.uniform(0.1, 3), direction_at(angle)),
                   way = moved(pt, -1, p);
        const Segment s = touching_at(pt, p, d).s[0];
        const int side = static_cast<int>(sign(dot(left_of(d), way)));
        EXPECT_LT(off(s, pt), 1e-9);
        EXPECT_NEAR(s.start_angle, angle, 1e-9);
        EXPECT_EQ(s.orientation, side);
        EXPECT_EQ(s.end_angle, s.start_angle + side * 360);
        expect_near(evaluated(s, s.start_angle).point, p, 0);
        expect_near(center_of(s), moved(p, side * s.radius, left_of(direction_at(angle))),
                    1e-9 * s.radius);

        const Segment arc = chord(p, d, pt).s[0];
        EXPECT_NEAR(arc.radius / s.radius, 1, 1e-12);
        EXPECT_EQ(arc.start_angle, s.start_angle);
        EXPECT_EQ(arc.orientation, side);
        EXPECT_TRUE(std::fabs(arc.end_angle - arc.start_angle) < 360);
        expect_near(evaluated(arc, arc.end_angle).point, pt, 1e-9 * s.radius);
        const double given = arc.radius + 5e-7;
        EXPECT_EQ(chord(p, d, pt, given).s[0].radius, given);
        EXPECT_EQ(chord(p, d, pt, arc.radius + 2e-6).status, 3);
    }
    expect_equal(touching_at({-2, 9e-7}, {0, 0}, {3, 0}).s[0], made_straight({0, 0}, {-2, 9e-7}),
                 0);
    EXPECT_EQ(touching_at({0, 0}, {9e-7, 0}, {0, 0}).status, 1);
    EXPECT_EQ(touching_at({0, 0}, {1, 0}, {0, 9e-11}).status, 2);
    expect_equal(chord({0, 0}, {3, 0}, {2, 9e-7}).s[0], made_straight({0, 0}, {2, 9e-7}), 0);
    EXPECT_EQ(chord({0, 0}, {3, 0}, {9e-7, 0}).status, 1);
    EXPECT_EQ(chord({0, 0}, {3, 0}, {-2, 9e-7}).status, 2);
}

TEST(ArcSplineConstructions, FromRayToRay) {
    Random random;
    for (int i = 0; i < rounds(200); ++i) {
        const Pair x = random.vector<2>();
        const double from = random.uniform(0, 360);
        const Pair d1 = direction_at(from), d2 = direction_at(from + random.uniform(10, 170));
        const double t1 = random.uniform(-3, 3), t2 = random.uniform(-3, 3);
        const Pair p1 = moved(x, -t1, d1), p2 = moved(x, -t2, d2);
        const Made m = ray_to_ray(p1, moved({}, 2, d1), p2, d2);
        const Segment& s = m.s[0];
        const At start = evaluated(s, s.start_angle), end = evaluated(s, s.end_angle);
        EXPECT_EQ(m.status, 0);
        EXPECT_LT(gap(s, p1, d1), 1e-9);
        EXPECT_LT(gap(s, p2, d2), 1e-9);
        expect_near(start.tangent, d1, 1e-12);
        EXPECT_NEAR(dot(left_of(end.tangent), d2), 0, 1e-9);
        const double less = std::fmin(std::fabs(t1), std::fabs(t2));
        expect_near(start.point, moved(x, -sign(t1) * less, d1), 1e-9);
        expect_near(end.point, moved(x, -sign(t2) * less, d2), 1e-9);
    }
    expect_equal(ray_to_ray({0, 0}, {1, 0}, {3, 2}, {1, 0}).s[0],
                 {1, 1, {0, 0}, 0, 180, {0, 1}, {}, 1, 1});
    EXPECT_EQ(ray_to_ray({0, 0}, {1, 0}, {3, 2}, {0, 1e-8}).status, 1);
    EXPECT_EQ(ray_to_ray({0, 0}, {1, 0}, {3, 0}, {-1, 0}).status, 2);
    ReportRecorder recorder;
    EXPECT_EQ(ray_to_ray({0, 0}, {1, 0}, {0, 3}, {0, 1}).status, 3);
    EXPECT_EQ(recorder.take(),
              Reports{internal(
                  arc_module, "The call to ARC_SPLINE_cre_circle_from_chord_end_data_2d failed.")});
}

}  // namespace
