// Facet utilities, all but the triangles of polygons.
#include "support/support.h"
#include "ztmath/facet.h"

namespace {

using namespace ztmath_test;

Vector difference(const Vector& a, const Vector& b) {
    return moved(a, -1, b);
}

TEST(FacetLinesAndPlanes, MeetWhereTheyAreClosest) {
    Random random;
    for (int round = 0; round < rounds(100); ++round) {
        const Vector a = random.vector(), u = random.vector(), b = random.vector(),
                     v = random.vector(), n = random_unit(random), m = random_unit(random);
        const double d = random.normal(), e = random.normal(), tolerance = 1e-10;
        double s, t;
        Vector p, q, direction;
        called(FACET_line_line_closest_point, a, u, b, v, &s, &t);
        const Vector gap = difference(moved(b, t, v), written(FACET_point_on_param_line, a, u, s));
        EXPECT_NEAR(dot(gap, u) + dot(gap, v), 0, tolerance);
        EXPECT_NEAR(called(FACET_line_line_dist, a, u, b, v),
                    dot(gap, cross(u, v)) / length(cross(u, v)), tolerance);

        FACET_point_line_proj(b.data(), a.data(), u.data(), 0, p.data(), &t);
        EXPECT_LE(distance(p, moved(a, t, u)), 1e-14);
        EXPECT_NEAR(dot(difference(b, p), u), 0, 1e-13);
        EXPECT_NEAR(called(FACET_line_point_dist, a, moved(a, 1, u), b), length(difference(b, p)),
                    1e-13);
        EXPECT_NEAR(std::cos(called(FACET_compute_undirected_angle, u, v)),
                    dot(u, v) / length(u) / length(v), 1e-14);

        ASSERT_EQ(FACET_line_int_plane(a.data(), b.data(), n.data(), d, p.data(), &t), 0);
        EXPECT_LE(distance(p, moved(a, t, difference(b, a))), 1e-12 * (1 + std::fabs(t)));
        EXPECT_NEAR(called(FACET_point_plane_dist, p, n, d), 0, 1e-12 * (1 + std::fabs(t)));
        ASSERT_EQ(FACET_point_plane_proj(a.data(), n.data(), d, q.data()), 0);
        EXPECT_LE(distance(q, moved(a, -dot(n, a) - d, n)), 1e-14);
        EXPECT_LE(distance(written(FACET_ask_point_on_plane, scaled(n, 3), d), scaled(n, -d)),
                  1e-14);
        ASSERT_EQ(FACET_plane_plane_int(n.data(), d, m.data(), e, p.data(), direction.data()), 2);
        EXPECT_LE(distance(direction, cross(n, m)), 1e-15);
        EXPECT_NEAR(dot(n, p) + d, 0, 1e-12 / dot(direction, direction));
        EXPECT_NEAR(dot(m, p) + e, 0, 1e-12 / dot(direction, direction));
    }
}

TEST(FacetLinesAndPlanes, ParallelOrWithoutDirection) {
    const Vector a = {1, 0, 0}, b = {3, 1, 0}, none = {0, 0, 0}, z = {0, 0, 1};
    const double parallels[][4] = {
        {1, 1, 0, -2},          {1, 2, 0, -4.0 / 16},  // by the square of the squared length
        {2, 9e-4, 4.0 / 16, 0}, {1e-3, 9e-4, 0, 0},
        {2, 1e-3, 4.0 / 16, 0}, {2, 1.1e-3, 0, -2.2e-3 / (1.21e-6 * 1.21e-6)}};
    double s, t;
    Vector p, direction;
    for (const auto& [u, v, at_u, at_v] : parallels) {
        called(FACET_line_line_closest_point, a, Vector{u, 0, 0}, b, Vector{v, 0, 0}, &s, &t);
        EXPECT_DOUBLE_EQ(s, at_u);
        EXPECT_DOUBLE_EQ(t, at_v);
    }
    for (const double part : {0.99, 1.0, 1.01}) {
        const Vector short_v = {0, part * 6e-6, part * 8e-6}, near_a = {1, part * 1e-6, 0};
        called(FACET_line_line_closest_point, a, a, b, short_v, &s, &t);
        EXPECT_EQ(t == 0, part <= 1);
        EXPECT_EQ(called(FACET_line_line_dist, a, a, b, near_a) == 0, part >= 1);
    }
    EXPECT_EQ(called(FACET_line_line_dist, a, a, b, Vector{-2, 0, 0}), 1);
    EXPECT_EQ(called(FACET_line_point_dist, a, Vector{1 + 9e-6, 0, 0}, b), std::sqrt(5.0));
    FACET_point_line_proj(b.data(), a.data(), Vector{2, 0, 0}.data(), 1, p.data(), &t);
    EXPECT_EQ(t, 4);
    FACET_point_line_proj(b.data(), a.data(), none.data(), 0, p.data(), &t);
    EXPECT_EQ(t, 0);
    for (const auto& [unitize, length, expected] :
         {std::array{1.0, 5.0, 1.0}, {2, 5, 5}, {1, 1e-6, 1e-6}, {1, 1.1e-5, 1}}) {
        const auto line = written<std::array<double, 6>>(
            FACET_points_to_param_line, a, Vector{1, length, 0}, static_cast<int>(unitize));
        EXPECT_EQ(line[4], expected);
    }
    const std::tuple<Vector, double, int> planes[] = {
        {z, 5 + 0.9e-10, 0}, {z, 5 + 1.1e-10, 1},     {{0, 0, -1}, -5, 0},
        {{0, 0, -1}, 5, 1},  {{0, 0.99e-5, 1}, 6, 1}, {{0, 1.01e-5, 1}, 6, 2}};
    for (const auto& [normal, d, relation] : planes) {
        p = {7, 7, 7};
        EXPECT_EQ(called(FACET_plane_plane_int, z, 5, normal, d, p.data(), direction.data()),
                  relation);
        EXPECT_EQ(p[0] == 7, relation != 2);
        EXPECT_EQ(direction[0], -normal[1]);
    }
    for (const double rise : {0.99e-10, 1e-10}) {
        const Vector end = {1, 0, rise};
        EXPECT_EQ(called(FACET_line_int_plane, none, end, z, 1, p.data(), &t), rise < 1e-10);
    }
    EXPECT_EQ(FACET_point_plane_proj(z.data(), Vector{0, 0, 0.99e-5}.data(), 7, p.data()), 1);
}

TEST(ShepardsWeights, FallWithThePowerOfTheDistance) {
    const std::array distances = {2.0, 0.5, 1e-9, 3.0};
    std::array<double, 4> weights;
    for (const double power : {1.0, 2.5}) {
        FACET_shepards_weights(4, distances.data(), 0.9e-9, power, weights.data());
        EXPECT_NEAR(weights[0] + weights[1] + weights[2] + weights[3], 1, 1e-15);
        EXPECT_NEAR(weights[0] / weights[1], std::pow(0.25, power), 1e-15);
        EXPECT_NEAR(weights[3] / weights[2], std::pow(1e-9 / 3, power), 1e-24);
    }
    weights[0] = 0;
    FACET_shepards_weights(1, distances.data() + 3, 0, 1, weights.data());
    EXPECT_EQ(weights[0], 1);
    FACET_shepards_weights(4, distances.data(), 2, 1, weights.data());  // the last within eps
    EXPECT_EQ(weights, (std::array{0.0, 0.0, 1.0, 0.0}));
}

/// A facet whose corner p has the identifier 5 and stands at a place of its own.
FACET_facet_t facet(const Vector& p, const Vector& u, const Vector& v, int at = 0) {
    FACET_facet_t f{{}, {6, 6, 6}, {}};
    const Vector corners[] = {p, moved(p, 1, u), moved(p, 1, v)};
    for (int i = 0; i < 3; ++i)
        std::copy_n(corners[i].data(), 3, f.vertices[(at + i) % 3]);
    f.ids[at] = 5;
    std::copy_n(scaled(cross(u, v), 1 / std::fmax(length(cross(u, v)), 1e-9)).data(), 3, f.normal);
    return f;
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
    ReportRecorder recorder;
    Random random;
    for (const int count : {1, 3, 40}) {
        std::vector<FACET_facet_t> facets;
        Vector by_area = {0, 0, 0}, by_angle = {0, 0, 0};
        for (int i = 0; i < count; ++i) {
            const Vector u = random.vector(), v = random.vector();
            const FACET_facet_t f = facet(random.vector(), u, v, i % 3);
            facets.push_back(f);
            const double area =
                FACET_ask_triangle_area(f.vertices[0], f.vertices[1], f.vertices[2]);
            EXPECT_NEAR(area, length(cross(u, v)) / 2, 1e-12);
            const double outer = 360 - 180 / M_PI * std::acos(dot(u, v) / length(u) / length(v));
            by_area = moved(by_area, 1, cross(u, v));
            by_angle =
                moved(by_angle, std::fmax(outer, 300), {f.normal[0], f.normal[1], f.normal[2]});
        }
        EXPECT_LE(distance(vertex_normal(facets, 0, 1e-6), scaled(by_area, 1 / length(by_area))),
                  1e-11);
        EXPECT_LE(
            distance(vertex_normal(facets, 1, 1e-6, 300), scaled(by_angle, 1 / length(by_angle))),
            1e-11);
    }
    EXPECT_EQ(recorder.take(), Reports{});
}

TEST(VertexNormal, ReportsWhatItCannotWeigh) {
    const auto said = [](const char* text) { return internal("facet_util_math", text); };
    const Report flat_said = said("Zero area facet occurred."),
                 type_said = said("The requested type of weights is not recognizable.");
    const Vector x = {1, 0, 0}, y = {0, 1, 0}, z = {0, 0, 1}, none = {0, 0, 0};
    const FACET_facet_t good = facet(none, x, y), flat = facet(none, y, y),
                        wide = facet(none, scaled(y, 4), scaled(z, 4));
    FACET_facet_t elsewhere = flat;
    elsewhere.ids[0] = 8;
    const Report not_given_said = said("The common vertex is not input as expected."),
                 elsewhere_said = said("The facet is not incident at the given vertex.");
    const std::tuple<int, int, double, Vector, std::vector<FACET_facet_t>, Reports> cases[] = {
        {0, 1, 1e-3, z, {flat, good}, {flat_said}},
        {0, 1, 1e-3, none, {flat}, {flat_said}},
        {0, 1, 0, z, {flat, good}, {}},
        {0, 1, 1.01, z, {good}, {flat_said}},  // small: reported, and weighed
        {1, 0, 1e-3, z, {elsewhere, good}, {not_given_said, elsewhere_said}},
        {2, 1, 1e-3, none, {good, good}, {type_said, type_said}},
        // An area whose reciprocal is within half the squared tolerance decides alone.
        {0, 1, 0.6, x, {wide, facet(none, scaled(x, 3), scaled(z, 2))}, {}},
    };
    for (const auto& [weight_type, given, tolerance, normal, facets, reports] : cases) {
        ReportRecorder recorder;
        EXPECT_EQ(vertex_normal(facets, weight_type, tolerance, 0, given), normal);
        EXPECT_EQ(recorder.take(), reports);
    }
}

}  // namespace
