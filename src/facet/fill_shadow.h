// What an edge of a polygon hides from an end of a base edge, near the base edge's line.
//
// Points that lie only just to the left of the base edge have circles too wide to be told apart but
// one by one. Far along the line there can be many, in runs that also reach to the right of it: but
// few are seen, since what crosses the line before them hides them.
#pragma once

#include <utility>

#include "facet/fill_diagonal.h"

namespace ztmath {

/// A base edge's line as it runs on from one of its ends; the base edge's left is above it.
class Extension {
  public:
    Extension() = default;

    static Extension behind_start(const BaseEdge& base) {
        return {base.start(), unitized(base.way() * -1.0), unitized(base.left())};
    }
    static Extension beyond_end(const BaseEdge& base) {
        return {base.start() + base.way(), unitized(base.way()), unitized(base.left())};
    }

    double along(Vec2 p) const { return dot(way_, p - from_); }
    double above(Vec2 p) const { return dot(up_, p - from_); }

    /// How far along it no point of the box comes behind.
    double least_along(const Box2& box) const { return along(Extremes(way_).hindmost(box)); }

    /// Whether no edge within the box meets it.
    bool misses(const Box2& box) const {
        return along(Extremes(way_).foremost(box)) < 0.0 ||
               above(Extremes(up_).foremost(box)) < 0.0 || above(Extremes(up_).hindmost(box)) > 0.0;
    }

    /// How far along it the edge meets it, or a number that is not above 0.
    double meets_at(Vec2 e0, Vec2 e1) const {
        const double h0 = above(e0);
        const double h1 = above(e1);
        if ((h0 < 0.0) == (h1 < 0.0)) return 0.0;
        return along(e0) + (along(e1) - along(e0)) * (h0 / (h0 - h1));
    }

    Vec2 start() const { return from_; }

  private:
    Extension(Vec2 from, Vec2 way, Vec2 up) : from_(from), way_(way), up_(up) {}

    static Vec2 unitized(Vec2 v) { return v * (1.0 / length(v)); }

    Vec2 from_{}, way_{}, up_{};
};

/// The points behind an edge that are seen from the start of an extension below half the slope of
/// the edge's upper end: every diagonal from one of them to the start crosses the edge, rounding
/// and all.
class Shadow {
  public:
    /// Of nothing.
    Shadow() = default;

    /// Of an edge that meets the extension; of nothing where that is not certain to cross all such
    /// diagonals, where no point is farther from the origin than `reach`.
    Shadow(const Extension& extension, Vec2 upper, Vec2 lower, double reach)
        : extension_(extension), corner_(upper), margin_(touching_margin(reach)) {
        if (extension.above(upper) < extension.above(lower)) std::swap(upper, lower);
        const double half_slope = 0.5 * extension.above(upper) / extension.along(upper);
        // How far the edge runs along the lowest and the highest of the diagonals: one that is
        // square to a diagonal does not cross it.
        const double run_low = extension.along(upper) - extension.along(lower);
        const double run_high =
            run_low + half_slope * (extension.above(upper) - extension.above(lower));
        const double two = 2.0 * margin_;
        const bool is_ahead = extension.along(upper) > two && extension.along(lower) > two;
        const bool is_across = extension.above(upper) > 1.25 * two && extension.above(lower) < -two;
        const bool is_slanted =
            (run_low > two && run_high > two) || (run_low < -two && run_high < -two);
        if (!is_ahead || !is_across || !is_slanted || !(half_slope < 0.5)) return;
        const Vec2 edge = lower - upper;
        const Vec2 normal{edge.y, -edge.x};
        behind_ = dot(normal, extension.start() - upper) > 0.0 ? normal * -1.0 : normal;
        least_behind_ = two * length(edge);
        // Whoever asks has rounded too.
        slope_ = 0.8 * half_slope;
    }

    bool hides() const { return slope_ > 0.0; }

    /// How far above the extension no point of the box that is seen and above it is below; 0 where
    /// nothing is known.
    double least_height(const Box2& box) const {
        if (!hides()) return 0.0;
        const double along = extension_.least_along(box);
        const bool is_behind = along > margin_ && dot(behind_, Extremes(behind_).hindmost(box) -
                                                                   corner_) > least_behind_;
        return is_behind ? slope_ * along : 0.0;
    }

  private:
    Extension extension_;
    Vec2 corner_{};  // an end of the edge
    Vec2 behind_{};  // square to the edge, away from the start
    double margin_ = 0.0;
    double least_behind_ = 0.0;
    double slope_ = 0.0;
};

}  // namespace ztmath
