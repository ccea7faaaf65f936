// Poles of B-curves.
#include "ztmath/bc_pole.h"

#include "support/curve_record.h"

namespace {

using namespace ztmath_test;

using Pole = std::array<double, 4>;

TEST(Poles, AreMovedAndMeasuredAsTheirPoints) {
    Random random;
    for (int round = 0; round < rounds(200); ++round) {
        const auto weighted = [&] {
            Pole p = random.vector<4>();
            p[3] = std::ldexp(1.0, random.integer(-3, 3));  // so that division is exact
            return p;
        };
        const auto between = [](const Pole& p, const Pole& q) {
            Vector difference;
            const double apart = bc_POLE_3d_distance(p.data(), q.data(), difference.data());
            EXPECT_NEAR(apart, length(difference), 1e-13);
            return difference;
        };
        const Pole a = weighted(), b = weighted(), p = weighted();
        const auto t = random.vector();
        const auto there = written<Pole>(bc_POLE_translate_pole, p, t);
        EXPECT_EQ(there[3], p[3]);
        EXPECT_LE(distance(between(there, p), t), 1e-13);

        const auto foot = written<Pole>(bc_POLE_project_to_line, p, a, b);
        EXPECT_EQ(foot[3], p[3]);
        const Vector chord = between(b, a), along = between(foot, a);
        EXPECT_NEAR(dot(between(p, foot), chord), 0.0, 1e-12 * (1.0 + dot(chord, chord)));
        EXPECT_NEAR(length(cross(along, chord)), 0.0, 1e-12 * (1.0 + dot(along, along)));
    }
    const Vector a = {1, 2, 3}, p = {4, 5, 6};
    EXPECT_EQ(written(h430_, a, a, p), a);
}

TEST(Poles, AreComparedWithTheirOwnTolerances) {
    const Kept tolerance(acom_.tolerances[ZTMATH_SQUARED_LENGTH_TOLERANCE], 0x1p-26);
    const std::tuple<Pole, Pole, int, int> pairs[] = {
        {{1, 1, 1, 1}, {2, 2, 2, 2}, 1, 0},
        {{1, 1, 1, 1}, {1, 1, 1, 2}, 0, 0},
        {{1, 1, 1, 1}, {1, 1, 1, 1 + 1.2e-10}, 1, 0},
        {{1, 1, 1, 1}, {1, 1, 1, 1 + 0.5e-10}, 1, 1},
        {{0, 0, 0, 1e-10}, {0x1p-13 * 1e-10, 0, 0, 1e-10}, 1, 1},  // by the very tolerances
        {{0, 0, 0, 1e-10}, {0, 0, 0, 2e-10}, 1, 1},
        {{0, 0, 0, 1}, {1.5e-10, 0, 0, 1}, 1, 1}};
    for (const auto& [p, q, points_equal, poles_equal] : pairs) {
        EXPECT_EQ(called(bc_POLE_equal_in_3d, p, q), points_equal);
        EXPECT_EQ(called(bc_POLE_equal_in_4d, p, q), poles_equal);
    }
    // By number and x: equal to callers, as the last pair, yet farther apart than identical poles
    // may be; and with two poles the bound is half as wide as a pair's distance from its mean may
    // be.
    const std::tuple<int, Vector, int> cases[] = {
        {-1, {1, 1, 1}, 1},      {0, {1, 1, 1}, 1},
        {1, {1, 1, 1}, 1},       {2, {1, 1, 1}, 1},
        {3, {1, 1, 1}, 1},       {3, {1, 1, NAN}, 0},
        {2, {1, NAN, 1}, 0},     {3, {0, 1.5e-10, 1.5e-10}, 0},
        {2, {0, 1.2e-10, 9}, 0}, {2, {0, 1e-10, 9}, 1}};
    for (const auto& [n, x, identical] : cases) {
        const double poles[] = {x[0], 0, 0, 1, x[1], 0, 0, 1, x[2], 0, 0, 1};
        EXPECT_EQ(bc_POLE_identical_poles_in_3d(poles, n), identical) << n;
    }
}

TEST(Poles, HaveAMeanAndABox) {
    const double poles[] = {2, 4, 6, 2, -1, 0, 3, -1, 5, 5, NAN, 1};
    EXPECT_EQ(written(bc_POLE_average_in_3d, &poles[0], 2), (Vector{1, 1, 0}));
    EXPECT_EQ(written(bc_POLE_average_in_3d, &poles[0], 0), Vector{});
    using Box = std::array<double, 6>;
    for (const auto& [n, box] :
         {std::pair{0, Box{}}, {1, Box{1, 1, 2, 2, 3, 3}}, {3, Box{1, 5, 0, 5, -3, 3}}})
        EXPECT_EQ(written<Box>(bc_xyz_box, &poles[0], &n), box);
}

TEST(Knots, GoOnFromPeriodToPeriodOrAreClamped) {
    const auto knots_of = [](const double* parameters, int n, int periodic) {
        double* knots = nullptr;
        int count = -1, status = -1;
        knot_seq_order_4(parameters, &n, &periodic, &knots, &count, &status);
        EXPECT_EQ(status, count == 0 ? 1 : 0);
        return taken(knots, count);
    };
    // No knots: refused.
    for (const auto& [periodic, parameters, knots] :
         {std::tuple{0, Values{0, 1, 3}, Values{0, 0, 0, 0, 1, 3, 3, 3, 3}},
          {1, {0, 1, 3, 6, 10}, {-9, -7, -4, 0, 1, 3, 6, 10, 11, 13, 16}},
          {1, {0, 1, 3}, {-5, -3, -2, 0, 1, 3, 4, 6, 7}},
          {1, {2, 5}, {-7, -4, -1, 2, 5, 8, 11, 14}},
          {0, {0, 1, 1}, {0, 0, 0, 0, 1, 1, 1, 1, 1}},
          {0, {1}, {}},
          {0, {2, 1}, {}},
          {0, {0, 2, 1}, {}}})
        EXPECT_EQ(knots_of(parameters.data(), int(parameters.size()), periodic), knots);
    EXPECT_EQ(knots_of(nullptr, INT_MAX, 0), Values{}) << "no parameter is read";
}

}  // namespace
