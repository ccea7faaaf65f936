// Circles as points of space, planes, projections, rotations and maps from vectors.
#include "ztmath/arc_spline_planes.h"

#include "support/segments.h"
#include "support/support.h"

namespace {

using namespace ztmath_test;

using Plane = ARC_SPLINE_monge_plane_t;
using Transform = std::array<double, 16>;
constexpr Tolerances wide = {0.25, 0.01, NAN};

Vector times(const Matrix& m, const Vector& v) {
    return {dot(row(m, 0), v), dot(row(m, 1), v), dot(row(m, 2), v)};
}

Vector image(const Transform& m, const Vector& p) {
    Vector r;
    for (std::size_t i = 0; i < 3; ++i)
        r[i] = m[4 * i] * p[0] + m[4 * i + 1] * p[1] + m[4 * i + 2] * p[2] + m[4 * i + 3];
    return r;
}

Vector normal_of(const Plane& plane) {
    return {plane.normal[0], plane.normal[1], plane.normal[2]};
}

double value(const Plane& plane, const Vector& p) {
    return dot(normal_of(plane), p) + plane.offset;
}

/// What a construction wrote; what it left alone is 7, or 9.
struct Common {
    Vector point{7, 7, 7}, along{7, 7, 7};
    double parm = 7;
    int status = 9;
};

Common common_line(const Plane& a, const Plane& b) {
    Common c;
    called(ARC_SPLINE_inter_2_monge_planes, &a, &b, wide, c.point, c.along, &c.status);
    return c;
}

/// Of the plane through q.
Common hit(const Vector& p, const Vector& q, const Vector& n, const Vector& v,
           const Tolerances& within = wide) {
    Common c;
    called(ARC_SPLINE_proj_pt_along_vec_on_plane, p, q, n, v, within, c.point, &c.parm, &c.status);
    return c;
}

/// A matrix and the status behind it.
template <class M = Matrix, class Function, class... Vectors>
std::pair<M, int> map_by(Function function, const Vectors&... vectors) {
    std::pair<M, int> map{{}, 9};
    called(function, vectors..., map.first, &map.second);
    return map;
}

TEST(CirclePoint, ComesBackAsTheCircleDownToItsPoint) {
    const std::pair<Vector, double> cases[] = {{{3, 4, 0}, 5},
                                               {{1, 1, 2}, 0},
                                               {{1, 0, 0.75}, 0.5},
                                               {{0, 0, 1e-20}, 0},
                                               {{0, 0, 1.1e-20}, -7}};
    for (const auto& [p, radius] : cases) {
        unsigned char valid = 9;
        Segment circle{};
        circle.radius = -7;
        called(ARC_SPLINE_convert_3d_pt_to_circle_2d, p, &valid, &circle);
        EXPECT_EQ(valid, radius < 0 ? 0 : 1) << p[2];
        EXPECT_EQ(circle.radius, radius) << p[2];
        EXPECT_EQ(circle.center[0], valid * p[0]);
    }
    EXPECT_EQ(written(ARC_SPLINE_convert_circle_to_3d_pt, Pair{3, 4}, 5.0), (Vector{3, 4, 0}));
}

TEST(PolarPlane, HoldsTheCirclesThatCutItAtRightAngles) {
    Random random;
    Vector nearest, normal;
    for (int i = 0; i < rounds(200); ++i) {
        const Pair c1 = random.vector<2>(), c2 = random.vector<2>(), way = moved(c1, -1, c2);
        const double r1 = random.uniform(0.1, 2), squared = dot(way, way) - r1 * r1;
        Plane plane, unit;
        called(ARC_SPLINE_ask_polar_plane_of_circle, c1, r1, &plane);
        EXPECT_TRUE(plane.normalised == 0 && plane.normal[2] == -1);
        // Normalised, a copy is the same plane, with the same nearest point of the origin.
        ARC_SPLINE_copy_monge_plane(&plane, &unit);
        ARC_SPLINE_normalize_monge_plane(&unit);
        EXPECT_EQ(unit.normalised, 1);
        for (const Plane& one : {plane, unit}) {
            EXPECT_NEAR(value(one, {c2[0], c2[1], dot(c2, c2) - squared}), 0, 1e-13);
            called(ARC_SPLINE_ask_pt_and_normal_of_monge_plane, &one, nearest, normal);
            EXPECT_NEAR(length(normal), 1, 1e-15);
            EXPECT_NEAR(value(plane, nearest), 0, 1e-13);
            EXPECT_NEAR(length(cross(nearest, normal)), 0, 1e-15);
        }
    }
    const Plane trusted{{0, 0, -4}, 1, 1};  // for its flag alone
    called(ARC_SPLINE_ask_pt_and_normal_of_monge_plane, &trusted, nearest, normal);
    EXPECT_EQ(nearest, (Vector{0, 0, 4}));
}

TEST(CommonLine, LiesOnBothPlanesNearestTheOrigin) {
    Random random;
    for (int i = 0; i < rounds(200); ++i) {
        Plane a{{}, random.normal(), 0}, b{{}, random.normal(), 0};
        std::ranges::copy(random.vector(), a.normal);
        std::ranges::copy(random.vector(), b.normal);
        const auto [point, along, parm, status] = common_line(a, b);
        ASSERT_EQ(status, 0);
        const double scale = 1e-13 * (1 + length(point));
        EXPECT_NEAR(value(a, moved(point, 3, along)), 0, scale);
        EXPECT_NEAR(value(b, moved(point, 3, along)), 0, scale);
        EXPECT_NEAR(dot(point, along), 0, scale);
        EXPECT_GT(dot(along, cross(normal_of(a), normal_of(b))), 0);
    }
}

TEST(CommonLine, OfParallelPlanesIsNone) {
    const Plane level{{0, 0, 2}, -2, 0};
    const double tilt = 0.01 * std::acos(-1.0) / 180;
    const std::pair<Plane, int> cases[] = {{{{0, 0, 1}, -1.25, 0}, 2},
                                           {{{0, 0, -1}, 1.2501, 0}, 1},
                                           {{{0.99 * tilt, 0, 1}, -3, 0}, 1},
                                           {{{1.01 * tilt, 0, 1}, -3, 0}, 0}};
    for (const auto& [other, status] : cases) {
        const Common found = common_line(level, other);
        EXPECT_EQ(found.status, status) << other.normal[0] << ' ' << other.offset;
        EXPECT_TRUE(status == 0 || (found.point == Vector{} && found.along == Vector{}));
    }
    const Vector p1{7, 1, 1}, n1{0, 0, 1}, p2{3, 5, 4}, n2{0.6, 0, 0.8};
    for (const double sine : {0.6, 0.59}) {  // of planes given by points and normals
        Common c;
        called(h634_, p1, n1, p2, n2, &sine, wide, c.point, c.along, &c.status);
        EXPECT_EQ(c.status, sine < 0.6 ? 0 : 1);
        EXPECT_LT(distance(c.point, {sine < 0.6 ? 7 : 0.0, 0, sine < 0.6 ? 1 : 0.0}), 1e-14);
    }
}

TEST(CommonPoint, OfThreePlanesIsNotLookedFor) {
    const Plane x{{1, 0, 0}, -1, 0}, z{{0, 0, 1}, -3, 0};
    const auto statuses = [](const Plane& a, const Plane& b, const Plane& c) {
        Vector point{7, 7, 7};
        std::array<int, 3> s;
        called(ARC_SPLINE_inter_3_monge_planes, &a, &b, &c, wide, point, &s[0], &s[1], &s[2]);
        EXPECT_EQ(point, Vector{});
        return s;
    };
    EXPECT_EQ(statuses(x, {{1, 0.1, 0}, -1, 0}, z), (std::array{0, 0, 0}));
    EXPECT_EQ(statuses(x, x, z), (std::array{2, 0, 0}));
    EXPECT_EQ(statuses(z, x, x), (std::array{0, 2, 0}));
    EXPECT_EQ(statuses(x, z, x), (std::array{0, 0, 2}));
}

TEST(Projection, LandsOnThePlane) {
    Random random;
    for (int i = 0; i < rounds(100); ++i) {
        const Vector n = random_unit(random), q = random.vector(), p = random.vector();
        const Vector foot = written(ARC_SPLINE_proj_pt_to_pln, n, q, p);
        EXPECT_NEAR(dot(moved(foot, -1, q), n), 0, 1e-14);
        EXPECT_NEAR(length(cross(moved(p, -1, foot), n)), 0, 1e-14);
        Vector adjusted = p, unit = p;
        called(ARC_SPLINE_adjust_pt_on_pln, n, q, adjusted);
        EXPECT_EQ(adjusted, foot);
        const Vector part = written(ARC_SPLINE_proj_vec_to_pln, n, p);
        EXPECT_NEAR(dot(part, n), 0, 1e-14);
        EXPECT_EQ(called(ARC_SPLINE_adjust_vec_on_pln, 1, n, unit), 1);
        EXPECT_LT(distance(scaled(unit, length(part)), part), 1e-14);

        const Vector v = random.vector();
        const auto [point, along, t, status] = hit(p, q, n, v);
        ASSERT_EQ(status, 0);
        EXPECT_NEAR(dot(moved(point, -1, q), n), 0, 1e-13 * (1 + std::fabs(t)));
        EXPECT_LT(distance(point, moved(p, t, v)), 1e-14 * (1 + std::fabs(t)));
    }
}

TEST(Projection, AlongADirectionInThePlane) {
    const Vector o{0, 0, 0}, n{0, 0, 1};
    const double rise = std::sin(0.01 * std::acos(-1.0) / 180);
    const double cases[][3] = {
        {0.25, 0, -1}, {0.2501, 0, 1}, {0.5, 0.99 * rise, 1}, {0.5, 1.01 * rise, 0}};
    for (const auto& [height, slope, expected] : cases) {
        const Vector p{1, 2, height};
        const auto [point, along, t, status] = hit(p, o, n, {1, 0, slope});
        EXPECT_EQ(status, expected) << height << ' ' << slope;
        EXPECT_TRUE(status != 1 || (point == Vector{7, 7, 7} && t == 7));
        EXPECT_TRUE(status != -1 || (point == p && t == 0));
    }
    EXPECT_EQ(hit(n, o, n, n, {0.25, 90}).status, 1);
    Vector normal = n;
    EXPECT_EQ(called(ARC_SPLINE_adjust_vec_on_pln, 1, n, normal), 0);
}

TEST(TransformsOfVectors, ReflectMoveAndCombine) {
    Random random;
    const Vector q = random.vector(), n = random.vector(), v = random.vector(), p = random.vector();
    const auto [mirror, status] =
        map_by<Transform>(ARC_SPLINE_ask_householder_transformation, q, n);
    EXPECT_EQ(status, 0);
    const Vector reflected = moved(p, -2 * dot(moved(p, -1, q), n) / dot(n, n), n);
    EXPECT_LT(distance(image(mirror, p), reflected), 1e-14);

    const Transform move = written<Transform>(ARC_SPLINE_ask_translation_matrix, v);
    EXPECT_EQ(image(move, p), moved(p, 1, v));
    Transform both = written<Transform>(ARC_SPLINE_combine_translation_matrix, v, mirror);
    EXPECT_LT(distance(image(both, p), moved(reflected, 1, v)), 1e-14);
    const Matrix r = random_rotation(random);
    both = written<Transform>(ARC_SPLINE_combine_rotation_translation, r, v);
    EXPECT_LT(distance(image(both, p), moved(times(r, p), 1, v)), 1e-14);
    EXPECT_EQ(both[15], 1);
}

constexpr auto pairs = ARC_SPLINE_cre_mtx3_from_2_vecs_to_2_vecs;
constexpr auto triples = ARC_SPLINE_cre_mtx3_from_3_vecs_to_3_vecs;

TEST(MapsOfVectors, TakeOneTwoAndThreeToTheirImages) {
    Random random;
    for (int i = 0; i < rounds(200); ++i) {
        const Vector from = random_unit(random);
        // Opposite, from opposite within 1e-9 to anywhere.
        const double near = i % 8 == 0 ? 0 : std::pow(10, random.uniform(-9, 1));
        const Vector to = moved(scaled(from, -1), near, random.vector());
        const auto [turn, done] = map_by(ARC_SPLINE_ask_householder_rotation, scaled(from, 3), to);
        ASSERT_EQ(done, 0);
        EXPECT_LT(rotation_defect(turn), 1e-14);
        EXPECT_LT(distance(times(turn, from), unit_of(to)), 1e-15 * 8);
        // The smallest angle is that of the directions.
        EXPECT_NEAR(turn[0] + turn[4] + turn[8], 1 + 2 * dot(from, to) / length(to), 1e-14);

        Vector a[3], b[3];
        for (std::size_t k = 0; k < 3; ++k)
            a[k] = random.vector(), b[k] = random.vector();
        const Matrix map = map_by(triples, a[0], a[1], a[2], b[0], b[1], b[2]).first;
        for (std::size_t k = 0; k < 3; ++k)
            EXPECT_LT(distance(times(map, a[k]), b[k]), 1e-10);
        // Nearly parallel pairs too.
        const double off = length(a[0]) * std::pow(10, random.uniform(-9, 0));
        a[1] = moved(scaled(a[0], 2), off, unit_of(cross(a[0], a[1])));
        const auto [r, status] = map_by(pairs, a[0], a[1], b[0], b[1]);
        ASSERT_EQ(status, 0);
        EXPECT_LT(rotation_defect(r), 1e-14);
        EXPECT_LT(distance(times(r, unit_of(a[0])), unit_of(b[0])), 1e-14);
        const Vector second = times(r, a[1]);
        EXPECT_NEAR(dot(second, cross(b[0], b[1])), 0, 1e-13 * length(second) * length(b[1]) * 10);
    }
}

TEST(MapsOfVectors, OfNullOrParallelVectorsAreTheIdentity) {
    const Vector x{1, 0, 0}, y{0, 1, 0}, null{0, 0, 1e-10}, near{1, 0.9e-10, 0};
    const std::pair none(identity, 1);
    EXPECT_EQ(map_by(ARC_SPLINE_ask_householder_rotation, null, x), none);
    EXPECT_EQ(map_by(ARC_SPLINE_ask_householder_rotation, x, null), none);
    for (const Vector& bad : {null, x, near, scaled(near, -5)}) {
        EXPECT_EQ(map_by(pairs, x, bad, x, y), none);
        EXPECT_EQ(map_by(pairs, x, y, x, bad), none);
    }
    EXPECT_EQ(map_by(pairs, null, y, x, y), none);
    EXPECT_EQ(map_by(triples, x, y, x, x, y, null), none);
    const auto [m, status] = map_by<Transform>(ARC_SPLINE_ask_householder_transformation, x, null);
    EXPECT_EQ(status, 1);
    EXPECT_EQ(image(m, {3, 4, 5}), (Vector{3, 4, 5}));
}

}  // namespace
