// Segments of arc splines: how they are made, evaluated, measured, moved, reversed and trimmed.
#include "support/segments.h"
#include "support/reports.h"
#include "support/session.h"
#include "ztmath/arc_spline_constructions.h"

namespace {

using namespace ztmath_test;

constexpr double tols[] = {1e-6, 1e-3, NAN};  // the curvature has no part in these

int trim(Segment* s, const Pair& point) {
    int status = 9;
    ARC_SPLINE_trim_to_point_1_seg_2d(point.data(), tols, s, &status);
    return status;
}

struct Foot {
    Pair at{};
    double parm = 0, distance = 0;
    int domain = 9, status = 9;
};

Foot foot_on(const Segment* s, const Pair& point, const double* within = tols) {
    Foot f;
    ARC_SPLINE_ask_parm_at_a_point_2d(s, point.data(), within, f.at.data(), &f.parm, &f.domain,
                                      &f.status);
    return f;
}

Foot nearest_on(const Segment& s, const Pair& point, int bounded, const double* within = tols) {
    Foot f;
    ARC_SPLINE_ask_dist_pt_to_1_seg_2d(&s, point.data(), bounded, within, f.at.data(), &f.parm,
                                       &f.distance, &f.status);
    return f;
}

// The oracle turns the radius about the centre, in extended precision.
TEST(ArcSplineSegments, RandomArcsFollowTheirCircles) {
    Random random;
    for (int i = 0; i < rounds(300); ++i) {
        const int o = random.integer(0, 1) == 1 ? 1 : -1;
        const double angle = random.uniform(0, 359), central = random.uniform(1, 359);
        const double r = random.uniform(0.1, 20), part = random.uniform(0, central);
        const Pair start = random.vector<2>();
        const auto [arc, end, end_tangent] = made_arc(start, angle, central, r, o);
        const Pair center = moved(start, o * r, left_of(direction_at(angle)));
        const double last = angle + o * central;
        expect_equal(arc,
                     {1, o, {start[0], start[1]}, angle, last, {center[0], center[1]}, {}, r, r});
        EXPECT_EQ(end_tangent, evaluated(arc, last).tangent);
        for (const long double turn : {part, central, central + part}) {
            const At at = evaluated(arc, static_cast<double>(angle + o * turn), turn > central);
            expect_near(at.point, moved(center, r, direction_at(angle + o * (turn - 90))), 1e-11);
            expect_near(at.tangent, direction_at(angle + o * turn), 1e-12);
        }
        double parms[] = {angle + o * part, angle + o * (central - 360)};  // one turn early
        int status = 9;
        const double length = ARC_SPLINE_ask_arcl_to_parm_of_1_seg_2d(&arc, parms[0], &status);
        EXPECT_NEAR(length, r * part * (std::numbers::pi / 180), 1e-11);
        const double rest = ARC_SPLINE_ask_arcl_of_trimmed_1_seg_2d(&arc, parms, &status);
        EXPECT_NEAR(parms[1], last, 1e-11);
        EXPECT_NEAR(rest + length, ARC_SPLINE_ask_arcl_of_1_seg_2d(&arc, &status), 1e-11);

        const Data data(&arc);
        expect_near(data.end, end, 1e-11);
        EXPECT_NEAR(data.curvature * data.length * 180 / std::numbers::pi, central, 1e-9);
        if (data.status != 0) continue;  // a half circle has no corner
        const double way = r * std::tan(central / 2 * std::numbers::pi / 180);
        expect_near(data.corner, moved(start, way, data.start_tangent), 1e-7 * std::fabs(way));
    }
}

TEST(ArcSplineSegments, FeetAreNearestAndTrimmingEndsThere) {
    Random random;
    for (int i = 0; i < rounds(200); ++i) {
        const Pair start = random.vector<2>(), point = random.vector<2>();
        const double angle = random.uniform(0, 359), size = random.uniform(0.5, 3);
        const double central = random.uniform(20, 350);
        const bool straight = i % 3 == 0;
        const int o = i % 2 == 0 ? 1 : -1;
        const Segment s = straight ? made_straight(start, moved(start, size, direction_at(angle)))
                                   : made_arc(start, angle, central, size, o).arc;
        const auto [foot, parm, unset, domain, status] = foot_on(&s, point);
        const double low = straight ? 0 : std::fmin(s.start_angle, s.end_angle);
        const double span = straight ? size : central;
        const At at = evaluated(s, parm, 1);
        expect_near(at.point, foot, 1e-11);
        EXPECT_TRUE(domain == 0 || domain == (low < parm && parm < low + span ? -1 : 1));
        EXPECT_NEAR(dot(moved(point, -1, foot), at.tangent), 0, 1e-11);
        EXPECT_TRUE(straight || (parm >= low - tols[1] && parm < low - tols[1] + 360)) << parm;
        const Foot near = nearest_on(s, point, 1);
        expect_near(evaluated(s, near.parm).point, near.at, 1e-11);
        for (double part = 0; part <= 1; part += 1.0 / 64)
            EXPECT_LE(near.distance,
                      distance(evaluated(s, low + part * span, 1).point, point) + 1e-12);
        EXPECT_EQ(nearest_on(s, point, 0).at, foot);
        const double turn = std::fmod(o * (parm - angle) + 720, 360);
        if (!straight && std::fabs(turn - 180) > 179) continue;  // within the distance of the start
        Segment cut = s;
        EXPECT_EQ(trim(&cut, point), 0);
        const Segment arc = made_arc(start, angle, turn, size, o).arc;
        expect_equal(cut, straight ? made_straight(start, foot) : arc, 1e-8);
    }
}

/// The record of a circle about (5, 5) starts at (2, 0), off the circle.
TEST(ArcSplineSegments, TrimmingEndsAtTheFoot) {
    Segment s = made_circle({5, 5}, 2);
    EXPECT_EQ(trim(&s, {5, 9}), 0);
    expect_near(Data(&s).end, {5, 7}, 1e-12);
}

TEST(ArcSplineSegments, TrimmingThatFailsLeavesTheSegment) {
    const Segment before = made_arc({0, 0}, 0, 90, 2, 1).arc;
    Segment s = before;
    EXPECT_EQ(trim(&s, {0, 2}), 1);     // the centre
    EXPECT_EQ(trim(&s, {1e-7, 1}), 3);  // to the start
    expect_equal(s, before);
    for (const int way : {-1, 0, 1}) {  // too little ahead to have a direction of its own
        s = made_straight({0, 0}, {1, 0});
        EXPECT_EQ(trim(&s, {way * 1e-11, 3}), 0);
        const double angle = way < 0 ? 180 : 0;
        expect_equal(s, {0, 0, {0, 0}, angle, angle, {0, 0}, {way < 0 ? -1.0 : 1.0, 0}, 0, 0});
    }
}

TEST(ArcSplineSegments, StraightsAreMeasuredFromTheirStart) {
    const Segment s = made_straight({1, 2}, {4, 6});
    expect_equal(s, {0, 0, {1, 2}, s.start_angle, s.start_angle, {2.5, 4}, {0.6, 0.8}, 5, 5});
    expect_near(evaluated(s, -5).point, {-2, -2}, 1e-14);  // no bounds
    double parms[] = {4, 1};
    int status = 9;
    EXPECT_EQ(ARC_SPLINE_ask_arcl_of_trimmed_1_seg_2d(&s, parms, &status), 3);
    EXPECT_EQ(ARC_SPLINE_ask_radius_of_1_seg_2d(&s), 1e19);
    EXPECT_EQ(Data(&s, 0).corner, (Pair{2.5, 4}));
    EXPECT_EQ(Data(&s).curvature, 0);
    // One that has no length: the fallback as given, and the end moved onto the start.
    Pair end{1, 1e-11};
    Segment null{};
    ARC_SPLINE_cre_strt_seg_2d(Pair{1, 0}.data(), end.data(), Pair{0, -3}.data(), &null);
    EXPECT_EQ(end, (Pair{1, 0}));
    expect_equal(null, {0, 0, {1, 0}, 270, 270, {1, 0}, {0, -3}, 0, 0});
    EXPECT_EQ(made_straight({0, 0}, {1e-10, 0}).radius, 1e-10);
}

TEST(ArcSplineSegments, FullCircles) {
    expect_equal(made_circle({5, 7}, 2), {1, 1, {2, 0}, 90, 450, {5, 7}, {}, 2, 2});
    Segment s{};
    EXPECT_EQ(ARC_SPLINE_cre_single_point_circle_2d(Pair{5, 7}.data(), &s), &s);
    expect_equal(s, {-1, 1, {5, 7}, 90, 450, {5, 7}, {}, 0, 0});
    for (const int o : {-1, 0, 1}) {  // 0 stays at its start
        ARC_SPLINE_cre_circle_from_point_tangent_radius_2d(Pair{5, 7}.data(), Pair{0, 1}.data(), 2,
                                                           o, &s);
        expect_equal(s, {1, o, {5, 7}, 90, o == -1 ? -270.0 : 450.0, {5 - 2.0 * o, 7}, {}, 2, 2});
        expect_near(evaluated(s, 180, 1).point, moved({5 - 2.0 * o, 7}, 2.0 * o, {0, 1}), 1e-12);
    }
    Segment copy{};
    ARC_SPLINE_copy_1_seg_2d_pre_allocated(&s, &copy);
    expect_equal(copy, s, 0);
    ARC_SPLINE_init_1_seg_2d(&copy);
    expect_equal(copy, {}, 0);
}

TEST(ArcSplineSegments, DomainsAreClosedAndEndsAttract) {
    const Segment left{1, 1, {0, 0}, 10, 90, {0, 2}, {}, 2, 2};
    const Segment right{1, -1, {0, 0}, 90, 10, {2, 0}, {}, 2, 2};
    for (const double parm : {10.0, 10 - 9e-11, 90.0, 90 + 9e-11, 9.0, 10 - 2e-10, 90 + 2e-10}) {
        const At at = evaluated(left, parm);
        const bool inside = std::fabs(parm - 50) < 40 + 1e-10;
        EXPECT_EQ(at.status, inside ? 0 : 2);
        EXPECT_EQ(evaluated(right, parm).status, inside ? 0 : 3);
        EXPECT_EQ(at.point == (Pair{9, 9}), !inside);
        expect_near(at.tangent, direction_at(parm), 1e-11);
    }
    const Segment first{1, 1, {0, 0}, 0, 90, {0, 2}, {}, 2, 2};  // 1e-10 beside 0 is outside
    const Segment last{1, 1, {0, 0}, -90, 0, {2, 0}, {}, 2, 2};
    EXPECT_EQ(evaluated(first, -1e-10).status + evaluated(last, 1e-10).status, 4);
    const Pair early = moved({0, 2}, 5, direction_at(9.9995 - 90));  // a foot just before the start
    const Foot start = foot_on(&left, early);
    EXPECT_TRUE(start.parm == 10 && start.domain == 0) << start.parm;
    // A whole circle has no outside, also where it starts less beyond a foot than a turn tells.
    Segment circle = made_circle({0, 0}, 1);
    const Pair below = direction_at(269.9);
    const double exact[] = {0, 0};
    const double full = foot_on(&circle, below, exact).parm;
    for (const double angle : {full, std::nextafter(full - 360, 0)}) {
        circle.start_angle = angle;
        circle.end_angle = angle + 360;
        const Foot foot = foot_on(&circle, below, exact);
        EXPECT_TRUE(foot.parm == full && foot.domain == 0) << foot.parm;
    }
    const double cases[][3] = {{50, -1, 50}, {89.25, -1, 89.25}, {89.5, 0, 89.5}, {90.5, 0, 90},
                               {91, 1, 91},  {9.5, 0, 10},       {10.5, 0, 10.5}, {410, 1, 410}};
    for (const auto& [given, flag, moved_to] : cases)
        for (const Segment& arc : {left, right}) {
            double parm = given;
            EXPECT_EQ(ARC_SPLINE_ask_is_parm_in_arc_domain(&arc, 0.5, &parm), flag) << given;
            EXPECT_EQ(parm, moved_to);
        }
    const double wide[] = {0.25, 0}, wider[] = {3, 3};
    const Segment straight = made_straight({0, 0}, {2, 0});
    for (const double x : {-1.0, 1.0, 3.0})  // both ends within the tolerance
        EXPECT_EQ(foot_on(&straight, {x, 1}, wider).parm, std::clamp(x, 0.0, 2.0));
    const Foot near = nearest_on(straight, {2.125, 1}, 1, wide);
    EXPECT_TRUE(near.distance == 1 && near.parm == 2) << "near enough to the end";
    const Segment half = made_arc({0, -1}, 0, 180, 1, 1).arc;
    EXPECT_EQ(nearest_on(half, {-3e9, 0}, 1, wide).parm, 0) << "the start of ends equally near";
    for (double end : {10, 90})
        EXPECT_EQ(ARC_SPLINE_ask_is_parm_in_arc_domain(&left, -1, &end), 1);
}

TEST(ArcSplineSegments, CentralAngles) {
    const double cases[][5] = {{350, 10, 1, 20, 370},  {10, 350, 1, 340, 350},
                               {10, -20, 1, 330, 340}, {10, 350, -1, 20, -10},
                               {10, 300, 0, 0, 300},   {0, -400, 1, -40, -40}};
    for (const auto& [start, end, orientation, angle, end_after] : cases) {
        Segment arc{1, static_cast<int>(orientation), {}, start, end, {}, {}, 2, 2};
        double moved_on = end;
        const double central =
            ARC_SPLINE_ask_central_angle_from_inclination_angles(start, &moved_on, arc.orientation);
        EXPECT_TRUE(central == angle && moved_on == end_after) << central;
        EXPECT_EQ(Data(&arc).angles, (Pair{start, end_after}));
        EXPECT_EQ(arc.end_angle, end);  // only the next call writes it
        EXPECT_EQ(ARC_SPLINE_ask_central_angle_of_1_seg_2d(&arc), angle);
        EXPECT_EQ(arc.end_angle, end_after);
    }
}

TEST(ArcSplineSegments, Statuses) {
    const Segment thin{1, 1, {}, 0, 90, {}, {}, 0.9e-10, 0.9e-10},
        just{1, 1, {}, 0, 90, {}, {}, 1e-10, 1e-10};
    const Segment other{5, 0, {}, 0, 0, {}, {}, 1, 1}, straight = made_straight({0, 0}, {1, 0});
    const struct {
        const Segment* s;
        int measuring, data, ends, circle, type, foot;
    } cases[] = {{nullptr, 1, 0, 1, 1, -1, 1},
                 {&thin, 2, 1, 2, 0, -1, 2},
                 {&just, 0, 0, 0, 0, 1, 3},
                 {&other, 3, 3, 3, 2, 5, 2},
                 {&straight, 0, 0, 0, 0, 0, 0}};
    for (const auto& c : cases) {
        int status = 9, type = 9;
        double radius = 0, parms[] = {0, 1};
        Pair out{9, 9};
        for (const double length : {ARC_SPLINE_ask_arcl_of_1_seg_2d(c.s, &status),
                                    ARC_SPLINE_ask_arcl_to_parm_of_1_seg_2d(c.s, 1, &status),
                                    ARC_SPLINE_ask_arcl_of_trimmed_1_seg_2d(c.s, parms, &status)})
            EXPECT_EQ(length != 0, c.measuring == 0);
        EXPECT_EQ(status, c.measuring);
        const Data data(c.s);
        EXPECT_EQ(data.status, c.data);
        std::array<Pair, 4> ends{};
        ARC_SPLINE_ask_end_pts_of_1_seg_2d(c.s, ends[0].data(), ends[1].data(), ends[2].data(),
                                           ends[3].data(), &status);
        EXPECT_EQ(status, c.ends);
        EXPECT_EQ(ends, status != 0 ? decltype(ends){}
                                    : (std::array{data.start, data.start_tangent, data.end,
                                                  data.end_tangent}));
        ARC_SPLINE_ask_center_radius_of_seg_2d(c.s, &type, &radius, out.data(), &status);
        EXPECT_TRUE(status == c.circle && type == c.type) << status << ' ' << type;
        EXPECT_EQ(radius > 0.0, status == 0);
        EXPECT_EQ(out, c.s == nullptr ? (Pair{9, 9}) : center_of(*c.s));
        EXPECT_EQ(foot_on(c.s, {1e-10, 0}).status, c.foot);
    }
    const Segment half = made_arc({0, 0}, 20, 180, 1, 1).arc;
    for (const int want_corner : {0, 1}) {
        const Data data(&half, want_corner);
        EXPECT_EQ(data.status, 2 * want_corner);
        EXPECT_EQ(data.corner, (Pair{9, 9})) << "none";
    }
    const Segment nearly = made_arc({0, 0}, 20, 179.994, 1, 1).arc;
    EXPECT_EQ(Data(&nearly).status, 0) << "more than 0.005 degrees from parallel";
    int statuses[] = {9, 9, 9};
    ARC_SPLINE_evaluate_arc_seg_2d(&straight, 1, 0, nullptr, nullptr, &statuses[0]);
    ARC_SPLINE_evaluate_strt_seg_2d(&half, 0, nullptr, nullptr, &statuses[1]);
    EXPECT_EQ(statuses[0] * statuses[1], 1);
    Pair tangent{};
    ARC_SPLINE_evaluate_arc_seg_2d(&half, 0, 10, nullptr, tangent.data(), &statuses[2]);
    EXPECT_EQ(statuses[2], 2) << "before the start";
    ARC_SPLINE_evaluate_1_seg_2d(nullptr, 1, 0, nullptr, nullptr, &statuses[0]);
    ARC_SPLINE_evaluate_strt_seg_2d(nullptr, 0, nullptr, nullptr, &statuses[1]);
    ARC_SPLINE_ask_is_arc_rather_strt_2d(nullptr, tols, &statuses[2]);
    EXPECT_EQ(std::to_array(statuses), (std::array{1, 1, 2})) << "no record";
    EXPECT_EQ(ARC_SPLINE_ask_radius_of_1_seg_2d(nullptr), 0);
}

TEST(ArcSplineSegments, NearlyStraightArcs) {
    const double curvature[] = {1e-6, 1e-3, 0.25};  // the limit is the radius 4
    for (const double radius : {4.0, 4.5}) {
        Segment arc = made_arc({1, 2}, 0, 90, radius, 1).arc;
        int status = 9;
        ARC_SPLINE_ask_is_arc_rather_strt_2d(&arc, curvature, &status);
        EXPECT_EQ(arc.type, radius == 4 ? 1 : 0);
        expect_near(Data(&arc).end, {1 + radius, 2 + radius}, 1e-12);
    }
}

TEST(ArcSplineSegments, Reversal) {
    Segment straight = made_straight({1, 2}, {4, 6});
    ARC_SPLINE_reverse_parm_of_1_seg_2d(&straight);
    expect_equal(straight, made_straight({4, 6}, {1, 2}));
    Segment null{0, 0, {1, 0}, 270, 270, {1, 0}, {0, -3}, 0, 0};  // its tangent as it was given
    ARC_SPLINE_reverse_parm_of_1_seg_2d(&null);
    expect_equal(null, {0, 0, {1, 0}, 90, 90, {1, 0}, {0, 3}, 0, 0});
    for (const int o : {1, -1})
        for (const double central : {60.0, 180.0}) {
            const Segment arc = made_arc({1, 2}, 30, central, 2, o).arc;
            Segment back = arc;
            ARC_SPLINE_reverse_parm_of_1_seg_2d(&back);
            EXPECT_NEAR(back.end_angle, arc.end_angle - o * 360, 1e-12);  // not start_angle +- 180
            expect_near(evaluated(back, back.start_angle, 1).point, Data(&arc).end, 1e-12);
            expect_near(center_of(back), center_of(arc), 1e-12);
            ARC_SPLINE_reverse_parm_of_1_seg_2d(&back);
            if (central == 180) expect_equal(back, arc);  // no other comes back
        }
}

TEST(ArcSplineSegments, Offsets) {
    Segment out{};
    for (const int o : {1, -1})  // always larger by the offset
        for (const double offset : {3.0, -1.0}) {
            const Segment arc = made_arc({1, 2}, 90, 60, 2, o).arc;
            EXPECT_EQ(ARC_SPLINE_cre_offset_circle_2d(&arc, offset, 1e-6, &out), &out);
            expect_equal(out, made_arc({1 + o * offset, 2}, 90, 60, 2 + offset, o).arc);
        }
    const Segment straight = made_straight({0, 0}, {2, 0});
    ARC_SPLINE_cre_offset_straight_2d(&straight, 3, &out);
    expect_equal(out, made_straight({0, 3}, {2, 3}));
    ARC_SPLINE_cre_offset_circle_2d(&straight, 3, 1e-6, &out);
    expect_equal(out, {});
}

TEST(ArcSplineSegments, Reports) {
    const CheckingLevel level(1);
    ReportRecorder recorder;
    Segment point{}, out{};
    ARC_SPLINE_cre_single_point_circle_2d(Pair{1, 1}.data(), &point);
    Segment early{1, 1, {0, 0}, 350, 10, {0, 1}, {}, 1, 1};
    ARC_SPLINE_reverse_parm_of_1_seg_2d(&point);
    ARC_SPLINE_reverse_parm_of_1_seg_2d(nullptr);
    ARC_SPLINE_reverse_parm_of_1_seg_2d(&early);  // which stays
    ARC_SPLINE_cre_offset_straight_2d(nullptr, 1, &out);
    ARC_SPLINE_cre_offset_straight_2d(&early, 1, &out);
    expect_equal(out, {});
    EXPECT_EQ(ARC_SPLINE_ask_central_angle_of_1_seg_2d(nullptr), 0);
    ARC_SPLINE_cre_offset_circle_2d(&point, 1, 0.5, &out);
    ARC_SPLINE_cre_offset_circle_2d(&early, -0.75, 0.5, &out);
    ARC_SPLINE_cre_offset_circle_2d(&early, -0.5, 0.5, &out);  // equality holds
    const Reports expected{
        internal(arc_module, "This segment type is not currently handled."),
        internal(arc_module, "This segment type is not currently handled."),
        internal(arc_module, "The function ARC_SPLINE_evaluate_1_seg_2d failed."),
        internal(arc_module, "The input segment is not available."),
        internal(arc_module, "The input segment is not of straight type."),
        assertion(arc_module, "segment_ptr"),
        assertion(arc_module, "( local_status_flag == 0 && type == 1 )"),
        assertion(arc_module, "( new_radius >= dist_tol )")};
    EXPECT_EQ(recorder.take(), expected);
}

// The factor of the conversion makes straight up and left a hair more than 90 and 180 degrees.
TEST(ArcSplineSegments, AngleRanges) {
    const double cases[][5] = {
        {0, 1, 0, 0, 0},        {1, 1, 45, 45, 45},     {1, 0, 90, 90, -90},
        {1, -1, 135, 135, -45}, {0, -1, 180, -180, 0},  {-1, -1, 225, -135, 45},
        {-1, 0, 270, -90, -90}, {-1, 1, 315, -45, -45}, {0, 0, 0, 0, 0}};
    for (const auto& [y, x, full, half, line] : cases) {
        EXPECT_NEAR(ARC_SPLINE_ask_angle_from_tan(y, x, 17), full, 1e-12);
        EXPECT_NEAR(ARC_SPLINE_ask_angle_from_tan(y, x, 180), half, 1e-12);
        EXPECT_NEAR(ARC_SPLINE_ask_angle_from_tan(y, x, 90), line, 1e-12);
    }
    for (const int range : {90, 180, 360})  // next to straight up, where the angle is 90 itself
        EXPECT_EQ(ARC_SPLINE_ask_angle_from_tan(1, 0x1p-50, range), 90);
    EXPECT_EQ(ARC_SPLINE_ask_angle_from_tan(0x1.7p-50, -1, 180), 180);
    EXPECT_EQ(ARC_SPLINE_ask_angle_from_tan(-1, -0x1.a6p-49, 90), -90);
    for (double y = -1e-18; y > -1e-14; y *= 1.5)  // next to a full turn, and never on it
        EXPECT_LT(ARC_SPLINE_ask_angle_from_tan(y, 1, 360), 360) << y;
    double y = -1e-20, x = 1.0, angle = 9.0;
    h053_(&y, &x, &angle);
    EXPECT_EQ(angle, 0.0);
    Pair normal{};
    for (const int side : {0, 1, 2}) {  // 1 alone is right
        ARC_SPLINE_ask_perp_vec(side, Pair{3, 4}.data(), normal.data());
        EXPECT_EQ(normal, side == 1 ? (Pair{4, -3}) : (Pair{-4, 3}));
    }
}

}  // namespace
