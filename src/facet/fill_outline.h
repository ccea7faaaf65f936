// The polygon that a triangle fill searches.
#pragma once

#include "facet/fill_predicates.h"
#include "facet/run_window.h"

namespace ztmath {

/// The polygon's vertices, in boxes.
class Outline {
  public:
    Outline(int n, const double* points)
        : points_(points),
          boxes_(
              n, [this](int i) { return point(i); }, true),
          slanted_(n >= large ? boxes_.run_count() : 0),
          everything_(n),
          window_(0) {
        for (int i = 0; i < n; ++i)
            all_finite_ &= is_finite(point(i));
        const Box2& box = boxes_.whole();
        reach_ = length(span(box, {0.0, 0.0}));
        is_large_ = all_finite_ && n >= large;
        if (is_large_)
            boxes_.for_each_run([&](std::ptrdiff_t run, int first, int last) {
                slanted_[run] = SlantedBox::around(first, last + 1,
                                                   [&](int i) { return point(i < n ? i : 0); });
            });
    }

    Vec2 point(int i) const { return load2(points_ + 2 * static_cast<std::ptrdiff_t>(i)); }
    RunBoxes& boxes() { return boxes_; }

    /// Whether the window shows all that meets a circle or a box.
    bool shows(const Circle& circle) const {
        return window_.is_open() && shows(around(circle, reach_));
    }
    bool shows(const Box2& box) const { return window_.is_open() && window_.covers(box); }

    /// The first index in [first, last] at which `stop` holds, or -1, where it holds only within a
    /// circle or a box, and not in the runs that `skip` is true of.
    template <class Place, class Skip, class Stop>
    int first_near(const Place& place, int first, int last, Skip skip, Stop stop) {
        if (last - first < few_points) {
            for (int i = first; i <= last; ++i)
                if (stop(i)) return i;
            return -1;
        }
        const RunWindow& window = shows(place) ? window_ : everything_;
        return window.first_of(boxes_, first, last, skip, stop);
    }

    /// Moves the window to where an apex has been found, if its circle met many runs; but not
    /// before the searches since the last move have cost several times as much as that did.
    void follow(const Circle& found, int visits) {
        unpaid_ -= visits;
        if (is_large_ && visits > many_visits && unpaid_ < 0)
            unpaid_ = std::int64_t{2} * window_.move_to(boxes_, around(found, reach_));
    }

    /// Whether no vertex of a run is inside the circle.
    bool is_outside(const Circle& circle, double squared_bound, std::ptrdiff_t run) {
        if (is_large_ && slanted_[run].is_thin())
            return slanted_[run].is_beyond(squared_bound, circle.centre);
        return ztmath::is_outside(circle, boxes_[run]);
    }

    /// Whether all coordinates count as finite.
    bool all_finite() const { return all_finite_; }

    /// No point is farther from the origin.
    double reach() const { return reach_; }

  private:
    static constexpr int few_points = 16;  // quicker looked at than excluded
    static constexpr int large = 200;
    static constexpr int many_visits = 50;

    const double* points_;
    RunBoxes boxes_;
    WorkArray<SlantedBox, 1> slanted_;  // of each run, where all coordinates are finite
    bool all_finite_ = true;
    bool is_large_;  // worth a second look at runs, and finite
    RunWindow everything_, window_;
    std::int64_t unpaid_ = 0;  // visits before the window may be moved again
    double reach_;
};

}  // namespace ztmath
