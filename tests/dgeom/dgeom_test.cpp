// Differential geometry, against curves and surfaces whose properties are known in closed form.
#include "ztmath/dgeom.h"

#include "support/vectors.h"

namespace {

using namespace ztmath_test;

/// A point of a curve: its derivatives and what follows from them.
struct CurvePoint {
    Vector d1, d2, d3;
    double curvature, torsion;
    Vector normal;     // curvature vector over curvature
    Vector variation;  // of the curvature vector, by arc length
};

/// (t, t^2, s t^3), s being 1 or -1: speed, curvature and torsion change along it.
CurvePoint twisted_cubic(double t, int s) {
    const double t2 = t * t, p = 9 * t2 * t2 + 4 * t2 + 1, q = 9 * t2 * t2 + 9 * t2 + 1;
    const Vector d1 = {1, 2 * t, s * 3 * t2}, d2 = {0, 2, s * 6 * t}, d3 = {0, 0, s * 6.0};
    // The vector is w / p^2 with w = d1 x d2 x d1; its derivative by t is divided by |d1|.
    const Vector w = cross(cross(d1, d2), d1);
    const Vector w_t = moved(cross(cross(d1, d3), d1), 1, cross(cross(d1, d2), d2));
    const Vector k_t = moved(scaled(w_t, 1 / (p * p)), -2 * (36 * t2 + 8) * t / (p * p * p), w);
    return {d1,
            d2,
            d3,
            2 * std::sqrt(q) / std::pow(p, 1.5),
            s * 3 / q,
            scaled(w, 1 / length(w)),
            scaled(k_t, 1 / std::sqrt(p))};
}

void expect_properties(const CurvePoint& p) {
    constexpr double tolerance = 1e-12;
    const auto same = [](const Vector& a, const Vector& b) {
        EXPECT_LE(distance(a, b), tolerance * std::fmax(1, length(b)));
    };
    Vector k, out;
    std::array<Vector, 4> f;
    const double *d1 = p.d1.data(), *d2 = p.d2.data(), *d3 = p.d3.data();
    EXPECT_NEAR(DGEOM_crv_curvature(d1, d2, k.data()), p.curvature, tolerance);
    same(k, scaled(p.normal, p.curvature));
    DGEOM_crv_curvature_variation(d1, d2, d3, out.data());
    same(out, p.variation);
    DGEOM_crv_diff_property(d1, d2, d3, 1, f[0].data());
    same(f[0], scaled(p.d1, 1 / length(p.d1)));
    same(f[1], cross(f[0], p.normal));
    same(f[2], p.normal);
    same(f[3], {p.curvature, p.torsion, f[3][2]});
    EXPECT_NEAR(DGEOM_crv_torsion(d1, d2, d3, out.data()), p.torsion, tolerance);
    same(out, scaled(p.normal, -p.torsion));
    EXPECT_EQ(DGEOM_convert_crvatr_to_radius(k.data(), out.data()), 0);
    same(out, scaled(p.normal, 1 / p.curvature));
    EXPECT_EQ(DGEOM_convert_radius_to_crvatr(out.data(), out.data()), 0);
    same(out, k);
    DGEOM_convert_crvatr_to_deriv2(d1, k.data(), out.data());
    DGEOM_crv_curvature(d1, out.data(), out.data());
    same(out, k);
}

TEST(CurveProperties, OfTwistedCubics) {
    Random random;
    for (int round = 0; round < rounds(100); ++round)
        for (const int sense : {1, -1})
            expect_properties(twisted_cubic(random.uniform(-1.5, 1.5), sense));
}

TEST(CurveProperties, OfDegenerateCurvesAreZero) {
    const struct {
        double speed, across;  // d1 along x, d2 along y
        bool moving, has_torsion, has_frame;
    } cases[] = {{9.9e-11, 1, false, false, false}, {1e-10, 1, true, true, true},
                 {1, 9.9e-11, true, false, false},  {1, 1e-10, true, true, true},
                 {1e3, 9.9e-5, true, true, false},  {9.9e-6, 1e-5, true, false, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.speed);
        const double d1[] = {c.speed, 0, 0}, d2[] = {0, c.across, 0}, d3[] = {1, 2, 3};
        double k[3], variation[3], torsion[3], f[11];
        EXPECT_EQ(DGEOM_crv_curvature(d1, d2, k) != 0, c.moving);
        DGEOM_crv_curvature_variation(d1, d2, d3, variation);
        EXPECT_EQ(variation[2] != 0, c.moving);
        EXPECT_EQ(DGEOM_crv_torsion(d1, d2, d3, torsion) != 0, c.has_torsion);
        DGEOM_crv_diff_property(d1, d2, d3, 2, f);  // torsion is wanted by the value 1 alone
        EXPECT_EQ(f[0] != 0, c.moving);
        for (const int i : {5, 7, 9})
            EXPECT_EQ(f[i] != 0, c.has_frame);
        EXPECT_EQ(f[10], 0);
    }
    double out[3] = {7, 7, 7};
    for (const auto convert : {DGEOM_convert_crvatr_to_radius, DGEOM_convert_radius_to_crvatr})
        for (const double length : {9.9e-20, 1.01e-19})
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
    double k = 7;
    EXPECT_EQ(DGEOM_srf_normal_curvature(p.u.data(), p.v.data(), p.uu.data(), p.uv.data(),
                                         p.vv.data(), normal.data(), tangent.data(), &k),
              0);
    return k;
}

int surface_curvatures(const SurfacePoint& p, int principal_wanted, std::array<double, 7>& out) {
    return DGEOM_srf_curvatures(p.u.data(), p.v.data(), p.uu.data(), p.uv.data(), p.vv.data(),
                                principal_wanted, out.data());
}

TEST(SurfaceCurvatures, OfSpheresToriAndSaddles) {
    Random random;
    for (int round = 0; round < rounds(50); ++round) {
        const double u = random.uniform(-3, 3), v = random.uniform(-1.2, 1.2);
        for (const SurfacePoint& p : {torus(0, 2, u, v), torus(3, 0.5, u, v), saddle(u, v)}) {
            const Vector normal = scaled(cross(p.u, p.v), 1 / length(cross(p.u, p.v)));
            const std::array<double, 7> expected = {p.first * p.second,
                                                    (p.first + p.second) / 2,
                                                    p.first,
                                                    p.second,
                                                    (std::fabs(p.first) + std::fabs(p.second)) / 2,
                                                    -normal_curvature(p, normal, p.u),
                                                    -normal_curvature(p, normal, p.v)};
            std::array<double, 7> c;
            ASSERT_EQ(surface_curvatures(p, 1, c), 0);
            EXPECT_LE(distance(c, expected), 1e-12);
            // Two perpendicular directions share twice the mean (Euler, 1760); what they have along
            // the normal does not count.
            const Vector a = moved(moved(p.u, random.normal(), p.v), random.normal(), normal);
            EXPECT_NEAR(
                normal_curvature(p, normal, a) + normal_curvature(p, normal, cross(normal, a)),
                -2 * c[1], 1e-12);
        }
    }
}

TEST(SurfaceCurvatures, OfDegeneratePointsAreNothing) {
    SurfacePoint p = torus(3, 1, 0, 0);
    std::array<double, 7> c;
    c.fill(7);
    EXPECT_EQ(surface_curvatures(p, 0, c), 0);
    EXPECT_NE(c[1], 7);
    EXPECT_EQ(c[2], 7);
    for (const Vector& normal : {Vector{1, 0, 0}, {0, 0, 1}})  // the tangent has no direction
        EXPECT_EQ(normal_curvature(p, normal, {3, 0, 0}), 0);
    // The square of the area is to be 1e-10; that of the last is.
    const double exact = 9.999999999999999e-06, rest = 1.393e-13;
    for (const auto& [side, aside] : {std::array{9.9e-6, 0.0}, {1.01e-5, 0}, {exact, rest}}) {
        p.u = {aside, side, 0};
        c.fill(7);
        const bool is_small = side == 9.9e-6;
        EXPECT_EQ(surface_curvatures(p, 1, c), is_small);
        EXPECT_EQ(c[0] == 7, is_small);
        EXPECT_EQ(normal_curvature(p, {1, 0, 0}, p.u) == 0, is_small);
    }
    const SurfacePoint bowl{{1, 0, 0}, {0, 1, 0}, {0, 0, exact}, {0, 0, rest}, {0, 0, -exact},
                            0,         0};
    ASSERT_EQ(surface_curvatures(bowl, 1, c), 0);
    EXPECT_EQ(c[3] - c[2], 0);  // 1e-10 below the squared mean is not apart
    const SurfacePoint plane{{1, 0, 0}, {1, 2, 0}, {}, {}, {}, 0, 0};
    ASSERT_EQ(surface_curvatures(plane, -1, c), 0);
    EXPECT_LE(distance(c, {}), 0);
}

}  // namespace
