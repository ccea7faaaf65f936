// Differential geometry, against curves and surfaces whose properties are known in closed form.
#include "ztmath/dgeom.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "support/vectors.h"

namespace {

using namespace ztmath_test;

void expect_near(const Vector& actual, const Vector& expected, double tolerance = 1e-12) {
    EXPECT_LE(distance(actual, expected), tolerance * std::fmax(1.0, length(expected)));
}

/// A point of a curve: its derivatives and what follows from them.
struct CurvePoint {
    Vector d1, d2, d3;
    double curvature, torsion;
    Vector curvature_vector, variation;
};

/// Radius r, pitch 2 pi c.
CurvePoint helix(double r, double c, double t) {
    const double x = std::cos(t), y = std::sin(t), s2 = r * r + c * c;
    return {{-r * y, r * x, c},
            {-r * x, -r * y, 0},
            {r * y, -r * x, 0},
            r / s2,
            c / s2,
            {-r / s2 * x, -r / s2 * y, 0},
            {r * y / (s2 * std::sqrt(s2)), -r * x / (s2 * std::sqrt(s2)), 0}};
}

/// (t, t^2, t^3)
CurvePoint twisted_cubic(double t) {
    const double t2 = t * t, p = 9 * t2 * t2 + 4 * t2 + 1, q = 9 * t2 * t2 + 9 * t2 + 1;
    CurvePoint point{{1, 2 * t, 3 * t2}, {0, 2, 6 * t}, {0, 0, 6}, 0, 3 / q, {}, {}};
    point.curvature = 2 * std::sqrt(q) / (p * std::sqrt(p));
    // With w = d1 x d2 x d1 the vector is w / p^2; its derivative by t is taken, and |d1| divides
    // it.
    const Vector w = cross(cross(point.d1, point.d2), point.d1);
    const Vector w_t = moved(cross(cross(point.d1, point.d3), point.d1), 1,
                             cross(cross(point.d1, point.d2), point.d2));
    const double p_t = 36 * t2 * t + 8 * t;
    point.curvature_vector = scaled(w, 1 / (p * p));
    point.variation =
        scaled(moved(scaled(w_t, 1 / (p * p)), -2 * p_t / (p * p * p), w), 1 / std::sqrt(p));
    return point;
}

/// The same point of the same curve, with a parameter of which the old one is a function with these
/// derivatives: nothing geometric changes.
CurvePoint reparametrised(const CurvePoint& p, double f1, double f2, double f3) {
    CurvePoint q = p;
    q.d1 = scaled(p.d1, f1);
    q.d2 = moved(scaled(p.d2, f1 * f1), f2, p.d1);
    q.d3 = moved(moved(scaled(p.d3, f1 * f1 * f1), 3 * f1 * f2, p.d2), f3, p.d1);
    return q;
}

void expect_properties(const CurvePoint& p) {
    Vector k, torsion_vector, variation;
    EXPECT_NEAR(DGEOM_crv_curvature(p.d1.data(), p.d2.data(), k.data()), p.curvature,
                1e-12 * p.curvature);
    expect_near(k, p.curvature_vector);
    DGEOM_crv_curvature_variation(p.d1.data(), p.d2.data(), p.d3.data(), variation.data());
    expect_near(variation, p.variation);

    const Vector tangent = scaled(p.d1, 1 / length(p.d1));
    const Vector normal = scaled(p.curvature_vector, 1 / p.curvature);
    std::array<Vector, 4> f;
    DGEOM_crv_diff_property(p.d1.data(), p.d2.data(), p.d3.data(), 1, f[0].data());
    expect_near(f[0], tangent);
    expect_near(f[1], cross(tangent, normal));
    expect_near(f[2], normal);
    EXPECT_NEAR(f[3][0], p.curvature, 1e-12 * p.curvature);
    EXPECT_NEAR(f[3][1], p.torsion, 1e-12);

    EXPECT_NEAR(DGEOM_crv_torsion(p.d1.data(), p.d2.data(), p.d3.data(), torsion_vector.data()),
                p.torsion, 1e-12);
    expect_near(torsion_vector, scaled(normal, -p.torsion));

    Vector radius, back, d2;
    EXPECT_EQ(DGEOM_convert_crvatr_to_radius(k.data(), radius.data()), 0);
    expect_near(radius, scaled(normal, 1 / p.curvature));
    EXPECT_EQ(DGEOM_convert_radius_to_crvatr(radius.data(), back.data()), 0);
    expect_near(back, k);
    DGEOM_convert_crvatr_to_deriv2(p.d1.data(), k.data(), d2.data());
    DGEOM_crv_curvature(p.d1.data(), d2.data(), back.data());
    expect_near(back, k);
}

TEST(CurveProperties, OfHelicesCirclesAndTwistedCubics) {
    Random random;
    for (int round = 0; round < rounds(50); ++round) {
        const double t = random.uniform(-3, 3);
        for (const CurvePoint& p : {helix(2.5, -0.75, t), helix(0.5, 0, t), twisted_cubic(t / 2)}) {
            expect_properties(p);
            expect_properties(reparametrised(p, random.uniform(0.5, 2), random.uniform(-1, 1),
                                             random.uniform(-1, 1)));
        }
    }
}

TEST(CurveProperties, OfDegenerateCurvesAreZero) {
    const struct {
        const char* what;
        Vector d1, d2;
        bool has_curvature_vector, has_tangent, has_frame;
    } cases[] = {
        {"standing still", {9.9e-11, 0, 0}, {0, 1, 0}, false, false, false},
        {"hardly moving", {1.01e-10, 0, 0}, {0, 1, 0}, true, true, true},
        {"straight", {1, 2, 3}, {2, 4, 6}, false, true, false},
        {"nearly straight", {1, 0, 0}, {0, 9.9e-11, 0}, true, true, false},
        {"hardly curved", {1, 0, 0}, {0, 1.01e-10, 0}, true, true, true},
        {"fast: curvature short", {1e3, 0, 0}, {0, 9.9e-5, 0}, true, true, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const Vector d3 = {1, 2, 3};
        Vector k, variation;
        std::array<double, 11> f;
        f.fill(7);
        EXPECT_EQ(DGEOM_crv_curvature(c.d1.data(), c.d2.data(), k.data()) != 0,
                  c.has_curvature_vector);
        DGEOM_crv_diff_property(c.d1.data(), c.d2.data(), d3.data(), 1, f.data());
        EXPECT_EQ(f[0] != 0, c.has_tangent);
        EXPECT_EQ(std::any_of(f.begin() + 3, f.end(), [](double x) { return x != 0; }),
                  c.has_frame);
        DGEOM_crv_curvature_variation(c.d1.data(), c.d2.data(), d3.data(), variation.data());
        EXPECT_EQ(length(variation) != 0, c.has_tangent);
        if (c.has_frame) {
            // Torsion where it is wanted, for the value 1 alone.
            DGEOM_crv_diff_property(c.d1.data(), c.d2.data(), d3.data(), 2, f.data());
            EXPECT_EQ(f[10], 0);
        }
    }
    const Vector d1 = {9e-6, 0, 0}, d2 = {0, 1.1e-5, 0}, d3 = {0, 0, 1};
    Vector b;
    EXPECT_EQ(DGEOM_crv_torsion(d1.data(), d2.data(), d3.data(), b.data()), 0);
    EXPECT_EQ(length(b), 0);
}

TEST(CurveProperties, ConversionsStopWhereTheSquareVanishes) {
    for (const auto convert : {DGEOM_convert_crvatr_to_radius, DGEOM_convert_radius_to_crvatr}) {
        Vector out = {7, 7, 7};
        EXPECT_EQ(convert(Vector{9.9e-20, 0, 0}.data(), out.data()), 1);
        EXPECT_EQ(out, (Vector{7, 7, 7}));
        EXPECT_EQ(convert(Vector{0, 1.01e-19, 0}.data(), out.data()), 0);
        EXPECT_EQ(convert(Vector{0.5, 0, 0}.data(), out.data()), 0);
        EXPECT_EQ(out, (Vector{2, 0, 0}));
    }
}

/// A point of a surface: its derivatives and its principal curvatures, positive where it bends away
/// from su x sv.
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
    const double g = 1 + x * x + y * y, mean = x * y / (g * std::sqrt(g));
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
            std::array<double, 7> c;
            ASSERT_EQ(surface_curvatures(p, 1, c), 0);
            EXPECT_NEAR(c[0], p.first * p.second, 1e-12);
            EXPECT_NEAR(c[1], (p.first + p.second) / 2, 1e-12);
            EXPECT_NEAR(c[2], p.first, 1e-12);
            EXPECT_NEAR(c[3], p.second, 1e-12);
            EXPECT_NEAR(c[4], (std::fabs(p.first) + std::fabs(p.second)) / 2, 1e-12);

            const Vector across = cross(p.u, p.v), normal = scaled(across, 1 / length(across));
            EXPECT_NEAR(normal_curvature(p, normal, p.u), -c[5], 1e-12);
            EXPECT_NEAR(normal_curvature(p, normal, p.v), -c[6], 1e-12);
            // Two perpendicular directions share twice the mean (Euler, 1760), and a part along the
            // normal does not count.
            const Vector a = moved(moved(scaled(p.u, random.normal()), random.normal(), p.v),
                                   random.normal(), normal);
            EXPECT_NEAR(
                normal_curvature(p, normal, a) + normal_curvature(p, normal, cross(normal, a)),
                -2 * c[1], 1e-12);
        }
    }
}

TEST(SurfaceCurvatures, OfPlanesAreZeroAndOfDegeneratePointsNothing) {
    const Vector zero = {0, 0, 0}, z = {0, 0, 1};
    const SurfacePoint plane{{1, 0, 0}, {1, 2, 0}, zero, zero, zero, 0, 0};
    std::array<double, 7> c;
    ASSERT_EQ(surface_curvatures(plane, -1, c), 0);
    EXPECT_TRUE(std::all_of(c.begin(), c.end(), [](double x) { return x == 0; }));

    SurfacePoint p = torus(3, 1, 0, 0);
    c.fill(7);
    EXPECT_EQ(surface_curvatures(p, 0, c), 0);
    EXPECT_NE(c[1], 7);
    EXPECT_EQ(c[2], 7);
    EXPECT_EQ(normal_curvature(p, {1, 0, 0}, {3, 0, 0}), 0);
    // The directions mapped into the surface vanish though the normal given does not say so.
    EXPECT_EQ(normal_curvature(p, z, {1, 0, 0}), 0);

    p.u = {0, 9.9e-6, 0};  // the square of the area is below 1e-10
    c.fill(7);
    EXPECT_EQ(surface_curvatures(p, 1, c), 1);
    EXPECT_TRUE(std::all_of(c.begin(), c.end(), [](double x) { return x == 7; }));
    EXPECT_EQ(normal_curvature(p, {1, 0, 0}, z), 0);
    p.u = {0, 1.01e-5, 0};
    EXPECT_EQ(surface_curvatures(p, 1, c), 0);
}

}  // namespace
