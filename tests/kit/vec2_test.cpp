// Vectors of two dimensions.
#include "ztmath/vec2.h"

#include "support/by_value.h"
#include "support/plane.h"
#include "support/reports.h"

namespace {

using namespace ztmath_test;

double up(double x) {
    return std::nextafter(x, HUGE_VAL);
}

/// A vector is null up to a squared length of 1e-20, and the square of 1e-10, rounded, is more.
const double longest_null = std::nextafter(1.0e-10, 0);

TEST(Vec2Unitize, ComparesSquaresOfLengthAndTolerance) {
    const std::tuple<Pair, double, double> rows[] = {
        {{3, 4}, 5, 0},
        {{3, 4}, -5, 0},
        {{3, up(4)}, 5, std::sqrt(9 + up(4) * up(4))},
        {{0, 0}, 0, 0},
        {{1.0e-200, 0}, 0, 0},  // its square is 0
        {{1, 2.5}, NAN, std::sqrt(7.25)},
    };
    for (const auto& [u, tolerance, expected] : rows) {
        double magnitude = 7;
        Pair unit = {7, 7};
        EXPECT_EQ(VEC2_unitize(u.data(), tolerance, &magnitude, unit.data()), expected > 0);
        EXPECT_EQ(magnitude, expected) << testing::PrintToString(u);
        const double factor = expected > 0 ? 1.0 / expected : 0;
        EXPECT_EQ(unit, (Pair{u[0] * factor, u[1] * factor}));
    }
}

TEST(Vec2Direction, ToleranceIsASineOrCosine) {
    const Pair u = {3, 4}, along = {-8, -6};
    for (const double tolerance : {-0.280001, -0.279999}) {  // its square is what counts
        EXPECT_EQ(called(VEC2_is_parallel, u, along, tolerance), tolerance < -0.28);
        EXPECT_EQ(called(VEC2_is_perpendicular, u, left_of(along), tolerance), tolerance < -0.28);
    }
    for (const double length : {longest_null, up(longest_null)}) {
        const Pair v = {0, length};
        EXPECT_EQ(called(VEC2_is_parallel, Pair{1, 0}, v, 0.5), length == longest_null);
        EXPECT_EQ(called(VEC2_is_perpendicular, v, Pair{0, 1}, 0.5), length == longest_null);
    }
}

TEST(Vec2AskPerpendicular, TurnsByTheLargerComponent) {
    const Pair rows[][2] = {
        {{-1, 1}, {1, 1}},           {{up(1), 1}, {1, -up(1)}},     {{1, -up(1)}, {up(1), 1}},
        {{longest_null, 0}, {0, 0}}, {{0, 1.0e-10}, {-1.0e-10, 0}},
    };
    for (const auto& [u, expected] : rows) {
        Pair out;
        EXPECT_EQ(VEC2_ask_perpendicular(u.data(), out.data()), expected != Pair{});
        EXPECT_EQ(out, expected) << testing::PrintToString(u);
    }
}

TEST(Vec2Components, RebuildTheVectorOrAreInfinite) {
    const double u[2] = {2, 1}, v[2] = {-1, 3}, w[2] = {8, -3};
    double a, b;
    EXPECT_EQ(VEC2_components(u, v, w, std::nextafter(7, 0), &a, &b), 1);
    EXPECT_EQ((Pair{a, b}), (Pair{3, -2}));
    EXPECT_EQ(VEC2_components(u, v, w, 7, &a, &b), 0);
    EXPECT_EQ((Pair{a, b}), (Pair{HUGE_VAL, HUGE_VAL}));
    EXPECT_EQ(VEC2_components(Pair{NAN, 1}.data(), v, v, 1, &a, &b), 1);
}

TEST(Vec2AskShortestVector, TakesTheFirstOfTheShortest) {
    const double vectors[] = {0, 1, 0.5, 0.1, 0.5, 0.1, -0.1, -0.5, NAN, 0, 0.1, 0.1};
    EXPECT_EQ(VEC2_ask_shortest_vector(5, vectors), 1);
    EXPECT_EQ(VEC2_ask_shortest_vector(6, vectors), 5);
    EXPECT_EQ(VEC2_ask_shortest_vector(1, vectors), 0);
    expect_reports_when_checking([] { EXPECT_EQ(VEC2_ask_shortest_vector(0, nullptr), 0); },
                                 {assertion("vec2", "count > 0")});
}

TEST(Vec2, AssertsThatInputsAreFinite) {
    const CheckingLevel on(1);
    ReportRecorder recorder;
    const double good[2] = {std::nextafter(1.0e19, 0), -std::nextafter(1.0e19, 0)};
    double out[2], magnitude;
    for (const double value : {1.0e19, -1.0e19, double{NAN}}) {
        const double bad[2] = {0, value};
        VEC2_unitize(bad, 1, &magnitude, out);
        VEC2_ask_perpendicular(bad, out);
        VEC2_is_parallel(bad, good, 1);
        VEC2_is_perpendicular(good, bad, 1);
        VEC2_components(bad, good, good, 1, out, out + 1);  // the one that asserts nothing
        EXPECT_EQ(recorder.take(), (Reports{assertion("vec2", "VEC2_is_finite (u)"),
                                            assertion("vec2", "VEC2_is_finite (u)"),
                                            assertion("vec2", "VEC2_is_finite( u )"),
                                            assertion("vec2", "VEC2_is_finite( v )")}));
    }
}

}  // namespace
