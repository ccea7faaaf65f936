// Planar primitives: angles, circles, lines, three points, equations, intervals, rays.
#include "ztmath/arc_spline_primitives.h"

#include "support/segments.h"
#include "support/support.h"

namespace {

using namespace ztmath_test;

constexpr long double degrees = 180 / std::numbers::pi_v<long double>;

/// Counter-clockwise from a to b, in [0, 360).
double turn(const Pair& a, const Pair& b) {
    const long double y = dot(left_of(a), b), x = dot(a, b), angle = std::atan2(y, x) * degrees;
    return static_cast<double>(angle < 0 ? angle + 360 : angle);
}

struct Foot {
    double distance, parm = 9;
    Pair foot{};
    int side = 9;
};

Foot foot_on_line(const Pair& p, const Pair& a, const Pair& d, double tol) {
    Foot f;
    f.distance = called(ARC_SPLINE_ask_dist_pt_to_line_2d, p, a, d, tol, f.foot, &f.parm, &f.side);
    return f;
}

Foot foot_between(const Pair& p, const Pair& a, const Pair& b, int bounded) {
    Foot f;
    f.distance = called(ARC_SPLINE_ask_dist_pt_to_line_seg_2d, p, a, b, fine[0], bounded, f.foot,
                        &f.parm, &f.side);
    return f;
}

TEST(ArcSplinePrimitives, Angles) {
    Random random;
    int sense = 0, status = 9;
    const auto interior = [&](const Pair& a, const Pair& b, const Pair& c, double tol, int which) {
        const double within[] = {tol, 9};
        return called(ARC_SPLINE_ask_interior_angle_of_triangle_2d, a, b, c, within, which,
                      &status);
    };
    for (int i = 0; i < rounds(200); ++i) {
        const Pair a = random.vector<2>(), b = random.vector<2>(), c = random.vector<2>();
        const double angle = turn(a, b), r = random.uniform(1, 9), half = random.uniform(0.1, 89);
        Pair out{};
        EXPECT_NEAR(called(ARC_SPLINE_ask_angle_between_vectors_2d, a, b, 0), angle, 1e-11);
        EXPECT_NEAR(called(ARC_SPLINE_ask_central_angle_between_tangents_2d, a, b, &sense),
                    std::fmin(angle, 360 - angle), 1e-11);
        EXPECT_EQ(sense, angle <= 180 ? 1 : -1);
        EXPECT_EQ(called(ARC_SPLINE_ask_tan_2d_from_inclination_angle, out, angle), out.data());
        EXPECT_NEAR(called(ARC_SPLINE_ask_inclination_angle_from_tan_2d, out), angle, 1e-11);
        const double at_b = turn(minus(c, b), minus(a, b));
        EXPECT_NEAR(interior(a, b, c, 1e-9, 2), std::fmin(at_b, 360 - at_b), 1e-8);
        EXPECT_EQ(interior(a, b, c, 1e-9, 2), interior(b, a, c, 1e-9, 1));
        EXPECT_NEAR(interior(a, b, c, 1e-9, 2), interior(a, c, b, 1e-9, 3), 1e-11);
        const double chord = 2 * r * direction_at(half)[1];
        EXPECT_NEAR(ARC_SPLINE_ask_min_central_angle(r, chord), 2 * half, 1e-9);
    }
    EXPECT_NEAR(ARC_SPLINE_ask_min_central_angle(1, 2.5), 180, 1e-12);
    EXPECT_EQ(called(ARC_SPLINE_ask_inclination_angle_from_tan_2d, Pair{-0.0, 0}), 0);
    // The vertex 0.57 degrees off the line: the length bounds degrees.
    for (const auto& [tol, angle, found] :
         {std::array{0.5, 179.427, 0.0}, {0.6, 180, 0}, {2, 0, 1}})
        for (const double y : {0.01, -0.01}) {
            EXPECT_NEAR(interior({-1, 0}, {0, 0}, {3, 3 * y}, tol, 2), angle, 1e-3);
            EXPECT_EQ(status, found);
        }
    for (const int which : {1, 2, 3}) {  // sides as long as the tolerance
        interior({0, 0}, {0.25, 0}, {0, 0.25}, 0.25, which);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(interior({128, 0}, {0, 0}, {0x1p-43, 128}, 90, 2), 180);  // 90 degrees, no more
    const Pair up{0, 1}, hardly{5e-11, 0};  // without a direction, unless it is taken for unit
    for (const int unit : {0, 1})
        EXPECT_NEAR(called(ARC_SPLINE_ask_angle_between_vectors_2d, hardly, up, unit), 90 * unit,
                    1e-11);
    ReportRecorder recorder;
    EXPECT_EQ(interior({-1, 0}, {0, 0}, {1, 1}, 1e-9, 4), 0);
    for (const double radius : {0.9e-10, 1e-10})
        EXPECT_EQ(ARC_SPLINE_ask_min_central_angle(radius, 0), 0);
    const Reports expected{internal(arc_module, "Unrecognizable input value for which_angle."),
                           internal(arc_module, "The radius is zero.")};
    EXPECT_EQ(recorder.take(), expected);
}

TEST(ArcSplinePrimitives, PointsAndCirclesAgainstCircles) {
    const Arc circle({0, 0}, 4);
    const Segment line = made_straight({0, 0}, {1, 0});
    // The power of the second and third is above 1 and below 2.
    const auto where = ARC_SPLINE_ask_where_is_pt_wrt_circle_2d;
    for (const auto& [y, place] : {std::array{4.25, 1.0}, {4.2, 0}, {3.8, 0}, {3.7, -1}}) {
        EXPECT_EQ(called(where, Pair{0, y}, &circle, 1.0), place);
        EXPECT_EQ(called(where, Pair{0, y}, &line, 1.0), -1);
        const Vector p{0, 1, y}, center{0, 1, 0};
        EXPECT_NEAR(called(ARC_SPLINE_ask_power_of_a_point_3d, p, center, 4.0), y * y - 16, 1e-14);
    }
    EXPECT_EQ(called(where, Pair{4, 0}, &circle, NAN), 1);
    // A power of twice the tolerance's square is none yet.
    EXPECT_EQ(called(where, Pair{3, 3}, &circle, 1.0), 0);
    EXPECT_EQ(called(where, Pair{2, 2}, &circle, 2.0), 0);
    const double cases[][4] = {
        {2, 1, 3.125, 0}, {2, 1, 2.875, 0},  {2, 1, 3.25, 1}, {2, 2, 0.125, -6}, {2, 2, 1, -1},
        {3, 1, 2, -2},    {3, 1, 1.875, -2}, {3, 1, 2.5, -4}, {3, 1, 1, -1},     {1.125, 1, 0, -6}};
    for (const auto& [r1, r2, d, code] : cases) {
        const Arc c1({1, 1}, r1), c2({1 - d, 1}, r2);
        const bool mirrored = code == -2 || code == -4;
        EXPECT_EQ(ARC_SPLINE_ask_where_is_circle_wrt_circle_2d(&c1, &c2, 0.125), code);
        EXPECT_EQ(ARC_SPLINE_ask_where_is_circle_wrt_circle_2d(&c2, &c1, 0.125), code - mirrored);
    }
    EXPECT_EQ(ARC_SPLINE_ask_where_is_circle_wrt_circle_2d(nullptr, &circle, 1), 1);
    // Two that touch and an equal one: nothing is within no number.
    for (const auto& [r, d, code] : {std::array{1.0, 3.0, -1.0}, {1, 5, -4}, {4, 5, -4}}) {
        const Arc other({d, 0}, r);
        EXPECT_EQ(ARC_SPLINE_ask_where_is_circle_wrt_circle_2d(&circle, &other, NAN), code);
    }
}

TEST(ArcSplinePrimitives, RadicalAxesHaveEqualPowers) {
    Random random;
    Pair pt{}, dir{};
    int relation = 9, status = 9;
    const auto ask = [&](const Segment* c1, const Segment* c2) {
        called(ARC_SPLINE_ask_radical_axis_of_2_circles_2d, c1, c2, pt, dir, &relation, &status);
        return 10 * relation + status;
    };
    for (int i = 0; i < rounds(200); ++i) {
        const double r1 = random.uniform(0.1, 3), r2 = i % 4 == 0 ? r1 : random.uniform(0.1, 3);
        const Arc c1(random.vector<2>(), r1), c2(random.vector<2>(), r2);
        const Pair way = minus(center_of(c2), center_of(c1));
        EXPECT_EQ(ask(&c1, &c2), distance({}, way) <= r1 + r2 ? 20 : 0);  // nested ones, too
        EXPECT_NEAR(dot(left_of(way), dir), (r1 < r2 ? -1 : 1) * distance({}, way), 1e-12);
        EXPECT_NEAR(dot(left_of(way), minus(pt, center_of(c1))), 0, 1e-11);
        for (const double s : {0.0, 5.0}) {
            const Pair p = moved(pt, s, dir);
            const double power = called(ARC_SPLINE_ask_power_of_a_point_2d, p, &c1);
            EXPECT_NEAR(power, called(ARC_SPLINE_ask_power_of_a_point_2d, p, &c2), 1e-9);
            EXPECT_EQ(called(ARC_SPLINE_ask_power_of_a_point_2d, p, nullptr), 0);
        }
    }
    const Arc c({0, 0}, 2), larger({0, 5}, 3), beside({1e-10, 0}, 1);
    const Arc tiny({0, 0}, 1e-10), next({1e-10, 0}, 1e-10), twice({3e-10, 0}, 2e-10);
    const Segment line = made_straight({0, 0}, {1, 0});
    EXPECT_EQ(ask(&c, &larger), 20);   // which touch
    EXPECT_EQ(ask(&tiny, &next), 10);  // what counts as zero counts here
    EXPECT_EQ(ask(&tiny, &twice), 10);
    EXPECT_EQ(ask(&c, &beside), 20);
    EXPECT_EQ(dir, (Pair{0, 1}));
    pt = {9, 9};
    EXPECT_EQ(ask(&c, &c), 30);
    EXPECT_EQ(ask(&line, &c), 21);
    EXPECT_EQ(ask(&c, nullptr), 22);
    EXPECT_EQ(pt, (Pair{9, 9}));
}

TEST(ArcSplinePrimitives, FeetAndMirrorImages) {
    Random random;
    for (int i = 0; i < rounds(200); ++i) {
        const Pair p = random.vector<2>(), a = random.vector<2>();
        const Pair d = direction_at(random.uniform(0, 360)), b = moved(a, 0.5, d);
        const double aside = dot(left_of(d), minus(p, a)), ahead = dot(d, minus(p, a));
        const double kept = std::clamp(ahead, 0.0, 0.5);
        const Foot free = foot_on_line(p, a, d, 1e-9), same = foot_between(p, a, b, 0);
        EXPECT_NEAR(same.distance, std::fabs(aside), 1e-14);
        EXPECT_EQ(free.side, aside > 0 ? -1 : 1);
        EXPECT_NEAR(free.parm, ahead, 1e-14);
        expect_near(free.foot, moved(a, ahead, d), 1e-14);
        const Foot bounded = foot_between(p, a, b, 1);
        EXPECT_NEAR(bounded.distance, std::hypot(aside, ahead - kept), 1e-14);
        expect_near(bounded.foot, moved(a, bounded.parm, d), 1e-14);
        Pair mirror{};
        int side = 9;
        called(ARC_SPLINE_mirror_point_wrt_line_2d, p, a, d, 1e-9, mirror, &side);
        expect_near(mirror, moved(p, -2 * aside, left_of(d)), 1e-14);
    }
    // The tolerance 0.5: a foot this near the line's point is that point.
    const std::tuple<Pair, double, double, int> cases[] = {{{0.5, 2}, 0, std::hypot(0.5, 2), -1},
                                                           {{0.375, 0.25}, 0, 0.45, 0},
                                                           {{2, 0.5}, 2, 0.5, 0},
                                                           {{2, -0.625}, 2, 0.625, 1}};
    for (const auto& [p, parm, far, side] : cases) {
        const Foot f = foot_on_line(p, {0, 0}, {1, 0}, 0.5);
        EXPECT_EQ(f.parm, parm);
        EXPECT_NEAR(f.distance, far, 1e-3);
        EXPECT_EQ(f.side, side);
    }
    ReportRecorder recorder;
    EXPECT_EQ(foot_between({0.5, 2}, {0, 0}, {1, 0}, 1).distance, 2);
    const Foot null = foot_between({4, 4}, {1, 0}, {1, 1e-9}, 1);
    EXPECT_TRUE(null.distance == 5 && null.parm == 0 && null.side == -1);
    const Report report =
        internal(arc_module, "The line segment is not defined; we have coincident points.");
    EXPECT_EQ(recorder.take(), Reports{report});
}

TEST(ArcSplinePrimitives, LinesMeet) {
    const double wide[] = {1e-6, 1};  // one degree
    Pair d1{}, d2{}, pt{}, parms{};
    double cosine = 9;
    const auto status = [&](const Pair& p1, const Pair& p2) {
        int found = 9;
        pt = parms = {9, 9};
        called(ARC_SPLINE_inter_line_line_2d, wide, p1, p2, 0, d1, d2, pt, parms, &cosine, &found);
        return found;
    };
    Random random;
    for (int i = 0; i < rounds(200); ++i) {
        const Pair p1 = random.vector<2>(), p2 = random.vector<2>();
        const double angle = random.uniform(1.5, 178.5), from = random.uniform(0, 360);
        d1 = moved({}, 0.25, direction_at(from));
        d2 = moved({}, 3, direction_at(from + angle));
        EXPECT_EQ(status(p1, p2), 0);
        expect_near(d1, direction_at(from), 1e-15);
        expect_near(d2, direction_at(from + angle), 1e-15);
        EXPECT_NEAR(cosine, direction_at(angle)[0], 1e-14);
        expect_near(pt, moved(p1, parms[0], d1), 1e-12);
        expect_near(pt, moved(p2, parms[1], d2), 1e-12);
    }
    d1 = {1, 0}, d2 = {-2, 0};
    EXPECT_EQ(status({0, 0}, {5, 0.02}), 2);  // the way, too, is within the angle
    EXPECT_EQ(status({0, 0}, {0, 1e-6}), 1);
    EXPECT_EQ(pt, (Pair{9, 9}));
    EXPECT_EQ(status({0, 0}, {0, 5e-7}), 2);
    d2 = {0, 1};
    EXPECT_EQ(status({0, 0}, {0, 5e-7}), 0);
    EXPECT_EQ(pt, (Pair{0, 2.5e-7}));
    EXPECT_EQ(parms, (Pair{9, 9}));
    EXPECT_EQ(status({0, 0}, {2.7, 0}), 0);
    EXPECT_EQ(parms[0], 2.7);
    d2 = direction_at(0.9);
    EXPECT_EQ(status({0, 0}, {0, 1}), 1);
    for (const double size : {0.9e-8, 1.1e-8}) {  // the first without a direction
        d2 = {0, size};
        EXPECT_EQ(status({0, 0}, {0, 1}), size < 1e-8);
        EXPECT_EQ(cosine, size < 1e-8);
    }
}

/// A host may leave a call by its report.
TEST(ArcSplinePrimitives, OutputsStandBeforeAReport) {
    struct Left {};
    const CheckingLevel level(1);
    const ReportRecorder leaving([](const Report&) { throw Left{}; });
    const Pair p{3, 4};
    Foot foot;
    int status = 9;
    Segment out = Arc({0, 0}, 1);
    EXPECT_THROW(called(ARC_SPLINE_ask_interior_angle_of_triangle_2d, p, p, p, fine, 4, &status),
                 Left);
    EXPECT_THROW(called(ARC_SPLINE_ask_dist_pt_to_line_seg_2d, p, p, p, fine[0], 1, foot.foot,
                        &foot.parm, &foot.side),
                 Left);
    EXPECT_THROW(ARC_SPLINE_cre_offset_circle_2d(nullptr, 1, 1, &out), Left);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(foot.foot, p);
    EXPECT_EQ(foot.side, -1);
    EXPECT_EQ(out.type, 0);
}

}  // namespace
