// A hierarchy of boxes over the edges of a closed outline: which edges may meet a given one.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tool {

class EdgeBoxes {
  public:
    /// `coordinates` are x and y of each vertex; edge i runs from vertex i to the next.
    explicit EdgeBoxes(const std::vector<double>& coordinates) {
        const std::size_t n = coordinates.size() / 2;
        std::vector<Bounds> level(n);
        for (std::size_t i = 0; i < n; ++i) {
            const double* const p = &coordinates[2 * i];
            const double* const q = &coordinates[2 * ((i + 1) % n)];
            level[i] = {std::min(p[0], q[0]), std::min(p[1], q[1]), std::max(p[0], q[0]),
                        std::max(p[1], q[1])};
        }
        levels_.push_back(level);
        while (levels_.back().size() > 1)
            levels_.push_back(above(levels_.back()));
    }

    /// The first edge in [first, last] whose box overlaps that of `edge` and for which `test`
    /// holds, or -1.
    template <class Test>
    int first_overlapping(int edge, int first, int last, Test test) const {
        const Bounds& bounds = levels_[0][static_cast<std::size_t>(edge)];
        std::size_t level = 0;
        const auto end = static_cast<std::size_t>(last + 1);
        for (auto i = static_cast<std::size_t>(first); i < end;) {
            const std::size_t run = i >> (shift * level);
            if (levels_[level][run].overlaps(bounds)) {
                if (level > 0) {
                    --level;
                    continue;
                }
                if (test(static_cast<int>(i))) return static_cast<int>(i);
            }
            i = (run + 1) << (shift * level);
            if (level + 1 < levels_.size() && (run + 1) % fan == 0) ++level;
        }
        return -1;
    }

  private:
    static constexpr std::size_t shift = 2;
    static constexpr std::size_t fan = 1 << shift;

    struct Bounds {
        double x_low, y_low, x_high, y_high;

        bool overlaps(const Bounds& o) const {
            return x_low <= o.x_high && o.x_low <= x_high && y_low <= o.y_high && o.y_low <= y_high;
        }
        void expand(const Bounds& o) {
            *this = {std::min(x_low, o.x_low), std::min(y_low, o.y_low), std::max(x_high, o.x_high),
                     std::max(y_high, o.y_high)};
        }
    };

    static std::vector<Bounds> above(const std::vector<Bounds>& below) {
        std::vector<Bounds> level;
        for (std::size_t i = 0; i < below.size(); ++i)
            if (i % fan == 0)
                level.push_back(below[i]);
            else
                level.back().expand(below[i]);
        return level;
    }

    std::vector<std::vector<Bounds>> levels_;
};

}  // namespace tool
