// Where arcs and straights meet.
#include "ztmath/arc_spline_intersections.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>
#include <vector>

#include "support/plane.h"
#include "support/reports.h"

namespace {

using namespace ztmath_test;
using Segment = ARC_SPLINE_1_seg_2d_t;

constexpr double tols[] = {1.0e-9, 1.0e-7};

/// Counter-clockwise between two tangent angles; the full circle if not told otherwise.
Segment arc(const Pair& center, double r, double from = 90, double to = 450) {
    const Pair start = moved(center, r, direction_at(from - 90));
    return {1, 1, {start[0], start[1]}, from, to, {center[0], center[1]}, {0, 0}, r, r};
}

Segment straight(Pair start, Pair end) {
    Segment s;
    ARC_SPLINE_cre_strt_seg_2d(start.data(), end.data(), end.data(), &s);
    return s;
}

struct Common {
    int count = 77, status = 77;
    Pair points[2] = {{7, 7}, {7, 7}};
    double parms[2][2] = {{7, 7}, {7, 7}};
    int flags[2][2] = {{7, 7}, {7, 7}};
};

Common common(const Segment* a, const Segment* b, int bounded_a = 0, int bounded_b = 0,
              decltype(ARC_SPLINE_inter_of_2_circular_arcs_2d)* intersect =
                  ARC_SPLINE_inter_of_2_circular_arcs_2d) {
    Common c;
    intersect(a, b, bounded_a, bounded_b, tols, &c.count, c.points[0].data(), c.parms[0],
              c.flags[0], c.points[1].data(), c.parms[1], c.flags[1], &c.status);
    return c;
}

Pair at_parm(const Segment& s, double parm) {
    Pair point{}, tangent;
    int status = -1;
    ARC_SPLINE_evaluate_1_seg_2d(&s, 1, parm, point.data(), tangent.data(), &status);
    return point;
}

/// Expects all points that count to be where their parameters say on both segments, and the same
/// result of the segments exchanged.
void expect_on_both(const Segment& a, const Segment& b, const Common& c, double tolerance) {
    EXPECT_EQ(c.status, 0);
    const Common exchanged = common(&b, &a);
    ASSERT_EQ(exchanged.count, c.count);
    for (int i = 0; i < c.count; ++i) {
        expect_near(c.points[i], at_parm(a, c.parms[i][0]), tolerance);
        expect_near(c.points[i], at_parm(b, c.parms[i][1]), tolerance);
        EXPECT_LE(std::min(distance(exchanged.points[0], c.points[i]),
                           distance(exchanged.points[1], c.points[i])),
                  tolerance);
    }
}

/// Half the chord, exact but for one rounding.
double half_chord(const Pair& c1, double r1, const Pair& c2, double r2) {
    const long double x = static_cast<long double>(c2[0]) - c1[0];
    const long double y = static_cast<long double>(c2[1]) - c1[1];
    const long double d = std::sqrt(x * x + y * y);
    const long double sum = static_cast<long double>(r1) + r2;
    const long double difference = static_cast<long double>(r1) - r2;
    const long double squared = (sum - d) * (sum + d) * (d - difference) * (d + difference);
    return static_cast<double>(std::sqrt(std::fmax(squared, 0.0L)) / (2 * d));
}

TEST(Intersections, OfCirclesLieOnBoth) {
    Random random;
    for (int round = 0; round < rounds(5000); ++round) {
        const Pair c1 = random.vector<2>();
        const double r1 = random.uniform(0.5, 3), r2 = r1 * random.uniform(0.5, 2);
        // Close to touching from outside or inside, or nearly concentric, or anything between.
        const double close = std::pow(10, random.uniform(-7, -1));
        const double apart[] = {r1 + r2 - close, std::fabs(r1 - r2) + close, random.uniform(0, 6)};
        const double r = round % 4 == 3 ? r1 * (1 + 0.5 * close) : r2;
        const double d = round % 4 == 3 ? close * r1 : apart[round % 4];
        const Pair c2 = moved(c1, d, direction_at(random.uniform(0, 360)));
        const Segment a = arc(c1, r1), b = arc(c2, r);
        const double half = half_chord(c1, r1, c2, r);
        const Common c = common(&a, &b);
        ASSERT_EQ(c.count, d > r1 + r ? 0 : 2);
        if (half < 1e-6) continue;
        // An error of the radical axis shows along the chord the more, the nearer they touch.
        const double error = 3e-15 * (r1 + r) * (r1 + r) / std::fmin(half, d);
        expect_on_both(a, b, c, error);
        EXPECT_NEAR(distance(c.points[0], c.points[1]), 2 * half, 4 * error * r1 / half);
    }
}

TEST(Intersections, OfArcsAndStraightsLieOnBoth) {
    Random random;
    for (int round = 0; round < rounds(5000); ++round) {
        const Pair center = random.vector<2>(), along = direction_at(random.uniform(0, 360));
        const double r = random.uniform(0.5, 3);
        const double off =
            round % 2 == 0 ? r - std::pow(10, random.uniform(-7, -1)) : random.uniform(0, 4);
        const Pair foot = moved(center, off, left_of(along));
        const Segment a = arc(center, r), b = straight(moved(foot, random.uniform(-9, -5), along),
                                                       moved(foot, random.uniform(5, 9), along));
        const Common c = common(&a, &b);
        ASSERT_EQ(c.count, off > r ? 0 : 2);
        if (c.count == 0) continue;
        const double half = std::sqrt((r - off) * (r + off)), error = 1e-14 * (r + 1 / half);
        expect_on_both(a, b, c, error);
        EXPECT_NEAR(distance(c.points[0], c.points[1]), 2 * half, 4 * error);
        EXPECT_GT(c.parms[1][1], c.parms[0][1]);  // along the straight
    }
}

TEST(Intersections, CountWhatIsInsideBothDomains) {
    const Segment whole = arc({0, 0}, 5), other = arc({6, 0}, 5);
    const Segment upper = arc({0, 0}, 5, 90, 270), lower = arc({0, 0}, 5, 270, 450);
    const Segment right = arc({0, 0}, 5, 0, 180), missed = arc({0, 0}, 5, 180, 200);
    const Segment line = straight({-9, 3}, {9, 3}), half = straight({0, 3}, {9, 3});
    const Segment beyond = straight({7, 3}, {9, 3}), tangent = straight({-9, 5}, {9, 5});
    const Segment far = straight({1, 5}, {9, 5}), level = arc({10, 0}, 5);
    const Segment cross = straight({0, 0}, {3, 3}), short_of_it = straight({0, 0}, {2, 2});
    // The first circle's crossings are (3, -4) and (3, 4), the line's (-4, 3) and (4, 3).
    const struct {
        const Segment *a, *b;
        int count;
        Pair first;
        int flags[2];
    } cases[] = {
        {&whole, &other, 2, {3, -4}, {-1, -1}},   {&lower, &other, 1, {3, -4}, {-1, -1}},
        {&upper, &other, 1, {3, 4}, {-1, -1}},    {&other, &upper, 1, {3, 4}, {-1, -1}},
        {&missed, &other, 0, {0, 0}, {0, 0}},     {&whole, &line, 2, {-4, 3}, {-1, -1}},
        {&right, &line, 1, {4, 3}, {-1, -1}},     {&line, &right, 1, {4, 3}, {-1, -1}},
        {&whole, &half, 1, {4, 3}, {-1, -1}},     {&whole, &beyond, 0, {0, 0}, {0, 0}},
        {&whole, &tangent, 1, {0, 5}, {-1, -1}},  {&whole, &far, 0, {0, 0}, {0, 0}},
        {&whole, &level, 1, {5, 0}, {0, -1}},     {&line, &cross, 1, {3, 3}, {-1, 0}},
        {&line, &short_of_it, 0, {0, 0}, {0, 0}}, {&upper, &level, 1, {5, 0}, {0, -1}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        const Common found = common(c.a, c.b, 1, 1);
        EXPECT_EQ(found.status, 0);
        ASSERT_EQ(found.count, c.count);
        if (c.count == 0) continue;
        expect_near(found.points[0], c.first, 1e-14);
        EXPECT_EQ(std::pair(found.flags[0][0], found.flags[0][1]),
                  std::pair(c.flags[0], c.flags[1]));
    }
    // One bounded segment alone; what is outside stands second with its flag.
    const Common one = common(&other, &lower, 0, 1);
    EXPECT_EQ(one.count, 1);
    EXPECT_EQ(one.flags[0][0], -1);
    EXPECT_EQ(one.flags[1][1], 1);
    expect_near(one.points[1], {3, 4}, 1e-14);
    EXPECT_EQ(common(&other, &lower, 1, 0).count, 2);
    // Where there is one point, it is both.
    expect_near(common(&whole, &tangent).points[1], {0, 5}, 1e-15);
    EXPECT_EQ(common(&whole, &tangent).flags[1][0], -1);
}

TEST(Intersections, ThatAreNone) {
    const ReportRecorder recorder;
    const Segment circle = arc({0, 0}, 5), ring = arc({0, 0}, 3), nested = arc({0.5, 0}, 2);
    const Segment apart = arc({11, 0}, 5), dot = arc({5, 0}, 0.9e-10),
                  bad{7, 0, {}, 0, 0, {}, {}, 0, 0};
    const Segment line = straight({0, 0}, {1, 0}), parallel = straight({0, 1}, {1, 1});
    const Segment nan = arc({NAN, 0}, 5), endless = straight({0, 0}, {HUGE_VAL, 1});
    for (const auto& [a, b, status] : {std::tuple{&circle, &ring, 0},
                                       {&circle, &circle, 0},
                                       {&circle, &apart, 0},
                                       {&circle, &dot, 0},
                                       {&dot, &line, 0},
                                       {&line, &line, 0},
                                       {&line, &parallel, 0},
                                       {&bad, &bad, 1},
                                       {&circle, &bad, 2},
                                       {&circle, static_cast<const Segment*>(nullptr), 2},
                                       {&nan, &circle, 0},
                                       {&endless, &circle, 0},
                                       {&nan, &line, 0}}) {
        const Common c = common(a, b, 1, 1);
        EXPECT_EQ(c.status, status);
        EXPECT_EQ(c.count, 0);
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(c.points[i], Pair{});
            EXPECT_EQ(std::pair(c.flags[i][0], c.flags[i][1]), std::pair(-1, -1));
        }
    }
    const auto with_line = ARC_SPLINE_inter_circular_arc_line_seg_2d;
    EXPECT_EQ(common(&circle, &bad, 0, 0, with_line).status, 1);
    EXPECT_EQ(common(&circle, &line, 0, 0, with_line).count, 2);
    // Circles inside one another cross in two points off them.
    const Common off = common(&circle, &nested);
    EXPECT_EQ(off.count, 2);
    EXPECT_GT(std::hypot(off.points[0][0], off.points[0][1]), 6);
    EXPECT_EQ(recorder.reports(), Reports{});
}

}  // namespace
