// Vectors of three dimensions.
#include "ztmath/vec3.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/reports.h"
#include "support/session.h"

namespace {

using namespace ztmath_test;

constexpr double pi = 3.14159265358979323846;
constexpr double nan_value = std::numeric_limits<double>::quiet_NaN();

TEST(Vec3Unitize, FailsUpToTheToleranceAndWritesZeros) {
    const double u[3] = {1.0e-10, 0.0, 0.0};
    double magnitude = 7.0;
    double unit[3] = {7.0, 7.0, 7.0};

    EXPECT_EQ(VEC3_unitize(u, 1.0e-10, &magnitude, unit), 0);
    EXPECT_EQ(magnitude, 0.0);
    for (const double component : unit)
        EXPECT_EQ(component, 0.0);

    EXPECT_EQ(VEC3_unitize(u, 0.99e-10, &magnitude, unit), 1);
    EXPECT_EQ(magnitude, 1.0e-10);
    EXPECT_EQ(unit[0], 1.0e-10 * (1.0 / 1.0e-10));
}

TEST(Vec3Unitize, MultipliesByTheReciprocalOfTheLength) {
    const double u[3] = {1.0, 2.0, 4.5};
    double magnitude;
    double unit[3];
    ASSERT_EQ(VEC3_unitize(u, 0.0, &magnitude, unit), 1);
    EXPECT_EQ(magnitude, std::sqrt(1.0 + 4.0 + 20.25));
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(unit[i], u[i] * (1.0 / magnitude));
}

TEST(Vec3Unitize, LetsNanThroughAndAssertsOnlyWhenChecking) {
    for (const double bad : {nan_value, 1.0e19, -1.0e19, HUGE_VAL}) {
        const double u[3] = {0.0, bad, 0.0};
        double magnitude;
        double unit[3];
        ReportRecorder recorder;
        {
            const CheckingLevel off(0);
            EXPECT_EQ(VEC3_unitize(u, 1.0, &magnitude, unit), 1);
            EXPECT_EQ(recorder.take(), Reports{});
        }
        const CheckingLevel on(1);
        EXPECT_EQ(VEC3_unitize(u, 1.0, &magnitude, unit), 1);
        EXPECT_EQ(recorder.take(), Reports{assertion("vec3", "VEC3_is_finite (u)")});
    }
    const CheckingLevel on(1);
    ReportRecorder recorder;
    const double below[3] = {0.0, 0.0, std::nextafter(1.0e19, 0.0)};
    double magnitude;
    double unit[3];
    EXPECT_EQ(VEC3_unitize(below, 1.0, &magnitude, unit), 1);
    EXPECT_EQ(recorder.take(), Reports{});
}

TEST(Vec3Direction, ToleranceIsASineOrCosineAndNullVectorsPass) {
    const double x[3] = {2.0, 0.0, 0.0};
    const double minus_x[3] = {-1.0, 0.0, 0.0};
    const double null[3] = {0.0, 0.99e-10, 0.0};
    const double angle = 0.01;
    const double tilted[3] = {3.0 * std::cos(angle), 0.0, 3.0 * std::sin(angle)};
    const double across[3] = {std::sin(angle), std::cos(angle), 0.0};

    EXPECT_EQ(VEC3_is_parallel(x, minus_x, 0.0), 1);
    EXPECT_EQ(VEC3_is_parallel(x, tilted, std::sin(angle) * 1.000001), 1);
    EXPECT_EQ(VEC3_is_parallel(x, tilted, std::sin(angle) * 0.999999), 0);
    EXPECT_EQ(VEC3_is_perpendicular(x, across, std::sin(angle) * 1.000001), 1);
    EXPECT_EQ(VEC3_is_perpendicular(x, across, std::sin(angle) * 0.999999), 0);
    for (const double* other : {x, minus_x, null}) {
        EXPECT_EQ(VEC3_is_parallel(null, other, 0.0), 1);
        EXPECT_EQ(VEC3_is_perpendicular(other, null, 0.0), 1);
    }

    const CheckingLevel on(1);
    ReportRecorder recorder;
    const double bad[3] = {nan_value, 0.0, 0.0};
    EXPECT_EQ(VEC3_is_parallel(bad, bad, 1.0), 0);
    EXPECT_EQ(VEC3_is_perpendicular(x, bad, 1.0), 0);
    EXPECT_EQ(recorder.take(), (Reports{assertion("vec3", "VEC3_is_finite( u )"),
                                        assertion("vec3", "VEC3_is_finite( v )"),
                                        assertion("vec3", "VEC3_is_finite( v )")}));
}

TEST(Vec3AskPerpendicular, ZeroesTheLeastComponentWithItsTies) {
    struct {
        double u[3], expected[3];
    } const rows[] = {
        {{1, 2, 3}, {0, 3, -2}},  {{3, 2, 1}, {-2, 3, 0}},       {{2, 1, 3}, {3, 0, -2}},
        {{1, 1, 0}, {1, -1, 0}},  {{1, 1, 1}, {1, -1, 0}},       {{3, 1, 1}, {-1, 3, 0}},
        {{1, 3, 1}, {3, -1, 0}},  {{1, 1, 3}, {3, 0, -1}},       {{0, 2, 2}, {0, -2, 2}},
        {{2, 0, -2}, {2, 0, 2}},  {{-2, 3, -1}, {3, 2, 0}},      {{0, 0, 5}, {5, 0, 0}},
        {{0, -5, 0}, {-5, 0, 0}}, {{0.99e-10, 0, 0}, {0, 0, 0}},
    };
    for (const auto& row : rows) {
        double out[3];
        const bool null = row.expected[0] == 0 && row.expected[1] == 0 && row.expected[2] == 0;
        EXPECT_EQ(VEC3_ask_perpendicular(row.u, out), !null);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(out[i], row.expected[i]) << "component " << i << " of (" << row.u[0] << ", "
                                               << row.u[1] << ", " << row.u[2] << ")";
    }
}

TEST(Vec3AngleBetween, RunsCounterClockwiseAboutTheReference) {
    const double x[3] = {2, 0, 0};
    const double y[3] = {0, 3, 0};
    const double up[3] = {0, 0, 1.0e-3};
    const double down[3] = {0, 0, -50};
    const double minus_x[3] = {-1, 0, 0};
    const double null[3] = {0, 0, 1.0e-10};

    EXPECT_DOUBLE_EQ(VEC3_angle_between(x, y, up), pi / 2);
    EXPECT_DOUBLE_EQ(VEC3_angle_between(x, y, down), 3 * pi / 2);
    EXPECT_DOUBLE_EQ(VEC3_angle_between(x, minus_x, down), pi);
    EXPECT_DOUBLE_EQ(VEC3_angle_between(x, y, x), pi / 2);
    EXPECT_EQ(VEC3_angle_between(x, null, up), 0.0);
    const double slightly_back[3] = {1, -0.9e-10, 0};
    const double back[3] = {1, -1.1e-10, 0};
    EXPECT_EQ(VEC3_angle_between(x, slightly_back, up), 0.0);
    EXPECT_GT(VEC3_angle_between(x, back, up), 6.28);
}

TEST(Vec3MakeTrihedral, SplitsAlongAndAcrossAlsoInPlace) {
    double u[3] = {1, 2, 3};
    double axis[3] = {0, 0, 1};
    double third[3];
    VEC3_make_trihedral(u, axis, u, third, axis);
    const double expected_across[3] = {1, 2, 0};
    const double expected_third[3] = {-2, 1, 0};
    const double expected_along[3] = {0, 0, 3};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(u[i], expected_across[i]);
        EXPECT_EQ(third[i], expected_third[i]);
        EXPECT_EQ(axis[i], expected_along[i]);
    }
}

}  // namespace
