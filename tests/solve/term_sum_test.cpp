// Sums by magnitude.
#include "solve/term_sum.h"
#include "support/prelude.h"

namespace {

using namespace ztmath;

TEST(TermSum, RoundsInTheOrderOfTheBins) {
    constexpr double half_ulp = 0x1p-53;  // of 1
    // What is small is not lost in what cancels.
    EXPECT_EQ(sum_by_magnitude({3e20, 2e-5, 1e16, -3e20, -1e16}).value, 2e-5);
    // Each bin's limit belongs to the bin below. Terms of one bin and sign come together first.
    EXPECT_EQ(sum_by_magnitude({1.0, 1.0 + 2 * half_ulp, -1.0}).value, 1.0 + 2 * half_ulp);
    EXPECT_EQ(sum_by_magnitude({1.0, half_ulp, half_ulp}).value, 1.0 + 2 * half_ulp);
    EXPECT_EQ(sum_by_magnitude({1e5, 0x1p-37, 0x1p-37}).value, 1e5 + 0x1p-36);
    const double just_over = 1e5 + 0x1p-36;
    EXPECT_EQ(sum_by_magnitude({just_over, -1e5, 0x1p-60}).value, 0x1p-36);
    EXPECT_EQ(sum_by_magnitude({1e5, -1e5, 0x1p-60}).value, 0x1p-60);
    EXPECT_EQ(sum_by_magnitude({1.2e-5, -1.2e-5, 0x1p-90}).value, 0x1p-90);
    EXPECT_EQ(sum_by_magnitude({1e-5, -1e-5, 0x1p-90}).value, 0);
    EXPECT_EQ(sum_by_magnitude({1.25, -1.0, 0.1}).value, (0.1 - 1.0) + 1.25);
}

TEST(TermSum, KnowsTheSizeOfItsTerms) {
    const TermSum sum = sum_by_magnitude({3.0, -2.0, 1e6, -1e-7, 0.0});
    EXPECT_EQ(sum.magnitude, 3.0 + 2.0 + 1e6 + 1e-7);
    EXPECT_TRUE(is_insignificant({5e-16, 1.0}, 5e-16));
    EXPECT_FALSE(is_insignificant({-6e-16, 1.0}, 5e-16));
    EXPECT_TRUE(is_insignificant(sum_by_magnitude({0.0, 0.0, 0.0}), 5e-16));
    EXPECT_FALSE(is_insignificant(sum_by_magnitude({HUGE_VAL, 1.0, -HUGE_VAL}), 1.0));
    EXPECT_EQ(sum_by_magnitude({HUGE_VAL, 1.0, -5.0}).value, HUGE_VAL);
}

}  // namespace
