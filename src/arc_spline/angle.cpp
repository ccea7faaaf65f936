#include "arc_spline/angle.h"

#include <numbers>

#include "ztmath/arc_spline.h"

namespace ztmath {

namespace {

constexpr double full_turn = 2.0 * std::numbers::pi;

double in_range(double degrees, int which_angle) {
    if (which_angle == 180) return degrees > 180.0 ? degrees - 360.0 : degrees;
    if (which_angle != 90) return degrees;
    if (degrees > 90.0 && degrees < 270.0) return degrees - 180.0;
    // Kept as it stands: 90 stays 90, and 270 becomes -90. The factor makes straight up a hair more
    // than 90, and so -90.
    return degrees >= 270.0 && degrees < 360.0 ? degrees - 360.0 : degrees;
}

}  // namespace

double polar_angle(Vec2 v) {
    if (v.x == 0.0 && v.y == 0.0) return 0.0;
    const double angle = std::atan2(v.y, v.x);
    const double folded = angle < 0.0 ? angle + full_turn : angle;
    return folded >= full_turn ? 0.0 : folded;  // just below the positive x axis
}

}  // namespace ztmath

using namespace ztmath;

void h053_(const double* y, const double* x, double* angle) {
    *angle = polar_angle({*x, *y});
}

double ARC_SPLINE_ask_angle_from_tan(double tangent_y, double tangent_x, int which_angle) {
    return in_range(inclination({tangent_x, tangent_y}), which_angle);
}

void ARC_SPLINE_ask_perp_vec(int right, const double v[2], double out[2]) {
    const Vec2 vector = load2(v);
    store(right == 1 ? right_normal(vector) : left_normal(vector), out);
}
