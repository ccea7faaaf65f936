// Validation of curve defining data, and its settings.
#include <cstdint>

#include "curve/editing.h"
#include "ztmath/bcdf_gen.h"
#include "ztmath/tolerance.h"

namespace ztmath {

namespace {

constexpr Module report = bcdf_gen_module.part(14);

/// What validation finds; the texts are the host's.
enum Finding {
    valid = 0,
    bad_segment_count = 1005005,
    bad_tolerance = 1005006,
    too_few_constraints = 1005311,
    too_many_constraints = 1005317,
    curvature_without_slope = 1005318,
    curvature_not_perpendicular = 1005319,
    order_too_low = 1005320,
    too_few_points = 1005321,
    parameters_not_increasing = 1005322,
};

int check_counts(const BCDF& record) {
    constexpr int most_constraints = 2147483600;
    const int constraints = BCDF_return_num_of_constraints(&record);
    if (count(record.points) < (is_periodic(record) ? 3 : 2)) return too_few_points;
    if (constraints < record.order) return too_few_constraints;
    return constraints >= most_constraints ? too_many_constraints : valid;
}

int check_parameters(std::span<const double> t) {
    for (std::size_t i = 1; i < t.size(); ++i)
        if (t[i] <= t[i - 1]) return parameters_not_increasing;
    return valid;
}

int check_order(const BCDF& record) {
    const bool too_low = (count(record.slopes) > 0 && record.order < 3) ||
                         (count(record.curvatures) > 0 && record.order < 4);
    return too_low ? order_too_low : valid;
}

int check_curvatures(const BCDF& record) {
    constexpr double largest_product = 1.0e-7;
    const auto sites = curvature_sites(record);
    for (std::size_t k = 0; k < sites.size(); ++k) {
        const Found point = find_point(record, sites[k]);
        const Found slope = point.found ? slope_at_point(record, point.index) : Found{};
        if (!slope.found) return curvature_without_slope;
        const double product = dot(vector_at(*record.slopes, slope.index),
                                   vector_at(*record.curvatures, static_cast<int>(k)));
        if (std::fabs(product) >= largest_product) return curvature_not_perpendicular;
    }
    return valid;
}

int check_fit(const BCDF& record) {
    if (record.weights == nullptr) return valid;
    const std::int64_t most = std::int64_t{BCDF_ask_max_npoles_for_fit(&record)} - record.order + 1;
    const int segments = record.ls_num_segments;
    if (most < 1) return too_few_points;
    if (segments == 0) return record.ls_tolerance >= 0.0 ? valid : bad_tolerance;
    return segments < 1 || segments > most ? bad_segment_count : valid;
}

bool is_within_tolerance(Vec3 a, Vec3 b) {
    return length(b - a) <= EQ_ask_length_tolerance();
}

bool overlaps_neighbour(const BCDF& record, int position, Vec3 point) {
    const int n = count(record.points);
    const auto is_at = [&](int i) {
        return is_within_tolerance(cartesian_point(record, i), point);
    };
    if (position > 0 && is_at(position - 1)) return true;
    return position < n - 1 && is_at(position + 1);
}

bool removal_overlaps(const BCDF& record, int position) {
    return position >= 1 && position <= count(record.points) - 2 &&
           is_within_tolerance(cartesian_point(record, position - 1),
                               cartesian_point(record, position + 1));
}

/// Whether the record is one; a periodic one may stay what it is.
bool make_least_squares(BCDF* record) {
    if (record->weights == nullptr) BCDF_convert_to_least_squares(record);
    return record->weights != nullptr;
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

int BCDF_check_defining_data(const BCDF* record) {
    if (const int finding = check_counts(*record)) return finding;
    if (const int finding = check_parameters(parameters(*record))) return finding;
    if (const int finding = check_order(*record)) return finding;
    if (const int finding = check_curvatures(*record)) return finding;
    return check_fit(*record);
}

int BCDF_check_overlap_points(const BCDF* record, int mode, int position, const double point[3]) {
    switch (mode) {
        case 1:
            return overlaps_neighbour(*record, position, load3(point));
        case 2:
            return removal_overlaps(*record, position);
        case 3:
            return BCDF_check_consecutive_dup_pts(record);
        default:
            return 0;
    }
}

int BCDF_check_consecutive_dup_pts(const BCDF* record) {
    for (int i = 1; i < count(record->points); ++i)
        if (PNTLST_calc_point_distance(record->points, i - 1, i) <= EQ_ask_length_tolerance())
            return 1;
    return 0;
}

int BCDF_num_of_knots_needed(const BCDF* record, int extra) {
    std::int64_t knots = std::int64_t{BCDF_return_num_of_constraints(record)} + record->order;
    if (is_periodic(*record))
        knots += std::min(std::int64_t{extra} + 1, std::int64_t{record->order} - 1);
    return static_cast<int>(knots);
}

void BCDF_change_order(BCDF* record, int order) {
    if (checking() && order >= 26) report.internal("Maximum Order For Spline Exceeded");
    if (checking() && order < 2) report.internal("Order Must Be Greater Than 1");
    record->order = order;
}

void BCDF_change_tolerance(BCDF* record, double tolerance) {
    if (!make_least_squares(record)) return;
    record->ls_tolerance = tolerance;
    record->ls_num_segments = 0;
}

void BCDF_change_number_of_segments(BCDF* record, int number) {
    if (!make_least_squares(record)) return;
    record->ls_num_segments = number;
    record->ls_tolerance = 0.0;
}
