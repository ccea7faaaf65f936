// The compact vector kit.
#include "ztmath/mc.h"

#include "support/support.h"

namespace {

using namespace ztmath_test;

using System = std::array<double, 12>;

/// What is reported, and what comes with it on standard output.
struct Complaint {
    std::string report, line;
};

const Complaint null_vector = {"tried to unitize null vector", "zero vector in unitize"};
const Complaint singular = {"zero determinant in linear system",
                            "zero determinant in 3 by 3 system"};

/// What a call returns that complains or does not.
template <class Call>
auto complaining(bool does, const Complaint& complaint, const Call& call) {
    const ReportRecorder recorder;
    testing::internal::CaptureStdout();
    const auto result = call();
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              does ? "\nERROR: " + complaint.line + "\n" : "");
    EXPECT_EQ(recorder.reports(), Reports(does ? 1 : 0, raised("mc_math", 17, complaint.report)));
    return result;
}

Vector unitized(Vector v) {
    MC_v_unit(v.data());
    return v;
}

TEST(McArithmetic, TakesOperandsInTheOrderOfTheNames) {
    const Vector a = {1, 2, 3}, b = {7, -5, 11};
    EXPECT_EQ(written(MC_v_copy, a), a);
    EXPECT_EQ(written(MC_AmB, a, b), (Vector{-6, 7, -8}));
    EXPECT_EQ(written(MC_ApB, a, b), (Vector{8, -3, 14}));
    EXPECT_EQ(written(MC_aA, -2, a), (Vector{-2, -4, -6}));
    EXPECT_EQ(written(MC_aApB, -2, a, b), (Vector{5, -9, 5}));
    EXPECT_EQ(written(MC_AxB, a, b), (Vector{37, 10, -19}));
    EXPECT_EQ(called(MC_A_dot_B, a, b), 30);
    EXPECT_EQ(called(MC_triple_product, a, b, Vector{2, 3, 5}), 9);
    EXPECT_EQ(called(MC_determinant, System{1, 2, 3, 0, 7, -5, 11, 0, 2, 3, 5, 0}), 9);
    EXPECT_EQ(called(MC_length2, b), 195);
    EXPECT_EQ(called(MC_length, b), std::sqrt(195.0));
    EXPECT_EQ(called(MC_dist2, a, b), 149);
    EXPECT_EQ(called(MC_dist, a, b), std::sqrt(149.0));
}

TEST(McUnitize, ReportsShortVectorsAndDividesThemAllTheSame) {
    for (const double y : {1.0e-4, std::nextafter(1.0e-4, 0), -0.5e-4}) {
        const auto unitize = [y] { return unitized({0, y, 0}); };
        EXPECT_EQ(complaining(std::fabs(y) < 1.0e-4, null_vector, unitize)[1], std::copysign(1, y));
    }
    const double length = std::sqrt(25.25);
    EXPECT_EQ(unitized({1, 2, 4.5}), (Vector{1 / length, 2 / length, 4.5 / length}));
}

TEST(McDirections, CompareWhatIsNotDividedByTheLengths) {
    const double s = std::sqrt(1.7453292519943296e-5);
    const Vector x = {1, 0, 0};
    const auto parallel = [&](const Vector& v) { return called(MC_q_parallel, x, v); };
    EXPECT_EQ(parallel({1, s * 0.999999, 0}), 1);
    EXPECT_EQ(parallel({-1, 0, s * 1.000001}), 0);
    EXPECT_EQ(parallel({1, 0.003, 0.002907454646240126}), 0) << "a squared sine of just as much";
    EXPECT_EQ(parallel({10, 10 * s * 0.999999, 0}), 0) << "longer vectors tighten the test";
    for (const double cosine : {1.0e-4, std::nextafter(1.0e-4, 0), -1.0e-4})
        EXPECT_EQ(called(MC_q_perp, x, Vector{cosine, 1, 0}), std::fabs(cosine) < 1.0e-4);
}

TEST(McGetAngle, IsExactNearTheEndsAndRightBetween) {
    const Vector x = {1, 0, 0};
    const auto angle_at = [&](double angle) {
        return called(MC_get_angle, x, Vector{std::cos(angle), std::sin(angle), 0});
    };
    EXPECT_EQ(angle_at(0.0003), 0);
    EXPECT_EQ(angle_at(std::numbers::pi - 0.0003), std::numbers::pi);
    for (const double end : {0.9999999, -0.9999999})
        EXPECT_EQ(called(MC_get_angle, x, Vector{end, 0, 0}), std::acos(end));
    for (double angle = 0.0005; angle < 3.141; angle += 0.001)
        EXPECT_NEAR(angle_at(angle), angle, 1.0e-12);
}

TEST(McPerpVec, DividesByALargeComponent) {
    const Vector rows[][2] = {
        {{0.5, 0.5, std::sqrt(0.5)}, {1, 0, -0.5 / std::sqrt(0.5)}},
        {{-0.5, 0.6, std::sqrt(0.39)}, {1, 0.5 / 0.6, 0}},
        {{0.6, -0.8, 0}, {0.8 / 0.6, 1, 0}},
    };
    for (const auto& [v, across] : rows)
        EXPECT_EQ(written(MC_perp_vec, v), unitized(across));
}

TEST(McSolve3, ReportsASmallDeterminantAndDividesByItAllTheSame) {
    const auto diagonal = [](double d) { return System{1, 0, 0, 3, 0, d, 0, 5, 0, 0, 1, 7}; };
    for (const double d : {1.0e-8, 0.99e-8, -0.99e-8, 0.0}) {
        const auto solve = [&] { return written(MC_solve_3, diagonal(d)); };
        EXPECT_EQ(complaining(std::fabs(d) < 1.0e-8, singular, solve)[1], 5 / d);
    }
    const ReportRecorder unwinding([](const Report& report) { throw report; });
    Vector x = {7, 7, 7};
    EXPECT_THROW(MC_solve_3(diagonal(0).data(), x.data()), Report);
    EXPECT_EQ(x, (Vector{7, 7, 7})) << "a report that unwinds leaves the output";
    EXPECT_EQ(unwinding.lines().at(0) / 1000, 2) << "in the second of the module's files";
}

TEST(McDistLines, IsAlongTheCommonPerpendicularUnlessTheProductOfTheDirectionsIsSmall) {
    const Vector d1 = {1, 2, 0}, d2 = {-5, 11, 3}, p1 = {1, 1, 1}, p2 = {3, -2, 6};
    EXPECT_DOUBLE_EQ(called(MC_dist_lines, d1, p1, d2, p2), 126 / std::sqrt(486));
    // Crossing lines, unless they are taken for parallel.
    const auto distance = [&](const Vector& a, const Vector& b, const Vector& between) {
        return called(MC_dist_lines, a, Vector{}, b, between);
    };
    const Vector x = {1, 0, 0};
    EXPECT_NEAR(distance(x, {1, 1.0e-4, 0}, {0, 2, 0}), 0, 1.0e-15);
    EXPECT_EQ(distance(x, {1, 0.99e-4, 0}, {0, 2, 0}), 2);
    EXPECT_EQ(distance(x, x, {5, 0.99e-4, 0}), 0) << "apart along the lines only";
    EXPECT_EQ(distance({1000, 0, 0}, x, {0, 0.99e-4, 0}), 0) << "whatever the length of d1";
    EXPECT_NEAR(distance(x, x, {0, 1.0e-4, 0}), 1.0e-4, 1.0e-18);
    for (const double length : {0.1, 1.0e-3}) {
        const auto measure = [&] { return distance({length, 0, 0}, x, {0, 0.2, 0}); };
        EXPECT_DOUBLE_EQ(complaining(length < 0.01, null_vector, measure), 0.2);
    }
}

TEST(McPlanes, MeasureAlongTheFirstNormal) {
    const Vector z = {0, 0, 1}, tilted = {0, 0.01, 1}, point = {1, 1, 7};
    EXPECT_EQ(called(MC_signed_dist_planes, z, 2, z, 5), 3);
    EXPECT_EQ(called(MC_signed_dist_planes, z, 2, Vector{0, 0, -1}, 5), -7);
    EXPECT_EQ(called(MC_signed_dist_planes, z, 2, tilted, 5), 0);
    EXPECT_EQ(called(MC_signed_dist_planes, z, 2, Vector{}, 5), -7) << "a product of 0 turns";
    EXPECT_EQ(called(MC_signed_dist_plane_axis, z, 2, Vector{3, 4, 0.99e-4}, point), 5);
    EXPECT_EQ(called(MC_signed_dist_plane_axis, z, 2, tilted, point), 0);
}

TEST(McProjections, DropPerpendiculars) {
    Random random;
    for (int round = 0; round < rounds(1000); ++round) {
        const Vector u = random_unit(random), p = random.vector(), q = random.vector();
        const double d = random.normal();
        const Vector foot = written(MC_proj_point_onto_line, p, u, q);
        ASSERT_LT(distance(foot, moved(q, dot(moved(p, -1, q), u), u)), 1.0e-14);
        const Vector away = written(MC_perp_from_line_to_point, p, u, q);
        ASSERT_LT(distance(moved(foot, length(moved(p, -1, foot)), away), p), 1.0e-14);
        const Vector on_plane = written(MC_proj_point_onto_plane, p, u, d);
        ASSERT_LT(distance(on_plane, moved(p, d - dot(p, u), u)), 1.0e-14);
    }
    const Vector x = {1, 0, 0}, origin = {0, 0, 0};
    for (const double off : {1.0e-4, 1.0001e-4})
        EXPECT_EQ(called(MC_q_point_on_line, Vector{5, 0, off}, x, origin), off == 1.0e-4);
    complaining(true, null_vector,
                [&] { return written(MC_perp_from_line_to_point, x, x, origin); });
}

/// The system that MC_axis_plane_x is to solve when a component of the direction is its pivot.
System line_and_plane(const Vector& e, const Vector& p, const Vector& n, double d, int pivot) {
    const std::array<double, 4> across[] = {{0, e[2], -e[1], e[2] * p[1] - e[1] * p[2]},
                                            {-e[2], 0, e[0], e[0] * p[2] - e[2] * p[0]},
                                            {e[1], -e[0], 0, e[1] * p[0] - e[0] * p[1]}};
    System system = {n[0], n[1], n[2], d};
    auto end = system.begin() + 4;
    for (int k = 0; k < 3; ++k)
        if (k != pivot) end = std::copy(across[k].begin(), across[k].end(), end);
    return system;
}

TEST(McAxisPlaneX, PivotsOnTheFirstLargestComponent) {
    const std::pair<Vector, int> rows[] = {
        {{3, -2, 1}, 0},      {{1, 3, 2}, 1},      {{1, 2, -3}, 2}, {{1, 1, 0}, 0},
        {{3, 2, -3}, 0},      {{1, -3, 3}, 1},     {{3, -3, 3}, 0}, {{1, 1.7, -0.3}, 1},
        {{0.3, 0.3, 0.3}, 0}, {{0.1, 0.7, 0.7}, 1}};
    Random random;
    for (const auto& [direction, pivot] : rows)
        for (int round = 0; round < rounds(50); ++round) {
            const Vector p = random.vector(), n = random.vector();
            const double d = random.normal();
            const Vector out = written(MC_axis_plane_x, direction, p, n, d);
            ASSERT_EQ(out, written(MC_solve_3, line_and_plane(direction, p, n, d, pivot)));
            const Vector along = moved(p, (d - dot(p, n)) / dot(direction, n), direction);
            ASSERT_LT(distance(out, along), 1.0e-11 / std::fabs(dot(direction, n)));
        }
    const Vector in_plane = {1, -1, 0}, n = {1, 1, 5};
    complaining(true, singular, [&] { return written(MC_axis_plane_x, in_plane, n, n, 1); });
}

}  // namespace
