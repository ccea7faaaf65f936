// Edits of a record that other edits are made of.
#pragma once

#include "curve/auto_slope.h"

namespace ztmath {

/// Stores a slope at a point, over the one that is there, whose curvature then follows it. Nothing
/// at a position without a point.
void replace_slope(BCDF& record, Vec3 slope, int position, int type);

/// Stores the slope that a type makes of a vector.
void change_slope(BCDF& record, int type, Vec3 v, int position);

/// Removes slopes that were found one by one, with their curvatures.
void remove_slope_run(BCDF& record, Run run);

/// Stores a curvature at a point.
void replace_curvature(BCDF& record, Vec3 curvature, int position, int type);

/// Removes whatever curvatures there are.
inline void remove_all_curvatures(BCDF& record) {
    release(curvatures_of(record));
}

/// The part of [first, first + number) that is in a list of `count`.
inline Run clipped(int first, int number, int count) {
    const int begin = std::clamp(first, 0, count);
    const auto end = std::clamp<long long>(static_cast<long long>(first) + number, begin, count);
    return {begin, static_cast<int>(end) - begin};
}

}  // namespace ztmath
