#include "arc_spline/line_line.h"

#include <cmath>

#include "kit/vec2.h"
#include "ztmath/arc_spline_primitives.h"
#include "ztmath/solve.h"

namespace ztmath {

LineMeeting meet(const double* tols, Line line_1, Line line_2, bool unit) {
    constexpr double null_direction = 1.0e-8;
    const double parallel_cosine = std::cos(tols[1] * radians_per_degree);
    const Vec2 way = line_2.point - line_1.point;
    const double apart = length(way);
    const bool coincident = apart < tols[0];
    if (!unit) {
        line_1.direction = unitize(line_1.direction, null_direction).unit;
        line_2.direction = unitize(line_2.direction, null_direction).unit;
    }
    LineMeeting found{0, line_1, line_2, coincident, false, {0.0, 0.0}, {0.0, 0.0}, 0.0};
    if (coincident) found.point = (line_1.point + line_2.point) * 0.5;

    const Vec2 d1 = line_1.direction;
    const Vec2 d2 = line_2.direction;
    found.cosine = dot(d1, d2);
    if (std::fabs(found.cosine) >= parallel_cosine) {
        const bool same = coincident || std::fabs(dot(d1, way)) / apart >= parallel_cosine;
        found.status = same ? 2 : 1;
        return found;
    }
    if (coincident) return found;
    const double system[9] = {d1.x, -d2.x, 0.0, d1.y, -d2.y, 0.0, 0.0, 0.0, 1.0};
    const double rhs[3] = {way.x, way.y, 0.0};
    double solution[3];
    if (SOLVE_solve_3equations(system, rhs, solution) != 0) {
        found.status = 1;
        found.cosine = 1.0;
        return found;
    }
    found.has_point = true;
    found.has_parms = true;
    found.parms[0] = solution[0];
    found.parms[1] = solution[1];
    found.point = line_1.point + d1 * solution[0];
    return found;
}

}  // namespace ztmath

using namespace ztmath;

void ARC_SPLINE_inter_line_line_2d(const double* tols, const double P1[2], const double P2[2],
                                   int unit, double d1[2], double d2[2], double pt[2],
                                   double parms[2], double* cosine, int* status) {
    const LineMeeting found = meet(tols, {load2(P1), load2(d1)}, {load2(P2), load2(d2)}, unit != 0);
    store(found.line_1.direction, d1);
    store(found.line_2.direction, d2);
    if (found.has_point) store(found.point, pt);
    if (found.has_parms) {
        parms[0] = found.parms[0];
        parms[1] = found.parms[1];
    }
    *cosine = found.cosine;
    *status = found.status;
}
