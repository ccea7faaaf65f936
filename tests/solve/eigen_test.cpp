// Eigenvalues, Cholesky factors, power iteration.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "support/matrix.h"
#include "support/reports.h"
#include "support/session.h"
#include "syss/syss.h"
#include "ztmath/nr.h"

namespace {

using namespace ztmath_test;

const Report exhausted =
    internal("nr_eigensystems", "Too many iterations in routine NR_ask_eigenvalues_jacobi.");

struct Eigen {
    explicit Eigen(const Matrix& a, int max_sweeps = 60) : d(a.rows()), v(a.rows(), a.rows()) {
        Matrix work = a;
        NR_ask_eigenvalues_jacobi(work.pointers(), a.rows(), max_sweeps, d.data(), v.pointers(),
                                  &rotations);
    }

    std::vector<double> d;
    Matrix v;
    int rotations = -1;
};

/// The scheme as the textbooks tell it, on the upper triangle alone, in the order of its
/// operations.
struct PlainJacobi {
    explicit PlainJacobi(Matrix a) : n(a.rows()), d(n), v(identity(n)) {
        std::vector<double> b(n), z(n);
        for (int i = 0; i < n; ++i)
            b[i] = d[i] = a(i, i);
        for (int sweep = 1; sweep < 60; ++sweep) {
            double sum = 0.0;
            for (int p = 0; p < n; ++p)
                for (int q = p + 1; q < n; ++q)
                    sum += std::fabs(a(p, q));
            if (sum <= 1e-10) return;
            const double threshold = sweep < 4 ? 0.2 * sum / (n * n) : 0.0;
            for (int p = 0; p < n; ++p)
                for (int q = p + 1; q < n; ++q)
                    visit(a, p, q, sweep, threshold, z);
            for (int i = 0; i < n; ++i) {
                b[i] += z[i];
                d[i] = b[i];
                z[i] = 0.0;
            }
        }
    }

    void visit(Matrix& a, int p, int q, int sweep, double threshold, std::vector<double>& z) {
        const double g = 100.0 * std::fabs(a(p, q));
        const auto lost = [g](double value) {
            return std::fabs((std::fabs(value) + g) - std::fabs(value)) <= 1e-10;
        };
        if (sweep > 4 && lost(d[p]) && lost(d[q])) {
            a(p, q) = 0.0;
            return;
        }
        if (!(std::fabs(a(p, q)) > threshold)) return;
        const double h = d[q] - d[p];
        double t = a(p, q) / h;
        if (!lost(h) || h == 0.0) {
            const double theta = 0.5 * h / a(p, q);
            t = 1.0 / (std::fabs(theta) + std::sqrt(theta * theta + 1.0));
            if (theta < 0.0) t = -t;
        }
        const double c = 1.0 / std::sqrt(t * t + 1.0);
        const double s = t * c;
        const double tau = s / (1.0 + c);
        const double shift = t * a(p, q);
        z[p] -= shift;
        z[q] += shift;
        d[p] -= shift;
        d[q] += shift;
        a(p, q) = 0.0;
        const auto turn = [s, tau](double& x, double& y) {
            const double g0 = x;
            const double h0 = y;
            x = g0 - s * (h0 + g0 * tau);
            y = h0 + s * (g0 - h0 * tau);
        };
        for (int j = 0; j < n; ++j) {
            if (j != p && j != q)
                turn(a(std::min(j, p), std::max(j, p)), a(std::min(j, q), std::max(j, q)));
            turn(v(j, p), v(j, q));
        }
        ++rotations;
    }

    int n;
    std::vector<double> d;
    Matrix v;
    int rotations = 0;
};

TEST(Jacobi, HasTheBitsOfThePlainScheme) {
    Random random;
    const NoBlocksLeft no_blocks_left;
    for (const int n : {1, 2, 3, 4, 5, 7, 10, 23, 50}) {
        const Matrix a = random_symmetric(random, n);
        const PlainJacobi plain(a);
        const Eigen eigen(a);
        EXPECT_EQ(eigen.d, plain.d) << "n = " << n;
        EXPECT_EQ(eigen.v, plain.v) << "n = " << n;
        EXPECT_EQ(eigen.rotations, plain.rotations);
        EXPECT_LT(distance(a * eigen.v, eigen.v * diagonal(eigen.d)), 1e-10 + 1e-14 * n);
        EXPECT_LT(distance(transposed(eigen.v) * eigen.v, identity(n)), 1e-15 * (n + 5));
    }
}

TEST(Jacobi, CirculantsAndScaledMatricesTakeTheirBranches) {
    // Equal diagonal elements make differences of exactly 0; tiny and mixed scales take the
    // quotient.
    Matrix circulant(4, 4, {2, 1, 0, 1, 1, 2, 1, 0, 0, 1, 2, 1, 1, 0, 1, 2});
    Matrix tiny(3, 3, {1, 4e-11, 3e-11, 4e-11, 2, 5e-11, 3e-11, 5e-11, 4});
    Matrix equal_tiny(2, 2, {1, 2e-10, 2e-10, 1});
    for (const Matrix& a : {circulant, tiny, equal_tiny}) {
        const PlainJacobi plain(a);
        const Eigen eigen(a);
        EXPECT_EQ(eigen.d, plain.d);
        EXPECT_EQ(eigen.v, plain.v);
        EXPECT_EQ(eigen.rotations, plain.rotations);
        for (const double value : eigen.d)
            EXPECT_TRUE(std::isfinite(value));
    }
    std::vector<double> values = Eigen(circulant).d;
    std::sort(values.begin(), values.end());
    const double expected[] = {0, 2, 2, 4};
    for (int i = 0; i < 4; ++i)
        EXPECT_NEAR(values[i], expected[i], 1e-14);
}

TEST(Jacobi, ReadsTheUpperTriangleAndLeavesTheRest) {
    Matrix a(3, 3, {3, 1, 2, 77, 5, 1, 88, 99, 7});
    const Matrix before = a;
    std::vector<double> d(3);
    Matrix v(3, 3);
    int rotations;
    NR_ask_eigenvalues_jacobi(a.pointers(), 3, 60, d.data(), v.pointers(), &rotations);
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j <= i; ++j)
            EXPECT_EQ(a(i, j), before(i, j));
    EXPECT_EQ(d, Eigen(Matrix(3, 3, {3, 1, 2, 1, 5, 1, 2, 1, 7})).d);
}

TEST(Jacobi, CountsSweepsAndReportsExhaustion) {
    const Matrix diagonal_matrix = diagonal({3, 1, 2});
    {
        ReportRecorder recorder;
        const Eigen eigen(diagonal_matrix, 2);
        EXPECT_EQ(recorder.take(), Reports{});
        EXPECT_EQ(eigen.rotations, 0);
        EXPECT_EQ(eigen.d, (std::vector<double>{3, 1, 2}));
        EXPECT_EQ(eigen.v, identity(3));
    }
    const NoBlocksLeft no_blocks_left;
    ReportRecorder recorder;
    Eigen(diagonal_matrix, 1);
    EXPECT_EQ(recorder.take(), Reports{exhausted});
    Matrix bad = identity(3);
    bad(0, 1) = bad(1, 0) = std::nan("");
    Eigen(bad, 1'000'000'000);
    EXPECT_EQ(recorder.take(), Reports{exhausted});
    bad(0, 1) = bad(1, 0) = HUGE_VAL;  // one rotation takes it to the diagonal
    EXPECT_EQ(Eigen(bad, 1'000'000'000).d[0], -HUGE_VAL);
    EXPECT_EQ(recorder.take(), Reports{});
}

TEST(GeneralizedEigen, SolvesThePencilWithVectorsOfLengthOneInB) {
    Random random;
    const NoBlocksLeft no_blocks_left;
    for (const int n : {1, 2, 4, 9}) {
        const Matrix a = random_symmetric(random, n);
        const Matrix r = random_matrix(random, n, n);
        Matrix b = r * transposed(r);
        for (int i = 0; i < n; ++i)
            b(i, i) += 0.5;
        Matrix work_a = a;
        Matrix work_b = b;
        std::vector<double> values(n);
        double* block = nullptr;
        int rotations = -1;
        int status = -1;
        NR_generalized_eigenvalues_symm(work_a.flat(), work_b.flat(), n, 60, values.data(), &block,
                                        &rotations, &status);
        ASSERT_EQ(status, 0);
        Matrix x(n, n);
        std::copy_n(block, n * n, x.flat());
        SM_free(block);
        EXPECT_LT(distance(a * x, b * x * diagonal(values)), 1e-9);
        EXPECT_LT(distance(transposed(x) * b * x, identity(n)), 1e-12);
        EXPECT_EQ(rotations > 0, n > 1);

        // The same into the caller's block, which may be B itself.
        work_a = a;
        work_b = b;
        double* own_block = work_b.flat();
        NR_generalized_eigenvalues_symm(work_a.flat(), work_b.flat(), n, 60, values.data(),
                                        &own_block, &rotations, &status);
        EXPECT_EQ(own_block, work_b.flat());
        EXPECT_EQ(work_b, x);
    }
}

TEST(GeneralizedEigen, PassesOnThatBIsNotPositiveDefinite) {
    Matrix a = identity(2);
    Matrix b(2, 2, {4, 0, 0, 0});
    double values[2] = {7, 7};
    double* block = nullptr;
    int rotations = 7;
    int status = 7;
    NR_generalized_eigenvalues_symm(a.flat(), b.flat(), 2, 60, values, &block, &rotations, &status);
    EXPECT_EQ(status, 1);
    EXPECT_EQ(values[0], 2);
    EXPECT_EQ(block, nullptr);
    EXPECT_EQ(rotations, 7);
}

TEST(GeneralizedEigen, AReportThatUnwindsLeavesNoBlock) {
    const NoBlocksLeft no_blocks_left;
    Matrix a = identity(20);
    Matrix b = identity(20);
    std::vector<double> values(20);
    double* block = nullptr;
    int rotations;
    int status;
    ReportRecorder recorder([](const Report& report) { throw report; });
    EXPECT_THROW(NR_generalized_eigenvalues_symm(a.flat(), b.flat(), 20, 1, values.data(), &block,
                                                 &rotations, &status),
                 Report);
    EXPECT_EQ(block, nullptr);
    EXPECT_EQ(recorder.take(), Reports{exhausted});
}

TEST(PowerIteration, FindsTheDominantPair) {
    Matrix a(2, 2, {3, 0, 0, 1});
    const double start[2] = {1, 1};
    double value;
    double vector[2];
    int not_converged;
    NR_ask_max_eigen_val_vec(2, a.pointers(), 100, start, &value, vector, &not_converged);
    EXPECT_EQ(not_converged, 0);
    EXPECT_EQ(value, 3);
    EXPECT_EQ(vector[0], 1);
    EXPECT_NEAR(vector[1], 0, 1e-4);

    NR_ask_max_eigen_val_vec(2, a.pointers(), 1, start, &value, vector, &not_converged);
    EXPECT_EQ(not_converged, 1);  // a first vector has nothing to be compared with
    EXPECT_EQ(vector[1], 1.0 / 3.0);

    Matrix turning(2, 2, {0, -2, 2, 0});
    NR_ask_max_eigen_val_vec(2, turning.pointers(), 50, start, &value, vector, &not_converged);
    EXPECT_EQ(not_converged, 1);

    Matrix flipping(2, 2, {-2, 0, 0, -2});
    NR_ask_max_eigen_val_vec(2, flipping.pointers(), 50, start, &value, vector, &not_converged);
    EXPECT_EQ(not_converged, 0);
    EXPECT_EQ(value, -2);

    NR_ask_max_eigen_val_vec(2, a.pointers(), 0, start, &value, vector, &not_converged);
    EXPECT_EQ(not_converged, 1);
    EXPECT_EQ(vector[1], 1);
}

TEST(Cholesky, FactorInverseAndSolutionAgree) {
    Random random;
    for (const int n : {1, 2, 5, 12}) {
        const Matrix r = random_matrix(random, n, n);
        Matrix spd = r * transposed(r);
        for (int i = 0; i < n; ++i)
            spd(i, i) += 1.0;
        Matrix a = spd;
        std::vector<double> p(n);
        int status = -1;
        NR_cholesky_decomp(n, a.flat(), p.data(), &status);
        ASSERT_EQ(status, 0);
        Matrix l = diagonal(p);
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) {
                if (j < i) l(i, j) = a(i, j);
                if (j >= i) {
                    EXPECT_EQ(a(i, j), spd(i, j));
                }
            }
        EXPECT_LT(distance(l * transposed(l), spd), 1e-13 * n);

        Matrix inverse = a;
        NR_cholesky_inverse(n, p.data(), inverse.flat());
        NR_matrix_2d_as_1d_init_zero_ut(inverse.flat(), n);
        EXPECT_LT(distance(l * inverse, identity(n)), 1e-12);

        // All unknowns but the first are those of the whole system; the first is that of L x = b.
        Matrix b = random_matrix(random, n, 1);
        Matrix x(n, 1);
        NR_cholesky_solver(a.flat(), n, p.data(), b.flat(), x.flat());
        const Matrix forward = inverse * b;
        const Matrix whole = transposed(inverse) * forward;
        EXPECT_NEAR(x(0, 0), forward(0, 0), 1e-12);
        for (int i = 1; i < n; ++i)
            EXPECT_NEAR(x(i, 0), whole(i, 0), 1e-11);

        Matrix in_place = b;
        NR_cholesky_solver(a.flat(), n, p.data(), in_place.flat(), in_place.flat());
        EXPECT_EQ(in_place, x);
    }
}

TEST(Cholesky, RefusesRemaindersBelowItsBound) {
    const auto status_of = [](double last) {
        Matrix a(2, 2, {1, 0, 0, last});
        double p[2];
        int status;
        NR_cholesky_decomp(2, a.flat(), p, &status);
        return status;
    };
    EXPECT_EQ(status_of(1e-10), 0);
    EXPECT_EQ(status_of(std::nextafter(1e-10, 0.0)), 1);
    EXPECT_EQ(status_of(-1.0), 1);
}

TEST(MatrixHelpers, FillCopyTransposeAndMultiplyInBothForms) {
    Random random;
    const NoBlocksLeft no_blocks_left;
    const Matrix a = random_matrix(random, 3, 4);
    const Matrix b = random_matrix(random, 4, 2);
    Matrix first = a;
    Matrix second = b;
    Matrix product(3, 2);
    Matrix flat_product(3, 2);
    NR_2d_matrix_product_of_2(first.pointers(), second.pointers(), 3, 4, 2, product.pointers());
    NR_matrix_2d_as_1d_product_of_2(first.flat(), second.flat(), 3, 4, 2, flat_product.flat());
    EXPECT_EQ(flat_product, product);
    EXPECT_LT(distance(product, a * b), 1e-15 * 10);

    const Matrix square = random_matrix(random, 4, 4);
    Matrix left = square;
    Matrix right = square;
    const Matrix squared = square * square;
    NR_2d_matrix_product_of_2(left.pointers(), left.pointers(), 4, 4, 4, left.pointers());
    NR_matrix_2d_as_1d_product_of_2(right.flat(), right.flat(), 4, 4, 4, right.flat());
    EXPECT_EQ(left, right);
    EXPECT_LT(distance(left, squared), 1e-14);

    Matrix turned = square;
    NR_2d_matrix_nxn_transp(turned.pointers(), 4);
    EXPECT_EQ(turned, transposed(square));
    NR_matrix_2d_as_1d_nxn_transp(turned.flat(), 4);
    EXPECT_EQ(turned, square);

    Matrix triangles = square;
    NR_matrix_2d_as_1d_init_zero_ut(triangles.flat(), 4);
    NR_matrix_2d_as_1d_init_zero_lt(triangles.flat(), 4);
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            EXPECT_EQ(triangles(i, j), i == j ? square(i, j) : 0.0);

    NR_2d_matrix_identity(left.pointers(), 4);
    NR_matrix_2d_as_1d_identity(right.flat(), 4);
    EXPECT_EQ(left, identity(4));
    EXPECT_EQ(right, identity(4));
    NR_2d_matrix_init_zero(left.pointers(), 4, 3);
    EXPECT_EQ(left(3, 2), 0.0);
    EXPECT_EQ(left(3, 3), 1.0);
    NR_matrix_2d_as_1d_init_zero(right.flat(), 4, 4);
    EXPECT_EQ(right, Matrix(4, 4));
}

TEST(MatrixHelpers, AllocatedRowsLieInOneBlock) {
    const NoBlocksLeft no_blocks_left;
    double* block = nullptr;
    double** rows = NR_2d_matrix_allo(3, 2, &block);
    EXPECT_EQ(SM_length(block), 6 * sizeof(double));
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(rows[i], block + 2 * i);

    double own[6];
    double* own_block = own;
    double** own_rows = NR_2d_matrix_allo(2, 3, &own_block);
    EXPECT_EQ(own_rows[1], own + 3);
    EXPECT_EQ(own_block, own);

    const double source[6] = {1, 2, 3, 4, 5, 6};
    double back[6];
    NR_matrix_copy_1d_to_2d(source, 2, 3, own_rows);
    NR_matrix_copy_2d_to_1d(own_rows, 2, 3, back);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(back[i], source[i]);
    NR_matrix_copy_2d_to_1d(own_rows, 2, 2, own + 1);  // over its own source
    const double shifted[] = {1, 1, 2, 4, 5, 6};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(own[i], shifted[i]);

    SM_free(own_rows);
    SM_free(rows);
    SM_free(block);
}

}  // namespace
