// Vectors of two dimensions.
#include "kit/vec2.h"

#include <cmath>
#include <cstddef>

#include "ztmath/vec2.h"

using namespace ztmath;

namespace {

constexpr Module report = vec2_module.part(1);

void assert_finite(Vec2 u, Vec2 v) {
    ZTMATH_ASSERT(report, "VEC2_is_finite( u )", is_finite(u));
    ZTMATH_ASSERT(report, "VEC2_is_finite( v )", is_finite(v));
}

/// Kept as it stands: the turn is clockwise or not by the larger component, and callers rely on the
/// sign pattern of the result.
Vec2 quarter_turn(Vec2 u) {
    return std::fabs(u.y) <= std::fabs(u.x) ? Vec2{u.y, -u.x} : Vec2{-u.y, u.x};
}

}  // namespace

int VEC2_unitize(const double u[2], double tolerance, double* magnitude, double unit[2]) {
    const auto result = unitize(load2(u), tolerance);
    *magnitude = result.magnitude;
    store(result.unit, unit);
    return result.done;
}

int VEC2_is_parallel(const double u[2], const double v[2], double tolerance) {
    assert_finite(load2(u), load2(v));
    return is_parallel_unchecked(load2(u), load2(v), tolerance);
}

int VEC2_is_perpendicular(const double u[2], const double v[2], double tolerance) {
    assert_finite(load2(u), load2(v));
    return is_perpendicular_unchecked(load2(u), load2(v), tolerance);
}

int VEC2_ask_perpendicular(const double u[2], double out[2]) {
    const Vec2 direction = load2(u);
    ZTMATH_ASSERT(report, "VEC2_is_finite (u)", is_finite(direction));
    const bool null = is_null(direction);
    store(null ? Vec2{0.0, 0.0} : quarter_turn(direction), out);
    return !null;
}

int VEC2_components(const double u[2], const double v[2], const double w[2], double tolerance,
                    double* a, double* b) {
    const Vec2 first = load2(u);
    const Vec2 second = load2(v);
    const Vec2 sum = load2(w);
    const double det = cross(first, second);
    if (std::fabs(det) <= tolerance) {
        *a = HUGE_VAL;
        *b = HUGE_VAL;
        return 0;
    }
    *a = (second.y * sum.x - sum.y * second.x) / det;
    *b = (sum.y * first.x - first.y * sum.x) / det;
    return 1;
}

int VEC2_ask_shortest_vector(int count, const double* vectors) {
    ZTMATH_ASSERT(report, "count > 0", count > 0);
    if (count <= 0) return 0;
    int shortest = 0;
    double least = length_squared(load2(vectors));
    for (int i = 1; i < count; ++i) {
        const double squared = length_squared(load2(vectors + 2 * static_cast<std::ptrdiff_t>(i)));
        if (squared < least) {
            least = squared;
            shortest = i;
        }
    }
    return shortest;
}
