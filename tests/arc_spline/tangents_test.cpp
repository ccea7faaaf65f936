// Tangent lines: through a point, common to two circles, at the other end of a chord.
#include "ztmath/arc_spline_tangents.h"

#include "support/reports.h"
#include "support/segments.h"

namespace {

using namespace ztmath_test;

constexpr double fine[] = {1.0e-9, 1.0e-7};
constexpr double quarter[] = {0.25, 1.0e-7};
const double* tols = fine;

/// An arc between two tangent angles.
Segment arc(double x, double y, double r, int orientation = 1, double from = 90, double to = 450) {
    return {1, orientation, {x + r, y}, from, to, {x, y}, {0, 0}, r, r};
}

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
        common(a, b, bounded, bounded_b < 0 ? bounded : bounded_b, tols, &x.count, t, t + 1,
               x.parms[0], x.parms[1], &x.status);
        return x;
    }
    Pair points[2];
    ARC_SPLINE_ask_tangents_thru_a_point_2d(a, b->center, bounded, tols, &x.count, points[0].data(),
                                            points[1].data(), x.parms[0], x.flags, &x.status);
    for (int k = 0; k < 2; ++k)
        t[k] = made_straight(points[k], center_of(*b));
    return x;
}

/// How far a point is to the left of the line through another along a unit direction.
double side_of(const double* p, const Pair& along, const double* point) {
    return dot(left_of(along), moved({point[0], point[1]}, -1, {p[0], p[1]}));
}

/// Expects the line to touch the circle at the parameter, `way` along; returns the centre's side.
double expect_touching(const Segment& line, double way, const Segment& s, double parm) {
    const Pair along = {line.direction[0], line.direction[1]}, center = center_of(s);
    const double rounding = 6e-15 * (fabs(center[0]) + fabs(center[1]) + s.radius + way);
    const double side = side_of(line.start_point, along, s.center);
    EXPECT_NEAR(std::fabs(side), s.radius, rounding);
    expect_near(moved({line.start_point[0], line.start_point[1]}, way, along),
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
        const Segment a = arc(size * random.normal(), random.normal(),
                              std::exp(random.uniform(-5, 4)), sense, from, from + sense * turn);
        const double r = place == 1 ? a.radius * (1 + small) : std::exp(random.uniform(-16, 4));
        const double difference = std::fabs(a.radius - r), sum = a.radius + r;
        // Anywhere, nearly touching from outside or inside, far away.
        const double near = (place == 2 ? sum : place == 3 ? difference : size) * (1 + small);
        const double d = place == 4 ? (kind == from_point ? 1e7 : 1e2) * size : near;
        const Segment b = arc(a.center[0] + d * cos(way), a.center[1] + d * sin(way), r);

        SCOPED_TRACE(round);
        const double seen_inside = std::fmin(a.radius, r) * (d - difference) / difference;
        const double margin = std::array{d - a.radius, seen_inside, d - sum}[kind];
        if (std::fabs(margin) < 1.1e-9 + 1e-15 * (size + d)) continue;
        const Tangents x = tangents(kind, &a, &b), bounded = tangents(kind, &a, &b, 1);
        ASSERT_EQ(x.count, margin > 0 ? 2 : 0);
        const double forward = kind == exterior && r > a.radius ? -1 : 1;
        const Pair along = {forward * std::cos(way), forward * std::sin(way)};
        int inside = 0;
        for (int k = 0; k < x.count; ++k) {
            const double side = expect_touching(x.lines[k], 0, a, x.parms[0][k]);
            if (kind != from_point) {
                const double length = x.lines[k].radius;
                const double other = expect_touching(x.lines[k], length, b, x.parms[1][k]);
                EXPECT_EQ((side > 0) == (other > 0), kind == exterior);
                EXPECT_EQ(side_of(a.center, along, x.lines[k].start_point) > 0, k == 0);
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
    const Segment big = arc(0, 0, 2), small = arc(3, 0, 1), equal = arc(6, 0, 2);
    const Segment tiny = arc(0, 0, 2e-10), null = arc(0, 0, 5e-11);
    const Segment huge = arc(0, 0, 1000), near = arc(999 + 5e-8, 0, 1);
    const struct {
        Kind kind;
        Segment a, b;
        int status, count;
        double y;  // of where the first touches
    } rows[] = {
        {from_point, arc(0, 0, 2, 1, -90, 90), arc(0, 2, 1), 0, 0, 2},
        {from_point, {}, equal, 0, 0, 0},
        {from_point, null, null, 2, 0, 0},
        {from_point, tiny, arc(1.5e-9, 0, 1), 3, 0, 0},
        {from_point, null, equal, 4, 0, 0},
        {from_point, arc(0, 0, 0.25, 0), arc(0.75, 0, 1), 0, 2, std::sqrt(1.0 / 18)},
        {from_point, arc(0, 0, 0.25, 0), arc(0.375, 0, 1), 0, 2, -std::sqrt(5.0 / 144)},
        {exterior, big, equal, 0, 2, 2},
        {exterior, equal, big, 0, 2, -2},
        {exterior, big, arc(0.9e-9, 0, 2), 0, 0, 0},
        {exterior, big, arc(1.1e-9, 0, 2), 0, 2, 2},
        {exterior, huge, near, 5, 0, 0},
        {exterior, near, huge, 4, 0, 0},
        {exterior, tiny, big, 1, 0, 0},
        {exterior, arc(0, 0, 5e-8), big, 0, 0, 0},
        {interior, big, arc(3, 0, 2e-9), 0, 2, std::sqrt(20.0 / 9.0)},
        {exterior, big, arc(5, 0, 1, 1, -90, 90), 0, 1, -std::sqrt(3.84)},
        {interior, big, arc(5, 0, 1, 1, 90, 270), 0, 1, -1.6},
        {interior, big, tiny, 2, 0, 0},
        {interior, small, big, 0, 1, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        const Tangents x = tangents(row.kind, &row.a, &row.b, 1);
        EXPECT_EQ(x.status, row.status);
        EXPECT_EQ(x.count, row.count);
        EXPECT_TRUE(x.status == 0 || x.flags[0] == -1);
        EXPECT_TRUE((x.status == 0 && x.count != 1) || x.flags[1] == -1);
        EXPECT_NEAR(x.lines[0].start_point[1], row.y, 1.0e-8);
        EXPECT_EQ(tangents(row.kind, nullptr, &row.b).status, 1);
    }
    const Segment half = arc(5, 0, 1, 1, -90, 90);
    EXPECT_EQ(tangents(exterior, &big, &half, 1, 0).count, 2);
    EXPECT_EQ(tangents(exterior, &big, &half, 0, 1).count, 1);
    EXPECT_EQ(tangents(exterior, &half, &big, 1, 0).count, 1);
    const Segment speck = arc(0, 0, 1e-6), far = arc(10, 0, 5);  // seen from the smaller one
    const Segment sharp = tangents(exterior, &speck, &far).lines[0];
    const Pair touched{sharp.start_point[0], sharp.start_point[1]};
    EXPECT_NEAR(dot(touched, {sharp.direction[0], sharp.direction[1]}), 0, 1e-20);
    const Segment loose = arc(3 + 8e-10, 0, 1);
    const Segment touch = tangents(interior, &loose, &big).lines[0];
    EXPECT_NEAR(touch.start_point[0], 2 + 4e-10, 1e-13) << "amid the gap";
    EXPECT_DOUBLE_EQ(touch.direction[1], -1) << "the left of the way to the second";
}

/// What is as far apart as the tolerance counts as one.
TEST(Tangents, TakeTheToleranceItselfForNothing) {
    tols = quarter;
    const struct {
        Kind kind;
        double r, x;  // of the second, beside a circle of radius 2
        int status, count;
    } rows[] = {{from_point, 1, 2.25, 0, 1}, {exterior, 2, 0.25, 0, 2}, {exterior, 1, 0.75, 4, 0},
                {exterior, 1.75, 5, 0, 2},   {interior, 1, 3.25, 0, 1}, {interior, 1, 2.75, 0, 1}};
    for (const auto& row : rows) {
        const Segment big = arc(0, 0, 2), other = arc(row.x, 0, row.r);
        const Tangents x = tangents(row.kind, &big, &other);
        EXPECT_TRUE(x.status == row.status && x.count == row.count) << &row - rows;
        EXPECT_EQ(x.flags[1], -1);
        EXPECT_TRUE(row.x < 5 || x.lines[0].start_point[1] == 2) << "as of equal circles";
    }
    const double negative[] = {-1, 1e-7};  // which makes no circle of Thales
    const Segment big = arc(0, 0, 2), beside = arc(3, 0, 1), on = arc(2, 0, 1);
    tols = negative;
    EXPECT_EQ(tangents(from_point, &big, &beside).status, 3);
    EXPECT_EQ(tangents(from_point, &big, &on).status, 0);
    EXPECT_EQ(tangents(interior, &big, &beside).count, 0);
    const double hair[] = {1e-12, 1e-7};  // the circle of Thales is too small to cross another
    const Segment speck = arc(0, 0, 1e-10), next = arc(1.5e-10, 0, 1);
    tols = hair;
    EXPECT_EQ(tangents(from_point, &speck, &next).status, 4);
    tols = fine;
}

TEST(TangentAtOtherEnd, MakesTheSameAngleWithTheChord) {
    Random random;
    ReportRecorder recorder;
    int status;
    const Pair origin = {};
    const auto other_end = [&](const Pair& along, const Pair& end, const Pair& start = {}) {
        Pair t;
        ARC_SPLINE_compute_tangent_at_other_end_of_chord_2d(start.data(), along.data(), end.data(),
                                                            tols, t.data(), &status);
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
