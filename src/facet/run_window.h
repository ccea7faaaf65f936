// The stretches of a chain that come near a place, remembered for searches in its neighbourhood.
//
// Where a chain winds past a place again and again, every search has to exclude every winding; but
// one search after the other looks at places close together.
#pragma once

#include "facet/run_boxes.h"

namespace ztmath {

inline bool holds(const Box2& outer, const Box2& inner) {
    return inner.low.x >= outer.low.x && inner.high.x <= outer.high.x &&
           inner.low.y >= outer.low.y && inner.high.y <= outer.high.y;
}

class RunWindow {
  public:
    /// Holds n points and covers no place yet.
    explicit RunWindow(int n) : count_(1) { stretches_[0] = {0, n - 1}; }

    /// Whether it covers anything.
    bool is_open() const { return box_.low.x <= box_.high.x; }

    /// Whether all that meets the place is known.
    bool covers(const Box2& place) const { return holds(box_, place); }

    /// Moves to a square around a place, if what meets it is not too much; what that took, in
    /// visits of boxes and points.
    int move_to(RunBoxes& boxes, const Box2& place) {
        const Vec2 middle = (place.low + place.high) * 0.5;
        const Vec2 extent = place.high - place.low;
        const double half = size * 0.5 * std::max(extent.x, extent.y);
        const Box2 square{middle - Vec2{half, half}, middle + Vec2{half, half}};
        int visits = 0;
        int points = 0;
        count_ = 0;
        const int unseen = boxes.first_of(
            0, boxes.point_count() - 1,
            [&](std::ptrdiff_t run) {
                ++visits;
                return !meet(boxes[run], square);
            },
            [&](int i) { return !add(i) || ++points == most_points; });
        box_ = unseen < 0 ? square : empty_box;
        return visits + points;
    }

    /// As that of the boxes, of what meets a place that is covered.
    template <class Skip, class Stop>
    int first_of(RunBoxes& boxes, int first, int last, Skip skip, Stop stop) const {
        for (int s = 0; s < count_; ++s) {
            const int from = first > stretches_[s].first ? first : stretches_[s].first;
            const int to = last < stretches_[s].last ? last : stretches_[s].last;
            const int found = from <= to ? boxes.first_of(from, to, skip, stop) : -1;
            if (found >= 0) return found;
        }
        return -1;
    }

  private:
    static constexpr double size = 6.0;  // of the place
    static constexpr int most_stretches = 64;
    static constexpr int most_points = 2000;

    struct Stretch {
        int first, last;
    };

    bool add(int i) {
        if (count_ > 0 && stretches_[count_ - 1].last == i - 1) {
            stretches_[count_ - 1].last = i;
            return true;
        }
        if (count_ == most_stretches) return false;
        stretches_[count_++] = {i, i};
        return true;
    }

    Box2 box_ = empty_box;
    int count_;
    Stretch stretches_[most_stretches];
};

}  // namespace ztmath
