// Where segments meet.
#pragma once

#include "arc_spline/segment.h"

namespace ztmath {

/// A point that two segments have in common, with its parameter and domain flag on each.
struct Crossing {
    Vec2 point = {};
    double parms[2] = {};
    int flags[2] = {-1, -1};
};

/// status: 1, 2 the first, the second segment cannot be read; where they touch 3, 4, where they
/// cross 7 to 10, a parameter was not found.
struct Crossings {
    int status = 0;
    int count = 0;
    Crossing at[2] = {};
};

/// A point outside a bounded segment does not count, and stands behind the one that does.
Crossings crossings_of(const Segment* s1, const Segment* s2, bool bounded_1, bool bounded_2,
                       const double* tols);

}  // namespace ztmath
