// The triangle fill against the plain rule, which walks all vertices and edges.
#include "support/outlines.h"
#include "support/support.h"
#include "ztmath/ptf.h"

namespace {

using namespace ztmath_test;

constexpr double eps = 1e-10;
using Triangle = std::array<int, 6>;  // corners, then neighbours
using Triangles = std::vector<Triangle>;

/// The rule as it is stated: quadratic to cubic, and recursive.
class PlainFill {
  public:
    explicit PlainFill(const Polygon& polygon) : size_(vertex_count(polygon)), all_(polygon) {}

    /// The triangles, or none.
    Triangles run() {
        int none = -1;
        if (size_ < 3 || !fill(all_.data(), size_, 0, none)) return {};
        return static_cast<int>(made_.size()) == size_ - 2 ? made_ : Triangles{};
    }

  private:
    struct Circle {
        double x, y, squared_radius;
    };

    static double cross(const double* a, const double* b, const double* p) {
        return (b[0] - a[0]) * (p[1] - a[1]) - (p[0] - a[0]) * (b[1] - a[1]);
    }
    static bool rejected(const double* a, const double* b, const double* p) {
        const double c = cross(a, b, p);
        return std::fabs(c) <= eps || c < eps;
    }
    static Circle circle(const double* a, const double* b, const double* p) {
        const double bx = b[0] - a[0], by = b[1] - a[1], px = p[0] - a[0], py = p[1] - a[1];
        const double bb = bx * bx + by * by, pp = px * px + py * py, c = 2.0 * cross(a, b, p);
        const double x = (bb * py - pp * by) / c, y = (pp * bx - bb * px) / c;
        return {a[0] + x, a[1] + y, x * x + y * y};
    }

    static bool crosses(const double* p, int n, int i, int j) {
        const double dx = p[2 * j] - p[2 * i], dy = p[2 * j + 1] - p[2 * i + 1];
        const double length = std::sqrt(dx * dx + dy * dy);
        const double scale = length > eps ? 1.0 / length : 0.0;
        const double ux = dx * scale, uy = dy * scale;
        for (int k = 0; k < n; ++k) {
            const int l = (k + 1) % n;
            if (k == i || k == j || l == i || l == j) continue;
            const double x0 = p[2 * k] - p[2 * i], y0 = p[2 * k + 1] - p[2 * i + 1];
            const double x1 = p[2 * l] - p[2 * i], y1 = p[2 * l + 1] - p[2 * i + 1];
            const double s0 = x0 * ux + y0 * uy, s1 = x1 * ux + y1 * uy;
            const double t0 = ux * y0 - uy * x0, t1 = ux * y1 - uy * x1;
            if ((s0 < eps && s1 < eps) || (s0 > length - eps && s1 > length + eps)) continue;
            if ((t0 < eps && t1 < eps) || (t0 > -eps && t1 > eps) || s0 - s1 == 0.0) continue;
            const double slope = (t0 - t1) / (s0 - s1);
            const double s = -(t0 - slope * s0) / slope;
            if (eps < s && s <= length - eps) return true;
        }
        return false;
    }

    int apex(const double* p, int n) const {
        const double *a = p + 2 * (n - 1), *b = p;
        int k = 1;
        while (k < n - 1 && rejected(a, b, p + 2 * k))
            ++k;
        for (int j = k + 1; j < n - 1; ++j) {
            const Circle c = circle(a, b, p + 2 * k);
            const double x = p[2 * j] - c.x, y = p[2 * j + 1] - c.y;
            if (x * x + y * y < c.squared_radius - eps && !rejected(a, b, p + 2 * j) &&
                !crosses(p, n, j, n - 1) && !crosses(p, n, j, 0))
                k = j;
        }
        return k;
    }

    bool fill(const double* p, int n, int shift, int& slot) {
        const int k = n > 3 ? apex(p, n) : 1;
        if (n == 3 && rejected(p, p + 2, p + 4)) return false;
        if (k == n - 1) return true;
        const int t = static_cast<int>(made_.size());
        made_.push_back({shift + n - 1, shift, shift + k, -1, -1, slot});
        slot = t;
        int across = t;
        if (k > 1 && !fill(p, k + 1, shift, across)) return false;
        if (k > 1) made_[t][3] = across;
        across = t;
        if (k < n - 2 && !fill(p + 2 * k, n - k, shift + k, across)) return false;
        if (k < n - 2) made_[t][4] = across;
        return true;
    }

    int size_;
    const Polygon& all_;
    Triangles made_;
};

/// What the library hands out, given back at the end.
struct Fill {
    explicit Fill(const Polygon& p, bool wants_lists = false) : size(vertex_count(p)) {
        status = PTF_poly_tri_fill(size, p.data(), &count, &triangles, &edges,
                                   wants_lists ? &lists : nullptr);
    }
    ~Fill() { PTF_free_output(size, triangles, lists, edges); }
    Fill(const Fill&) = delete;
    Fill& operator=(const Fill&) = delete;

    Triangles list() const {
        Triangles all(count);
        std::transform(triangles, triangles + count, all.begin(),
                       [](const auto& triangle) { return std::bit_cast<Triangle>(triangle); });
        return all;
    }

    int size;
    int status, count = -1;
    PTF_triangle_t* triangles = nullptr;
    PTF_vertex_edge_t* edges = nullptr;
    PTF_neighbor_list_t* lists = nullptr;
};

void expect_as_plain(const Polygon& p, int& filled) {
    const Fill fill(p);
    const Triangles plain = PlainFill(p).run();
    ASSERT_EQ(fill.status, vertex_count(p) < 3 ? 2 : plain.empty() ? 1 : 0);
    ASSERT_EQ(fill.list(), plain);
    filled += fill.status == 0;
}

TEST(PolyTriFill, IsThePlainRuleTriangleForTriangle) {
    const NoBlocksLeft watch;
    Random random;
    int filled = 0, all = 0;
    for (int round = 0; round < rounds(120); ++round) {
        const int n = round % 20 == 0 ? random.integer(100, 300) : random.integer(3, 80);
        const auto seed = static_cast<std::uint64_t>(round + 1);
        const double step = std::pow(2.0, random.integer(-3, 8));
        for (const Polygon& p : {star_polygon(n, seed), monotone_polygon(n, seed),
                                 spiral_polygon(n), comb_polygon(n, 2.0 + random.integer(0, 200)),
                                 convex_polygon(n), convex_polygon(n, 1000.0)})
            for (const double scale : {1.0, std::pow(10.0, random.uniform(-6, 4))})
                for (Polygon q : {p, snapped(p, step), densified(snapped(p, step), n + n / 3)}) {
                    // Any vertex may be the first, and the place of the origin changes the
                    // rounding.
                    std::rotate(q.begin(), q.begin() + 2 * random.integer(0, vertex_count(q) - 1),
                                q.end());
                    const double offset = round % 3 == 0 ? 1e5 : 0.0;
                    for (double& x : q)
                        x = scale * x + offset;
                    SCOPED_TRACE(::testing::Message() << "round " << round << ", case " << all);
                    expect_as_plain(q, filled);
                    ++all;
                    ASSERT_FALSE(HasFatalFailure());
                }
    }
    EXPECT_GT(filled, all / 3);
}

/// With some coordinates that are no numbers.
Polygon sprinkled(Polygon p) {
    for (std::size_t i = 0; i < p.size(); i += 61)
        p[i] = NAN;
    return p;
}

TEST(PolyTriFill, IsThePlainRuleOnOutlinesOfThousands) {
    const NoBlocksLeft watch;
    const int n = 2500;
    int filled = 0;
    Polygon sail;  // of its vertices only the mast's top is to the left of the base edge
    for (int i = 0; i < 200; ++i)
        sail.insert(sail.end(), {1.0 + i, -0.1 * i * i});
    sail.insert(sail.end(), {0.5, 5000.0, 0.0, 0.0});
    for (int round = 0; round < rounds(1); ++round)
        for (Polygon p :
             {sail, sprinkled(star_polygon(n / 5, 5)), convex_polygon(n), spiral_polygon(n),
              snapped(spiral_polygon(n), 0.5), densified(star_polygon(n / 8, 1), n),
              monotone_polygon(n, 1), turned(comb_polygon(n / 3, 10.0), M_PI / 4),
              outline_of("slovenia"), outline_of("italy")}) {
            std::rotate(p.begin(), p.begin() + 2 * (round * 611 % vertex_count(p)), p.end());
            expect_as_plain(p, filled);
        }
    EXPECT_GT(filled, 7);
}

TEST(PolyTriFill, NumbersTheTrianglesOfASquare) {
    const Fill fill({0, 0, 1, 0, 1, 1, 0, 1});
    EXPECT_EQ(fill.list(), (Triangles{{3, 0, 1, -1, 1, -1}, {3, 1, 2, -1, -1, 0}}));
}

TEST(PolyTriFill, ListsTheEndsOfDiagonalsInTheOrderFound) {
    const int n = 40;
    for (const Polygon& p : {star_polygon(n, 3), convex_polygon(n)}) {
        const Fill fill(p, true);
        std::vector<std::vector<int>> plain(n);
        for (const auto& t : fill.list())
            for (const auto& [i, j] : {std::pair{t[0], t[1]}, {t[1], t[2]}, {t[0], t[2]}}) {
                const int apart = std::abs(i - j);
                if (apart == 1 || apart == n - 1 || std::ranges::count(plain[i], j) > 0) continue;
                plain[i].push_back(j);
                plain[j].push_back(i);
            }
        for (int i = 0; i < n; ++i) {
            const PTF_neighbor_list_t& list = fill.lists[i];
            EXPECT_EQ(std::vector(list.neighbors, list.neighbors + list.num_neighbors), plain[i]);
            EXPECT_EQ(list.neighbors[n - 1], -1);
        }
    }
}

TEST(PolyTriFill, AnswersWithAStatusAndClearedOutputs) {
    const std::pair<Polygon, int> cases[]{
        {{}, 2},
        {{0, 0, 1, 0}, 2},
        {{0, 0, 1, 0, 0, 1}, 0},
        {{0, 0, 0, 1, 1, 0}, 1},  // clockwise
        {{0, 0, 1, 0, 2, 0}, 1},  // collinear
        {{0, 0, 1e-5, 0, 0, 0.9999e-5}, 1},
        {{0, 0, 1e-5, 0, 0, 1.0001e-5}, 0},
        {{1, 0, 1, 1e-10, 0, 1, 0, 0}, 1},
        {{0, 0, 1, 0, 1, 1, 0, 1}, 0},
        {{0, 0, 0, 1, 1, 1, 1, 0}, 1},
        {{0, 0, 1, 0, 1, 0, 1, 1, 0, 1}, 1},              // a point twice
        {{0, 0, 2, 0, 2, 1, 3, 1, 2, 1, 2, 2, 0, 2}, 1},  // a spike
        {{0, 0, 1, 1, 1, 0, 0, 1}, 1},                    // crosses itself
        {{0, 0, 1, 0, NAN, NAN, 0, 1}, 0},  // what is no number is no degenerate triangle
    };
    for (const auto& [polygon, status] : cases) {
        SCOPED_TRACE(::testing::PrintToString(polygon));
        const Fill fill(polygon, true);
        EXPECT_EQ(fill.status, status);
        EXPECT_EQ(fill.count, status == 0 ? fill.size - 2 : 0);
        EXPECT_EQ(fill.triangles == nullptr, status != 0);
        EXPECT_EQ(fill.edges == nullptr, status != 0);
        EXPECT_EQ(fill.lists == nullptr, status != 0);
        EXPECT_EQ(PTF_validate_boundary(fill.size, polygon.data()), status == 0);
    }
    PTF_free_output(3, nullptr, nullptr, nullptr);
}

/// Areas add up, and every edge of the polygon has its triangle.
void expect_valid(const Polygon& p) {
    const Fill fill(p);
    ASSERT_EQ(fill.status, 0);
    ASSERT_EQ(fill.count, fill.size - 2);
    const Triangles triangles = fill.list();
    long double area = 0;
    for (const Triangle& t : triangles) {
        const double twice = doubled_area(p, t.data());
        ASSERT_GT(twice, 0);
        area += twice;
    }
    EXPECT_NEAR(static_cast<double>(area) / doubled_area(p), 1.0, 1e-9);
    for (int i = 0; i < fill.size; ++i) {
        const int edge = fill.edges[i].edge;  // 1 to 3, that across from corner a to c
        const Triangle& t = triangles.at(fill.edges[i].triangle);
        ASSERT_EQ(t[edge % 3], i);
        ASSERT_EQ(t[(edge + 1) % 3], (i + 1) % fill.size);
        ASSERT_EQ(t[2 + edge], -1);
    }
}

TEST(PolyTriFill, FillsLargePolygons) {
    // A million vertices when asked: ZTMATH_TEST_ROUNDS=10.
    const int n = rounds(100'000);
    expect_valid(star_polygon(n, 3));
    expect_valid(monotone_polygon(n, 3));
    expect_valid(spiral_polygon(n));
    expect_valid(comb_polygon(std::min(n / 50, 20'000), 20.0));  // circles of more have no digits
    expect_valid(densified(star_polygon(300, 4), n));
    expect_valid(outline_of("norway"));
    expect_valid(densified(outline_of("canada"), n));
}

TEST(PolyTriFill, EndsSoonOnLargePolygonsThatAreNone) {
    const int n = 100'000;
    Random random;
    Polygon tangle, twice_around;
    for (int i = 0; i < n; ++i) {
        tangle.insert(tangle.end(), {random.uniform(-1000, 1000), random.uniform(-1000, 1000)});
        add_polar(twice_around, 1000.0 + random.uniform(0, 1), 4 * M_PI * i / n);
    }
    EXPECT_EQ(PTF_validate_boundary(n, tangle.data()), 0);
    EXPECT_EQ(PTF_validate_boundary(n, Polygon(2 * n, 1.0).data()), 0);
    EXPECT_EQ(PTF_validate_boundary(n, reversed(star_polygon(n, 6)).data()), 0);
    PTF_validate_boundary(n, sprinkled(star_polygon(n, 5)).data());
    PTF_validate_boundary(n, twice_around.data());
}

}  // namespace
