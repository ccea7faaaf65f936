// Ticks and colours of any range.
#include "axis.h"
#include "palette.h"
#include "support/prelude.h"

namespace {

using namespace tool;

TEST(Ticks, OfAnyRangeAreFew) {
    for (int exponent = -300; exponent <= 300; ++exponent) {
        const double length = 7.3 * std::pow(10.0, exponent);
        for (const double low : {0.0, -0.3 * length, 1e15, -length}) {
            const Range range = padded({low, low + length}, 0.05);
            const std::size_t count = round_ticks(range, 5).size();
            EXPECT_TRUE(count >= 1 && count <= 10) << low << ' ' << length << ' ' << count;
        }
    }
    EXPECT_GT(padded({5.0, 5.0}, 0.1).length(), 0.0);
}

TEST(Palette, OfNoDistancesIsGrey) {
    EXPECT_EQ(Palette(0.0).color(1.0), "#dedfe0");
}

}  // namespace
