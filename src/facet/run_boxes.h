// A hierarchy of boxes over a closed chain of points: each box holds a run of consecutive points.
//
// It answers "the first point of a run with a property" without looking at most of the others. A
// stretch of any part of the chain is served by the same boxes, since a part of a polygon that a
// diagonal cuts off is a stretch again. What is left out must be certain: tests of boxes evaluate
// the formula of a point at the corner where it is largest or smallest, and rounding, being
// monotone, keeps that order.
#pragma once

#include <algorithm>
#include <cstddef>

#include "frame/vec.h"
#include "frame/wide_lanes.h"
#include "frame/work_array.h"

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

/// Whether they have a point in common, or coordinates that are not numbers.
inline bool meet(const Box2& a, const Box2& b) {
    return !(a.low.x > b.high.x || b.low.x > a.high.x || a.low.y > b.high.y || b.low.y > a.high.y);
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

/// The corners of a box that are farthest and least far in a direction.
inline Vec2 foremost(const Box2& box, Vec2 way) {
    return {way.x >= 0.0 ? box.high.x : box.low.x, way.y >= 0.0 ? box.high.y : box.low.y};
}
inline Vec2 hindmost(const Box2& box, Vec2 way) {
    return {way.x >= 0.0 ? box.low.x : box.high.x, way.y >= 0.0 ? box.low.y : box.high.y};
}

/// The corners of a box that are farthest to the left and to the right of a direction.
inline Vec2 leftmost(const Box2& box, Vec2 way) {
    return {way.y >= 0.0 ? box.low.x : box.high.x, way.x >= 0.0 ? box.high.y : box.low.y};
}
inline Vec2 rightmost(const Box2& box, Vec2 way) {
    return {way.y >= 0.0 ? box.high.x : box.low.x, way.x >= 0.0 ? box.low.y : box.high.y};
}

class RunBoxes {
  public:
    /// The most points of a run of the lowest level.
    static constexpr int leaf = 8;

    /// Boxes over the n points that `point(i)` gives. Where they are `linked`, the box of a run
    /// holds the point behind the run too, and so the edges that leave its points.
    template <class Point>
    RunBoxes(int n, Point point, bool linked)
        : leaf_runs_((n - 1) / leaf + 1),
          levels_(levels_over(leaf_runs_)),
          storage_(run_count() + 1L),
          runs_(storage_.data()) {
        number_runs(n);
        for (int run = run_count() - 1; run >= 0; --run) {
            Box2 box = empty_box;
            if (is_leaf(run))
                for (int i = first_of(run); i <= last_of(run) + linked; ++i)
                    expand(box, point(i < n ? i : 0));
            runs_[run].box = is_leaf(run) ? box : union_below(run);
        }
    }

    /// Runs are numbered so that each comes before those it consists of, and they before the next.
    int run_count() const { return runs_before(leaf_runs_); }

    const Box2& operator[](int run) const { return runs_[run].box; }

    /// The points of a run.
    int first_of(int run) const { return runs_[run].first; }
    int last_of(int run) const { return runs_[runs_[run].next].first - 1; }

    /// The first index in [first, last] at which `stop` holds, or -1. Runs that `skip` is true of
    /// are left out.
    template <class Skip, class Stop>
    int find_first(int first, int last, Skip skip, Stop stop) const {
        for (int run = leaf_at(first); first_of(run) <= last;) {
            const bool is_skipped = skip(run);
            if (!is_skipped && !is_leaf(run)) {
                ++run;
                continue;
            }
            if (!is_skipped) {
                const int end = std::min(last_of(run), last);
                for (int i = std::max(first_of(run), first); i <= end; ++i)
                    if (stop(i)) return i;
            }
            run = runs_[run].next;
        }
        return -1;
    }

    /// Calls visit(from, to) with the points of [first, last], at most `leaf` at a time, of the
    /// runs at hand that with the least `order` first. Runs that `skip` is true of are left out.
    template <class Order, class Skip, class Visit>
    void visit_in_order(int first, int last, Order order, Skip skip, Visit visit) const {
        WaitingRuns waiting;
        const auto add_runs = [&](int run, int end) {
            const int others = waiting.count;
            for (; run < end && first_of(run) <= last; run = runs_[run].next)
                if (last_of(run) >= first && !skip(run)) waiting.insert({order(run), run}, others);
        };
        int level = 0;
        while (run_of(first, level) + 1 < run_of(last, level))
            ++level;
        add_runs(leaf_at(first_of_run(run_of(first, level), level)) - level, run_count());
        while (waiting.count > 0) {
            const int run = waiting.runs[--waiting.count].run;
            if (skip(run)) continue;
            if (is_leaf(run))
                visit(std::max(first_of(run), first), std::min(last_of(run), last));
            else
                add_runs(run + 1, runs_[run].next);
        }
    }

    /// Shrinks the boxes that hold point i, after it has been taken away, to the points of its run
    /// that `remains` holds for.
    template <class Point, class Remains>
    void shrink_around(int i, Point point, Remains remains) {
        const int leaf_run = leaf_at(i);
        Box2 box = empty_box;
        for (int k = first_of(leaf_run); k <= last_of(leaf_run); ++k)
            if (remains(k)) expand(box, point(k));
        runs_[leaf_run].box = box;
        for (int level = 1; level < levels_; ++level) {
            const int run = leaf_at(first_of_run(run_of(i, level), level)) - level;
            runs_[run].box = union_below(run);
        }
    }

    /// The box of all points.
    const Box2& whole() const { return runs_[0].box; }

  private:
    static constexpr int leaf_shift = 3;
    static constexpr int fan_shift = 2;
    static constexpr int fan = 1 << fan_shift;  // runs to one of the level above
    static constexpr int most_levels = 16;
    static_assert(leaf == 1 << leaf_shift);

    struct Run {
        Box2 box;
        int next;   // the run behind all that it consists of
        int first;  // point
    };

    struct WaitingRun {
        double order;
        int run;
    };

    /// Runs that wait to be visited, the next one last.
    struct WaitingRuns {
        WaitingRun runs[fan * most_levels + 2];
        int count = 0;

        /// Inserts a run among those from `first` on.
        void insert(const WaitingRun& added, int first) {
            int place = count++;
            for (; place > first && runs[place - 1].order < added.order; --place)
                runs[place] = runs[place - 1];
            runs[place] = added;
        }
    };

    /// How many runs of a level there are before that of point i.
    static int run_of(int i, int level) { return i >> (leaf_shift + fan_shift * level); }
    static int first_of_run(int run, int level) { return run << (leaf_shift + fan_shift * level); }

    static int levels_over(int leaf_runs) {
        int levels = 1;
        while (((leaf_runs - 1) >> (fan_shift * (levels - 1))) > 0)
            ++levels;
        return levels;
    }

    /// How many runs, of all levels, begin before a run of the lowest level.
    int runs_before(int leaf_run) const {
        int runs = leaf_run;
        for (int level = 1; level < levels_; ++level)
            runs += ((leaf_run - 1) >> (fan_shift * level)) + 1;
        return runs;
    }

    /// The run of the lowest level that holds point i: the last to begin before the next one.
    int leaf_at(int i) const { return runs_before((i >> leaf_shift) + 1) - 1; }

    bool is_leaf(int run) const { return runs_[run].next == run + 1; }

    void number_runs(int n) {
        int run = 0;
        for (int leaf_run = 0; leaf_run < leaf_runs_; ++leaf_run)
            for (int level = levels_ - 1; level >= 0; --level) {
                const int width = 1 << (fan_shift * level);
                if (leaf_run % width == 0)
                    runs_[run++] = {empty_box, runs_before(std::min(leaf_run + width, leaf_runs_)),
                                    leaf_run << leaf_shift};
            }
        runs_[run] = {empty_box, run, n};  // ends every search
    }

    Box2 union_below(int run) const {
        Box2 box = empty_box;
        for (int below = run + 1; below < runs_[run].next; below = runs_[below].next)
            expand(box, runs_[below].box);
        return box;
    }

    int leaf_runs_;
    int levels_;
    WorkArray<Run, 40> storage_;
    Run* runs_;
};

}  // namespace ztmath
