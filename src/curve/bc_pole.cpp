// Poles of B-curves.
#include "ztmath/bc_pole.h"

#include <cmath>

#include "curve/point_list.h"
#include "ztmath/tolerance.h"

using namespace ztmath;

namespace {

constexpr double weight_tolerance = 1.0e-10;
/// How far identical poles may lie from their mean, before the number of poles is taken account of.
constexpr double spread_tolerance = 1.0e-10;

struct Pole {
    Vec3 point;
    double weight;
};

Pole load_pole(const double* p) {
    return {cartesian(p), p[3]};
}

void store(const Pole& pole, double* p) {
    ztmath::store(pole.point * pole.weight, p);
    p[3] = pole.weight;
}

const double* pole_at(const double* poles, int i) {
    return poles + 4 * std::ptrdiff_t{i};
}

Vec3 mean(const double* poles, int n) {
    Vec3 sum{};
    for (int i = 0; i < n; ++i)
        sum = sum + cartesian(pole_at(poles, i));
    return n > 0 ? sum * (1.0 / n) : sum;
}

Vec3 foot_on_chord(Vec3 p, Vec3 a, Vec3 b) {
    const Vec3 chord = b - a;
    const double squared = length_squared(chord);
    return squared == 0.0 ? a : a + chord * (dot(p - a, chord) / squared);
}

struct Range {
    double min, max;
};

Range range_of(const double* poles, int n, double Vec3::*axis) {
    double min = INFINITY;
    double max = -INFINITY;
    for (int i = 0; i < n; ++i) {
        const double s = cartesian(pole_at(poles, i)).*axis;
        if (s < min) min = s;
        if (s > max) max = s;
    }
    return min <= max ? Range{min, max} : Range{};
}

}  // namespace

int bc_POLE_equal_in_3d(const double a[4], const double b[4]) {
    return length_squared(cartesian(a) - cartesian(b)) <= EQ_ask_length_squared_tolerance();
}

int bc_POLE_equal_in_4d(const double a[4], const double b[4]) {
    if (std::fabs(a[3] - b[3]) > weight_tolerance) return 0;
    return bc_POLE_equal_in_3d(a, b);
}

int bc_POLE_identical_poles_in_3d(const double* poles, int n) {
    if (n < 2) return 1;
    if (bc_POLE_equal_in_3d(poles, pole_at(poles, n / 2 + n % 2)) == 0) return 0;
    const Vec3 centre = mean(poles, n);
    // Kept as it stands: a bound of its own, so that poles that are equal to callers, being within
    // the length tolerance, need not be identical.
    const double bound = (n - 1) * spread_tolerance / n;
    for (int i = 0; i < n; ++i)
        if (length_squared(centre - cartesian(pole_at(poles, i))) > bound * bound) return 0;
    return 1;
}

double bc_POLE_3d_distance(const double a[4], const double b[4], double difference[3]) {
    const Vec3 between = cartesian(a) - cartesian(b);
    store(between, difference);
    return length(between);
}

void bc_POLE_average_in_3d(const double* poles, int n, double out[3]) {
    store(mean(poles, n), out);
}

void bc_xyz_box(const double* poles, const int* n, double box[6]) {
    const Range ranges[] = {range_of(poles, *n, &Vec3::x), range_of(poles, *n, &Vec3::y),
                            range_of(poles, *n, &Vec3::z)};
    for (const Range& range : ranges) {
        *box++ = range.min;
        *box++ = range.max;
    }
}

void bc_POLE_translate_pole(const double pole[4], const double translation[3], double out[4]) {
    const Pole p = load_pole(pole);
    store({p.point + load3(translation), p.weight}, out);
}

void bc_POLE_project_to_line(const double pole[4], const double a[4], const double b[4],
                             double out[4]) {
    const Pole p = load_pole(pole);
    store({foot_on_chord(p.point, cartesian(a), cartesian(b)), p.weight}, out);
}

void h430_(const double a[3], const double b[3], const double p[3], double foot[3]) {
    store(foot_on_chord(load3(p), load3(a), load3(b)), foot);
}
