// Numbers, ticks, tables and units as text.
#include "axis.h"
#include "number.h"
#include "palette.h"
#include "support/prelude.h"
#include "unit.h"

namespace {

using namespace tool;
using Texts = std::vector<std::string>;

TEST(Numbers, LineUpWithAsManyDigitsAsTheLargestNeeds) {
    EXPECT_EQ(aligned({123.456, -0.01, 0.0}, 4), (Texts{"123.5", "0.0", "0.0"}));
    EXPECT_EQ(aligned({0.00123456, 0.00001}, 3), (Texts{"0.00123", "0.00001"}));
    EXPECT_EQ(aligned({1234567.8}, 4), (Texts{"1234568"}));
    EXPECT_EQ(aligned({1.25e-9, 3e-12}, 3), (Texts{"1.25e-09", "3.00e-12"}));
    EXPECT_EQ(aligned({2e15}, 3), (Texts{"2.00e+15"}));
    EXPECT_EQ(aligned({0.0}, 3), (Texts{"0"}));
    EXPECT_EQ(fixed(-0.004, 2), "0.00");
    EXPECT_EQ(counted(1234567), "1 234 567");
}

TEST(Ticks, AreRoundAndWithinTheRange) {
    const std::tuple<Range, int, Texts> cases[]{
        {{0.0, 10.0}, 5, {"0", "2", "4", "6", "8", "10"}},
        {{-0.11, 0.12}, 4, {"\u22120.1", "0.0", "0.1"}},
        {{596687.2, 596688.1}, 3, {"596687.5", "596688.0"}},
        {{0.0, 260000.0}, 3, {"0", "100 000", "200 000"}},
        {{-2e-13, 1e-13}, 3, {"\u22122e\u221213", "\u22121e\u221213", "0", "1e\u221213"}},
    };
    for (const auto& [range, about, expected] : cases) {
        Texts labels;
        for (const Tick& tick : round_ticks(range, about))
            labels.push_back(tick.label);
        EXPECT_EQ(labels, expected);
    }
    EXPECT_EQ(round_ticks({0.0, 2.0}, 6, 1.0).size(), 3U);
}

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

TEST(Palette, IsStrongestAtTheLimitAndGreyAtZero) {
    const Palette palette(2.0);
    EXPECT_EQ(palette.color(-2.0), "#215291");
    EXPECT_EQ(palette.color(0.0), "#dedfe0");
    EXPECT_EQ(palette.color(2.0), "#9e182b");
    EXPECT_EQ(Palette(0.0).color(1.0), "#dedfe0");
}

TEST(Units, AreLengthsInMillimetres) {
    EXPECT_EQ(unit_named("inch").millimetres, 25.4);
    EXPECT_EQ(unit_named("um").millimetres, 0.001);
    EXPECT_EQ(with_unit("3", unit_named("deg")), "3\u00b0");
    EXPECT_EQ(with_unit("3", unit_named("none")), "3");
    EXPECT_EQ(labelled("x", unit_named("inch")), "x (in)");
    EXPECT_EQ(labelled("x", unit_named("none")), "x");
}

}  // namespace
