// Boxes along the chords of runs of points.
#pragma once

#include <cstdint>

#include "facet/box2.h"
#include "kit/unitize.h"

namespace ztmath {

/// A box along the chord of a run of points that keep near it, and nothing for other runs. It is
/// larger than the points need, so that what is said of it holds for them, rounding and all.
class SlantedBox {
  public:
    // cppcheck-suppress uninitMemberVar // an element of work memory, made before it is read
    SlantedBox() = default;

    /// Around the points first to last of those that `point(i)` gives, none of them, nor any other
    /// point that the box is asked about, farther from the origin than `reach`.
    template <class Point>
    static SlantedBox around(int first, int last, double reach, Point point) {
        const Vec2 from = point(first);
        const Vec2 chord = point(last) - from;
        const auto is_near = [&](int quarters) {
            const Vec2 p =
                point(first + static_cast<int>((last - first) * std::int64_t{quarters} / 4));
            return std::fabs(cross(chord, p - from)) < most_height * length_squared(chord);
        };
        if (is_null(chord) || !is_near(1) || !is_near(2) || !is_near(3)) return {false, {}, {}};
        SlantedBox slanted{true, chord * (1.0 / length(chord)), empty_box};
        for (int i = first; i <= last; ++i)
            expand(slanted.box_, slanted.turned(point(i)));
        const Vec2 margin{rounding * reach, rounding * reach};
        slanted.box_ = {slanted.box_.low - margin, slanted.box_.high + margin};
        return slanted;
    }

    bool is_thin() const { return is_thin_; }

    // What follows is asked of thin boxes only.

    /// The least and the largest cross product of a way with the ways from a point to those of the
    /// box.
    double least_across(Vec2 from, Vec2 way) const {
        const Vec2 w = turned(way);
        return cross(w, Extremes(w).rightmost(box_) - turned(from));
    }
    double most_across(Vec2 from, Vec2 way) const {
        const Vec2 w = turned(way);
        return cross(w, Extremes(w).leftmost(box_) - turned(from));
    }

    /// No point of the box is nearer to p, which may be anywhere.
    double least_distance(Vec2 p) const {
        return std::max(0.0, length(gap(box_, turned(p))) - rounding_far_out(p));
    }

    /// Whether all of the box is farther from a centre than a distance, of which `squared` is the
    /// square with `rounding_far_out` of the centre added to the distance.
    bool is_beyond(double squared, Vec2 centre) const {
        return length_squared(gap(box_, turned(centre))) > squared;
    }

    static double rounding_far_out(Vec2 p) { return rounding * (std::fabs(p.x) + std::fabs(p.y)); }

  private:
    static constexpr double most_height = 0.2;  // of a thin run, as a part of its chord

    // Turning rounds by less than four units of the last place, and so do both ends of a difference
    // and the way that it is multiplied with.
    static constexpr double rounding = 4.0e-15;

    SlantedBox(bool is_thin, Vec2 way, const Box2& box) : is_thin_(is_thin), way_(way), box_(box) {}

    Vec2 turned(Vec2 p) const { return {dot(way_, p), cross(way_, p)}; }

    bool is_thin_;
    Vec2 way_;
    Box2 box_;  // turned
};

}  // namespace ztmath
