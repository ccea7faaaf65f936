// Which edges count as crossing a diagonal, down to those that only touch it; and that what is said
// of a box holds for every point in it.
#include "facet/fill_shadow.h"

#include "support/support.h"

namespace {

using namespace ztmath;
using ztmath_test::Random;
using ztmath_test::rounds;

TEST(FillPredicates, EdgesThatTouchADiagonalCountFromItsLeftOnly) {
    const Diagonal diagonal({0, 0}, {10, 0});
    const std::tuple<Vec2, Vec2, bool> rows[]{
        {{4, 1}, {6, -1}, true},
        // Through a vertex on the diagonal: leftwards both of its edges are passed over.
        {{4, 1}, {5, 0}, true},
        {{4, 1}, {5, 1e-10}, true},
        {{5, 0}, {6, -1}, false},
        // Square to it, and not.
        {{5, 1}, {5, -1}, false},
        {{5, 1}, {4, -1}, true},
        // At its ends.
        {{9, 1}, {11, -1}, false},
        {{9, 1}, {10.99999, -1}, true},
        // As near to its ends as counts as touching them, or as does not.
        {{-3e-10, 3e-10}, {5e-10, -3e-10}, false},
        {{1e-10, 1e-10}, {1e-10 - 3e-16, -7}, true},
        {{10 - 1e-10, 1e-10}, {10 + 1e-9, -2e-4}, true},
        {{10 + 9e-10, 2e-10}, {10 + 1e-10, 0.9e-10}, true},
    };
    for (const auto& [from, to, crosses] : rows) {
        EXPECT_EQ(diagonal.is_crossed_by(from, to), crosses) << from.x;
        EXPECT_FALSE(Diagonal({0, 0}, {1e-11, 0}).is_crossed_by(from, to));
    }
}

TEST(FillPredicates, WhatIsSaidOfABoxHoldsForEveryPointInIt) {
    Random random;
    int said[8] = {};
    const int tries = rounds(20000);
    for (int round = 0; round < tries; ++round) {
        // Small whole numbers make ties; the offset makes rounding.
        const double offset = round % 2 == 0 ? 0.0 : random.uniform(-1e6, 1e6);
        const auto number = [&] { return offset + random.integer(-8, 8) * (round % 3 + 0.1); };
        const auto point = [&] { return Vec2{number(), number()}; };
        const Vec2 a = point(), b = point(), p = point();
        const Vec2 inside[] = {point(), point(), point()};
        Box2 box = empty_box;
        for (const Vec2 q : inside)
            expand(box, q);
        const BaseEdge base(a, b);
        const Diagonal diagonal(a, b);
        const Circumcircle circle = base.circle_through(p);
        const Goal goal(base, p, 2e6);
        const double nearest = base.nearest_cross(box);
        const auto slanted = SlantedBox::around(0, 2, 2e6, [&](int i) { return inside[i]; });
        const bool thin = slanted.is_thin();
        const bool beats = !base.rejects(p);
        const bool claims[] = {is_outside(circle, box),
                               thin && slanted.is_beyond(squared_bound(circle), circle.centre),
                               base.rejects_all(box),
                               thin && base.rejects_all(slanted),
                               diagonal.is_clear_of(box) || !meet(box, around(diagonal, 2e6)),
                               thin && diagonal.is_clear_of(slanted),
                               beats && goal.surely_beats(box, nearest, nullptr),
                               beats && thin && goal.surely_beats(box, nearest, &slanted)};
        for (int k = 0; k < 8; ++k)
            said[k] += claims[k];
        for (const Vec2 q : inside) {
            ASSERT_FALSE((claims[0] || claims[1]) && is_inside(circle, q));
            ASSERT_FALSE((claims[2] || claims[3]) && !base.rejects(q));
            ASSERT_FALSE((claims[4] || claims[5]) && diagonal.is_crossed_by(q, inside[0]));
            ASSERT_FALSE((claims[6] || claims[7]) && (base.rejects(q) || !goal.beats(q)));
        }
    }
    for (const int count : said)
        EXPECT_GT(count, tries / 200);
}

TEST(FillShadow, IsNoneWhereADiagonalMayBeSquareToTheEdge) {
    const auto x_axis = Extension::beyond_end(BaseEdge({-1, 0}, {0, 0}));
    for (const double upper : {0.5, 0.8, 0.9, 1.0, 1.1})
        EXPECT_EQ(Shadow(x_axis, {upper, 0.4}, {1, -0.5}, 1).hides(), upper < 0.6 || upper > 1);
}

TEST(FillShadow, HidesWhatItSaysFromTheEndOfTheBaseEdge) {
    Random random;
    const int tries = rounds(60000);
    int hidden = 0;
    for (int round = 0; round < tries; ++round) {
        const double offset = random.uniform(-1.0, 1.0) * (round % 2 == 0 ? 1.0 : 1e5);
        const double angle = random.uniform(-4.0, 4.0);
        const double flat = std::pow(10.0, random.uniform(-9.0, 0.0));
        const auto placed = [&](double x, double y) {
            return Vec2{offset + x * std::cos(angle) - flat * y * std::sin(angle),
                        offset + x * std::sin(angle) + flat * y * std::cos(angle)};
        };
        const auto somewhere = [&](double low, double high) {
            return placed(random.uniform(low, high), random.uniform(-1.0, 1.0));
        };
        const Vec2 start = placed(0, 0), other = placed(-random.uniform(0.1, 9.0), 0);
        const Vec2 u = somewhere(-0.5, 2.0), v = somewhere(-0.5, 2.0), q = somewhere(0.0, 9.0);
        const bool forward = random.integer(0, 1) == 0;
        const BaseEdge base = forward ? BaseEdge(other, start) : BaseEdge(start, other);
        const auto extension =
            forward ? Extension::beyond_end(base) : Extension::behind_start(base);
        const Shadow shadow(extension, u, v, 4e5);
        Box2 box{q, q};
        if (round % 3 == 0) expand(box, somewhere(0.0, 9.0));
        if (base.rejects(q)) continue;
        if (base.cross_with(q) > shadow.least_height(box) * length(base.way())) continue;
        ASSERT_TRUE(Diagonal(q, start).is_crossed_by(u, v));
        ++hidden;
    }
    EXPECT_GT(hidden, tries / 200);
}

}  // namespace
