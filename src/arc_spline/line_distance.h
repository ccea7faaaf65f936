// Points against lines.
#pragma once

#include "arc_spline/segment.h"

namespace ztmath {

/// side: 0 on the line, 1 to the right of its direction, -1 to the left.
struct LineFoot {
    Vec2 foot;
    double parm;
    int side;
    double distance;
};

/// The direction is a unit vector. A foot within the tolerance of the line's point is that point.
LineFoot foot_on_line(Vec2 point, const Line& line, double tol);

/// On the line through two ends, or between them when bounded. Ends within the tolerance are
/// reported, and the foot is the first.
LineFoot foot_on_line_segment(Vec2 point, Vec2 end_1, Vec2 end_2, double tol, bool bounded);

}  // namespace ztmath
