// Vectors of two and of three dimensions.
#include "support/plane.h"
#include "support/support.h"
#include "ztmath/vec2.h"
#include "ztmath/vec3.h"

namespace {

using namespace ztmath_test;

/// A vector is null up to a squared length of 1e-20, and the square of 1e-10, rounded, is more.
const double longest_null = std::nextafter(1.0e-10, 0);

/// Of magnitude 0 is what is too short.
template <std::size_t N>
void expect_unitized(int (*unitize)(const double*, double, double*, double*),
                     std::array<double, N> u, double tolerance, double magnitude) {
    SCOPED_TRACE(testing::PrintToString(u));
    double found = 7;
    std::array<double, N> unit;
    EXPECT_EQ(unitize(u.data(), tolerance, &found, unit.data()), magnitude > 0);
    EXPECT_EQ(found, magnitude);
    for (double& component : u)
        component *= magnitude > 0 ? 1.0 / magnitude : 0.0;
    EXPECT_EQ(unit, u);
}

TEST(VecUnitize, ComparesSquaresAndMultipliesByTheReciprocal) {
    expect_unitized(VEC2_unitize, Pair{3, 4}, 5, 0);
    expect_unitized(VEC2_unitize, Pair{3, 4}, -5, 0);
    expect_unitized(VEC2_unitize, Pair{3, up(4)}, 5, std::sqrt(9 + up(4) * up(4)));
    expect_unitized(VEC2_unitize, Pair{1.0e-200, 0}, 0, 0);  // its square is 0
    expect_unitized(VEC2_unitize, Pair{1, 2.5}, NAN, std::sqrt(7.25));
    expect_unitized(VEC3_unitize, Vector{1.0e-10, 0, 0}, 1.0e-10, 0);
    expect_unitized(VEC3_unitize, Vector{1.0e-10, 0, 0}, 0.99e-10, 1.0e-10);
    expect_unitized(VEC3_unitize, Vector{1, 2, 4.5}, 0, std::sqrt(25.25));
}

TEST(VecDirection, ToleranceIsASineOrCosineAndNullVectorsPass) {
    const Pair u = {3, 4}, along = {-8, -6};
    const Vector v = {3, 0, 4}, tilted = {-8, 0, -6}, across = {-6, 0, 8};
    for (const double tolerance : {-0.280001, -0.279999}) {  // its square is what counts
        const int within = tolerance < -0.28;
        EXPECT_EQ(called(VEC2_is_parallel, u, along, tolerance), within);
        EXPECT_EQ(called(VEC2_is_perpendicular, u, left_of(along), tolerance), within);
        EXPECT_EQ(called(VEC3_is_parallel, v, tilted, tolerance), within);
        EXPECT_EQ(called(VEC3_is_perpendicular, v, across, tolerance), within);
    }
    const Vector x = {2, 0, 0};
    for (const double length : {longest_null, up(longest_null)}) {
        const int is_null = length == longest_null;
        EXPECT_EQ(called(VEC2_is_parallel, Pair{1, 0}, Pair{0, length}, 0.5), is_null);
        EXPECT_EQ(called(VEC2_is_perpendicular, Pair{0, length}, Pair{0, 1}, 0.5), is_null);
        EXPECT_EQ(called(VEC3_is_parallel, Vector{0, length, 0}, x, 0.5), is_null);
        EXPECT_EQ(called(VEC3_is_perpendicular, x, Vector{length, 0, 0}, 0.5), is_null);
    }
    EXPECT_EQ(called(VEC3_is_parallel, x, Vector{-1, 0, 0}, 0), 1);
    EXPECT_EQ(called(VEC3_is_perpendicular, x, Vector{0, 1, 0}, 0), 1);
}

TEST(VecAskPerpendicular, TurnsByTheLargerComponentOrZeroesTheLeastWithItsTies) {
    const auto expect_perpendicular = [](auto ask, const auto& rows) {
        for (const auto& [u, expected] : rows) {
            auto out = u;
            EXPECT_EQ(ask(u.data(), out.data()), expected != decltype(out){});
            EXPECT_EQ(out, expected) << testing::PrintToString(u);
        }
    };
    const Pair pairs[][2] = {
        {{-1, 1}, {1, 1}},           {{up(1), 1}, {1, -up(1)}},     {{1, -up(1)}, {up(1), 1}},
        {{longest_null, 0}, {0, 0}}, {{0, 1.0e-10}, {-1.0e-10, 0}},
    };
    const Vector vectors[][2] = {
        {{1, 2, 3}, {0, 3, -2}},  {{2, 1, 3}, {3, 0, -2}},
        {{1, 1, 1}, {1, -1, 0}},  {{3, 1, 1}, {-1, 3, 0}},
        {{1, 3, 1}, {3, -1, 0}},  {{1, 1, 3}, {3, 0, -1}},
        {{0, 2, 2}, {0, -2, 2}},  {{2, 0, -2}, {2, 0, 2}},
        {{-2, 3, -1}, {3, 2, 0}}, {{longest_null, 8.68e-19, 0}, {0, 0, 0}},
    };
    expect_perpendicular(VEC2_ask_perpendicular, pairs);
    expect_perpendicular(VEC3_ask_perpendicular, vectors);
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

TEST(Vec3AngleBetween, RunsCounterClockwiseAboutTheReference) {
    const Vector x = {2, 0, 0}, above = {0, 0, 1.0e-3}, below = {0, 0, -50};
    const std::tuple<Vector, Vector, double> rows[] = {
        {{0, 3, 0}, above, pi / 2},
        {{0, 3, 0}, below, 3 * pi / 2},
        {{-1, 0, 0}, below, pi},
        {{0, 3, 0}, x, pi / 2},
        {{0, 0, 1.0e-10}, above, 0},
        {{1, -1e-10, 0}, above, 0},
        {{1, -1.1e-10, 0}, above, 2 * pi - 1.1e-10},
    };
    for (const auto& [v, reference, angle] : rows)
        EXPECT_DOUBLE_EQ(called(VEC3_angle_between, x, v, reference), angle)
            << testing::PrintToString(v);
    EXPECT_EQ(called(VEC3_angle_between, Vector{}, Vector{NAN, 0, 0}, above), 0) << "one is null";
}

TEST(Vec3MakeTrihedral, SplitsAlongAndAcross) {
    const Vector u = {1, 2, 3}, axis = {0, 0, 1};
    std::array<Vector, 3> made;
    called(VEC3_make_trihedral, u, axis, made[0].data(), made[1].data(), made[2].data());
    EXPECT_EQ(made, (std::array<Vector, 3>{{{1, 2, 0}, {-2, 1, 0}, {0, 0, 3}}}));
}

TEST(Vec, AssertsThatInputsAreFinite) {
    const CheckingLevel on(1);
    Reports expected;
    for (const std::string n : {"2", "3"})
        for (const char* tested : {" (u)", " (u)", "( u )", "( v )", "( v )"})
            expected.push_back(assertion("vec" + n, "VEC" + n + "_is_finite" + tested));
    const double below = std::nextafter(1.0e19, 0);
    const Vector good = {below, -below, 0};
    double a, b;
    for (const double value : {1.0e19, -1.0e19, double{NAN}}) {
        const Vector bad = {0, value, 0};  // and their first two components as well
        const ReportRecorder recorder;
        Vector out;
        VEC2_unitize(bad.data(), 1, &a, out.data());
        VEC2_ask_perpendicular(bad.data(), out.data());
        called(VEC2_is_parallel, bad, bad, 1);
        called(VEC2_is_perpendicular, good, bad, 1);
        VEC2_components(bad.data(), good.data(), good.data(), 1, &a, &b);  // asserts nothing
        VEC3_unitize(bad.data(), 1, &a, out.data());
        VEC3_ask_perpendicular(bad.data(), out.data());
        called(VEC3_is_parallel, bad, bad, 1);
        called(VEC3_is_perpendicular, good, bad, 1);
        EXPECT_EQ(recorder.reports(), expected);
    }
}

}  // namespace
