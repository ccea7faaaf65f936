// Order and intervals on a line, or round a circle that is a period long.
#include <cmath>

#include "ztmath/arc_spline_primitives.h"

namespace {

constexpr double tolerance = 1.0e-10;

constexpr int outside = 0;
constexpr int inside = 1;
constexpr int at_first = 11;
constexpr int at_second = 12;

bool are_close(double s, double t) {
    return std::fabs(s - t) <= tolerance;
}

/// In an interval that runs from a over the end of the period, and so over 0, to b.
int in_wrapped_interval(double t, double a, double b, double period, int mark) {
    if (are_close(t, 0.0) || are_close(t, period) || (a < t && t < period)) return inside;
    return t < 0.0 || t >= b ? mark : inside;
}

}  // namespace

int ARC_SPLINE_ask_is_pair_in_order(double a, double b, double period) {
    const bool wraps = std::fabs(period) >= tolerance && std::fabs(b - a) >= period / 2.0;
    return (wraps ? a >= b : a <= b) ? 1 : 0;
}

int ARC_SPLINE_ask_is_parm_in_interval(double t, double a, double b, double period) {
    const bool wraps = a > b;
    if (wraps && std::fabs(period) <= tolerance) return outside;
    const int mark = are_close(t, a) ? at_first : outside;
    if (are_close(t, b)) return at_second;
    if (wraps) return in_wrapped_interval(t, a, b, period, mark);
    return a < t && t < b ? inside : mark;
}
