// Diagonals of a polygon and the edges that cross them, with answers for all edges of a box at
// once.
#pragma once

#include "facet/fill_predicates.h"

namespace ztmath {

/// What is farther from a diagonal than this does not cross it, rounding and all, where no point is
/// farther from the origin than `reach`.
inline double touching_margin(double reach) {
    return 10.0 * fill_eps + 1.0e-13 * reach;
}

/// A frame along a diagonal, from which edges are seen: s along it, t to its left.
class Diagonal {
  public:
    Diagonal(Vec2 from, Vec2 to) : Diagonal(from, to, unitize_unchecked(to - from, null_length)) {}

    /// How far to the left of the diagonal's line a point is.
    template <class Point>
    [[gnu::always_inline]] auto across(const Point& p) const {
        return cross(way_, p - origin_);
    }

    /// Whether an edge whose ends are so far across stays on one side, which settles most edges.
    static bool is_beside(double t0, double t1) {
        // Kept as it stands: the two sides are held to different margins.
        return (t0 < fill_eps && t1 < fill_eps) || (t0 > -fill_eps && t1 > fill_eps);
    }

    /// Whether the edge crosses the diagonal.
    bool is_crossed_by(Vec2 e0, Vec2 e1) const {
        const double s0 = along(e0);
        const double s1 = along(e1);
        // Kept as it stands: the two ends are held to different margins, before as well as beyond
        // the diagonal's end. Fills depend on which edges that merely touch a diagonal count.
        if (s0 < fill_eps && s1 < fill_eps) return false;
        if (s0 > length_ - fill_eps && s1 > length_ + fill_eps) return false;
        const double t0 = across(e0);
        const double t1 = across(e1);
        if (is_beside(t0, t1)) return false;
        // Kept as it stands: an edge square to the diagonal has no slope and does not cross it.
        if (s0 - s1 == 0.0) return false;
        const double slope = (t0 - t1) / (s0 - s1);
        const double s = -(t0 - slope * s0) / slope;
        return fill_eps < s && s <= length_ - fill_eps;
    }

    /// Whether no edge within the box crosses the diagonal.
    bool is_clear_of(const Box2& box) const {
        return across(extremes_.leftmost(box)) < fill_eps ||
               across(extremes_.rightmost(box)) > fill_eps ||
               along(extremes_.foremost(box)) < fill_eps ||
               along(extremes_.hindmost(box)) > length_ + fill_eps;
    }
    bool is_clear_of(const SlantedBox& box) const {
        const Vec2 square{way_.y, -way_.x};  // across it is along the diagonal
        return box.most_across(origin_, way_) < fill_eps ||
               box.least_across(origin_, way_) > fill_eps ||
               box.most_across(origin_, square) < fill_eps ||
               box.least_across(origin_, square) > length_ + fill_eps;
    }

    /// A box outside of which no edge crosses the diagonal.
    friend Box2 around(const Diagonal& diagonal, double reach) {
        const double margin = touching_margin(reach);
        Box2 box = empty_box;
        expand(box, diagonal.origin_);
        expand(box, diagonal.end_);
        return {box.low - Vec2{margin, margin}, box.high + Vec2{margin, margin}};
    }

  private:
    Diagonal(Vec2 from, Vec2 to, const Unitized<Vec2>& way)
        : origin_(from), end_(to), way_(way.unit), length_(way.magnitude), extremes_(way.unit) {}

    double along(Vec2 p) const { return dot(p - origin_, way_); }

    Vec2 origin_, end_, way_;
    double length_;
    Extremes extremes_;
};

}  // namespace ztmath
