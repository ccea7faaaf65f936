// A hierarchy of boxes over a closed chain of points: each box holds a run of consecutive points.
//
// It answers "the first point of a run with a property" without looking at most of the others. A
// run of any part of the chain is served by the same boxes, since parts of a polygon that a
// diagonal cuts off are runs again. What is left out must be certain: tests of boxes evaluate the
// formula of a point at the corner where it is largest or smallest, and rounding, being monotone,
// keeps that order.
#pragma once

#include <cstddef>

#include "frame/vec.h"
#include "frame/work_array.h"

namespace ztmath {

struct Box2 {
    Vec2 low, high;
};

class RunBoxes {
  public:
    /// Boxes over n points, two doubles each. Coordinates that are not numbers are in no box.
    RunBoxes(const double* points, int n)
        : n_(n), boxes_(box_count(n)) {
        build(points);
    }

    /// The first index in [first, last] at which `stop` holds, or -1. Runs whose box `skip` is true
    /// of are left out. A run's box holds the point after the run too, and so its edges.
    template <class Skip, class Stop>
    int first_of(int first, int last, Skip skip, Stop stop) {
        int level = 0;
        for (std::ptrdiff_t i = first; i <= last;) {
            const std::ptrdiff_t run = i >> shift(level);
            const bool skipped = skip(boxes_[start_[level] + run]);
            if (!skipped && level > 0) {
                --level;
                continue;
            }
            const std::ptrdiff_t next = (run + 1) << shift(level);
            if (!skipped)
                for (const std::ptrdiff_t end = next <= last ? next : last + 1; i < end; ++i)
                    if (stop(static_cast<int>(i))) return static_cast<int>(i);
            i = next;
            if (level + 1 < levels_ && ((run + 1) & (fan - 1)) == 0) ++level;
        }
        return -1;
    }

    /// Visits the points of [first, last] in runs, those first whose boxes have the least `order`;
    /// runs whose box `skip` is true of are left out.
    template <class Order, class Skip, class Visit>
    void nearest_first(int first, int last, Order order, Skip skip, Visit visit) {
        struct Run {
            double order;
            int level;
            std::ptrdiff_t run;
        };
        Run waiting[fan * most_levels + 2];
        int count = 0;
        const auto push_in_order = [&](int level, std::ptrdiff_t from, std::ptrdiff_t to) {
            const int before = count;
            for (std::ptrdiff_t run = from; run <= to; ++run) {
                const Box2& box = boxes_[start_[level] + run];
                if (skip(box)) continue;
                const Run added{order(box), level, run};
                int place = count++;
                for (; place > before && waiting[place - 1].order < added.order; --place)
                    waiting[place] = waiting[place - 1];
                waiting[place] = added;
            }
        };
        int top = 0;
        while ((first >> shift(top)) + 1 < (last >> shift(top)))
            ++top;
        push_in_order(top, first >> shift(top), last >> shift(top));
        while (count > 0) {
            const auto [_, level, run] = waiting[--count];
            if (skip(boxes_[start_[level] + run])) continue;
            const auto limit = [](std::ptrdiff_t low, std::ptrdiff_t high) {
                return low < high ? low : high;
            };
            if (level > 0) {
                const int below = level - 1;
                const std::ptrdiff_t from = first >> shift(below);
                push_in_order(below, run * fan < from ? from : run * fan,
                              limit(run * fan + fan - 1, last >> shift(below)));
                continue;
            }
            const std::ptrdiff_t start = run << leaf_shift;
            const std::ptrdiff_t end = limit(start + (1 << leaf_shift) - 1, last);
            for (std::ptrdiff_t i = start < first ? first : start; i <= end; ++i)
                visit(static_cast<int>(i));
        }
    }

    /// Whether all coordinates count as finite.
    bool all_finite() const { return all_finite_; }

    /// The largest absolute coordinate.
    double reach() const { return reach_; }

  private:
    static constexpr int leaf_shift = 3;  // eight points to a run of the lowest level
    static constexpr int fan_shift = 2;   // and four runs to one of the next
    static constexpr int fan = 1 << fan_shift;
    static constexpr int most_levels = 16;

    static constexpr int shift(int level) { return leaf_shift + fan_shift * level; }

    std::ptrdiff_t runs_at(int level) const {
        return ((static_cast<std::ptrdiff_t>(n_) - 1) >> shift(level)) + 1;
    }

    /// Room for the boxes of all levels.
    static std::ptrdiff_t box_count(std::ptrdiff_t n) {
        return ((n >> leaf_shift) + 1) * 4 / 3 + most_levels;
    }

    void build(const double* points);

    int n_;
    int levels_ = 0;
    double reach_ = 0.0;
    bool all_finite_ = true;
    std::ptrdiff_t start_[most_levels];  // of each level's boxes
    WorkArray<Box2, 48> boxes_;
};

}  // namespace ztmath
