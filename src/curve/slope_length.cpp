#include "curve/slope_length.h"

#include "ztmath/bcdf_calc.h"

namespace ztmath {

namespace {

/// The vector made this long; as it is when it has no direction or the length is none.
Vec3 with_length(Vec3 v, double wanted) {
    const double present = length(v);
    if (!(present > no_direction && wanted > no_direction && is_finite(wanted))) return v;
    return v * (wanted / present);
}

bool has_direction(Vec3 v) {
    return length(v) >= no_direction;
}

/// 1 when either vector has no direction.
double cosine_between(Vec3 u, Vec3 v) {
    if (!has_direction(u) || !has_direction(v)) return 1.0;
    return dot(u * (1.0 / length(u)), v * (1.0 / length(v)));
}

/// The cosine that decides the length: where the neighbour has a slope, its angle counts twice.
double deciding_cosine(Vec3 v, const Side& side) {
    constexpr double widest_turn = -0.5;  // beyond 120 degrees from the chord no arc is meant
    const double own = cosine_between(side.chord, v);
    if (!has_direction(side.neighbour_slope)) return std::fmax(own, widest_turn);
    const double other = cosine_between(side.chord, side.neighbour_slope);
    return std::fmax((own + 2.0 * other) / 3.0, widest_turn);
}

/// How far a wrong length on this side moves the curve: as the square of the side's size.
double side_weight(const Side& side) {
    return side.span > 0.0 ? side.span * length(side.chord) : 0.0;
}

}  // namespace

Vec3 with_length_by(LengthMethod method, Vec3 automatic, Stretch stretch, Vec3 v) {
    switch (method) {
        case LengthMethod::automatic:
            return automatic;
        case LengthMethod::like_automatic:
            return with_length(v, length(automatic));
        case LengthMethod::mean_speed_in_sense:
        case LengthMethod::mean_speed:
            return with_length(v, stretch.chord / stretch.span);
        case LengthMethod::as_given:
            break;
    }
    return v;
}

Vec3 mirrored_in_chord(Vec3 s, Vec3 a, Vec3 b, double tolerance) {
    const Vec3 chord = b - a;
    const double chord_length = length(chord);
    if (chord_length <= tolerance) return s;
    const Vec3 axis = chord * (1.0 / chord_length);
    const Vec3 along = axis * dot(axis, s);
    return along - (s - along);
}

double arc_length_factor(double cosine, ArcModel model) {
    constexpr double nearly = 1.0e-10;
    if (model == ArcModel::cubic) return 2.0 / (1.0 + cosine);
    if (std::fabs(cosine) <= nearly) return 1.6;
    if (std::fabs(cosine - 1.0) <= nearly) return 1.0;
    const double sine = std::sqrt(1.0 - cosine * cosine);
    const double root = std::sqrt((1.0 - cosine) * (25.0 - 7.0 * cosine));
    return (5.0 * sine - root) / (2.0 * sine * cosine);
}

Vec3 corrected_one_sided(Vec3 v, const Side& side, ArcModel model) {
    if (!has_direction(side.chord) || !(side.span > 0.0)) return v;
    const double factor = arc_length_factor(deciding_cosine(v, side), model);
    return with_length(v, length(side.chord) / side.span * factor);
}

Vec3 corrected_between(Vec3 v, const Side& previous, const Side& next, ArcModel model) {
    const double total = side_weight(previous) + side_weight(next);
    const double w = total > 0.0 ? side_weight(next) / total : 0.5;
    return corrected_one_sided(v, next, model) * w +
           corrected_one_sided(v, previous, model) * (1.0 - w);
}

}  // namespace ztmath

using namespace ztmath;

void h813_(const double automatic[3], const double* span, const double* chord, const int* method,
           double v[3]) {
    store(with_length_by(static_cast<LengthMethod>(*method), load3(automatic), {*chord, *span},
                         load3(v)),
          v);
}
