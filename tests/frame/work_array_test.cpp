// Sizes of work memory.
#include "frame/work_array.h"
#include "support/prelude.h"

namespace {

using namespace ztmath;

TEST(WorkArray, AsksForNoLessThanItNeeds) {
    constexpr std::ptrdiff_t most = SIZE_MAX / sizeof(double);
    EXPECT_EQ(bytes_of<double>(-1), 0U);
    EXPECT_EQ(bytes_of<double>(most), most * sizeof(double));
    EXPECT_EQ(bytes_of<double>(most + 1), SIZE_MAX) << "the product would be 0";
    EXPECT_EQ(element_count(INT_MAX, INT_MAX), std::ptrdiff_t{INT_MAX} * INT_MAX);
    EXPECT_EQ(element_count(-2, 3) + element_count(3, -2) + element_count(-2, -3), 0);
}

}  // namespace
