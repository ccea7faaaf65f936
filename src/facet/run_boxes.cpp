#include "facet/run_boxes.h"

namespace ztmath {

namespace {

constexpr Box2 empty_box{{HUGE_VAL, HUGE_VAL}, {-HUGE_VAL, -HUGE_VAL}};

// Comparisons with a coordinate that is not a number are false: it stays outside.
void expand(Box2& box, Vec2 low, Vec2 high) {
    if (low.x < box.low.x) box.low.x = low.x;
    if (low.y < box.low.y) box.low.y = low.y;
    if (high.x > box.high.x) box.high.x = high.x;
    if (high.y > box.high.y) box.high.y = high.y;
}

Box2 box_of_points(const double* points, int n, std::ptrdiff_t first, std::ptrdiff_t last) {
    Box2 box = empty_box;
    for (std::ptrdiff_t i = first; i <= last; ++i) {
        const Vec2 p = load2(points + 2 * (i < n ? i : 0));
        expand(box, p, p);
    }
    return box;
}

}  // namespace

void RunBoxes::build(const double* points) {
    const auto last = [this](std::ptrdiff_t end, std::ptrdiff_t limit) {
        return end < limit ? end : limit;
    };
    for (std::ptrdiff_t i = 0; i < n_; ++i)
        all_finite_ &= is_finite(load2(points + 2 * i));
    start_[0] = 0;
    levels_ = 1;
    for (std::ptrdiff_t run = 0; run < runs_at(0); ++run)
        boxes_[run] = box_of_points(points, n_, run << leaf_shift,
                                    last((run + 1) << leaf_shift, n_));
    while (runs_at(levels_ - 1) > 1) {
        const std::ptrdiff_t below = start_[levels_ - 1];
        const std::ptrdiff_t count_below = runs_at(levels_ - 1);
        start_[levels_] = below + count_below;
        for (std::ptrdiff_t run = 0; run < runs_at(levels_); ++run) {
            Box2 box = empty_box;
            for (std::ptrdiff_t child = run * fan; child < last((run + 1) * fan, count_below);
                 ++child)
                expand(box, boxes_[below + child].low, boxes_[below + child].high);
            boxes_[start_[levels_] + run] = box;
        }
        ++levels_;
    }
    const Box2& whole = boxes_[start_[levels_ - 1]];
    reach_ = std::fmax(std::fmax(-whole.low.x, whole.high.x), std::fmax(-whole.low.y, whole.high.y));
}

}  // namespace ztmath
