// Frames seen from other frames.
#include "ztmath/csys.h"

#include "support/support.h"

namespace {

using namespace ztmath_test;

TEST(CsysMapCsys, ExpressesAFrameInAnother) {
    Random random;
    for (int round = 0; round < rounds(1000); ++round) {
        const Frame relative(random);
        Frame base(random);
        const Frame frame(base.at(relative.origin), product(relative.axes, base.axes));
        ASSERT_EQ(CSYS_map_csys(frame.data(), base.data(), base.data()), 1) << "in place";
        ASSERT_LT(distance(base.origin, relative.origin), 3.0e-15);
        ASSERT_LT(distance(base.axes, relative.axes), 3.0e-15);
    }
}

TEST(CsysMapCsys, LeavesTheMatrixOfWhatIsNoFrame) {
    const Frame absolute({0, 0, 0}, identity);
    const Matrix untouched = {7, 7, 7, 7, 7, 7, 7, 7, 7};
    const Matrix sheared = {1, 0, 0, 1, 1, 0, 0, 0, 1}, left_handed = {1, 0, 0, 0, 1, 0, 0, 0, -1};
    for (const Matrix& axes : {sheared, left_handed}) {
        const Frame frame({1, 2, 3}, axes);
        Frame out({7, 7, 7}, untouched);
        EXPECT_EQ(CSYS_map_csys(frame.data(), absolute.data(), out.data()), axes == left_handed);
        EXPECT_EQ(out.origin, frame.origin);
        EXPECT_EQ(out.axes, axes == left_handed ? identity : untouched);
    }
}

}  // namespace
