// Points against segments.
#pragma once

#include "arc_spline/segment.h"

namespace ztmath {

/// Where a parameter lies in a domain: -1 inside, 0 at an end, 1 outside. One that is just outside
/// an end is moved onto it.
struct InDomain {
    int flag;
    double parm;
};

InDomain in_domain(const Segment& segment, double distance_tol, double angle_tol, double parm);

/// status: 0; 1 no record; 2 neither straight nor arc, or an arc whose radius counts as zero; 3 the
/// point is the centre.
struct SegmentFoot {
    int status;
    Vec2 foot;
    double parm;
};

/// The foot on the infinite line or the full circle.
SegmentFoot foot_on(const Segment* segment, Vec2 point, double angle_tol);

/// Where a point lies on a segment. status: that of the foot; 4 it has no finite parameter. The
/// flag is that of the domain; -1 when the segment counts as not bounded.
struct PointOnSegment {
    int status;
    double parm;
    int flag;
};

PointOnSegment point_on(const Segment* segment, Vec2 point, bool bounded, const double* tols);

}  // namespace ztmath
