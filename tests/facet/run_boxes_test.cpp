// Boxes over runs of a chain: that they hold what they must and no more, that searches find what a
// walk along the chain finds and ask few boxes, and that a window changes no answer.
#include "facet/run_window.h"
#include "support/support.h"

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
    for (const int n : {1, 9, 33, 700, 5000})
        for (const bool straight : {true, false}) {
            Chain chain = winding_chain(n, random);
            for (int i = 0; straight && i < n; ++i)
                chain[i] = {0.5 * i, 3.0};
            RunBoxes boxes = boxes_over(chain, false);
            int of_all = 0;
            boxes.first_of(
                0, n - 1, [&](std::ptrdiff_t) { return ++of_all > 0; }, [](int) { return true; });
            EXPECT_EQ(of_all, 1);
            RunWindow window(0);
            EXPECT_FALSE(window.is_open());
            int asked[2] = {}, found = 0;
            for (int round = 0; round < 300; ++round) {
                const Vec2 middle = chain[random.integer(0, n - 1)];
                window.move_to(boxes, around(middle, 0.02));
                ASSERT_TRUE(window.is_open());
                EXPECT_FALSE(window.covers(around(middle + Vec2{0.11, 0.0}, 0.02)));
                EXPECT_FALSE(window.covers(around(middle - Vec2{0.0, 0.11}, 0.02)));
                const double way = random.integer(-1, 1) * 0.09;
                const Box2 place = around(middle + Vec2{way, 0.5 * way}, 0.02);
                ASSERT_TRUE(window.covers(place));
                const int first = random.integer(0, n - 1), last = random.integer(first, n - 1);
                const auto is_there = [&](int i) { return holds(place, {chain[i], chain[i]}); };
                int plain = first;
                while (plain <= last && !is_there(plain))
                    ++plain;
                if (plain > last) plain = -1;
                found += plain >= 0;
                const auto skips = [&](int& count) {
                    return [&](std::ptrdiff_t run) {
                        ++count;
                        return !meet(boxes[run], place);
                    };
                };
                ASSERT_EQ(boxes.first_of(first, last, skips(asked[0]), is_there), plain);
                ASSERT_EQ(window.first_of(boxes, first, last, skips(asked[1]), is_there), plain);
            }
            EXPECT_GT(found, 10);
            EXPECT_LE(asked[1], asked[0]);
            EXPECT_LE(asked[0], 300 * (straight ? 1 + std::log2(n) : n));
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

TEST(RunWindow, StaysShutWhereThereIsTooMuchToRemember) {
    Random random;
    RunBoxes boxes = boxes_over(winding_chain(3000, random), false);
    RunWindow window(0);
    EXPECT_GT(window.move_to(boxes, around({0, 0}, 2.0)), 0);
    EXPECT_FALSE(window.is_open());
}

}  // namespace
