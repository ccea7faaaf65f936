// Cramer's rule and LU decomposition.
#include "support/matrix.h"
#include "ztmath/solve.h"

namespace {

using namespace ztmath_test;

TEST(SolveThreeEquations, RefusesOnlyAnExactlyZeroDeterminant) {
    Random random;
    for (int round = 0; round < rounds(1000); ++round) {
        Matrix a = random_definite(random, 3, 1) * diagonal({1, 2, 3});
        Matrix b = random_matrix(random, 3, 1), x(3, 1);
        ASSERT_EQ(SOLVE_solve_3equations(a.flat(), b.flat(), x.flat()), 0);
        EXPECT_LT(distance(a * x, b), 1e-10);
    }
    const double b[3] = {1, 2, 3};
    double x[3] = {7, 7, 7};
    EXPECT_EQ(SOLVE_solve_3equations(Matrix(3, 3).flat(), b, x), 1);
    EXPECT_EQ(x[2], 7);
    EXPECT_EQ(SOLVE_solve_3equations(diagonal({1e-100, 1e-100, 1e-100}).flat(), b, x), 0);
    EXPECT_DOUBLE_EQ(x[2], 3e100);
}

/// Crout's decomposition with inner products, element by element: the rule that the library's
/// panels must reproduce bit for bit.
void decompose_by_columns(Matrix& a, std::vector<int>& exchanges, double& sign) {
    const int n = a.rows();
    std::vector<double> scale(n);
    sign = 1.0;
    for (int i = 0; i < n; ++i) {
        double largest = 0.0;
        for (int j = 0; j < n; ++j)
            largest = std::max(largest, std::fabs(a(i, j)));
        scale[i] = 1.0 / largest;
    }
    for (int j = 0; j < n; ++j) {
        double merit = 0.0;
        for (int i = 0; i < n; ++i) {
            for (int k = 0; k < std::min(i, j); ++k)
                a(i, j) -= a(i, k) * a(k, j);
            if (i >= j && scale[i] * std::fabs(a(i, j)) >= merit) {
                merit = scale[i] * std::fabs(a(i, j));
                exchanges[j] = i;
            }
        }
        if (const int best = exchanges[j]; best != j) {
            std::swap_ranges(&a(j, 0), &a(j, 0) + n, &a(best, 0));
            sign = -sign;
            scale[best] = scale[j];
        }
        if (a(j, j) == 0.0) a(j, j) = 1e-20;
        for (int i = j + 1; i < n; ++i)
            a(i, j) *= 1.0 / a(j, j);
    }
}

TEST(LuDecomposition, HasTheBitsOfCroutsInnerProducts) {
    Random random;
    for (const int n : {1, 2, 3, 4, 5, 7, 8, 9, 16, 31, 32, 33, 35, 64, 67, 97}) {
        Matrix expected = random_matrix(random, n, n);
        if (n > 8)
            for (int j = 0; j < n; ++j)
                expected(n / 2, j) = 2 * expected(1, j);  // ties, zero pivots
        Matrix a = expected;
        std::vector<int> expected_exchanges(n), exchanges(n);
        double expected_sign, sign;
        decompose_by_columns(expected, expected_exchanges, expected_sign);
        EXPECT_EQ(ludcmp_a(a.pointers(), n, exchanges.data(), &sign), 0);
        EXPECT_EQ(a, expected) << "n = " << n;
        EXPECT_EQ(exchanges, expected_exchanges);
        EXPECT_EQ(sign, expected_sign);
    }
}

TEST(LuDecomposition, ReportsAZeroRowAndReplacesAZeroPivot) {
    int exchanges[2] = {7, 7};
    double sign = 0.0;
    Matrix zero_row(2, 2, {1, 2, 0, 0});
    const Matrix before = zero_row;
    EXPECT_EQ(ludcmp_a(zero_row.pointers(), 2, exchanges, &sign), 1);
    EXPECT_EQ(zero_row, before);
    EXPECT_EQ(sign, 1.0);
    EXPECT_EQ(exchanges[0], 7);
    Matrix b = before;
    EXPECT_EQ(SOLVE_lu_solver(zero_row.pointers(), b.pointers(), 2, 2), 1);
    EXPECT_EQ(b, before);

    Matrix singular(2, 2, {1, 1, 1, 1});
    EXPECT_EQ(ludcmp_a(singular.pointers(), 2, exchanges, &sign), 0);
    EXPECT_EQ(exchanges[0], 1);  // the last of equally good pivots
    EXPECT_EQ(singular(1, 1), 1e-20);
}

TEST(LuSubstitution, LeavesResidualsAtTheRoundingLevel) {
    Random random;
    for (const int n : {1, 2, 3, 4, 5, 6, 9, 33, 100}) {
        const Matrix a = random_matrix(random, n, n), b = random_matrix(random, n, 3);
        Matrix factors = a, x = b;
        ASSERT_EQ(SOLVE_lu_solver(factors.pointers(), x.pointers(), n, 3), 0);
        const double largest = distance(x, Matrix(n, 3));
        EXPECT_LT(distance(a * x, b), 1e-15 * n * n * largest) << "n = " << n;
    }
}

TEST(LuSubstitution, SkipsLeadingZerosOfTheRightHandSide) {
    // The row below meets an infinite factor; a product with a leading zero would make it a NaN.
    Matrix factors(3, 3, {1, 0, 0, HUGE_VAL, 1, 0, 2, 3, 1});
    const int exchanges[3] = {0, 1, 2};
    Matrix b(3, 1, {0, 5, 16});
    lubksb_a(factors.pointers(), 3, exchanges, b.flat());
    EXPECT_EQ(b, Matrix(3, 1, {0, 5, 1}));
}

TEST(LuSubstitution, RightHandSideMayBeARowOfTheFactors) {
    Matrix factors(2, 2, {2, 3, 1, 4});
    const int exchanges[2] = {0, 1};
    lubksb_a(factors.pointers(), 2, exchanges, factors.flat());
    EXPECT_EQ(factors, Matrix(2, 2, {0.625, 0.25, 1, 4}));
}

}  // namespace
