// The order in which vertices give way to each other as the apex of a triangle.
#pragma once

namespace ztmath {

/// Starting from a candidate, a vertex that is surely reached: the target, if every vertex before
/// it would give way to it. If one would not, that one is the target. `first_that_stays(from,
/// target)` is the first vertex from `from` on, itself included, that would not give way to the
/// target, or -1.
template <class FirstThatStays>
int reached_from(int from, int target, FirstThatStays first_that_stays) {
    for (;;) {
        const int w = first_that_stays(from, target);
        if (w < 0) return target;
        if (w == from) return from;
        target = w;
    }
}

}  // namespace ztmath
