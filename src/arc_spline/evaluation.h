// Points and tangents of segments.
#pragma once

#include "arc_spline/segment.h"

namespace ztmath {

/// status: 0; 1 not of the type that is evaluated; 2, 3 outside the domain of a counter-clockwise
/// or clockwise arc, where there is a tangent and no point.
struct Evaluated {
    int status;
    Vec2 point, tangent;

    bool has_tangent() const { return status != 1; }
};

Evaluated evaluate_arc(const Segment& arc, bool extrapolate, double parm);
Evaluated evaluate_straight(const Segment& straight, double parm);

/// By the type of the segment.
Evaluated evaluate(const Segment& segment, bool extrapolate, double parm);

/// status: 0; 2 an arc whose radius counts as zero; 3 neither straight nor arc.
struct EndPoints {
    int status;
    Vec2 start, start_tangent, end, end_tangent;
};

EndPoints end_points(const Segment& segment);

}  // namespace ztmath
