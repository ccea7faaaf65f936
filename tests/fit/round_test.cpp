// Least-squares circles and spheres.
#include "fit/points.h"

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

/// A circle through points of the plane, or a sphere.
Result fit(int dimension, const Points& points) {
    Result r;
    if (dimension == 2) r.centre[2] = 0;
    (dimension == 2 ? LSFIT_circle_to_points_2d : LSFIT_sphere_to_points_3d)(
        flat(points, dimension).data(), count_of(points), r.centre.data(), &r.radius, &r.failed,
        r.stats.data());
    return r;
}

/// Where points are drawn: near an arc, or a cap as wide, from one end to the other.
struct Site {
    int dimension;
    double angle;  // in degrees
    double radius = 10;
    double far = 0;  // each coordinate of the centre
};

Points points_near(Random& random, const Site& site, int count, double noise) {
    const bool cap = site.dimension == 3;
    const Frame frame({site.far, site.far, cap ? site.far : 0},
                      cap ? random_rotation(random) : identity);
    Points points(count);
    for (int i = 0; i < count; ++i) {
        const double a = M_PI / 360 * site.angle * (2 * (i + random.uniform(0, 1)) / count - 1);
        const double b = cap ? random.uniform(0, 2 * M_PI) : 0;
        const Vector on_cap = {std::cos(a), std::sin(a) * std::cos(b), std::sin(a) * std::sin(b)};
        points[i] = frame.at(scaled(on_cap, site.radius + noise * random.normal()));
    }
    return points;
}

/// The algebraic fit makes the sum of f^2 / 4 r^2 least, where f = |d|^2 - r^2 of a point d away
/// from the centre: the derivatives by centre and radius vanish.
void expect_algebraic_fit(const Site& site, int count) {
    SCOPED_TRACE(site.angle);
    Random random;
    for (int round = 0; round < rounds(10); ++round) {
        const Points points = points_near(random, site, count, 1e-3);
        const Result r = fit(site.dimension, points);
        EXPECT_EQ(r.failed, 0);
        Vector by_centre = nothing;
        double by_radius = 0, squares = 0, largest = 0, sum = 0;
        for (const Vector& p : points) {
            const Vector d = moved(p, -1, r.centre);
            const double deviation = length(d) - r.radius, f = deviation * (length(d) + r.radius);
            by_centre = moved(by_centre, f, d);
            by_radius += f * (dot(d, d) / r.radius + r.radius);
            squares += f * f;
            largest = std::fmax(largest, std::fabs(deviation));
            sum += std::fabs(deviation);
        }
        const double tolerance = count * (1e-10 * r.radius * r.radius + 1e-12 * site.far);
        EXPECT_LE(distance(by_centre, nothing), tolerance);
        EXPECT_NEAR(by_radius, 0, tolerance);
        EXPECT_NEAR(r.stats[0], largest, 2e-14 * r.radius);
        EXPECT_NEAR(r.stats[1] * 2 * r.radius / std::sqrt(count * squares), 1, 1e-7);
        EXPECT_NEAR(r.stats[2], sum / count, 2e-14 * r.radius);
    }
}

TEST(RoundFit, IsTheAlgebraicFitOfNoisyPoints) {
    for (const int dimension : {2, 3}) {
        for (const double angle : {360.0, 90.0, 10.0, 1.0})
            expect_algebraic_fit({dimension, angle}, 100);
        expect_algebraic_fit({dimension, dimension == 2 ? 360.0 : 90.0, 10, 1e7}, 1501);
    }
}

/// Rounding decides whether such points have a usable eigenvalue or fall back: both are exact.
TEST(RoundFit, FindsExactCirclesAndSpheres) {
    const auto expect_exact = [](const Site& site, double tolerance) {
        Random random;
        for (int round = 0; round < rounds(20); ++round) {
            const Result r = fit(site.dimension, points_near(random, site, 50, 0));
            EXPECT_EQ(r.failed, 0) << site.angle << ' ' << site.radius;
            EXPECT_NEAR(r.radius, site.radius, tolerance * site.radius);
            EXPECT_NEAR(r.centre[1], site.far, tolerance * site.radius);
        }
    };
    for (const int dimension : {2, 3}) {
        for (const double radius : {0.1, 10.0, 1e4}) {
            expect_exact({dimension, 360, radius}, 1e-9);
            expect_exact({dimension, 90, radius, 1e6 * radius}, 1e-5);
        }
        expect_exact({dimension, dimension == 2 ? 1.0 : 10.0, 1e4}, 1e-6);
    }
}

TEST(RoundFit, TakesTheFirstOfTheLargestEigenvaluesOf1e10thOrMore) {
    // As well a line as a circle: the first is that of a line.
    Points cross = {{5, 0}, {-5, 0}, {0, 5}, {0, -5}};
    cross.resize(16);
    EXPECT_EQ(fit(2, cross).failed, 1);

    // An eigenvalue, of which small ones are less exact, is the count over the square of the second
    // statistic.
    const auto kite = [](double s) {
        return fit(2, {{5 * s, 0}, {0, 4 * s}, {-5 * s, 0}, {0, -4 * s}});
    };
    for (const double part : {0.97, 1.03}) {
        const double size = std::sqrt(4 / (part * 1e-10)) / kite(1).stats[1];
        EXPECT_EQ(kite(size).stats == nothing, part < 1);
    }
}

TEST(CircleFit, FallsBackOnThreePointsUnlessThePointsAreStraight) {
    const ReportRecorder recorder;
    const std::tuple<Points, int, double> rows[] = {
        // A bow: its points are root 2 thirds of its height away from their line.
        {{{0, 0}, {1, 0.010}, {2, 0}}, 1, none},
        {{{0, 0}, {1, 0.011}, {2, 0}}, 0, (1 + 0.011 * 0.011) / 0.022},
        // It is straight by its angle, of up to a thousandth of a degree, as well.
        {{{0, 0}, {1e6, 20}, {2e6, 0}}, 0, (1e12 + 400) / 40},
        {{{0, 0}, {1e6, 15}, {2e6, 0}}, 1, none},
        {{{0, 0}, {1, 1}, {2, 2}, {7, 7}}, 1, none},
        {{{3, 4}, {3, 4}, {3, 4}}, 1, none},
        {{{3, 4}, {5, 6}}, 1, none},
        {{{3, 4}}, 1, none},
        {{}, 0, none},
        // Too large for an eigenvalue of 1e-10: the first point, that of index n / 2, the last.
        {{{1e9, 0}, {5e8, 7e8}, {0, 1e9}, {-2e9, 3e8}, {-1e9, 0}}, 0, 1e9},
        // A ring closed by its first.
        {{{1e9, 0}, {0, 1e9}, {-1e9, 0}, {-2e9, 3e8}, {1e9, 0}}, 2, none},
    };
    for (const auto& [points, failed, radius] : rows) {
        const Result r = fit(2, points);
        EXPECT_EQ(r.failed, failed);
        EXPECT_NEAR(r.radius, radius, 1e-10 * radius);
        EXPECT_EQ(r.stats, nothing);
        EXPECT_TRUE(failed == 0 || r.centre == nothing);
    }
    EXPECT_EQ(recorder.reports(), Reports{no_points});
    // Three of them as near to each other as points may be.
    EXPECT_EQ(fit(2, {{0, 0}, {5e8, 7e8}, {1.2e-10, 0.35e-10}, {-2e9, 3e8}, {2.4e-10, 0}}).failed,
              0);
}

// About a parabola, residuals whose length divides the quadratic coefficient.
TEST(CircleFit, TakesAQuadraticCoefficientUpTo1e19thForALine) {
    for (const double coefficient : {0.99e-19, 1.01e-19}) {
        const double y = 1e18 * coefficient * 100 * std::sqrt(70.0);
        const Points points = {
            {-2e9, 4 * y + 100}, {-1e9, y - 400}, {0, 600}, {1e9, y - 400}, {2e9, 4 * y + 100}};
        EXPECT_EQ(fit(2, points).failed, coefficient < 1e-19);
    }
}

struct SpaceCircle : Result {
    SpaceCircle(const Points& points, const Vector& given) : normal(given) {
        LSFIT_circle_to_points_3d(flat(points, 3).data(), count_of(points), plane_point.data(),
                                  normal.data(), centre.data(), &radius, &failed, stats.data(),
                                  frame.data());
    }

    Vector plane_point, normal;
    Frame frame{{}, {}};
};

TEST(CircleFit, InSpaceIsThatOfThePointsInThePlane) {
    Random random;
    const Frame part(random);
    Points points = points_near(random, {2, 200, 25, 2}, 300, 0.01);
    for (Vector& p : points)
        p = part.at({p[0], p[1], 0.02 * random.normal()});
    // A null normal, the part's own at some length, and another.
    for (const Vector& given :
         {Vector{0, 0.6e-10, 0.8e-10}, scaled(row(part.axes, 2), -3), Vector{0, 0, 1.1e-10}}) {
        const SpaceCircle r(points, given);
        Points in_plane;
        for (const Vector& p : points) {
            const Vector offset = moved(p, -1, r.plane_point);
            in_plane.push_back(
                {dot(offset, row(r.frame.axes, 0)), dot(offset, row(r.frame.axes, 1))});
        }
        const Result within = fit(2, in_plane);
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
    Points points;
    for (const double t : {-3e18, -1e18, 1e18, 3e18})
        points.push_back({t, t / 8, t / 8});
    const SpaceCircle line(points, nothing);
    EXPECT_EQ(std::pair(line.failed, line.radius), std::pair(1, none));
    EXPECT_NEAR(length(line.normal), 1, 1e-15);
    EXPECT_EQ(line.frame.axes, Matrix{});
    const ReportRecorder recorder;
    EXPECT_EQ(SpaceCircle({}, {0, 0, 1}).normal, nothing);
    EXPECT_EQ(SpaceCircle({{4, 5, 6}}, {0, 0, 1}).plane_point, (Vector{4, 5, 6}));
    EXPECT_EQ(fit(3, {{4, 5, 6}}).failed, 1);
    EXPECT_EQ(recorder.reports(), Reports{no_points});
}

TEST(SphereFit, FallsBackOnFourPointsThatAreSpread) {
    const double r = 1e9;  // too large for an eigenvalue
    // Anywhere: of four points the third is not to be one of the first two.
    for (const double x : {-2 * r, 2 * r}) {
        const Vector mean = {x + r / 4, 1.5 * r, r / 2};  // of the four beside it
        EXPECT_NEAR(fit(3, {{x, r}, {x, 3 * r}, {x + r, 2 * r, r}, {x, 0, r}, mean}).radius,
                    r * std::sqrt(7.25), 1e-3);
    }
    // The first of points as far as others, and what lies ahead of the middle itself.
    const Points equals = {{0, 0, r / 4},     {2 * r, 0, 0},      {-2 * r, 0, 0}, {0, -r, 0},
                           {r / 2, r / 2, 0}, {-r / 2, r / 2, 0}, {0, 0, -r / 4}};
    const Result through = fit(3, equals);
    EXPECT_EQ(through.stats, nothing);
    for (std::size_t i = 0; i < equals.size(); ++i)
        EXPECT_EQ(std::fabs(length(moved(equals[i], -1, through.centre)) - through.radius) < 1.0,
                  i < 4);
    for (const double height : {0.0011, 1.0}) {
        const Result pyramid = fit(3, {{0, 0, 0}, {3, 0, 0}, {0, 4, 0}, {1, 1, height}});
        EXPECT_EQ(pyramid.failed, height < 1);
        EXPECT_EQ(pyramid.radius == none, height < 1);
    }
}

TEST(SphereFit, ReportsThatNoPointIsFound) {
    const ReportRecorder recorder;
    EXPECT_EQ(fit(3, {}).failed, 0);
    EXPECT_EQ(recorder.reports(), Reports{no_points});
    EXPECT_EQ(fit(3, {{NAN, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}}).failed, 1);
    EXPECT_EQ(
        recorder.reports().back(),
        internal("lsfit", "There was no point found at max distance from the plane (pl_pt,pl_n)."));
}

}  // namespace
