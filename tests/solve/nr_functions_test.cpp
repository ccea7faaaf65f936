// Minimiser, integrator and quadrature.
#include "ztmath/nr_functions.h"
#include "support/prelude.h"

namespace {

using Vector = std::vector<double>;

constexpr double pi = std::numbers::pi;

// ---- Downhill simplex

using Objective = std::function<double(const Vector&)>;

/// A start and steps along the axes.
std::vector<Vector> around(const Vector& start, double size = 1.0) {
    std::vector<Vector> vertices(start.size() + 1, start);
    for (std::size_t i = 0; i < start.size(); ++i)
        vertices[i + 1][i] += size;
    return vertices;
}

/// A simplex with the function that is minimised.
struct Simplex {
    Objective f;
    std::vector<Vector> vertices;
    Vector y{};
    int evaluations = -1, calls = 0;

    Vector values() const {
        Vector at_vertices;
        std::transform(vertices.begin(), vertices.end(), std::back_inserter(at_vertices), f);
        return at_vertices;
    }

    int minimise(double tolerance, int most) {
        y = values();
        std::vector<double*> rows;
        for (Vector& vertex : vertices)
            rows.push_back(vertex.data());
        const auto call = [](const double* x, int n, void* data) {
            auto& self = *static_cast<Simplex*>(data);
            ++self.calls;
            return self.f(Vector(x, x + n));
        };
        const int n = static_cast<int>(y.size()) - 1;
        const int status =
            NR_amoeba(rows.data(), y.data(), n, tolerance, call, this, most, &evaluations);
        EXPECT_EQ(evaluations, calls);
        if (calls > 0) {
            EXPECT_EQ(y, values());
            EXPECT_EQ(y[0], *std::min_element(y.begin(), y.end()));
        }
        return status;
    }
};

double bowl(const Vector& x) {
    double sum = 3.0;
    for (std::size_t i = 0; i < x.size(); ++i)
        sum += (i + 1.0) * (x[i] - i) * (x[i] - i);
    return sum;
}

TEST(Amoeba, FindsTheMinimumInAnyDimension) {
    for (int n = 1; n <= 6; ++n) {
        Simplex s{bowl, around(Vector(n, 10.0))};
        EXPECT_EQ(s.minimise(1e-14, 20000), 0) << n;
        for (int i = 0; i < n; ++i)
            EXPECT_NEAR(s.vertices[0][i], i, 1e-6) << n;
    }
    for (const int most : {1, 2, 3, 20}) {
        Simplex s{bowl, around({10.0, 10.0})};
        EXPECT_EQ(s.minimise(0.0, most), 1);
        EXPECT_EQ(s.calls, most);
    }
    Simplex level{[](const Vector&) { return 1.0; }, around({3.0, 5.0})};
    EXPECT_EQ(level.minimise(0.0, 9), 0);
    EXPECT_EQ(level.vertices[0], (Vector{3.0, 5.0})) << "the first of equals";
    for (const double tolerance : {1.0, std::nextafter(1.0, 0.0)}) {
        Simplex s{[](const Vector& x) { return std::fabs(x[0]); },
                  around({1.0}, 2.0)};  // of 1 and 3
        EXPECT_EQ(s.minimise(tolerance, 1000), 0);
        EXPECT_EQ(s.evaluations == 0, tolerance == 1.0);
    }
}

/// From (3, 5), a step beside it and one above with the values 0, 1 and 2, in any order, by the
/// value across from the worst. The points are seen from (3, 5).
TEST(Amoeba, ReflectsExpandsAndContracts) {
    const std::pair<double, std::vector<Vector>> rows[] = {{9, {{1, -1}, {0.25, 0.5}}},
                                                           {2, {{1, -1}, {0.25, 0.5}}},
                                                           {1.5, {{1, -1}, {0.75, -0.5}}},
                                                           {0.5, {{1, -1}}},
                                                           {-1, {{1, -1}, {1.5, -2}}}};
    for (const auto& [across, expected] : rows) {
        std::vector<Vector> tried;
        const auto f = [&, value = across](const Vector& p) {
            const Vector x = {p[0] - 3, p[1] - 5};
            tried.push_back(x);
            if (x == Vector{1, -1}) return value;
            return x[0] + x[1] == x[0] * x[0] + x[1] * x[1] ? x[0] + 2 * x[1] : 9;  // a corner
        };
        std::vector<Vector> start = {{3, 5}, {3, 6}, {4, 5}};
        do {
            tried.clear();
            EXPECT_EQ((Simplex{f, start}.minimise(0, static_cast<int>(expected.size()))), 1);
            // After the vertices, and before the check of what is left.
            EXPECT_TRUE(std::equal(expected.begin(), expected.end(), tried.begin() + 3));
        } while (std::next_permutation(start.begin(), start.end()));
    }
}

TEST(Amoeba, ShrinksAndChoosesAmongEquals) {
    const auto on_axes = [](const Vector& x) { return x[0] * x[1] == 0 ? -2 * x[0] - x[1] : 99; };
    const std::tuple<Objective, int, std::vector<Vector>> rows[] = {
        {on_axes, 4, {{1, 0}, {0.5, 0}, {0.5, 0.5}}},
        // Of equals the first is moved, but of the first two the second.
        {[](const Vector& x) { return x[0] + x[1]; }, 2, {{-1, 0}, {-1, 1}, {0, 0}}},
        {[](const Vector& x) { return 1 - x[1]; }, 1, {{-1, 1}, {0, 0}, {0, 1}}},
        // What an expansion finds is not lower.
        {[](const Vector& x) { return std::max(x[0], -1.0); }, 2, {{-1, 1}, {0, 0}, {0, 1}}},
    };
    for (const auto& [f, most, vertices] : rows) {
        Simplex s{f, around({0, 0})};
        EXPECT_EQ(s.minimise(0, most), 1);
        EXPECT_EQ(s.vertices, vertices);
    }
}

TEST(Amoeba, RefusesBadArgumentsAndNumbersThatAreNone) {
    Simplex s{bowl, around({10.0, 10.0})};
    for (const auto& [tolerance, most] : {std::pair{-1e-3, 10}, {NAN, 10}, {1e-3, 0}})
        EXPECT_EQ(s.minimise(tolerance, most), 2);
    EXPECT_EQ((Simplex{bowl, around({})}.minimise(1e-3, 10)), 2);
    Simplex at_once{[](const Vector& x) { return x[0] > 10 ? NAN : 1; }, around({10.0})};
    EXPECT_EQ(at_once.minimise(1e-3, 10), 3);
    EXPECT_EQ(at_once.calls, 0);
    Simplex edge{[](const Vector& x) { return std::log(x[0]) + x[1] * x[1]; },
                 around({1.0, 1.0}, 0.3)};
    EXPECT_EQ(edge.minimise(0.0, 1000), 3);
}

TEST(Amoeba, TakesInfinityForAWall) {
    const auto walled = [](const Vector& x) {
        return x[0] < 0.5 ? HUGE_VAL : (x[0] + 1.0) * (x[0] + 1.0) + x[1] * x[1];
    };
    Simplex s{walled, around({3.0, 2.0})};
    EXPECT_EQ(s.minimise(1e-12, 5000), 0);
    EXPECT_NEAR(s.vertices[0][0], 0.5, 1e-2);
    // A tolerance of any size does not make infinity equal to a number, nor to itself.
    EXPECT_EQ((Simplex{walled, around({0.0, 2.0})}.minimise(10.0, 2)), 1);
    const auto infinite = [](const Vector&) { return HUGE_VAL; };
    EXPECT_EQ((Simplex{infinite, around({0.0, 2.0})}.minimise(1.0, 500)), 1);
}

TEST(Amoeba, KeepsValuesWithVerticesWhenTheFunctionThrows) {
    int left = 28;  // of which 21 are for the vertices
    const auto fuse = [&](const Vector& x) {
        return --left == 0 ? throw std::runtime_error("fuse") : bowl(x);
    };
    Simplex s{fuse, around(Vector(20, 10.0))};
    EXPECT_THROW(s.minimise(1e-10, 1000), std::runtime_error);
    EXPECT_EQ(s.evaluations, 7);
    EXPECT_EQ(s.y, s.values());
}

// ---- Differential equations

using Slope = std::function<Vector(double x, const Vector& y)>;

struct Settings {
    double eps = 1e-8;
    double h_first = 0.1;
    double h_min = 0.0;
    int max_steps = 100000;
};

/// An integration with its equation and what it went through.
struct Course {
    Slope slope;
    Vector y;
    double reached = NAN;
    int good = -1, bad = -1;
    int evaluations = 0;
    std::vector<std::pair<double, Vector>> accepted{};  // x and y

    int integrate(double x1, double x2, Settings s = {}) {
        return NR_odeint(y.data(), static_cast<int>(y.size()), x1, x2, s.eps, s.h_first, s.h_min,
                         s.max_steps, call_slope, this, call_dense, &reached, &good, &bad);
    }

    static void call_slope(double x, const double* y, double* dydx, void* data) {
        auto& self = *static_cast<Course*>(data);
        ++self.evaluations;
        const Vector slope = self.slope(x, Vector(y, y + self.y.size()));
        std::copy(slope.begin(), slope.end(), dydx);
    }

    static void call_dense(double x, const double* y, void* data) {
        auto& self = *static_cast<Course*>(data);
        self.accepted.emplace_back(x, Vector(y, y + self.y.size()));
    }
};

/// What sine and cosine satisfy, by x and by y in equal parts.
Vector oscillate(double x, const Vector& y) {
    return {y[1], -0.5 * (y[0] + std::sin(x))};
}

/// A course from the sine and cosine at 0 to about those at 10.
Course oscillated(Settings s) {
    Course c{oscillate, {0.0, 1.0}};
    EXPECT_EQ(c.integrate(0.0, 10.0, s), 0);
    EXPECT_EQ(c.reached, 10.0);
    EXPECT_LE(std::hypot(c.y[0] - std::sin(10.0), c.y[1] - std::cos(10.0)), 100.0 * s.eps);
    return c;
}

TEST(Odeint, ErrorFollowsTheToleranceAndTheFifthOrder) {
    int last_steps = 0;
    for (const double eps : {1e-4, 1e-6, 1e-8, 1e-10, 1e-12}) {
        const Course c = oscillated({.eps = eps});
        // The steps are as many as the fifth root says: 2.5 times for a hundredth.
        if (last_steps > 0) {
            EXPECT_NEAR(static_cast<double>(c.good) / last_steps, 2.51, 0.5);
        }
        last_steps = c.good;
        EXPECT_LE(c.bad, 2 + c.good / 8);
    }
    // A step's length goes by the errors of two, of which the first is next to nothing here.
    EXPECT_NEAR(oscillated({.eps = 1e-6, .h_first = 0.01}).accepted[4].first, 0.43084778259843315,
                1e-9);
}

TEST(Odeint, IsExactForQuarticSlopesAndRunsBothWays) {
    const auto power = [](double x, const Vector&) { return Vector{5.0 * std::pow(x, 4)}; };
    for (const double first : {0.3, -0.3, 100.0, 0.0}) {
        Course c{power, {10.0}};
        EXPECT_EQ(c.integrate(-1.0, 2.0, {.h_first = first}), 0);
        EXPECT_NEAR(c.y[0], 43.0, 1e-12);
        if (first == 0.0) {
            EXPECT_NEAR(c.accepted[0].first, -0.98, 1e-10);  // it moves 10 by a hundredth
        }
        c.y[0] = 43.0;
        EXPECT_EQ(c.integrate(2.0, -1.0, {.h_first = first}), 0);
        EXPECT_NEAR(c.y[0], 10.0, 1e-12);
        EXPECT_EQ(c.reached, -1.0);
    }
    // The last step is that which leaves next to nothing.
    for (const double first : {1.0 - 1.0e-12, 1.0 - 1.1e-12})
        EXPECT_EQ((Course{power, {10.0}}.integrate(0, 1, {1.0, first, 0.0, 1})),
                  first < 1.0 - 1.0e-12);
    Course still{[](double, const Vector&) { return Vector{0.0}; }, {1.0}};
    EXPECT_EQ(still.integrate(0.0, 100.0, {.h_first = 1.0}), 0);
    EXPECT_EQ(still.accepted[1].first, 11.0) << "ten times as long at most";
    Course nowhere{power, {1.0}};
    EXPECT_EQ(nowhere.integrate(2.0, 2.0), 0);
    EXPECT_EQ(std::pair(nowhere.reached, nowhere.evaluations), std::pair(2.0, 0));
}

TEST(Odeint, TellsEveryAcceptedStepAndCarriesOnWhereItStopped) {
    Course c{oscillate, {0.0, 1.0}};
    EXPECT_EQ(c.integrate(0.0, 6.0, {.max_steps = 7}), 1);
    EXPECT_EQ(c.good + c.bad, 7);
    ASSERT_EQ(c.accepted.size(), static_cast<std::size_t>(c.good));
    EXPECT_EQ(c.accepted.back(), std::pair(c.reached, c.y));
    EXPECT_EQ(c.integrate(c.reached, 6.0), 0);
    EXPECT_NEAR(c.y[0], std::sin(6.0), 1e-6);
}

/// The slope at the end of a step is no part of the solution: a fortieth of it is an error alone.
TEST(Odeint, TakesAnErrorOf1e30ForNone) {
    for (const double error : {1e-30, 1.2e-30}) {
        Course c{{}, {0.0}};
        c.slope = [&](double, const Vector&) {
            return Vector{c.evaluations == 7 ? 40 * error : 0.0};
        };
        EXPECT_EQ(c.integrate(0.0, 10.0, {.h_first = 1.0}), 0);
        EXPECT_EQ(c.bad, error > 1e-30);
        // The step after one that failed is no longer than it is.
        EXPECT_EQ(c.accepted[1].first == 2 * c.accepted[0].first, error > 1e-30);
    }
}

TEST(Odeint, SaysWhyItStops) {
    // y' = y^2 from 1 has a pole at 1: the step comes down to the rounding level of x.
    const auto pole = [](double, const Vector& y) { return Vector{y[0] * y[0]}; };
    Course rounding{pole, {1.0}};
    EXPECT_EQ(rounding.integrate(0.0, 2.0), 2);
    EXPECT_NEAR(rounding.reached, 1.0, 1e-6);
    Course floor{pole, {1.0}};
    EXPECT_EQ(floor.integrate(0.0, 2.0, {.h_min = 1e-3}), 2);
    EXPECT_NEAR(floor.y[0] * (1.0 - floor.reached), 1.0, 1e-4);

    const auto wall = [](double x, const Vector&) { return Vector{x < 0.3 ? 0 : NAN}; };
    Course quarter{wall, {0.0}};
    EXPECT_EQ(quarter.integrate(0.0, 1.0, {.h_first = 1.0}), 4);
    EXPECT_EQ(quarter.accepted[0].first, 0.25);
    Course at_once{[](double, const Vector&) { return Vector{HUGE_VAL}; }, {5.0}};
    EXPECT_EQ(at_once.integrate(0.0, 1.0), 4);
    EXPECT_EQ(std::pair(at_once.evaluations, at_once.y), std::pair(1, Vector{5.0}));
}

TEST(Odeint, RefusesBadArguments) {
    const auto expect_refused = [](const Vector& y, double from, double to, const Settings& bad) {
        Course c{oscillate, y};
        EXPECT_EQ(c.integrate(from, to, bad), 3) << from << ' ' << to;
        EXPECT_EQ(c.reached, from);
        EXPECT_EQ(c.good + c.bad + c.evaluations, 0);
    };
    for (const Settings& bad :
         {Settings{.eps = 0.0}, Settings{.eps = NAN}, Settings{.eps = HUGE_VAL},
          Settings{.h_first = HUGE_VAL}, Settings{.h_min = -1.0}, Settings{.h_min = NAN},
          Settings{.max_steps = 0}})
        expect_refused({0.0, 1.0}, 0.5, 1.0, bad);
    for (const auto& [from, to] :
         {std::pair{0.5, double{NAN}}, {0.5, HUGE_VAL}, {-1.7e308, 1.7e308}})
        expect_refused({0.0, 1.0}, from, to, {});
    expect_refused({}, 0.5, 1.0, {});
}

TEST(Odeint, HoldsWhatWasAcceptedWhenACallThrows) {
    const auto fuse = [](double x, const Vector& y) {
        return x > 0.5 ? throw std::runtime_error("slope") : y;
    };
    Course c{fuse, Vector(40, 1.0)};
    EXPECT_THROW(c.integrate(0.0, 1.0, {.h_first = 0.01}), std::runtime_error);
    EXPECT_EQ(c.accepted.back(), std::pair(c.reached, c.y));
    EXPECT_EQ(c.accepted.size(), static_cast<std::size_t>(c.good));
}

// ---- Quadrature

using Integrand = std::function<double(double)>;

struct Integral {
    int status;
    double value;
    int evaluations;

    bool operator==(const Integral&) const = default;
};

Integral integrate(Integrand f, double a, double b, double tolerance, int max_level) {
    Integral result{-1, 12345.0, -1};
    const auto call = [](double x, void* data) { return (*static_cast<Integrand*>(data))(x); };
    result.status =
        NR_qsimp(call, &f, a, b, tolerance, max_level, &result.value, &result.evaluations);
    return result;
}

TEST(Qsimp, ErrorStaysWithinTheTolerance) {
    const std::tuple<Integrand, double, double, double, double> rows[] = {
        {[](double x) { return std::cos(16 * pi * x); }, 0, 1, 0.0, 0.637},
        {[](double x) { return std::sqrt(x); }, 0, 1, 2.0 / 3.0, 0.667},
        {[](double x) { return x < 1.0 / 3.0 ? 1.0 : -2.0; }, 0, 1, -1.0, 1.667},
        {[](double x) { return 1e-4 / (x * x + 1e-8); }, -1, 1, 2.0 * std::atan(1e4), 3.14},
        {[](double x) { return 1e-200 * x; }, 0, 2, 2e-200, 2e-200},
    };
    for (const auto& [f, a, b, value, magnitude] : rows)
        for (const double tolerance : {1e-3, 1e-6, 1e-9, 1e-12}) {
            const Integral forth = integrate(f, a, b, tolerance, 60);
            EXPECT_EQ(forth.status, 0);
            EXPECT_NEAR(forth.value, value, tolerance * magnitude);
            EXPECT_LT(forth.evaluations, 200000) << value;
            EXPECT_EQ(integrate(f, b, a, tolerance, 60),
                      (Integral{0, -forth.value, forth.evaluations}));
        }
}

TEST(Qsimp, IsExactForCubicsAndOfOrderSixWithTheCorrection) {
    const auto cubic = [](double x) { return ((4.0 * x - 3.0) * x + 2.0) * x - 1.0; };
    EXPECT_NEAR(integrate(cubic, -1.0, 3.0, 0.0, 60).value, 56.0, 1e-13);
    // The error of a quartic is told exactly.
    const auto quartic = [](double x) { return x * x * x * x; };
    const double told =
        (std::pow(0.4384471871911697, 5) + std::pow(1 - 0.4384471871911697, 5)) / 1920;
    for (const double share : {0.99, 1.01})
        EXPECT_EQ(integrate(quartic, 0, 1, share * told / 0.2, 1).status, share < 1);
    // Every division into halves, with all levels made: 2^6 less error.
    const auto exponential = [](double x) { return std::exp(x); };
    const auto error = [&](int level) {
        const Integral all = integrate(exponential, 0, 4, 0.0, level);
        EXPECT_EQ(std::pair(all.status, all.evaluations), std::pair(1, (4 << level) + 1));
        return std::fabs(all.value - (std::exp(4.0) - 1.0));
    };
    EXPECT_NEAR(std::log2(error(2) / error(3)), 6.0, 0.3);
    // The rounding that is passed over is eight epsilons: this error is nine.
    EXPECT_EQ(integrate(exponential, 0, 3, 0.0, 10).status, 1);
}

TEST(Qsimp, GoesOverItAgainWhenTheFirstGuessOfTheSizeWasTooLarge) {
    const auto spiked = [](double x) {  // where the first division samples the right panel
        return 1e7 * std::exp(-std::pow((x - 0.71922359359558485) * 1e6, 2)) + std::sin(20.0 * x);
    };
    const double value = 10.0 * std::sqrt(pi) + (1.0 - std::cos(20.0)) / 20.0;
    EXPECT_NEAR(integrate(spiked, 0.0, 1.0, 1e-7, 50).value, value, 1e-7 * value);
}

TEST(Qsimp, DividesAsOftenAsTheTestsOfTheErrorSay) {
    const auto witch = [](double x) { return 1.0 / (1.0 + 25.0 * x * x); };
    for (const auto& [tolerance, evaluations] :
         {std::pair{1.0, 33}, {1e-3, 37}, {4e-6, 97}, {1e-7, 249}, {0.0, 39649}})
        EXPECT_EQ(integrate(witch, -1, 1, tolerance, 60).evaluations, evaluations) << tolerance;
    // Down to neighbours among the doubles, on either side of 0 and of powers of 2.
    for (const auto& [a, b, jump] :
         {std::tuple{1.0, 3.0, 2.0}, {1.0, 8.0, 2.0}, {-2.0, 2.0, std::nextafter(-2.0, 0.0)}}) {
        const auto step = [at = jump](double x) { return x < at ? 0.0 : 3.0; };
        EXPECT_EQ(integrate(step, a, b, 0.0, 60).evaluations, 233) << jump;
    }
}

TEST(Qsimp, SaysWhatIsWrong) {
    const auto one = [](double) { return 1.0; };
    for (const Integral& bad : {integrate(one, 0, 1, -1e-9, 10), integrate(one, 0, 1, NAN, 10),
                                integrate(one, 0, 1, 1e-9, 0), integrate(one, NAN, 1, 1e-9, 10),
                                integrate(one, -1.7e308, 1.7e308, 1e-9, 10)})
        EXPECT_EQ(bad, (Integral{2, 0.0, 0}));
    EXPECT_EQ(integrate([](double x) { return 1.0 / x; }, 0, 10, 1e-9, 60), (Integral{3, 0.0, 5}));
    for (const Integrand& f : {Integrand([](double x) { return x < 0.7 ? 1.0 : NAN; }),
                               Integrand([](double) { return 1e308; })}) {
        const Integral stopped = integrate(f, 0, 10, 1e-9, 60);
        EXPECT_EQ(stopped.status, 3);
        EXPECT_LT(stopped.evaluations, 100);
    }

    EXPECT_EQ(integrate(one, 2, 2, 1e-9, 10), (Integral{0, 0.0, 0}));
    const Integral tiny = integrate(one, 1.0, std::nextafter(1.0, 2.0), 1e-9, 1000000);
    EXPECT_EQ(std::pair(tiny.status, tiny.value), std::pair(0, 0x1p-52));
}

}  // namespace
