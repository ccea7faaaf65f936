// Boxes of the plane, their sides along the axes.
#pragma once

#include <algorithm>

#include "frame/vec.h"
#include "frame/wide_lanes.h"

namespace ztmath {

struct Box2 {
    Vec2 low, high;
};

inline constexpr Box2 empty_box{{HUGE_VAL, HUGE_VAL}, {-HUGE_VAL, -HUGE_VAL}};

/// Comparisons with a coordinate that is not a number are false: it stays outside.
inline void expand(Box2& box, const Box2& with) {
    if (with.low.x < box.low.x) box.low.x = with.low.x;
    if (with.low.y < box.low.y) box.low.y = with.low.y;
    if (with.high.x > box.high.x) box.high.x = with.high.x;
    if (with.high.y > box.high.y) box.high.y = with.high.y;
}

inline void expand(Box2& box, Vec2 with) {
    expand(box, {with, with});
}

/// Whether something holds in neither lane.
template <class Mask>
bool holds_nowhere(const Mask& mask) {
    const Mask bits = mask & Mask{1, 1};
    return (bits[0] | bits[1]) == 0;
}

// Boxes are compared in lanes, both coordinates at once: nobody could guess the way that branches
// take here.

/// Whether they have a point in common, or coordinates that are not numbers.
inline bool meet(const Box2& a, const Box2& b) {
    return holds_nowhere((Pair{a.low.x, a.low.y} > Pair{b.high.x, b.high.y}) |
                         (Pair{b.low.x, b.low.y} > Pair{a.high.x, a.high.y}));
}

/// Whether a point is inside a box, not on its edge.
inline bool is_within(const Box2& box, Vec2 p) {
    const Pair at{p.x, p.y};
    return holds_nowhere(
        ~((at > Pair{box.low.x, box.low.y}) & (at < Pair{box.high.x, box.high.y})));
}

/// From a point to the nearest point of a box.
inline Vec2 gap(const Box2& box, Vec2 p) {
    const Pair c{p.x, p.y};
    const Pair below = Pair{box.low.x, box.low.y} - c;
    const Pair above = c - Pair{box.high.x, box.high.y};
    const Pair beyond = larger(above, larger(below, Pair{}));
    return {beyond[0], beyond[1]};
}

/// From a point to the farthest corner of a box.
inline Vec2 span(const Box2& box, Vec2 p) {
    return {std::max(std::fabs(box.low.x - p.x), std::fabs(box.high.x - p.x)),
            std::max(std::fabs(box.low.y - p.y), std::fabs(box.high.y - p.y))};
}

/// Which corners of boxes are farthest in a direction, least far, and farthest to its left and
/// right.
class Extremes {
  public:
    explicit Extremes(Vec2 way)
        : x_ahead_(way.x >= 0.0 ? &Box2::high : &Box2::low),
          x_behind_(way.x >= 0.0 ? &Box2::low : &Box2::high),
          y_ahead_(way.y >= 0.0 ? &Box2::high : &Box2::low),
          y_behind_(way.y >= 0.0 ? &Box2::low : &Box2::high) {}

    Vec2 foremost(const Box2& box) const { return {(box.*x_ahead_).x, (box.*y_ahead_).y}; }
    Vec2 hindmost(const Box2& box) const { return {(box.*x_behind_).x, (box.*y_behind_).y}; }
    Vec2 leftmost(const Box2& box) const { return {(box.*y_behind_).x, (box.*x_ahead_).y}; }
    Vec2 rightmost(const Box2& box) const { return {(box.*y_ahead_).x, (box.*x_behind_).y}; }

  private:
    // At which end of a box's diagonal a coordinate is farther on, or less far.
    Vec2 Box2::*x_ahead_;
    Vec2 Box2::*x_behind_;
    Vec2 Box2::*y_ahead_;
    Vec2 Box2::*y_behind_;
};

}  // namespace ztmath
