// The root of a function in a bracket.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <stdexcept>
#include <vector>

#include "ztmath/roots.h"

namespace {

using Function = std::function<double(double)>;

constexpr double unwritten = 12345.0;

double call_function(double x, void* data) {
    return (*static_cast<const Function*>(data))(x);
}

struct Found {
    int iterations;
    double root;
};

Found find(Function f, double x1, double x2, double tolerance) {
    double root = unwritten;
    const int iterations = SOLVE_function_root(call_function, &f, x1, x2, tolerance, &root);
    return {iterations, root};
}

TEST(FunctionRoot, IsFoundFromEitherSideOfTheBracket) {
    struct {
        Function f;
        double x1, x2, root;
    } const rows[] = {
        {[](double x) { return x * x - 2.0; }, 0.0, 2.0, std::sqrt(2.0)},
        {[](double x) { return std::cos(x) - x; }, -1.0, 3.0, 0.7390851332151607},
        {[](double x) { return std::atan(x - 0.25); }, -100.0, 90.0, 0.25},
    };
    for (const auto& row : rows)
        for (const bool reversed : {false, true}) {
            const Found found =
                find(row.f, reversed ? row.x2 : row.x1, reversed ? row.x1 : row.x2, 1e-12);
            EXPECT_GE(found.iterations, 1);
            EXPECT_LE(found.iterations, 20);
            EXPECT_NEAR(found.root, row.root, 2e-12);
        }
}

TEST(FunctionRoot, NeedsABracketButTakesZeroAtAnEnd) {
    for (const double side : {1.0, -1.0}) {
        const Found none = find([=](double x) { return side * (x * x + 0.1); }, -0.5, 0.5, 1e-9);
        EXPECT_EQ(none.iterations, -2);
        EXPECT_EQ(none.root, unwritten);
    }

    // A zero at an end does not end it early: the iteration runs, and comes close.
    const Found at_end = find([](double x) { return x * (x + 3.0); }, 0.0, 1.0, 1e-9);
    EXPECT_GE(at_end.iterations, 1);
    EXPECT_NEAR(at_end.root, 0.0, 1e-6);
}

TEST(FunctionRoot, EndsAtAnExactZeroAndCountsIterations) {
    std::vector<double> visited;
    const auto line = [&](double x) { return visited.push_back(x), 2.0 * x - 1.0; };
    const Found found = find(line, -2.0, 4.0, 0.0);
    EXPECT_EQ(found.iterations, 1);
    EXPECT_EQ(found.root, 0.5);
    EXPECT_EQ(visited, (std::vector<double>{-2.0, 4.0, 1.0, 0.5}));
}

TEST(FunctionRoot, LeavesAHugeNumberWhereNothingCanBeDivided) {
    const auto zero = [](double) { return 0.0; };
    const auto tiny = [](double x) { return x * 1e-200; };
    for (const Found found : {find(zero, 0.0, 1.0, 1e-9), find(tiny, -1.0, 2.0, 1e-9)}) {
        EXPECT_EQ(found.iterations, 1);
        EXPECT_EQ(found.root, 1e20);
    }
}

TEST(FunctionRoot, StopsWithTheRootBeforeTheStepThatIsWithinTheTolerance) {
    // All steps are within an infinite tolerance: not even the first is taken.
    const auto cubic = [](double x) { return x * x * x - 1.0; };
    EXPECT_EQ(find(cubic, 0.0, 3.0, HUGE_VAL).root, 1e20);
    // The bracket after one iteration is narrower than 3: the step is taken, then it ends.
    const Found found = find(cubic, 0.0, 3.0, 3.0);
    EXPECT_EQ(found.iterations, 1);
    EXPECT_TRUE(0.0 < found.root && found.root < 3.0) << found.root;
}

TEST(FunctionRoot, RunsOutOfIterationsWithTheLastValue) {
    int calls = 0;
    const auto jump = [&](double x) { return ++calls, x < 1.0 / 3.0 ? -1.0 : 1e6; };
    const Found found = find(jump, -1e9, 1e9, 0.0);
    EXPECT_EQ(found.iterations, -1);
    EXPECT_NE(found.root, 1e20);
    EXPECT_EQ(calls, 2 + 2 * 20);
}

TEST(FunctionRoot, LetsExceptionsOfTheFunctionThrough) {
    EXPECT_THROW(find([](double x) { return x > 0.4 ? throw std::runtime_error("f") : x - 0.3; },
                      0.0, 1.0, 1e-9),
                 std::runtime_error);
}

}  // namespace
