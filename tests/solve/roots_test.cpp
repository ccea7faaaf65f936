// Real roots of polynomials: the closed forms and Laguerre's method.
#include "ztmath/roots.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "support/random.h"
#include "support/reports.h"
#include "support/session.h"
#include "ztmath/acom.h"

namespace {

using namespace ztmath_test;
using Roots = std::vector<double>;

constexpr double nan_value = std::numeric_limits<double>::quiet_NaN();
constexpr double epsilon = std::numeric_limits<double>::epsilon();
constexpr double fine = 1.0e-10;
constexpr double coarse = 1.0e-4;

/// Sets the number tolerance while it lives.
class NumberTolerance {
  public:
    explicit NumberTolerance(double value) : before_(word()) { word() = value; }
    ~NumberTolerance() { word() = before_; }
    NumberTolerance(const NumberTolerance&) = delete;
    NumberTolerance& operator=(const NumberTolerance&) = delete;

  private:
    static double& word() { return acom_.tolerances[ZTMATH_NUMBER_TOLERANCE]; }
    double before_;
};

constexpr double unwritten = 12345.0;

/// Calls a solver on a copy and checks that it writes as many roots as it says, in place too.
Roots call(const std::function<int(const double*, double*)>& solve, const Roots& coeffs) {
    double out[6];
    std::fill(std::begin(out), std::end(out), unwritten);
    const int count = solve(coeffs.data(), out);
    EXPECT_GE(count, 0);
    EXPECT_LT(count, static_cast<int>(coeffs.size()));
    for (int i = count; i < 6; ++i)
        EXPECT_EQ(out[i], unwritten) << "root " << i << " of " << count;

    Roots in_place = coeffs;
    EXPECT_EQ(solve(in_place.data(), in_place.data()), count);
    for (int i = 0; i < count; ++i)
        EXPECT_TRUE(in_place[i] == out[i] || std::isnan(out[i]));
    return {out, out + count};
}

Roots closed(const Roots& coeffs) {
    switch (coeffs.size()) {
        case 3:
            return call(SOLVE_quadratic, coeffs);
        case 4:
            return call(SOLVE_cubic, coeffs);
        default:
            return call(SOLVE_quartic, coeffs);
    }
}

Roots iterated(const Roots& coeffs) {
    const int degree = static_cast<int>(coeffs.size()) - 1;
    return call([degree](const double* c, double* x) { return SOLVE_polynomial(degree, c, x); },
                coeffs);
}

// ---- Polynomials made from their roots

struct Factored {
    Roots real;
    std::vector<std::array<double, 2>> pairs;  // real and imaginary part

    double largest() const {
        double size = 0.0;
        for (const double x : real)
            size = std::max(size, std::fabs(x));
        for (const auto& [re, im] : pairs)
            size = std::max(size, std::hypot(re, im));
        return size;
    }
};

using Long = std::vector<long double>;

void multiply(Long& p, const Long& factor) {
    Long product(p.size() + factor.size() - 1, 0.0L);
    for (std::size_t i = 0; i < p.size(); ++i)
        for (std::size_t j = 0; j < factor.size(); ++j)
            product[i + j] += p[i] * factor[j];
    p = product;
}

Roots expanded(const Factored& f, double leading) {
    Long p{leading};
    for (const long double x : f.real)
        multiply(p, {-x, 1.0L});
    for (const auto& [re, im] : f.pairs) {
        const long double a = re;
        const long double b = im;
        multiply(p, {a * a + b * b, -2.0L * a, 1.0L});
    }
    return {p.begin(), p.end()};
}

/// The residual at x in units of the running error of Horner's scheme at size |x| + margin.
double relative_residual(const Roots& c, double x, double margin) {
    long double value = 0.0L;
    long double bound = 0.0L;
    for (std::size_t i = c.size(); i-- > 0;) {
        value = value * x + c[i];
        bound = bound * (std::fabs(x) + margin) + std::fabs(value);
    }
    return bound > 0.0L ? static_cast<double>(std::fabs(value) / (5.0e-16L * bound)) : 0.0;
}

double dyadic(double x) {
    return std::round(x * 64.0) / 64.0;
}

Roots separated(Random& random, int count) {
    Roots x;
    while (static_cast<int>(x.size()) < count) {
        const double candidate = dyadic(random.uniform(-10.0, 10.0));
        if (std::all_of(x.begin(), x.end(),
                        [=](double other) { return std::fabs(candidate - other) > 0.5; }))
            x.push_back(candidate);
    }
    return x;
}

std::array<double, 2> pair_of(Random& random) {
    return {random.uniform(-10.0, 10.0), random.uniform(0.5, 10.0)};
}

/// Errors are relative to the largest root, the measure in which the closed forms are accurate;
/// those of the iteration relative to each root.
struct Class {
    const char* name;
    int lowest_degree;
    double closed_error, iterated_error;
    std::function<Factored(Random&, int degree)> make;
};

Factored with_copies(Random& random, int degree, int copies) {
    Factored f{separated(random, degree), {}};
    std::fill_n(f.real.begin(), copies, f.real[0]);
    return f;
}

Factored clustered(Random& random, int degree, double gap) {
    Factored f{separated(random, degree), {}};
    if (f.real[0] == 0.0) f.real[0] = 1.0;
    f.real[1] = f.real[0] * (1.0 + gap);
    return f;
}

Factored scaled(Random& random, int degree, double decades) {
    Factored f;
    for (int i = 0; i < degree; ++i)
        f.real.push_back(std::copysign(std::pow(10.0, random.uniform(-decades, decades)),
                                       random.uniform(-1.0, 1.0)));
    return f;
}

const Class classes[] = {
    {"separated", 2, 1e-11, 1e-11,
     [](Random& r, int d) {
         return Factored{separated(r, d), {}};
     }},
    {"complex pair", 2, 1e-9, 1e-10,
     [](Random& r, int d) {
         return Factored{separated(r, d - 2), {pair_of(r)}};
     }},
    {"two complex pairs", 4, 0.0, 0.0,
     [](Random& r, int) {
         return Factored{{}, {pair_of(r), pair_of(r)}};
     }},
    {"cluster of 1e-2", 2, 1e-10, 1e-9, [](Random& r, int d) { return clustered(r, d, 1e-2); }},
    {"cluster of 1e-4", 2, 1e-6, 1e-7, [](Random& r, int d) { return clustered(r, d, 1e-4); }},
    {"double", 2, 1e-6, 1e-5, [](Random& r, int d) { return with_copies(r, d, 2); }},
    {"triple", 3, 1e-14, 1e-3, [](Random& r, int d) { return with_copies(r, d, 3); }},
    {"quadruple", 4, 0.0, 1e-3, [](Random& r, int d) { return with_copies(r, d, 4); }},
    {"two doubles", 4, 1e-13, 1e-5,
     [](Random& r, int) {
         const Roots x = separated(r, 2);
         return Factored{{x[0], x[0], x[1], x[1]}, {}};
     }},
    {"biquadratic", 4, 1e-13, 1e-12,
     [](Random& r, int) {
         const double x = r.uniform(0.5, 5.0);
         const double y = x + r.uniform(0.5, 5.0);
         return Factored{{x, -x, y, -y}, {}};
     }},
    {"mirror image", 4, 1e-11, 1e-10,
     [](Random& r, int) {
         const double m = dyadic(r.uniform(-10.0, 10.0));
         const double x = dyadic(r.uniform(0.5, 5.0));
         const double y = x + dyadic(r.uniform(0.5, 5.0));
         return Factored{{m + x, m - x, m + y, m - y}, {}};
     }},
    {"scaled 1e-2 to 1e2", 2, 1e-6, 1e-9, [](Random& r, int d) { return scaled(r, d, 2.0); }},
    {"scaled 1e-8 to 1e8", 2, 1e-5, 1e-9, [](Random& r, int d) { return scaled(r, d, 8.0); }},
};

/// Compares in ascending order; returns the largest error, `own` relative to each root itself.
double worst_error(Roots found, Roots expected, double largest, bool own) {
    std::sort(found.begin(), found.end());
    std::sort(expected.begin(), expected.end());
    double worst = 0.0;
    for (std::size_t i = 0; i < found.size(); ++i) {
        const double size = own && expected[i] != 0.0 ? std::fabs(expected[i]) : largest;
        worst = std::max(worst, std::fabs(found[i] - expected[i]) / size);
    }
    return worst;
}

TEST(PolynomialRoots, OfKnownRootsAreFoundWithTheirNumber) {
    const NumberTolerance tolerance(fine);
    Random random;
    for (const Class& c : classes)
        for (int degree = c.lowest_degree; degree <= 4; ++degree) {
            double worst[2] = {0.0, 0.0};
            for (int round = 0; round < rounds(300); ++round) {
                const Factored f = c.make(random, degree);
                const Roots coeffs = expanded(f, round % 2 == 0 ? 1.0 : -2.5);
                const Roots by_form = closed(coeffs);
                const Roots by_iteration = iterated(coeffs);
                SCOPED_TRACE(std::string(c.name) + ", coefficients " +
                             ::testing::PrintToString(coeffs));
                ASSERT_EQ(by_form.size(), f.real.size());
                ASSERT_EQ(by_iteration.size(), f.real.size());
                // The cubic's discriminant is a sum of its own, and that of a cluster is small.
                for (const double x : by_form)
                    EXPECT_LT(relative_residual(coeffs, x, f.largest()),
                              degree == 3 ? 1000.0 : 20.0);
                for (const double x : by_iteration)
                    EXPECT_LT(relative_residual(coeffs, x, 0.0), 2.0);
                worst[0] = std::max(worst[0], worst_error(by_form, f.real, f.largest(), false));
                worst[1] = std::max(worst[1], worst_error(by_iteration, f.real, 1.0, true));
            }
            EXPECT_LE(worst[0], c.closed_error) << c.name << ", degree " << degree;
            EXPECT_LE(worst[1], c.iterated_error) << c.name << ", degree " << degree;
            const std::string key = std::string(c.name) + " of degree " + std::to_string(degree);
            RecordProperty(key + " closed", std::to_string(worst[0] * 1e15) + "e-15");
            RecordProperty(key + " iterated", std::to_string(worst[1] * 1e15) + "e-15");
        }
}

TEST(PolynomialRoots, MultipleOnesComeOutEqual) {
    const NumberTolerance tolerance(fine);
    EXPECT_EQ(closed({1, -2, 1}), (Roots{1, 1}));
    EXPECT_EQ(closed({0, 0, 0, 1}), (Roots{0, 0, 0}));
    EXPECT_EQ(closed({-8, 12, -6, 1}), (Roots{2, 2, 2}));
    EXPECT_EQ(closed({2, -3, 0, 1}), (Roots{-2, 1, 1}));
    EXPECT_EQ(closed({-2, -3, 0, 1}), (Roots{2, -1, -1}));
    EXPECT_EQ(closed({81, -108, 54, -12, 1}), (Roots{3, 3, 3, 3}));
    EXPECT_EQ(closed({36, -60, 37, -10, 1}), (Roots{3, 3, 2, 2}));
}

// ---- Closed forms

TEST(Quadratic, TakesRoundingOfTheDiscriminantForZero) {
    const NumberTolerance tolerance(fine);
    EXPECT_EQ(closed({1 + 4 * epsilon, -2, 1}), (Roots{1, 1}));
    EXPECT_EQ(closed({1 + 5 * epsilon, -2, 1}), Roots{});
    EXPECT_EQ(closed({1 - 4 * epsilon, -2, 1}), (Roots{1, 1}));
    const Roots apart = closed({1 - 5 * epsilon, -2, 1});
    ASSERT_EQ(apart.size(), 2u);
    EXPECT_GT(apart[0], apart[1]);
}

TEST(Quadratic, KeepsTheDigitsOfTheSmallRoot) {
    const NumberTolerance tolerance(fine);
    EXPECT_EQ(closed({1, -1e9, 1}), (Roots{1e9, 1e-9}));
    EXPECT_EQ(closed({1, 1e9, 1}), (Roots{-1e9, -1e-9}));
    EXPECT_EQ(closed({-4, 0, 1}), (Roots{-2, 2}));
}

TEST(Quadratic, LosesItsLeadingCoefficientsUpToTheTolerance) {
    const NumberTolerance tolerance(coarse);
    EXPECT_EQ(closed({6, -2, coarse}), (Roots{3}));
    EXPECT_EQ(closed({6, -2, -coarse}), (Roots{3}));
    EXPECT_EQ(closed({-6, -2, std::nextafter(coarse, 1.0)}).size(), 2u);
    for (const double c0 : {0.0, 1.0})
        EXPECT_EQ(closed({c0, coarse, coarse}), Roots{});
    EXPECT_EQ(closed({1, 2 * coarse, coarse}), (Roots{-1 / (2 * coarse)}));
}

TEST(Cubic, SplitsOffANullRootUpToTheCubedTolerance) {
    const NumberTolerance tolerance(coarse);
    EXPECT_EQ(closed({6, -5, 1, coarse}), (Roots{3, 2}));
    const double cube = coarse * coarse * coarse;
    EXPECT_EQ(closed({cube, 6, -5, 1}), (Roots{3, 2, 0}));
    EXPECT_EQ(closed({-cube, 6, -5, 1}), (Roots{3, 2, 0}));
    EXPECT_NE(closed({std::nextafter(cube, 1.0), 6, -5, 1}).back(), 0.0);
    EXPECT_EQ(closed({0, 1, 0, 1}), (Roots{0}));
}

TEST(Cubic, OrdersThreeRootsSmallestLargestMiddle) {
    const NumberTolerance tolerance(fine);
    for (const double sign : {1.0, -1.0}) {
        const Roots x = closed({sign * 6, sign * -5, sign * -2, sign});  // -2, 1, 3
        ASSERT_EQ(x.size(), 3u);
        EXPECT_NEAR(x[0], -2, 1e-14);
        EXPECT_NEAR(x[1], 3, 1e-14);
        EXPECT_NEAR(x[2], 1, 1e-14);
    }
}

TEST(Cubic, WithOneRootKeepsItsDigits) {
    const NumberTolerance tolerance(fine);
    for (const double slope : {3.0, 3e3, 3e6, 3e9}) {
        const Roots x = closed({-1, slope, 0, 1});
        ASSERT_EQ(x.size(), 1u);
        EXPECT_NEAR(((x[0] * x[0] + slope) * x[0] - 1), 0.0, 1e-15) << slope;
    }
}

TEST(Cubic, NearATripleRootStaysAmongNumbers) {
    const NumberTolerance tolerance(fine);
    Random random;
    for (int round = 0; round < rounds(20000); ++round) {
        const double x = random.uniform(-10.0, 10.0);
        Roots c = expanded({{x, x, x}, {}}, 1.0);
        for (double& coefficient : c)
            coefficient *= 1.0 + epsilon * random.integer(-3, 3);
        for (const double root : closed(c))
            ASSERT_NEAR(root, x, 1e-4 * std::fabs(x)) << ::testing::PrintToString(c);
    }
}

TEST(Quartic, SplitsOffANullRootAndFallsBackToTheCubic) {
    const NumberTolerance tolerance(coarse);
    EXPECT_EQ(closed({2, -3, 0, 1, coarse}), (Roots{-2, 1, 1}));
    const double fourth = coarse * coarse * coarse * coarse;
    EXPECT_EQ(closed({fourth, 2, -3, 0, 1}), (Roots{-2, 1, 1, 0}));
    EXPECT_EQ(closed({-fourth, 2, -3, 0, 1}), (Roots{-2, 1, 1, 0}));
    EXPECT_NE(closed({2 * fourth, 2, -3, 0, 1}).back(), 0.0);
    EXPECT_EQ(closed({0, 0, 6, -5, 1}), (Roots{3, 2, 0, 0}));
}

TEST(Quartic, BiquadraticGivesEachRootWithItsNegative) {
    const NumberTolerance tolerance(coarse);
    EXPECT_EQ(closed({4, 0, -5, 0, 1}), (Roots{2, -2, 1, -1}));
    EXPECT_EQ(closed({-4, 0, 3, 0, 1}), (Roots{1, -1}));
    EXPECT_EQ(closed({4, 0, 5, 0, 1}), Roots{});
    EXPECT_EQ(closed({4, 0, -4, 0, 1}),
              (Roots{std::sqrt(2.0), -std::sqrt(2.0), std::sqrt(2.0), -std::sqrt(2.0)}));
    // Odd coefficients within the tolerance do not count, large as the roots' error may be.
    EXPECT_EQ(closed({4, coarse, -5, -coarse, 1}), (Roots{2, -2, 1, -1}));
    EXPECT_NE(closed({4, 2 * coarse, -5, 0, 1})[0], 2);
}

TEST(Quartic, WithItsMeanAsARootEndsWithThat) {
    const NumberTolerance tolerance(fine);
    // The roots of the cubic around the mean 2.5, then the mean.
    const Roots x = closed(expanded({{1.5, 0.5, 5.5, 2.5}, {}}, 1.0));
    ASSERT_EQ(x.size(), 4u);
    EXPECT_NEAR(x[0], 0.5, 1e-13);
    EXPECT_NEAR(x[1], 5.5, 1e-13);
    EXPECT_NEAR(x[2], 1.5, 1e-13);
    EXPECT_EQ(x[3], 2.5);
    // In mirror image around it: the outer two, then the mean twice.
    EXPECT_EQ(closed(expanded({{2, 4, 3, 3}, {}}, 1.0)), (Roots{2, 4, 3, 3}));
    EXPECT_EQ(closed(expanded({{3, 3}, {{3, 2}}}, 1.0)), (Roots{3, 3}));
}

TEST(Quartic, OrdersRootsByFactorsOfTheLargerSum) {
    const NumberTolerance tolerance(fine);
    const Roots x = closed(expanded({{7, 1, -2, -5}, {}}, 1.0));
    const double expected[] = {7, 1, -2, -5};
    ASSERT_EQ(x.size(), 4u);
    for (int i = 0; i < 4; ++i)
        EXPECT_NEAR(x[i], expected[i], 1e-13);
}

// ---- Laguerre's method

TEST(Polynomial, LeavesPointsWithoutDirection) {
    const NumberTolerance tolerance(fine);
    const CheckingLevel on(1);
    ReportRecorder recorder;
    const Roots x = iterated({-1, 0, 0, 1});
    ASSERT_EQ(x.size(), 1u);
    EXPECT_NEAR(x[0], 1.0, 1e-15);
    EXPECT_EQ(iterated({1, 0, 0, 0, 1}), Roots{});
    EXPECT_EQ(iterated({-1, 0, 0, 0, 1}).size(), 2u);
    EXPECT_EQ(recorder.take(), Reports{});
}

TEST(Polynomial, DropsLeadingCoefficientsUpToTheTolerance) {
    const NumberTolerance tolerance(coarse);
    const Roots line = iterated({-6, 2, coarse});
    ASSERT_EQ(line.size(), 1u);
    EXPECT_NEAR(line[0], 3.0, 1e-15);
    EXPECT_EQ(iterated({-6, 2, 2 * coarse}).size(), 2u);
    EXPECT_EQ(iterated({5, coarse}), Roots{});
    EXPECT_EQ(iterated({0, 0, 0}), Roots{});
    double x = unwritten;
    EXPECT_EQ(SOLVE_polynomial(-3, nullptr, &x), 0);
}

TEST(Polynomial, OfTooLargeADegreeIsReportedOnlyWhenChecking) {
    const NumberTolerance tolerance(coarse);
    const Report first = internal("solve", "Degree is too large in SOLVE_polynomial())!!!\n");
    const Report second = internal("solve", "Degree is too large in routine get_all_roots())!!!\n");
    ReportRecorder recorder;
    const Roots sixth = {1, 2, 3, 4, 5, 6, 7};
    const Roots fourth_in_truth = {24, -50, 35, -10, 1, coarse};
    {
        const CheckingLevel off(0);
        EXPECT_EQ(iterated(sixth), Roots{});
        EXPECT_EQ(iterated(fourth_in_truth).size(), 4u);
        EXPECT_EQ(recorder.take(), Reports{});
    }
    const CheckingLevel on(1);
    double x[6];
    EXPECT_EQ(SOLVE_polynomial(6, sixth.data(), x), 0);
    EXPECT_EQ(recorder.lines().size(), 2u);
    EXPECT_NE(recorder.lines()[0], recorder.lines()[1]);
    EXPECT_EQ(recorder.take(), (Reports{first, second}));
    EXPECT_EQ(SOLVE_polynomial(5, fourth_in_truth.data(), x), 4);
    EXPECT_EQ(recorder.take(), Reports{first});
}

TEST(Polynomial, ReportsEveryIterationThatDoesNotEndWhenChecking) {
    const NumberTolerance tolerance(coarse);
    const double c[] = {1.0, nan_value, 1.0};
    double x[2];
    ReportRecorder recorder;
    const CheckingLevel off(0);
    EXPECT_EQ(SOLVE_polynomial(2, c, x), 0);
    EXPECT_EQ(recorder.take(), Reports{});
    const CheckingLevel on(1);
    EXPECT_EQ(SOLVE_polynomial(2, c, x), 0);
    EXPECT_EQ(recorder.take(),
              Reports(4, internal("solve", "Too many iterations in routine laguerre()!!!\n")));
}

// ---- All of them

TEST(PolynomialRoots, SurviveEveryMixtureOfUnusualCoefficients) {
    const double unusual[] = {0.0, 1.0, -1e308, 5e-324, HUGE_VAL, nan_value};
    for (const double tol : {fine, -939.0, nan_value}) {
        const NumberTolerance tolerance(tol);
        for (int code = 0; code < 6 * 6 * 6 * 6 * 6; ++code) {
            Roots c;
            for (int i = 0, rest = code; i < 5; ++i, rest /= 6)
                c.push_back(unusual[rest % 6]);
            for (int degree = 4; degree >= 2; --degree) {
                c.resize(degree + 1);
                closed(c);
                if (code % 7 == 0) iterated(c);
            }
        }
    }
}

}  // namespace
