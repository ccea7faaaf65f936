// Tangent lines: through a point, common to two circles, at the other end of a chord.
#include "ztmath/arc_spline_tangents.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/random.h"
#include "support/reports.h"

namespace {

using namespace ztmath_test;
using Segment = ARC_SPLINE_1_seg_2d_t;
using Point = std::array<double, 2>;

constexpr double tols[] = {1.0e-9, 1.0e-7};

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
Tangents tangents(Kind kind, const Segment* a, const Segment* b, int bounded = 0) {
    Tangents x;
    Segment* const t = x.lines;
    if (kind != from_point) {
        const auto common = kind == exterior ? ARC_SPLINE_ask_tangents_exterior_to_circles_2d
                                             : ARC_SPLINE_ask_tangents_interior_to_circles_2d;
        common(a, b, bounded, bounded, tols, &x.count, t, t + 1, x.parms[0], x.parms[1], &x.status);
        return x;
    }
    Point points[2], end = {b->center[0], b->center[1]};
    ARC_SPLINE_ask_tangents_thru_a_point_2d(a, b->center, bounded, tols, &x.count, points[0].data(),
                                            points[1].data(), x.parms[0], x.flags, &x.status);
    for (int k = 0; k < 2; ++k)
        ARC_SPLINE_cre_strt_seg_2d(points[k].data(), end.data(), end.data(), &t[k]);
    return x;
}

/// How far a point is to the left of the line through another along a direction.
double left_of(const double* p, const double* along, const double* point) {
    const long double x = point[0] - static_cast<long double>(p[0]);
    const long double y = point[1] - static_cast<long double>(p[1]);
    return static_cast<double>((along[0] * y - along[1] * x) / hypotl(along[0], along[1]));
}

/// Expects the line to touch the circle at the parameter, `way` along; returns the centre's side.
double expect_touching(const Segment& line, double way, const Segment& s, double parm) {
    const double r = s.orientation * s.radius, angle = parm * 0.01745329251994328;
    const double rounding = 6e-15 * (fabs(s.center[0]) + fabs(s.center[1]) + s.radius + way);
    const double side = left_of(line.start_point, line.direction, s.center);
    EXPECT_NEAR(std::fabs(side), s.radius, rounding);
    for (int i = 0; i < 2; ++i)
        EXPECT_NEAR(s.center[i] + r * (i == 0 ? std::sin(angle) : -std::cos(angle)),
                    line.start_point[i] + way * line.direction[i], 10 * rounding);
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
        const double margin = kind == from_point ? d - a.radius
                              : kind == exterior ? seen_inside
                                                 : d - sum;
        if (std::fabs(margin) < 1.1e-9 + 1e-15 * (size + d)) continue;
        const Tangents x = tangents(kind, &a, &b), bounded = tangents(kind, &a, &b, 1);
        ASSERT_EQ(x.count, margin > 0 ? 2 : 0);
        ASSERT_EQ(x.status, 0);
        const double forward = kind == exterior && r > a.radius ? -1 : 1;
        const double along[] = {forward * std::cos(way), forward * std::sin(way)};
        int inside = 0;
        for (int k = 0; k < x.count; ++k) {
            const double side = expect_touching(x.lines[k], 0, a, x.parms[0][k]);
            if (kind != from_point) {
                const double length = x.lines[k].radius;
                const double other = expect_touching(x.lines[k], length, b, x.parms[1][k]);
                EXPECT_EQ((side > 0) == (other > 0), kind == exterior);
                EXPECT_EQ(left_of(a.center, along, x.lines[k].start_point) > 0, k == 0);
            }
            EXPECT_EQ(x.flags[k], -1);
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
    const Segment big = arc(0, 0, 2), equal = arc(6, 0, 2), beside = arc(3, 0, 1);
    const Segment touching = arc(1 - 0.4e-9, 0, 1), on = arc(0, 2 + 0.9e-9, 1);
    const Segment huge = arc(0, 0, 1000), near = arc(999 + 5e-8, 0, 1),
                  lower = arc(0, 0, 2, 1, -90, 90);
    const Segment left = arc(5, 0, 1, 1, 90, 270), right = arc(5, 0, 1, 1, -90, 90);
    const Segment tiny = arc(0, 0, 2e-10), null = arc(0, 0, 5e-11), two_tols = arc(1.5e-9, 0, 1);
    Segment straight = big, none = big;
    straight.type = 0;
    none.type = -1;
    const double root = std::sqrt(3.84);
    const struct {
        Kind kind;
        const Segment *a, *b;
        int bounded, status, count;
        double y;  // of where the first touches
    } rows[] = {
        {from_point, &big, &on, 0, 0, 1, 2},         {from_point, &lower, &on, 1, 0, 0, 2},
        {from_point, &straight, &equal, 0, 0, 0, 0}, {from_point, nullptr, &big, 0, 1, 0, 0},
        {from_point, &none, &equal, 0, 1, 0, 0},     {from_point, &null, &null, 0, 2, 0, 0},
        {from_point, &tiny, &two_tols, 0, 3, 0, 0},  {from_point, &null, &equal, 0, 4, 0, 0},
        {exterior, &big, &equal, 0, 0, 2, 2},        {exterior, &equal, &big, 0, 0, 2, -2},
        {exterior, &big, &big, 0, 0, 0, 0},          {exterior, &big, &touching, 0, 4, 0, 0},
        {exterior, &huge, &near, 0, 5, 0, 0},        {exterior, &near, &huge, 0, 4, 0, 0},
        {exterior, &tiny, &big, 0, 1, 0, 0},         {exterior, &big, nullptr, 0, 2, 0, 0},
        {interior, &big, &tiny, 0, 2, 0, 0},         {interior, &big, &beside, 0, 0, 1, 0},
        {exterior, &big, &left, 1, 0, 1, root},      {exterior, &big, &right, 1, 0, 1, -root},
        {interior, &big, &left, 1, 0, 1, -1.6},      {interior, &big, &right, 1, 0, 1, 1.6},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        const Tangents x = tangents(row.kind, row.a, row.b, row.bounded);
        EXPECT_EQ(x.status, row.status);
        EXPECT_EQ(x.count, row.count);
        EXPECT_NEAR(x.lines[0].start_point[1], row.y, 1.0e-8);
    }
    const Segment touch = tangents(interior, &beside, &big).lines[0];
    EXPECT_EQ(touch.radius, 0);
    EXPECT_EQ(touch.direction[1], -1) << "the left of the way to the second";
}

TEST(TangentAtOtherEnd, MakesTheSameAngleWithTheChord) {
    Random random;
    ReportRecorder recorder;
    int status;
    double t[2];
    const double origin[2] = {}, steep[] = {0, 3}, near[] = {0, 1e-9}, below[] = {0, -4};
    for (int round = 0; round < rounds(1000); ++round) {
        const Point end = random.vector<2>(), along = random.vector<2>();
        ARC_SPLINE_compute_tangent_at_other_end_of_chord_2d(origin, along.data(), end.data(), tols,
                                                            t, &status);
        ASSERT_NEAR(left_of(origin, end.data(), t), -left_of(origin, end.data(), along.data()),
                    1e-14);
        ASSERT_NEAR(t[0] * end[0] + t[1] * end[1], along[0] * end[0] + along[1] * end[1], 1e-13);
    }
    ARC_SPLINE_compute_tangent_at_other_end_of_chord_2d(origin, steep, below, tols, t, &status);
    EXPECT_EQ(t[1], 3) << "the chord along it";
    for (const auto& [along, end] : {std::pair(steep, near), std::pair(origin, below)}) {
        ARC_SPLINE_compute_tangent_at_other_end_of_chord_2d(origin, along, end, tols, t, &status);
        EXPECT_EQ(status, 1);
        EXPECT_EQ(t[1], 0);
    }
    const Report report =
        internal("arc_spline_apollonian_constructions",
                 "The call to ARC_SPLINE_cre_circle_thru_pt_and_tangent_to_line_at_pt_2d failed.");
    EXPECT_EQ(recorder.take(), (Reports{report, report}));
}

}  // namespace
