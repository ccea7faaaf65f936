// Segments of arc splines: how they are made, evaluated, measured, moved and reversed.
#include <gtest/gtest.h>

#include <cstring>

#include "support/plane.h"
#include "support/reports.h"
#include "support/session.h"
#include "ztmath/arc_spline.h"

namespace {

using namespace ztmath_test;
using Segment = ARC_SPLINE_1_seg_2d_t;

constexpr char module[] = "arc_spline_apollonian_constructions";
constexpr double tols[] = {1e-6, 1e-3, 1e-4};

struct Made {
    Segment arc;
    Pair end, end_tangent;
};

Made made_arc(const Pair& start, double angle, double central, double radius, int orientation) {
    Made made{};
    const Pair tangent = direction_at(angle);
    EXPECT_EQ(ARC_SPLINE_cre_arc_seg_2d(start.data(), tangent.data(), central, radius, orientation,
                                        &made.arc, made.end.data(), made.end_tangent.data()),
              &made.arc);
    return made;
}

Segment made_straight(const Pair& start, Pair end, const Pair& fallback = {7, 7}) {
    Segment straight{};
    ARC_SPLINE_cre_strt_seg_2d(start.data(), end.data(), fallback.data(), &straight);
    return straight;
}

Segment made_circle(const Pair& center, double radius) {
    Segment circle{};
    EXPECT_EQ(ARC_SPLINE_cre_circle_from_center_and_radius_2d(center.data(), radius, &circle),
              &circle);
    return circle;
}

std::array<double, 10> numbers_of(const Segment& s) {
    std::array<double, 10> numbers;
    std::memcpy(numbers.data(), s.start_point, sizeof numbers);
    return numbers;
}

void expect_equal(const Segment& a, const Segment& b) {
    EXPECT_EQ(a.type, b.type);
    EXPECT_EQ(a.orientation, b.orientation);
    const auto x = numbers_of(a), y = numbers_of(b);
    for (std::size_t i = 0; i < x.size(); ++i)
        EXPECT_NEAR(x[i], y[i], 1e-11) << "number " << i;
}

struct At {
    Pair point{9, 9}, tangent{9, 9};
    int status = -9;
};

At evaluated(const Segment& s, double parm, int extrapolate = 0) {
    At at;
    ARC_SPLINE_evaluate_1_seg_2d(&s, extrapolate, parm, at.point.data(), at.tangent.data(),
                                 &at.status);
    return at;
}

/// Everything at once.
struct Data {
    explicit Data(const Segment* s, int want_corner = 1) {
        ARC_SPLINE_ask_1_seg_2d_data(s, want_corner, &type, &orientation, angles.data(), &length,
                                     &curvature, center.data(), start.data(), start_tangent.data(),
                                     end.data(), end_tangent.data(), corner.data(), &status);
    }
    int type = 9, orientation = 9, status = 9;
    Pair angles{}, center{}, start{}, start_tangent{}, end{}, end_tangent{}, corner{9, 9};
    double length = 9, curvature = 9;
};

// The oracle turns the radius about the centre, in extended precision.
TEST(ArcSplineSegments, RandomArcsFollowTheirCircles) {
    Random random;
    for (int i = 0; i < rounds(500); ++i) {
        const int o = random.integer(0, 1) == 1 ? 1 : -1;
        const double angle = random.uniform(0, 359), central = random.uniform(1, 359);
        const double r = random.uniform(0.1, 20), part = random.uniform(0, central);
        const Pair start = random.vector<2>();
        const auto [arc, end, end_tangent] = made_arc(start, angle, central, r, o);
        const Pair center = moved(start, o * r, left_of(direction_at(angle)));
        const auto point_at = [&](double turn) {
            return moved(center, r,
                         direction_at(angle - o * 90.0L + o * static_cast<long double>(turn)));
        };
        expect_equal(arc, {1,
                           o,
                           {start[0], start[1]},
                           angle,
                           angle + o * central,
                           {center[0], center[1]},
                           {0, 0},
                           r,
                           r});
        expect_near(end, point_at(central), 1e-12);
        expect_near(end_tangent, direction_at(angle + o * central), 1e-12);
        const At at = evaluated(arc, angle + o * part);
        EXPECT_EQ(at.status, 0);
        expect_near(at.point, point_at(part), 1e-12);
        expect_near(at.tangent, direction_at(angle + o * part), 1e-12);
        const At before = evaluated(arc, angle - o * 1.0, 1);
        expect_near(before.point, point_at(-1), 1e-12);

        const double arcl = r * part * std::numbers::pi / 180;
        double parms[] = {angle + o * part, angle + o * (central - 360)};  // one turn early
        int status = 9;
        EXPECT_NEAR(ARC_SPLINE_ask_arcl_to_parm_of_1_seg_2d(&arc, angle + o * part, &status), arcl,
                    1e-11);
        const double rest = ARC_SPLINE_ask_arcl_of_trimmed_1_seg_2d(&arc, parms, &status);
        EXPECT_NEAR(parms[1], arc.end_angle, 1e-11);
        EXPECT_NEAR(rest + arcl, ARC_SPLINE_ask_arcl_of_1_seg_2d(&arc, &status), 1e-11);

        const Data data(&arc);
        expect_near(data.end, end, 1e-12);
        expect_near(data.start_tangent, direction_at(angle), 1e-12);
        EXPECT_NEAR(data.curvature * data.length * 180 / std::numbers::pi, central, 1e-9);
        if (data.status == 0) {  // the tangents of the ends are equally long
            const double way = r * std::tan(central / 2 * std::numbers::pi / 180);
            expect_near(data.corner, moved(start, way, data.start_tangent), 1e-7 * std::fabs(way));
        } else {
            EXPECT_NEAR(central, 180, 0.01);
        }
    }
}

TEST(ArcSplineSegments, StraightsAreMeasuredFromTheirStart) {
    const Segment s = made_straight({1, 2}, {4, 6});
    expect_equal(s, {0, 0, {1, 2}, s.start_angle, s.start_angle, {2.5, 4}, {0.6, 0.8}, 5, 5});
    expect_near(direction_at(s.start_angle), {0.6, 0.8}, 1e-14);
    expect_near(evaluated(s, -5).point, {-2, -2}, 1e-14);  // no bounds
    double parms[] = {4, 1};
    int status = 9;
    EXPECT_EQ(ARC_SPLINE_ask_arcl_of_trimmed_1_seg_2d(&s, parms, &status), 3);
    EXPECT_EQ(parms[1], 1);
    EXPECT_EQ(ARC_SPLINE_ask_arcl_to_parm_of_1_seg_2d(&s, -2, &status), -2);
    EXPECT_EQ(ARC_SPLINE_ask_radius_of_1_seg_2d(&s), 1e19);
    EXPECT_EQ(Data(&s, 0).corner, (Pair{2.5, 4}));
    EXPECT_EQ(Data(&s).curvature, 0);
    // One that has no length: the fallback as given, and the end moved onto the start.
    Pair end{1, 1e-11};
    Segment null{};
    ARC_SPLINE_cre_strt_seg_2d(Pair{1, 0}.data(), end.data(), Pair{0, -3}.data(), &null);
    EXPECT_EQ(end, (Pair{1, 0}));
    expect_equal(null, {0, 0, {1, 0}, 270, 270, {1, 0}, {0, -3}, 0, 0});
    EXPECT_EQ(made_straight({0, 0}, {2e-10, 0}).radius, 2e-10);
}

TEST(ArcSplineSegments, FullCircles) {
    expect_equal(made_circle({5, 7}, 2), {1, 1, {2, 0}, 90, 450, {5, 7}, {0, 0}, 2, 2});
    Segment s{};
    EXPECT_EQ(ARC_SPLINE_cre_single_point_circle_2d(Pair{5, 7}.data(), &s), &s);
    expect_equal(s, {-1, 1, {5, 7}, 90, 450, {5, 7}, {0, 0}, 0, 0});
    ARC_SPLINE_cre_circle_from_point_tangent_radius_2d(Pair{5, 7}.data(), Pair{0, 1}.data(), 2, -1,
                                                       &s);
    expect_equal(s, {1, -1, {5, 7}, 90, -270, {7, 7}, {0, 0}, 2, 2});
    ARC_SPLINE_cre_circle_from_point_tangent_radius_2d(Pair{5, 7}.data(), Pair{0, 1}.data(), 2, 0,
                                                       &s);
    expect_equal(s, {1, 0, {5, 7}, 90, 450, {5, 7}, {0, 0}, 2, 2});
    EXPECT_EQ(evaluated(s, 200).point, (Pair{5, 7}));  // does not turn
    Segment copy{};
    ARC_SPLINE_copy_1_seg_2d_pre_allocated(&s, &copy);
    expect_equal(copy, s);
    ARC_SPLINE_init_1_seg_2d(&copy);
    expect_equal(copy, {});
}

TEST(ArcSplineSegments, DomainsAreClosedAndEndsAttract) {
    const Segment left{1, 1, {0, 0}, 10, 90, {0, 2}, {0, 0}, 2, 2}, right{1, -1, {0, 0}, 90, 10, {2, 0}, {0, 0}, 2, 2};
    for (const double parm : {10.0, 10 - 9e-11, 50.0, 90.0, 90 + 9e-11}) {
        EXPECT_EQ(evaluated(left, parm).status, 0);
        EXPECT_EQ(evaluated(right, parm).status, 0);
    }
    EXPECT_EQ(evaluated(left, 10 - 9e-11).point, (Pair{0, 0}));
    for (const double parm : {9.0, 10 - 2e-10, 90 + 2e-10, 91.0, 410.0}) {
        const At at = evaluated(left, parm);
        EXPECT_EQ(at.status, 2);
        EXPECT_EQ(at.point, (Pair{9, 9}));
        expect_near(at.tangent, direction_at(parm), 1e-14);
        EXPECT_EQ(evaluated(right, parm).status, 3);
    }
    struct {
        double parm;
        int flag;
        double moved_to;
    } cases[] = {{50, -1, 50},    {89.6, -1, 89.6}, {89.75, 0, 89.75}, {90, 0, 90},
                 {90.25, 0, 90},  {90.5, 0, 90},    {90.75, 1, 90.75}, {9.5, 0, 10},
                 {10.5, 0, 10.5}, {9.25, 1, 9.25},  {410, 1, 410},     {-310, 1, -310}};
    for (const auto& c : cases)
        for (const Segment& arc : {left, right}) {
            double parm = c.parm;
            const double tol = c.parm == 89.6 ? 0.25 : 0.5;
            EXPECT_EQ(ARC_SPLINE_ask_is_parm_in_arc_domain(&arc, tol, &parm), c.flag) << c.parm;
            EXPECT_NEAR(parm, c.moved_to, 1e-13);
        }
}

TEST(ArcSplineSegments, CentralAngles) {
    struct {
        double start, end;
        int orientation;
        double angle, end_after;
    } cases[] = {{350, 10, 1, 20, 370},  {10, 350, 1, 340, 350}, {10, -20, 1, 330, 340},
                 {10, 350, -1, 20, -10}, {350, 10, -1, 340, 10}, {10, 10, 1, 0, 10},
                 {10, 300, 0, 0, 300},   {90, 450, 1, 360, 450}, {0, -400, 1, -40, -40}};
    for (const auto& c : cases) {
        double end = c.end;
        EXPECT_EQ(
            ARC_SPLINE_ask_central_angle_from_inclination_angles(c.start, &end, c.orientation),
            c.angle);
        EXPECT_EQ(end, c.end_after);
        Segment arc{1, c.orientation, {0, 0}, c.start, c.end, {0, 0}, {0, 0}, 2, 2};
        EXPECT_EQ(Data(&arc).angles[1], c.end_after);
        EXPECT_EQ(arc.end_angle, c.end);  // only the next call writes it
        EXPECT_EQ(ARC_SPLINE_ask_central_angle_of_1_seg_2d(&arc), c.angle);
        EXPECT_EQ(arc.end_angle, c.end_after);
    }
}

TEST(ArcSplineSegments, Statuses) {
    const Segment thin = made_arc({1, 2}, 0, 90, 0.9e-10, 1).arc,
                  just = made_arc({1, 2}, 0, 90, 1e-10, 1).arc;
    Segment other = thin;
    other.type = 5;
    const Segment straight = made_straight({0, 0}, {1, 0});
    struct {
        const Segment* s;
        int measuring, data, circle, type, foot;
    } cases[] = {{nullptr, 1, 0, 1, -1, 1},
                 {&thin, 2, 1, 0, -1, 2},
                 {&just, 0, 0, 0, 1, 3},
                 {&other, 3, 3, 2, 5, 2},
                 {&straight, 0, 0, 0, 0, 0}};
    for (const auto& c : cases) {
        int status = 9, type = 9, domain = 9;
        double radius = 0, parms[] = {1, 2}, parm = 0;
        Pair p1{}, p2{}, p3{}, p4{}, at = {1, 2 + 1e-10};
        EXPECT_EQ(ARC_SPLINE_ask_arcl_of_1_seg_2d(c.s, &status) != 0, c.measuring == 0);
        EXPECT_EQ(status, c.measuring);
        EXPECT_EQ(ARC_SPLINE_ask_arcl_to_parm_of_1_seg_2d(c.s, 7, &status) != 0, c.measuring == 0);
        EXPECT_EQ(ARC_SPLINE_ask_arcl_of_trimmed_1_seg_2d(c.s, parms, &status) != 0,
                  c.measuring == 0);
        EXPECT_EQ(status, c.measuring);
        ARC_SPLINE_ask_end_pts_of_1_seg_2d(c.s, p1.data(), p2.data(), p3.data(), p4.data(),
                                           &status);
        EXPECT_EQ(status, c.measuring);
        EXPECT_EQ(Data(c.s).status, c.data);
        ARC_SPLINE_ask_center_radius_of_seg_2d(c.s, &type, &radius, p1.data(), &status);
        EXPECT_EQ(status, c.circle);
        EXPECT_EQ(type, c.type);
        ARC_SPLINE_ask_parm_at_a_point_2d(c.s, at.data(), tols, p1.data(), &parm, &domain, &status);
        EXPECT_EQ(status, c.foot);
        ARC_SPLINE_ask_dist_pt_to_1_seg_2d(c.s, at.data(), 0, tols, p1.data(), &parm, &radius,
                                           &status);
        EXPECT_EQ(status, c.foot);
    }
    EXPECT_EQ(Data(nullptr).type, -1);
    const Segment half = made_arc({0, 0}, 20, 180, 1, 1).arc;
    EXPECT_EQ(Data(&half).status, 2);  // no corner
    EXPECT_EQ(Data(&half, 0).status, 0);
    At at;
    ARC_SPLINE_evaluate_arc_seg_2d(&straight, 1, 0, at.point.data(), at.tangent.data(), &at.status);
    EXPECT_EQ(at.status, 1);
    ARC_SPLINE_evaluate_strt_seg_2d(&half, 0, at.point.data(), at.tangent.data(), &at.status);
    EXPECT_EQ(at.status, 1);
}

TEST(ArcSplineSegments, NearlyStraightArcs) {
    const double curvature[] = {1e-6, 1e-3, 0.25};  // the limit is the radius 4
    for (const double radius : {4.0, 4.5}) {
        Segment arc = made_arc({1, 2}, 0, 90, radius, 1).arc;
        const Segment before = arc;
        int status = 9;
        ARC_SPLINE_ask_is_arc_rather_strt_2d(&arc, curvature, &status);
        EXPECT_EQ(status, 0);
        expect_equal(arc, radius == 4 ? before : made_straight({1, 2}, {5.5, 6.5}));
    }
}

TEST(ArcSplineSegments, Reversal) {
    Segment straight = made_straight({1, 2}, {4, 6});
    ARC_SPLINE_reverse_parm_of_1_seg_2d(&straight);
    expect_equal(straight, made_straight({4, 6}, {1, 2}));
    for (const int o : {1, -1})
        for (const double central : {60.0, 180.0, 300.0}) {
            const auto [arc, end, end_tangent] = made_arc({1, 2}, 30, central, 2, o);
            Segment back = arc;
            ARC_SPLINE_reverse_parm_of_1_seg_2d(&back);
            EXPECT_EQ(back.orientation, -o);
            EXPECT_NEAR(back.end_angle, arc.end_angle - o * 360, 1e-12);  // not start_angle +- 180
            expect_near(evaluated(back, back.start_angle, 1).point, end, 1e-12);
            expect_near(direction_at(back.start_angle), {-end_tangent[0], -end_tangent[1]}, 1e-12);
            expect_near({back.center[0], back.center[1]}, {arc.center[0], arc.center[1]}, 1e-12);
        }
}

TEST(ArcSplineSegments, Offsets) {
    for (const int o : {1, -1})
        for (const double offset : {3.0, -1.0}) {
            const Segment arc =
                made_arc({1, 2}, 90, 60, 2, o).arc;  // the centre is at (1 - 2 o, 2)
            Segment out{};
            EXPECT_EQ(ARC_SPLINE_cre_offset_circle_2d(&arc, offset, 1e-6, &out), &out);
            expect_equal(out, made_arc({1 + o * offset, 2}, 90, 60, 2 + offset, o).arc);
        }
    Segment out{};
    const Segment straight = made_straight({0, 0}, {2, 0});
    ARC_SPLINE_cre_offset_straight_2d(&straight, 3, &out);
    expect_equal(out, made_straight({0, 3}, {2, 3}));
}

TEST(ArcSplineSegments, FeetAreNearest) {
    Random random;
    for (int i = 0; i < rounds(200); ++i) {
        const Pair start = random.vector<2>(), point = random.vector<2>();
        const double angle = random.uniform(0, 359), size = random.uniform(0.5, 3);
        const double central = random.uniform(20, 350);
        const bool straight = i % 3 == 0;
        const Segment s = straight ? made_straight(start, moved(start, size, direction_at(angle)))
                                   : made_arc(start, angle, central, size, i % 2 == 0 ? 1 : -1).arc;
        Pair foot{}, near{};
        double parm = 0, nearest = 0, distance_to = 0;
        int domain = 9, status = 9;
        ARC_SPLINE_ask_parm_at_a_point_2d(&s, point.data(), tols, foot.data(), &parm, &domain,
                                          &status);
        const double low = straight ? 0 : std::fmin(s.start_angle, s.end_angle);
        const double high = straight ? size : low + central;
        expect_near(evaluated(s, parm, 1).point, foot, 1e-11);
        EXPECT_EQ(domain, low < parm && parm < high ? -1 : 1);
        EXPECT_NEAR(dot(moved(point, -1, foot), evaluated(s, parm, 1).tangent), 0, 1e-11);
        if (!straight) {
            EXPECT_NEAR(distance(foot, point),
                        std::fabs(distance({s.center[0], s.center[1]}, point) - size), 1e-11);
            EXPECT_TRUE(parm >= low - tols[1] && parm < low - tols[1] + 360) << parm;
        }
        ARC_SPLINE_ask_dist_pt_to_1_seg_2d(&s, point.data(), 1, tols, near.data(), &parm, &nearest,
                                           &status);
        expect_near(evaluated(s, parm).point, near, 1e-11);
        EXPECT_NEAR(nearest, distance(near, point), 1e-12);
        for (int k = 0; k <= 50; ++k)
            EXPECT_LE(nearest,
                      distance(evaluated(s, low + k * (high - low) / 50, 1).point, point) + 1e-12);
        ARC_SPLINE_ask_dist_pt_to_1_seg_2d(&s, point.data(), 0, tols, near.data(), &parm,
                                           &distance_to, &status);
        EXPECT_EQ(near, foot);
        EXPECT_LE(distance_to, nearest + 1e-12);
    }
}

TEST(ArcSplineSegments, Reports) {
    const CheckingLevel level(1);
    ReportRecorder recorder;
    Segment point{}, out{};
    ARC_SPLINE_cre_single_point_circle_2d(Pair{1, 1}.data(), &point);
    ARC_SPLINE_reverse_parm_of_1_seg_2d(&point);
    EXPECT_EQ(recorder.take(),
              Reports{internal(module, "This segment type is not currently handled.")});
    Segment early{1, 1, {0, 0}, 350, 10, {0, 1}, {0, 0}, 1, 1};
    const Segment before = early;
    ARC_SPLINE_reverse_parm_of_1_seg_2d(&early);
    EXPECT_EQ(recorder.take(),
              Reports{internal(module, "The function ARC_SPLINE_evaluate_1_seg_2d failed.")});
    expect_equal(early, before);
    ARC_SPLINE_cre_offset_straight_2d(nullptr, 1, &out);
    ARC_SPLINE_cre_offset_straight_2d(&early, 1, &out);
    EXPECT_EQ(recorder.take(),
              (Reports{internal(module, "The input segment is not available."),
                       internal(module, "The input segment is not of straight type.")}));
    expect_equal(out, {});
    EXPECT_EQ(ARC_SPLINE_ask_central_angle_of_1_seg_2d(nullptr), 0);
    ARC_SPLINE_cre_offset_circle_2d(&point, 1, 0.5, &out);
    ARC_SPLINE_cre_offset_circle_2d(&before, -0.75, 0.5, &out);
    EXPECT_EQ(recorder.take(),
              (Reports{assertion(module, "segment_ptr"),
                       assertion(module, "( local_status_flag == 0 && type == 1 )"),
                       assertion(module, "( new_radius >= dist_tol )")}));
    ARC_SPLINE_cre_offset_circle_2d(&before, -0.5, 0.5, &out);  // equality holds
    EXPECT_TRUE(recorder.take().empty());
}

// The factor of the conversion makes straight up and left a hair more than 90 and 180 degrees.
TEST(ArcSplineSegments, AngleRanges) {
    struct {
        double y, x, full, half, line;
    } cases[] = {{0, 1, 0, 0, 0},        {1, 1, 45, 45, 45},     {1, 0, 90, 90, -90},
                 {1, -1, 135, 135, -45}, {0, -1, 180, -180, 0},   {-1, -1, 225, -135, 45},
                 {-1, 0, 270, -90, -90}, {-1, 1, 315, -45, -45}, {0, 0, 0, 0, 0}};
    for (const auto& c : cases) {
        EXPECT_NEAR(ARC_SPLINE_ask_angle_from_tan(c.y, c.x, 360), c.full, 1e-12);
        EXPECT_NEAR(ARC_SPLINE_ask_angle_from_tan(c.y, c.x, 17), c.full, 1e-12);
        EXPECT_NEAR(ARC_SPLINE_ask_angle_from_tan(c.y, c.x, 180), c.half, 1e-12);
        EXPECT_NEAR(ARC_SPLINE_ask_angle_from_tan(c.y, c.x, 90), c.line, 1e-12);
        double radians = 9;
        h053_(&c.y, &c.x, &radians);
        EXPECT_NEAR(radians * 180 / std::numbers::pi, c.full, 1e-12);
    }
    for (double y = -1e-18; y > -1e-14; y *= 1.5)  // next to a full turn, and never on it
        EXPECT_LT(ARC_SPLINE_ask_angle_from_tan(y, 1, 360), 360) << y;
    Pair normal{};
    for (const int right : {0, 1, 2}) {
        ARC_SPLINE_ask_perp_vec(right, Pair{3, 4}.data(), normal.data());
        EXPECT_EQ(normal, right == 1 ? (Pair{4, -3}) : (Pair{-4, 3}));
    }
}

}  // namespace
