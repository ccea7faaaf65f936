// Eigenvalues, Cholesky factors, power iteration.
#include "support/matrix.h"
#include "support/reports.h"
#include "syss/syss.h"
#include "ztmath/nr.h"

namespace {

using namespace ztmath_test;

Matrix random_symmetric(Random& random, int n) {
    const Matrix m = random_matrix(random, n, n);
    return made_of(n, n, [&](int i, int j) { return m(std::min(i, j), std::max(i, j)); });
}

struct Eigen {
    std::vector<double> d;
    Matrix v;
    int rotations = 0;

    bool operator==(const Eigen&) const = default;
};

Eigen jacobi(Matrix a, int max_sweeps = 60) {
    const int n = a.rows();
    Eigen e{std::vector<double>(n), Matrix(n, n)};
    NR_ask_eigenvalues_jacobi(a.pointers(), n, max_sweeps, e.d.data(), e.v.pointers(),
                              &e.rotations);
    return e;
}

/// A visit to a pair, as the textbooks tell it, on the upper triangle alone, in the order of its
/// operations.
void plain_visit(Matrix& a, int p, int q, int sweep, double threshold, Eigen& e,
                 std::vector<double>& z) {
    const double g = 100.0 * std::fabs(a(p, q));
    const auto lost = [g](double value) {
        return std::fabs((std::fabs(value) + g) - std::fabs(value)) <= 1e-10;
    };
    if (sweep > 4 && lost(e.d[p]) && lost(e.d[q])) a(p, q) = 0.0;
    if (!(std::fabs(a(p, q)) > threshold)) return;
    const double h = e.d[q] - e.d[p];
    double t = a(p, q) / h;
    if (!lost(h) || h == 0.0) {
        const double theta = 0.5 * h / a(p, q);
        t = 1.0 / (std::fabs(theta) + std::sqrt(theta * theta + 1.0));
        if (theta < 0.0) t = -t;
    }
    const double c = 1.0 / std::sqrt(t * t + 1.0), s = t * c;
    const double tau = s / (1.0 + c);
    const double shift = t * a(p, q);
    for (std::vector<double>* values : {&z, &e.d}) {
        (*values)[p] -= shift;
        (*values)[q] += shift;
    }
    a(p, q) = 0.0;
    const auto turn = [s, tau](double& x, double& y) {
        const double before = x;
        x -= s * (y + x * tau);
        y += s * (before - y * tau);
    };
    for (int j = 0; j < a.rows(); ++j) {
        if (j != p && j != q)
            turn(a(std::min(j, p), std::max(j, p)), a(std::min(j, q), std::max(j, q)));
        turn(e.v(j, p), e.v(j, q));
    }
    ++e.rotations;
}

Eigen plain_jacobi(Matrix a) {
    const int n = a.rows();
    Eigen e{std::vector<double>(n), identity(n)};
    for (int i = 0; i < n; ++i)
        e.d[i] = a(i, i);
    std::vector<double> before = e.d;
    for (int sweep = 1; sweep < 60; ++sweep) {
        double sum = 0.0;
        for (int p = 0; p < n; ++p)
            for (int q = p + 1; q < n; ++q)
                sum += std::fabs(a(p, q));
        if (sum <= 1e-10) break;
        const double threshold = sweep < 4 ? 0.2 * sum / (n * n) : 0.0;
        std::vector<double> z(n);
        for (int p = 0; p < n; ++p)
            for (int q = p + 1; q < n; ++q)
                plain_visit(a, p, q, sweep, threshold, e, z);
        for (int i = 0; i < n; ++i)
            e.d[i] = before[i] += z[i];
    }
    return e;
}

TEST(Jacobi, HasTheBitsOfThePlainScheme) {
    Random random;
    // Equal diagonal elements make differences of exactly 0; tiny and mixed scales take the
    // quotient.
    std::vector<Matrix> matrices = {
        {4, 4, {2, 1, 0, 1, 1, 2, 1, 0, 0, 1, 2, 1, 1, 0, 1, 2}},
        {3, 3, {1, 4e-11, 3e-11, 4e-11, 2, 5e-11, 3e-11, 5e-11, 4}},
        {2, 2, {1, 2e-10, 2e-10, 1}},
        {2, 2, {1, 1e-10, 1e-10, 1}},
    };
    for (const int n : {1, 2, 3, 4, 5, 7, 23, 50})
        matrices.push_back(random_symmetric(random, n));
    // Two and two by next to nothing, apart from the others.
    const Matrix corner(4, 4, {2, 5e-13, 0, 0, 0, 2, 0, 0, 0, 0, 0, 1e-12, 0, 0, 0, 0x1p-37});
    matrices.push_back(made_of(10, 10, [&, rest = random_symmetric(random, 10)](int i, int j) {
        return std::max(i, j) < 4 ? corner(i, j) : std::min(i, j) < 4 ? 0.0 : rest(i, j);
    }));
    for (const Matrix& a : matrices) {
        const int n = a.rows();
        const Eigen eigen = jacobi(a);
        EXPECT_EQ(eigen, plain_jacobi(a)) << "n = " << n;
        EXPECT_LT(distance(a * eigen.v, eigen.v * diagonal(eigen.d)), 1e-10 + 1e-14 * n);
    }
}

TEST(Jacobi, CountsSweepsAndReportsExhaustion) {
    const Report exhausted =
        internal("nr_eigensystems", "Too many iterations in routine NR_ask_eigenvalues_jacobi.");
    ReportRecorder recorder;
    jacobi(diagonal({3, 1, 2}), 2);
    EXPECT_EQ(recorder.take(), Reports{});
    jacobi(diagonal({3, 1, 2}), 1);
    // What is no number goes on as long as others are left to turn.
    EXPECT_EQ(jacobi({3, 3, {1, std::nan(""), 2, 0, 1, 3, 0, 0, 1}}, 1'000'000'000).rotations, 1);
    EXPECT_EQ(jacobi({3, 3, {1, std::nan(""), 0, 0, 1, 0, 0, 0, 1}}, 1'000'000'000).rotations, 0);
    EXPECT_EQ(recorder.take(), Reports(3, exhausted));
}

/// The vectors go into the caller's block or, if there is none, into a new one.
struct Pencil {
    Pencil(Matrix a, Matrix b, double* block_) : block(block_), values(a.rows()) {
        NR_generalized_eigenvalues_symm(a.flat(), b.flat(), a.rows(), 60, values.data(), &block,
                                        &rotations, &status);
    }
    double* block;
    std::vector<double> values;
    int rotations = -1, status = -1;
};

TEST(GeneralizedEigen, SolvesThePencilWithVectorsOfLengthOneInB) {
    Random random;
    for (const int n : {1, 2, 4, 9}) {
        const Matrix a = random_symmetric(random, n), b = random_definite(random, n, 0.5);
        const Pencil found(a, b, nullptr);
        ASSERT_EQ(found.status, 0);
        EXPECT_EQ(found.rotations > 0, n > 1);
        Matrix x(n, n, {found.block, found.block + n * n});
        SM_free(found.block);
        EXPECT_LT(distance(a * x, b * x * diagonal(found.values)), 1e-9);
        EXPECT_LT(distance(transposed(x) * b * x, identity(n)), 1e-12);
        const Matrix first = x;
        EXPECT_EQ(Pencil(a, b, x.flat()).block, x.flat());
        EXPECT_EQ(x, first);
    }
    double untouched = 7;
    EXPECT_EQ(Pencil({0, 0}, {0, 0}, &untouched).status, 0);
    EXPECT_EQ(untouched, 7);
}

TEST(GeneralizedEigen, BesideTheIdentityIsThatOfTheUpperTriangle) {
    Random random;
    Matrix a = random_symmetric(random, 4), x(4, 4);
    a(0, 1) = a(1, 0) = 0;  // no turn of these two, which would set the second column
    const Eigen alone = jacobi(a);
    a(2, 1) += 1;
    EXPECT_EQ(Pencil(a, identity(4), x.flat()).values, alone.d);
    EXPECT_EQ(x, alone.v);
}

TEST(GeneralizedEigen, PassesOnThatBIsNotPositiveDefinite) {
    const auto& [block, values, rotations, status] =
        Pencil(identity(2), {2, 2, {4, 0, 0, 0}}, nullptr);
    EXPECT_EQ(std::tuple(status, values[0], block, rotations), std::tuple(1, 2.0, nullptr, -1));
}

TEST(GeneralizedEigen, ReportsThatAFactorOfNoNumbersHasNoVectors) {
    for (const double b : {HUGE_VAL, std::nan("")}) {
        const std::size_t failures = std::isnan(b) ? 1 : 0;
        const ReportRecorder recorder;
        double vector = 7;
        Pencil(identity(1), {1, 1, {b}}, &vector);
        EXPECT_EQ(vector == 0, !std::isnan(b));
        EXPECT_EQ(recorder.reports(),
                  Reports(failures, internal("nr_eigensystems",
                                             "The third call of SOLVE_lu_solver failed.")));
    }
}

TEST(PowerIteration, FindsTheDominantPair) {
    const std::tuple<Matrix, int, int, double, std::array<double, 2>> rows[] = {
        {{2, 2, {3, 0, 0, 1}}, 100, 0, 3, {1, std::pow(3.0, -12)}},  // half of what it changed by
        // A first vector has nothing to be compared with.
        {{2, 2, {3, 0, 0, 1}}, 1, 1, 3, {1, 1.0 / 3.0}},
        {{2, 2, {3, 0, 0, 1}}, 0, 1, 0, {1, 1}},
        {{2, 2, {1, 1, -1, -1}}, 1, 1, 2, {1, -1}},  // the first of equals
        // The vectors go to (-1 + 2 * 0.9^k, 1), where they are about the root of 2 long.
        {{2, 2, {2.7, -0.3, 0, 3}}, 200, 0, 3, {-1 + 2 * std::pow(0.9, 92), 1}},
        {{2, 2, {0, -2, 2, 0}}, 50, 1, 2, {1, 1}},
        {{2, 2, {-2, 0, 0, -2}}, 2, 0, -2, {1, 1}},
        {{1, 1, {-5}}, 2, 0, -5, {1, 7}},
        {{0, 0}, 1, 1, 0, {7, 7}},
    };
    for (auto [a, iterations, not_converged, value, expected] : rows) {
        SCOPED_TRACE(testing::PrintToString(std::vector(a.begin(), a.end())));
        const double start[2] = {1, 1};
        double found = 7, vector[2] = {7, 7};
        int status = 7;
        NR_ask_max_eigen_val_vec(a.rows(), a.pointers(), iterations, start, &found, vector,
                                 &status);
        EXPECT_EQ(std::pair(status, found), std::pair(not_converged, value));
        for (const int k : {0, 1})
            EXPECT_NEAR(vector[k], expected[k], 1e-13);
    }
}

struct CholeskyFactor {
    explicit CholeskyFactor(const Matrix& m) : a(m), p(m.rows()) {
        NR_cholesky_decomp(m.rows(), a.flat(), p.data(), &status);
    }
    Matrix a;
    std::vector<double> p;
    int status = -1;
};

TEST(Cholesky, FactorInverseAndSolutionAgree) {
    Random random;
    for (const int n : {0, 1, 2, 5, 12}) {
        const Matrix spd = random_definite(random, n, 1.0);
        CholeskyFactor f(spd);
        ASSERT_EQ(f.status, 0);
        const auto below = [&](const Matrix& beside) {
            return made_of(n, n, [&](int i, int j) { return (i > j ? f.a : beside)(i, j); });
        };
        EXPECT_EQ(f.a, below(spd)) << "on the diagonal and above";
        const Matrix l = below(diagonal(f.p));
        EXPECT_LE(distance(l * transposed(l), spd), 1e-13 * n);

        Matrix inverse = f.a;
        NR_cholesky_inverse(n, f.p.data(), inverse.flat());
        NR_matrix_2d_as_1d_init_zero_ut(inverse.flat(), n);
        EXPECT_LT(distance(l * inverse, identity(n)), 1e-12);

        // All unknowns but the first are those of the whole system; the first is that of L x = b.
        Matrix b = random_matrix(random, n, 1), x(n, 1);
        EXPECT_EQ(NR_cholesky_solver(f.a.flat(), n, f.p.data(), b.flat(), x.flat()), 0);
        const Matrix half = inverse * b, whole = transposed(inverse) * half;
        for (int i = 0; i < n; ++i)
            EXPECT_NEAR(x(i, 0), (i == 0 ? half : whole)(i, 0), 1e-11);
    }
}

TEST(Cholesky, RefusesRemaindersBelowItsBound) {
    for (const double last : {1e-10, std::nextafter(1e-10, 0.0)})
        EXPECT_EQ(CholeskyFactor({2, 2, {1, 0, 0, last}}).status, last < 1e-10);
}

TEST(MatrixHelpers, FillTransposeAndMultiplyInBothForms) {
    Random random;
    Matrix a = random_matrix(random, 3, 4), b = random_matrix(random, 4, 2);
    Matrix product(3, 2), flat_product(3, 2);
    NR_2d_matrix_product_of_2(a.pointers(), b.pointers(), 3, 4, 2, product.pointers());
    NR_matrix_2d_as_1d_product_of_2(a.flat(), b.flat(), 3, 4, 2, flat_product.flat());
    EXPECT_EQ(flat_product, product);
    EXPECT_LT(distance(product, a * b), 1e-15 * 10);

    const Matrix square = random_matrix(random, 4, 4);
    Matrix m = square;
    NR_2d_matrix_nxn_transp(m.pointers(), 4);
    EXPECT_EQ(m, transposed(square));
    NR_matrix_2d_as_1d_nxn_transp(m.flat(), 4);
    EXPECT_EQ(m, square);
    NR_matrix_2d_as_1d_init_zero_ut(m.flat(), 4);
    EXPECT_EQ(m(2, 1), square(2, 1));
    NR_matrix_2d_as_1d_init_zero_lt(m.flat(), 4);
    EXPECT_EQ(m, diagonal({square(0, 0), square(1, 1), square(2, 2), square(3, 3)}));
    NR_matrix_2d_as_1d_identity(m.flat(), 4);
    EXPECT_EQ(m, identity(4));
    NR_matrix_2d_as_1d_init_zero(m.flat(), 4, 4);
    EXPECT_EQ(m, Matrix(4, 4));
    NR_2d_matrix_identity(m.pointers(), 4);
    NR_2d_matrix_init_zero(m.pointers(), 4, 3);
    EXPECT_EQ(m, diagonal({0, 0, 0, 1}));
}

TEST(MatrixHelpers, AllocatedRowsLieInOneBlock) {
    double* block = nullptr;
    double** rows = NR_2d_matrix_allo(3, 2, &block);
    EXPECT_EQ(SM_length(block), 6 * sizeof(double));
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(rows[i], block + 2 * i);
    SM_free(rows);
    SM_free(block);

    std::array<double, 6> own;
    block = own.data();
    rows = NR_2d_matrix_allo(2, 3, &block);
    EXPECT_EQ(rows[1], own.data() + 3);
    const std::array<double, 6> source = {1, 2, 3, 4, 5, 6};
    NR_matrix_copy_1d_to_2d(source.data(), 2, 3, rows);
    EXPECT_EQ(own, source);
    NR_matrix_copy_2d_to_1d(rows, 2, 2, own.data() + 1);  // over its own source
    EXPECT_EQ(own, (std::array<double, 6>{1, 1, 2, 4, 5, 6}));
    SM_free(rows);
    rows = NR_2d_matrix_allo(2, 0, &block);
    EXPECT_EQ(rows[1], block);
    SM_free(rows);
}

}  // namespace
