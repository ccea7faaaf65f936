// The root of a function in a bracket.
#include "support/prelude.h"
#include "ztmath/roots.h"

namespace {

using Function = std::function<double(double)>;

constexpr double unwritten = 12345.0;

struct Found {
    int iterations;
    double root = unwritten;
    std::vector<double> visited{};

    bool operator==(const Found&) const = default;
};

Found find(const Function& f, double x1, double x2, double tolerance) {
    Found found{0};
    Function visiting = [&](double x) {
        found.visited.push_back(x);
        return f(x);
    };
    const auto call = [](double x, void* data) { return (*static_cast<Function*>(data))(x); };
    found.iterations = SOLVE_function_root(call, &visiting, x1, x2, tolerance, &found.root);
    return found;
}

TEST(FunctionRoot, IsFoundFromEitherSideOfTheBracket) {
    const auto bend = [](double x) { return std::atan(x - 0.25); };
    for (const Found& found : {find(bend, -100.0, 90.0, 1e-12), find(bend, 90.0, -100.0, 1e-12)}) {
        EXPECT_GE(found.iterations, 1);
        EXPECT_NEAR(found.root, 0.25, 2e-12);
    }
}

TEST(FunctionRoot, NeedsABracketButTakesZeroAtAnEnd) {
    for (const double side : {1.0, -1.0})
        EXPECT_EQ(find([=](double x) { return side * (x * x + 0.1); }, -0.5, 0.5, 1e-9),
                  (Found{-2, unwritten, {-0.5, 0.5}}));
    // A zero at an end does not end it early: the iteration runs, and comes close.
    for (const double side : {1.0, -1.0}) {
        for (const bool reversed : {false, true}) {
            const Found at_end =
                find([=](double x) { return side * x * (x + 3.0); }, reversed, !reversed, 1e-9);
            EXPECT_GE(at_end.iterations, 1);
            EXPECT_NEAR(at_end.root, 0.0, 1e-6);
        }
        // Rounding leads to just above the zero, which has the sign of what is positive.
        const Found beside = find([=](double x) { return side * (x - 0.1); }, 0.1, 0.8, 1e-9);
        EXPECT_EQ(beside.visited.back() == (0.1 + 0.8) / 2, side > 0);  // tried again, or narrowed
    }
}

TEST(FunctionRoot, EndsAtAnExactZeroOrWithTheRootBeforeTheLastStep) {
    EXPECT_EQ(find([](double x) { return 2.0 * x - 1.0; }, -2.0, 4.0, 0.0),
              (Found{1, 0.5, {-2.0, 4.0, 1.0, 0.5}}));
    // A huge number stands where nothing can be divided, and where not even the first step is taken
    // because all are within the tolerance.
    const auto tiny = [](double x) { return x * 1e-200; };
    const auto cubic = [](double x) { return x * x * x - 1.0; };
    EXPECT_EQ(find(tiny, -1.0, 2.0, 1e-9).root, 1e20);
    EXPECT_EQ(find(cubic, 0.0, 3.0, HUGE_VAL).root, 1e20);
    // The bracket after one iteration is narrower than 3: the step is taken, then it ends.
    const Found found = find(cubic, 0.0, 3.0, 3.0);
    EXPECT_EQ(found.iterations, 1);
    EXPECT_TRUE(0.0 < found.root && found.root < 3.0) << found.root;
    // Exactly as wide as the tolerance is not narrower; a step of exactly the tolerance is not
    // taken.
    const auto table = [](double x) { return x == 5 ? 3.0 : x == 1 ? 1.0 : x == 0 ? 0.0 : -1.0; };
    for (const double tolerance : {2.0, 1.0})
        EXPECT_EQ(find(table, -3.0, 5.0, tolerance), (Found{2, -1.0, {-3, 5, 1, -1, 0}}));
    // Between zeros at both ends it goes to the upper one.
    EXPECT_EQ(find([](double x) { return x * (4.0 - x); }, 0.0, 4.0, 1e-9).root, 4.0);
    // A jump runs out of iterations.
    const Found last = find([](double x) { return x < 0.3 ? -1.0 : 1e6; }, -1e9, 1e9, 0.0);
    EXPECT_EQ(std::pair(last.iterations, last.visited.size()), std::pair(-1, 2UL + 2UL * 20UL));
    EXPECT_NE(last.root, 1e20);
}

}  // namespace
