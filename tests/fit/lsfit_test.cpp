// Least-squares lines and planes.
#include "fit/points.h"
#include "ztmath/mtx3.h"

namespace {

using namespace ztmath_test;

using Pair = std::array<double, 2>;

struct Line2d {
    explicit Line2d(const Points& points) {
        LSFIT_line_to_points_2d(flat(points, 2).data(), count_of(points), point.data(),
                                normal.data(), &coincident, stats.data());
    }

    Pair point = {7, 7}, normal = {7, 7};
    int coincident = 7;
    Vector stats = {7, 7, 7};
};

struct Plane {
    explicit Plane(const Points& points) {
        status = LSFIT_plane_to_points(flat(points, 3).data(), count_of(points), point.data(),
                                       normal.data(), &collinear, stats.data());
    }

    int status, collinear = 7;
    Vector point = {7, 7, 7}, normal = point, stats = point;
};

struct Line3d {
    explicit Line3d(const Points& points, const Vector& given = {}, int given_collinear = 0)
        : normal(given), collinear(given_collinear) {
        LSFIT_line_to_points_3d(flat(points, 3).data(), count_of(points), normal.data(), &collinear,
                                &coincident, point.data(), direction.data(), plane_stats.data(),
                                frame.data());
    }

    Vector normal;
    int collinear, coincident = 7;
    Vector point = {7, 7, 7}, direction = point, plane_stats = point;
    Frame frame{{7, 7, 7}, {7, 7, 7, 7, 7, 7, 7, 7, 7}};
};

TEST(Line2dFit, MeasuresFromTheCentroidsXInBothCoordinates) {
    const Line2d fit({{0, 3}, {1, 3}, {2, 3}});
    EXPECT_EQ(fit.point, (Pair{1, 1}));
    EXPECT_EQ(fit.normal[0], 0);
    EXPECT_EQ(std::fabs(fit.normal[1]), 1);
    EXPECT_EQ(fit.coincident, 0);
    EXPECT_EQ(fit.stats, (Vector{2, 0, 2}));
    EXPECT_EQ(Line2d({{0, 5}, {-9, 1}, {9, 1}, {0, 1}, {0, 2}}).stats[0], 5);
}

TEST(Line2dFit, RunsBetweenTwoRowsOfPoints) {
    const Vector along = {std::cos(0.7), std::sin(0.7), 0}, aside = {-along[1], along[0], 0};
    Points points;
    for (int t = -150; t <= 150; ++t)
        for (const double d : {-0.1, 0.1})
            points.push_back(moved(scaled(along, t), d, aside));
    const Line2d fit(points);
    EXPECT_NEAR(std::fabs(dot({fit.normal[0], fit.normal[1], 0}, aside)), 1.0, 1e-15);
    EXPECT_LE(distance(fit.stats, {0.1, 0.1, 0.1}), 1e-11);
}

TEST(Line2dFit, TakesEigenvaluesUpTo1e19AndForZeroUpTo1e10th) {
    for (const double part : {0.99, 1.0, 1.01}) {
        const double large = std::sqrt(part * 1e19 / 2), small = std::sqrt(part * 1e-10 / 2);
        const Line2d far({{-1e10, 1e9}, {1e10, 1e9}, {0, 1e9 - large}, {0, 1e9 + large}});
        EXPECT_NEAR(far.point[1], part < 1 ? 0 : 1e9, 1);
        EXPECT_EQ(Line2d({{-5, 0}, {5, 0}, {0, small}, {0, -small}}).stats[1] == 0, part <= 1);
    }
}

TEST(Line2dFit, WithoutAUsableEigenvalueTakesTheFarthestPoint) {
    // The scatter is beyond 1e19 in every direction: the sentinel stays.
    const Line2d far({{-3e10, -2e10}, {5e10, 4e10}, {-2e10, 5e10}, {4e10, -3e10}});
    EXPECT_LE(distance(far.normal, {0.6, -0.8}), 1e-15);
    EXPECT_EQ(far.point, (Pair{1e10, 1e10}));
    EXPECT_EQ(far.coincident, 0);
    EXPECT_LE(distance(far.stats, {5e10, 5e10 / std::sqrt(2.0), 2.5e10}), 1e-5);

    ReportRecorder quiet;
    const Line2d nan({{0, 0}, {NAN, NAN}, {2, 2}});
    EXPECT_EQ(std::tuple(nan.coincident, nan.normal, nan.point), std::tuple(1, Pair{}, Pair{}));
}

TEST(PlaneFit, RecoversPlaneAndNoiseAlsoFarFromTheOrigin) {
    Random random;
    for (const int count : {3, 4, 99, 512, 513, 5000})
        for (const double far : {0.0, 1e3, 1e7}) {
            const Frame frame({far, -2 * far, 0.5 * far}, random_rotation(random));
            Points points(count);
            for (Vector& p : points) {
                const double off_plane = count == 3 ? 0.0 : 0.01 * random.normal();
                p = frame.at({random.uniform(-40, 40), random.uniform(-25, 25), off_plane});
            }
            const Plane fit(points);
            EXPECT_LE(length(cross(fit.normal, row(frame.axes, 2))), 0.1 / count + 1e-4);
            // Against distances from the plane that came out.
            double squares = 0, sum = 0, largest = 0;
            for (const Vector& p : points) {
                const double d = std::fabs(dot(moved(p, -1, fit.point), fit.normal));
                squares += d * d;
                sum += d;
                largest = std::max(largest, d);
            }
            const double tolerance = 2e-10 + 4e-16 * far;
            EXPECT_NEAR(fit.stats[0], largest, tolerance);
            EXPECT_NEAR(fit.stats[2], sum / count, tolerance);
            // An eigenvalue up to 1e-10 counts as 0.
            EXPECT_NEAR(fit.stats[1], std::sqrt(squares / count),
                        tolerance + 1e-5 / std::sqrt(count));
        }
}

TEST(PlaneFit, WithoutAUsableEigenvalueFallsBackOnFarthestPoints) {
    const Plane plane({{1e11, 3e11, 0},
                       {-1e11, 3e11, 0},
                       {0, 3.1e11, 0},
                       {0, 3e11, 5e10},
                       {0, 2.9e11, 0},
                       {0, 3e11, -5e10},
                       {0, 3e11, 0}});
    EXPECT_EQ(std::fabs(plane.normal[1]), 1);
    EXPECT_EQ(plane.collinear, 0);
    EXPECT_EQ(plane.stats[0], 1e10);
    EXPECT_DOUBLE_EQ(plane.stats[1], 1e10 * std::sqrt(2.0 / 7));

    ReportRecorder quiet;
    const Plane nan({{0, 0, 0}, {5, 5, 5}, {NAN, NAN, NAN}});
    EXPECT_EQ(nan.normal, (Vector{0, 0, 1}));
    EXPECT_EQ(std::pair(nan.collinear, nan.status), std::pair(0, 0));
}

TEST(Line3dFit, FitsThePlaneFirstAndTheLineInIt) {
    const Vector direction = {2.0 / 3, -1.0 / 3, 2.0 / 3};
    const Vector aside = {1.0 / 3, -2.0 / 3, -2.0 / 3};
    const Vector origin = {5, 5, 5};
    Points points;
    for (int t = -30; t <= 30; ++t)
        for (const double d : {-0.02, 0.02})
            points.push_back(moved(moved(origin, t, direction), d, aside));
    const Line3d fit(points);
    EXPECT_LE(length(cross(fit.direction, direction)), 1e-12);
    EXPECT_NEAR(dot(moved(fit.point, -1, origin), aside), 0, 1e-12);
    EXPECT_EQ(std::pair(fit.coincident, fit.collinear), std::pair(0, 0));

    const Plane plane(points);
    Matrix axes;
    MTX3_init_z(plane.normal.data(), axes.data());
    EXPECT_EQ(fit.normal, plane.normal);
    EXPECT_EQ(fit.plane_stats, plane.stats);
    EXPECT_EQ(fit.frame.origin, plane.point);
    EXPECT_EQ(fit.frame.axes, axes);
}

TEST(Line3dFit, TakesTheCallersPlaneUnlessToldOtherwise) {
    const Points points = {{0, 0, 1}, {1, 0.1, 0}, {2, 0, 0}, {3, 0.1, 1}};
    const Line3d given(points, {0, 0, 2});
    EXPECT_EQ(given.normal, (Vector{0, 0, 2}));
    EXPECT_EQ(row(given.frame.axes, 2), (Vector{0, 0, 1}));
    EXPECT_EQ(given.direction[2], 0);
    EXPECT_EQ(given.plane_stats[0], 0);
    EXPECT_EQ(given.point[2], 0.5);

    const Line3d refitted(points, {0, 0, 2}, -1);
    const Line3d fitted(points);
    EXPECT_EQ(refitted.normal, fitted.normal);
    EXPECT_EQ(Line3d(points, {0, 0, 0.99e-10}).normal, fitted.normal);
    const Vector least = {0, 8.68e-19, std::nextafter(1e-10, 0)};  // whose square is 1e-20
    EXPECT_EQ(Line3d(points, least).normal, least);
    EXPECT_EQ(refitted.collinear, 0);
}

TEST(Line3dFit, CollinearPointsOfTheCallersPlaneRunThroughTheFarthest) {
    const Line3d line({{0, 0, 3}, {6, 6, 3}, {1, 1, 3}, {2, 2, 3}}, {0, 0, 1}, 1);
    EXPECT_EQ(std::pair(line.coincident, line.collinear), std::pair(0, 1));
    EXPECT_LE(distance(line.direction, {std::sqrt(0.5), std::sqrt(0.5), 0}), 1e-15);
    EXPECT_LE(distance(line.point, {2.25, 2.25, 3}), 1e-15);

    const Line3d apart({{-0.001, 0, 3}, {0.001, 0, 3}}, {0, 0, 1}, 5);
    EXPECT_EQ(std::pair(apart.coincident, apart.collinear), std::pair(0, 5));
    const Line3d coincident({{0, 0, 3}, {0.001, 0, 3}}, {0, 0, 1}, 5);
    EXPECT_EQ(std::pair(coincident.coincident, coincident.collinear), std::pair(1, 1));
    EXPECT_EQ(std::pair(coincident.direction, coincident.point), std::pair(Vector{}, Vector{}));
    EXPECT_EQ(coincident.frame.origin[2], 3);
}

TEST(Fits, WithoutPointsReportOnceAndZeroTheOutputs) {
    ReportRecorder recorder;
    const Line2d line({});
    const Plane plane({});
    const Line3d space({}, {0, 0, 1}, 1);
    EXPECT_EQ(recorder.take(), Reports(3, no_points));
    EXPECT_EQ(std::pair(line.point, line.normal), std::pair(Pair{}, Pair{}));
    for (const Vector& zeros :
         {line.stats, plane.point, plane.normal, plane.stats, space.normal, space.point,
          space.direction, space.plane_stats, space.frame.origin})
        EXPECT_EQ(zeros, Vector{});
    EXPECT_EQ(space.frame.axes, Matrix{});
    EXPECT_EQ((std::array{line.coincident, plane.collinear, space.coincident, space.collinear}),
              (std::array<int, 4>{}));
    // One point is a point, with the first eigenvector for a normal.
    EXPECT_EQ(Line2d({{4, 5}}).point, (Pair{4, 4}));
    const Plane at_point({{4, 5, 6}});
    EXPECT_EQ(at_point.point, (Vector{4, 5, 6}));
    EXPECT_EQ(at_point.normal, (Vector{1, 0, 0}));
    EXPECT_EQ(at_point.collinear, 0);
    EXPECT_EQ(Line3d({{4, 5, 6}}).frame.origin, (Vector{4, 5, 6}));
    EXPECT_EQ(recorder.take(), Reports{});
}

TEST(Fits, WhatDoesNotConvergeIsReportedOnce) {
    ReportRecorder recorder([](const Report& report) { throw report; });
    const Points points = {{0, 0, 0}, {1, 0, 0}, {HUGE_VAL, 1, 0}, {1, 1, 1}};
    EXPECT_THROW(Plane{points}, Report);
    EXPECT_THROW(Line3d(points, {0, 0, 1}), Report);
    EXPECT_EQ(recorder.take(),
              Reports(2, internal("nr_eigensystems",
                                  "Too many iterations in routine NR_ask_eigenvalues_jacobi.")));
}

}  // namespace
