// A hierarchy of boxes over a closed chain of points: each box holds a run of consecutive points.
//
// It answers "the first point of a run with a property" without looking at most of the others. A
// stretch of any part of the chain is served by the same boxes, since a part of a polygon that a
// diagonal cuts off is a stretch again. What is left out must be certain: tests of boxes evaluate
// the formula of a point at the corner where it is largest or smallest, and rounding, being
// monotone, keeps that order.
#pragma once

#include <cstddef>

#include "facet/box2.h"
#include "frame/work_array.h"

namespace ztmath {

class RunBoxes {
    static constexpr int leaf_shift = 3;

  public:
    /// The points of a run of the lowest level.
    static constexpr int leaf = 1 << leaf_shift;

    /// Boxes over the n points that `point(i)` gives. Where they are `linked`, the box of a run
    /// holds the point behind the run too, and so the edges that leave its points.
    template <class Point>
    RunBoxes(int n, Point point, bool linked) : n_(n), boxes_(box_count(n)) {
        set_levels();
        for (std::ptrdiff_t run = 0; run < runs_at(0); ++run) {
            const std::ptrdiff_t first = run << leaf_shift;
            const std::ptrdiff_t behind = least(first + leaf, n_);
            Box2 box = empty_box;
            for (std::ptrdiff_t i = first; i < behind + linked; ++i)
                expand(box, point(static_cast<int>(i < n_ ? i : 0)));
            boxes_[run] = box;
        }
        for (int level = 1; level < levels_; ++level)
            for (std::ptrdiff_t run = 0; run < runs_at(level); ++run)
                boxes_[start_[level] + run] = union_below(level, run);
    }

    int point_count() const { return static_cast<int>(n_); }

    /// The number of runs, and the box of one.
    std::ptrdiff_t run_count() const { return start_[levels_ - 1] + 1; }
    const Box2& operator[](std::ptrdiff_t run) { return boxes_[run]; }

    /// Calls visit(run, first, last) with each run and its points.
    template <class Visit>
    void for_each_run(Visit visit) const {
        for (int level = 0; level < levels_; ++level)
            for (std::ptrdiff_t run = 0; run < runs_at(level); ++run)
                visit(start_[level] + run, static_cast<int>(run << shift(level)),
                      static_cast<int>(least((run + 1) << shift(level), n_) - 1));
    }

    /// The first index in [first, last] at which `stop` holds, or -1. Runs that `skip` is true of
    /// are left out.
    template <class Skip, class Stop>
    int first_of(int first, int last, Skip skip, Stop stop) {
        int level = first == 0 ? levels_ - 1 : 0;  // where everything begins
        for (std::ptrdiff_t i = first; i <= last;) {
            const std::ptrdiff_t run = i >> shift(level);
            const bool skipped = skip(start_[level] + run);
            if (!skipped && level > 0) {
                --level;
                continue;
            }
            const std::ptrdiff_t behind = (run + 1) << shift(level);
            if (!skipped)
                for (const std::ptrdiff_t end = least(behind, last + 1L); i < end; ++i)
                    if (stop(static_cast<int>(i))) return static_cast<int>(i);
            i = behind;
            if (level + 1 < levels_ && ((run + 1) & (fan - 1)) == 0) ++level;
        }
        return -1;
    }

    /// Calls visit(from, to) with the points of [first, last], at most `leaf` at a time, of the
    /// runs at hand that with the least `order` first. Runs that `skip` is true of are left out.
    template <class Order, class Skip, class Visit>
    void visit_in_order(int first, int last, Order order, Skip skip, Visit visit) {
        WaitingRuns waiting;
        const auto add_runs = [&](int level, std::ptrdiff_t from, std::ptrdiff_t to) {
            const int others = waiting.count;
            for (std::ptrdiff_t run = from; run <= to; ++run) {
                const std::ptrdiff_t number = start_[level] + run;
                if (!skip(number)) waiting.insert({order(number), level, run}, others);
            }
        };
        int top = 0;
        while ((first >> shift(top)) + 1 < (last >> shift(top)))
            ++top;
        add_runs(top, first >> shift(top), last >> shift(top));
        while (waiting.count > 0) {
            const auto [_, level, run] = waiting.runs[--waiting.count];
            if (skip(start_[level] + run)) continue;
            if (level > 0) {
                const int below = level - 1;
                add_runs(below, most(run * fan, first >> shift(below)),
                         least(run * fan + fan - 1, last >> shift(below)));
            } else {
                const std::ptrdiff_t start = run << leaf_shift;
                const std::ptrdiff_t end = least(start + leaf - 1, last);
                visit(static_cast<int>(most(start, first)), static_cast<int>(end));
            }
        }
    }

    /// Shrinks the boxes that hold point i, after it has been taken away, to the points of its run
    /// that `remains` holds for.
    template <class Point, class Remains>
    void shrink_around(int i, Point point, Remains remains) {
        std::ptrdiff_t run = i >> leaf_shift;
        if (is_within(boxes_[run], point(i))) return;
        Box2 box = empty_box;
        for (std::ptrdiff_t k = run << leaf_shift; k < least((run + 1) << leaf_shift, n_); ++k)
            if (remains(static_cast<int>(k))) expand(box, point(static_cast<int>(k)));
        boxes_[run] = box;
        for (int level = 1; level < levels_; ++level) {
            run >>= fan_shift;
            Box2& above = boxes_[start_[level] + run];
            if (is_within(above, point(i))) return;
            above = union_below(level, run);
        }
    }

    /// The box of all points.
    const Box2& whole() { return boxes_[run_count() - 1]; }

  private:
    static constexpr int fan_shift = 2;  // four runs to one of the next level
    static constexpr int fan = 1 << fan_shift;
    static constexpr int most_levels = 16;

    struct Run {
        double order;
        int level;
        std::ptrdiff_t run;
    };

    /// Runs that wait to be visited, the next one last.
    struct WaitingRuns {
        Run runs[fan * most_levels + 2];
        int count = 0;

        /// Inserts a run among those from `first` on.
        void insert(const Run& added, int first) {
            int place = count++;
            for (; place > first && runs[place - 1].order < added.order; --place)
                runs[place] = runs[place - 1];
            runs[place] = added;
        }
    };

    static constexpr int shift(int level) { return leaf_shift + fan_shift * level; }
    static std::ptrdiff_t least(std::ptrdiff_t a, std::ptrdiff_t b) { return a < b ? a : b; }
    static std::ptrdiff_t most(std::ptrdiff_t a, std::ptrdiff_t b) { return a > b ? a : b; }

    std::ptrdiff_t runs_at(int level) const { return ((n_ - 1L) >> shift(level)) + 1; }

    /// Room for the boxes of all levels.
    static std::ptrdiff_t box_count(std::ptrdiff_t n) {
        return ((n >> leaf_shift) + 1) * fan / (fan - 1) + most_levels;
    }

    void set_levels() {
        start_[0] = 0;
        for (levels_ = 1; runs_at(levels_ - 1) > 1; ++levels_)
            start_[levels_] = start_[levels_ - 1] + runs_at(levels_ - 1);
    }

    Box2 union_below(int level, std::ptrdiff_t run) {
        Box2 box = empty_box;
        const std::ptrdiff_t end = least((run + 1) * fan, runs_at(level - 1));
        for (std::ptrdiff_t child = run * fan; child < end; ++child)
            expand(box, boxes_[start_[level - 1] + child]);
        return box;
    }

    std::ptrdiff_t n_;
    int levels_;
    std::ptrdiff_t start_[most_levels];  // of each level's boxes
    WorkArray<Box2, 40> boxes_;
};

}  // namespace ztmath
