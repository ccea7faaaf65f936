// Boxes over runs of a chain: that they hold what they must and no more, that searches find what a
// walk along the chain finds and ask few boxes, and that a window changes no answer.
#include "facet/run_window.h"
#include "support/random.h"

namespace {

using namespace ztmath;
using ztmath_test::Random;

using Chain = std::vector<Vec2>;

/// A chain that winds about a place again and again.
Chain winding_chain(int n, Random& random) {
    Chain chain;
    for (int i = 0; i < n; ++i)
        chain.push_back({std::cos(0.05 * i) + random.uniform(0.0, 0.2),
                         std::sin(0.05 * i) + random.uniform(0.0, 0.2)});
    return chain;
}

RunBoxes boxes_over(const Chain& chain, bool linked) {
    return {static_cast<int>(chain.size()), [&](int i) { return chain[i]; }, linked};
}

Box2 around(const Vec2& middle, double half) {
    return {middle - Vec2{half, half}, middle + Vec2{half, half}};
}

/// The first point in a place among [first, last], of the boxes or of a window.
template <class Search>
int first_in(Search search, const Chain& chain, RunBoxes& boxes, const Box2& place, int first,
             int last, int* asked) {
    return search(
        first, last,
        [&](std::ptrdiff_t run) {
            ++*asked;
            return !meet(boxes[run], place);
        },
        [&](int i) {
            return holds(place, {chain[i], chain[i]});
        });
}

TEST(RunBoxes, HoldTheirPointsAlsoWhenSomeAreTakenAway) {
    Random random;
    for (const int n : {1, 8, 9, 33, 700}) {
        const Chain chain = winding_chain(n, random);
        for (const bool linked : {false, true}) {
            RunBoxes boxes = boxes_over(chain, linked);
            std::vector<bool> remains(chain.size(), true);
            for (int taken = 0; taken <= (linked ? 0 : n); ++taken) {
                boxes.for_each_run([&](std::ptrdiff_t run, int first, int last) {
                    Box2 exact = empty_box;
                    for (int i = first; i <= last + linked; ++i)
                        if (remains[i % n]) expand(exact, chain[i % n]);
                    ASSERT_TRUE(holds(boxes[run], exact) && holds(exact, boxes[run])) << run;
                });
                const int gone = taken * 7 % n;
                remains[gone] = false;
                boxes.shrink_around(
                    gone, [&](int i) { return chain[i]; }, [&](int i) { return remains[i]; });
            }
        }
    }
}

TEST(RunBoxes, FindTheFirstPointOfAPlaceAndAskFewBoxes) {
    Random random;
    for (const int n : {1, 9, 33, 700, 5000}) {
        int levels = 1;
        for (int runs = n / 8; runs > 0; runs /= 4)
            ++levels;
        Chain line;
        for (int i = 0; i < n; ++i)
            line.push_back({0.5 * i, 3.0});
        const Chain winding = winding_chain(n, random);
        for (const Chain* const chain : std::initializer_list<const Chain*>{&line, &winding}) {
            RunBoxes boxes = boxes_over(*chain, false);
            for (int round = 0; round < 300; ++round) {
                const int first = random.integer(0, n - 1), last = random.integer(first, n - 1);
                const Box2 place = around((*chain)[random.integer(0, n - 1)], 0.01);
                int plain = first, asked = 0;
                while (plain <= last && !holds(place, {(*chain)[plain], (*chain)[plain]}))
                    ++plain;
                const int found = first_in([&](auto... what) { return boxes.first_of(what...); },
                                           *chain, boxes, place, first, last, &asked);
                ASSERT_EQ(found, plain <= last ? plain : -1);
                ASSERT_LE(asked, chain == &line ? 8 * levels : n);
            }
        }
    }
}

TEST(RunBoxes, AreVisitedInOrder) {
    Chain line;
    for (int i = 0; i < 700; ++i)
        line.push_back({-0.5 * i, 3.0});
    RunBoxes boxes = boxes_over(line, false);
    for (const auto& [first, last] : {std::pair{0, 699}, {5, 5}, {7, 8}, {13, 402}, {100, 130}}) {
        int expected = last;
        boxes.visit_in_order(
            first, last, [&](std::ptrdiff_t run) { return boxes[run].low.x; },
            [](std::ptrdiff_t) { return false; },
            [&](int from, int to) {
                EXPECT_EQ(to, expected) << "the last of them lie lowest";
                EXPECT_LT(to - from, RunBoxes::leaf);
                expected = from - 1;
            });
        EXPECT_EQ(expected, first - 1);
    }
}

TEST(RunBoxes, AreAsFarFromAPointAsTheirNearestAndFarthestPoints) {
    Random random;
    for (int round = 0; round < 1000; ++round) {
        const auto point = [&] { return Vec2{random.uniform(-2, 2), random.uniform(-2, 2)}; };
        const Vec2 p = point(), q = point();
        Box2 box{q, q};
        expand(box, point());
        const Vec2 near = gap(box, p), far = span(box, p);
        EXPECT_LE(near.x, std::fabs(q.x - p.x));
        EXPECT_LE(near.y, std::fabs(q.y - p.y));
        EXPECT_EQ(near.x == 0 && near.y == 0, holds(box, {p, p}));
        EXPECT_EQ(far.x, std::max(p.x - box.low.x, box.high.x - p.x));
        EXPECT_EQ(far.y, std::max(p.y - box.low.y, box.high.y - p.y));
    }
}

TEST(RunWindow, FindsWhatTheBoxesFindAndAsksFewerOfThem) {
    Random random;
    const int n = 3000;
    const Chain chain = winding_chain(n, random);
    RunBoxes boxes = boxes_over(chain, false);
    RunWindow window(0);
    EXPECT_FALSE(window.is_open());
    int asked[2] = {}, found_any = 0;
    for (int round = 0; round < 300; ++round) {
        const Vec2 middle = chain[random.integer(0, n - 1)];
        window.move_to(boxes, around(middle, 0.02));
        ASSERT_TRUE(window.is_open());
        EXPECT_FALSE(window.covers(around(middle + Vec2{0.11, 0.0}, 0.02)));
        EXPECT_FALSE(window.covers(around(middle - Vec2{0.0, 0.11}, 0.02)));
        const Box2 place =
            around(middle + Vec2{random.uniform(-0.09, 0.09), random.uniform(-0.09, 0.09)}, 0.02);
        ASSERT_TRUE(window.covers(place));
        const int first = random.integer(0, n - 1), last = random.integer(first, n - 1);
        const int of_boxes = first_in([&](auto... what) { return boxes.first_of(what...); }, chain,
                                      boxes, place, first, last, &asked[0]);
        const int of_window =
            first_in([&](auto... what) { return window.first_of(boxes, what...); }, chain, boxes,
                     place, first, last, &asked[1]);
        ASSERT_EQ(of_window, of_boxes);
        found_any += of_boxes >= 0;
    }
    EXPECT_LT(3 * asked[1], 2 * asked[0]);
    EXPECT_GT(found_any, 100);
    EXPECT_GT(window.move_to(boxes, around({0, 0}, 2.0)), 0);  // too much to be remembered
    EXPECT_FALSE(window.is_open());
}

}  // namespace
