// Three points: which one lies between the others, and whether they lie on a line.
#include "arc_spline/three_points.h"

#include <algorithm>
#include <cmath>

#include "arc_spline/angle.h"
#include "kit/vec2.h"
#include "kit/vec3.h"
#include "ztmath/arc_spline_primitives.h"

namespace ztmath {

namespace {

template <class V>
struct ThreePoints {
    V p1, p2, p3;
    int status;  // -1 two coincide, 0 as they came, 1 and 2 moved on round the cycle
};

/// Puts the point opposite the longest side second, keeping the sense.
template <class V>
ThreePoints<V> middle_second(double tol, V p1, V p2, V p3) {
    const double d12 = length(p2 - p1);
    const double d23 = length(p3 - p2);
    const double d13 = length(p3 - p1);
    if (d12 <= tol || d23 <= tol || d13 <= tol) return {p1, p2, p3, -1};
    const double longest = std::max(std::max(d12, d23), d13);
    if (std::fabs(longest - d13) <= 1.0e-10) return {p1, p2, p3, 0};
    if (std::fabs(longest - d12) > 1.0e-10) return {p3, p1, p2, 2};
    return {p2, p3, p1, 1};
}

bool are_both_short(double a, double b, double tol) {
    return std::fabs(a) < tol && std::fabs(b) < tol;
}
bool are_short_in_some_coordinate(Vec2 a, Vec2 b, double tol) {
    return are_both_short(a.x, b.x, tol) || are_both_short(a.y, b.y, tol);
}
bool are_short_in_some_coordinate(Vec3 a, Vec3 b, double tol) {
    return are_both_short(a.x, b.x, tol) || are_both_short(a.y, b.y, tol) ||
           are_both_short(a.z, b.z, tol);
}

/// 2 the outer points coincide, 1 collinear, 0 not.
template <class V>
int collinearity(V p1, V p2, V p3, const double tols[2]) {
    const double tol = tols[0];
    const double angle = tols[1] * radians_per_degree;
    const ThreePoints<V> q = middle_second(tol, p1, p2, p3);
    const double span = length(q.p3 - q.p1);
    if (span < tol) return 2;
    const V a = q.p1 - q.p2;
    const V b = q.p3 - q.p2;
    if (length(a) < tol || length(b) < tol) return 1;
    // Kept as it stands: in space this makes all that lies in a plane of two axes collinear.
    if (are_short_in_some_coordinate(a, b, tol) && span > tol / std::tan(angle)) return 1;
    const V along = unitize(q.p3 - q.p1).unit;
    const double a_along = dot(a, along);
    const double b_along = dot(b, along);
    const double cosine =
        std::fabs(b_along) > std::fabs(a_along) ? b_along / length(b) : a_along / length(a);
    return std::fabs(cosine) > std::cos(angle) ? 1 : 0;
}

/// 0 the path turns left, 1 right, -1 neither.
int side_of_turn(Vec2 p1, Vec2 p2, Vec2 p3) {
    const double turn = cross(p3 - p2, p1 - p2);
    if (turn > 0.0) return 0;
    return turn < 0.0 ? 1 : -1;
}

template <class V>
void store_points(const ThreePoints<V>& ordered, double* p1, double* p2, double* p3, int* status) {
    *status = ordered.status;
    if (ordered.status <= 0) return;
    store(ordered.p1, p1);
    store(ordered.p2, p2);
    store(ordered.p3, p3);
}

}  // namespace

Collinearity collinearity_and_side(Vec2 p1, Vec2 p2, Vec2 p3, const double tols[2]) {
    const int answer = collinearity(p1, p2, p3, tols);
    // The side is that of the points as they came.
    return {answer, answer == 0 ? side_of_turn(p1, p2, p3) : -1};
}

}  // namespace ztmath

using namespace ztmath;

void ARC_SPLINE_re_order_3pts_2d(double tol, double p1[2], double p2[2], double p3[2],
                                 int* status) {
    store_points(middle_second(tol, load2(p1), load2(p2), load2(p3)), p1, p2, p3, status);
}

void ARC_SPLINE_re_order_3pts_3d(double tol, double p1[3], double p2[3], double p3[3],
                                 int* status) {
    store_points(middle_second(tol, load3(p1), load3(p2), load3(p3)), p1, p2, p3, status);
}

int ARC_SPLINE_ask_3pts_collinearity_2d(const double p1[2], const double p2[2], const double p3[2],
                                        const double tols[2], int mode, int* side) {
    const Collinearity found = collinearity_and_side(load2(p1), load2(p2), load2(p3), tols);
    *side = mode == 2 ? found.side : -1;
    return found.answer;
}

int ARC_SPLINE_ask_3pts_collinearity_3d(const double p1[3], const double p2[3], const double p3[3],
                                        const double tols[2], int /*mode*/, int* side) {
    *side = -1;
    return collinearity(load3(p1), load3(p2), load3(p3), tols);
}
