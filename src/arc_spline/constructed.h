// What the constructions give back.
#pragma once

#include "arc_spline/segment.h"

namespace ztmath {

/// One segment; blank unless the status is 0.
struct Constructed {
    int status;
    Segment segment;
};

/// Several circles; those beyond the count are blank.
template <int limit>
struct ConstructedCircles {
    int status = 0;
    int count = 0;
    Segment circles[limit] = {};

    void add(const Segment& circle) { circles[count++] = circle; }
};

inline void store(const Constructed& made, Segment* out, int* status) {
    *out = made.segment;
    *status = made.status;
}

inline void store(const ConstructedCircles<2>& made, int* count, Segment* circle_1,
                  Segment* circle_2, int* status) {
    *count = made.count;
    *circle_1 = made.circles[0];
    *circle_2 = made.circles[1];
    *status = made.status;
}

template <int limit>
void store(const ConstructedCircles<limit>& made, int* count, Segment* circles, int* status) {
    *count = made.count;
    for (int i = 0; i < limit; ++i)
        circles[i] = made.circles[i];
    *status = made.status;
}

/// A larger circle is a straight line, and none that a construction gives.
inline constexpr double largest_radius = 1.0e10;

/// Whether a circle is one to give: neither a point, nor a straight line, nor out of all bounds.
inline bool is_reportable(const Circle& circle, double tol) {
    return circle.radius >= tol && circle.radius <= largest_radius && is_finite(circle.center);
}

}  // namespace ztmath
