// What a segment record says about its circle.
#pragma once

#include "arc_spline/segment.h"

namespace ztmath {

/// status: 0, 1 no record, 2 neither straight nor arc. The radius of a straight is infinite; an arc
/// whose radius counts as zero is of the type of a single point.
struct CenterRadius {
    int status;
    int type;
    Vec2 center;
    double radius;

    bool is_circle() const { return status == 0 && type != straight_type; }
};

inline CenterRadius center_radius_of(const Segment* s) {
    if (s == nullptr) return {1, single_point, {0.0, 0.0}, 0.0};
    if (s->type == straight_type) return {0, straight_type, center(*s), infinite_radius};
    if (s->type != arc_type) return {2, s->type, center(*s), s->radius};
    return {0, s->radius < zero_length ? single_point : arc_type, center(*s), s->radius};
}

}  // namespace ztmath
