// Fits as the program shows them, against the library and against what is known of the points.
#include "fit.h"

#include <gtest/gtest.h>
#include <ztmath/ztmath.h>

#include <cmath>

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

/// Points of z = a x + b y + c, or of y = a x + c, over a square.
struct Flat {
    double a, b, c;
    Points space, plane;
};

Flat flat_points(Random& random, double size) {
    Flat flat{random.normal(), random.normal(), size * random.normal(), {3, {}, {}}, {2, {}, {}}};
    std::vector<double> space, plane;
    for (int i = 0; i < 60; ++i) {
        const double x = random.uniform(0.0, size), y = random.uniform(0.0, size);
        space.insert(space.end(), {x, y, flat.a * x + flat.b * y + flat.c});
        plane.insert(plane.end(), {x, flat.a * x + flat.c});
    }
    flat.space = points_of(3, space);
    flat.plane = points_of(2, plane);
    return flat;
}

/// A line in space.
Points thin_points(Random& random, double size) {
    const auto direction = random.vector();
    std::vector<double> coordinates;
    for (int i = 0; i < 60; ++i) {
        const double t = random.uniform(0.0, size);
        for (const double d : direction)
            coordinates.push_back(7.0 * size + t * d);
    }
    return points_of(3, coordinates);
}

// In millimetres alone, rounding makes the library miss about half of these.
TEST(Fit, FindsFlatAndStraightPointsOfEverySize) {
    Random random;
    for (int round = 0; round < rounds(100); ++round)
        for (const double size : {0.1, 30.0, 2e3, 1e7, 1e12}) {
            const Flat flat = flat_points(random, size);
            const double rounding = 1e-13 * size * (1.0 + std::fabs(flat.c / size));
            const PlaneFit plane = fit_plane(flat.space, millimetres);
            const Line2Fit line = fit_line_2d(flat.plane, millimetres);
            const Line3Fit space_line = fit_line_3d(thin_points(random, size), millimetres);
            ASSERT_LT(plane.distances.max, 20.0 * rounding) << size;
            ASSERT_LT(line.distances.max, 20.0 * rounding) << size;
            ASSERT_LT(space_line.distances.max, 40.0 * rounding + 1e-12 * size) << size;
            ASSERT_NEAR(line.normal[0] + line.normal[1] * flat.a, 0.0, 1e-10);
            ASSERT_NEAR(plane.normal[0] + plane.normal[2] * flat.a, 0.0, 1e-10);
        }
}

TEST(Fit, OfALineThroughScatteredPointsIsTheLibrarys) {
    Random random;
    std::vector<double> coordinates;
    for (int i = 0; i < 50; ++i)
        coordinates.insert(coordinates.end(),
                           {random.uniform(0, 90), random.uniform(0, 50), random.normal()});
    const Points points = points_of(3, coordinates);
    double none[3] = {}, point[3], statistics[3], direction[3], frame[12];
    int collinear = 0, coincident;
    LSFIT_line_to_points_3d(coordinates.data(), 50, none, &collinear, &coincident, point, direction,
                            statistics, frame);
    const Line3Fit line = fit_line_3d(points, millimetres);
    EXPECT_EQ(line.point, load<3>(point));
    EXPECT_EQ(line.direction, load<3>(direction));
    EXPECT_NEAR(line.plane_distances.rms, statistics[1], 1e-12);
    for (int k = 0; k < 3; ++k)  // the point is the centroid but for rounding
        EXPECT_NEAR(line.point[static_cast<std::size_t>(k)], frame[k], 1e-12);
    EXPECT_GE(line.distances.max, line.plane_distances.max);
}

// The library's own point for (0,3), (1,3), (2,3) is (1,1), and its distances are 2.
TEST(Fit, MeasuresFromTheLineThatIsShown) {
    const Line2Fit line = fit_line_2d(points_of(2, {0, 3, 1, 3, 2, 3}), millimetres);
    EXPECT_EQ(line.point, (Vec2{1, 3}));
    EXPECT_EQ(line.direction, (Vec2{1, 0}));
    EXPECT_EQ(line.distances.max, 0.0);
    EXPECT_EQ(line.distances.mean, 0.0);

    const Line2Fit other = fit_line_2d(points_of(2, {0, 3, 1, 3, 2, 3, 1, 7}), millimetres);
    EXPECT_EQ(other.point, (Vec2{1, 4}));
    EXPECT_EQ(other.distances.max, 1.0);  // the line is upright, and its ends are left and right
    EXPECT_EQ(other.distances.mean, 0.5);
}

TEST(Fit, OfAPartIsTheSameInEveryUnit) {
    Random random;
    for (int round = 0; round < rounds(20); ++round) {
        std::vector<double> part;
        for (int i = 0; i < 40; ++i)
            part.insert(part.end(), {random.uniform(0, 200), random.uniform(0, 120),
                                     80 + 0.02 * random.normal()});
        const PlaneFit plane = fit_plane(points_of(3, part), millimetres);
        const Line3Fit line = fit_line_3d(points_of(3, part), millimetres);
        for (const Unit& unit : units()) {
            SCOPED_TRACE(unit.name);
            std::vector<double> scaled = part;
            for (double& x : scaled)
                x /= unit.millimetres;
            const PlaneFit other = fit_plane(points_of(3, scaled), unit);
            const Line3Fit other_line = fit_line_3d(points_of(3, scaled), unit);
            EXPECT_NEAR(other.distances.rms * unit.millimetres, plane.distances.rms, 1e-10);
            EXPECT_NEAR(other_line.distances.max * unit.millimetres, line.distances.max, 1e-9);
            for (std::size_t k = 0; k < 3; ++k) {
                EXPECT_NEAR(other.normal[k], plane.normal[k], 1e-11);
                EXPECT_NEAR(other.point[k] * unit.millimetres, plane.point[k], 1e-10);
                EXPECT_NEAR(other_line.direction[k], line.direction[k], 1e-10);
            }
        }
    }
}

TEST(Fit, SaysWhatHasNoAnswer) {
    const Unit& metres = unit_named("m");
    const auto plane = [](std::vector<double> p, const Unit& unit) {
        return fit_plane(points_of(3, std::move(p)), unit).shape;
    };
    EXPECT_EQ(plane({}, millimetres), Shape::too_few);
    EXPECT_EQ(plane({0, 0, 0, 1, 0, 0}, millimetres), Shape::too_few);
    EXPECT_EQ(plane({5, 5, 5, 5, 5, 5, 5, 5, 5}, millimetres), Shape::coincident);
    EXPECT_EQ(plane({5, 5, 5, 5, 5, 5, 5, 5, 5.0009}, millimetres), Shape::coincident);
    EXPECT_EQ(plane({5, 5, 5, 5, 5, 5, 5, 5, 5.0009}, metres), Shape::collinear);
    EXPECT_EQ(plane({0, 0, 0, 1, 2, 3, 5, 10, 15}, millimetres), Shape::collinear);
    EXPECT_EQ(plane({0, 0, 0, 1, 2, 3, 5, 10, 15.1}, millimetres), Shape::regular);
    EXPECT_EQ(plane({0, 0, 0, 1e9, 2e9, 3e9, 1e9 / 3, 2e9 / 3, 1e9}, millimetres),
              Shape::collinear);
    EXPECT_EQ(fit_line_2d(points_of(2, {1, 1}), millimetres).shape, Shape::too_few);
    EXPECT_EQ(fit_line_2d(points_of(2, {1, 1, 1, 1}), millimetres).shape, Shape::coincident);
    EXPECT_EQ(fit_line_2d(points_of(2, {1, 1, 1, 2}), millimetres).shape, Shape::regular);
    EXPECT_EQ(fit_line_3d(points_of(3, {1, 1, 1, 1, 1, 1}), millimetres).shape, Shape::coincident);
    EXPECT_EQ(fit_line_3d(points_of(3, {1, 1, 1, 1, 1, 2}), millimetres).shape, Shape::regular);
}

}  // namespace
