// Tangent lines: through a point, common to two circles, at the other end of a chord.
#include "ztmath/arc_spline_tangents.h"

#include "support/segments.h"
#include "support/support.h"

namespace {

using namespace ztmath_test;

enum Kind { from_point, exterior, interior };

/// Tangents as straights from where they touch the first circle.
struct Tangents {
    int count = 77, status = 77;
    Segment lines[2];
    double parms[2][2] = {};
    int flags[2] = {-1, -1};
};

/// Of a circle and another, or the point that is the centre of the other.
Tangents tangents(Kind kind, const Segment* a, const Segment* b, int bounded = 0,
                  int bounded_b = -1) {
    Tangents x;
    Segment* const t = x.lines;
    if (kind != from_point) {
        const auto common = kind == exterior ? ARC_SPLINE_ask_tangents_exterior_to_circles_2d
                                             : ARC_SPLINE_ask_tangents_interior_to_circles_2d;
        called(common, a, b, bounded, bounded_b < 0 ? bounded : bounded_b, tols, &x.count, t, t + 1,
               x.parms[0], x.parms[1], &x.status);
        return x;
    }
    Pair points[2];
    called(ARC_SPLINE_ask_tangents_thru_a_point_2d, a, b->center, bounded, tols, &x.count,
           points[0], points[1], x.parms[0], x.flags, &x.status);
    for (int k = 0; k < 2; ++k)
        t[k] = made_straight(points[k], center_of(*b));
    return x;
}

/// Expects the line to touch the circle at the parameter, `way` along; returns the centre's side.
double expect_touching(const Segment& line, double way, const Segment& s, double parm) {
    const Pair along = direction_of(line), center = center_of(s);
    const double rounding = 6e-15 * (fabs(center[0]) + fabs(center[1]) + s.radius + way);
    const double side = dot(left_of(along), minus(center, start_of(line)));
    EXPECT_NEAR(std::fabs(side), s.radius, rounding);
    expect_near(moved(start_of(line), way, along),
                moved(center, s.orientation * s.radius, direction_at(parm - 90)), 10 * rounding);
    return side;
}

TEST(Tangents, TouchWhatTheyMust) {
    Random random;
    for (int round = 0; round < rounds(9000); ++round) {
        const Kind kind = static_cast<Kind>(round % 3);
        const double from = random.uniform(-300, 300), turn = random.uniform(1, 359);
        const double size = std::exp(random.uniform(-3, 5)), way = random.uniform(0, 7);
        const double small = std::pow(10.0, random.uniform(-7, -1));
        const int sense = random.integer(0, 1) * 2 - 1, place = random.integer(0, 4);
        const Arc a({size * random.normal(), random.normal()}, std::exp(random.uniform(-5, 4)),
                    from, from + sense * turn, sense);
        const double r = place == 1 ? a.radius * (1 + small) : std::exp(random.uniform(-16, 4));
        const double difference = std::fabs(a.radius - r), sum = a.radius + r;
        // Anywhere, nearly touching from outside or inside, far away.
        const double near = (place == 2 ? sum : place == 3 ? difference : size) * (1 + small);
        const double d = place == 4 ? (kind == from_point ? 1e7 : 1e2) * size : near;
        const Pair ahead = {std::cos(way), std::sin(way)};
        const Arc b(moved(center_of(a), d, ahead), r);

        SCOPED_TRACE(round);
        const double seen_inside = std::fmin(a.radius, r) * (d - difference) / difference;
        const double margin = std::array{d - a.radius, seen_inside, d - sum}[kind];
        if (std::fabs(margin) < 1.1e-9 + 1e-15 * (size + d)) continue;
        const Tangents x = tangents(kind, &a, &b), bounded = tangents(kind, &a, &b, 1);
        ASSERT_EQ(x.count, margin > 0 ? 2 : 0);
        const Pair along = moved({}, kind == exterior && r > a.radius ? -1 : 1, ahead);
        int inside = 0;
        for (int k = 0; k < x.count; ++k) {
            const Segment& t = x.lines[k];
            const double side = expect_touching(t, 0, a, x.parms[0][k]);
            if (kind != from_point) {
                const double other = expect_touching(t, t.radius, b, x.parms[1][k]);
                EXPECT_EQ((side > 0) == (other > 0), kind == exterior);
                EXPECT_EQ(dot(left_of(along), minus(start_of(t), center_of(a))) > 0, k == 0);
            }
            EXPECT_TRUE(kind != from_point || (bounded.flags[k] == 1) == (k >= bounded.count));
            const bool touches_arc =
                std::fmod(sense * (x.parms[0][k] - from) + 1080.0, 360.0) <= turn;
            EXPECT_TRUE(!touches_arc || bounded.parms[0][inside++] == x.parms[0][k]);
        }
        EXPECT_EQ(bounded.count, inside);
        const bool in_order = sense * (x.parms[0][1] - x.parms[0][0]) >= 0;
        EXPECT_TRUE(in_order || kind != from_point) << "the order of travel";
        ASSERT_FALSE(HasFailure());
    }
}

TEST(Tangents, CountAndFail) {
    const Arc big({0, 0}, 2), small({3, 0}, 1), equal({6, 0}, 2), tiny({0, 0}, 2e-10),
        null({0, 0}, 5e-11), huge({0, 0}, 1000), near({999 + 5e-8, 0}, 1),
        still({0, 0}, 0.25, 90, 450, 0);
    // The status, how many, and the height at which the first touches.
    const std::tuple<Kind, Segment, Segment, int, int, double> rows[] = {
        {from_point, Arc({0, 0}, 2, -90, 90), Arc({0, 2}, 1), 0, 0, 2},
        {from_point, {}, equal, 0, 0, 0},
        {from_point, null, null, 2, 0, 0},
        {from_point, tiny, Arc({1.5e-9, 0}, 1), 3, 0, 0},
        {from_point, null, equal, 4, 0, 0},
        {from_point, still, Arc({0.75, 0}, 1), 0, 2, std::sqrt(1.0 / 18)},
        {from_point, still, Arc({0.375, 0}, 1), 0, 2, -std::sqrt(5.0 / 144)},
        {exterior, big, equal, 0, 2, 2},
        {exterior, equal, big, 0, 2, -2},
        {exterior, big, Arc({0.9e-9, 0}, 2), 0, 0, 0},
        {exterior, big, Arc({1.1e-9, 0}, 2), 0, 2, 2},
        {exterior, huge, near, 5, 0, 0},
        {exterior, near, huge, 4, 0, 0},
        {exterior, tiny, big, 1, 0, 0},
        {exterior, Arc({0, 0}, 5e-8), big, 0, 0, 0},
        {interior, big, Arc({3, 0}, 2e-9), 0, 2, std::sqrt(20.0 / 9.0)},
        {exterior, big, Arc({5, 0}, 1, -90, 90), 0, 1, -std::sqrt(3.84)},
        {interior, big, Arc({5, 0}, 1, 90, 270), 0, 1, -1.6},
        {interior, big, tiny, 2, 0, 0},
        {interior, small, big, 0, 1, 0},
    };
    for (const auto& [kind, a, b, status, count, y] : rows) {
        SCOPED_TRACE(testing::Message() << kind << ' ' << status << ' ' << y);
        const Tangents x = tangents(kind, &a, &b, 1);
        EXPECT_EQ(x.status, status);
        EXPECT_EQ(x.count, count);
        EXPECT_TRUE(x.status == 0 || x.flags[0] == -1);
        EXPECT_TRUE((x.status == 0 && x.count != 1) || x.flags[1] == -1);
        EXPECT_NEAR(x.lines[0].start_point[1], y, 1.0e-8);
        EXPECT_EQ(tangents(kind, nullptr, &b).status, 1);
    }
    const Arc half({5, 0}, 1, -90, 90);
    EXPECT_EQ(tangents(exterior, &big, &half, 1, 0).count, 2);
    EXPECT_EQ(tangents(exterior, &big, &half, 0, 1).count, 1);
    EXPECT_EQ(tangents(exterior, &half, &big, 1, 0).count, 1);
    const Arc speck({0, 0}, 1e-6), far({10, 0}, 5);  // seen from the smaller one
    const Segment sharp = tangents(exterior, &speck, &far).lines[0];
    EXPECT_NEAR(dot(start_of(sharp), direction_of(sharp)), 0, 1e-20);
    const Arc loose({3 + 8e-10, 0}, 1);
    const Segment touch = tangents(interior, &loose, &big).lines[0];
    EXPECT_NEAR(touch.start_point[0], 2 + 4e-10, 1e-13) << "amid the gap";
    EXPECT_DOUBLE_EQ(touch.direction[1], -1) << "the left of the way to the second";
}

/// What is as far apart as the tolerance counts as one.
TEST(Tangents, TakeTheToleranceItselfForNothing) {
    const Kept kept(tols, {0.25, 1e-7});
    const Arc big({0, 0}, 2), touching({3, 0}, 1), on({2, 0}, 1);
    // The radius of the second, and how far it stands beside a circle of radius 2.
    const std::tuple<Kind, double, double, int, int> rows[] = {
        {from_point, 1, 2.25, 0, 1}, {exterior, 2, 0.25, 0, 2}, {exterior, 1, 0.75, 4, 0},
        {exterior, 1.75, 5, 0, 2},   {interior, 1, 3.25, 0, 1}, {interior, 1, 2.75, 0, 1}};
    for (const auto& [kind, r, way, status, count] : rows) {
        const Arc other({way, 0}, r);
        const Tangents x = tangents(kind, &big, &other);
        EXPECT_EQ(std::pair(x.status, x.count), std::pair(status, count)) << kind << ' ' << way;
        EXPECT_EQ(x.flags[1], -1);
        EXPECT_TRUE(way < 5 || x.lines[0].start_point[1] == 2) << "as of equal circles";
    }
    tols = {-1, 1e-7};  // which makes no circle of Thales
    EXPECT_EQ(tangents(from_point, &big, &touching).status, 3);
    EXPECT_EQ(tangents(from_point, &big, &on).status, 0);
    EXPECT_EQ(tangents(interior, &big, &touching).count, 0);
    tols = {1e-12, 1e-7};  // the circle of Thales is too small to cross another
    const Arc speck({0, 0}, 1e-10), next({1.5e-10, 0}, 1);
    EXPECT_EQ(tangents(from_point, &speck, &next).status, 4);
}

TEST(TangentAtOtherEnd, MakesTheSameAngleWithTheChord) {
    Random random;
    ReportRecorder recorder;
    int status;
    const Pair origin = {};
    const auto other_end = [&](const Pair& along, const Pair& end, const Pair& start = {}) {
        Pair t;
        called(ARC_SPLINE_compute_tangent_at_other_end_of_chord_2d, start, along, end, tols, t,
               &status);
        return t;
    };
    for (int round = 0; round < rounds(1000); ++round) {
        const Pair end = random.vector<2>(), along = random.vector<2>();
        const Pair start = random.vector<2>(), t = other_end(along, moved(start, 1, end), start);
        ASSERT_NEAR(dot(left_of(end), t), -dot(left_of(end), along), 1e-13);
        ASSERT_NEAR(dot(end, t), dot(end, along), 1e-13);
    }
    for (const double end : {-4.0, 1.1e-9})
        EXPECT_EQ(other_end({0, 3}, {0, end}), (Pair{0, 3})) << "the chord along it";
    for (const Pair& t : {other_end({0, 3}, {0, 1e-9}), other_end({0, 1e-11}, {0, -4})})
        EXPECT_TRUE(t == origin && status == 1);
    EXPECT_TRUE(other_end({HUGE_VAL, 0}, {0, -4}) == origin && status == 1);
    const Report report =
        internal(arc_module,
                 "The call to ARC_SPLINE_cre_circle_thru_pt_and_tangent_to_line_at_pt_2d failed.");
    EXPECT_EQ(recorder.take(), Reports(3, report));
}

}  // namespace
