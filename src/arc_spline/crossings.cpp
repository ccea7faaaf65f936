#include "arc_spline/crossings.h"

#include <cmath>
#include <utility>

#include "arc_spline/center_radius.h"
#include "arc_spline/circle_relations.h"
#include "arc_spline/evaluation.h"
#include "arc_spline/line_distance.h"
#include "arc_spline/line_line.h"
#include "arc_spline/point_queries.h"
#include "ztmath/arc_spline_intersections.h"

namespace ztmath {

namespace {

Crossings failed(int status) {
    Crossings none;
    none.status = status;
    return none;
}

bool counts(const Crossing& c) {
    return c.flags[0] != 1 && c.flags[1] != 1;
}

/// Half of what two circles, or a circle and a line, cut out of each other. Of circles inside one
/// another it is no real number; kept as it stands: its magnitude is taken, and what comes out as
/// crossings lies off the circles.
double half_chord(double radius, double distance) {
    return std::sqrt(std::fabs((radius - distance) * (radius + distance)));
}

/// Two segments, each either bounded or standing for its whole line or circle.
struct Couple {
    const Segment* segments[2];
    bool bounded[2];
    const double* tols;

    Couple exchanged() const {
        return {{segments[1], segments[0]}, {bounded[1], bounded[0]}, tols};
    }

    struct Located {
        bool found[2];
        Crossing crossing;
    };

    Located located(Vec2 point) const {
        Located there{};
        there.crossing.point = point;
        for (int i = 0; i < 2; ++i) {
            const PointOnSegment on = point_on(segments[i], point, bounded[i], tols);
            there.found[i] = on.status == 0;
            there.crossing.parms[i] = on.parm;
            there.crossing.flags[i] = on.flag;
        }
        return there;
    }

    /// The one point in common; both points of the result hold it.
    Crossings meeting_at(Vec2 point) const {
        if (!is_finite(point)) return {};
        const Located there = located(point);
        for (int i = 0; i < 2; ++i)
            if (!there.found[i]) return failed(3 + i);
        Crossings met;
        met.at[0] = there.crossing;
        met.at[1].point = point;
        met.count = counts(there.crossing) ? 1 : 0;
        return met;
    }

    Crossings crossing_at(Vec2 first, Vec2 second) const {
        if (!is_finite(first) || !is_finite(second)) return {};
        const Located there[2] = {located(first), located(second)};
        for (int i = 0; i < 4; ++i)
            if (!there[i / 2].found[i % 2]) return failed(7 + i);
        Crossings crossed{0, 0, {there[0].crossing, there[1].crossing}};
        const bool first_counts = counts(crossed.at[0]);
        const bool second_counts = counts(crossed.at[1]);
        crossed.count = (first_counts ? 1 : 0) + (second_counts ? 1 : 0);
        if (!first_counts && second_counts) std::swap(crossed.at[0], crossed.at[1]);
        return crossed;
    }
};

Crossings of_arcs(const Couple& arcs, const Circle& c1, const Circle& c2) {
    const RadicalAxis found = radical_axis(c1, c2);
    const Vec2 middle = found.axis.point;
    if (found.relation == 1) return arcs.meeting_at(middle);
    if (found.relation != 2) return {};
    const Vec2 aside = found.axis.direction * half_chord(c1.radius, length(middle - c1.center));
    return arcs.crossing_at(middle - aside, middle + aside);
}

Crossings of_arc_and_straight(const Couple& both, const Circle& circle) {
    const double tol = both.tols[0];
    const EndPoints ends = end_points(*both.segments[1]);
    const LineFoot foot = foot_on_line_segment(circle.center, ends.start, ends.end, tol, false);
    if (std::fabs(foot.distance - circle.radius) <= tol) return both.meeting_at(foot.foot);
    if (!(foot.distance <= circle.radius)) return {};
    const Vec2 aside = direction(*both.segments[1]) * half_chord(circle.radius, foot.distance);
    return both.crossing_at(foot.foot - aside, foot.foot + aside);
}

Crossings of_straights(const Couple& straights) {
    const LineMeeting met = meet(straights.tols, line_of(*straights.segments[0]),
                                 line_of(*straights.segments[1]), false);
    if (met.status != 0 || !met.has_point) return {};
    return straights.meeting_at(met.point);
}

Crossings with_segments_exchanged(Crossings found) {
    for (Crossing& c : found.at) {
        std::swap(c.parms[0], c.parms[1]);
        std::swap(c.flags[0], c.flags[1]);
    }
    return found;
}

void store(const Crossings& found, int* count, double pt_1[2], double parms_1[2], int flags_1[2],
           double pt_2[2], double parms_2[2], int flags_2[2], int* status) {
    *count = found.count;
    store(found.at[0].point, pt_1);
    store(found.at[1].point, pt_2);
    for (int i = 0; i < 2; ++i) {
        parms_1[i] = found.at[0].parms[i];
        parms_2[i] = found.at[1].parms[i];
        flags_1[i] = found.at[0].flags[i];
        flags_2[i] = found.at[1].flags[i];
    }
    *status = found.status;
}

}  // namespace

Crossings crossings_of(const Segment* s1, const Segment* s2, bool bounded_1, bool bounded_2,
                       const double* tols) {
    const CenterRadius first = center_radius_of(s1);
    const CenterRadius second = center_radius_of(s2);
    if (first.status != 0) return failed(1);
    if (second.status != 0) return failed(2);
    if (first.type == single_point || second.type == single_point) return {};
    const Couple couple{{s1, s2}, {bounded_1, bounded_2}, tols};
    if (first.type == arc_type && second.type == arc_type)
        return of_arcs(couple, circle_of(*s1), circle_of(*s2));
    if (first.type == arc_type) return of_arc_and_straight(couple, circle_of(*s1));
    if (second.type == arc_type)
        return with_segments_exchanged(of_arc_and_straight(couple.exchanged(), circle_of(*s2)));
    return of_straights(couple);
}

}  // namespace ztmath

using namespace ztmath;

void ARC_SPLINE_inter_of_2_circular_arcs_2d(const ARC_SPLINE_1_seg_2d_t* s1,
                                            const ARC_SPLINE_1_seg_2d_t* s2, int bounded_1,
                                            int bounded_2, const double* tols, int* count,
                                            double pt_1[2], double parms_1[2], int flags_1[2],
                                            double pt_2[2], double parms_2[2], int flags_2[2],
                                            int* status) {
    store(crossings_of(s1, s2, bounded_1 != 0, bounded_2 != 0, tols), count, pt_1, parms_1, flags_1,
          pt_2, parms_2, flags_2, status);
}

void ARC_SPLINE_inter_circular_arc_line_seg_2d(const ARC_SPLINE_1_seg_2d_t* arc,
                                               const ARC_SPLINE_1_seg_2d_t* straight, int bounded_1,
                                               int bounded_2, const double* tols, int* count,
                                               double pt_1[2], double parms_1[2], int flags_1[2],
                                               double pt_2[2], double parms_2[2], int flags_2[2],
                                               int* status) {
    Crossings found = crossings_of(arc, straight, bounded_1 != 0, bounded_2 != 0, tols);
    if (found.status == 2) found.status = 1;
    store(found, count, pt_1, parms_1, flags_1, pt_2, parms_2, flags_2, status);
}
