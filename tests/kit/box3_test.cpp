// Axis-aligned boxes.
#include "ztmath/box3.h"
#include "support/prelude.h"

namespace {

using Box = std::array<double, 6>;

TEST(Box3ExpandWithBox, TakesInBothCorners) {
    const Box rows[][2] = {
        {{-1, 0.5, 0.5, 3, 0.5, 0.5}, {-1, 1, 0, 3, 0, 1}},
        {{5, 6, -6, -5, 0, 2}, {0, 6, -6, 1, 0, 2}},
        {{3, -2, 0, 1, 0, 1}, {-2, 3, 0, 1, 0, 1}},  // inverted: its corners are taken in
        {{NAN, 2, 0, NAN, 0, 1}, {0, 2, 0, 1, 0, 1}},
    };
    for (const auto& [add, expected] : rows) {
        Box box = {0, 1, 0, 1, 0, 1};
        BOX3_expand_with_box(add.data(), box.data());
        EXPECT_EQ(box, expected);
    }
}

}  // namespace
