// Least-squares circles and spheres.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "support/random.h"
#include "support/reports.h"
#include "support/session.h"
#include "support/vectors.h"
#include "ztmath/lsfit.h"
#include "ztmath/mtx3.h"

namespace {

using namespace ztmath_test;

constexpr double none = 1e19;

struct Result {
    std::array<double, 3> centre = {7, 7, 0};
    double radius = 7;
    int failed = 7;
    std::array<double, 3> stats = {7, 7, 7};
};

Result circle(const std::vector<double>& points) {
    Result r;
    LSFIT_circle_to_points_2d(points.data(), static_cast<int>(points.size() / 2), r.centre.data(),
                              &r.radius, &r.failed, r.stats.data());
    return r;
}

Result sphere(const std::vector<double>& points) {
    Result r;
    LSFIT_sphere_to_points_3d(points.data(), static_cast<int>(points.size() / 3), r.centre.data(),
                              &r.radius, &r.failed, r.stats.data());
    return r;
}

struct SpaceCircle : Result {
    SpaceCircle(const std::vector<double>& points, const Vector& given) : normal(given) {
        LSFIT_circle_to_points_3d(points.data(), static_cast<int>(points.size() / 3),
                                  plane_point.data(), normal.data(), centre.data(), &radius,
                                  &failed, stats.data(), frame);
    }

    Vector plane_point = {7, 7, 7}, normal;
    double frame[12] = {7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7};
};

template <std::size_t dimension>
Result fit(const std::vector<double>& points) {
    return dimension == 2 ? circle(points) : sphere(points);
}

/// Points near an arc, or a cap as wide: the angle in degrees from end to end.
template <std::size_t dimension>
std::vector<double> points_near(Random& random, int count, const Vector& centre, double radius,
                                double angle, double noise) {
    const Matrix turn = random_rotation(random);
    const double around = random.uniform(0, 2 * M_PI);
    std::vector<double> points;
    for (int i = 0; i < count; ++i) {
        const double a = M_PI / 360 * angle * random.uniform(-1, 1);
        const double b = random.uniform(0, 2 * M_PI);
        const double r = radius + noise * random.normal();
        const Vector on_cap = {std::cos(a), std::sin(a) * std::cos(b), std::sin(a) * std::sin(b)};
        for (std::size_t k = 0; k < dimension; ++k)
            points.push_back(centre[k] +
                             r * (dimension == 3
                                      ? dot(row(turn, k), on_cap)
                                      : std::sin(around + a + static_cast<double>(k) * M_PI / 2)));
    }
    return points;
}

/// The algebraic fit, in extended precision and by other means: the eigenvector of the eigenvalue
/// largest in magnitude by iteration with elimination.
template <std::size_t dimension>
class Oracle {
  public:
    explicit Oracle(const std::vector<double>& points) {
        const std::size_t n = points.size() / dimension;
        for (std::size_t i = 0; i < points.size(); ++i)
            mean_[i % dimension] += static_cast<long double>(points[i]) / static_cast<double>(n);
        for (std::size_t i = 0; i < n; ++i) {
            Row w{1};
            for (std::size_t k = 0; k < dimension; ++k) {
                w[k + 1] = points[dimension * i + k] - mean_[k];
                w[last] += w[k + 1] * w[k + 1];
            }
            for (std::size_t a = 0; a <= last; ++a)
                for (std::size_t b = 0; b <= last; ++b)
                    moments_[a][b] += w[a] * w[b];
        }
        Row x = constrained({1.1L, 0.7L, -0.3L, 0.4L, -0.9L});
        for (int i = 0; i < 300; ++i) {
            const Row y = solved(constrained(x));
            long double largest = 0;
            for (const long double v : y)
                largest = std::fmax(largest, std::fabs(v));
            for (std::size_t k = 0; k <= last; ++k)
                x[k] = y[k] / largest;
        }
        long double squares = 0, constraint = 0;
        for (std::size_t a = 0; a <= last; ++a) {
            constraint += x[a] * constrained(x)[a];
            for (std::size_t b = 0; b <= last; ++b)
                squares += x[a] * moments_[a][b] * x[b];
        }
        eta = squares / constraint;
        long double s = 0;
        for (std::size_t k = 0; k < dimension; ++k) {
            const long double offset = -x[k + 1] / (2 * x[last]);
            s += offset * offset;
            centre[k] = offset + mean_[k];
        }
        radius = std::sqrt(std::fabs(s - x[0] / x[last]));
    }

    long double centre[dimension], radius, eta;

  private:
    static constexpr std::size_t last = dimension + 1;
    using Row = std::array<long double, 5>;

    static Row constrained(const Row& x) {
        Row y = x;
        y[0] = -2 * x[last];
        y[last] = -2 * x[0];
        return y;
    }

    Row solved(Row b) const {
        std::array<Row, 5> a = moments_;
        for (std::size_t j = 0; j <= last; ++j) {
            std::size_t best = j;
            for (std::size_t i = j + 1; i <= last; ++i)
                if (std::fabs(a[i][j]) > std::fabs(a[best][j])) best = i;
            std::swap(a[j], a[best]);
            std::swap(b[j], b[best]);
            for (std::size_t i = j + 1; i <= last; ++i) {
                const long double f = a[i][j] / a[j][j];
                b[i] -= f * b[j];
                for (std::size_t k = j; k <= last; ++k)
                    a[i][k] -= f * a[j][k];
            }
        }
        for (std::size_t j = last + 1; j-- > 0;) {
            for (std::size_t k = j + 1; k <= last; ++k)
                b[j] -= a[j][k] * b[k];
            b[j] /= a[j][j];
        }
        return b;
    }

    std::array<Row, 5> moments_{};
    long double mean_[dimension] = {};
};

/// What the statistics hold, measured from the centre and radius that came out.
template <std::size_t dimension>
void expect_statistics(const Result& r, const std::vector<double>& points, double tolerance) {
    long double largest = 0, sum = 0;
    for (std::size_t i = 0; i < points.size(); i += dimension) {
        long double squared = 0;
        for (std::size_t k = 0; k < dimension; ++k)
            squared += (static_cast<long double>(points[i + k]) - r.centre[k]) *
                       (static_cast<long double>(points[i + k]) - r.centre[k]);
        const long double d = std::fabs(std::sqrt(squared) - r.radius);
        largest = std::fmax(largest, d);
        sum += d;
    }
    EXPECT_NEAR(r.stats[0], static_cast<double>(largest), tolerance);
    EXPECT_NEAR(r.stats[2],
                static_cast<double>(sum * dimension / static_cast<double>(points.size())),
                tolerance);
}

template <std::size_t dimension>
void expect_oracles_fit(double angle, int count, double distance) {
    Random random;
    for (int round = 0; round < rounds(10); ++round) {
        const Vector centre = {distance, -2 * distance, 0.5 * distance};
        const auto points = points_near<dimension>(random, count, centre, 10, angle, 1e-3);
        const Oracle<dimension> oracle(points);
        const Result r = fit<dimension>(points);
        ASSERT_EQ(r.failed, 0);
        const double tolerance = 1e-11 * static_cast<double>(oracle.radius) + 1e-15 * distance;
        for (std::size_t k = 0; k < dimension; ++k)
            EXPECT_NEAR(r.centre[k], static_cast<double>(oracle.centre[k]), tolerance);
        EXPECT_NEAR(r.radius, static_cast<double>(oracle.radius), tolerance);
        const double n = count;
        const auto multiplied = static_cast<double>(std::sqrt(n * oracle.eta));
        EXPECT_NEAR(r.stats[1], multiplied, 1e-7 * multiplied);
        expect_statistics<dimension>(r, points, 1e-13 + 1e-15 * distance);
    }
}

TEST(RoundFit, IsTheAlgebraicFitOfNoisyPoints) {
    for (const double angle : {360.0, 90.0, 10.0, 1.0}) {
        SCOPED_TRACE(angle);
        expect_oracles_fit<2>(angle, 100, 0);
        expect_oracles_fit<3>(angle, 100, 0);
    }
    expect_oracles_fit<2>(360, 1501, 1e7);
    expect_oracles_fit<3>(90, 1501, 1e7);
}

/// Rounding decides whether such points have a usable eigenvalue or fall back: both are exact.
template <std::size_t dimension>
void expect_exact(double angle, double radius, double distance, double tolerance) {
    Random random;
    for (int round = 0; round < rounds(20); ++round) {
        const Vector centre = {distance, distance, -distance};
        const auto points = points_near<dimension>(random, 50, centre, radius, angle, 0);
        const Result r = fit<dimension>(points);
        ASSERT_EQ(r.failed, 0) << angle << ' ' << radius;
        EXPECT_NEAR(r.radius, radius, tolerance * radius);
        for (std::size_t k = 0; k < dimension; ++k)
            EXPECT_NEAR(r.centre[k], centre[k], tolerance * radius);
    }
}

TEST(RoundFit, FindsExactCirclesAndSpheres) {
    for (const double radius : {0.1, 10.0, 1e4}) {
        expect_exact<2>(360, radius, 0, 1e-10);
        expect_exact<3>(360, radius, 0, 1e-10);
        expect_exact<2>(90, radius, 1e6 * radius, 1e-5);
        expect_exact<3>(90, radius, 1e6 * radius, 1e-5);
    }
    expect_exact<2>(1, 1e4, 0, 1e-6);
    expect_exact<3>(10, 1e4, 0, 1e-6);

    const Result unit = circle({6, 5, 5, 6, 4, 5, 5, 4});
    EXPECT_EQ(unit.centre, (Vector{5, 5, 0}));
    EXPECT_EQ(unit.radius, 1);
    EXPECT_EQ(unit.stats, (Vector{0, 0, 0}));
}

std::vector<double> scaled_by(double s, std::vector<double> points) {
    for (double& x : points)
        x *= s;
    return points;
}

// The thresholds are in millimetres: what misses them is found less well.
TEST(RoundFit, OfAPartIsTheSameInUnitsNearTheMillimetre) {
    Random random;
    const auto part = points_near<2>(random, 100, {30, 40, 0}, 25, 200, 0.01);
    const auto ball = points_near<3>(random, 100, {30, 40, 50}, 25, 200, 0.01);
    const Result in_mm = circle(part), ball_in_mm = sphere(ball);
    for (const auto& [millimetres, tolerance] :
         {std::pair{25.4, 1e-12}, {0.001, 1e-6}, {1000.0, 1.0}}) {
        const Result r = circle(scaled_by(1 / millimetres, part));
        const Result b = sphere(scaled_by(1 / millimetres, ball));
        for (std::size_t k = 0; k < 3; ++k) {
            EXPECT_NEAR(r.centre[k] * millimetres, in_mm.centre[k], tolerance);
            EXPECT_NEAR(b.centre[k] * millimetres, ball_in_mm.centre[k], tolerance);
        }
        // In metres few points are the fit, which has no statistics.
        EXPECT_EQ(r.stats[1] == 0, millimetres == 1000);
        EXPECT_EQ(b.stats[1] == 0, millimetres == 1000);
    }
    // Smaller yet the points are straight within 0.005; larger yet no eigenvalue reaches 1e-10.
    EXPECT_EQ(circle(scaled_by(1e-4, part)).failed, 1);
    const Result far = circle(scaled_by(1e6, part));
    EXPECT_EQ(far.failed, 0);
    EXPECT_EQ(far.stats, (Vector{0, 0, 0}));
}

TEST(CircleFit, FallsBackOnThreePointsUnlessThePointsAreStraight) {
    const NoBlocksLeft no_blocks_left;
    const ReportRecorder recorder;
    // A bow: the root-mean-square height above its line is a third of its height times root 2.
    const auto bow = [](double height) { return circle({0, 0, 1, height, 2, 0}); };
    EXPECT_EQ(bow(0.010).failed, 1);
    EXPECT_EQ(bow(0.010).radius, none);
    EXPECT_EQ(bow(0.011).failed, 0);
    EXPECT_NEAR(bow(0.011).radius, (1 + 0.011 * 0.011) / 0.022, 1e-9);
    // Too large for an eigenvalue of 1e-10: the first point, that of index n / 2 and the last.
    const Result three = circle({1e9, 0, 5e8, 7e8, 0, 1e9, -2e9, 3e8, -1e9, 0});
    EXPECT_EQ(three.failed, 0);
    EXPECT_NEAR(three.radius, 1e9, 1e-3);
    EXPECT_EQ(three.stats, (Vector{0, 0, 0}));
    // A ring that ends where it began has no three points; what is no number gives no circle.
    EXPECT_EQ(circle({1e9, 0, 0, 1e9, -1e9, 0, -2e9, 3e8, 1e9, 0}).failed, 2);

    for (const auto& points : {std::vector<double>{},
                               {3, 4},
                               {3, 4, 5, 6},
                               {3, 4, 3, 4, 3, 4},
                               {0, 0, 1, 1, 2, 2, 7, 7}}) {
        const Result r = circle(points);
        EXPECT_EQ(r.failed, 1);
        EXPECT_EQ(r.radius, none);
        EXPECT_EQ(r.centre, (Vector{0, 0, 0}));
    }
    EXPECT_EQ(recorder.reports(), Reports{internal("lsfit", "There are no input points.")});
}

TEST(CircleFit, InSpaceLiesInItsPlane) {
    const NoBlocksLeft no_blocks_left;
    Random random;
    const Vector centre = {100, -200, 300};
    const Matrix turn = random_rotation(random);
    std::vector<double> points, in_plane;
    const auto flat = points_near<2>(random, 300, {0, 0, 0}, 25, 200, 0.01);
    for (std::size_t i = 0; i < flat.size(); i += 2) {
        const Vector p =
            moved(moved(moved(centre, flat[i], row(turn, 0)), flat[i + 1], row(turn, 1)),
                  0.02 * random.normal(), row(turn, 2));
        points.insert(points.end(), p.begin(), p.end());
    }
    // With the plane fitted, with it given at any length, and with another plane.
    for (const Vector& given :
         {Vector{0, 0, 0.9e-10}, scaled(row(turn, 2), -3), Vector{0, 0, 1.1e-10}, row(turn, 1)}) {
        const SpaceCircle r(points, given);
        ASSERT_EQ(r.failed, 0);
        double frame[9];
        MTX3_init_z(r.normal.data(), frame);
        EXPECT_TRUE(std::equal(frame, frame + 9, r.frame + 3));
        EXPECT_TRUE(std::equal(r.frame, r.frame + 3, r.plane_point.data()));
        in_plane.clear();
        for (std::size_t i = 0; i < points.size(); i += 3)
            for (std::size_t k = 0; k < 2; ++k)
                in_plane.push_back(
                    dot(Vector{frame[3 * k], frame[3 * k + 1], frame[3 * k + 2]},
                        moved({points[i], points[i + 1], points[i + 2]}, -1, r.plane_point)));
        const Result within = circle(in_plane);
        EXPECT_NEAR(r.radius, within.radius, 1e-11 * within.radius);
        EXPECT_NEAR(r.stats[1], within.stats[1], 1e-7);
        Vector expected = r.plane_point;
        for (std::size_t k = 0; k < 2; ++k)
            expected = moved(expected, within.centre[k],
                             {frame[3 * k], frame[3 * k + 1], frame[3 * k + 2]});
        EXPECT_LE(distance(r.centre, expected), 1e-11 * within.radius);
        if (given[2] == 0.9e-10) {
            EXPECT_LE(distance(r.centre, centre), 0.05);
            EXPECT_NEAR(std::fabs(dot(r.normal, row(turn, 2))), 1, 1e-6);
        } else {
            EXPECT_EQ(r.normal, given);
        }
    }
}

TEST(CircleFit, InSpaceEndsWhereThePlaneFitFindsALine) {
    // The scatter is beyond what the plane fit uses, and the points are on a line.
    std::vector<double> points;
    for (const double t : {-3e18, -1e18, 1e18, 3e18})
        points.insert(points.end(), {t, t / 8, t / 8});
    const SpaceCircle line(points, {0, 0, 0});
    EXPECT_EQ(line.failed, 1);
    EXPECT_EQ(line.radius, none);
    EXPECT_NEAR(length(line.normal), 1, 1e-15);
    EXPECT_TRUE(std::all_of(line.frame, line.frame + 12, [](double x) { return x == 0; }));
    ReportRecorder recorder;
    const SpaceCircle empty({}, {1, 2, 3});
    EXPECT_EQ(empty.failed, 1);
    EXPECT_EQ(empty.radius, none);
    EXPECT_EQ(empty.normal, (Vector{0, 0, 0}));
}

TEST(SphereFit, FallsBackOnFourPointsThatAreSpread) {
    const ReportRecorder recorder;
    // On a sphere about (1, 2, 3), too large for an eigenvalue; the point inside is not chosen.
    const double r = 1e9;
    const std::vector<double> exact = {r, 0,  0, 0, r, 0, -r,    0,     0,
                                       0, -r, 0, 0, 0, r, r / 4, r / 4, 0};
    const Result four = sphere(exact);
    EXPECT_EQ(four.failed, 0);
    EXPECT_NEAR(four.radius, r, 1e-3);
    EXPECT_EQ(four.stats, (Vector{0, 0, 0}));

    // A tetrahedron of this height.
    const auto pyramid = [](double height) {
        return sphere({0, 0, 0, 3, 0, 0, 0, 4, 0, 1, 1, height});
    };
    EXPECT_EQ(pyramid(1).failed, 0);
    EXPECT_EQ(pyramid(0.0011).failed, 1);
    EXPECT_EQ(pyramid(0.0011).radius, none);
    EXPECT_EQ(recorder.reports(), Reports{});
}

TEST(SphereFit, ReportsThatNoPointIsFound) {
    ReportRecorder recorder;
    const Result r = sphere({std::nan(""), 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1});
    EXPECT_EQ(r.failed, 1);
    EXPECT_EQ(r.radius, none);
    EXPECT_EQ(
        recorder.take().back(),
        internal("lsfit", "There was no point found at max distance from the plane (pl_pt,pl_n)."));
    EXPECT_EQ(sphere({}).failed, 1);
    EXPECT_EQ(recorder.take(), Reports{internal("lsfit", "There are no input points.")});
}

}  // namespace
