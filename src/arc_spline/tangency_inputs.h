// The circles and lines that records stand for, where a construction takes one or the other.
#pragma once

#include <cmath>
#include <optional>

#include "arc_spline/segment.h"
#include "kit/unitize.h"

namespace ztmath {

/// An arc's full circle; none of a record that is none, or too small.
inline std::optional<Circle> circle_input(const Segment* s, double tol) {
    if (s == nullptr || s->type != arc_type || !(s->radius >= tol)) return std::nullopt;
    return circle_of(*s);
}

/// A straight's infinite line; none of one without a direction.
inline std::optional<Line> line_input(const Segment* s) {
    if (s == nullptr || s->type != straight_type) return std::nullopt;
    const auto along = unitize_unchecked(direction(*s), null_length);
    if (!along.done) return std::nullopt;
    return Line{start_point(*s), along.unit};
}

inline bool are_equal(const Circle& a, const Circle& b, double tol) {
    return length(a.center - b.center) <= tol && std::fabs(a.radius - b.radius) <= tol;
}

}  // namespace ztmath
