// Points: collinearity, order along a line, the closest of many.
#include "ztmath/pnt3.h"

#include "support/support.h"
#include "ztmath/acom.h"

namespace {

using namespace ztmath_test;

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

}  // namespace
