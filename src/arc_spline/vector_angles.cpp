#include "arc_spline/vector_angles.h"

#include <algorithm>
#include <cmath>

#include "arc_spline/segment.h"
#include "kit/vec2.h"
#include "ztmath/arc_spline_primitives.h"

namespace ztmath {

namespace {

constexpr Module report = arc_spline_module.part(12);

double angle_between_any(Vec2 a, Vec2 b) {
    return angle_between(unitize(a).unit, unitize(b).unit);
}

struct InteriorAngle {
    double angle;
    int status;
};

InteriorAngle interior_angle(Vec2 vertex, Vec2 to_first, Vec2 to_second, double tol) {
    const Vec2 a = to_first - vertex;
    const Vec2 b = to_second - vertex;
    if (length(a) < tol || length(b) < tol) return {0.0, 1};
    const double turn = angle_between_any(a, b);
    // Kept as it stands: the tolerance is a length, and bounds degrees here.
    const double angle = std::fabs(turn - 180.0) <= tol ? 180.0 : turn;
    return {angle <= 180.0 ? angle : 360.0 - angle, 0};
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

double ARC_SPLINE_ask_inclination_angle_from_tan_2d(const double v[2]) {
    return inclination(load2(v));
}

double* ARC_SPLINE_ask_tan_2d_from_inclination_angle(double out[2], double angle) {
    store(direction_of(angle), out);
    return out;
}

double ARC_SPLINE_ask_angle_between_vectors_2d(const double a[2], const double b[2], int unit) {
    return unit != 0 ? angle_between(load2(a), load2(b)) : angle_between_any(load2(a), load2(b));
}

double ARC_SPLINE_ask_interior_angle_of_triangle_2d(const double p1[2], const double p2[2],
                                                    const double p3[2], const double* tols,
                                                    int which_angle, int* status) {
    const Vec2 a = load2(p1);
    const Vec2 b = load2(p2);
    const Vec2 c = load2(p3);
    InteriorAngle found{0.0, 0};
    switch (which_angle) {
        case 1:
            found = interior_angle(a, b, c, tols[0]);
            break;
        case 2:
            found = interior_angle(b, a, c, tols[0]);
            break;
        case 3:
            found = interior_angle(c, a, b, tols[0]);
            break;
    }
    *status = found.status;
    if (which_angle < 1 || which_angle > 3)
        report.internal("Unrecognizable input value for which_angle.");
    return found.angle;
}

double ARC_SPLINE_ask_central_angle_between_tangents_2d(const double a[2], const double b[2],
                                                        int* sense) {
    const double angle = angle_between(load2(a), load2(b));
    *sense = angle <= 180.0 ? 1 : -1;
    return angle <= 180.0 ? angle : 360.0 - angle;
}

double ARC_SPLINE_ask_min_central_angle(double radius, double chord) {
    if (radius < zero_length) {
        report.internal("The radius is zero.");
        return 0.0;
    }
    const double cosine = 1.0 - 0.5 * (chord * chord) / (radius * radius);
    return std::acos(std::max(cosine, -1.0)) * degrees_per_radian;
}
