// Vectors of two dimensions.
#include "ztmath/vec2.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/random.h"
#include "support/reports.h"
#include "support/session.h"

namespace {

using namespace ztmath_test;

constexpr double nan_value = std::numeric_limits<double>::quiet_NaN();

double up(double x) {
    return std::nextafter(x, HUGE_VAL);
}

/// A vector is null up to a squared length of 1e-20, and the square of 1e-10, rounded, is more.
const double longest_null = std::nextafter(1.0e-10, 0);

TEST(Vec2Unitize, ComparesSquaresOfLengthAndTolerance) {
    const struct {
        double u[2], tolerance;
        int done;
    } rows[] = {
        {{0, 1.0e-10}, 1.0e-10, 0},
        {{up(1.0e-10), 0}, 1.0e-10, 1},
        {{3, 4}, 5, 0},
        {{3, 4}, -5, 0},
        {{3, up(4)}, 5, 1},
        {{0, 0}, 0, 0},
        {{1.0e-200, 0}, 0, 0},
        {{nan_value, 0}, 5, 1},
        {{3, 4}, nan_value, 1},
        {{1.0e200, 0}, 5, 1},
    };
    for (const auto& row : rows) {
        double magnitude = 7;
        double unit[2] = {7, 7};
        EXPECT_EQ(VEC2_unitize(row.u, row.tolerance, &magnitude, unit), row.done)
            << "row " << &row - rows;
        if (row.done) continue;
        EXPECT_EQ(magnitude, 0.0);
        EXPECT_EQ(unit[0], 0.0);
        EXPECT_EQ(unit[1], 0.0);
    }
    const double u[2] = {3, 4};
    double magnitude;
    double unit[2];
    VEC2_unitize(u, 0, &magnitude, unit);
    EXPECT_EQ(magnitude, 5.0);
    EXPECT_EQ(unit[0], 3 * (1.0 / 5));
    EXPECT_EQ(unit[1], 4 * (1.0 / 5));
}

TEST(Vec2Direction, ToleranceIsASineOrCosine) {
    Random random;
    for (int round = 0; round < rounds(2000); ++round) {
        const double from = random.uniform(0, 6.28);
        const double turn = random.uniform(0.001, 1.57);
        const double r = std::exp(random.uniform(-20, 20));
        const double u[2] = {r * std::cos(from), r * std::sin(from)};
        const double along[2] = {-2 * std::cos(from + turn), -2 * std::sin(from + turn)};
        const double across[2] = {-std::sin(from + turn), std::cos(from + turn)};
        for (const double factor : {1.000001, 0.999999}) {
            const int expected = factor > 1;
            const double tolerance = -factor * std::sin(turn);  // its square is what counts
            EXPECT_EQ(VEC2_is_parallel(u, along, tolerance), expected);
            EXPECT_EQ(VEC2_is_perpendicular(u, across, tolerance), expected);
        }
    }
    const double null[2] = {0, longest_null};
    const double short_one[2] = {0, up(longest_null)};
    const double x[2] = {1, 0};
    const double y[2] = {0, 1};
    EXPECT_EQ(VEC2_is_parallel(x, null, 0) + VEC2_is_perpendicular(null, y, 0), 2);
    EXPECT_EQ(VEC2_is_parallel(x, short_one, 0.5) + VEC2_is_perpendicular(short_one, y, 0.5), 0);
}

TEST(Vec2AskPerpendicular, TurnsByTheLargerComponent) {
    const struct {
        double u[2], expected[2];
        int found;
    } rows[] = {
        {{1, 1}, {1, -1}, 1},           {{1, 2}, {-2, 1}, 1},
        {{-1, 1}, {1, 1}, 1},           {{up(1), 1}, {1, -up(1)}, 1},
        {{1, -up(1)}, {up(1), 1}, 1},   {{0, 5}, {-5, 0}, 1},
        {{longest_null, 0}, {0, 0}, 0}, {{0, 1.0e-10}, {-1.0e-10, 0}, 1},
    };
    for (const auto& row : rows) {
        double out[2];
        EXPECT_EQ(VEC2_ask_perpendicular(row.u, out), row.found);
        EXPECT_EQ(out[0], row.expected[0]) << "row " << &row - rows;
        EXPECT_EQ(out[1], row.expected[1]) << "row " << &row - rows;
    }
}

TEST(Vec2Components, RebuildTheVectorOrAreInfinite) {
    Random random;
    for (int round = 0; round < rounds(2000); ++round) {
        const auto u = random.vector<2>();
        const auto v = random.vector<2>();
        const auto w = random.vector<2>();
        const double det = u[0] * v[1] - u[1] * v[0];
        double a;
        double b;
        ASSERT_EQ(VEC2_components(u.data(), v.data(), w.data(), 1.0e-3, &a, &b),
                  std::fabs(det) > 1.0e-3);
        if (std::isinf(a)) {
            EXPECT_TRUE(a > 0 && b > 0 && std::isinf(b));
            continue;
        }
        const double rounding = 1.0e-15 * (1 + std::fabs(a) + std::fabs(b)) / std::fabs(det) * 50;
        EXPECT_NEAR(a * u[0] + b * v[0], w[0], rounding);
        EXPECT_NEAR(a * u[1] + b * v[1], w[1], rounding);
    }
    const double u[2] = {1, 0};
    const double v[2] = {0, -0.25};
    double a;
    double b;
    EXPECT_EQ(VEC2_components(u, v, v, 0.25, &a, &b), 0);
    EXPECT_EQ(VEC2_components(u, v, v, std::nextafter(0.25, 0), &a, &b), 1);
    EXPECT_EQ(b, 1.0);
    const CheckingLevel on(1);
    const ReportRecorder recorder;
    const double bad[2] = {nan_value, 1};
    EXPECT_EQ(VEC2_components(bad, v, v, 1, &a, &b), 1);
    EXPECT_EQ(recorder.reports(), Reports{}) << "the one routine that asserts nothing";
}

TEST(Vec2AskShortestVector, TakesTheFirstOfTheShortest) {
    const double vectors[] = {1, 0, 0, 1, 0.5, 0, 0, -0.5, nan_value, 0};
    EXPECT_EQ(VEC2_ask_shortest_vector(5, vectors), 2);
    EXPECT_EQ(VEC2_ask_shortest_vector(2, vectors), 0);
    EXPECT_EQ(VEC2_ask_shortest_vector(2, vectors + 6), 0) << "a NaN is not shorter";
    EXPECT_EQ(VEC2_ask_shortest_vector(1, vectors + 8), 0);
    for (const int level : {0, 1}) {
        const CheckingLevel checking(level);
        const ReportRecorder recorder;
        EXPECT_EQ(VEC2_ask_shortest_vector(0, nullptr), 0);
        EXPECT_EQ(VEC2_ask_shortest_vector(-3, nullptr), 0);
        EXPECT_EQ(recorder.reports(), Reports(level > 0 ? 2 : 0, assertion("vec2", "count > 0")));
    }
}

TEST(Vec2, AssertsThatInputsAreFinite) {
    const CheckingLevel on(1);
    const double good[2] = {std::nextafter(1.0e19, 0), -std::nextafter(1.0e19, 0)};
    for (const double value : {1.0e19, -HUGE_VAL, nan_value}) {
        const double bad[2] = {0, value};
        double out[2];
        double magnitude;
        ReportRecorder recorder;
        VEC2_unitize(good, 1, &magnitude, out);
        VEC2_ask_perpendicular(good, out);
        VEC2_is_parallel(good, good, 1);
        EXPECT_EQ(recorder.take(), Reports{});
        VEC2_unitize(bad, 1, &magnitude, out);
        VEC2_ask_perpendicular(bad, out);
        EXPECT_EQ(recorder.take(), Reports(2, assertion("vec2", "VEC2_is_finite (u)")));
        VEC2_is_parallel(bad, good, 1);
        VEC2_is_perpendicular(good, bad, 1);
        EXPECT_EQ(recorder.take(), (Reports{assertion("vec2", "VEC2_is_finite( u )"),
                                            assertion("vec2", "VEC2_is_finite( v )")}));
    }
}

}  // namespace
