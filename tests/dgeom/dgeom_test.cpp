// Differential geometry, against curves and surfaces whose properties are known in closed form.
#include "ztmath/dgeom.h"

#include "support/support.h"

namespace {

using namespace ztmath_test;

// (t, t^2, s t^3), s being 1 or -1: speed, curvature and torsion change along it.
TEST(CurveProperties, OfTwistedCubics) {
    const auto expect_same = [](const Vector& a, const Vector& b) {
        EXPECT_LE(distance(a, b), 1e-12 * std::fmax(1, length(b)));
    };
    Random random;
    for (int round = 0; round < rounds(200); ++round) {
        const int s = round % 2 == 0 ? 1 : -1;
        const double t = random.uniform(-1.5, 1.5), t2 = t * t;
        const double p = 9 * t2 * t2 + 4 * t2 + 1, q = 9 * t2 * t2 + 9 * t2 + 1;
        const Vector d1 = {1, 2 * t, s * 3 * t2}, d2 = {0, 2, s * 6 * t}, d3 = {0, 0, s * 6.0};
        const double curvature = 2 * std::sqrt(q) / std::pow(p, 1.5), torsion = s * 3 / q;
        // The curvature vector is w / p^2 with w = d1 x d2 x d1.
        const Vector w = cross(cross(d1, d2), d1), normal = unit_of(w);
        const Vector w_t = moved(cross(cross(d1, d3), d1), 1, cross(cross(d1, d2), d2));
        const Vector k_t = moved(scaled(w_t, 1 / (p * p)), -2 * (36 * t2 + 8) * t / (p * p * p), w);
        Vector k, out;
        EXPECT_NEAR(called(DGEOM_crv_curvature, d1, d2, k.data()), curvature, 1e-12);
        expect_same(k, scaled(normal, curvature));
        expect_same(written(DGEOM_crv_curvature_variation, d1, d2, d3),
                    scaled(k_t, 1 / length(d1)));
        std::array<Vector, 4> f;
        called(DGEOM_crv_diff_property, d1, d2, d3, 1, f[0].data());
        expect_same(f[0], unit_of(d1));
        expect_same(f[1], cross(f[0], normal));
        expect_same(f[2], normal);
        expect_same(f[3], {curvature, torsion, f[3][2]});
        EXPECT_NEAR(called(DGEOM_crv_torsion, d1, d2, d3, out.data()), torsion, 1e-12);
        expect_same(out, scaled(normal, -torsion));
        const Vector radius = built<Vector, 0>(true, DGEOM_convert_crvatr_to_radius, k);
        expect_same(radius, scaled(normal, 1 / curvature));
        expect_same(built<Vector, 0>(true, DGEOM_convert_radius_to_crvatr, radius), k);
        expect_same(
            written(DGEOM_crv_curvature, d1, written(DGEOM_convert_crvatr_to_deriv2, d1, k)), k);
    }
}

TEST(CurveProperties, OfDegenerateCurvesAreZero) {
    // How long d1 is, along x, and d2, along y; whether it moves, has a torsion, has a frame.
    const std::tuple<double, double, bool, bool, bool> rows[] = {
        {9.9e-11, 1, false, false, false}, {1e-10, 1, true, true, true},
        {1, 9.9e-11, true, false, false},  {1, 1e-10, true, true, true},
        {1e3, 9.9e-5, true, true, false},  {9.9e-6, 1e-5, true, false, false}};
    for (const auto& [speed, across, moving, has_torsion, has_frame] : rows) {
        SCOPED_TRACE(speed);
        const Vector d1 = {speed, 0, 0}, d2 = {0, across, 0}, d3 = {1, 2, 3};
        Vector out;
        EXPECT_EQ(called(DGEOM_crv_curvature, d1, d2, out.data()) != 0, moving);
        EXPECT_EQ(written(DGEOM_crv_curvature_variation, d1, d2, d3)[2] != 0, moving);
        EXPECT_EQ(called(DGEOM_crv_torsion, d1, d2, d3, out.data()) != 0, has_torsion);
        // Torsion is wanted by the value 1 alone.
        const auto f = written<std::array<double, 11>>(DGEOM_crv_diff_property, d1, d2, d3, 2);
        EXPECT_EQ((std::array{f[0] != 0, f[5] != 0, f[7] != 0, f[9] != 0, f[10] != 0}),
                  (std::array{moving, has_frame, has_frame, has_frame, false}));
    }
    double out[3] = {7, 7, 7};
    for (const auto convert : {DGEOM_convert_crvatr_to_radius, DGEOM_convert_radius_to_crvatr})
        for (const double length : {9.9e-20, 1e-19})
            EXPECT_EQ(convert(Vector{0, length, 0}.data(), out), length < 1e-19);
}

/// A point of a surface: its derivatives and its principal curvatures, positive where it bends away
/// from u x v.
struct SurfacePoint {
    Vector u, v, uu, uv, vv;
    double first, second;
};

/// Of a ring of radius `ring` with a tube of radius r; a sphere if the ring is 0.
SurfacePoint torus(double ring, double r, double u, double v) {
    const double cu = std::cos(u), su = std::sin(u), cv = std::cos(v), sv = std::sin(v);
    const double w = ring + r * cv;
    return {{-w * su, w * cu, 0},
            {-r * sv * cu, -r * sv * su, r * cv},
            {-w * cu, -w * su, 0},
            {r * sv * su, -r * sv * cu, 0},
            {-r * cv * cu, -r * cv * su, -r * sv},
            std::fmin(cv / w, 1 / r),
            std::fmax(cv / w, 1 / r)};
}

/// z = x y
SurfacePoint saddle(double x, double y) {
    const double g = 1 + x * x + y * y, mean = x * y / std::pow(g, 1.5);
    const double w = std::sqrt(mean * mean + 1 / (g * g));
    return {{1, 0, y}, {0, 1, x}, {0, 0, 0}, {0, 0, 1}, {0, 0, 0}, mean - w, mean + w};
}

double normal_curvature(const SurfacePoint& p, const Vector& normal, const Vector& tangent) {
    return built<std::array<double, 1>, 0>(true, DGEOM_srf_normal_curvature, p.u, p.v, p.uu, p.uv,
                                           p.vv, normal, tangent)[0];
}

using Curvatures = std::array<double, 7>;

Curvatures curvatures(const SurfacePoint& p, int principal_wanted, bool done = true) {
    return built<Curvatures, 0>(done, DGEOM_srf_curvatures, p.u, p.v, p.uu, p.uv, p.vv,
                                principal_wanted);
}

TEST(SurfaceCurvatures, OfSpheresToriAndSaddles) {
    Random random;
    for (int round = 0; round < rounds(50); ++round) {
        const double u = random.uniform(-3, 3), v = random.uniform(-1.2, 1.2);
        for (const SurfacePoint& p : {torus(0, 2, u, v), torus(3, 0.5, u, v), saddle(u, v)}) {
            const Vector normal = unit_of(cross(p.u, p.v));
            const double first = p.first, second = p.second;
            const double along_u = -normal_curvature(p, normal, p.u);
            const double along_v = -normal_curvature(p, normal, p.v);
            const double mean_absolute = (std::fabs(first) + std::fabs(second)) / 2;
            const Curvatures c = curvatures(p, 1);
            EXPECT_LE(distance(c, {first * second, (first + second) / 2, first, second,
                                   mean_absolute, along_u, along_v}),
                      1e-12);
            // Two perpendicular directions share twice the mean (Euler, 1760); what they have along
            // the normal does not count.
            const Vector a = moved(moved(p.u, random.normal(), p.v), random.normal(), normal);
            const double across = normal_curvature(p, normal, cross(normal, a));
            EXPECT_NEAR(normal_curvature(p, normal, a) + across, -2 * c[1], 1e-12);
        }
    }
}

TEST(SurfaceCurvatures, OfDegeneratePointsAreNothing) {
    SurfacePoint p = torus(3, 1, 0, 0);
    const Curvatures without_principal = curvatures(p, 0);
    EXPECT_NE(without_principal[1], 7);
    EXPECT_EQ(without_principal[2], 7);
    for (const Vector& normal : {Vector{1, 0, 0}, {0, 0, 1}})  // the tangent has no direction
        EXPECT_EQ(normal_curvature(p, normal, {3, 0, 0}), 0);
    EXPECT_NE(normal_curvature(p, {1, 0, 0}, {0, 1, 0}), 0);
    // The square of the area is to be 1e-10; that of the last is.
    const double exact = 9.999999999999999e-06, rest = 1.393e-13;
    for (const auto& [side, aside] : {std::array{9.9e-6, 0.0}, {exact, rest}}) {
        p.u = {aside, side, 0};
        const bool is_small = side == 9.9e-6;
        curvatures(p, 1, !is_small);
        EXPECT_EQ(normal_curvature(p, {1, 0, 0}, p.u) == 0, is_small);
    }
    const SurfacePoint bowl{{1, 0, 0}, {0, 1, 0}, {0, 0, exact}, {0, 0, rest}, {0, 0, -exact},
                            0,         0};
    const Curvatures c = curvatures(bowl, 1);
    EXPECT_EQ(c[3] - c[2], 0);  // 1e-10 below the squared mean is not apart
    const SurfacePoint plane{{1, 0, 0}, {1, 2, 0}, {}, {}, {}, 0, 0};
    EXPECT_EQ(curvatures(plane, -1), Curvatures{});
}

}  // namespace
