// Lengths and central angles of segments.
#pragma once

#include "arc_spline/segment.h"

namespace ztmath {

/// A central angle in degrees, with the end angle that it leads to.
struct CentralAngle {
    double angle;
    double end;
};

/// From the inclinations at both ends; an end that lies before the start is one turn on.
inline CentralAngle central_angle(double start, double end, int orientation) {
    const double angle = orientation * (end - start);
    if (!(angle < 0.0)) return {angle, end};
    return {angle + 360.0, start + orientation * (angle + 360.0)};
}

inline CentralAngle central_angle(const Segment& s) {
    return central_angle(s.start_angle, s.end_angle, s.orientation);
}

inline double arc_length(double radius, double degrees) {
    return radius * radians_per_degree * degrees;
}

}  // namespace ztmath
