// The trace of the singular value decomposition, which no build of the library switches on.
#include "solve/svd.h"
#include "support/prelude.h"

namespace {

using namespace ztmath;

constexpr int n = 3;

/// Columns of a 4 x 3 matrix, decomposed with a tracer; returns V's columns and prints the trace.
template <class Tracer>
std::vector<double> decompose() {
    double u[4 * n] = {1, 2, 3, 4, 4, 5, 7, 1, 2, 0, 1, 3};
    std::vector<double> v(n * n);
    double w[n], super[n], work[n + 4];
    Givens rotations[2 * n];
    SvdIteration<Tracer>({u, v.data(), w, super, work, rotations, 4, n}).run();
    return v;
}

/// The elements of V by row and column as the lines tell them.
std::map<std::pair<int, int>, double> told(const std::string& trace) {
    std::map<std::pair<int, int>, double> v;
    std::istringstream lines(trace);
    for (std::string line; std::getline(lines, line);) {
        int i, j;
        double x;
        const auto sets = [&](const char* format) {
            return std::sscanf(line.c_str(), format, &i, &j, &x) == 3;
        };
        if (sets("SVD_decompose: set v[j][i] j = %d i = %d to %lg") ||
            sets("SVD_decompose: update v[k][j] k = %d j = %d to %lg") ||
            sets("SVD_decompose: jj = %d j = %d v[jj][j] = %lg") ||
            sets("SVD_decompose: jj = %d i = %d v[jj][i] = %lg"))
            v[{i, j}] = x;
        else if (std::sscanf(line.c_str(), "SVD_decompose: zero v[i][j] & v[j][i] i = %d j = %d",
                             &i, &j) == 2)
            v[{i, j}] = v[{j, i}] = 0.0;
        else if (std::sscanf(line.c_str(), "SVD_decompose: set v[i][i] to 1.0 i = %d", &i) == 1)
            v[{i, i}] = 1.0;
        else
            EXPECT_EQ(line, "SVD_decompose: update negate all v");  // of a column: which, it hides
    }
    return v;
}

TEST(SvdTrace, TellsEachChangeToV) {
    testing::internal::CaptureStdout();
    const std::vector<double> v = decompose<PrintTrace>();
    const std::string trace = testing::internal::GetCapturedStdout();
    // Two that are written over later.
    EXPECT_NE(trace.find("set v[j][i] j = 2 i = 0 to "), std::string::npos);
    EXPECT_NE(trace.find("update v[k][j] k = 2 j = 1 to "), std::string::npos);
    const auto elements = told(trace);
    EXPECT_EQ(elements.size(), v.size());
    for (const auto& [at, value] : elements)
        EXPECT_NEAR(std::fabs(v[at.second * n + at.first]), std::fabs(value), 1e-5);

    testing::internal::CaptureStdout();
    EXPECT_EQ(decompose<NoTrace>(), v) << "the trace changes no bit";
    EXPECT_EQ(decompose<SvdTrace>(), v);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

}  // namespace
