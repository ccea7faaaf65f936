// Least-squares lines and planes.
#include "ztmath/lsfit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "support/random.h"
#include "support/reports.h"
#include "support/session.h"
#include "ztmath/mtx3.h"

namespace {

using namespace ztmath_test;

constexpr double infinity = HUGE_VAL;
const Report no_points = internal("lsfit", "There are no input points.");

struct Line2d {
    explicit Line2d(const std::vector<double>& points) {
        LSFIT_line_to_points_2d(points.data(), static_cast<int>(points.size() / 2), point, normal,
                                &coincident, stats);
    }

    double point[2] = {7, 7};
    double normal[2] = {7, 7};
    int coincident = 7;
    double stats[3] = {7, 7, 7};
};

struct Plane {
    explicit Plane(const std::vector<double>& points) {
        status = LSFIT_plane_to_points(points.data(), static_cast<int>(points.size() / 3), point,
                                       normal, &collinear, stats);
    }

    int status;
    double point[3] = {7, 7, 7};
    double normal[3] = {7, 7, 7};
    int collinear = 7;
    double stats[3] = {7, 7, 7};
};

struct Line3d {
    explicit Line3d(const std::vector<double>& points, std::array<double, 3> given = {},
                    int given_collinear = 0)
        : normal(given), collinear(given_collinear) {
        LSFIT_line_to_points_3d(points.data(), static_cast<int>(points.size() / 3), normal.data(),
                                &collinear, &coincident, point, direction, plane_stats, frame);
    }

    std::array<double, 3> normal;
    int collinear;
    int coincident = 7;
    double point[3] = {7, 7, 7};
    double direction[3] = {7, 7, 7};
    double plane_stats[3] = {7, 7, 7};
    double frame[12] = {7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7};
};

/// Points near the plane through `origin` with the normal `n`.
std::vector<double> points_near_plane(Random& random, int count, const double origin[3],
                                      const double n[3], double noise) {
    double frame[9];
    MTX3_init_z(n, frame);
    std::vector<double> points;
    for (int i = 0; i < count; ++i) {
        const double u = random.uniform(-40, 40);
        const double v = random.uniform(-25, 25);
        const double w = noise * random.normal();
        for (int k = 0; k < 3; ++k)
            points.push_back(origin[k] + u * frame[k] + v * frame[3 + k] + w * frame[6 + k]);
    }
    return points;
}

TEST(Line2dFit, MeasuresFromTheCentroidsXInBothCoordinates) {
    const Line2d fit({0, 3, 1, 3, 2, 3});
    EXPECT_EQ(fit.point[0], 1);
    EXPECT_EQ(fit.point[1], 1);
    EXPECT_EQ(fit.normal[0], 0);
    EXPECT_EQ(std::fabs(fit.normal[1]), 1);
    EXPECT_EQ(fit.coincident, 0);
    EXPECT_EQ(fit.stats[0], 2);
    EXPECT_EQ(fit.stats[1], 0);
    EXPECT_EQ(fit.stats[2], 2);
}

TEST(Line2dFit, MinimisesThePerpendicularDistances) {
    Random random;
    const double angle = 0.7;
    std::vector<double> points;
    for (int i = 0; i < 301; ++i) {
        const double t = random.uniform(-50, 50);
        const double d = 0.1 * random.normal();
        points.push_back(t * std::cos(angle) - d * std::sin(angle));
        points.push_back(t * std::sin(angle) + d * std::cos(angle));
    }
    const Line2d fit(points);
    const auto rms_about_centroid = [&](double a, double b) {
        long double cx = 0, cy = 0, sum = 0;
        for (int i = 0; i < 301; ++i) {
            cx += points[2 * i] / 301.0L;
            cy += points[2 * i + 1] / 301.0L;
        }
        for (int i = 0; i < 301; ++i) {
            const long double d = a * (points[2 * i] - cx) + b * (points[2 * i + 1] - cy);
            sum += d * d;
        }
        return std::sqrt(static_cast<double>(sum / 301));
    };
    const double best = rms_about_centroid(fit.normal[0], fit.normal[1]);
    EXPECT_NEAR(fit.stats[1], best, 1e-12);
    for (const double turn : {-1e-3, 1e-3})
        EXPECT_GT(
            rms_about_centroid(std::cos(turn) * fit.normal[0] - std::sin(turn) * fit.normal[1],
                               std::sin(turn) * fit.normal[0] + std::cos(turn) * fit.normal[1]),
            best);
}

TEST(Line2dFit, WithoutAUsableEigenvalueTakesTheFarthestPoint) {
    // The scatter is beyond 1e19 in every direction: the sentinel stays.
    const Line2d far({-4e10, -3e10, 4e10, 3e10, -3e10, 4e10, 3e10, -4e10});
    EXPECT_DOUBLE_EQ(far.normal[0], 0.6);
    EXPECT_DOUBLE_EQ(far.normal[1], -0.8);
    EXPECT_EQ(far.point[1], 0);
    EXPECT_EQ(far.coincident, 0);
    EXPECT_DOUBLE_EQ(far.stats[0], 5e10);
    EXPECT_DOUBLE_EQ(far.stats[1], 5e10 / std::sqrt(2.0));
    EXPECT_DOUBLE_EQ(far.stats[2], 2.5e10);

    ReportRecorder quiet;
    const Line2d nan({0, 0, std::nan(""), std::nan(""), 2, 2});
    EXPECT_EQ(nan.coincident, 1);
    EXPECT_EQ(nan.normal[0], 0);
    EXPECT_EQ(nan.point[0], 0);
}

TEST(PlaneFit, CoplanarPointsHaveNoDistance) {
    const Plane fit({1, 2, 5, 4, 2, 5, 4, 7, 5, 1, 7, 5});
    EXPECT_EQ(fit.status, 0);
    EXPECT_EQ(fit.point[0], 2.5);
    EXPECT_EQ(fit.point[1], 4.5);
    EXPECT_EQ(fit.point[2], 5);
    EXPECT_EQ(std::fabs(fit.normal[2]), 1);
    EXPECT_EQ(fit.collinear, 0);
    for (const double statistic : fit.stats)
        EXPECT_EQ(statistic, 0);
}

TEST(PlaneFit, RecoversPlaneAndNoiseAlsoFarFromTheOrigin) {
    Random random;
    const NoBlocksLeft no_blocks_left;
    for (const int count : {3, 4, 99, 512, 513, 5000})
        for (const double distance : {0.0, 1e3, 1e7}) {
            const auto n = random.vector();
            const double length = std::hypot(n[0], n[1], n[2]);
            const double origin[3] = {distance, -2 * distance, 0.5 * distance};
            const double noise = count == 3 ? 0.0 : 0.01;
            const std::vector<double> points =
                points_near_plane(random, count, origin, n.data(), noise);
            const Plane fit(points);

            double cosine = 0.0;
            for (int k = 0; k < 3; ++k)
                cosine += fit.normal[k] * n[k] / length;
            EXPECT_NEAR(std::fabs(cosine), 1.0, 1e-3);
            // Against distances measured in extended precision from the plane that came out.
            long double squares = 0, sum = 0, largest = 0;
            for (int i = 0; i < count; ++i) {
                long double d = 0;
                for (int k = 0; k < 3; ++k)
                    d += (static_cast<long double>(points[3 * i + k]) - fit.point[k]) *
                         fit.normal[k];
                squares += d * d;
                sum += std::fabs(d);
                largest = std::max(largest, std::fabs(d));
            }
            const double tolerance = 2e-10 + 4e-16 * distance;
            EXPECT_NEAR(fit.stats[0], static_cast<double>(largest), tolerance);
            EXPECT_NEAR(fit.stats[2], static_cast<double>(sum / count), tolerance);
            // An eigenvalue up to 1e-10 counts as 0.
            EXPECT_NEAR(fit.stats[1], static_cast<double>(std::sqrt(squares / count)),
                        tolerance + 1e-5 / std::sqrt(count));
        }
}

TEST(PlaneFit, CentroidIsThePlainMeanOverManyBlocks) {
    std::vector<double> points;
    for (int i = 0; i < 100'000; ++i)
        points.insert(points.end(), {1.0 * i, 2.0 * i, 1e6});
    const Plane fit(points);
    EXPECT_EQ(fit.point[0], 49999.5);
    EXPECT_EQ(fit.point[1], 99999.0);
    EXPECT_EQ(fit.point[2], 1e6);
    EXPECT_EQ(std::fabs(fit.normal[0] * 1 + fit.normal[1] * 2) < 1e-12, true);
}

TEST(PlaneFit, IdenticalPointsTakeTheNormalPathWithTheFirstEigenvector) {
    const Plane fit({1, 2, 3, 1, 2, 3, 1, 2, 3});
    EXPECT_EQ(fit.normal[0], 1);
    EXPECT_EQ(fit.collinear, 0);
}

TEST(PlaneFit, WithoutAUsableEigenvalueFallsBackOnFarthestPoints) {
    const Plane plane({1e11, 0, 0, -1e11, 0, 0, 0, 0, 5e10, 0, 0, -5e10, 0, 1e10, 0, 0, -1e10, 0});
    EXPECT_EQ(std::fabs(plane.normal[1]), 1);
    EXPECT_EQ(plane.collinear, 0);
    EXPECT_EQ(plane.stats[0], 1e10);

    ReportRecorder quiet;
    const Plane nan({0, 0, 0, 5, 5, 5, std::nan(""), std::nan(""), std::nan("")});
    EXPECT_EQ(nan.normal[2], 1);
    EXPECT_EQ(nan.collinear, 0);
    EXPECT_EQ(nan.status, 0);
}

TEST(Line3dFit, FitsThePlaneFirstAndTheLineInIt) {
    Random random;
    const double direction[3] = {2.0 / 3, -1.0 / 3, 2.0 / 3};
    const double aside[3] = {1.0 / 3, -2.0 / 3, -2.0 / 3};
    std::vector<double> points;
    for (int i = 0; i < 200; ++i) {
        const double t = random.uniform(-30, 30);
        const double d = 0.02 * random.normal();
        for (int k = 0; k < 3; ++k)
            points.push_back(5 + t * direction[k] + d * aside[k]);
    }
    const Line3d fit(points);
    double cosine = 0.0;
    double off_line = 0.0;
    for (int k = 0; k < 3; ++k) {
        cosine += fit.direction[k] * direction[k];
        off_line += (fit.point[k] - 5) * aside[k];
    }
    EXPECT_NEAR(std::fabs(cosine), 1.0, 1e-6);
    EXPECT_NEAR(off_line, 0.0, 0.01);
    EXPECT_EQ(fit.coincident, 0);
    EXPECT_EQ(fit.collinear, 0);

    const Plane plane(points);
    double expected_frame[9];
    MTX3_init_z(plane.normal, expected_frame);
    for (int k = 0; k < 3; ++k) {
        EXPECT_EQ(fit.normal[k], plane.normal[k]);
        EXPECT_EQ(fit.frame[k], plane.point[k]);
        EXPECT_EQ(fit.plane_stats[k], plane.stats[k]);
    }
    for (int k = 0; k < 9; ++k)
        EXPECT_EQ(fit.frame[3 + k], expected_frame[k]);
}

TEST(Line3dFit, TakesTheCallersPlaneUnlessToldOtherwise) {
    const std::vector<double> points = {0, 0, 1, 1, 0.1, 0, 2, 0, 0, 3, 0.1, 1};
    const Line3d given(points, {0, 0, 2});
    EXPECT_EQ(given.normal, (std::array<double, 3>{0, 0, 2}));
    EXPECT_EQ(given.frame[11], 1);
    EXPECT_EQ(given.direction[2], 0);
    EXPECT_EQ(given.plane_stats[0], 0);
    EXPECT_EQ(given.point[2], 0.5);

    const Line3d refitted(points, {0, 0, 2}, -1);
    const Line3d short_normal(points, {0, 0, 0.99e-10});
    const Line3d fitted(points);
    EXPECT_EQ(refitted.normal, fitted.normal);
    EXPECT_EQ(short_normal.normal, fitted.normal);
    EXPECT_EQ(refitted.collinear, 0);
}

TEST(Line3dFit, CollinearPointsOfTheCallersPlaneRunThroughTheFarthest) {
    const Line3d line({0, 0, 3, 1, 1, 3, 2, 2, 3, 6, 6, 3}, {0, 0, 1}, 1);
    EXPECT_EQ(line.collinear, 1);
    EXPECT_EQ(line.coincident, 0);
    EXPECT_DOUBLE_EQ(line.direction[0], std::sqrt(0.5));
    EXPECT_DOUBLE_EQ(line.direction[1], std::sqrt(0.5));
    EXPECT_DOUBLE_EQ(line.point[0], 2.25);
    EXPECT_EQ(line.point[2], 3);

    const Line3d apart({0, 0, 3, 0.003, 0, 3}, {0, 0, 1}, 5);
    EXPECT_EQ(apart.coincident, 0);
    EXPECT_EQ(apart.collinear, 5);
    const Line3d coincident({0, 0, 3, 0.001, 0, 3}, {0, 0, 1}, 5);
    EXPECT_EQ(coincident.coincident, 1);
    EXPECT_EQ(coincident.collinear, 1);
    EXPECT_EQ(coincident.direction[0], 0);
    EXPECT_EQ(coincident.point[2], 0);
    EXPECT_EQ(coincident.frame[2], 3);
}

TEST(Fits, WithoutPointsReportOnceAndZeroTheOutputs) {
    for (const int level : {0, 1}) {
        const CheckingLevel checking(level);
        ReportRecorder recorder;
        const Line2d line({});
        const Plane plane({});
        const Line3d space({}, {0, 0, 1}, 1);
        EXPECT_EQ(recorder.take(), (Reports{no_points, no_points, no_points}));
        EXPECT_EQ(line.normal[0] + line.point[0] + line.stats[0] + line.coincident, 0);
        EXPECT_EQ(plane.normal[2] + plane.point[0] + plane.stats[1] + plane.collinear, 0);
        EXPECT_EQ(space.normal[2] + space.direction[0] + space.plane_stats[2] + space.coincident,
                  0);
        EXPECT_EQ(space.collinear, 0);
        for (const double element : space.frame)
            EXPECT_EQ(element, 0);
    }
}

TEST(Fits, OutputsMayLieOverThePoints) {
    Random random;
    const double origin[3] = {1, 2, 3};
    const double n[3] = {1, 1, 2};
    std::vector<double> points = points_near_plane(random, 9, origin, n, 0.1);
    const Plane separate(points);
    int collinear;
    LSFIT_plane_to_points(points.data(), 9, points.data(), points.data() + 4, &collinear,
                          points.data() + 9);
    for (int k = 0; k < 3; ++k) {
        EXPECT_EQ(points[k], separate.point[k]);
        EXPECT_EQ(points[4 + k], separate.normal[k]);
        EXPECT_EQ(points[9 + k], separate.stats[k]);
    }
}

TEST(Fits, WhatDoesNotConvergeIsReportedOnceAndLeavesNoBlock) {
    const NoBlocksLeft no_blocks_left;
    ReportRecorder recorder([](const Report& report) { throw report; });
    const std::vector<double> points = {0, 0, 0, 1, 0, 0, infinity, 1, 0, 1, 1, 1};
    EXPECT_THROW(Plane{points}, Report);
    EXPECT_THROW(Line3d(points, {0, 0, 1}), Report);
    for (const Report& report : recorder.take())
        EXPECT_EQ(report, internal("nr_eigensystems",
                                   "Too many iterations in routine NR_ask_eigenvalues_jacobi."));
}

}  // namespace
