// Where arcs and straights meet.
#include "ztmath/arc_spline_intersections.h"

#include "support/segments.h"

namespace {

using namespace ztmath_test;

struct Common {
    int count = 77, status = 77;
    Pair points[2] = {{7, 7}, {7, 7}}, parms[2] = {{7, 7}, {7, 7}};
    std::array<int, 2> flags[2] = {{7, 7}, {7, 7}};
};

Common common(const Segment* a, const Segment* b, int bounded_a = 0, int bounded_b = 0,
              decltype(ARC_SPLINE_inter_of_2_circular_arcs_2d)* intersect =
                  ARC_SPLINE_inter_of_2_circular_arcs_2d) {
    Common c;
    called(intersect, a, b, bounded_a, bounded_b, tols, &c.count, c.points[0], c.parms[0],
           c.flags[0], c.points[1], c.parms[1], c.flags[1], &c.status);
    return c;
}

/// Expects two points in common, which half the chord tells apart, inside of what has no bounds.
void expect_crossing(const Segment& a, const Segment& b, double half_squared) {
    constexpr double rounding = 2e-14;
    const Common found = common(&a, &b);
    EXPECT_EQ(found.status, 0);
    ASSERT_EQ(found.count, 2);
    const double apart = distance(found.points[0], found.points[1]);
    EXPECT_NEAR(apart * apart / 4, half_squared, 4 * rounding);
    for (int i = 0; i < 2; ++i) {
        expect_near(found.points[i], evaluated(a, found.parms[i][0], 1).point, rounding);
        expect_near(found.points[i], evaluated(b, found.parms[i][1], 1).point, rounding);
        EXPECT_EQ(found.flags[i], (std::array{-1, -1}));
    }
}

/// The square of half the chord of two circles, exact but for one rounding.
double half_squared(const Segment& a, const Segment& b) {
    const long double x = a.center[0], y = a.center[1], r = a.radius;
    const long double d = std::hypot(b.center[0] - x, b.center[1] - y);
    const long double foot = (d + (r - b.radius) * (r + b.radius) / d) / 2;
    return static_cast<double>((r - foot) * (r + foot));
}

TEST(Intersections, LieOnBoth) {
    Random random;
    for (int round = 0; round < rounds(6000); ++round) {
        SCOPED_TRACE(round);
        const Pair c1 = random.vector<2>(), way = direction_at(random.uniform(0, 360));
        const double r1 = random.uniform(0.5, 3), r2 = r1 * random.uniform(0.5, 0.99);
        const double close = std::pow(10, random.uniform(-12, -1)), near = std::fmax(close, 1e-8);
        const Arc a(c1, r1);
        // Close to touching from outside or inside, nearly concentric, anything between; straights.
        const int kind = round % 6;
        const double apart[] = {r1 + r2 - close, r1 - r2 + close, near * r1,
                                random.uniform(r1 - r2, r1 + r2)};
        const double d = kind == 4 ? r1 - 2e-9 - close : random.uniform(0, r1 - 0.01);
        const Pair foot = moved(c1, d, left_of(way));
        const Segment b =
            kind < 4 ? Arc(moved(c1, apart[kind], way), kind == 2 ? r1 * (1 + 0.5 * near) : r2)
                     : made_straight(moved(foot, random.uniform(-9, -5), way), moved(foot, 5, way));
        const double half = kind < 4 ? half_squared(a, b) : (r1 - d) * (r1 + d);
        expect_crossing(a, b, half);
        expect_crossing(b, a, half);
    }
}

TEST(Intersections, CountWhatIsInsideBothDomains) {
    const Arc whole({0, 0}, 5), other({6, 0}, 5), level({10, 0}, 5), upper({0, 0}, 5, 90, 270),
        lower({0, 0}, 5, 270, 450), missed({0, 0}, 5, 180, 200), right({0, 0}, 5, 0, 180);
    const Segment line = made_straight({-9, 3}, {9, 3}), half = made_straight({0, 3}, {4, 3});
    const Segment early = made_straight({0, 3}, {4 - 1e-8, 3}), far = made_straight({1, 5}, {9, 5});
    const double brim = 5 + 9e-10;
    const Segment edge = made_straight({-9, brim}, {9, brim}),
                  cross = made_straight({0, 0}, {3, 3});
    // The first circle's crossings are (3, -4) and (3, 4), the line's (-4, 3) and (4, 3).
    const std::tuple<const Segment*, const Segment*, int, Pair, std::array<int, 2>> cases[] = {
        {&whole, &other, 2, {3, -4}, {-1, -1}}, {&lower, &other, 1, {3, -4}, {-1, -1}},
        {&other, &upper, 1, {3, 4}, {-1, -1}},  {&missed, &other, 0, {3, -4}, {1, -1}},
        {&whole, &line, 2, {-4, 3}, {-1, -1}},  {&right, &line, 1, {4, 3}, {-1, -1}},
        {&half, &whole, 1, {4, 3}, {0, -1}},    {&whole, &early, 0, {-4, 3}, {-1, 1}},
        {&whole, &far, 0, {0, 5}, {-1, 1}},     {&whole, &edge, 1, {0, brim}, {-1, -1}},
        {&line, &cross, 1, {3, 3}, {-1, 0}},    {&upper, &level, 1, {5, 0}, {0, -1}},
    };
    for (const auto& [a, b, count, first, flags] : cases) {
        const Common found = common(a, b, 1, 1);
        EXPECT_EQ(found.count, count);
        expect_near(found.points[0], first, 1e-14);
        EXPECT_EQ(found.flags[0], flags);
    }
    // One bounded segment alone; what is outside stands second with its flag.
    EXPECT_EQ(common(&half, &whole, 0, 1).count, 2);
    const Common one = common(&other, &lower, 0, 1);
    EXPECT_EQ(one.flags[1][1], 1);
    expect_near(one.points[1], {3, 4}, 1e-14);
    EXPECT_EQ(common(&missed, &half, 0, 1, ARC_SPLINE_inter_circular_arc_line_seg_2d).count, 1);
    // Where segments touch, the point is both; where straights meet, it stands alone.
    EXPECT_EQ(common(&line, &cross).points[1], Pair{});
    expect_near(common(&whole, &edge).points[1], {0, brim}, 1e-15);
}

TEST(Intersections, TakeTheToleranceItselfForTouching) {
    const Arc circle({0, 0}, 1);
    for (const auto& [tol, y, count] :
         {std::tuple{0.25, 0.75, 1}, {0.25, 1.25, 1}, {-1.0, 1.0, 2}}) {
        const Kept kept(tols, {tol, 1e-7});
        const Segment line = made_straight({-9, y}, {9, y});
        EXPECT_EQ(common(&circle, &line).count, count) << y;
    }
}

TEST(Intersections, ThatAreNone) {
    const Arc circle({0, 0}, 5), ring({0, 0}, 3), apart({11, 0}, 5), dot({5, 0}, 0.9e-10),
        small({2, 0}, 5e-10), huge({0, 0}, 1e200);
    const Segment bad{7, 0, {}, 0, 0, {}, {}, 0, 0}, aimless{0, 0, {}, 0, 0, {}, {}, 1, 1};
    const Segment line = made_straight({0, 0}, {9, 0}), parallel = made_straight({0, 1}, {1, 1});
    // Where numbers are coarse, points fall on centres, and have no parameter there.
    const Arc row[] = {{{1e17, 0}, 8}, {{1e17 + 16, 0}, 8}, {{1e17 + 32, 0}, 8}};
    const Arc left({0x1p57, 0}, 12), above({0x1p57, 1.5e-10}, 12), below({0x1p57, -1.5e-10}, 12),
        rim({5, 0}, 0x5p-33);
    // One end of its chord is beyond all numbers.
    const Segment afar = Arc({1.5e308, 1}, 2), wide{0, 0, {1.5e308, 0}, 0, 0, {}, {1e308, 0}, 1, 1};
    using Couples = std::vector<std::array<const Segment*, 2>>;
    const std::pair<int, Couples> cases[] = {
        {0, {{&circle, &ring}, {&circle, &circle}, {&circle, &apart}, {&circle, &dot}}},
        {0, {{&dot, &line}, {&line, &line}, {&line, &parallel}, {&huge, &apart}, {&afar, &wide}}},
        {1, {{&bad, &bad}, {&aimless, &circle}}},
        {2, {{&circle, &bad}, {&circle, nullptr}}},
        {3, {{&small, &line}, {&line, &small}, {&row[0], &row[1]}}},
        {4, {{&row[1], &row[2]}}},
        {7, {{&left, &above}}},
        {8, {{&circle, &rim}}},
        {9, {{&left, &below}}},
    };
    for (const auto& [status, couples] : cases)
        for (const auto& [a, b] : couples) {
            const Common c = common(a, b);
            EXPECT_EQ(c.status, status);
            EXPECT_EQ(c.count, 0);
            EXPECT_EQ(c.flags[1][1], -1);
        }
    EXPECT_EQ(common(&circle, &bad, 0, 0, ARC_SPLINE_inter_circular_arc_line_seg_2d).status, 1);
}

TEST(Intersections, StayAsTheyAre) {
    const Arc circle({0, 0}, 5), nested({0.5, 0}, 2), beside({8, 0}, 3);
    // Circles inside one another cross off both, touching ones twice in one point.
    EXPECT_GT(common(&circle, &nested).points[1][1], 20);
    EXPECT_EQ(common(&circle, &beside).points[1], (Pair{5, 0}));
    // Close to the foot, the start of a straight takes its place.
    const Segment line = made_straight({5e-10, 3}, {9, 3}), other = made_straight({0, 3}, {0, 9});
    EXPECT_NEAR(common(&circle, &line).points[1][0] - 4, 5e-10, 1e-14);
    EXPECT_EQ(common(&line, &other).points[0], (Pair{2.5e-10, 3}));
    // A straight without a length still has its line.
    const Segment point{0, 0, {1, 3}, 0, 0, {1, 3}, {1, 0}, 0, 0};
    expect_near(common(&circle, &point).points[1], {4, 3}, 1e-15);
}

}  // namespace
