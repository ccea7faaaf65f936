// Frames from directions, and the rotation about an axis.
#include <cmath>

#include "kit/mtx3.h"
#include "kit/vec2.h"
#include "kit/vec3.h"
#include "ztmath/mtx3.h"

namespace ztmath {

namespace {

constexpr Module report = mtx3_module.part(1);

template <class V>
bool are_perpendicular_units(V a, V b) {
    return !(std::fabs(dot(a, b)) > element_tolerance);
}

Mat3 asserted_ortho_normal(const Mat3& r) {
    ZTMATH_ASSERT(report, "MTX3_is_ortho_normal (r)", is_ortho_normal(r));
    return r;
}

Mat3 frame_from_unit_x_y(Vec3 x, Vec3 y) {
    const Vec3 z = unitize(cross(x, y)).unit;
    return asserted_ortho_normal({x, cross(z, x), z});
}

int store_frame(const std::optional<Mat3>& frame, double* matrix) {
    if (frame) store(*frame, matrix);
    return frame.has_value();
}

}  // namespace

std::optional<Mat3> frame_from_x_y(Vec3 x, Vec3 y) {
    const auto ux = unitize(x);
    const auto uy = unitize(y);
    if (!ux.done || !uy.done || !are_perpendicular_units(ux.unit, uy.unit)) return std::nullopt;
    return frame_from_unit_x_y(ux.unit, uy.unit);
}

std::optional<Mat3> frame_from_y_z(Vec3 y, Vec3 z) {
    const auto uy = unitize(y);
    const auto uz = unitize(z);
    if (!uy.done || !uz.done || !are_perpendicular_units(uy.unit, uz.unit)) return std::nullopt;
    const Vec3 x = unitize(cross(uy.unit, uz.unit)).unit;
    return asserted_ortho_normal({x, cross(uz.unit, x), uz.unit});
}

std::optional<Mat3> frame_from_x_y_z(Vec3 x, Vec3 y, Vec3 z) {
    const auto ux = unitize(x);
    const auto uy = unitize(y);
    const auto uz = unitize(z);
    if (!ux.done || !uy.done || !uz.done) return std::nullopt;
    if (!are_perpendicular_units(ux.unit, uy.unit) || !are_perpendicular_units(uy.unit, uz.unit) ||
        !are_perpendicular_units(uz.unit, ux.unit))
        return std::nullopt;
    return frame_from_unit_x_y(ux.unit, uy.unit);
}

std::optional<Mat3> frame_from_x(Vec3 x) {
    const auto ux = unitize(x);
    if (!ux.done) return std::nullopt;
    const Vec3 y = unitize(perpendicular(ux.unit)).unit;
    return Mat3{ux.unit, y, cross(ux.unit, y)};
}

std::optional<Mat3> frame_from_z(Vec3 z) {
    constexpr double nearly_along_y = 0.9;
    const auto uz = unitize(z);
    if (!uz.done) return std::nullopt;
    const Vec3 unit = uz.unit;
    const Vec3 across = std::fabs(unit.y) <= nearly_along_y ? Vec3{unit.z, 0.0, -unit.x}
                                                            : Vec3{0.0, unit.z, -unit.y};
    const Vec3 x = unitize(across).unit;
    return Mat3{x, cross(unit, x), unit};
}

Mat3 rotation_about(Vec3 axis, double angle) {
    const auto [done, magnitude, a] = unitize(axis);
    const double co = done ? std::cos(angle) : 1.0;
    const double si = done ? std::sin(angle) : 0.0;
    const double t = 1.0 - co;
    return asserted_ortho_normal(
        {{t * a.x * a.x + co, t * a.x * a.y - a.z * si, t * a.x * a.z + a.y * si},
         {t * a.x * a.y + a.z * si, t * a.y * a.y + co, t * a.y * a.z - a.x * si},
         {t * a.x * a.z - a.y * si, t * a.y * a.z + a.x * si, t * a.z * a.z + co}});
}

}  // namespace ztmath

using namespace ztmath;

int MTX3_init(const double x[3], const double y[3], double matrix[9]) {
    return store_frame(frame_from_x_y(load3(x), load3(y)), matrix);
}

int MTX3_init_y_z(const double y[3], const double z[3], double matrix[9]) {
    return store_frame(frame_from_y_z(load3(y), load3(z)), matrix);
}

int MTX3_init_x_y_z(const double x[3], const double y[3], const double z[3], double matrix[9]) {
    return store_frame(frame_from_x_y_z(load3(x), load3(y), load3(z)), matrix);
}

int MTX3_init_x(const double x[3], double matrix[9]) {
    return store_frame(frame_from_x(load3(x)), matrix);
}

int MTX3_init_z(const double z[3], double matrix[9]) {
    return store_frame(frame_from_z(load3(z)), matrix);
}

void MTX3_init_no_check(const double x[3], const double y[3], double matrix[9]) {
    const Vec3 first = load3(x);
    const Vec3 second = load3(y);
    store(Mat3{first, second, cross(first, second)}, matrix);
}

void MTX3_rot_about_axis(double angle, const double axis[3], double r[9]) {
    store(rotation_about(load3(axis), angle), r);
}

int MTX2_init(const double x[2], const double y[2], double matrix[4]) {
    const auto ux = unitize(load2(x));
    const auto uy = unitize(load2(y));
    if (!ux.done || !uy.done || !are_perpendicular_units(ux.unit, uy.unit)) return 0;
    store(ux.unit, matrix);
    store(uy.unit, matrix + 2);
    return 1;
}
