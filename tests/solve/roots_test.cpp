// Real roots of polynomials: the closed forms and Laguerre's method.
#include "ztmath/roots.h"

#include <complex>

#include "support/support.h"
#include "ztmath/acom.h"

namespace {

using namespace ztmath_test;
using Roots = std::vector<double>;

constexpr double epsilon = std::numeric_limits<double>::epsilon();
constexpr double fine = 1.0e-10, coarse = 1.0e-4;

/// Sets the number tolerance while it lives.
class NumberTolerance {
  public:
    explicit NumberTolerance(double value) { acom_.tolerances[ZTMATH_NUMBER_TOLERANCE] = value; }

  private:
    KeepBlock keep_;
};

constexpr double unwritten = 12345.0;

/// Calls a solver and checks that it writes as many roots as it says.
Roots call(const std::function<int(const double*, double*)>& solve, const Roots& coeffs) {
    Roots out(6, unwritten);
    const int count = solve(coeffs.data(), out.data());
    EXPECT_GE(count, 0);
    EXPECT_LT(count, static_cast<int>(coeffs.size()));
    EXPECT_EQ(std::count(out.begin() + count, out.end(), unwritten), 6 - count);
    out.resize(count);
    return out;
}

Roots closed(const Roots& coeffs) {
    constexpr decltype(&SOLVE_quadratic) solvers[] = {SOLVE_quadratic, SOLVE_cubic, SOLVE_quartic};
    return call(solvers[coeffs.size() - 3], coeffs);
}

Roots iterated(const Roots& coeffs) {
    const int degree = static_cast<int>(coeffs.size()) - 1;
    return call([degree](const double* c, double* x) { return SOLVE_polynomial(degree, c, x); },
                coeffs);
}

// ---- Polynomials made from their roots

/// Zeros of a polynomial; one that is not real stands for its conjugate as well.
using Zeros = std::vector<std::complex<double>>;

Roots real_ones(const Zeros& zeros) {
    Roots x;
    for (const auto& zero : zeros)
        if (zero.imag() == 0.0) x.push_back(zero.real());
    return x;
}

Roots expanded(const Zeros& zeros, double leading = 1.0) {
    std::vector<long double> p{leading};
    for (const std::complex<long double> zero : zeros) {
        const bool is_pair = zero.imag() != 0.0L;
        const std::vector factor = is_pair ? std::vector{std::norm(zero), -2.0L * zero.real(), 1.0L}
                                           : std::vector{-zero.real(), 1.0L};
        std::vector<long double> product(p.size() + factor.size() - 1);
        for (std::size_t i = 0; i < p.size(); ++i)
            for (std::size_t j = 0; j < factor.size(); ++j)
                product[i + j] += p[i] * factor[j];
        p = product;
    }
    return {p.begin(), p.end()};
}

Zeros separated(Random& random, int count) {
    Zeros x;
    while (static_cast<int>(x.size()) < count) {
        const double candidate = std::round(random.uniform(-10.0, 10.0) * 64.0) / 64.0;
        if (std::all_of(x.begin(), x.end(),
                        [=](auto other) { return std::abs(candidate - other) > 0.5; }))
            x.emplace_back(candidate);
    }
    return x;
}

/// With `copies` roots at one place, or all but the first of them moved by a ratio.
Zeros with_copies(Random& random, int degree, int copies, double ratio = 1.0) {
    Zeros x = separated(random, degree);
    std::fill_n(x.begin() + 1, copies - 1, x[0] * ratio);
    return x;
}

Zeros with_pairs(Random& random, int degree, int pairs) {
    Zeros x = separated(random, degree - 2 * pairs);
    for (int i = 0; i < pairs; ++i) {
        const double real = random.uniform(-10.0, 10.0);
        x.emplace_back(real, random.uniform(0.5, 10.0));
    }
    return x;
}

Zeros scaled(Random& random, int degree) {
    Zeros x(degree);
    for (auto& zero : x)
        zero = std::copysign(std::pow(10.0, random.uniform(-8, 8)), random.uniform(-1, 1));
    return x;
}

/// With the lowest degree and the errors of both solvers: of the closed forms relative to the
/// largest root, the measure in which they are accurate, of the iteration relative to each root.
const std::tuple<const char*, int, double, double, Zeros (*)(Random&, int degree)> classes[] = {
    {"separated", 2, 1e-11, 1e-11, [](Random& r, int d) { return with_pairs(r, d, 0); }},
    {"complex pair", 2, 1e-9, 1e-10, [](Random& r, int d) { return with_pairs(r, d, 1); }},
    {"two complex pairs", 4, 0.0, 0.0, [](Random& r, int d) { return with_pairs(r, d, 2); }},
    {"double", 2, 1e-6, 1e-5, [](Random& r, int d) { return with_copies(r, d, 2); }},
    {"triple", 3, 1e-14, 1e-3, [](Random& r, int d) { return with_copies(r, d, 3); }},
    {"quadruple", 4, 0.0, 1e-3, [](Random& r, int d) { return with_copies(r, d, 4); }},
    {"cluster of 1e-4", 2, 1e-6, 1e-7,
     [](Random& r, int d) { return with_copies(r, d, 2, 1.0001); }},
    {"scaled 1e-8 to 1e8", 2, 1e-5, 1e-9, [](Random& r, int d) { return scaled(r, d); }},
};

/// That of roots in ascending order each is within the error, relative to the largest root or, when
/// that is 0, to the root itself.
void expect_near(Roots found, Roots expected, double error, double largest) {
    ASSERT_EQ(found.size(), expected.size());
    std::sort(found.begin(), found.end());
    std::sort(expected.begin(), expected.end());
    for (std::size_t i = 0; i < found.size(); ++i) {
        const double size = largest > 0.0 ? largest : std::fabs(expected[i]);
        EXPECT_NEAR(found[i], expected[i], error * (size > 0.0 ? size : 1.0));
    }
}

TEST(PolynomialRoots, OfKnownRootsAreFoundWithTheirNumber) {
    const NumberTolerance tolerance(fine);
    Random random;
    for (const auto& [name, lowest_degree, closed_error, iterated_error, make] : classes)
        for (int degree = lowest_degree; degree <= 4; ++degree)
            for (int round = 0; round < rounds(300); ++round) {
                const Zeros zeros = make(random, degree);
                const Roots coeffs = expanded(zeros, round % 2 == 0 ? 1.0 : -2.5);
                const Roots roots = real_ones(zeros);
                SCOPED_TRACE(std::string(name) + ", coefficients " +
                             ::testing::PrintToString(coeffs));
                double largest = 0.0;
                for (const auto& zero : zeros)
                    largest = std::max(largest, std::abs(zero));
                expect_near(closed(coeffs), roots, closed_error, largest);
                expect_near(iterated(coeffs), roots, iterated_error, 0.0);
                ASSERT_FALSE(HasFailure());
            }
}

// ---- Closed forms

TEST(ClosedForms, GiveExactRootsInTheirOrder) {
    const NumberTolerance tolerance(fine);
    const Roots rows[][2] = {
        // Multiple ones come out equal.
        {{0, 0, 0, 1}, {0, 0, 0}},
        {{2, -3, 0, 1}, {-2, 1, 1}},
        {{-2, -3, 0, 1}, {2, -1, -1}},
        {{36, -60, 37, -10, 1}, {3, 3, 2, 2}},
        // Rounding of the discriminant is taken for zero.
        {{1 + 4 * epsilon, -2, 1}, {1, 1}},
        {{1 + 5 * epsilon, -2, 1}, {}},
        {{1 - 4 * epsilon, -2, 1}, {1, 1}},
        // The small root keeps its digits.
        {{1, -1e9, 1}, {1e9, 1e-9}},
        {{1, 1e9, 1}, {-1e9, -1e-9}},
        {{-4, 0, 1}, {-2, 2}},
        {{-2, 0, 0, 1}, {std::pow(2.0, 1.0 / 3.0)}},
        // Of a biquadratic, each root comes with its negative.
        {{4, 0, -5, 0, 1}, {2, -2, 1, -1}},
        {{-4, 0, 3, 0, 1}, {1, -1}},
        // In mirror image around their mean, a root: the outer two, then the mean twice.
        {expanded({2, 4, 3, 3}), {2, 4, 3, 3}},
        // To the last digit, which the factors only have when they have been improved.
        {expanded({0x1p-22, 0x1p-6, 0x1p-3, 8}), {8, 0x1p-3, 0x1p-6, 0x1p-22}},
        {expanded({5, 15, {10 + 0x1p-36, 4}}), {15, 5}},
        {expanded({126, 130, {128 + 0x1p-7, 7.5}}), {130, 126}},
        {expanded({95, 97, {96.25, 3}}), {97, 95}},
        {expanded({2043, 2053, {2049, 3}}), {2053, 2043}},
        {expanded({56.5, 71.5, {64.125, 2}}), {71.5, 56.5}},
        {expanded({-1, 1.25, 9, 11.25}), {11.25, -1, 9, 1.25}},
        {expanded({-2, 4 + 0x1p-39, 6 + 0x1p-39, 12}), {6 + 0x1p-39, 4 + 0x1p-39, 12, -2}},
        {expanded({-7, 8, 8, 8 + 0x1p-21}), {8, 8, 8 + 0x1p-21, -7}},
        {expanded({-9.5, -5, -5 + 0x1p-16, -0.5}), {-0.5, -5 + 0x1p-16, -5, -9.5}},
        // A pair apart by less than rounding may make of it is one root twice.
        {expanded({8 + 0x1p-18, 8 - 0x1p-18, {-8, 1}}), {8, 8}},
    };
    for (const auto& [coeffs, roots] : rows)
        EXPECT_EQ(closed(coeffs), roots) << ::testing::PrintToString(coeffs);
    // A cubic's own coefficients are exact to the last digits.
    EXPECT_EQ(closed(expanded({1, {3, 3.2e-6}})).size(), 1u);
    const double small = 0x1p-20;  // of three roots this close on either side the middle one goes
    EXPECT_GT(closed({small - 1, 3 - small, -3, 1})[0], 1);
    // x^4 + q x, moved by 0.1: q is within what the moving costs the discriminant, or is not.
    for (const double q : {3.6e-8, 3.7e-8}) {
        const double m = 0.1, square = m * m;
        EXPECT_EQ(
            closed({square * square - q * m, q - 4 * m * square, 6 * square, -4 * m, 1}).size(),
            q < 3.65e-8 ? 4u : 2u);
    }
    EXPECT_GT(closed({1 - 5 * epsilon, -2, 1})[0], 1);
}

TEST(ClosedForms, TakeCoefficientsForZeroUpToPowersOfTheTolerance) {
    const NumberTolerance tolerance(coarse);
    const double cube = coarse * coarse * coarse, fourth = cube * coarse;
    const Roots rows[][2] = {
        {{6, -2, coarse}, {3}},
        {{6, -2, -coarse}, {3}},
        {{0, coarse, coarse}, {}},
        {{1, 2 * coarse, coarse}, {-1 / (2 * coarse)}},
        {{6, -5, 1, coarse}, {3, 2}},
        {{cube, 6, -5, 1}, {3, 2, 0}},
        {{-cube, 6, -5, 1}, {3, 2, 0}},
        {{2, -3, 0, 1, coarse}, {-2, 1, 1}},
        {{fourth, 2, -3, 0, 1}, {-2, 1, 1, 0}},
        {{-fourth, 2, -3, 0, 1}, {-2, 1, 1, 0}},
        // Odd coefficients of a quartic, large as the roots' error may be.
        {{4, coarse, -5, -coarse, 1}, {2, -2, 1, -1}},
    };
    for (const auto& [coeffs, roots] : rows)
        EXPECT_EQ(closed(coeffs), roots) << ::testing::PrintToString(coeffs);
    EXPECT_EQ(closed({-6, -2, std::nextafter(coarse, 1.0)}).size(), 2u);
    EXPECT_NE(closed({std::nextafter(cube, 1.0), 6, -5, 1}).back(), 0.0);
    EXPECT_NE(closed({2 * fourth, 2, -3, 0, 1}).back(), 0.0);
    EXPECT_NE(closed({4, 2 * coarse, -5, 0, 1})[0], 2);
    const NumberTolerance tiny(1e-60);
    EXPECT_EQ(closed({1e-200, 0, 1e150, 0, 1}), Roots{}) << "a square that rounds to 0";
}

TEST(ClosedForms, OrderInexactRootsByTheirFormulas) {
    const NumberTolerance tolerance(fine);
    const Roots rows[] = {
        {-2, 3, 1},            // of a cubic: the smallest, the largest, the middle one
        {0.5, 5.5, 1.5, 2.5},  // the cubic around the mean 2.5, then the mean
        {7, 1, -2, -5},        // by factors, that of the larger sum first
        {17, 11, 8, 5},        // and by those for which the sums differ most
        {4, 3, -1, -2},        // in mirror image around their mean
    };
    for (const Roots& row : rows)
        for (const double leading : {1.0, -1.0}) {
            Roots coeffs = expanded({row.begin(), row.end()}, leading);
            Roots x = closed(coeffs);
            ASSERT_EQ(x.size(), row.size());
            for (std::size_t i = 0; i < row.size(); ++i) {
                EXPECT_NEAR(x[i], row[i], row.size() == 3 ? 1e-14 : 1e-13);
                coeffs[i] = std::ldexp(coeffs[i], 40 * static_cast<int>(row.size() - i));
                x[i] *= 0x1p40;
            }
            EXPECT_EQ(closed(coeffs), x);
        }
}

TEST(Cubic, KeepsDigitsOfOneRootAndStaysAmongNumbersNearATripleOne) {
    const NumberTolerance tolerance(fine);
    EXPECT_NEAR(3e9 * closed({-1, 3e9, 0, 1})[0], 1.0, 1e-15);
    Random random;
    for (int round = 0; round < rounds(20000); ++round) {
        const double x = random.uniform(-10.0, 10.0);
        Roots c = expanded({x, x, x});
        for (double& coefficient : c)
            coefficient *= 1.0 + epsilon * random.integer(-3, 3);
        for (const double root : closed(c))
            ASSERT_NEAR(root, x, 1e-4 * std::fabs(x)) << ::testing::PrintToString(c);
    }
}

// ---- Laguerre's method

TEST(Polynomial, LeavesPointsWithoutDirectionAndDropsLeadingCoefficientsUpToTheTolerance) {
    const NumberTolerance tolerance(coarse);
    const CheckingLevel on(1);
    const ReportRecorder recorder;
    const std::pair<Roots, std::size_t> rows[] = {
        {{-1, 0, 0, 1}, 1},
        {{1, 0, 0, 0, 1}, 0},
        {{-1, 0, 0, 0, 1}, 2},
        {{-6, 2, coarse}, 1},
        {{-6, 2, 2 * coarse}, 2},
        {{5, coarse}, 0},
        {{0, 0, 0}, 0},
        // More than six steps, of which only the first six may grow.
        {{-2, 0, 0, 0, 2e270}, 2},
        {{1, -2e110, 0, -2, 3e260}, 2}};
    for (const auto& [coeffs, count] : rows)
        EXPECT_EQ(iterated(coeffs).size(), count) << testing::PrintToString(coeffs);
    EXPECT_EQ(SOLVE_polynomial(-3, nullptr, nullptr), 0);
    // From 0 on the nearest root is found first, and stands last.
    const Roots x = iterated(expanded({-0.75, 1.5, 4}));
    EXPECT_TRUE(x.size() == 3 && x[0] > x[1] && x[1] > x[2]);
    EXPECT_EQ(iterated({-4, 0, 1}), (Roots{2, -2})) << "of two as near that towards which it adds";
    EXPECT_EQ(iterated({-1, -3, -3, -5}), (Roots{0})) << "between 0 and 3, to and fro: no root";
    for (const double part : {3.99e-5, 4.01e-5})  // what is beside 1 is nothing up to 4e-5
        EXPECT_EQ(iterated({1 + part * part, -2, 1}).size(), part < 4e-5 ? 2u : 0u);
    EXPECT_EQ(recorder.reports(), Reports{});
}

TEST(Polynomial, ReportsTooLargeDegreesAndIterationsThatDoNotEndOnlyWhenChecking) {
    const NumberTolerance tolerance(coarse);
    const Report first = internal("solve", "Degree is too large in SOLVE_polynomial())!!!\n");
    const Report second = internal("solve", "Degree is too large in routine get_all_roots())!!!\n");
    const Report endless = internal("solve", "Too many iterations in routine laguerre()!!!\n");
    ReportRecorder recorder;
    for (const int level : {0, 1}) {
        const CheckingLevel checking(level);
        EXPECT_EQ(iterated({1, 2, 3, 4, 5, 6, 7}), Roots{});
        EXPECT_EQ(iterated({24, -50, 35, -10, 1, coarse}).size(), 4u);
        EXPECT_EQ(recorder.take(), level > 0 ? (Reports{first, second, first}) : Reports{});
        EXPECT_EQ(iterated({1.0, NAN, 1.0}), Roots{});
        EXPECT_EQ(recorder.take(), Reports(4 * level, endless));
    }
}

}  // namespace
