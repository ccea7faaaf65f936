// Ear clipping against the plain rule, which tests every corner anew.
#include "support/outlines.h"
#include "support/support.h"
#include "ztmath/facet.h"
#include "ztmath/vec3.h"

namespace {

using namespace ztmath_test;

using Vectors = std::vector<Vector>;

Vector difference(const Vector& a, const Vector& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

bool is_left(const Vector& a, const Vector& b, const Vector& p, const Vector& normal) {
    const Vector u = difference(b, a), v = difference(p, a);
    return (u[1] * v[2] - u[2] * v[1]) * normal[0] + (u[2] * v[0] - u[0] * v[2]) * normal[1] +
               (u[0] * v[1] - u[1] * v[0]) * normal[2] >
           0.0;
}

/// The rule as it is stated, cubic.
std::vector<int> plain_clipping(const Vectors& p, const Vector& normal) {
    std::vector<std::size_t> left(p.size());
    std::iota(left.begin(), left.end(), 0);
    if (left.size() == 3) return {0, 1, 2};
    std::vector<int> triangles;
    bool all_convex = false;
    for (std::size_t at = 0; left.size() > 2; at %= left.size()) {
        const std::size_t m = left.size();
        const auto corner = [&](std::size_t i) -> const Vector& { return p[left[i % m]]; };
        const auto is_convex = [&](std::size_t i) {
            const Vector& a = corner(i + m - 1);
            return called(VEC3_angle_between, difference(a, corner(i)),
                          difference(a, corner(i + 1)), normal) <= M_PI;
        };
        std::size_t convex = 0;
        while (convex < m && !all_convex && is_convex(convex))
            ++convex;
        all_convex = all_convex || convex == m;
        const auto is_ear = [&](std::size_t i) {
            const Vector &a = corner(i + m - 1), &b = corner(i), &c = corner(i + 1);
            for (std::size_t k = 2; k + 1 < m; ++k)
                if (is_left(a, b, corner(i + k), normal) && is_left(b, c, corner(i + k), normal) &&
                    is_left(c, a, corner(i + k), normal))
                    return false;
            return is_convex(i);
        };
        for (std::size_t seen = 0; seen + 1 < m && !all_convex && !is_ear(at % m); ++seen)
            ++at;
        at %= m;
        for (const std::size_t i : {at + m - 1, at, at + 1})
            triangles.push_back(static_cast<int>(left[i % m]));
        left.erase(left.begin() + static_cast<std::ptrdiff_t>(at));
    }
    return triangles;
}

std::vector<int> clipping(const Vectors& p, const Vector& normal) {
    std::vector<int> triangles(3 * (p.size() - 2), -7);
    FACET_ask_triangles_of_polygon(static_cast<int>(p.size()), p[0].data(), normal.data(),
                                   triangles.data());
    return triangles;
}

/// The polygon in a plane of the frame, or along it at heights that have no part in areas.
Vectors lifted(const Polygon& p, const Frame& frame, int height = 0) {
    Vectors points;
    for (std::size_t i = 0; i < p.size(); i += 2)
        points.push_back(frame.at({p[i], p[i + 1], 1.0 * height * (i % 5)}));
    return points;
}

TEST(EarClipping, IsThePlainRuleTriangleForTriangle) {
    const NoBlocksLeft watch;
    Random random;
    const Frame along_axes[] = {{{0, 0, 0}, identity},
                                {{0, 0, 0}, {0, 1, 0, 0, 0, 1, 1, 0, 0}},
                                {{0, 0, 0}, {0, 0, 1, 1, 0, 0, 0, 1, 0}}};
    for (int round = 0; round < rounds(30); ++round) {
        const int n = round % 15 == 0 ? random.integer(100, 200)
                      : round < 9     ? 2 + round
                                      : random.integer(3, 50);
        const auto seed = static_cast<std::uint64_t>(round + 1);
        const double step = std::pow(2.0, random.integer(0, 8));
        Polygon crossing;
        for (int i = 0; i < 2 * n; ++i)
            crossing.push_back(random.integer(-9, 9));
        for (const Polygon& p :
             {star_polygon(n, seed), monotone_polygon(n, seed), comb_polygon(n, 9),
              spiral_polygon(n), convex_polygon(n), crossing})
            for (const Polygon& q : {p, snapped(p, step), densified(p, 4 * n / 3), reversed(p)})
                for (const Frame& frame : {along_axes[round % 3], Frame(random)}) {
                    Vectors points = lifted(q, frame, round % 2);
                    const int first = random.integer(1, static_cast<int>(points.size()));
                    std::rotate(points.begin(), points.end() - first, points.end());
                    const double size = random.integer(0, 1) == 0 ? 1 : random.uniform(0.1, 5);
                    const Vector normal = scaled(row(frame.axes, 2), size);
                    ASSERT_EQ(clipping(points, normal), plain_clipping(points, normal))
                        << "round " << round;
                }
    }
}

TEST(EarClipping, IsThePlainRuleOnMapsAndWithoutANormalOrASize) {
    const Frame flat({0, 0, 0}, identity), tiny({0, 0, 0}, {1e-12, 0, 0, 0, 1e-12, 0, 0, 0, 1e-12});
    for (const auto& [points, normal] :
         {std::pair(lifted(outline_of("switzerland"), flat), Vector{0, 0, 1}),
          {lifted(outline_of("slovenia"), flat), {0, 0, 1}},
          {lifted(spiral_polygon(9), flat), {0, 0, 0}},
          {lifted(spiral_polygon(9), tiny), {0, 0, 1}}})
        EXPECT_EQ(clipping(points, normal), plain_clipping(points, normal));
}

TEST(EarClipping, AssertsTheCountOfTriangles) {
    const double nowhere[6] = {};
    expect_reports_when_checking(
        [&] {
            for (const int n : {2, 1})
                FACET_ask_triangles_of_polygon(n, nowhere, nowhere, nullptr);
        },
        {assertion("facet_util_math", "n_triangles == n_original_vertices - 2")});
}

TEST(EarClipping, EndsSoonOnLargePolygons) {
    const int n = rounds(50'000);
    const Frame flat({0, 0, 0}, identity);
    const int full = 64 * 128;  // bits and words that fill the index of corners to its end
    for (const Polygon& p : {monotone_polygon(n, 2), densified(star_polygon(300, 2), n),
                             star_polygon(full, 2), outline_of("canada")}) {
        const std::vector<int> triangles = clipping(lifted(p, flat), {0, 0, 1});
        long double area = 0;
        for (std::size_t t = 0; t < triangles.size(); t += 3)
            area += doubled_area(p, &triangles[t]);
        EXPECT_NEAR(static_cast<double>(area) / doubled_area(p), 1, 1e-9);
    }
    Vectors nowhere(static_cast<std::size_t>(n), {NAN, 0, 0});
    clipping(nowhere, {0, 0, 1});
}

}  // namespace
