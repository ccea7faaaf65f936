// Two rays: where they meet, and the isosceles triangle on them.
#pragma once

#include "arc_spline/line_line.h"

namespace ztmath {

/// On each ray the point as far from the meeting point as the other ray's start; of parallel rays
/// the foot of the other's start. sides: of each start against the other line.
struct Isosceles {
    LineMeeting meeting;
    Vec2 apex;
    double parms[2];
    Vec2 iso_1, iso_2;
    int sides[2];

    bool is_parallel() const { return meeting.status >= 1; }
};

Isosceles isosceles_to(const double* tols, const Line& ray_1, const Line& ray_2, bool unit);

}  // namespace ztmath
