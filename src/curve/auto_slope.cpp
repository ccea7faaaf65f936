#include "curve/auto_slope.h"

#include <cmath>

#include "curve/quadratic.h"
#include "curve/slope_length.h"
#include "dgeom/curve.h"
#include "ztmath/tolerance.h"

namespace ztmath {

namespace {

constexpr Module report = bcdf_calc_module.part(1);

double parameter_at(const BCDF& record, int position) {
    return parameters(record)[static_cast<std::size_t>(position)];
}

Condition through(const BCDF& record, int position) {
    return {parameter_at(record, position), cartesian_point(record, position)};
}

bool is_mirrored_type(int type) {
    return type == slope_direction || type == slope_direction_and_sense ||
           type == slope_direction_corrected;
}

/// At t, of the quadratic that meets the conditions.
Derivatives derivatives_of(const Condition (&rows)[3], SlopeRow slope_row, double t) {
    const QuadraticFit fit = fit_quadratic(rows, slope_row);
    if (fit.status != 0) return {};
    return {true, fit.curve.first_derivative(t), fit.curve.second_derivative()};
}

Derivatives through_three(const BCDF& record, int first, int at) {
    return derivatives_of(
        {through(record, first), through(record, first + 1), through(record, first + 2)},
        SlopeRow::none, parameter_at(record, at));
}

/// The point before the closing one comes before the first, one period back.
Derivatives at_periodic_start(const BCDF& record, int n) {
    Condition before = through(record, n - 2);
    before.parameter -= parameter_at(record, n - 1);
    const Condition start = through(record, 0);
    return derivatives_of({before, start, through(record, 1)}, SlopeRow::none, start.parameter);
}

/// The neighbour's slope mirrored in the chord, and a second derivative that bends from it.
Derivatives mirrored(Vec3 neighbour_slope, Vec3 from, Vec3 to) {
    const Vec3 m = mirrored_in_chord(neighbour_slope, from, to, EQ_ask_length_tolerance());
    const Vec3 normal = cross(to - from, m);
    const double size = length(normal);
    if (size < no_direction) return {true, m, {}};
    // Kept as it stands: the chord runs in the direction of travel at both ends, so that the bend
    // at the last point is outwards. Curvatures in stored records have this sign.
    return {true, m, cross(m, normal * (1.0 / size))};
}

/// At one end of an open record, from the end's neighbour and its slope if it has one.
Derivatives at_end(const BCDF& record, int n, bool at_start) {
    const Condition left = through(record, at_start ? 0 : n - 2);
    const Condition right = through(record, at_start ? 1 : n - 1);
    if (n == 2)
        return {true, (right.value - left.value) * (1.0 / (right.parameter - left.parameter)), {}};
    const int end = at_start ? 0 : n - 1;
    const Found neighbour = slope_at_point(record, at_start ? 1 : n - 2);
    if (!neighbour.found) return through_three(record, at_start ? 0 : n - 3, end);
    const Vec3 slope = vector_at(*record.slopes, neighbour.index);
    if (is_mirrored_type(slope_type(record, neighbour.index)))
        return mirrored(slope, left.value, right.value);
    const double t = parameter_at(record, end);
    return at_start ? derivatives_of({left, right, {right.parameter, slope}}, SlopeRow::last, t)
                    : derivatives_of({left, {left.parameter, slope}, right}, SlopeRow::middle, t);
}

Stretch between(const BCDF& record, int i, int j) {
    return {length(cartesian_point(record, j) - cartesian_point(record, i)),
            parameter_at(record, j) - parameter_at(record, i)};
}

/// The chords that meet at a point and the parameters they take.
Stretch stretch_at(const BCDF& record, int i, int n) {
    if (i == n - 1) return between(record, n - 2, n - 1);
    const Stretch next = between(record, i, i + 1);
    if (i == 0 && !is_periodic(record)) return next;
    if (i == 0) {
        const Stretch closing = between(record, n - 2, n - 1);
        return {next.chord + closing.chord, next.span + closing.span};
    }
    const Stretch previous = between(record, i - 1, i);
    return {previous.chord + next.chord, parameter_at(record, i + 1) - parameter_at(record, i - 1)};
}

/// The slope at a point; the ends of a periodic record are one point, and either may have it.
Vec3 slope_or_zero(const BCDF& record, int i, int n) {
    Found found = slope_at_point(record, i);
    if (!found.found && is_periodic(record) && (i == 0 || i == n - 1))
        found = slope_at_point(record, n - 1 - i);
    return found.found ? vector_at(*record.slopes, found.index) : Vec3{};
}

/// The side from point i to i + 1, of which one is the neighbour.
Side side_between(const BCDF& record, int i, int neighbour, int n) {
    return {cartesian_point(record, i + 1) - cartesian_point(record, i),
            parameter_at(record, i + 1) - parameter_at(record, i),
            slope_or_zero(record, neighbour, n)};
}

Vec3 corrected_slope(const BCDF& record, int i, int n, Vec3 v) {
    if (length(v) < no_direction) return v;
    const bool with_curvature =
        count(record.curvatures) > 0 || record.order == 5 || record.order == 6;
    const ArcModel model = with_curvature ? ArcModel::with_curvature : ArcModel::cubic;
    const auto next = [&] { return side_between(record, i, i + 1, n); };
    const auto previous = [&] {
        const int before = i > 0 ? i - 1 : n - 2;
        return side_between(record, before, before, n);
    };
    if (i == n - 1) return corrected_one_sided(v, previous(), model);
    if (i == 0 && !is_periodic(record)) return corrected_one_sided(v, next(), model);
    return corrected_between(v, previous(), next(), model);
}

LengthMethod method_of_type(int type) {
    constexpr LengthMethod methods[] = {
        LengthMethod::automatic,           LengthMethod::as_given,
        LengthMethod::mean_speed,          LengthMethod::like_automatic,
        LengthMethod::mean_speed_in_sense, LengthMethod::mean_speed};
    return methods[type];
}

}  // namespace

Vec3 cartesian_point(const BCDF& record, int position) {
    double point[3];
    BCDF_copy_single_3d_point(&record, position, point);
    return load3(point);
}

Derivatives automatic_derivatives(const BCDF& record, int position) {
    const int n = site_count(record);
    if (!is_site(record, position)) {
        if (checking())
            report.raise(reason_position, "An Invalid Point Position Was Given By Calling Routine");
        return {true, {}, {}};
    }
    if (n < 2) return {true, {}, {}};
    if (position == 0 && is_periodic(record)) return at_periodic_start(record, n);
    if (position > 0 && position < n - 1) return through_three(record, position - 1, position);
    Derivatives end = at_end(record, n, position == 0);
    end.defined = true;  // zero where the fit is singular
    return end;
}

Vec3 automatic_slope(const BCDF& record, int position) {
    return automatic_derivatives(record, position).first;
}

Vec3 automatic_curvature(const BCDF& record, int position) {
    const Derivatives d = automatic_derivatives(record, position);
    return curvature_vector(d.first, d.second);
}

Vec3 normalized_slope(const BCDF& record, int type, int position, Vec3 v) {
    if (type < slope_direction || type > slope_direction_corrected) return v;
    const int n = site_count(record);
    if (!is_site(record, position)) {
        if (checking())
            report.raise(reason_position,
                         "The Point Position Is Not Valid For The Array Of Points");
        return v;
    }
    if (n < 2) return v;
    const Vec3 scaled = with_length_by(method_of_type(type), automatic_slope(record, position),
                                       stretch_at(record, position, n), v);
    const bool corrected = type == slope_direction_and_sense || type == slope_direction_corrected;
    return corrected ? corrected_slope(record, position, n, scaled) : scaled;
}

Vec3 unit_slope(Vec3 v) {
    const double size = length(v);
    if (size <= no_direction) {
        if (checking()) report.raise(reason_zero_slope, "The Input Slope Has Zero Length");
        return {};
    }
    return {v.x / size, v.y / size, v.z / size};
}

}  // namespace ztmath
