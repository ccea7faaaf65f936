// Banded systems and their error register.
#include "ztmath/banded.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "support/random.h"
#include "support/session.h"

namespace {

using namespace ztmath_test;
using Matrix = std::vector<std::vector<double>>;
using Vector = std::vector<double>;

constexpr double nan_value = std::numeric_limits<double>::quiet_NaN();

/// A clear register, and a system that is disposed of.
class System {
  public:
    System(int order, int half_width) : n(order), bw(half_width) {
        merrorflush();
        msetup_banded(n, bw, &matrix, &b);
    }
    ~System() {
        mdispose_banded(&matrix, &b);
        merrorflush();
    }
    System(const System&) = delete;
    System& operator=(const System&) = delete;

    bool holds(int i, int j) const { return std::abs(i - j) <= bw; }
    int first(int i) const { return std::max(0, i - bw); }
    int last(int i) const { return std::min<long>(n - 1, static_cast<long>(i) + bw); }

    /// The stored elements, zeros elsewhere.
    Matrix full() const {
        Matrix a(n, Vector(n, 0.0));
        for (int i = 0; i < n; ++i)
            std::copy(matrix[i] + first(i), matrix[i] + last(i) + 1, a[i].begin() + first(i));
        return a;
    }

    void fill(Random& random, double diagonal) {
        for (int i = 0; i < n; ++i) {
            for (int j = first(i); j <= last(i); ++j)
                matrix[i][j] = random.uniform(-1.0, 1.0) + (i == j ? diagonal : 0.0);
            b[i] = random.uniform(-1.0, 1.0);
        }
    }

    const int n, bw;
    double** matrix;
    double* b;
};

/// The rule as it is stated: false at a null pivot.
bool plain_decompose(Matrix& a, int bw) {
    const int n = static_cast<int>(a.size());
    for (int i = 1; i < n; ++i)
        for (int k = std::max(i - bw, 0); k < i; ++k) {
            if (std::fabs(a[k][k]) < 1.0e-15) return false;
            a[i][k] = a[i][k] / a[k][k];
            for (int j = k + 1; j <= std::min(k + bw, n - 1); ++j)
                a[i][j] -= a[i][k] * a[k][j];
        }
    return true;
}

bool plain_solve(const Matrix& a, int bw, Vector& b) {
    const int n = static_cast<int>(a.size());
    for (int i = 1; i < n; ++i)
        for (int k = std::max(i - bw, 0); k < i; ++k)
            b[i] -= a[i][k] * b[k];
    for (int i = n - 1; i >= 0; --i) {
        for (int j = i + 1; j <= std::min(i + bw, n - 1); ++j)
            b[i] -= a[i][j] * b[j];
        if (std::fabs(a[i][i]) < 1.0e-15) return false;
        b[i] /= a[i][i];
    }
    return true;
}

/// Gauss with partial pivoting in extended precision.
std::vector<long double> solution(const Matrix& matrix, const Vector& b) {
    const int n = static_cast<int>(b.size());
    std::vector<std::vector<long double>> a(n);
    for (int i = 0; i < n; ++i) {
        a[i].assign(matrix[i].begin(), matrix[i].end());
        a[i].push_back(b[i]);
    }
    for (int k = 0; k < n; ++k) {
        const auto larger = [k](const auto& r, const auto& s) {
            return std::fabs(r[k]) < std::fabs(s[k]);
        };
        std::iter_swap(a.begin() + k, std::max_element(a.begin() + k, a.end(), larger));
        for (int i = 0; i < n; ++i) {
            if (i == k) continue;
            const long double factor = a[i][k] / a[k][k];
            for (int j = k; j <= n; ++j)
                a[i][j] -= factor * a[k][j];
        }
    }
    std::vector<long double> x(n);
    for (int i = 0; i < n; ++i)
        x[i] = a[i][n] / a[i][i];
    return x;
}

struct Shape {
    int n, bw;
};

/// All widths around those that are treated by themselves, and all lengths of what they leave over.
std::vector<Shape> shapes() {
    std::vector<Shape> list;
    for (const int bw : {0, 1, 2, 3, 4, 7, 8, 9, 10, 11, 12, 13, 17, INT_MAX})
        for (const int n : {1, 2, 3, 4, 5, 8, 9, 10, 16, 17, 18, 19, 20, 21, 40})
            list.push_back({n, bw});
    return list;
}

std::string name(const System& s) {
    return "n " + std::to_string(s.n) + ", bw " + std::to_string(s.bw);
}

TEST(Banded, SolvesDominantSystems) {
    Random random;
    for (const auto& [n, bw] : shapes()) {
        System s(n, bw);
        s.fill(random, 2.0 * std::min(n, bw) + 1.0);
        const auto expected = solution(s.full(), Vector(s.b, s.b + n));
        mdecompose_banded(s.matrix, n, bw);
        msolve_banded(s.matrix, n, bw, s.b);
        EXPECT_EQ(merrornum(), 0);
        EXPECT_EQ(merrorlevel(), 0);
        for (int i = 0; i < n; ++i)
            ASSERT_NEAR(s.b[i], expected[i], 1e-15) << name(s);
    }
}

TEST(Banded, ComputesEveryElementAsThePlainLoopsDo) {
    Random random;
    for (const auto& [n, bw] : shapes()) {
        const int width = std::min(n, bw);
        for (int null_at = -1; null_at < n; null_at += 1 + n / 10) {
            System s(n, bw);
            s.fill(random, 0.5);
            // A row of zeros has a pivot of exactly zero, whatever is taken from it.
            if (null_at >= 0)
                std::fill(s.matrix[null_at] + s.first(null_at),
                          s.matrix[null_at] + s.last(null_at) + 1, 0.0);
            Matrix a = s.full();
            Vector b(s.b, s.b + n);
            const bool factored = plain_decompose(a, width);
            mdecompose_banded(s.matrix, n, bw);
            EXPECT_EQ(merrornum(), factored ? 0 : 7235) << name(s);
            EXPECT_EQ(merrorlevel(), factored ? 0 : 4) << name(s);
            ASSERT_EQ(s.full(), a) << name(s) << ", null pivot " << null_at;

            merrorflush();
            const bool solved = plain_solve(a, width, b);
            msolve_banded(s.matrix, n, bw, s.b);
            EXPECT_EQ(merrornum(), solved ? 0 : 7235) << name(s);
            ASSERT_EQ(Vector(s.b, s.b + n), b) << name(s) << ", null pivot " << null_at;
        }
    }
}

TEST(Banded, LeavesSmallResidualsInLargeSystems) {
    constexpr int n = 100000;
    Random random;
    System s(n, 8);
    s.fill(random, 17.0);
    System original(n, 8);
    for (int i = 0; i < n; ++i)
        std::copy(s.matrix[i] + s.first(i), s.matrix[i] + s.last(i) + 1,
                  original.matrix[i] + s.first(i));
    std::copy(s.b, s.b + n, original.b);
    mdecompose_banded(s.matrix, n, 8);
    msolve_banded(s.matrix, n, 8, s.b);
    for (int i = 0; i < n; ++i) {
        long double residual = original.b[i];
        for (int j = s.first(i); j <= s.last(i); ++j)
            residual -= static_cast<long double>(original.matrix[i][j]) * s.b[j];
        ASSERT_LT(std::fabs(residual), 2e-15) << i;
    }
}

TEST(Banded, TakesPivotsDownToAFixedSize) {
    for (const double pivot : {1.0e-15, -1.0e-15, 0.99e-15, -0.99e-15, nan_value}) {
        const bool is_null = std::fabs(pivot) < 1.0e-15;
        System s(2, 1);
        s.matrix[0][0] = pivot;
        s.matrix[1][0] = s.matrix[1][1] = 1.0;
        mdecompose_banded(s.matrix, 2, 1);
        EXPECT_EQ(merrornum(), is_null ? 7235 : 0);

        System last(2, 1);  // the last diagonal element is looked at only when solving
        last.matrix[0][0] = 1.0;
        last.matrix[1][1] = pivot;
        last.b[0] = last.b[1] = 1.0;
        mdecompose_banded(last.matrix, 2, 1);
        EXPECT_EQ(merrornum(), 0);
        msolve_banded(last.matrix, 2, 1, last.b);
        EXPECT_EQ(merrornum(), is_null ? 7235 : 0);
        EXPECT_EQ(merrorlevel(), is_null ? 4 : 0);
    }
}

TEST(Banded, StoresTheBandInOneBlockOfZeros) {
    for (const auto& [n, bw] : shapes()) {
        const System s(n, bw);
        std::size_t count = 0;
        for (int i = 0; i < n; ++i)
            for (int j = s.first(i); j <= s.last(i); ++j, ++count) {
                ASSERT_EQ(&s.matrix[i][j], s.matrix[-1] + count) << name(s);
                ASSERT_EQ(s.matrix[i][j], 0.0);
            }
        EXPECT_EQ(SM_length(s.matrix[-1]), count * sizeof(double)) << name(s);
        EXPECT_EQ(SM_length(s.matrix - 1), (n + 1) * sizeof(double*)) << name(s);
        EXPECT_EQ(SM_length(s.b), n * sizeof(double)) << name(s);
    }
}

TEST(Banded, SolvesIntoTheMatrixItself) {
    Random random;
    System s(6, 5);
    s.fill(random, 12.0);
    mdecompose_banded(s.matrix, 6, 5);
    std::copy(s.b, s.b + 6, s.matrix[2]);
    const Vector before(s.matrix[2], s.matrix[2] + 6);
    Matrix a = s.full();
    Vector expected = before;
    plain_solve(a, 5, expected);
    msolve_banded(s.matrix, 6, 5, s.matrix[2]);
    EXPECT_EQ(Vector(s.matrix[2], s.matrix[2] + 6), expected);
}

TEST(Banded, SetUpFailsOnBadArgumentsAndOnErrorsOfBefore) {
    const NoBlocksLeft no_blocks_left;
    double element = 0.0;
    double* row = &element;
    for (const auto& [n, bw] :
         {Shape{0, 1}, Shape{-1, 1}, Shape{INT_MIN, 1}, Shape{3, -1}, Shape{3, INT_MIN}}) {
        merrorflush();
        double** matrix = &row;
        double* b = &element;
        msetup_banded(n, bw, &matrix, &b);
        EXPECT_EQ(matrix, nullptr);
        EXPECT_EQ(b, nullptr);
        EXPECT_EQ(merrornum(), 280);
        EXPECT_EQ(merrorlevel(), 4);
    }
    double** matrix = &row;
    double* b = &element;
    merrorpush("before", 77, 1);
    msetup_banded(3, 1, &matrix, &b);
    EXPECT_EQ(matrix, nullptr);
    EXPECT_EQ(b, nullptr);
    EXPECT_EQ(merrornum(), 77);
    EXPECT_EQ(merrorlevel(), 1);

    merrorpush(nullptr, 78, 0);  // the level decides, not the number
    msetup_banded(3, 1, &matrix, &b);
    EXPECT_NE(matrix, nullptr);
    EXPECT_EQ(merrornum(), 78);
    mdispose_banded(&matrix, &b);
    EXPECT_EQ(matrix, nullptr);
    EXPECT_EQ(b, nullptr);
    mdispose_banded(&matrix, &b);

    merrorpush(nullptr, 1, 2);
    merrorpush(nullptr, INT_MIN, INT_MAX);
    EXPECT_EQ(merrornum(), INT_MIN);
    EXPECT_EQ(merrorlevel(), INT_MAX);
    merrorflush();
    EXPECT_EQ(merrornum(), 0);
    EXPECT_EQ(merrorlevel(), 0);
}

TEST(Banded, RefusedMemoryUnwindsWithNothingMade) {
    const NoBlocksLeft no_blocks_left;
    struct Call {
        int n, bw;
        double** matrix;
        double* b;
    };
    const auto set_up = [](void* data) {
        Call& call = *static_cast<Call*>(data);
        msetup_banded(call.n, call.bw, &call.matrix, &call.b);
    };
    merrorflush();
    double* row = nullptr;
    // Room for nothing; for the block (224 bytes); for the block and the pointers (88 bytes).
    for (const std::size_t limit : {0u, 230u, 320u}) {
        Call call{10, 1, &row, nullptr};
        const std::size_t before = SYSS_set_memory_limit(limit);
        EXPECT_EQ(SYSS_call_guarded(set_up, &call, nullptr), SYSS_OUT_OF_MEMORY) << limit;
        SYSS_set_memory_limit(before);
        EXPECT_EQ(call.matrix, nullptr);
        EXPECT_EQ(call.b, nullptr);
    }
    for (const auto& [n, bw] :
         {Shape{INT_MAX, INT_MAX}, Shape{INT_MAX, INT_MAX / 2}, Shape{INT_MAX, 1}}) {
        Call call{n, bw, &row, nullptr};
        const std::size_t before = SYSS_set_memory_limit(std::size_t{1} << 30);
        EXPECT_EQ(SYSS_call_guarded(set_up, &call, nullptr), SYSS_OUT_OF_MEMORY);
        SYSS_set_memory_limit(before);
        EXPECT_EQ(call.matrix, nullptr);
    }
    EXPECT_EQ(merrorlevel(), 0);
}

TEST(Banded, DumpsRowsWithWhatThereIs) {
    System s(3, 1);
    for (int i = 0; i < 3; ++i) {
        for (int j = s.first(i); j <= s.last(i); ++j)
            s.matrix[i][j] = 10.0 * i + j;
        s.b[i] = -1.0 / (i + 1);
    }
    const auto dumped = [&](double** matrix, const double* b, int n) {
        ::testing::internal::CaptureStdout();
        mdump_banded(matrix, b, n, 1);
        std::fflush(stdout);
        return ::testing::internal::GetCapturedStdout();
    };
    EXPECT_EQ(dumped(s.matrix, s.b, 3),
              "   0.00000     1.00000       0        -1.00000\n"
              "  10.00000    11.00000    12.00000    -0.50000\n"
              "     0        21.00000    22.00000    -0.33333\n");
    EXPECT_EQ(dumped(s.matrix, nullptr, 1), "   0.00000  \n");
    EXPECT_EQ(dumped(nullptr, s.b, 2), "  -1.00000\n  -0.50000\n");
    EXPECT_EQ(dumped(nullptr, nullptr, 2), "\n\n");
    EXPECT_EQ(dumped(s.matrix, s.b, 0), "");
}

TEST(UniqueReals, CompareWithTheValueBefore) {
    const NoBlocksLeft no_blocks_left;
    struct {
        Vector values, kept;
    } const rows[] = {
        {{0.0, 5e-11, 1e-10, 1.0}, {0.0, 1.0}},
        {{0.0, 0.9e-10, 1.8e-10, 2.7e-10, 3.6e-10}, {0.0}},
        {{0.0, 1e-10}, {0.0}},
        {{0.0, 1.01e-10}, {0.0, 1.01e-10}},
        {{1.0, 0.0, 1.0, 1.0, 0.0}, {1.0, 0.0, 1.0, 0.0}},
        {{2.0, nan_value, 2.0, 3.0}, {2.0, 3.0}},
        {{HUGE_VAL, HUGE_VAL, 1.0}, {HUGE_VAL, 1.0}},
        {{-4.0}, {-4.0}},
    };
    for (const auto& row : rows) {
        double* unique = nullptr;
        int count = -1;
        get_unique_reals(row.values.data(), static_cast<int>(row.values.size()), &unique, &count);
        ASSERT_NE(unique, nullptr);
        EXPECT_EQ(Vector(unique, unique + count), row.kept);
        EXPECT_EQ(SM_length(unique), row.values.size() * sizeof(double));
        SM_free(unique);
    }
    double element = 0.0;
    for (const int n : {0, -1, INT_MIN}) {
        double* unique = &element;
        int count = -1;
        get_unique_reals(nullptr, n, &unique, &count);
        EXPECT_EQ(unique, &element);
        EXPECT_EQ(count, 0);
    }
}

}  // namespace
