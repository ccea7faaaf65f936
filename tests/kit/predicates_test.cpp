// Predicates on points, planes, boxes and frames.
#include "support/support.h"
#include "ztmath/ztmath.h"

namespace {

using namespace ztmath_test;

// ---- Points

TEST(Pnt3Colinear, TakesOneToleranceForASquaredLengthAndASquaredSine) {
    const Vector a = {0, 4, 0};
    const auto colinear = [&](const Vector& c, double tolerance, const Vector& b = {1, 0, 0}) {
        return called(PNT3_is_colinear, a, moved(b, 1, a), moved(c, 1, a), tolerance);
    };
    EXPECT_EQ(colinear({7, 8, 0}, 0.6401), 1) << "at a squared sine of 0.64";
    EXPECT_EQ(colinear({7, 8, 0}, 0.6399), 0);
    EXPECT_EQ(colinear({-5, 0, 0}, 1.0e-12), 1) << "folded back";
    EXPECT_EQ(colinear({1, 0.5, 0}, 0.25), 0) << "the squared distance must be less";
    EXPECT_EQ(colinear({1, 0.5, 0}, std::nextafter(0.25, 1)), 1);
    EXPECT_EQ(colinear({0.5, 0.5, 0}, 0.5), 0) << "that from a, too";
    EXPECT_EQ(colinear({0, 0.5, 0}, 0.3, {0.75, 0, 0}), 1);
    EXPECT_EQ(colinear({1, 5, 0}, 1), 0) << "and so must the squared sine";
}

TEST(Pnt3ColinearCondition, RunsAlongTheLine) {
    const std::tuple<Vector, double, int> rows[] = {
        {{-1, 0, 0}, 1.0e-6, 2},     {{3, 0, 0}, 1.0e-6, 6},           {{0, 1, 0}, 1.0e-6, 1},
        {{1.0e-6, 0, 0}, 1.0e-6, 3}, {{1.1e-6, 0, 0}, 1.0e-6, 4},      {{1.5, 0, 0}, 0.5, 5},
        {{1, 0, 0}, 1, 3},           {{1.9e-3, 0.5e-3, 0}, 1.0e-5, 4},
    };
    const Vector a = {0, 0, 8};
    const auto condition = [&](Vector b, Vector c, double tolerance) {
        b[2] = c[2] = 8;
        return called(PNT3_colinear_condition, a, b, c, tolerance);
    };
    for (const auto& [c, tolerance, expected] : rows)
        EXPECT_EQ(condition({2, 0, 0}, c, tolerance), expected) << c[0] << " within " << tolerance;
    EXPECT_EQ(condition(a, {2, 0, 0}, 1.0e-6), 6) << "a = b";
    EXPECT_EQ(condition({5, 0, 0}, {4, 3, 0}, 1), 6) << "as far from a as b is, and so not between";
    EXPECT_EQ(condition({5, 0, 0}, {1, 3, 0}, 1), 2);
}

TEST(Pnt3AskClosestPoint, DecidesTiesByTheAngleOffTheAxis) {
    const KeepBlock keep;
    acom_.tolerances[ZTMATH_LENGTH_TOLERANCE] = 0.125;
    const Vector p = {0, 0, 8}, x = {2, 0, 0};
    const auto closest = [&](std::vector<Vector> points) {
        for (Vector& point : points)
            point = moved(point, 1, p);
        Vector out = {7, 7, 15};
        const auto* first = points.empty() ? nullptr : points[0].data();
        PNT3_ask_closest_point(p.data(), x.data(), first, static_cast<int>(points.size()),
                               out.data());
        return moved(out, -1, p);
    };
    const Vector ahead = {-3, 0, 0};  // from here the way to p runs along the axis
    const Vector beside = {0, 3, 0}, behind = {3, 0, 0};
    EXPECT_EQ(closest({}), (Vector{7, 7, 7})) << "untouched";
    EXPECT_EQ(closest({behind}), behind);
    EXPECT_EQ(closest({behind, ahead, beside}), ahead);
    EXPECT_EQ(closest({beside, {0, -3, 0}, {0, 0, 3}}), beside) << "equal angles: the first";
    EXPECT_EQ(closest({behind, {-3.125, 0, 0}}), (Vector{-3.125, 0, 0})) << "a tie may be farther";
    EXPECT_EQ(closest({behind, {-3.13, 0, 0}}), behind);
    EXPECT_EQ(closest({ahead, {2.875, 0, 0}}), ahead);
    EXPECT_EQ(closest({ahead, {2.87, 0, 0}}), (Vector{2.87, 0, 0}));
    EXPECT_EQ(closest({beside, {-2.4e-10, 3, 0}})[0], 0) << "angles this close are equal";
    EXPECT_EQ(closest({beside, {-3.6e-10, 3, 0}})[0], -3.6e-10);
    // Kept oddity: each tie is with the best so far, which may recede from the closest.
    EXPECT_EQ(closest({behind, {0, 3.125, 0}, {-3.25, 0, 0}}), (Vector{-3.25, 0, 0}));
    EXPECT_EQ(closest({{NAN, 0, 0}, beside})[1], 0) << "nothing is closer than what is no point";
}

// ---- Planes

using Plane = std::array<double, 6>;

constexpr Plane z_is_1 = {5, 6, 1, 0, 0, 2};

TEST(Pln3, MeasuresLengthsWhateverTheNormal) {
    for (const double z : {0.5, 1.5})
        for (const double tolerance : {0.5, std::nextafter(0.5, 0)})
            EXPECT_EQ(called(PLN3_is_point_on_plane, z_is_1, Vector{-3, 4, z}, tolerance),
                      tolerance == 0.5);
    EXPECT_EQ(called(PLN3_is_point_on_plane, Plane{}, Vector{}, HUGE_VAL), 0) << "no plane";
}

TEST(Pln3, CoincidenceIsOfPointsAndEqualityOfNormalVectors) {
    const std::tuple<Plane, int, int> rows[] = {
        {{0, 0, 1, 0, 0, -2}, 1, 0},     // turned over
        {{0, 0, 1, 0, 0, 3}, 1, 0},      // scaled
        {{0, 0, 1, 0, 0, 2.25}, 1, 1},   // scaled within the tolerance
        {{0, 0, 1.01, 0, 0, 2}, 1, 1},   // shifted within the tolerance
        {{0, 0, 1.02, 0, 0, 2}, 0, 0},   // beyond
        {{0, 0, 1, 0, 0.5, 2}, 0, 0},    // turned beyond the tolerances
        {{0, 0, 1, 0, 0.099, 2}, 1, 1},  // within
    };
    for (const auto& [other, coincident, equal] : rows) {
        EXPECT_EQ(called(PLN3_is_coincident, z_is_1, other, 0.0125, 0.05), coincident);
        EXPECT_EQ(called(PLN3_is_equal, z_is_1, other, 0.0125, 0.25), equal);
    }
}

TEST(Pln3, SegmentToleranceBoundsTheProductOfTheDistances) {
    const std::tuple<double, double, double, int> rows[] = {
        {0, 2, 0, 1},  {1, 9, 0, 1},  {3, 9, 16, 1}, {3, 9, 15.9, 0},
        {0, 2, -1, 1}, {1, 9, -1, 0}, {NAN, 2, 1, 0}};
    for (const auto& [z1, z2, tolerance, expected] : rows)
        EXPECT_EQ(called(PLN3_is_segment_intersecting, z_is_1, Vector{1, 2, z1}, Vector{-5, 3, z2},
                         tolerance),
                  expected)
            << z1 << " " << z2 << " " << tolerance;
}

// ---- Boxes

using Box = std::array<double, 6>;
using Bits = std::array<std::uint64_t, 6>;

TEST(Box3ExpandWithBox, TakesInBothCorners) {
    const Box rows[][2] = {
        {{-1, 0.5, -0.5, 3, -0.5, -0.5}, {-1, 1, -0.5, 3, -1, 0}},
        {{5, 6, -6, -5, -1, 2}, {0, 6, -6, 1, -1, 2}},
        {{3, -2, 0, 1, -1, 0}, {-2, 3, 0, 1, -1, 0}},  // inverted: its corners are taken in
        {{NAN, 2, 0, NAN, -1, 0}, {0, 2, 0, 1, -1, 0}},
        {{-0.0, 1, -0.0, 1, -1, -0.0}, {0, 1, 0, 1, -1, 0}},  // equal bounds are left
    };
    for (const auto& [add, expected] : rows) {
        Box box = {0, 1, 0, 1, -1, 0};
        BOX3_expand_with_box(add.data(), box.data());
        EXPECT_EQ(std::bit_cast<Bits>(box), std::bit_cast<Bits>(expected))
            << testing::PrintToString(box);
    }
}

// ---- Frames

TEST(CsysMapCsys, ExpressesAFrameInAnother) {
    Random random;
    for (int round = 0; round < rounds(1000); ++round) {
        const Frame relative(random);
        Frame base(random);
        const Frame frame(base.at(relative.origin), product(relative.axes, base.axes));
        ASSERT_EQ(CSYS_map_csys(frame.data(), base.data(), base.data()), 1) << "in place";
        ASSERT_LT(distance(base.origin, relative.origin), 3.0e-15);
        ASSERT_LT(distance(base.axes, relative.axes), 3.0e-15);
    }
}

TEST(CsysMapCsys, LeavesTheMatrixOfWhatIsNoFrame) {
    const Frame absolute({0, 0, 0}, identity);
    const Matrix untouched = {7, 7, 7, 7, 7, 7, 7, 7, 7};
    const Matrix sheared = {1, 0, 0, 1, 1, 0, 0, 0, 1}, left_handed = {1, 0, 0, 0, 1, 0, 0, 0, -1};
    for (const Matrix& axes : {sheared, left_handed}) {
        const Frame frame({1, 2, 3}, axes);
        Frame out({7, 7, 7}, untouched);
        EXPECT_EQ(CSYS_map_csys(frame.data(), absolute.data(), out.data()), axes == left_handed);
        EXPECT_EQ(out.origin, frame.origin);
        EXPECT_EQ(out.axes, axes == left_handed ? identity : untouched);
    }
}

}  // namespace
