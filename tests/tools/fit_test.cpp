// Fits as the program shows them, against what is known of the points.
#include "fit.h"

#include "support/random.h"

namespace {

using namespace tool;
using ztmath_test::Random;
using ztmath_test::rounds;

const Unit& millimetres = unit_named("mm");

Points points_of(int dimension, std::vector<double> coordinates) {
    Points points{dimension, std::move(coordinates), {}};
    points.lines.resize(points.coordinates.size() / static_cast<std::size_t>(dimension));
    return points;
}

// In millimetres alone, rounding makes the library miss about half of these.
TEST(Fit, FindsFlatAndStraightPointsOfEverySize) {
    Random random;
    for (int round = 0; round < rounds(50); ++round)
        for (const double size : {0.1, 30.0, 2e3, 1e7, 1e12})
            for (const Unit& unit : {millimetres, unit_named("m")}) {
                const double a = random.normal(), b = random.normal(), c = size * random.normal();
                const auto direction = random.vector();
                std::vector<double> flat, straight, thin;  // the last a line in space
                for (int i = 0; i < 60; ++i) {
                    const double x = random.uniform(0.0, size), y = random.uniform(0.0, size);
                    flat.insert(flat.end(), {x, y, a * x + b * y + c});
                    straight.insert(straight.end(), {x, a * x + c});
                    for (const double d : direction)
                        thin.push_back(7.0 * size + y * d);
                }
                const double rounding = 1e-13 * size * (1.0 + std::fabs(c / size));
                const PlaneFit plane = fit_plane(points_of(3, flat), unit);
                const Line2Fit line = fit_line_2d(points_of(2, straight), unit);
                const Line3Fit space_line = fit_line_3d(points_of(3, thin), unit);
                ASSERT_LT(plane.distances.max, 20.0 * rounding) << size;
                ASSERT_LT(line.distances.max, 20.0 * rounding) << size;
                ASSERT_LT(space_line.distances.max, 40.0 * rounding + 1e-12 * size) << size;
                ASSERT_NEAR(line.normal[0] + line.normal[1] * a, 0.0, 1e-10);
                ASSERT_NEAR(plane.normal[0] + plane.normal[2] * a, 0.0, 1e-10);
            }
}

// In millimetres alone, the library gives few points, or none, of the smallest and the largest.
TEST(Fit, FindsCirclesAndSpheresOfEverySize) {
    Random random;
    for (const double size : {0.005, 0.1, 30.0, 1e7, 1e12})
        for (const Unit& unit : {millimetres, unit_named("m")}) {
            SCOPED_TRACE(size);
            std::vector<double> arc, ring, ball;
            for (int i = 0; i < 80; ++i) {
                const double a = random.uniform(0.5, 3.5), b = random.uniform(-1, 1);
                const double r = size * (1 + 1e-4 * random.normal());
                const double x = 3 * size + r * std::cos(a), y = r * std::sin(a);
                arc.insert(arc.end(), {x, y});
                ring.insert(ring.end(), {0.8 * x, y, 0.6 * x});
                ball.insert(ball.end(), {3 * size + r * std::cos(a) * std::cos(b),
                                         r * std::sin(a) * std::cos(b), r * std::sin(b)});
            }
            const CircleFit circle = fit_circle(points_of(2, arc), unit);
            const Circle3Fit circle3 = fit_circle_3d(points_of(3, ring), unit);
            const SphereFit sphere = fit_sphere(points_of(3, ball), unit);
            ASSERT_EQ(circle.shape, Shape::regular);
            ASSERT_EQ(circle3.shape, Shape::regular);
            ASSERT_EQ(sphere.shape, Shape::regular);
            EXPECT_NEAR(circle.radius, size, 2e-4 * size);
            EXPECT_NEAR(circle.centre[0], 3 * size, 2e-4 * size);
            EXPECT_NEAR(circle.distances.rms, 1e-4 * size, 2e-5 * size);
            EXPECT_NEAR(circle.start, 0.5 * 180 / M_PI, 15);
            EXPECT_NEAR(circle.covered, 3 * 180 / M_PI, 25);
            EXPECT_NEAR(sphere.radius, size, 2e-4 * size);
            EXPECT_NEAR(sphere.distances.rms, 1e-4 * size, 2e-5 * size);
            EXPECT_LE(length(circle3.centre - Vec3{2.4 * size, 0, 1.8 * size}), 4e-4 * size);
            EXPECT_LE(length(sphere.centre - Vec3{3 * size, 0, 0}), 4e-4 * size);
            EXPECT_NEAR(circle3.circle.distances.rms, circle.distances.rms, 1e-6 * size);
            EXPECT_NEAR(circle3.circle.covered, circle.covered, 0.1);
        }
}

TEST(Fit, SaysWhatHasNoAnswer) {
    constexpr Shape regular = Shape::regular, too_few = Shape::too_few,
                    collinear = Shape::collinear, coincident = Shape::coincident,
                    coplanar = Shape::coplanar;
    const Unit& metres = unit_named("m");
    const struct {
        std::vector<double> points;
        Shape plane, line, sphere;
        const Unit& unit = millimetres;
    } in_space[] = {
        {{}, too_few, too_few, too_few},
        {{1, 1, 1, 1, 1, 1}, too_few, coincident, too_few},
        {{1, 1, 1, 1, 1, 2}, too_few, regular, too_few},
        {{0, 0, 0, 1, 0, 0, 0, 1, 0}, regular, regular, too_few},
        {{5, 5, 5, 5, 5, 5, 5, 5, 5.0009}, coincident, coincident, too_few},
        {{5, 5, 5, 5, 5, 5, 5, 5, 5.0009}, collinear, regular, too_few, metres},
        {{0, 0, 0, 1, 2, 3, 5, 10, 15, 2, 4, 6}, collinear, regular, collinear},
        {{0, 0, 0, 1, 2, 3, 5, 10, 15.1}, regular, regular, too_few},
        {{0, 0, 0, 1e9, 2e9, 3e9, 1e9 / 3, 2e9 / 3, 1e9}, collinear, regular, too_few},
        {{0, 0, 3, 5, 0, 3, 0, 5, 3, 9, 9, 3, 2, 1, 3}, regular, regular, coplanar},
        {{0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1}, regular, regular, regular},
    };
    for (const auto& row : in_space) {
        SCOPED_TRACE(&row - in_space);
        const Points points = points_of(3, row.points);
        EXPECT_EQ(fit_plane(points, row.unit).shape, row.plane);
        EXPECT_EQ(fit_line_3d(points, row.unit).shape, row.line);
        EXPECT_EQ(fit_sphere(points, row.unit).shape, row.sphere);
    }
    const std::tuple<std::vector<double>, Shape, Shape> in_plane[] = {
        {{1, 1}, too_few, too_few},
        {{1, 1, 1, 1}, coincident, too_few},
        {{1, 1, 1, 2}, regular, too_few},
        {{1, 2, 1, 2, 1, 2.0009}, coincident, coincident},
        {{1, 2, 2, 4, 3e9, 6e9, -7, -14}, regular, collinear},
        {{0, 0, 10, 0, 3, 7}, regular, regular},
    };
    for (const auto& [coordinates, line, circle] : in_plane) {
        const Points points = points_of(2, coordinates);
        EXPECT_EQ(fit_line_2d(points, millimetres).shape, line);
        EXPECT_EQ(fit_circle(points, millimetres).shape, circle);
    }
}

}  // namespace
