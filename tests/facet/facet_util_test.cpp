// Facet utilities, all but the triangles of polygons.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "support/reports.h"
#include "support/session.h"
#include "support/vectors.h"
#include "ztmath/facet.h"

namespace {

using namespace ztmath_test;

Vector at(const Vector& origin, double t, const Vector& direction) {
    Vector p;
    FACET_point_on_param_line(origin.data(), direction.data(), t, p.data());
    return p;
}

Vector difference(const Vector& a, const Vector& b) {
    return moved(a, -1, b);
}

TEST(FacetLines, ClosestPointsAndDistancesOfSkewLines) {
    Random random;
    for (int round = 0; round < rounds(100); ++round) {
        const Vector a = random.vector(), u = random.vector(), b = random.vector(),
                     v = random.vector();
        double s, t;
        FACET_line_line_closest_point(a.data(), u.data(), b.data(), v.data(), &s, &t);
        const Vector gap = difference(at(b, t, v), at(a, s, u));
        EXPECT_NEAR(dot(gap, u), 0, 1e-11);
        EXPECT_NEAR(dot(gap, v), 0, 1e-11);
        const double distance = FACET_line_line_dist(a.data(), u.data(), b.data(), v.data());
        EXPECT_NEAR(std::fabs(distance), length(gap), 1e-11);
        EXPECT_EQ(distance > 0, dot(difference(b, a), cross(u, v)) > 0);

        Vector foot;
        double r;
        FACET_point_line_proj(b.data(), a.data(), u.data(), 0, foot.data(), &r);
        EXPECT_EQ(foot, at(a, r, u));
        EXPECT_NEAR(dot(difference(b, foot), u), 0, 1e-13);
        EXPECT_NEAR(FACET_line_point_dist(a.data(), at(a, 1, u).data(), b.data()),
                    length(difference(b, foot)), 1e-13);
        EXPECT_NEAR(std::cos(FACET_compute_undirected_angle(u.data(), v.data())),
                    dot(u, v) / length(u) / length(v), 1e-14);
    }
}

TEST(FacetLines, ParallelAndNullDirections) {
    const Vector a = {1, 0, 0}, b = {3, 1, 0}, none = {0, 0, 0};
    const auto expect_closest = [&](const Vector& u, const Vector& v, double s, double t) {
        double s_out, t_out;
        FACET_line_line_closest_point(a.data(), u.data(), b.data(), v.data(), &s_out, &t_out);
        EXPECT_DOUBLE_EQ(s_out, s);
        EXPECT_DOUBLE_EQ(t_out, t);
    };
    expect_closest({1, 0, 0}, {1, 0, 0}, 0, -2);
    expect_closest({1, 0, 0}, {2, 0, 0}, 0, -4.0 / 16);  // by the square of the squared length
    expect_closest({2, 0, 0}, {9e-4, 0, 0}, 4.0 / 16, 0);
    expect_closest({2, 0, 0}, {1.1e-3, 0, 0}, 0, -2 * 1.1e-3 / (1.21e-6 * 1.21e-6));
    expect_closest({9e-4, 0, 0}, {9e-4, 0, 0}, 0, 0);
    expect_closest({1, 0, 0}, {1, 9.9e-6, 0}, 0, -2.0000099 / std::pow(1 + 9.9e-6 * 9.9e-6, 2));
    EXPECT_NEAR(
        FACET_line_line_dist(a.data(), Vector{1, 0, 0}.data(), b.data(), Vector{-2, 0, 0}.data()),
        1, 1e-15);
    EXPECT_EQ(FACET_line_point_dist(a.data(), at(a, 0.99e-5, {1, 0, 0}).data(), b.data()),
              std::sqrt(5.0));
    EXPECT_EQ(FACET_compute_undirected_angle(a.data(), none.data()), 0);

    Vector foot;
    double t;
    FACET_point_line_proj(b.data(), a.data(), none.data(), 0, foot.data(), &t);
    EXPECT_EQ(foot, a);
    FACET_point_line_proj(b.data(), a.data(), Vector{2, 0, 0}.data(), 1, foot.data(), &t);
    EXPECT_EQ(t, 4);

    for (const auto& [unitize, length, expected] :
         {std::array{1.0, 5.0, 1.0}, {2, 5, 5}, {0, 5, 5}, {1, 1e-6, 1e-6}}) {
        std::array<double, 6> line;
        FACET_points_to_param_line(none.data(), Vector{0, length, 0}.data(),
                                   static_cast<int>(unitize), line.data());
        EXPECT_EQ(line, (std::array{0.0, 0.0, 0.0, 0.0, expected, 0.0}));
    }
}

TEST(FacetPlanes, WhatMeetsThemLiesInThem) {
    Random random;
    for (int round = 0; round < rounds(100); ++round) {
        const Vector n1 = random_unit(random), n2 = random_unit(random), a = random.vector(),
                     b = random.vector();
        const double d1 = random.normal(), d2 = random.normal();
        const auto height = [](const Vector& p, const Vector& n, double d) {
            return FACET_point_plane_dist(p.data(), n.data(), d);
        };
        Vector p, direction;
        double t;
        ASSERT_EQ(FACET_line_int_plane(a.data(), b.data(), n1.data(), d1, p.data(), &t), 0);
        EXPECT_NEAR(height(p, n1, d1), 0, 1e-12 * (1 + std::fabs(t)));
        EXPECT_LE(distance(p, at(a, t, difference(b, a))), 1e-12 * (1 + std::fabs(t)));
        ASSERT_EQ(FACET_point_plane_proj(a.data(), n1.data(), d1, p.data()), 0);
        EXPECT_LE(distance(at(p, height(a, n1, d1), n1), a), 1e-14);
        FACET_ask_point_on_plane(scaled(n1, 3).data(), d1, p.data());
        EXPECT_LE(distance(p, scaled(n1, -d1)), 1e-14);
        ASSERT_EQ(FACET_plane_plane_int(n1.data(), d1, n2.data(), d2, p.data(), direction.data()),
                  2);
        EXPECT_LE(distance(direction, cross(n1, n2)), 1e-15);
        EXPECT_NEAR(height(p, n1, d1), 0, 1e-12 / dot(direction, direction));
        EXPECT_NEAR(height(p, n2, d2), 0, 1e-12 / dot(direction, direction));
    }
}

TEST(FacetPlanes, ParallelsAreToldApart) {
    const Vector z = {0, 0, 1}, down = {0, 0, -1};
    const struct {
        Vector normal;
        double d;
        int relation;
    } cases[] = {{z, 5, 0},    {down, -5, 0},           {z, 5 + 0.9e-10, 0},    {z, 5 + 1.1e-10, 1},
                 {down, 5, 1}, {{0, 0.99e-5, 1}, 6, 1}, {{0, 1.01e-5, 1}, 6, 2}};
    for (const auto& c : cases) {
        Vector point = {7, 7, 7}, direction = {7, 7, 7};
        EXPECT_EQ(FACET_plane_plane_int(z.data(), 5, c.normal.data(), c.d, point.data(),
                                        direction.data()),
                  c.relation);
        EXPECT_EQ(point[0] == 7, c.relation != 2);
        EXPECT_EQ(direction[0], -c.normal[1]);
    }
    Vector point = {7, 7, 7};
    double t = 7;
    for (const double rise : {0.0, 0.99e-10, 1.01e-10})
        EXPECT_EQ(FACET_line_int_plane(Vector{0, 0, 0}.data(), Vector{1, 0, rise}.data(), z.data(),
                                       0, point.data(), &t),
                  rise < 1e-10);
    EXPECT_EQ(t, 0);
    EXPECT_EQ(FACET_point_plane_proj(z.data(), Vector{0, 0, 0.99e-5}.data(), 7, point.data()), 1);
    EXPECT_EQ(point[2], 0);
    FACET_ask_point_on_plane(Vector{0, 0, 1e-10}.data(), 7, point.data());
    EXPECT_EQ(length(point), 0);
}

TEST(ShepardsWeights, FallWithThePowerOfTheDistance) {
    Random random;
    for (const double power : {1.0, 2.0, 0.5, -1.0}) {
        std::array<double, 9> distances, weights;
        long double sum = 0;
        for (double& distance : distances) {
            distance = random.uniform(0.1, 5);
            sum += std::pow(static_cast<long double>(distance), -power);
        }
        FACET_shepards_weights(9, distances.data(), 0.01, power, weights.data());
        for (std::size_t i = 0; i < 9; ++i)
            EXPECT_NEAR(
                weights[i],
                static_cast<double>(std::pow(static_cast<long double>(distances[i]), -power) / sum),
                1e-15);
    }
    std::array<double, 4> weights;
    FACET_shepards_weights(4, std::array{1.0, 0.0, 1e-9, 2.0}.data(), 1e-9, 1, weights.data());
    EXPECT_EQ(weights, (std::array{0.0, 0.0, 1.0, 0.0}));
}

/// A facet with the given corners whose first has the identifier 5.
FACET_facet_t facet(const Vector& p, const Vector& q, const Vector& r) {
    FACET_facet_t f{{}, {5, 6, 7}, {}};
    const Vector across = cross(difference(q, p), difference(r, p));
    std::copy_n(p.data(), 3, f.vertices[0]);
    std::copy_n(q.data(), 3, f.vertices[1]);
    std::copy_n(r.data(), 3, f.vertices[2]);
    std::copy_n(scaled(across, 1 / length(across)).data(), 3, f.normal);
    return f;
}

double area(const FACET_facet_t& f) {
    return FACET_ask_triangle_area(f.vertices[0], f.vertices[1], f.vertices[2]);
}

Vector vertex_normal(const std::vector<FACET_facet_t>& facets, int weight_type, double tolerance,
                     double least_angle = 0, int given = 1) {
    Vector normal = {7, 7, 7};
    FACET_interp_normal_at_vertex(given, 5, static_cast<int>(facets.size()), facets.data(),
                                  weight_type, std::array{tolerance, least_angle}.data(),
                                  normal.data());
    return normal;
}

TEST(VertexNormal, IsWeightedByAreasOrOuterAngles) {
    const NoBlocksLeft no_blocks_left;
    Random random;
    for (const int count : {1, 3, 40}) {
        std::vector<FACET_facet_t> facets;
        Vector by_area = {0, 0, 0}, by_angle = {0, 0, 0};
        for (int i = 0; i < count; ++i) {
            const Vector p = random.vector(), u = random.vector(), v = random.vector();
            facets.push_back(facet(p, moved(p, 1, u), moved(p, 1, v)));
            std::rotate(facets[i].ids, facets[i].ids + i % 3, facets[i].ids + 3);
            double* const corners = facets[i].vertices[0];
            std::rotate(corners, corners + 3 * (i % 3), corners + 9);
            EXPECT_NEAR(area(facets[i]), length(cross(u, v)) / 2, 1e-12);
            const Vector normal = scaled(cross(u, v), 1 / length(cross(u, v)));
            by_area = moved(by_area, length(cross(u, v)), normal);
            const double inner = 180 / M_PI * std::acos(dot(u, v) / length(u) / length(v));
            by_angle = moved(by_angle, std::fmax(360 - inner, 300), normal);
        }
        EXPECT_LE(distance(vertex_normal(facets, 0, 1e-6), scaled(by_area, 1 / length(by_area))),
                  1e-11);
        EXPECT_LE(
            distance(vertex_normal(facets, 1, 1e-6, 300), scaled(by_angle, 1 / length(by_angle))),
            1e-11);
    }
}

TEST(VertexNormal, ReportsWhatItCannotWeigh) {
    const auto said = [](const char* text) { return internal("facet_util_math", text); };
    ReportRecorder recorder;
    const Vector z = {0, 0, 1};
    const FACET_facet_t good = facet({0, 0, 0}, {1, 0, 0}, {0, 1, 0});
    FACET_facet_t flat = facet({0, 0, 0}, {0, 2, 0}, {0, 0, 1});
    std::copy_n(flat.vertices[1], 3, flat.vertices[2]);
    EXPECT_EQ(area(flat), 0);
    EXPECT_EQ(vertex_normal({flat, good}, 0, 1e-3), z);
    EXPECT_EQ(vertex_normal({flat}, 0, 1e-3), (Vector{0, 0, 0}));
    EXPECT_EQ(recorder.take(), Reports(2, said("Zero area facet occurred.")));
    EXPECT_EQ(vertex_normal({good}, 0, 1.01), z);  // small: reported and weighed
    EXPECT_EQ(recorder.take(), Reports{said("Zero area facet occurred.")});

    FACET_facet_t elsewhere = flat;
    elsewhere.ids[0] = 8;
    EXPECT_EQ(vertex_normal({elsewhere, good}, 1, 1e-3, 0, 0), z);
    EXPECT_EQ(recorder.take(), (Reports{said("The common vertex is not input as expected."),
                                        said("The facet is not incident at the given vertex.")}));
    EXPECT_EQ(vertex_normal({good, good}, 2, 1e-3), (Vector{0, 0, 0}));
    EXPECT_EQ(recorder.take(),
              Reports(2, said("The requested type of weights is not recognizable.")));

    // Areas whose reciprocal is within half the squared tolerance decide alone, the last of them.
    const FACET_facet_t large = facet({0, 0, 0}, {0, 4, 0}, {0, 0, 4});
    EXPECT_EQ(vertex_normal({large, facet({0, 0, 0}, {3, 0, 0}, {0, 0, 2})}, 0, 0.6),
              (Vector{1, 0, 0}));
    EXPECT_EQ(recorder.take(), Reports{});
}

}  // namespace
