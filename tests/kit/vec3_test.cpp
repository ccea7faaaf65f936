// Vectors of three dimensions.
#include "ztmath/vec3.h"

#include "support/by_value.h"
#include "support/reports.h"
#include "support/vectors.h"

namespace {

using namespace ztmath_test;

constexpr double pi = std::numbers::pi;

TEST(Vec3Unitize, ComparesTheLengthAndMultipliesByItsReciprocal) {
    const std::tuple<Vector, double, double> rows[] = {
        {{1.0e-10, 0, 0}, 1.0e-10, 0},
        {{1.0e-10, 0, 0}, 0.99e-10, 1.0e-10},
        {{1, 2, 4.5}, 0, std::sqrt(25.25)},
    };
    for (const auto& [u, tolerance, expected] : rows) {
        double magnitude = 7;
        Vector unit = {7, 7, 7};
        EXPECT_EQ(VEC3_unitize(u.data(), tolerance, &magnitude, unit.data()), expected > 0);
        EXPECT_EQ(magnitude, expected);
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_EQ(unit[i], expected > 0 ? u[i] * (1.0 / expected) : 0.0);
    }
}

TEST(Vec3, AssertsThatInputsAreFinite) {
    const CheckingLevel on(1);
    ReportRecorder recorder;
    Vector unit;
    double magnitude;
    const double below = std::nextafter(1.0e19, 0.0);
    const Vector good = {below, -below, 0};
    for (const double value : {1.0e19, -1.0e19, double{NAN}}) {
        const Vector bad = {0, value, 0};
        VEC3_unitize(bad.data(), 1.0, &magnitude, unit.data());
        VEC3_is_parallel(bad.data(), bad.data(), 1.0);
        VEC3_is_perpendicular(good.data(), bad.data(), 1.0);
        EXPECT_EQ(recorder.take(), (Reports{assertion("vec3", "VEC3_is_finite (u)"),
                                            assertion("vec3", "VEC3_is_finite( u )"),
                                            assertion("vec3", "VEC3_is_finite( v )"),
                                            assertion("vec3", "VEC3_is_finite( v )")}));
    }
}

TEST(Vec3Direction, ToleranceIsASineOrCosineAndNullVectorsPass) {
    const Vector x = {2, 0, 0}, null = {0, 0.99e-10, 0};
    const double angle = 0.01;
    const Vector tilted = {3 * std::cos(angle), 0, 3 * std::sin(angle)};
    const Vector across = {std::sin(angle), std::cos(angle), 0};
    for (const double factor : {1.000001, 0.999999}) {
        const double tolerance = std::sin(angle) * factor;
        EXPECT_EQ(called(VEC3_is_parallel, x, tilted, tolerance), factor > 1);
        EXPECT_EQ(called(VEC3_is_perpendicular, x, across, tolerance), factor > 1);
    }
    EXPECT_EQ(called(VEC3_is_parallel, x, Vector{-1, 0, 0}, 0), 1);
    EXPECT_EQ(called(VEC3_is_parallel, null, x, 0), 1);
    EXPECT_EQ(called(VEC3_is_perpendicular, x, null, 0), 1);
    EXPECT_EQ(called(VEC3_is_perpendicular, x, Vector{0, 1, 0}, 0), 1);
}

TEST(Vec3AskPerpendicular, ZeroesTheLeastComponentWithItsTies) {
    const double below = std::nextafter(1e-10, 0);  // the squared length of the last is 1e-20
    const Vector rows[][2] = {
        {{1, 2, 3}, {0, 3, -2}},           {{2, 1, 3}, {3, 0, -2}}, {{1, 1, 1}, {1, -1, 0}},
        {{3, 1, 1}, {-1, 3, 0}},           {{1, 3, 1}, {3, -1, 0}}, {{1, 1, 3}, {3, 0, -1}},
        {{0, 2, 2}, {0, -2, 2}},           {{2, 0, -2}, {2, 0, 2}}, {{-2, 3, -1}, {3, 2, 0}},
        {{below, 8.68e-19, 0}, {0, 0, 0}},
    };
    for (const auto& [u, expected] : rows) {
        Vector out;
        EXPECT_EQ(VEC3_ask_perpendicular(u.data(), out.data()), expected != Vector{});
        EXPECT_EQ(out, expected) << testing::PrintToString(u);
    }
}

TEST(Vec3AngleBetween, RunsCounterClockwiseAboutTheReference) {
    const Vector x = {2, 0, 0}, up = {0, 0, 1.0e-3}, down = {0, 0, -50};
    const std::tuple<Vector, Vector, double> rows[] = {
        {{0, 3, 0}, up, pi / 2},
        {{0, 3, 0}, down, 3 * pi / 2},
        {{-1, 0, 0}, down, pi},
        {{0, 3, 0}, x, pi / 2},
        {{0, 0, 1.0e-10}, up, 0},
        {{1, -1e-10, 0}, up, 0},
        {{1, -1.1e-10, 0}, up, 2 * pi - 1.1e-10},
    };
    for (const auto& [v, reference, angle] : rows)
        EXPECT_DOUBLE_EQ(called(VEC3_angle_between, x, v, reference), angle)
            << testing::PrintToString(v);
}

TEST(Vec3MakeTrihedral, SplitsAlongAndAcross) {
    const Vector u = {1, 2, 3}, axis = {0, 0, 1};
    Vector across, third, along;
    VEC3_make_trihedral(u.data(), axis.data(), across.data(), third.data(), along.data());
    EXPECT_EQ(across, (Vector{1, 2, 0}));
    EXPECT_EQ(third, (Vector{-2, 1, 0}));
    EXPECT_EQ(along, (Vector{0, 0, 3}));
}

}  // namespace
