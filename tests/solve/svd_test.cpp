// Singular value decomposition.
#include "support/matrix.h"
#include "support/reports.h"
#include "ztmath/solve.h"

namespace {

using namespace ztmath_test;

struct Factors {
    explicit Factors(const Matrix& a) : Factors(a, a.rows()) {}
    Factors(const Matrix& a, int rows) : u(a), w(a.columns()), v(a.columns(), a.columns()) {
        SOLVE_svd_decompose(u.pointers(), rows, a.columns(), w.data(), v.pointers());
    }

    std::vector<double> sorted() const {
        std::vector<double> values = w;
        std::sort(values.begin(), values.end());
        return values;
    }

    Matrix u;
    std::vector<double> w;
    Matrix v;
};

TEST(SvdDecompose, FactorsAreOrthogonalAndGiveTheMatrixBack) {
    Random random;
    ReportRecorder recorder;
    std::vector<Matrix> matrices = {{3, 3, {1, 2, 0, 0, 0, 3, 0, 0, 4}}};  // singular halfway
    for (const auto& [m, n] :
         {std::pair{1, 1}, {5, 1}, {3, 3}, {7, 3}, {40, 17}, {60, 60}, {10, 10}})
        matrices.push_back(random_matrix(random, m, n));
    for (int i = 0; i < 10; ++i)  // the last comes apart into two blocks
        std::fill_n(&matrices.back()(i, i < 6 ? 6 : 0), i < 6 ? 4 : 6, 0.0);
    for (const Matrix& a : matrices) {
        const int m = a.rows(), n = a.columns();
        const Factors f(a);
        const double bound = 1e-14 * (m + n);
        // What is split off at 1e-12 off the diagonal shows in the product.
        EXPECT_LT(distance(f.u * diagonal(f.w) * transposed(f.v), a), bound + 2e-12)
            << m << " x " << n;
        EXPECT_LT(distance(transposed(f.u) * f.u, identity(n)), bound);
        EXPECT_LT(distance(transposed(f.v) * f.v, identity(n)), bound);
        EXPECT_GE(f.sorted()[0], 0.0);
    }
    EXPECT_EQ(recorder.take(), Reports{});
    // An element of 1e-12 beside ones of 1e-9 is far above rounding, and dropped all the same.
    const std::vector alone = {1e-9, 2e-9};
    EXPECT_EQ(Factors({2, 2, {1e-9, 1e-12, 0, 2e-9}}).sorted(), alone);
    EXPECT_NE(Factors({2, 2, {1e-9, 1.01e-12, 0, 2e-9}}).sorted(), alone);
}

TEST(SvdDecompose, NotesMissingRowsAndWhatCannotConverge) {
    ReportRecorder recorder;
    const Matrix a(4, 4, {1, 2, 3, 4, 4, 5, 6, 9});
    const std::vector<double> padded = Factors(a).sorted();
    const Factors f({4, 4, {1, 2, 3, 4, 4, 5, 6, 9, 0, 0, 0, 5}},
                    2);  // what is missing is not read
    EXPECT_EQ(recorder.take(),
              Reports{note("svd", "SVDCMP: You must augment A with extra zero rows")});
    EXPECT_LT(distance(diagonal(f.sorted()), diagonal(padded)), 1e-12);
    EXPECT_EQ(f.u(2, 2), 1.0);  // the diagonal of the missing row is counted up like any other
    EXPECT_EQ(Factors({3, 3, {1, 2, 3, 4, 5, 6, 0, 0, 5}}, 2).u(2, 2), 6.0);
    recorder.take();

    const Report endless = note("svd", "No convergence in 30 SVDCMP iterations");
    Factors({3, 3, {1, 2, 3, 4, std::nan(""), 6, 7, 8, 10}});
    const Reports reports = recorder.take();
    EXPECT_EQ(reports, Reports(std::max<std::size_t>(reports.size(), 1), endless));
    Factors({2, 2, {5e-3, 5e-3, 0, 7e-3}});
    // Neighbours this far above what counts as zero need 29 steps, or one more.
    Factors({2, 2, {1e115, 7e100, 0, 1.0000000000006e115}});
    EXPECT_EQ(recorder.take(), Reports{});
    Factors({2, 2, {1e110, 7e95, 0, 1.0000000000003e110}});
    EXPECT_EQ(recorder.take(), Reports{endless});
}

TEST(SvdSolver, FindsTheLeastSquaresSolutionOfLeastNorm) {
    Random random;
    for (const int rank : {2, 4}) {
        const Matrix a = random_matrix(random, 9, rank) * random_matrix(random, rank, 4);
        Matrix b = random_matrix(random, 9, 1), x(4, 1), work = a;
        int n = 4;
        EXPECT_EQ(SOLVE_svd_solver(work.pointers(), 9, &n, b.flat(), x.flat()), 0);
        EXPECT_EQ(n, rank);
        // The residual is orthogonal to the columns of a, the solution to what a maps to zero.
        EXPECT_LT(distance(transposed(a) * (a * x), transposed(a) * b), 1e-12);
        const Factors f(a);
        const Matrix along = transposed(f.v) * x;
        for (int j = 0; j < 4; ++j)
            EXPECT_TRUE(f.w[j] >= 1e-8 || std::fabs(along(j, 0)) <= 1e-12) << along(j, 0);
    }
}

TEST(SvdSolver, KeepsSingularValuesStrictlyAboveTheThreshold) {
    const double b[3] = {1, 1, 1};
    double x[3];
    const auto kept = [&](double threshold) {
        Matrix a(3, 3, {4, 0, 0, 0, 2, 0, 0, 0, 1});
        int n = 3;
        EXPECT_EQ(SOLVE_svd_solver_r(a.pointers(), 3, &n, b, x, threshold), &n);
        return std::pair(n, x[2]);
    };
    EXPECT_EQ(kept(0.0), std::pair(3, 1.0));
    EXPECT_EQ(kept(0.25), std::pair(2, 0.0));
    EXPECT_EQ(kept(std::nextafter(0.25, 0.0)), std::pair(3, 1.0));

    SOLVE_svd_decompose(nullptr, 0, 0, nullptr, nullptr);  // touches nothing
    Matrix zero(3, 3);
    int n = 3;
    SOLVE_svd_solver(zero.pointers(), 3, &n, b, x);
    EXPECT_EQ(std::pair(n, x[0]), std::pair(0, 0.0));
}

}  // namespace
