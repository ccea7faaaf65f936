// Curve defining data: calculations, searches and edits of a record over the input's points.
#include <algorithm>

#include "interface/row.h"
#include "support/curve_record.h"
#include "ztmath/bcdf_calc.h"

namespace ztmath_test {

namespace {

thread_local Record held;

Record record_of(In in, int width, int least_squares) {
    Record record = new_record({in[0], in[0] + 24}, width, 0, least_squares);
    for (const int i : {0, 2, 3})
        BCDF_replace_slope(record.get(), in[1] + i, i, (i + 4) % 6);
    if (least_squares == 0) BCDF_replace_curvature(record.get(), in[1] + 1, 2, 1);
    return record;
}

/// Does something with a record and writes out what is then in it.
template <auto act, int width = 3, int least_squares = 0>
double on_record(In in, Out out) {
    held = record_of(in, width, least_squares);
    BCDF* r = held.get();
    const double result = act(r, in[1]);
    double* at = out[0];
    for (const PNTLST* list : {r->points, r->parameters, r->weights, r->slopes, r->slope_parameters,
                               r->curvatures, r->curvature_parameters})
        if (list != nullptr) at = std::copy_n(list->points, list->num_points * list->dimension, at);
    held.reset();
    return result;
}

/// What is only asked of a record, in turn.
double queries(BCDF* r, const double* v) {
    int k = 0;
    int number = 0;
    SM_free(BCDF_create_slope_pos_array(r, &number));
    SM_free(BCDF_create_crvatr_pos_array(r, &number));
    double sum = BCDF_check_defining_data(r) + BCDF_check_overlap_points(r, 1, 1, v) +
                 BCDF_check_consecutive_dup_pts(r) + BCDF_num_of_knots_needed(r, 3) +
                 BCDF_parameter_in_list(r, v[0], &k) + BCDF_point_at_slope(r, 1) +
                 BCDF_point_at_curvature(r, 0) + BCDF_slope_at_point(r, 2, &k) +
                 BCDF_curvature_at_point(r, 2, &k) + BCDF_curvature_at_slope(r, 1, &k);
    double u[6] = {};
    sum += BCDF_slope_at_curvature(r, 0, &k, u) + BCDF_CALC_denormalize_param(r, v[0]);
    BCDF_CALC_auto_derivatives(r, 0, 2, u);
    sum += u[0] + u[3];
    BCDF_CALC_auto_slope(r, 5, u);
    sum += u[1];
    BCDF_CALC_auto_curvature(r, 3, u);
    BCDF_CALC_normalized_slope(r, 5, 3, u);
    return sum + u[2];
}

double edits_of_points(BCDF* r, const double* v) {
    BCDF_replace_defining_point(r, v, 1, 3);
    BCDF_remove_defining_points(r, 0, 2);
    BCDF_change_order(r, 5);
    BCDF_toggle_periodicity(r);
    BCDF_toggle_periodicity(r);
    BCDF_add_params(r, nullptr);
    return 0.0;
}

double edits_of_slopes(BCDF* r, const double* v) {
    BCDF_change_slope(r, 4, v, 1);
    BCDF_replace_slope(r, v, 2, 1);
    BCDF_update_slopes(r);
    BCDF_remove_slopes(r, 0, 2);
    BCDF_add_needed_slopes(r);
    BCDF_update_end_slopes(r);
    BCDF_unitize_slopes(r);
    return 0.0;
}

double edits_of_curvatures(BCDF* r, const double* v) {
    BCDF_change_curvature(r, 1, nullptr, 3, 2.0);
    BCDF_replace_curvature(r, v, 0, 0);
    BCDF_update_curvatures(r);
    BCDF_remove_curvatures(r, 0, 1);
    return 0.0;
}

double edits_of_fits(BCDF* r, const double* v) {
    BCDF_change_tolerance(r, v[0]);
    BCDF_change_number_of_segments(r, 3);
    BCDF_add_weights(r);
    BCDF_replace_weight(r, 2, v[1]);
    return 0.0;
}

double legacy_length(In in, Out out) {
    const int method = 5;
    double v[3] = {*in[3], 0.0, 1.0};
    h813_(in[0], in[1], in[2], &method, v);
    std::copy_n(v, 3, out[0]);
    return 0.0;
}

template <auto act>
void add_rows(std::vector<Call>& rows, const char* name) {
    for (const auto run : {on_record<act>, on_record<act, 4>, on_record<act, 3, 1>})
        rows.push_back({name, {24, 6}, {160}, run, nullptr, false});
}

}  // namespace

void release_held() {
    held.reset();
}

std::vector<Call> curve_edit_calls() {
    std::vector<Call> rows = {
        row<BCDF_CALC_parameters, 4, 3>({12, 1}, {4}),
        row<BCDF_CALC_weights, 9>({9}, {9}),
        row<BCDF_CALC_single_weight, 9, 4>({9}),
        row<BCDF_CALC_quadratic_apprx, 1, 2>({3, 3, 3, 3, 1}, {9}),
        row<BCDF_CALC_mirror_slope>({3, 3, 3}, {3}),
        row<BCDF_CALC_unitize_slope>({3}, {3}),
        {"h813_", {3, 1, 1, 1}, {3}, legacy_length},
    };
    add_rows<queries>(rows, "queries of a curve record");
    add_rows<edits_of_points>(rows, "edits of its points");
    add_rows<edits_of_slopes>(rows, "edits of its slopes");
    add_rows<edits_of_curvatures>(rows, "edits of its curvatures");
    add_rows<edits_of_fits>(rows, "edits of its fit");
    return rows;
}

}  // namespace ztmath_test
