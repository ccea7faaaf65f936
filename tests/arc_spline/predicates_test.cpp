// Three points, equations in one unknown, intervals, rays and inscribed angles.
#include "support/segments.h"
#include "support/support.h"
#include "ztmath/arc_spline_primitives.h"

namespace {

using namespace ztmath_test;

TEST(ArcSplinePredicates, ThreePoints) {
    const double wide[] = {1e-3, 5};
    Random random;
    int status = 9, in_space = 9, side = 9;
    for (int i = 0; i < rounds(200); ++i) {
        const Pair a = random.vector<2>(), b = random.vector<2>(), c = random.vector<2>();
        Pair p = a, q = b, r = c;
        Vector u{a[0], a[1], 0}, v{b[0], b[1], 0}, w{c[0], c[1], 0};
        called(ARC_SPLINE_re_order_3pts_2d, 1e-9, p, q, r, &status);
        called(ARC_SPLINE_re_order_3pts_3d, 1e-9, u, v, w, &in_space);
        const std::array<Pair, 3> orders[] = {{a, b, c}, {b, c, a}, {c, a, b}};
        EXPECT_EQ((std::array{p, q, r}), orders[status]);
        EXPECT_TRUE(in_space == status && v[0] == q[0]);
        const double longer = std::fmax(distance(p, q), distance(q, r)), span = distance(p, r);
        EXPECT_GE(span, longer);
        const double sine = dot(left_of(minus(r, p)), minus(q, p)) / (longer * span);
        const int answer = std::fabs(sine) < direction_at(5)[1] ? 1 : 0;
        EXPECT_EQ(called(ARC_SPLINE_ask_3pts_collinearity_2d, a, b, c, wide, 2, &side), answer);
        EXPECT_EQ(side, answer == 1 ? -1 : dot(left_of(minus(b, a)), minus(c, b)) > 0 ? 0 : 1);
    }
    // The side 1-2 the longest, 2-3, both, all of them; two points that coincide; sides longer by
    // 1e-10, which count as equal.
    const double height = std::sqrt(0.75);
    const double cases[][5] = {
        {2, 0, 1, 0, 1},        {-1, 0, 1, 0, 2},        {0.5, 2, 1, 0, 1},
        {0.5, height, 1, 0},    {0.25, 0, 5, 0.25, -1},  {5, 0, 5.25, 0.25, -1},
        {5, 0, 0.25, 0.25, -1}, {2e-10, 0, 1e-10, 0, 0}, {-1.1e-10, 0, 1e-10, 0, 1}};
    for (const auto& [x2, y2, x3, tol, expected] : cases) {
        Pair p{0, 0}, q{x2, y2}, r{x3, 0};
        called(ARC_SPLINE_re_order_3pts_2d, tol, p, q, r, &status);
        EXPECT_EQ(status, expected) << x2 << ' ' << x3;
    }
}

// Wider than 0.25 / tan(1 degree) and within 0.25 of a line along an axis: collinear. In space all
// that is within 0.25 of a plane across an axis.
TEST(ArcSplinePredicates, CollinearWithinTheDistance) {
    const double tols[] = {0.25, 1}, no_angle[] = {0.25, 0};
    const double cases[][4] = {
        {7, 0.23, 16, 1}, {6, 0.23, 12, 0}, {7, 0.26, 16, 0}, {0, 3, 0.2, 2}, {0.05, 0.2, 5, 1}};
    int side = 9;
    for (const auto& [x2, y2, x3, answer] : cases) {
        Vector p1{0, 0, 5}, p2{x2, y2, 5}, p3{x3, 0, 5};
        EXPECT_EQ(called(ARC_SPLINE_ask_3pts_collinearity_2d, p1, p2, p3, tols, 1, &side), answer);
        for (int turn = 0; turn < 3; ++turn) {
            EXPECT_EQ(called(ARC_SPLINE_ask_3pts_collinearity_3d, p1, p2, p3, tols, 2, &side),
                      x3 == 16 ? 1 : answer);
            for (Vector* p : {&p1, &p2, &p3})
                std::rotate(p->begin(), p->begin() + 1, p->end());
        }
        EXPECT_EQ(side, -1);
    }
    // What is as far apart as the tolerance is not within it.
    const double far = 0.25 / std::tan(0.01745329251994328);
    const std::array<Pair, 3> apart[] = {
        {{{0, 0.25}, {10, 0}, {20, 0.2}}},    {{{0, 0.2}, {10, 0}, {20, 0.25}}},
        {{{0, 0}, {0, 0.25}, {1, 0.25}}},     {{{1, 0}, {0, 0}, {0, 0.25}}},
        {{{0, 0}, {far / 2, 0.2}, {far, 0}}}, {{{0, 0}, {5, 0}, {0.25, 0}}}};
    for (const auto& [p, q, r] : apart)
        EXPECT_EQ(called(ARC_SPLINE_ask_3pts_collinearity_2d, p, q, r, tols, 2, &side), q[0] == 5);
    const Pair p{0, 0}, q{1, 0}, r{3, 0};  // neither collinear within no angle, nor a turn
    EXPECT_EQ(called(ARC_SPLINE_ask_3pts_collinearity_2d, p, q, r, no_angle, 2, &side), 0);
    EXPECT_EQ(side, -1);
}

TEST(ArcSplinePredicates, Quadratics) {
    Pair roots{};
    const auto solve = [&](double k2, double k1, double k0, int normalise) {
        int status = 9;
        roots = {9, 9};
        called(ARC_SPLINE_solve_quadratic_eqt, k2, k1, k0, normalise, roots, &status);
        return status;
    };
    Random random;
    for (int i = 0; i < rounds(200); ++i) {
        const double k2 = random.normal(), k1 = 3 * random.normal(), k0 = random.normal();
        const long double d = static_cast<long double>(k1) * k1 - 4.0L * k2 * k0;
        const long double half = k1 / (-2.0L * k2), way = std::sqrt(std::fabs(d)) / (2.0L * k2);
        const long double far = half + (k1 >= 0 ? -way : way);
        const auto slack = static_cast<double>(1e-13 * (1 + k1 * k1 / std::fabs(d)));
        EXPECT_EQ(solve(k2, k1, k0, i % 2), d < 0 ? -2 : 2);
        EXPECT_NEAR(static_cast<double>(roots[0] / (d < 0 ? half : far)), 1, slack);
        EXPECT_NEAR(static_cast<double>(roots[1] / (d < 0 ? way : k0 / (k2 * far))), 1, slack);
    }
    const double cases[][7] = {
        {0, 0, 0, 0, -3, 9, 9},           {0, 0, 1, 0, 0, 9, 9},
        {0, 0, 1e-12, 0, 0, 9, 9},        {1e-13, 0, -1e-13, 1, -3, 9, 9},
        {NAN, 1, 1, 0, 0, 9, 9},          {HUGE_VAL, 0, 1, 1, 0, 9, 9},
        {0, NAN, 0, 0, 0, 9, 9},          {0, 1e-12, -1e-12, 0, 1, 1, 1},
        {-1, 0, -1, 0, -2, 0, -1},        {0.9e-12, 2, -4, 0, 1, 2, 2},
        {1, 0, 2e-25, 0, 2, 0, 0},        {1e-11, 0, -1e-11, 0, 2, -1, 1},
        {4, -8, 4, 0, 2, 1, 1},           {1e-11, 0, -1e-11, 1, 2, -1, 1},
        {1e-12, 0, 0, 1, 2, 0, 0},        {1e-12, 0, -1e-12, 0, 2, -1, 1},
        {2, 2e-12, 0, 0, 2, -1e-12, 0},   {0.25, 0, -1e-24, 0, 2, -2e-12, 2e-12},
        {4, 3e-12, 0, 0, 2, 0, -7.5e-13}, {1e-13, 0, -6.4e-12, 1, 2, -8, 8}};
    for (const auto& [k2, k1, k0, normalise, found, x1, x2] : cases) {
        EXPECT_EQ(solve(k2, k1, k0, static_cast<int>(normalise)), found);
        expect_near(roots, {x1, x2}, 1e-14);
    }
}

TEST(ArcSplinePredicates, SinesAndCosines) {
    Pair x{}, s{};
    const auto solve = [&](double p, double q, double r, char unit, int mode, double margin) {
        int count = 9;
        called(ARC_SPLINE_trig_eqt_linear_sin_cos, p, q, r, unit, mode, margin, &count, x, s);
        return count;
    };
    Random random;
    for (int i = 0; i < rounds(200); ++i) {
        const double p = random.normal(), q = random.normal(), r = random.normal();
        const int count = solve(p, q, r, 'r', i % 2, 0);
        EXPECT_TRUE(i % 2 == 1 || count == (std::hypot(p, q) > std::fabs(r) ? 2 : 0));
        for (int k = 0; k < count; ++k) {
            EXPECT_NEAR(p * std::sin(x[k]) + q * std::cos(x[k]) + r, 0, 1e-12);
            EXPECT_NEAR(std::atan(s[k]), x[k] / 2 - (s[k] < 0 ? std::numbers::pi : 0), 1e-14);
            EXPECT_TRUE(x[k] >= 0 && x[k] < (i % 2 == 1 ? 1.6 : 6.3));
        }
        EXPECT_TRUE(count < 2 || x[0] <= x[1]);
    }
    // The half turn is never found: cos x = -1, and sin x + cos x = -1.
    const double cases[][8] = {{0, 1, 1, 0, 0, 0, 0, 0},        {1, 1, 1, 0, 0, 1, 270, 0},
                               {0, 0, 0, 0, 0, -3, 0, 0},       {1, 0, -0.5, 0, 0, 2, 30, 150},
                               {1, 0, -0.5, 1, 89, 1, 30, 0},   {1, 0, -0.5, 10, 59, 1, 30, 0},
                               {1, 0, -0.5, 10, 61, 0, 0, 0},   {1, 0, 0.5, 0, 0, 2, 210, 330},
                               {1, 0, 0.5, 7, 0, 2, -150, -30}, {1, 0, 0.5, -11, 59, 1, -30, 0},
                               {1, 0, 0.5, -11, 61, 0, 0, 0},   {1, 0, 0.5, 10, 0, 0, 0, 0},
                               {1e-12, 0, 0, 0, 0, -3, 0, 0},   {1, 0, 0, 1, 0, 1, 0, 0},
                               {1, 0, 0, 0, 0, 1, 0, 0},        {1, 0, -1, -11, -1, 0, 0, 0},
                               {1, 0, 0, -11, 90, 1, 0, 0},     {1, 0, 0, 10, 90, 1, 0, 0},
                               {1, 0, -1, 1, 0, 2, 90, 90}};
    for (const auto& [p, q, r, mode, margin, count, x1, x2] : cases) {
        x = {9, 9};
        EXPECT_EQ(solve(p, q, r, 'd', static_cast<int>(mode), margin), count) << mode;
        expect_near(x, {count > 0 ? x1 : 9, count > 1 ? x2 : 9}, 1e-12);
    }
    EXPECT_EQ(solve(1, 0, -0.5, 'r', 10, 1.1), 0);  // a margin in radians
}

TEST(ArcSplinePredicates, Intervals) {
    const double pairs[][4] = {{1, 2, 0, 1},      {2, 1, 0, 0},      {1, 1, 0, 1},
                               {350, 10, 360, 1}, {10, 350, 360, 0}, {10, 190, 360, 0},
                               {10, 189, 360, 1}, {1, 2, 1e-10, 0},  {1, 1, -9, 1}};
    for (const auto& [a, b, period, answer] : pairs)
        EXPECT_EQ(ARC_SPLINE_ask_is_pair_in_order(a, b, period), answer) << a << ' ' << b;
    const double inf = HUGE_VAL;
    const double cases[][5] = {
        {1, 0, 2, 0, 1},     {5e-11, 0, 2, 0, 1},   {-5e-11, 0, 2, 0, 11}, {2, 0, 2, 0, 12},
        {3, 0, 2, 0, 0},     {1, 2, 0, 0, 0},       {1, 0, 2, 9, 1},       {7, 6, 2, 9, 1},
        {0, 6, 2, 9, 1},     {9, 6, 2, 9, 1},       {1, 6, 2, 9, 1},       {2, 6, 2, 9, 12},
        {6, 6, 2, 9, 11},    {3, 6, 2, 9, 0},       {-1, 6, 2, 9, 0},      {10, 6, 2, 9, 0},
        {5, 2, 2, 9, 0},     {-1e-10, 0, 2, 0, 11}, {0, 6, 2, 1e-10, 0},   {inf, 6, 2, inf, 0},
        {inf, 0, inf, 0, 0}, {-inf, -inf, 2, 0, 0}, {-5e-11, 6, 2, 9, 1},  {0.5, 6, 2, 9, 1}};
    for (const auto& [t, a, b, period, answer] : cases)
        EXPECT_EQ(ARC_SPLINE_ask_is_parm_in_interval(t, a, b, period), answer) << t << ' ' << a;
    EXPECT_EQ(ARC_SPLINE_ask_sign_of_var(-1e-10, 1e-10), 0);
    EXPECT_EQ(ARC_SPLINE_ask_sign_of_var(-2e-10, 1e-10), -1);
    EXPECT_EQ(ARC_SPLINE_ask_sign_of_var(2e-10, 1e-10), 1);
    EXPECT_EQ(ARC_SPLINE_ask_sign_of_var(0, -1), 1);
}

/// All that is asked of two rays.
struct Rays {
    Rays(const Pair& p1, const Pair& way_1, const Pair& p2, const Pair& way_2, double tol = 1e-9) {
        const double within[] = {tol, 1e-7};
        int status = 9;
        const auto ask = [&](auto function, auto&&... outputs) {
            Pair d1 = way_1, d2 = way_2;  // made unit by every call
            return called(function, p1, d1, p2, d2, 0, outputs...);
        };
        ask(ARC_SPLINE_ask_isosceles_to_pt_2d, within, apex, parms, iso_1, iso_2, sides, &status);
        alike = ask(ARC_SPLINE_ask_are_two_rays_homodromic_2d, 1, within, again, &status);
        ask(ARC_SPLINE_ask_bisector_of_angle_2d, within, middle, first, &status);
        ask(ARC_SPLINE_ask_bisector_of_angle_2d, within, middle, bisector, nullptr);
        ask(ARC_SPLINE_ask_convexities_of_tri_arc_2d, within, turns, &longer, &status);
    }
    Pair apex{}, parms{}, again{}, iso_1{}, iso_2{}, middle{}, first{}, bisector{};
    std::array<int, 2> sides, turns;
    int alike;
    char longer;
};

TEST(ArcSplinePredicates, Rays) {
    const auto sign = [](double x) { return x > 0 ? 1 : -1; };
    Random random;
    for (int i = 0; i < rounds(200); ++i) {
        const Pair x = random.vector<2>();
        const double from = random.uniform(0, 360), angle = random.uniform(-170, 170);
        const Pair d1 = direction_at(from), d2 = direction_at(from + angle);
        const double t1 = random.normal(), t2 = random.normal(), s = std::sin(angle / 57.3);
        if (std::fabs(s) < 1e-2) continue;
        const Rays on(moved(x, -t1, d1), moved({}, 3, d1), moved(x, -t2, d2), d2);
        expect_near(on.apex, x, 1e-11);
        expect_near(on.parms, {t1, t2}, 1e-11);
        EXPECT_EQ(on.again, on.parms);
        expect_near(on.iso_1, moved(x, -sign(t1) * std::fabs(t2), d1), 1e-11);
        expect_near(on.iso_2, moved(x, -sign(t2) * std::fabs(t1), d2), 1e-11);
        expect_near(on.middle, moved(moved({}, 0.5, on.iso_1), 0.5, on.iso_2), 1e-12);
        expect_near(on.first, d1, 1e-14);  // who asks for the status gets no bisector
        expect_near(moved(x, distance(x, on.middle), on.bisector), on.middle, 1e-11);
        EXPECT_EQ(on.alike, t1 * t2 > 0 ? 1 : 0);
        EXPECT_EQ(on.turns, (std::array{sign(-t2 * s), sign(t1 * s)}));
        EXPECT_EQ(on.sides, (std::array{-on.turns[1], -on.turns[0]}));
        EXPECT_EQ(on.longer, std::fabs(t1) > std::fabs(t2) ? 'l' : 'r');
    }
    const double root = std::sqrt(0.5);
    const Pair o{0, 0}, right{1, 0}, up{0, 1}, half{root, root};
    const std::tuple<Pair, Pair, int, std::array<int, 2>, char, Pair, Pair> cases[] = {
        {{3, 2}, {-2, 0}, 0, {1, 1}, 'n', {3, 0}, right},  // parallel
        {{3, 2}, {2, 0}, 1, {1, -1}, 'n', {3, 0}, right},
        {{3, 0}, {2, 0}, 1, {0, 0}, 'n', {3, 0}, right},  // one line
        {{2, 0}, up, 1, {-1, 1}, 'l', {2, 0}, half},
        {{0, -2}, up, 1, {-1, 1}, 'r', {0, 0}, half},
        {{2, -2}, up, 1, {-1, 1}, 'e', {0, 0}, {-root, -root}},
        {{0, 0}, up, -1, {-2, -2}, 'e', {0, 0}, half}};
    for (const auto& [p2, d2, alike, turns, longer, iso_1, bisector] : cases) {
        const Rays on(o, right, p2, d2);
        EXPECT_EQ(std::tuple(on.alike, on.turns, on.longer), std::tuple(alike, turns, longer));
        expect_near(on.iso_1, iso_1, 1e-15);
        expect_near(on.bisector, bisector, 1e-15);
    }
    // Asked with what is known before: their status, and how far they meet. In the first two one
    // ray starts there; the product of the last ways is none.
    for (const auto& [parallel, t1, t2, tol, alike] : {std::array{0.0, 2.0, -1e-9, 1e-9, 1.0},
                                                       {0, -1e-9, 2, 1e-9, 1},
                                                       {1, 2, -1e-9, 1e-9, 0},
                                                       {2, 2, -1e-9, 1e-9, 0},
                                                       {0, 1e-200, -1e-200, 0, 1}}) {
        Pair d1 = right, d2 = up, parms{t1, t2};
        int status = static_cast<int>(parallel);
        const int found = called(ARC_SPLINE_ask_are_two_rays_homodromic_2d, o, d1, o, d2, 1, 0,
                                 &tol, parms, &status);
        EXPECT_EQ(found, alike);
    }
    expect_near(Rays(o, right, {1.2e-10, -2}, up).iso_1, {-2, 0}, 1e-9);
    EXPECT_EQ(Rays({-0.5, 0}, right, {0, -0.125}, up, 0.125).sides[1], 0);
    EXPECT_EQ(Rays({-0.125, 0}, right, {0, -0.5}, up, 0.125).sides[0], 0);
    EXPECT_EQ(Rays(o, right, {2, -2}, up, -1).longer, 'r') << "equal, without a tolerance";
    // They meet 0.375 and 0.5 on; the middle of the base is 0.3125 from there.
    for (const double tol : {0.125, 0.3125}) {
        const Rays on({-0.375, 0}, right, {0, -0.5}, up, tol);
        EXPECT_EQ(on.longer, 'e');
        EXPECT_EQ(on.bisector[0] > 0, tol > 0.3);
    }
}

TEST(ArcSplinePredicates, InscribedAngles) {
    Random random;
    double angle = 9, inscribed = 9;
    int type = 9, status = 9;
    const auto of_polygon = ARC_SPLINE_ask_bisector_of_polygon_angle;
    const auto of_vectors = ARC_SPLINE_ask_bisector_of_inscribed_angle;
    const auto bisector_by = [&](auto function, const auto&... inputs) {
        Vector bisector{9, 9, 9};
        called(function, inputs..., bisector, &inscribed, &type, &status);
        return bisector;
    };
    const Vector o{0, 0, 0}, up{0, 0, 1}, ahead{1, 0, 0};
    for (int i = 0; i < rounds(200); ++i) {
        const Vector normal = random_unit(random), v1 = random.vector(), v2 = random.vector();
        const Vector a = unit_of(moved(v1, -dot(v1, normal), normal));
        const Vector b = unit_of(moved(v2, -dot(v2, normal), normal));
        const double turn =
            std::atan2(dot(cross(a, b), normal), dot(a, b)) * 180 / std::numbers::pi;
        called(ARC_SPLINE_ask_inscribed_angle_and_type, v1, v2, normal, 1, 1.0, &angle, &inscribed,
               &type);
        EXPECT_NEAR(angle, turn < 0 ? turn + 360 : turn, 1e-9);
        EXPECT_NEAR(inscribed, 180 - turn, 1e-9);
        EXPECT_EQ(type, turn > 0 ? 1 : 0);
        const Vector p1 = random.vector(), p2 = moved(p1, 1, v1), p3 = moved(p2, 1, v2);
        const Vector bisector = bisector_by(of_polygon, p1, p2, p3, scaled(normal, 4), 1.0);
        EXPECT_EQ(status, 0);
        EXPECT_NEAR(dot(bisector, b), -dot(bisector, a), 1e-11);  // as far from either edge
        EXPECT_GE(dot(bisector, cross(normal, b)), 0);            // to the left
        EXPECT_EQ(bisector_by(of_polygon, p1, p2, p3, nullptr, 1.0),
                  bisector_by(of_polygon, p1, p2, p3, up, 1.0));
        const Vector projected = bisector_by(of_vectors, v1, v2, normal, 1 + i % 2, 1.0);
        EXPECT_LT(distance(projected, bisector), 1e-12);
        const Vector turned = bisector_by(of_vectors, v1, v2, normal, 0, 1.0);
        EXPECT_NEAR(dot(turned, normal), dot(unit_of(v2), normal), 1e-12) << "turned about it";
    }
    // No more of the tolerance than 0.001 degrees counts.
    const double cases[][3] = {
        {0.0008, 1, -1}, {0.0012, 1, 1}, {-0.0012, 1, 0}, {0.0008, 1e-4, 1}, {1e-9, 0, -1}};
    for (const auto& [turn, tol, expected] : cases) {
        const Pair d = direction_at(turn);
        const Vector p2{1, 0, 0}, p3{1 + d[0], d[1], 0};
        bisector_by(of_polygon, o, p2, p3, nullptr, tol);
        EXPECT_EQ(type, expected) << turn;
        EXPECT_EQ(inscribed == 180, expected == -1);
        for (const auto& [end, normal] : {std::pair{p2, p3}, {p3, o}}) {
            EXPECT_EQ(bisector_by(of_polygon, o, p2, end, normal, tol), o);
            EXPECT_TRUE(type == -2 && status == 1 && inscribed == 0);
        }
    }
    called(ARC_SPLINE_ask_inscribed_angle_and_type, o, o, o, 0, 1.0, &angle, &inscribed, &type);
    EXPECT_TRUE(type == -2 && angle == 0 && inscribed == 0);
    const Vector back{-1, 0x1.7p-50, 0};  // where the angle is 180 itself
    called(ARC_SPLINE_ask_inscribed_angle_and_type, ahead, back, up, 0, 1.0, &angle, &inscribed,
           &type);
    EXPECT_TRUE(type == 0 && angle == 180 && inscribed == 360);
}

}  // namespace
