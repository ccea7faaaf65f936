// Two infinite lines.
#pragma once

#include "arc_spline/segment.h"

namespace ztmath {

/// status: 0 they meet, 1 parallel, 2 the same line. The directions come back as unit vectors.
///
/// Lines whose points coincide meet between these, parallel ones included, and have no parameters.
struct LineMeeting {
    int status;
    Line line_1, line_2;
    bool has_point, has_parms;
    Vec2 point;
    double parms[2];
    double cosine;
};

LineMeeting meet(const double* tols, Line line_1, Line line_2, bool unit);

}  // namespace ztmath
