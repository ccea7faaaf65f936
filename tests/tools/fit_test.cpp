// Fits as the program shows them, against what is known of the points.
#include "fit.h"

#include "support/support.h"

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

}  // namespace
