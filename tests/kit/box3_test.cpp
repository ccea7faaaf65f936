// Axis-aligned boxes.
#include "ztmath/box3.h"
#include "support/prelude.h"

namespace {

using Box = std::array<double, 6>;
using Bits = std::array<std::uint64_t, 6>;

TEST(Box3ExpandWithBox, TakesInBothCorners) {
    const Box rows[][2] = {
        {{-1, 0.5, -0.5, 3, -0.5, -0.5}, {-1, 1, -0.5, 3, -1, 0}},
        {{5, 6, -6, -5, -1, 2}, {0, 6, -6, 1, -1, 2}},
        {{3, -2, 0, 1, -1, 0}, {-2, 3, 0, 1, -1, 0}},  // inverted: its corners are taken in
        {{NAN, 2, 0, NAN, -1, 0}, {0, 2, 0, 1, -1, 0}},
        {{-0.0, 1, -0.0, 1, -1, -0.0}, {0, 1, 0, 1, -1, 0}},  // equal bounds are left
    };
    for (const auto& [add, expected] : rows) {
        Box box = {0, 1, 0, 1, -1, 0};
        BOX3_expand_with_box(add.data(), box.data());
        EXPECT_EQ(std::bit_cast<Bits>(box), std::bit_cast<Bits>(expected))
            << testing::PrintToString(box);
    }
}

}  // namespace
