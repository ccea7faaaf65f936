// The search for an apex among few vertices, in lanes: what is asked of the vertices is answered
// with a bit for each, 64 at a time.
#include "facet/small_part.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "facet/fill_diagonal.h"
#include "facet/reached_from.h"
#include "frame/lane_values.h"

namespace ztmath {

namespace {

using Bits = std::uint64_t;
constexpr int block = 64;  // vertices
static_assert(most_of_small_part % block == 0);

constexpr int block_of(int i) {
    return i & -block;
}

/// The bits of a block that starts at `start` for the vertices from i on, and for those before it.
constexpr Bits bits_from(int i, int start) {
    return i <= start ? ~Bits{0} : i < start + block ? ~Bits{0} << (i - start) : Bits{0};
}
constexpr Bits bits_before(int i, int start) {
    return ~bits_from(i, start);
}
constexpr Bits bit_of(int i, int start) {
    return block_of(i) == start ? Bits{1} << (i - start) : Bits{0};
}

/// Tells the edges whose ends are both on one side of a line. An edge has the bit of its end.
class OneSide {
  public:
    /// Of the next block, from the bits of the vertices on that side.
    Bits edges(Bits vertices) {
        const Bits both = vertices & (vertices << 1 | last_);
        last_ = vertices >> (block - 1);
        return both;
    }

  private:
    Bits last_ = 0;  // whether the last vertex of the block before is on that side
};

/// A part whose vertices are numbered from 0, the first one.
template <class Lanes>
class SmallPart {
  public:
    [[gnu::always_inline]] SmallPart(const Outline& outline, int first, int last)
        : x_(outline.x_from(first)),
          y_(outline.y_from(first)),
          last_(last - first),
          base_(point(last_), point(0)) {
        for (int from = 1; from < last_; from = block_of(from) + block)
            open_[from / block] = bits_where(
                from, last_, [this](const auto& p) __attribute__((always_inline)) {
                    return !base_.rejects(p);
                });
    }

    /// The apex, or -1, by the rule of larger parts and in the same way: it looks for the last of
    /// the vertices that give way and makes sure that it is reached.
    [[gnu::always_inline]] int apex() {
        int k = 0;
        while (open_[k / block] == 0)
            if ((k += block) > last_) return -1;
        k += std::countr_zero(open_[k / block]);
        for (;;) {
            const int goal = best(k);
            if (goal == k) return k;
            const int reached = reached_from(
                k, goal, [this](int from, int target) { return first_that_stays(from, target); });
            if (reached == goal) return goal;
            k = reached == k ? next(k) : reached;
        }
    }

  private:
    Vec2 point(int i) const { return {x_[i], y_[i]}; }

    /// As many as lanes, from i on; what is behind the part has no meaning.
    [[gnu::always_inline]] Points2<Lanes> points(int i) const {
        Points2<Lanes> p;
        load(x_ + i, p.x.lanes);
        load(y_ + i, p.y.lanes);
        return p;
    }

    /// For which of the vertices from `from` to the end of its block, and before `end`, the
    /// property holds.
    template <class Property>
    [[gnu::always_inline]] Bits bits_where(int from, int end, Property property) const {
        const int start = block_of(from);
        BitCollector<Lanes> holds;
        const int behind = std::min(end, start + block);
        for (int i = from & -width_of<Lanes>; i < behind; i += width_of<Lanes>)
            holds.add(i - start, property(points(i)));
        return holds.bits() & bits_from(from, start) & bits_before(end, start);
    }

    /// The first open vertex from `from` on and before `end` for which the property holds and at
    /// which `stop` is true, or -1.
    template <class Property, class Stop>
    [[gnu::always_inline]] int first_of(int from, int end, Property property, Stop stop) {
        for (; from < end; from = block_of(from) + block) {
            const int start = block_of(from);
            Bits left = open_[start / block] & bits_from(from, start) & bits_before(end, start);
            if (left != 0) left &= bits_where(from, end, property);
            for (; left != 0; left &= left - 1)
                if (const int i = start + std::countr_zero(left); stop(i)) return i;
        }
        return -1;
    }

    /// A vertex behind k, or k itself, that can be joined to the base edge and gives way to none.
    [[gnu::always_inline]] int best(int k) {
        for (;;) {
            const int goal = last_to_give_way(k);
            if (goal == k || can_be_joined(goal)) return goal;
        }
    }

    /// Where it ends when k gives way to the first open vertex inside its circle, and so on.
    [[gnu::always_inline]] int last_to_give_way(int k) {
        Circumcircle circle = base_.circle_through(point(k));
        int asked;
        do {
            asked = k;
            first_of(
                k + 1, last_,
                [&](const auto& p) __attribute__((always_inline)) { return is_inside(circle, p); },
                [&](int i) {
                    if (is_inside(circle, point(i))) {
                        k = i;
                        circle = base_.circle_through(point(k));
                    }
                    return false;
                });
        } while (k != asked);
        return k;
    }

    /// What k gives way to, or k itself.
    [[gnu::always_inline]] int next(int k) {
        const Circumcircle circle = base_.circle_through(point(k));
        const int i = first_of(
            k + 1, last_,
            [&](const auto& p) __attribute__((always_inline)) { return is_inside(circle, p); },
            [this](int j) { return can_be_joined(j); });
        return i < 0 ? k : i;
    }

    [[gnu::always_inline]] int first_that_stays(int from, int target) {
        const Vec2 goal = point(target);
        const auto stays = [&](const auto& p) __attribute__((always_inline)) {
            return !is_inside(base_.circle_through(p), goal);
        };
        if (stays(point(from))) return from;
        return first_of(from + 1, target, stays, [this](int i) { return can_be_joined(i); });
    }

    /// Whether no edge crosses the diagonals to the ends of the base edge. A vertex that is hidden
    /// is not open any more.
    [[gnu::always_inline]] bool can_be_joined(int i) {
        if (sees(i, last_) && sees(i, 0)) return true;
        open_[i / block] &= ~bit_of(i, block_of(i));
        return false;
    }

    [[gnu::always_inline]] bool sees(int i, int end) const {
        const Diagonal diagonal(point(i), point(end));
        OneSide left, right;
        for (int start = 0; start <= last_; start += block) {
            BitCollector<Lanes> on_left, on_right;
            const int behind = std::min(last_ + 1, start + block);
            for (int k = start; k < behind; k += width_of<Lanes>) {
                const Doubles<Lanes> across = diagonal.across(points(k));
                on_left.add(k - start, across > fill_eps);
                on_right.add(k - start, across < fill_eps);
            }
            Bits edges = bits_from(1, start) & bits_before(last_ + 1, start) &
                         ~left.edges(on_left.bits()) & ~right.edges(on_right.bits());
            for (const int touching : {i, i + 1, end, end + 1})
                edges &= ~bit_of(touching, start);
            for (; edges != 0; edges &= edges - 1) {
                const int k = start + std::countr_zero(edges);
                if (diagonal.is_crossed_by(point(k - 1), point(k))) return false;
            }
        }
        return true;
    }

    const double *x_, *y_;
    int last_;
    BaseEdge base_;
    Bits open_[most_of_small_part / block] = {};  // vertices that may be the apex
};

ZTMATH_WIDE_LANES int apex_in_wide_lanes(const Outline& outline, int first, int last) {
    return SmallPart<Quad>(outline, first, last).apex();
}

}  // namespace

int apex_of_small_part(const Outline& outline, int first, int last, bool wide_lanes) {
    const int k = wide_lanes ? apex_in_wide_lanes(outline, first, last)
                             : SmallPart<Pair>(outline, first, last).apex();
    return k < 0 ? k : first + k;
}

}  // namespace ztmath
