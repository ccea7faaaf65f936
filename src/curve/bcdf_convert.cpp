// B-curve defining data: conversions of the whole record.
#include "curve/bcdf.h"
#include "ztmath/bcdf_gen.h"

using namespace ztmath;

namespace {

constexpr Module module = bcdf_module.part(5);

void scale(std::span<double> values, double factor) {
    for (double& value : values)
        value *= factor;
}

// Divided one by one: a product with the reciprocal would round differently.
void divide(std::span<double> values, double divisor) {
    for (double& value : values)
        value /= divisor;
}

/// The parameters to normalise; none is reported.
std::span<double> parameters_to_scale(const BCDF& record) {
    if (checking() && record.parameters == nullptr) module.internal("The Parameter Array Is NULL");
    return parameters(record);
}

double normalize(BCDF& record) {
    const auto t = parameters_to_scale(record);
    if (t.empty()) return 0.0;
    const double last = t.back();
    t.front() = 0.0;
    divide(t, last);
    t.back() = 1.0;
    divide(slope_parameters(record), last);
    return last;
}

/// Whether there were parameters to multiply.
bool unnormalize(BCDF& record, double factor) {
    const auto t = parameters_to_scale(record);
    if (t.empty()) return false;
    t.front() = 0.0;
    scale(t, factor);
    scale(slope_parameters(record), factor);
    return true;
}

void drop_fourth_coordinates(PNTLST& slopes) {
    // The first slope is in place. Kept as it stands: vectors do not scale with the weight of a
    // point, so they are not divided by their fourth coordinate.
    for (int i = 1; i < slopes.num_points; ++i)
        store(vector_at(slopes, i), slopes.points + 3 * std::ptrdiff_t{i});
    slopes.dimension = 3;
}

void add_automatic_slope(BCDF* record, int position) {
    double unused[3] = {};
    BCDF_change_slope(record, 0, unused, position);
}

}  // namespace

void BCDF_convert_4d_to_3d(BCDF* record) {
    if (record->points != nullptr) PNTLST_convert_4d_to_3d(record->points);
    if (dimension_of(record->slopes) == 4) drop_fourth_coordinates(*record->slopes);
}

void BCDF_convert_to_least_squares(BCDF* record) {
    if (record->weights != nullptr) return;
    const int dimension = dimension_of(record->points);
    if (dimension == 4) {
        BCDF_convert_4d_to_3d(record);
        BCDF_add_params(record, nullptr);
    } else if (checking() && dimension != 3) {
        module.internal("Points Are An Invalid Dimension");
    }
    BCDF_add_weights(record);
    if (record->weights == nullptr) return;
    BCDF_make_least_squares_slopes(record);
    BCDF_remove_curvatures(record, 0, count(record->curvatures));
    record->ls_num_segments = 0;
    record->ls_tolerance = 0.0;
    record->periodicity = 0;
}

void BCDF_make_least_squares_slopes(BCDF* record) {
    // Kept as it stands: counted before an automatic slope comes in, so that the last interior
    // slope of a record with a slope at one end stays.
    const int number = count(record->slopes);
    if (number < 1) return;
    const bool at_start = has_start_slope(*record);
    const bool at_end = has_end_slope(*record);
    if (!at_start && !at_end) {
        BCDF_remove_slopes(record, 0, number);
        return;
    }
    if (!at_end) add_automatic_slope(record, count(record->points) - 1);
    if (!at_start) add_automatic_slope(record, 0);
    BCDF_remove_slopes(record, 1, number - 2);
    BCDF_unitize_slopes(record);
}

double BCDF_normalize(BCDF* record) {
    return normalize(*record);
}

double BCDF_normalize_parameters(BCDF* record) {
    const bool has_parameters = count(record->parameters) > 0;
    const double last = normalize(*record);
    if (has_parameters) divide(curvature_parameters(*record), last);
    return last;
}

void BCDF_unnormalize(BCDF* record, double factor) {
    unnormalize(*record, factor);
}

void BCDF_unnormalize_parameters(BCDF* record, double factor) {
    if (unnormalize(*record, factor)) scale(curvature_parameters(*record), factor);
}

void BCDF_scale_slopes(BCDF* record, double factor) {
    scale(coordinates(record->slopes), factor);
}
