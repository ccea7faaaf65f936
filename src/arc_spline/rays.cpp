#include "arc_spline/rays.h"

#include <cmath>

#include "arc_spline/equations.h"
#include "arc_spline/line_distance.h"
#include "kit/vec2.h"
#include "ztmath/arc_spline_primitives.h"

namespace ztmath {

namespace {

constexpr double zero_parm = 1.0e-10;

int homodromic(const double parms[2], double tol) {
    const bool first_starts = std::fabs(parms[0]) <= tol;
    const bool second_starts = std::fabs(parms[1]) <= tol;
    if (first_starts && second_starts) return -1;
    if (first_starts || second_starts) return 1;
    return parms[0] * parms[1] < 0.0 ? 0 : 1;
}

Vec2 bisector_direction(const Isosceles& on, Vec2 middle, double tol) {
    const Vec2 d1 = on.meeting.line_1.direction;
    if (on.is_parallel()) return d1;
    const Vec2 half = (d1 + on.meeting.line_2.direction) * 0.5;
    const Vec2 way = middle - on.apex;
    return unitize(length(way) <= tol ? half : way).unit;
}

/// From the side of a point against a line to the turn towards it.
int convexity_towards(int side) {
    return side == 0 ? -2 : -side;
}

struct Convexities {
    int first, second;
};

Convexities convexities_of(const Isosceles& on) {
    if (on.meeting.status >= 2) return {0, 0};
    const Convexities own{convexity_towards(on.sides[1]), convexity_towards(on.sides[0])};
    if (own.first == -2 && own.second != -2) return {-own.second, own.second};
    if (own.second == -2 && own.first != -2) return {own.first, -own.first};
    return own;
}

char longer_of(const Isosceles& on, double tol) {
    if (on.is_parallel()) return 'n';
    const double difference = std::fabs(on.parms[0]) - std::fabs(on.parms[1]);
    if (std::fabs(difference) <= tol) return 'e';
    return difference > 0.0 ? 'l' : 'r';
}

void store_directions(const LineMeeting& meeting, double d1[2], double d2[2]) {
    store(meeting.line_1.direction, d1);
    store(meeting.line_2.direction, d2);
}

}  // namespace

Isosceles isosceles_to(const double* tols, const Line& ray_1, const Line& ray_2, bool unit) {
    const LineMeeting meeting = meet(tols, ray_1, ray_2, unit);
    const Line& line_1 = meeting.line_1;
    const Line& line_2 = meeting.line_2;
    const LineFoot foot_2_on_1 = foot_on_line(line_2.point, line_1, tols[0]);
    const LineFoot foot_1_on_2 = foot_on_line(line_1.point, line_2, tols[0]);
    Isosceles found{meeting, {}, {}, {}, {}, {foot_1_on_2.side, foot_2_on_1.side}};
    if (found.is_parallel()) {
        found.iso_1 = foot_2_on_1.foot;
        found.iso_2 = foot_1_on_2.foot;
        return found;
    }
    const double t1 = meeting.parms[0];
    const double t2 = meeting.parms[1];
    found.apex = meeting.point;
    found.parms[0] = t1;
    found.parms[1] = t2;
    found.iso_1 = found.apex - line_1.direction * (sign_of(t1, zero_parm) * std::fabs(t2));
    found.iso_2 = found.apex - line_2.direction * (sign_of(t2, zero_parm) * std::fabs(t1));
    return found;
}

}  // namespace ztmath

using namespace ztmath;

int ARC_SPLINE_ask_are_two_rays_homodromic_2d(const double p1[2], double d1[2], const double p2[2],
                                              double d2[2], int unit, int intersect,
                                              const double* tols, double parms[2],
                                              int* inter_status) {
    const double tol = tols[0];
    if (intersect == 1) {
        const LineMeeting found =
            meet(tols, {load2(p1), load2(d1)}, {load2(p2), load2(d2)}, unit != 0);
        store_directions(found, d1, d2);
        parms[0] = found.parms[0];
        parms[1] = found.parms[1];
        *inter_status = found.status;
    }
    if (*inter_status >= 1) return dot(load2(d1), load2(d2)) <= 0.0 ? 0 : 1;
    return homodromic(parms, tol);
}

void ARC_SPLINE_ask_isosceles_to_pt_2d(const double p1[2], double d1[2], const double p2[2],
                                       double d2[2], int unit, const double* tols, double apex[2],
                                       double parms[2], double iso_1[2], double iso_2[2],
                                       int sides[2], int* inter_status) {
    const Isosceles found =
        isosceles_to(tols, {load2(p1), load2(d1)}, {load2(p2), load2(d2)}, unit != 0);
    store_directions(found.meeting, d1, d2);
    store(found.apex, apex);
    parms[0] = found.parms[0];
    parms[1] = found.parms[1];
    store(found.iso_1, iso_1);
    store(found.iso_2, iso_2);
    sides[0] = found.sides[0];
    sides[1] = found.sides[1];
    *inter_status = found.meeting.status;
}

void ARC_SPLINE_ask_bisector_of_angle_2d(const double p1[2], double d1[2], const double p2[2],
                                         double d2[2], int unit, const double* tols, double pt[2],
                                         double dir[2], int* inter_status) {
    const double tol = tols[0];
    const Isosceles found =
        isosceles_to(tols, {load2(p1), load2(d1)}, {load2(p2), load2(d2)}, unit != 0);
    const Vec2 middle = (found.iso_1 + found.iso_2) * 0.5;
    store_directions(found.meeting, d1, d2);
    store(middle, pt);
    // Kept as it stands: who asks for the status gets the first ray's direction, not the
    // bisector's.
    store(inter_status != nullptr ? found.meeting.line_1.direction
                                  : bisector_direction(found, middle, tol),
          dir);
    if (inter_status != nullptr) *inter_status = found.meeting.status;
}

void ARC_SPLINE_ask_convexities_of_tri_arc_2d(const double p1[2], double d1[2], const double p2[2],
                                              double d2[2], int unit, const double* tols,
                                              int convexities[2], char* longer, int* inter_status) {
    const double tol = tols[0];
    const Isosceles found =
        isosceles_to(tols, {load2(p1), load2(d1)}, {load2(p2), load2(d2)}, unit != 0);
    const Convexities both = convexities_of(found);
    store_directions(found.meeting, d1, d2);
    convexities[0] = both.first;
    convexities[1] = both.second;
    *longer = longer_of(found, tol);
    *inter_status = found.meeting.status;
}
