// Segments of arc splines: how they are made, evaluated, measured, moved, reversed and trimmed.
#include "support/segments.h"
#include "support/support.h"
#include "ztmath/arc_spline_constructions.h"

namespace {

using namespace ztmath_test;

constexpr Tolerances coarse = {1e-6, 1e-3, NAN};  // the curvature has no part in these

int trim(Segment* s, const Pair& point) {
    int status = 9;
    called(ARC_SPLINE_trim_to_point_1_seg_2d, point, coarse, s, &status);
    return status;
}

struct Foot {
    Pair at{};
    double parm = 0, distance = 0;
    int domain = 9, status = 9;
};

Foot foot_on(const Segment* s, const Pair& point, const Tolerances& within = coarse) {
    Foot f;
    called(ARC_SPLINE_ask_parm_at_a_point_2d, s, point, within, f.at, &f.parm, &f.domain,
           &f.status);
    return f;
}

Foot nearest_on(const Segment& s, const Pair& point, int bounded,
                const Tolerances& within = coarse) {
    Foot f;
    called(ARC_SPLINE_ask_dist_pt_to_1_seg_2d, &s, point, bounded, within, f.at, &f.parm,
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
        const Pair tangent = direction_at(angle), center = moved(start, o * r, left_of(tangent));
        const double last = angle + o * central;
        Segment arc;
        Pair end, end_tangent;
        called(ARC_SPLINE_cre_arc_seg_2d, start, tangent, central, r, o, &arc, end, end_tangent);
        expect_equal(arc, Arc(center, r, angle, last, o));
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
        const Pair way = direction_at(angle), center = moved(start, o * size, left_of(way));
        const Segment s = straight ? made_straight(start, moved(start, size, way))
                                   : Arc(center, size, angle, angle + o * central, o);
        const auto [foot, parm, unset, domain, status] = foot_on(&s, point);
        const double low = straight ? 0 : std::fmin(s.start_angle, s.end_angle);
        const double span = straight ? size : central;
        const At at = evaluated(s, parm, 1);
        expect_near(at.point, foot, 1e-11);
        EXPECT_TRUE(domain == 0 || domain == (low < parm && parm < low + span ? -1 : 1));
        EXPECT_NEAR(dot(moved(point, -1, foot), at.tangent), 0, 1e-11);
        EXPECT_TRUE(straight || (parm >= low - coarse[1] && parm < low - coarse[1] + 360)) << parm;
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
        const Segment arc = Arc(center, size, angle, angle + o * turn, o);
        expect_equal(cut, straight ? made_straight(start, foot) : arc, 1e-8);
    }
}

TEST(ArcSplineSegments, TrimmingThatFailsLeavesTheSegment) {
    const Arc before({0, 2}, 2, 0, 90);
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
    called(ARC_SPLINE_cre_strt_seg_2d, Pair{1, 0}, end, Pair{0, -3}, &null);
    EXPECT_EQ(end, (Pair{1, 0}));
    expect_equal(null, {0, 0, {1, 0}, 270, 270, {1, 0}, {0, -3}, 0, 0});
    EXPECT_EQ(made_straight({0, 0}, {1e-10, 0}).radius, 1e-10);
}

TEST(ArcSplineSegments, FullCircles) {
    Segment s{};
    called(ARC_SPLINE_cre_circle_from_center_and_radius_2d, Pair{5, 7}, 2, &s);
    expect_equal(s, {1, 1, {2, 0}, 90, 450, {5, 7}, {}, 2, 2});  // which starts off the circle
    EXPECT_EQ(trim(&s, {5, 11}), 0);
    expect_near(Data(&s).end, {5, 9}, 1e-12);
    EXPECT_EQ(called(ARC_SPLINE_cre_single_point_circle_2d, Pair{5, 7}, &s), &s);
    expect_equal(s, {-1, 1, {5, 7}, 90, 450, {5, 7}, {}, 0, 0});
    for (const int o : {-1, 0, 1}) {  // 0 stays at its start
        called(ARC_SPLINE_cre_circle_from_point_tangent_radius_2d, Pair{5, 7}, Pair{0, 1}, 2, o,
               &s);
        const Pair center{5 - 2.0 * o, 7};
        expect_equal(s, Arc(center, 2, 90, o == -1 ? -270 : 450, o));
        expect_near(evaluated(s, 180, 1).point, moved(center, 2 * o, {0, 1}), 1e-12);
    }
    Segment copy{};
    ARC_SPLINE_copy_1_seg_2d_pre_allocated(&s, &copy);
    expect_equal(copy, s, 0);
    ARC_SPLINE_init_1_seg_2d(&copy);
    expect_equal(copy, {}, 0);
}

TEST(ArcSplineSegments, DomainsAreClosedAndEndsAttract) {
    const Arc left({0, 2}, 2, 10, 90), right({2, 0}, 2, 90, 10, -1);
    for (const double parm : {10.0, 10 - 9e-11, 90.0, 90 + 9e-11, 9.0, 10 - 2e-10, 90 + 2e-10}) {
        const At at = evaluated(left, parm);
        const bool inside = std::fabs(parm - 50) < 40 + 1e-10;
        EXPECT_EQ(at.status, inside ? 0 : 2);
        EXPECT_EQ(evaluated(right, parm).status, inside ? 0 : 3);
        EXPECT_EQ(at.point == (Pair{9, 9}), !inside);
        expect_near(at.tangent, direction_at(parm), 1e-11);
    }
    const Arc first({0, 2}, 2, 0, 90), last({2, 0}, 2, -90, 0);  // 1e-10 beside 0 is outside
    EXPECT_EQ(evaluated(first, -1e-10).status + evaluated(last, 1e-10).status, 4);
    const Pair early = moved({0, 2}, 5, direction_at(9.9995 - 90));  // a foot just before the start
    const Foot start = foot_on(&left, early);
    EXPECT_TRUE(start.parm == 10 && start.domain == 0) << start.parm;
    // A whole circle has no outside, also where it starts less beyond a foot than a turn tells.
    const Arc whole({0, 0}, 1);
    const Pair below = direction_at(269.9);
    const double full = foot_on(&whole, below, {}).parm;
    for (const double angle : {full, std::nextafter(full - 360, 0)}) {
        const Arc circle({0, 0}, 1, angle, angle + 360);
        const Foot foot = foot_on(&circle, below, {});
        EXPECT_TRUE(foot.parm == full && foot.domain == 0) << foot.parm;
    }
    const double cases[][4] = {{50, 0.5, -1, 50},    {89.25, 0.5, -1, 89.25}, {89.5, 0.5, 0, 89.5},
                               {90.5, 0.5, 0, 90},   {91, 0.5, 1, 91},        {9.5, 0.5, 0, 10},
                               {10.5, 0.5, 0, 10.5}, {410, 0.5, 1, 410},      {10, -1, 1, 10},
                               {90, -1, 1, 90}};
    for (const auto& [given, tol, flag, moved_to] : cases)
        for (const Arc& arc : {left, right}) {
            double parm = given;
            EXPECT_EQ(ARC_SPLINE_ask_is_parm_in_arc_domain(&arc, tol, &parm), flag) << given;
            EXPECT_EQ(parm, moved_to);
        }
    const Segment straight = made_straight({0, 0}, {2, 0});
    for (const double x : {-1.0, 1.0, 3.0})  // both ends within the tolerance
        EXPECT_EQ(foot_on(&straight, {x, 1}, {3, 3}).parm, std::clamp(x, 0.0, 2.0));
    const Foot near = nearest_on(straight, {2.125, 1}, 1, {0.25});
    EXPECT_TRUE(near.distance == 1 && near.parm == 2) << "near enough to the end";
    const Arc half({0, 0}, 1, 0, 180);
    EXPECT_EQ(nearest_on(half, {-3e9, 0}, 1, {0.25}).parm, 0) << "the start of ends equally near";
}

TEST(ArcSplineSegments, CentralAngles) {
    const double cases[][5] = {{350, 10, 1, 20, 370},  {10, 350, 1, 340, 350},
                               {10, -20, 1, 330, 340}, {10, 350, -1, 20, -10},
                               {10, 300, 0, 0, 300},   {0, -400, 1, -40, -40}};
    for (const auto& [start, end, orientation, angle, end_after] : cases) {
        Arc arc({}, 2, start, end, static_cast<int>(orientation));
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
    const Arc thin({}, 0.9e-10, 0, 90), just({}, 1e-10, 0, 90);
    const Segment other{5, 0, {}, 0, 0, {}, {}, 1, 1}, straight = made_straight({0, 0}, {1, 0});
    // Of measuring, of all data, of the ends, of the circle, its type, and of a foot.
    const std::pair<const Segment*, std::array<int, 6>> cases[] = {{nullptr, {1, 0, 1, 1, -1, 1}},
                                                                   {&thin, {2, 1, 2, 0, -1, 2}},
                                                                   {&just, {0, 0, 0, 0, 1, 3}},
                                                                   {&other, {3, 3, 3, 2, 5, 2}},
                                                                   {&straight, {0, 0, 0, 0, 0, 0}}};
    for (const auto& [s, expected] : cases) {
        int measured = 9, of_ends = 9, of_circle = 9, type = 9;
        double radius = 0, parms[] = {0, 1};
        Pair center{9, 9};
        std::array<Pair, 4> ends{};
        for (const double length : {ARC_SPLINE_ask_arcl_of_1_seg_2d(s, &measured),
                                    ARC_SPLINE_ask_arcl_to_parm_of_1_seg_2d(s, 1, &measured),
                                    ARC_SPLINE_ask_arcl_of_trimmed_1_seg_2d(s, parms, &measured)})
            EXPECT_EQ(length != 0, measured == 0);
        const Data data(s);
        called(ARC_SPLINE_ask_end_pts_of_1_seg_2d, s, ends[0], ends[1], ends[2], ends[3], &of_ends);
        called(ARC_SPLINE_ask_center_radius_of_seg_2d, s, &type, &radius, center, &of_circle);
        const int of_foot = foot_on(s, {1e-10, 0}).status;
        EXPECT_EQ((std::array{measured, data.status, of_ends, of_circle, type, of_foot}), expected);
        const std::array all{data.start, data.start_tangent, data.end, data.end_tangent};
        EXPECT_EQ(ends, of_ends != 0 ? decltype(ends){} : all);
        EXPECT_EQ(radius > 0.0, of_circle == 0);
        EXPECT_EQ(center, s == nullptr ? (Pair{9, 9}) : center_of(*s));
    }
    const Arc half({}, 1, 20, 200), nearly({}, 1, 20, 199.994);
    for (const int want_corner : {0, 1}) {
        const Data data(&half, want_corner);
        EXPECT_EQ(data.status, 2 * want_corner);
        EXPECT_EQ(data.corner, (Pair{9, 9})) << "none";
    }
    EXPECT_EQ(Data(&nearly).status, 0) << "more than 0.005 degrees from parallel";
    std::array<int, 6> statuses;
    Pair tangent;
    ARC_SPLINE_evaluate_arc_seg_2d(&straight, 1, 0, nullptr, nullptr, &statuses[0]);
    ARC_SPLINE_evaluate_strt_seg_2d(&half, 0, nullptr, nullptr, &statuses[1]);
    called(ARC_SPLINE_evaluate_arc_seg_2d, &half, 0, 10, nullptr, tangent, &statuses[2]);
    ARC_SPLINE_evaluate_1_seg_2d(nullptr, 1, 0, nullptr, nullptr, &statuses[3]);
    ARC_SPLINE_evaluate_strt_seg_2d(nullptr, 0, nullptr, nullptr, &statuses[4]);
    called(ARC_SPLINE_ask_is_arc_rather_strt_2d, nullptr, fine, &statuses[5]);
    EXPECT_EQ(statuses, (std::array{1, 1, 2, 1, 1, 2})) << "of other types, before the start, none";
    EXPECT_EQ(ARC_SPLINE_ask_radius_of_1_seg_2d(nullptr), 0);
}

TEST(ArcSplineSegments, NearlyStraightArcs) {
    const double curvature[] = {1e-6, 1e-3, 0.25};  // the limit is the radius 4
    for (const double radius : {4.0, 4.5}) {
        Arc arc({1, 2 + radius}, radius, 0, 90);
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
            const Arc arc({1, 2}, 2, 30, 30 + o * central, o);
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
            const Arc arc({1, 2}, 2, 90, 90 + o * 60, o);
            EXPECT_EQ(ARC_SPLINE_cre_offset_circle_2d(&arc, offset, 1e-6, &out), &out);
            expect_equal(out, Arc({1, 2}, 2 + offset, 90, 90 + o * 60, o));
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
    called(ARC_SPLINE_cre_single_point_circle_2d, Pair{1, 1}, &point);
    Arc early({0, 1}, 1, 350, 10);
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
        called(ARC_SPLINE_ask_perp_vec, side, Pair{3, 4}, normal);
        EXPECT_EQ(normal, side == 1 ? (Pair{4, -3}) : (Pair{-4, 3}));
    }
}

}  // namespace
