// Points: collinearity, order along a line, the closest of many.
#include "ztmath/pnt3.h"

#include <cmath>
#include <cstddef>

#include "kit/vec3.h"
#include "ztmath/tolerance.h"

using namespace ztmath;

namespace {

/// Where a point lies relative to the segment from a to b, in the order along the line.
enum Position { off_line = 1, before_a, at_a, between, at_b, beyond_b };

bool is_colinear(Vec3 a, Vec3 b, Vec3 c, double tolerance) {
    const double ab = length_squared(b - a);
    const double bc = length_squared(c - b);
    const double ca = length_squared(a - c);
    // Kept as it stands: one tolerance bounds a squared length here and a squared sine below.
    if (ab < tolerance || bc < tolerance || ca < tolerance) return true;
    const double projection = dot(b - a, c - b);
    return 1.0 - projection * projection / (ab * bc) < tolerance;
}

Position position_of(Vec3 c, Vec3 a, Vec3 b, double tolerance) {
    if (!is_colinear(a, b, c, tolerance)) return off_line;
    const double from_a = length_squared(c - a);
    const double from_b = length_squared(c - b);
    if (from_a <= tolerance * tolerance) return at_a;
    if (from_b <= tolerance * tolerance) return at_b;
    const double whole = length_squared(a - b);
    if (from_a < whole && from_b < whole) return between;
    return from_a >= from_b ? beyond_b : before_a;
}

/// The angle in [0, pi] between an axis and the way from a candidate to the point.
double angle_off_axis(Vec3 axis, Vec3 candidate, Vec3 point) {
    const Vec3 way = point - candidate;
    return angle_between(axis, way, cross(axis, way));
}

/// Whether a candidate as far away as another is preferred: it lies more along the axis.
bool is_more_along(Vec3 axis, Vec3 candidate, Vec3 other, Vec3 point) {
    constexpr double smaller_angle = 1.0e-10;
    return angle_off_axis(axis, other, point) - angle_off_axis(axis, candidate, point) >
           smaller_angle;
}

Vec3 closest(Vec3 point, Vec3 axis, const double* candidates, int count) {
    const double tolerance = EQ_ask_length_tolerance();
    Vec3 best = load3(candidates);
    double least = length(best - point);
    for (int i = 1; i < count; ++i) {
        const Vec3 candidate = load3(candidates + 3 * static_cast<std::ptrdiff_t>(i));
        const double distance = length(candidate - point);
        const bool closer = least - distance > tolerance;
        const bool farther = distance - least > tolerance;
        if (closer || (!farther && is_more_along(axis, candidate, best, point))) {
            best = candidate;
            least = distance;
        }
    }
    return best;
}

}  // namespace

int PNT3_is_colinear(const double a[3], const double b[3], const double c[3], double tolerance) {
    return is_colinear(load3(a), load3(b), load3(c), tolerance);
}

int PNT3_colinear_condition(const double a[3], const double b[3], const double c[3],
                            double tolerance) {
    return position_of(load3(c), load3(a), load3(b), tolerance);
}

void PNT3_ask_closest_point(const double p[3], const double axis[3], const double* points,
                            int count, double out[3]) {
    if (count < 1) return;
    store(closest(load3(p), load3(axis), points, count), out);
}
