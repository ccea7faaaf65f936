// Banded systems and their error register.
#include "ztmath/banded.h"

#include "support/support.h"

namespace {

using namespace ztmath_test;
using Matrix = std::vector<std::vector<double>>;
using Vector = std::vector<double>;

/// The error register: number and level.
using Register = std::pair<int, int>;
constexpr Register clear{0, 0};
constexpr Register null_pivot{7235, 4};

/// What the register holds; clears it.
Register taken() {
    const Register held{merrornum(), merrorlevel()};
    merrorflush();
    return held;
}

const Register at_start = taken();

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

    int first(int i) const { return std::max(0, i - bw); }
    int last(int i) const { return std::min<long>(n - 1, static_cast<long>(i) + bw); }

    /// The stored elements, zeros elsewhere.
    Matrix full() const {
        Matrix a(n, Vector(n, 0.0));
        for (int i = 0; i < n; ++i)
            std::copy(matrix[i] + first(i), matrix[i] + last(i) + 1, a[i].begin() + first(i));
        return a;
    }

    /// Fills the elements, which have been zeros, row after row in one block.
    void fill(Random& random) {
        double* next = matrix[-1];
        for (int i = 0; i < n; ++i) {
            for (int j = first(i); j <= last(i); ++j, ++next) {
                EXPECT_EQ(&matrix[i][j], next);
                EXPECT_EQ(*next, 0.0);
                *next = random.uniform(-1.0, 1.0) + (i == j ? 0.5 : 0.0);
            }
            b[i] = random.uniform(-1.0, 1.0);
        }
        EXPECT_EQ(SM_length(matrix[-1]), (next - matrix[-1]) * sizeof(double));
        EXPECT_EQ(SM_length(matrix - 1), (n + 1) * sizeof(double*));
        EXPECT_EQ(SM_length(b), n * sizeof(double));
    }

    const int n, bw;
    double** matrix;
    double* b;
};

/// The rule as it is stated, with zeros outside the band: false at a null pivot.
bool plain_decompose(Matrix& a) {
    for (std::size_t i = 1; i < a.size(); ++i)
        for (std::size_t k = 0; k < i; ++k) {
            if (std::fabs(a[k][k]) < 1.0e-15) return false;
            a[i][k] = a[i][k] / a[k][k];
            for (std::size_t j = k + 1; j < a.size(); ++j)
                a[i][j] -= a[i][k] * a[k][j];
        }
    return true;
}

bool plain_solve(const Matrix& a, Vector& b) {
    for (std::size_t i = 1; i < a.size(); ++i)
        for (std::size_t k = 0; k < i; ++k)
            b[i] -= a[i][k] * b[k];
    for (std::size_t i = a.size(); i-- > 0;) {
        for (std::size_t j = i + 1; j < a.size(); ++j)
            b[i] -= a[i][j] * b[j];
        if (std::fabs(a[i][i]) < 1.0e-15) return false;
        b[i] /= a[i][i];
    }
    return true;
}

void expect_plain(int n, int bw, int null_at, Random& random) {
    SCOPED_TRACE(::testing::Message() << n << ", width " << bw << ", null pivot " << null_at);
    System s(n, bw);
    s.fill(random);
    // A row of zeros has a pivot of exactly zero, and so has one that begins as the row before.
    if (null_at >= 0)
        std::fill(s.matrix[null_at] + s.first(null_at), s.matrix[null_at] + s.last(null_at) + 1,
                  0.0);
    if (null_at > 0 && bw > 0) {
        double *const row = s.matrix[null_at], *const before = s.matrix[null_at - 1];
        std::fill(before + s.first(null_at - 1), before + s.first(null_at), 0.0);
        std::copy(before + s.first(null_at), before + s.last(null_at - 1) + 1,
                  row + s.first(null_at));
    }
    Matrix a = s.full();
    Vector b(s.b, s.b + n);
    const Register factored = bw < 1 || plain_decompose(a) ? clear : null_pivot;
    mdecompose_banded(s.matrix, n, bw);
    EXPECT_EQ(taken(), factored);
    EXPECT_EQ(s.full(), a);

    const Register solved = plain_solve(a, b) ? clear : null_pivot;
    msolve_banded(s.matrix, n, bw, s.b);
    EXPECT_EQ(taken(), solved);
    EXPECT_EQ(Vector(s.b, s.b + n), b);
}

/// With all widths around those that are treated by themselves, and all lengths of what they leave
/// over.
TEST(Banded, ComputesEveryElementAsThePlainLoopsDo) {
    Random random;
    for (const int bw : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 17, INT_MAX})
        for (const int n : {1, 2, 3, 4, 5, 8, 9, 10, 16, 17, 18, 19, 20, 21, 40})
            for (int null_at = -1; null_at < n; null_at += 1 + n / 10) {
                expect_plain(n, bw, null_at, random);
                ASSERT_FALSE(HasFailure());
            }
}

TEST(Banded, TakesPivotsDownToAFixedSize) {
    EXPECT_EQ(at_start, clear);
    for (const double pivot : {-1.0e-15, 0.99e-15, -0.99e-15, double{NAN}}) {
        const Register expected = std::fabs(pivot) < 1.0e-15 ? null_pivot : clear;
        System s(2, 1);
        s.matrix[0][0] = pivot;
        s.matrix[1][0] = s.matrix[1][1] = 1.0;
        mdecompose_banded(s.matrix, 2, 1);
        EXPECT_EQ(taken(), expected);
        // The last diagonal element is looked at only when solving.
        s.matrix[0][0] = 1.0;
        s.matrix[1][1] = pivot;
        s.matrix[1][0] = 0.0;
        mdecompose_banded(s.matrix, 2, 1);
        EXPECT_EQ(taken(), clear);
        msolve_banded(s.matrix, 2, 1, s.b);
        EXPECT_EQ(taken(), expected);
    }
}

TEST(Banded, SolvesIntoTheMatrixItself) {
    System s(2, 1);
    std::copy_n(Vector{2.0, 3.0, 1.0, 4.0}.data(), 4, s.matrix[0]);
    msolve_banded(s.matrix, 2, 1, s.matrix[0]);
    EXPECT_EQ(Vector(s.matrix[0], s.matrix[0] + 2), (Vector{0.625, 0.25}));
}

TEST(Banded, SetUpMakesAllOrNothing) {
    const std::tuple<int, int, int, Register, bool> rows[] = {
        {0, 1, 0, {280, 4}, false},  {INT_MIN, 1, 0, {280, 4}, false},
        {3, -1, 0, {280, 4}, false}, {3, INT_MIN, 0, {280, 4}, false},
        {3, 1, 1, {77, 1}, false},   {1, 0, 0, {77, 0}, true}};
    for (const auto& [n, bw, level_before, after, made] : rows) {
        double element, *b = &element, **matrix = &b;
        merrorpush("before", 77, level_before);
        msetup_banded(n, bw, &matrix, &b);
        EXPECT_EQ(matrix != nullptr, made);
        EXPECT_EQ(b != nullptr, made);
        EXPECT_EQ(taken(), after);
        for (int times = 0; times < 2; ++times)
            mdispose_banded(&matrix, &b);
        EXPECT_EQ(matrix, nullptr);
    }
    // Room for ten rows' block (224 bytes) and pointers (88 bytes) alone, or not for the block.
    const ReportRecorder quiet;
    const std::size_t limit = SYSS_set_memory_limit(320);
    for (const auto& [n, bw] : {std::pair{10, 1}, {INT_MAX, 1}, {INT_MAX, INT_MAX}}) {
        double element, *b = &element, **matrix = &b;
        EXPECT_THROW(msetup_banded(n, bw, &matrix, &b), std::bad_alloc);
        EXPECT_TRUE(matrix == nullptr && b == nullptr);
        EXPECT_EQ(taken(), clear);
    }
    SYSS_set_memory_limit(limit);
}

TEST(Banded, DumpsRowsWithWhatThereIs) {
    System s(3, 1);
    for (int i = 0; i < 3; ++i) {
        for (int j = s.first(i); j <= s.last(i); ++j)
            s.matrix[i][j] = 10.0 * i + j;
        s.b[i] = -1.0 / (i + 1);
    }
    const auto dumped = [](double** matrix, const double* b, int n) {
        ::testing::internal::CaptureStdout();
        mdump_banded(matrix, b, n, 1);
        return ::testing::internal::GetCapturedStdout();
    };
    EXPECT_EQ(dumped(s.matrix, s.b, 3),
              "   0.00000     1.00000       0        -1.00000\n"
              "  10.00000    11.00000    12.00000    -0.50000\n"
              "     0        21.00000    22.00000    -0.33333\n");
    EXPECT_EQ(dumped(s.matrix, nullptr, 1), "   0.00000  \n");
    EXPECT_EQ(dumped(nullptr, s.b, 2), "  -1.00000\n  -0.50000\n");
    EXPECT_EQ(dumped(nullptr, nullptr, 2), "\n\n");
}

TEST(UniqueReals, CompareWithTheValueBefore) {
    const Vector rows[][2] = {
        {{0.0, 0.9e-10, 1.8e-10, 2.7e-10, 3.6e-10}, {0.0}},
        {{}, {}},  // and no block
        {{5.0}, {5.0}},
        {{0.0, 1e-10}, {0.0}},
        {{0.0, 1.01e-10}, {0.0, 1.01e-10}},
        {{1.0, 0.0, 1.0, 1.0, 0.0}, {1.0, 0.0, 1.0, 0.0}},
        {{2.0, NAN, 2.0, 3.0}, {2.0, 3.0}},
    };
    for (const auto& [values, kept] : rows) {
        double* unique = nullptr;
        int count = -1;
        get_unique_reals(values.data(), static_cast<int>(values.size()), &unique, &count);
        EXPECT_EQ(Vector(unique, unique + count), kept);
        EXPECT_EQ(SM_length(unique), values.size() * sizeof(double));
        SM_free(unique);
    }
}

}  // namespace
