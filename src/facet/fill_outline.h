// The polygon that a triangle fill searches.
#pragma once

#include <algorithm>

#include "facet/fill_predicates.h"
#include "facet/run_window.h"
#include "frame/wide_lanes.h"

namespace ztmath {

/// The polygon's vertices, in boxes.
class Outline {
  public:
    Outline(int n, const double* points)
        : points_(points),
          boxes_(
              n, [this](int i) { return point(i); }, true),
          xs_(n + room_behind),
          ys_(n + room_behind),
          slanted_(n >= large ? boxes_.run_count() : 0),
          everything_(n),
          window_(0) {
        for (int i = 0; i < n; ++i) {
            all_finite_ &= is_finite(point(i));
            xs_[i] = point(i).x;
            ys_[i] = point(i).y;
        }
        std::fill_n(&xs_[n], room_behind, 0.0);
        std::fill_n(&ys_[n], room_behind, 0.0);
        const Box2& box = boxes_.whole();
        reach_ = length(span(box, {0.0, 0.0}));
        is_large_ = all_finite_ && n >= large;
        if (is_large_)
            boxes_.for_each_run([&](std::ptrdiff_t run, int first, int last) {
                slanted_[run] = SlantedBox::around(first, last + 1, reach_,
                                                   [&](int i) { return point(i < n ? i : 0); });
            });
    }

    Vec2 point(int i) const { return load2(points_ + 2 * static_cast<std::ptrdiff_t>(i)); }
    RunBoxes& boxes() { return boxes_; }

    /// The coordinates of the points from i on, each with room behind it for loads of whole lanes.
    const double* x_from(int i) const { return xs_.data() + i; }
    const double* y_from(int i) const { return ys_.data() + i; }

    /// Whether the window shows all that meets a circle or a box.
    bool shows(const Circumcircle& circle) const {
        return window_.is_open() && shows(around(circle, reach_));
    }
    bool shows(const Box2& box) const { return window_.is_open() && window_.covers(box); }

    /// The first index in [first, last] at which `stop` holds, or -1, where it holds only within a
    /// circle or a box, and not in the runs that `skip` is true of.
    template <class Place, class Skip, class Stop>
    int first_near(const Place& place, int first, int last, Skip skip, Stop stop) {
        const RunWindow& window = shows(place) ? window_ : everything_;
        return window.first_of(boxes_, first, last, skip, stop);
    }

    /// Moves the window to where an apex has been found, if its circle met many runs; but not
    /// before the searches since the last move have cost several times as much as that did.
    void follow(const Circumcircle& found, int visits) {
        unpaid_ -= visits;
        if (is_large_ && visits > many_visits && unpaid_ < 0)
            unpaid_ = std::int64_t{2} * window_.move_to(boxes_, around(found, reach_));
    }

    /// The slanted box of a run, or null.
    const SlantedBox* slanted(std::ptrdiff_t run) {
        return is_large_ && slanted_[run].is_thin() ? &slanted_[run] : nullptr;
    }

    /// Whether no vertex of a run is inside the circle, `squared` being its squared bound.
    bool is_outside(const Circumcircle& circle, double squared, std::ptrdiff_t run) {
        if (const SlantedBox* const thin = slanted(run))
            return thin->is_beyond(squared, circle.centre);
        return ztmath::is_outside(circle, boxes_[run]);
    }

    /// Whether all coordinates count as finite.
    bool all_finite() const { return all_finite_; }

    /// No point is farther from the origin.
    double reach() const { return reach_; }

  private:
    static constexpr std::ptrdiff_t room_behind = width_of<Quad> - 1;
    static constexpr int large = 200;
    static constexpr int many_visits = 50;

    const double* points_;
    RunBoxes boxes_;
    WorkArray<double, 100> xs_, ys_;
    WorkArray<SlantedBox, 1> slanted_;  // of each run, where all coordinates are finite
    bool all_finite_ = true;
    bool is_large_;  // worth a second look at runs, and finite
    RunWindow everything_, window_;
    std::int64_t unpaid_ = 0;  // visits before the window may be moved again
    double reach_;
};

}  // namespace ztmath
