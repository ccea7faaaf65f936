// The trace of the singular value decomposition, which no build of the library switches on.
#include "solve/svd.h"
#include "support/prelude.h"

namespace {

using namespace ztmath;

/// Columns of a 3 x 2 matrix, decomposed with a tracer; returns V's rows and prints the trace.
template <class Tracer>
std::vector<double> decompose() {
    double u[6] = {1, 2, 3, 4, 5, 7};
    std::vector<double> v(4);
    double w[2], super[2], work[5];
    Givens rotations[4];
    SvdIteration<Tracer>({u, v.data(), w, super, work, rotations, 3, 2}).run();
    return v;
}

TEST(SvdTrace, PrintsEachChangeToVAtItsPlace) {
    testing::internal::CaptureStdout();
    const std::vector<double> v = decompose<PrintTrace>();
    const std::string printed = testing::internal::GetCapturedStdout();

    EXPECT_TRUE(
        printed.starts_with("SVD_decompose: set v[i][i] to 1.0 i = 1\n"
                            "SVD_decompose: set v[j][i] j = 1 i = 0 to "))
        << printed;
    EXPECT_NE(printed.find("SVD_decompose: update v[k][j] k = 1 j = 1 to "), std::string::npos);
    EXPECT_NE(printed.find("SVD_decompose: zero v[i][j] & v[j][i] i = 0 j = 1\n"
                           "SVD_decompose: set v[i][i] to 1.0 i = 0\n"
                           "SVD_decompose: jj = 0 j = 0 v[jj][j] = "),
              std::string::npos);

    testing::internal::CaptureStdout();
    EXPECT_EQ(decompose<NoTrace>(), v) << "the trace changes no bit";
    EXPECT_EQ(decompose<SvdTrace>(), v);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

}  // namespace
