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

/// What a decomposition leaves of a matrix, whose exchanges are 7 before.
struct Factors {
    Matrix a;
    std::vector<int> exchanges = std::vector<int>(a.rows(), 7);
    double sign = 1.0;
    int status = 0;

    bool operator==(const Factors&) const = default;
};

Factors decomposed(const Matrix& a) {
    Factors f{a};
    f.sign = 0.0;
    f.status = ludcmp_a(f.a.pointers(), a.rows(), f.exchanges.data(), &f.sign);
    return f;
}

/// Crout's decomposition with inner products, element by element: the rule that the library's
/// panels must reproduce bit for bit.
Factors decomposed_by_columns(Factors f) {
    auto& [a, exchanges, sign, status] = f;
    const int n = a.rows();
    std::vector<double> scale(n);
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j)
            scale[i] = std::max(scale[i], std::fabs(a(i, j)));
        scale[i] = 1.0 / scale[i];
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
    return f;
}

TEST(LuDecomposition, HasTheBitsOfCroutsInnerProducts) {
    Random random;
    for (const int n : {1, 2, 3, 4, 5, 7, 8, 9, 16, 31, 32, 33, 35, 64, 67, 97}) {
        Matrix a = random_matrix(random, n, n);
        if (n > 8)
            for (int j = 0; j < n; ++j)
                a(n / 2, j) = 2 * a(1, j);  // ties, zero pivots
        EXPECT_EQ(decomposed(a), decomposed_by_columns({a})) << "n = " << n;
    }
}

TEST(LuDecomposition, ReportsAZeroRowAndReplacesAZeroPivot) {
    const Matrix a(2, 2, {1, 2, 0, 0});
    EXPECT_EQ(decomposed(a), (Factors{a, {7, 7}, 1.0, 1}));
    Matrix zero_row = a, b = a;
    EXPECT_EQ(SOLVE_lu_solver(zero_row.pointers(), b.pointers(), 2, 2), 1);
    EXPECT_EQ(b, a);
    // The last of equally good pivots is taken.
    EXPECT_EQ(decomposed({2, 2, {1, 1, 1, 1}}), (Factors{{2, 2, {1, 1, 1, 1e-20}}, {1, 1}, -1.0}));
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
