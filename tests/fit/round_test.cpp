// Least-squares circles and spheres.
#include "support/random.h"
#include "support/reports.h"
#include "support/session.h"
#include "support/vectors.h"
#include "ztmath/lsfit.h"

namespace {

using namespace ztmath_test;

constexpr double none = 1e19;
constexpr Vector nothing = {0, 0, 0};

struct Result {
    Vector centre = {7, 7, 7};
    double radius = 7;
    int failed = 7;
    Vector stats = {7, 7, 7};
};

template <std::size_t dimension>
Result fit(const std::vector<double>& points) {
    Result r;
    r.centre[2] = 0;
    (dimension == 2 ? LSFIT_circle_to_points_2d : LSFIT_sphere_to_points_3d)(
        points.data(), static_cast<int>(points.size() / dimension), r.centre.data(), &r.radius,
        &r.failed, r.stats.data());
    return r;
}

/// Points near an arc, or a cap as wide, from one end to the other: the angle in degrees.
template <std::size_t dimension>
std::vector<double> points_near(Random& random, int count, double centre, double radius,
                                double angle, double noise) {
    const Matrix turn = random_rotation(random);
    std::vector<double> points;
    for (int i = 0; i < count; ++i) {
        const double a = M_PI / 360 * angle * (2 * (i + random.uniform(0, 1)) / count - 1);
        const double b = dimension == 3 ? random.uniform(0, 2 * M_PI) : 0;
        const Vector on_cap = {std::cos(a), std::sin(a) * std::cos(b), std::sin(a) * std::sin(b)};
        const double r = radius + noise * random.normal();
        for (std::size_t k = 0; k < dimension; ++k)
            points.push_back(centre + r * (dimension == 3 ? dot(row(turn, k), on_cap) : on_cap[k]));
    }
    return points;
}

/// The algebraic fit makes the sum of f^2 / 4 r^2 least, where f = |d|^2 - r^2 of a point d away
/// from the centre: the derivatives by centre and radius vanish.
template <std::size_t dimension>
void expect_algebraic_fit(double angle, int count, double distance_of_centre) {
    SCOPED_TRACE(angle);
    Random random;
    for (int round = 0; round < rounds(10); ++round) {
        const auto points =
            points_near<dimension>(random, count, distance_of_centre, 10, angle, 1e-3);
        const Result r = fit<dimension>(points);
        EXPECT_EQ(r.failed, 0);
        Vector by_centre = nothing;
        double by_radius = 0, squares = 0, largest = 0, sum = 0;
        for (std::size_t i = 0; i < points.size(); i += dimension) {
            Vector d = nothing;
            for (std::size_t k = 0; k < dimension; ++k)
                d[k] = points[i + k] - r.centre[k];
            const double deviation = length(d) - r.radius, f = deviation * (length(d) + r.radius);
            by_centre = moved(by_centre, f, d);
            by_radius += f * (dot(d, d) / r.radius + r.radius);
            squares += f * f;
            largest = std::fmax(largest, std::fabs(deviation));
            sum += std::fabs(deviation);
        }
        const double tolerance = count * (1e-10 * r.radius * r.radius + 1e-12 * distance_of_centre);
        EXPECT_LE(distance(by_centre, nothing), tolerance);
        EXPECT_NEAR(by_radius, 0, tolerance);
        EXPECT_NEAR(r.stats[0], largest, 2e-14 * r.radius);
        EXPECT_NEAR(r.stats[1] * 2 * r.radius / std::sqrt(count * squares), 1, 1e-7);
        EXPECT_NEAR(r.stats[2], sum / count, 2e-14 * r.radius);
    }
}

TEST(RoundFit, IsTheAlgebraicFitOfNoisyPoints) {
    for (const double angle : {360.0, 90.0, 10.0, 1.0}) {
        expect_algebraic_fit<2>(angle, 100, 0);
        expect_algebraic_fit<3>(angle, 100, 0);
    }
    expect_algebraic_fit<2>(360, 1501, 1e7);
    expect_algebraic_fit<3>(90, 1501, 1e7);
}

/// Rounding decides whether such points have a usable eigenvalue or fall back: both are exact.
template <std::size_t dimension>
void expect_exact(double angle, double radius, double distance_of_centre, double tolerance) {
    Random random;
    for (int round = 0; round < rounds(20); ++round) {
        const Result r = fit<dimension>(
            points_near<dimension>(random, 50, distance_of_centre, radius, angle, 0));
        EXPECT_EQ(r.failed, 0) << angle << ' ' << radius;
        EXPECT_NEAR(r.radius, radius, tolerance * radius);
        EXPECT_NEAR(r.centre[1], distance_of_centre, tolerance * radius);
    }
}

TEST(RoundFit, FindsExactCirclesAndSpheres) {
    for (const double radius : {0.1, 10.0, 1e4}) {
        expect_exact<2>(360, radius, 0, 1e-9);
        expect_exact<3>(360, radius, 0, 1e-9);
        expect_exact<2>(90, radius, 1e6 * radius, 1e-5);
        expect_exact<3>(90, radius, 1e6 * radius, 1e-5);
    }
    expect_exact<2>(1, 1e4, 0, 1e-6);
    expect_exact<3>(10, 1e4, 0, 1e-6);
}

TEST(RoundFit, TakesTheFirstOfTheLargestEigenvaluesOf1e10thOrMore) {
    // As well a line as a circle: the first is that of a line.
    std::vector<double> cross = {5, 0, -5, 0, 0, 5, 0, -5};
    cross.resize(32);
    EXPECT_EQ(fit<2>(cross).failed, 1);

    // An eigenvalue, of which small ones are less exact, is the count over the square of the second
    // statistic.
    const auto kite = [](double s) { return fit<2>({5 * s, 0, 0, 4 * s, -5 * s, 0, 0, -4 * s}); };
    for (const double part : {0.97, 1.03}) {
        const double size = std::sqrt(4 / (part * 1e-10)) / kite(1).stats[1];
        EXPECT_EQ(kite(size).stats == nothing, part < 1);
    }
}

TEST(CircleFit, FallsBackOnThreePointsUnlessThePointsAreStraight) {
    const NoBlocksLeft no_blocks_left;
    const ReportRecorder recorder;
    const struct {
        std::vector<double> points;
        int failed;
        double radius;
    } cases[] = {
        // A bow: its points are root 2 thirds of its height away from their line.
        {{0, 0, 1, 0.010, 2, 0}, 1, none},
        {{0, 0, 1, 0.011, 2, 0}, 0, (1 + 0.011 * 0.011) / 0.022},
        // It is straight by its angle, of up to a thousandth of a degree, as well.
        {{0, 0, 1e6, 20, 2e6, 0}, 0, (1e12 + 400) / 40},
        {{0, 0, 1e6, 15, 2e6, 0}, 1, none},
        {{0, 0, 1, 1, 2, 2, 7, 7}, 1, none},
        {{3, 4, 3, 4, 3, 4}, 1, none},
        {{3, 4, 5, 6}, 1, none},
        {{3, 4}, 1, none},
        {{}, 0, none},
        // Too large for an eigenvalue of 1e-10: the first point, that of index n / 2, the last.
        {{1e9, 0, 5e8, 7e8, 0, 1e9, -2e9, 3e8, -1e9, 0}, 0, 1e9},
        {{1e9, 0, 0, 1e9, -1e9, 0, -2e9, 3e8, 1e9, 0}, 2, none},  // a ring closed by its first
    };
    for (const auto& c : cases) {
        const Result r = fit<2>(c.points);
        EXPECT_EQ(r.failed, c.failed);
        EXPECT_NEAR(r.radius, c.radius, 1e-10 * c.radius);
        EXPECT_EQ(r.stats, nothing);
        EXPECT_TRUE(c.failed == 0 || r.centre == nothing);
    }
    EXPECT_EQ(recorder.reports(), Reports{internal("lsfit", "There are no input points.")});
    // Three of them as near to each other as points may be.
    EXPECT_EQ(fit<2>({0, 0, 5e8, 7e8, 1.2e-10, 0.35e-10, -2e9, 3e8, 2.4e-10, 0}).failed, 0);
}

// About a parabola, residuals whose length divides the quadratic coefficient.
TEST(CircleFit, TakesAQuadraticCoefficientUpTo1e19thForALine) {
    for (const double coefficient : {0.99e-19, 1.01e-19}) {
        const double y = 1e18 * coefficient * 100 * std::sqrt(70.0);
        const Result r =
            fit<2>({-2e9, 4 * y + 100, -1e9, y - 400, 0, 600, 1e9, y - 400, 2e9, 4 * y + 100});
        EXPECT_EQ(r.failed, coefficient < 1e-19);
    }
}

struct SpaceCircle : Result {
    SpaceCircle(const std::vector<double>& points, const Vector& given) : normal(given) {
        LSFIT_circle_to_points_3d(points.data(), static_cast<int>(points.size() / 3),
                                  plane_point.data(), normal.data(), centre.data(), &radius,
                                  &failed, stats.data(), frame.data());
    }

    Vector plane_point, normal;
    Frame frame{{}, {}};
};

TEST(CircleFit, InSpaceIsThatOfThePointsInThePlane) {
    const NoBlocksLeft no_blocks_left;
    Random random;
    const Frame part(random);
    const auto flat = points_near<2>(random, 300, 2, 25, 200, 0.01);
    std::vector<double> points;
    for (std::size_t i = 0; i < flat.size(); i += 2) {
        const Vector p = part.at({flat[i], flat[i + 1], 0.02 * random.normal()});
        points.insert(points.end(), p.begin(), p.end());
    }
    // A null normal, the part's own at some length, and another.
    for (const Vector& given :
         {Vector{0, 0.6e-10, 0.8e-10}, scaled(row(part.axes, 2), -3), Vector{0, 0, 1.1e-10}}) {
        const SpaceCircle r(points, given);
        std::vector<double> in_plane;
        for (std::size_t i = 0; i < points.size(); i += 3) {
            const Vector offset =
                moved({points[i], points[i + 1], points[i + 2]}, -1, r.plane_point);
            in_plane.insert(in_plane.end(),
                            {dot(offset, row(r.frame.axes, 0)), dot(offset, row(r.frame.axes, 1))});
        }
        const Result within = fit<2>(in_plane);
        EXPECT_EQ(r.failed, 0);
        EXPECT_EQ(r.frame.origin, r.plane_point);
        EXPECT_NEAR(dot(row(r.frame.axes, 2), r.normal), length(r.normal), 1e-15);
        EXPECT_NEAR(r.radius, within.radius, 1e-9);
        EXPECT_LE(distance(r.stats, within.stats), 1e-8);
        EXPECT_LE(distance(r.centre, r.frame.at(within.centre)), 1e-9);
        if (given[2] == 0.8e-10)
            EXPECT_LE(distance(r.centre, part.at({2, 2, 0})), 0.05);
        else
            EXPECT_EQ(r.normal, given);
    }
}

TEST(CircleFit, InSpaceEndsWhereThePlaneFitFindsALine) {
    // The scatter is beyond what the plane fit uses, and the points are on a line.
    std::vector<double> points;
    for (const double t : {-3e18, -1e18, 1e18, 3e18})
        points.insert(points.end(), {t, t / 8, t / 8});
    const SpaceCircle line(points, nothing);
    EXPECT_EQ(line.failed, 1);
    EXPECT_EQ(line.radius, none);
    EXPECT_NEAR(length(line.normal), 1, 1e-15);
    EXPECT_EQ(line.frame.axes, Matrix{});
    const ReportRecorder recorder;
    EXPECT_EQ(SpaceCircle({}, {0, 0, 1}).normal, nothing);
    EXPECT_EQ(SpaceCircle({4, 5, 6}, {0, 0, 1}).plane_point, (Vector{4, 5, 6}));
    EXPECT_EQ(fit<3>({4, 5, 6}).failed, 1);
    EXPECT_EQ(recorder.reports(), Reports{internal("lsfit", "There are no input points.")});
}

TEST(SphereFit, FallsBackOnFourPointsThatAreSpread) {
    const double r = 1e9;  // too large for an eigenvalue
    // Anywhere: of four points the third is not to be one of the first two.
    for (const double x : {-2 * r, 2 * r})
        EXPECT_NEAR(fit<3>({x, r, 0, x, 3 * r, 0, x + r, 2 * r, r, x, 0, r, x + r / 4, 1.5 * r,
                            r / 2})  // the mean of the four beside them
                        .radius,
                    r * std::sqrt(7.25), 1e-3);
    // The first of points as far as others, and what lies ahead of the middle itself.
    const std::vector<Vector> equals = {{0, 0, r / 4}, {2 * r, 0, 0},     {-2 * r, 0, 0},
                                        {0, -r, 0},    {r / 2, r / 2, 0}, {-r / 2, r / 2, 0},
                                        {0, 0, -r / 4}};
    std::vector<double> flat;
    for (const Vector& p : equals)
        flat.insert(flat.end(), p.begin(), p.end());
    const Result through = fit<3>(flat);
    EXPECT_EQ(through.stats, nothing);
    for (std::size_t i = 0; i < equals.size(); ++i)
        EXPECT_EQ(std::fabs(length(moved(equals[i], -1, through.centre)) - through.radius) < 1.0,
                  i < 4);
    for (const double height : {0.0011, 1.0}) {
        const Result pyramid = fit<3>({0, 0, 0, 3, 0, 0, 0, 4, 0, 1, 1, height});
        EXPECT_EQ(pyramid.failed, height < 1);
        EXPECT_EQ(pyramid.radius == none, height < 1);
    }
}

TEST(SphereFit, ReportsThatNoPointIsFound) {
    const struct {
        std::vector<double> points;
        const char* last_report;
    } cases[] = {{{std::nan(""), 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1},
                  "There was no point found at max distance from the plane (pl_pt,pl_n)."},
                 {{}, "There are no input points."}};
    for (const auto& c : cases) {
        const ReportRecorder recorder;
        EXPECT_EQ(fit<3>(c.points).failed, c.points.empty() ? 0 : 1);
        EXPECT_EQ(recorder.reports().back(), internal("lsfit", c.last_report));
    }
}

}  // namespace
