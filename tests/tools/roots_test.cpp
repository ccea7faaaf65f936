// ztmath roots, as a person or a script calls it.
#include "run_tool.h"

namespace {

using namespace ztmath_test;

// 1e-8 beside 1e4: small roots are what the iteration is for.
TEST(Roots, OfVeryDifferentSizesHaveTheirResiduals) {
    const Workshop w;
    for (const std::string option : {"", " --laguerre"}) {
        const json roots = json_of(w, "roots 1e-4 -10000.00000001 1" + option)["roots"];
        ASSERT_EQ(roots.size(), 2U);
        EXPECT_NEAR(roots[0]["root"].get<double>(), 1e-8, 1e-22);
        for (const json& root : roots) {
            const long double x = root["root"].get<double>();
            const long double value = (x - 10000.00000001) * x + 1e-4;
            EXPECT_EQ(root["residual"].get<double>(), static_cast<double>(std::fabs(value)));
            EXPECT_LT(root["relative"], 1e-15);
        }
    }
}

}  // namespace
