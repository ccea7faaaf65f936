// Where arcs and straights meet.
#include "ztmath/arc_spline_intersections.h"

#include "support/segments.h"

namespace {

using namespace ztmath_test;

constexpr double fine[] = {1.0e-9, 1.0e-7};
constexpr double quarter[] = {0.25, 1.0e-7};
constexpr double negative[] = {-1, 1.0e-7};
const double* tols = fine;

/// Counter-clockwise between two tangent angles; the full circle if not told otherwise.
Segment arc(const Pair& center, double r, double from = 90, double to = 450) {
    const Pair start = moved(center, r, direction_at(from - 90));
    return {1, 1, {start[0], start[1]}, from, to, {center[0], center[1]}, {0, 0}, r, r};
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
    return evaluated(s, parm, 1).point;
}

/// Expects two points in common, which half the chord tells apart, inside of what has no bounds.
void expect_crossing(const Segment& a, const Segment& b, double half_squared) {
    constexpr double rounding = 2e-14;
    const Common found = common(&a, &b);
    ASSERT_EQ(found.status, 0);
    ASSERT_EQ(found.count, 2);
    const double apart = distance(found.points[0], found.points[1]);
    EXPECT_NEAR(apart * apart / 4, half_squared, 4 * rounding);
    for (int i = 0; i < 2; ++i) {
        expect_near(found.points[i], at_parm(a, found.parms[i][0]), rounding);
        expect_near(found.points[i], at_parm(b, found.parms[i][1]), rounding);
        EXPECT_TRUE(found.flags[i][0] == -1 && found.flags[i][1] == -1);
    }
}

/// The square of half the chord of two circles, exact but for one rounding.
double half_squared(const Segment& a, const Segment& b) {
    const long double x = b.center[0] - static_cast<long double>(a.center[0]);
    const long double y = b.center[1] - static_cast<long double>(a.center[1]);
    const long double d = std::hypot(x, y), r = a.radius;
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
        const Segment a = arc(c1, r1);
        // Close to touching from outside or inside, nearly concentric, anything between; straights.
        const int kind = round % 6;
        const double apart[] = {r1 + r2 - close, r1 - r2 + close, near * r1,
                                random.uniform(r1 - r2, r1 + r2)};
        const double d = kind == 4 ? r1 - 2e-9 - close : random.uniform(0, r1 - 0.01);
        const Pair foot = moved(c1, d, left_of(way));
        const Segment b =
            kind < 4 ? arc(moved(c1, apart[kind], way), kind == 2 ? r1 * (1 + 0.5 * near) : r2)
                     : made_straight(moved(foot, random.uniform(-9, -5), way), moved(foot, 5, way));
        const double half = kind < 4 ? half_squared(a, b) : (r1 - d) * (r1 + d);
        expect_crossing(a, b, half);
        expect_crossing(b, a, half);
    }
}

TEST(Intersections, CountWhatIsInsideBothDomains) {
    const Segment whole = arc({0, 0}, 5), other = arc({6, 0}, 5), level = arc({10, 0}, 5);
    const Segment upper = arc({0, 0}, 5, 90, 270), lower = arc({0, 0}, 5, 270, 450);
    const Segment missed = arc({0, 0}, 5, 180, 200), right = arc({0, 0}, 5, 0, 180);
    const Segment line = made_straight({-9, 3}, {9, 3}), half = made_straight({0, 3}, {4, 3});
    const Segment early = made_straight({0, 3}, {4 - 1e-8, 3});
    const Segment far = made_straight({1, 5}, {9, 5});
    const double brim = 5 + 9e-10;
    const Segment tangent = made_straight({-9, brim}, {9, brim}),
                  cross = made_straight({0, 0}, {3, 3});
    // The first circle's crossings are (3, -4) and (3, 4), the line's (-4, 3) and (4, 3).
    const std::tuple<const Segment*, const Segment*, int, Pair, Pair> cases[] = {
        {&whole, &other, 2, {3, -4}, {-1, -1}}, {&lower, &other, 1, {3, -4}, {-1, -1}},
        {&other, &upper, 1, {3, 4}, {-1, -1}},  {&missed, &other, 0, {3, -4}, {1, -1}},
        {&whole, &line, 2, {-4, 3}, {-1, -1}},  {&right, &line, 1, {4, 3}, {-1, -1}},
        {&half, &whole, 1, {4, 3}, {0, -1}},    {&whole, &early, 0, {-4, 3}, {-1, 1}},
        {&whole, &far, 0, {0, 5}, {-1, 1}},     {&whole, &tangent, 1, {0, brim}, {-1, -1}},
        {&line, &cross, 1, {3, 3}, {-1, 0}},    {&upper, &level, 1, {5, 0}, {0, -1}},
    };
    for (const auto& [a, b, count, first, flags] : cases) {
        const Common found = common(a, b, 1, 1);
        EXPECT_EQ(found.count, count);
        expect_near(found.points[0], first, 1e-14);
        EXPECT_EQ((Pair{1.0 * found.flags[0][0], 1.0 * found.flags[0][1]}), flags);
    }
    // One bounded segment alone; what is outside stands second with its flag.
    EXPECT_EQ(common(&half, &whole, 0, 1).count, 2);
    const Common one = common(&other, &lower, 0, 1);
    EXPECT_EQ(one.flags[1][1], 1);
    expect_near(one.points[1], {3, 4}, 1e-14);
    EXPECT_EQ(common(&missed, &half, 0, 1, ARC_SPLINE_inter_circular_arc_line_seg_2d).count, 1);
    // Where segments touch, the point is both; where straights meet, it stands alone.
    EXPECT_EQ(common(&line, &cross).points[1], Pair{});
    expect_near(common(&whole, &tangent).points[1], {0, brim}, 1e-15);
}

TEST(Intersections, TakeTheToleranceItselfForTouching) {
    const std::tuple<const double*, double, int> cases[] = {
        {quarter, 0.75, 1}, {quarter, 1.25, 1}, {negative, 1, 2}};
    for (const auto& [within, y, count] : cases) {
        tols = within;
        const Segment circle = arc({0, 0}, 1), line = made_straight({-9, y}, {9, y});
        EXPECT_EQ(common(&circle, &line).count, count) << y;
    }
    tols = fine;
}

TEST(Intersections, ThatAreNone) {
    const Segment circle = arc({0, 0}, 5), ring = arc({0, 0}, 3), apart = arc({11, 0}, 5);
    const Segment dot = arc({5, 0}, 0.9e-10), small = arc({2, 0}, 5e-10);
    const Segment bad{7, 0, {}, 0, 0, {}, {}, 0, 0}, aimless{0, 0, {}, 0, 0, {}, {}, 1, 1};
    const Segment line = made_straight({0, 0}, {9, 0}), parallel = made_straight({0, 1}, {1, 1});
    // Where numbers are coarse, points fall on centres, and have no parameter there.
    const Segment row[] = {arc({1e17, 0}, 8), arc({1e17 + 16, 0}, 8), arc({1e17 + 32, 0}, 8)};
    const double coarse = std::ldexp(1.0, 57), tiny = std::ldexp(5.0, -33);
    const Segment left = arc({coarse, 0}, 12), above = arc({coarse, 1.5e-10}, 12);
    const Segment below = arc({coarse, -1.5e-10}, 12), rim = arc({5, 0}, tiny);
    const Segment huge = arc({0, 0}, 1e200);
    // One end of its chord is beyond all numbers.
    const Segment afar = arc({1.5e308, 1}, 2), wide{0, 0, {1.5e308, 0}, 0, 0, {}, {1e308, 0}, 1, 1};
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
    const Common none = common(&circle, &bad, 0, 0, ARC_SPLINE_inter_circular_arc_line_seg_2d);
    EXPECT_EQ(none.status, 1);
}

TEST(Intersections, StayAsTheyAre) {
    const Segment circle = arc({0, 0}, 5), nested = arc({0.5, 0}, 2), beside = arc({8, 0}, 3);
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
