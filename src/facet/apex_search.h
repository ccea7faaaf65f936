// The search for the apex of the triangle on a part's base edge, by runs of its vertices.
#pragma once

#include <algorithm>

#include "facet/fill_outline.h"
#include "facet/fill_shadow.h"
#include "facet/reached_from.h"

namespace ztmath {

/// Searches a part of a polygon, a run of its vertices, the base edge from the last to the first.
class ApexSearch {
  public:
    ApexSearch(Outline& outline, int first, int last)
        : outline_(outline),
          first_(first),
          last_(last),
          leaps_(outline.all_finite()),
          base_(outline.point(last), outline.point(first)) {}

    /// The apex, or -1. The first vertex that makes a triangle gives way to the first one behind it
    /// that lies inside its circle and can be joined to the base edge, that one to the next, and so
    /// on. It is not itself asked whether it can be joined.
    ///
    /// The vertices it gives way to can be many, so after a few, or at once if its circle is huge,
    /// the search looks for the last of them and makes sure that it is reached. Very often that is
    /// one of the part's last vertices, since parts are cut off piece by piece, from one end and
    /// the other: the search looks there before it joins a vertex that gives way to the last one.
    int apex() {
        int k = first_triangle();
        if (k < 0) return -1;
        Candidate candidate = candidate_at(k);
        const int patience = leaps_ ? 3 : last_ - first_;
        if (leaps_ && base_.is_dwarfed_by(candidate.circle)) leap(candidate);
        while (!advance(candidate, patience))
            leap(candidate);
        outline_.follow(candidate.circle, visits_);
        return candidate.vertex;
    }

  private:
    Vec2 point(int i) const { return outline_.point(i); }

    static constexpr int few = 4;      // runs, edges or vertices
    static constexpr int beside = 3;   // edges on either side
    static constexpr int nearby = 32;  // vertices

    /// A vertex and its circle.
    struct Candidate {
        int vertex;
        Circumcircle circle;
        double squared_bound;
    };

    Candidate candidate_at(int k) const {
        const Circumcircle circle = base_.circle_through(point(k));
        return {k, circle, squared_bound(circle)};
    }

    /// Whether the candidate gives way to vertex j if j can be joined to the base edge.
    bool yields(const Candidate& candidate, int j) const {
        return is_inside(candidate.circle, point(j)) && !base_.rejects(point(j));
    }

    const Box2& box(std::ptrdiff_t run) const { return outline_.boxes()[run]; }

    /// How many runs of a search their boxes have told nothing about. After many, the slanted boxes
    /// are asked too: along a diagonal of a row of teeth that is neither upright nor level, boxes
    /// tell nothing, however far away the teeth are.
    class Doubts {
      public:
        bool are_many() const { return count_ > many; }
        bool grow() {
            ++count_;
            return are_many();
        }

      private:
        static constexpr int many = 24;
        int count_ = 0;
    };

    /// Whether what is claimed of boxes is true of that of a run or, among many doubts, of its
    /// slanted one.
    template <class Claim>
    bool is_sure(Claim claim, std::ptrdiff_t run, Doubts& doubts) const {
        if (claim(box(run))) return true;
        if (!doubts.grow()) return false;
        const SlantedBox* const slanted = outline_.slanted(run);
        return slanted && claim(*slanted);
    }

    bool rejects_all(std::ptrdiff_t run, Doubts& doubts) const {
        return is_sure([&](const auto& box) { return base_.rejects_all(box); }, run, doubts);
    }

    bool cannot_replace(const Candidate& candidate, std::ptrdiff_t run, Doubts& doubts) const {
        return outline_.is_outside(candidate.circle, candidate.squared_bound, run) ||
               rejects_all(run, doubts);
    }

    /// Lets the candidate give way up to `times` times, or until that brings little; whether it has
    /// been found to be the last.
    bool advance(Candidate& candidate, int times) {
        while (times > 0) {
            const bool in_window = outline_.shows(candidate.circle);
            Doubts doubts;
            const int j = outline_.first_near(
                candidate.circle, candidate.vertex + 1, last_ - 1,
                [&](std::ptrdiff_t run) {
                    ++visits_;
                    return cannot_replace(candidate, run, doubts);
                },
                [&](int i) {
                    if (!yields(candidate, i)) return false;
                    if (leaves_for_end(candidate, i)) return true;
                    if (!can_be_joined(i)) return false;
                    const double before = candidate.circle.squared_radius;
                    candidate = candidate_at(i);
                    if (leaps_ && candidate.circle.squared_radius > 0.9 * before) times = 1;
                    return --times == 0 || (in_window && !outline_.shows(candidate.circle));
                });
            if (j < 0) return true;
        }
        return false;
    }

    /// Lets the candidate, which gives way to none before vertex i, give way to one of the last
    /// vertices, if vertex i would give way to the very last; whether it has. It is tried once.
    bool leaves_for_end(Candidate& candidate, int i) {
        if (!leaps_ || end_is_tried_ || i == last_ - 1 || !yields(candidate_at(i), last_ - 1))
            return false;
        end_is_tried_ = true;
        return leap_to_end(candidate, i);
    }

    /// Lets the candidate give way to many at once.
    void leap(Candidate& candidate) {
        if (!leap_to_end(candidate, candidate.vertex + 1))
            candidate = candidate_at(reached_from(
                candidate.vertex, best(candidate),
                [this](int from, int target) { return first_that_stays(from, from + 1, target); }));
    }

    /// Lets the candidate give way to one of the last vertices if that is surely reached; whether
    /// it is. It gives way to none before `next`.
    bool leap_to_end(Candidate& candidate, int next) {
        Few last_ones{std::max(next, last_ - few), last_ - 1};
        for (;;) {
            const Candidate goal = best_of(candidate, last_ones);
            if (goal.vertex == candidate.vertex ||
                first_that_stays(candidate.vertex, next, goal.vertex) >= 0)
                return false;
            if (can_be_joined(goal.vertex)) {
                candidate = goal;
                return true;
            }
            last_ones.hide(goal.vertex);
        }
    }

    /// A vertex behind the candidate that gives way to few, if to any.
    int best(Candidate candidate) {
        Doubts doubts;
        outline_.boxes().visit_in_order(
            candidate.vertex + 1, last_ - 1,
            [&](std::ptrdiff_t run) { return base_.least_height(box(run)); },
            [&](std::ptrdiff_t run) { return cannot_replace(candidate, run, doubts); },
            [&](int from, int to) {
                Few some{from, to};
                Candidate found = best_of(candidate, some);
                while (found.vertex != candidate.vertex && !can_be_joined(found.vertex)) {
                    some.hide(found.vertex);
                    found = best_of(candidate, some);
                }
                candidate = found;
            });
        return candidate.vertex;
    }

    /// A few vertices, some of which are known to be hidden.
    struct Few {
        int from, to;
        bool is_hidden[RunBoxes::leaf] = {};

        void hide(int j) { is_hidden[j - from] = true; }
    };

    /// Of the candidate and a few vertices, the one that the others give way to if it can be
    /// joined.
    Candidate best_of(const Candidate& candidate, const Few& some) const {
        Candidate found = candidate;
        for (int j = some.from; j <= some.to; ++j)
            if (!some.is_hidden[j - some.from] && yields(found, j)) found = candidate_at(j);
        return found;
    }

    /// The first of a candidate and the vertices from `next` on that would not give way to the
    /// target, or -1.
    int first_that_stays(int from, int next, int target) {
        const Goal goal(base_, point(target), outline_.reach());
        const auto stays = [&](int w) { return !base_.rejects(point(w)) && !goal.beats(point(w)); };
        if (stays(from)) return from;
        Doubts doubts;
        return outline_.boxes().first_of(
            next, target - 1,
            [&](std::ptrdiff_t run) {
                if (rejects_all(run, doubts)) return true;
                return goal.surely_beats(box(run), least_cross_seen(box(run)),
                                         doubts.are_many() ? outline_.slanted(run) : nullptr);
            },
            [&](int i) { return stays(i) && can_be_joined(i); });
    }

    /// A lower bound of the cross product of the base edge with the points of a box that are to its
    /// left and can be joined to it. It is looked for only where many runs are on both sides.
    double least_cross_seen(const Box2& box) {
        const double nearest = base_.nearest_cross(box);
        if (nearest > fill_eps || ++straddling_runs_ < few) return nearest;
        double height = 0.0;
        if (base_.is_behind_start(box)) {
            if (!behind_last_.is_known)
                behind_last_ = outlook_along(Extension::behind_start(base_),
                                             std::max(first_, last_ - nearby), last_ - 1);
            height = behind_last_.shadow.least_height(box);
        } else if (base_.is_beyond_end(box)) {
            if (!beyond_first_.is_known)
                beyond_first_ = outlook_along(Extension::beyond_end(base_), first_,
                                              std::min(first_ + nearby, last_ - 1));
            height = beyond_first_.shadow.least_height(box);
        }
        return height * length(base_.way());
    }

    /// What is hidden along an extension of the base edge, once that has been asked for.
    struct Outlook {
        Shadow shadow;
        bool is_known = false;
    };

    /// By one of the edges that leave the vertices first to last, or, if they hide nothing, by
    /// another.
    Outlook outlook_along(const Extension& extension, int first, int last) {
        const Shadow shadow = nearest_shadow(extension, first, last);
        return {shadow.hides() ? shadow : nearest_shadow(extension, first_, last_ - 1), true};
    }

    /// The shadow of the nearest of some edges to hide anything along an extension.
    Shadow nearest_shadow(const Extension& extension, int first, int last) {
        Shadow shadow;
        double nearest = HUGE_VAL;
        int in_vain = 0;  // edges that meet the extension and are not sure to hide anything
        outline_.boxes().visit_in_order(
            first, last, [&](std::ptrdiff_t run) { return extension.least_along(box(run)); },
            [&](std::ptrdiff_t run) {
                return in_vain == few || extension.least_along(box(run)) > nearest ||
                       extension.misses(box(run));
            },
            [&](int from, int to) {
                for (int k = from; k <= to && in_vain < few; ++k) {
                    const double at = extension.meets_at(point(k), point(k + 1));
                    if (!(at > 0.0 && at < nearest)) continue;
                    const Shadow found(extension, point(k), point(k + 1), outline_.reach());
                    if (found.hides()) {
                        nearest = at;
                        shadow = found;
                    } else {
                        ++in_vain;
                    }
                }
            });
        return shadow;
    }

    int first_triangle() {
        const auto makes_triangle = [&](int k) { return !base_.rejects(point(k)); };
        if (makes_triangle(first_ + 1)) return first_ + 1;
        return outline_.boxes().first_of(
            first_ + 2, last_ - 1,
            [&](std::ptrdiff_t run) { return leaps_ && base_.rejects_all(box(run)); },
            makes_triangle);
    }

    /// A diagonal to an end of the base edge.
    struct Sight {
        Diagonal diagonal;
        int from, end;
        int reached = -1;  // the point that `side` is of: an edge begins where the one before ended
        double side = 0.0;  // how far across it is

        bool is_crossed_by_edge(int k, const Outline& outline) {
            const double start_side = k == reached ? side : diagonal.across(outline.point(k));
            reached = k + 1;
            side = diagonal.across(outline.point(k + 1));
            return !Diagonal::is_beside(start_side, side) && k != from && k + 1 != from &&
                   k != end && k + 1 != end &&
                   diagonal.is_crossed_by(outline.point(k), outline.point(k + 1));
        }
    };

    Sight sight(int j, int end) const { return {Diagonal(point(j), point(end)), j, end}; }

    /// Whether no edge of the part crosses a diagonal from j to an end of the base edge. The edges
    /// found last and those beside them are tried first: what hides one vertex tends to hide the
    /// next.
    bool can_be_joined(int j) {
        Sight to_last = sight(j, last_);
        if (is_hidden_nearby(to_last, blocks_last_)) return false;
        Sight to_first = sight(j, first_);
        if (is_hidden_nearby(to_first, blocks_first_)) return false;
        Box2 place = around(to_last.diagonal, outline_.reach());
        expand(place, around(to_first.diagonal, outline_.reach()));
        const auto clear = [&](const auto& box) {
            return to_last.diagonal.is_clear_of(box) && to_first.diagonal.is_clear_of(box);
        };
        Doubts doubts;
        const int k = outline_.first_near(
            place, first_, last_ - 1,
            [&](std::ptrdiff_t run) {
                return !meet(box(run), place) || is_sure(clear, run, doubts);
            },
            [&](int i) {
                return hides(i, to_last, blocks_last_) || hides(i, to_first, blocks_first_);
            });
        return k < 0;
    }

    bool is_hidden_nearby(Sight& sight, int& blocking) {
        if (blocking < 0) return false;
        if (hides(blocking, sight, blocking)) return true;
        const int last = std::min(blocking + beside, last_ - 1);
        for (int k = std::max(first_, blocking - beside); k <= last; ++k)
            if (k != blocking && hides(k, sight, blocking)) return true;
        return false;
    }

    bool hides(int k, Sight& sight, int& blocking) {
        if (!sight.is_crossed_by_edge(k, outline_)) return false;
        blocking = k;
        return true;
    }

    Outline& outline_;
    int first_, last_;
    bool leaps_;  // where a coordinate is not a number there is no shorter way
    bool end_is_tried_ = false;
    int visits_ = 0;           // of runs
    int straddling_runs_ = 0;  // seen on both sides of the base edge's line
    BaseEdge base_;
    int blocks_last_ = -1;  // the edge that last hid a vertex from the last vertex
    int blocks_first_ = -1;
    Outlook behind_last_, beyond_first_;
};

}  // namespace ztmath
