// The questions that a triangle fill asks of points and their circles, each with its answer for all
// points of a box at once.
#pragma once

#include "facet/slanted_box.h"

namespace ztmath {

/// Twice an area, a squared length, or a length: whichever is compared, this counts as 0.
inline constexpr double fill_eps = 1.0e-10;

/// The circle through the corners of a triangle; where `Point` is points in lanes, those of several
/// triangles.
template <class Point>
struct CircumcircleOf {
    Point centre;
    decltype(Point::x) squared_radius;
};
using Circumcircle = CircumcircleOf<Vec2>;

/// A directed edge and what lies to its left.
class BaseEdge {
  public:
    BaseEdge(Vec2 a, Vec2 b) : a_(a), way_(b - a), extremes_(way_) {}

    Vec2 start() const { return a_; }
    Vec2 way() const { return way_; }
    Vec2 left() const { return {-way_.y, way_.x}; }

    /// Twice the signed area of the triangle with p.
    template <class Point>
    [[gnu::always_inline]] auto cross_with(const Point& p) const {
        return cross(way_, p - a_);
    }

    /// The largest and the least of it for points of a box.
    double farthest_cross(const Box2& box) const { return cross_with(extremes_.leftmost(box)); }
    double nearest_cross(const Box2& box) const { return cross_with(extremes_.rightmost(box)); }
    double farthest_cross(const SlantedBox& box) const { return box.most_across(a_, way_); }
    double nearest_cross(const SlantedBox& box) const { return box.least_across(a_, way_); }

    /// Whether the triangle with p is degenerate or clockwise. One that is not a number passes.
    template <class Point>
    [[gnu::always_inline]] auto rejects(const Point& p) const {
        return cross_with(p) <= fill_eps;
    }

    /// Whether every point of the box is rejected.
    template <class Box>
    bool rejects_all(const Box& box) const {
        return farthest_cross(box) <= fill_eps;
    }

    /// Whether all of the box is farther back than the edge's start, or farther on than its end.
    bool is_behind_start(const Box2& box) const {
        return dot(way_, extremes_.foremost(box) - a_) < 0.0;
    }
    bool is_beyond_end(const Box2& box) const {
        return dot(way_, extremes_.hindmost(box) - a_) > length_squared(way_);
    }

    /// Whether the circle is a hundred times as wide as the edge.
    bool is_dwarfed_by(const Circumcircle& circle) const {
        return circle.squared_radius > 1.0e4 * length_squared(way_);
    }

    /// Through both ends and p.
    template <class Point>
    [[gnu::always_inline]] CircumcircleOf<Point> circle_through(const Point& p) const {
        const Point to_p = p - a_;
        const auto c = cross(way_, to_p);
        const double to_b_squared = length_squared(way_);
        const auto to_p_squared = length_squared(to_p);
        const Point centre{(to_b_squared * to_p.y - to_p_squared * way_.y) / (2.0 * c),
                           (to_p_squared * way_.x - to_b_squared * to_p.x) / (2.0 * c)};
        return {a_ + centre, length_squared(centre)};
    }

    /// A lower bound, but for rounding and a factor, of how far to the left of the edge the centre
    /// of the circle through both ends and a point of the box is.
    double least_height(const Box2& box) const {
        const double power =
            length_squared(gap(box, a_ + way_ * 0.5)) - 0.25 * length_squared(way_);
        if (power > 0.0) return power / farthest_cross(box);
        const double nearest = nearest_cross(box);
        return nearest > 0.0 ? power / nearest : -HUGE_VAL;
    }

  private:
    Vec2 a_, way_;
    Extremes extremes_;
};

template <class Circles, class Point>
[[gnu::always_inline]] inline auto is_inside(const Circles& circle, const Point& p) {
    return length_squared(p - circle.centre) < circle.squared_radius - fill_eps;
}

inline bool is_outside(const Circumcircle& circle, const Box2& box) {
    return !(length_squared(gap(box, circle.centre)) < circle.squared_radius - fill_eps);
}

/// The squared distance from a circle's centre beyond which slanted boxes are outside of it.
inline double squared_bound(const Circumcircle& circle) {
    const double radius =
        std::sqrt(circle.squared_radius) + SlantedBox::rounding_far_out(circle.centre);
    return (1.0 + 1.0e-14) * (radius * radius);
}

/// A vertex that others might give way to.
class Goal {
  public:
    /// No point is farther from the origin than `reach`.
    Goal(const BaseEdge& base, Vec2 p, double reach)
        : base_(base),
          p_(p),
          circle_(base.circle_through(p)),
          cross_(base.cross_with(p)),
          edge_(length(base.way())),
          distance_(length(p - base.start())),
          reach_(reach) {}

    /// Whether it lies inside the circle through both ends of the base edge and w.
    bool beats(Vec2 w) const { return is_inside(base_.circle_through(w), p_); }

    /// Whether it surely beats, rounding and all, all points of the box for which `cross_with`
    /// gives `nearest` or more. A slanted box around the same points, or null, may tell more.
    ///
    /// Its power in the circle of w is minus the power of w in its circle, times the ratio of the
    /// distances of both from the edge. The rounding of a circle through w is at most 60 units of
    /// the last place of (d / sine) (d / sine + reach), where d is the largest distance from the
    /// edge's start and the sine that of the angle between the edge and w.
    bool surely_beats(const Box2& box, double nearest, const SlantedBox* slanted) const {
        double farthest = base_.farthest_cross(box);
        double gap_squared = length_squared(gap(box, circle_.centre));
        if (slanted) {
            nearest = std::max(nearest, base_.nearest_cross(*slanted));
            farthest = std::min(farthest, base_.farthest_cross(*slanted));
            const double distance = slanted->least_distance(circle_.centre);
            gap_squared = std::max(gap_squared, distance * distance);
        }
        if (!(nearest > fill_eps)) return false;
        const double w = length(span(box, base_.start()));
        const double d = std::max(w, std::max(edge_, distance_));
        const double power =
            gap_squared - circle_.squared_radius - rounding(d * edge_ * distance_ / cross_);
        return cross_ * power > farthest * (2.0 * fill_eps + rounding(d * edge_ * w / nearest));
    }

  private:
    double rounding(double scaled) const { return 1.0e-14 * scaled * (scaled + reach_); }

    BaseEdge base_;
    Vec2 p_;
    Circumcircle circle_;
    double cross_, edge_, distance_, reach_;
};

/// A box outside of which no point is inside the circle, where none is farther from the origin than
/// `reach`.
inline Box2 around(const Circumcircle& circle, double reach) {
    const Vec2 c = circle.centre;
    const double rounding = 2.0e-15 * (std::fabs(c.x) + std::fabs(c.y) + reach);
    const double radius = std::sqrt(circle.squared_radius) * (1.0 + 1.0e-14) + rounding;
    return {c - Vec2{radius, radius}, c + Vec2{radius, radius}};
}

}  // namespace ztmath
