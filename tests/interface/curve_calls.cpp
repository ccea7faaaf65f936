// Point lists, curve defining data over the input's points: whole records, calculations, searches
// and edits; poles.
#include "interface/row.h"
#include "support/curve_record.h"

namespace ztmath_test {

namespace {

thread_local List list;
thread_local Record record;
thread_local Record original;
thread_local std::unique_ptr<double, decltype(&SM_free)> array(nullptr, SM_free);

double list_edits(In in, Out out) {
    list.reset(PNTLST_allocate_struct(4, 2));
    PNTLST_insert_points(list.get(), 2, 0, in[0]);
    PNTLST_insert_points(list.get(), 2, 1, in[0] + 4);
    PNTLST_concat_one_point(list.get(), in[0] + 8);
    list->num_points = 3;  // what was written
    PNTLST_replace_points(list.get(), 1, 2, in[0] + 4);
    list.reset(PNTLST_copy_structure(list.get()));
    const double distance = PNTLST_calc_point_distance(list.get(), 0, 2);
    PNTLST_convert_4d_to_3d(list.get());
    PNTLST_remove_points(list.get(), 1, 1);
    PNTLST_copy_single_point(list.get(), 0, out[0]);
    int n = 0;
    int d = 0;
    array.reset(PNTLST_copy_points(list.get(), &n, &d));
    std::copy_n(array.get(), n * d, out[1]);
    list.reset();
    array.reset();
    return distance;
}

double whole_records(In in, Out out) {
    record = new_record({in[0], in[0] + 24}, 4);
    BCDF_replace_slope(record.get(), in[1], 0, 1);
    BCDF_replace_slope(record.get(), in[1] + 3, 3, 1);
    original = std::move(record);
    record.reset(BCDF_copy_structure(original.get()));
    BCDF* kept = BCDF_make_bcdf_data_persistent(record.get());
    record.release();
    record.reset(kept);
    const double sum = BCDF_calc_df_polygon_length(record.get()) + BCDF_is_zt_spline(record.get()) +
                       BCDF_ask_continuity(record.get()) + BCDF_normalize(record.get());
    BCDF_unnormalize_parameters(record.get(), 2.0);
    BCDF_scale_slopes(record.get(), 0.5);
    BCDF_convert_to_least_squares(record.get());
    BCDF_copy_single_3d_point(record.get(), 1, out[0]);
    std::copy_n(record->parameters->points, 6, out[1]);
    release_held();
    return sum;
}

void ascending(Random&, Arrays& inputs) {
    std::sort(inputs[0].begin(), inputs[0].end());
}

Record record_of(In in, int width, int least_squares) {
    Record made = new_record({in[0], in[0] + 24}, width, 0, least_squares);
    for (const int i : {0, 2, 3})
        BCDF_replace_slope(made.get(), in[1] + i, i, (i + 4) % 6);
    if (least_squares == 0) BCDF_replace_curvature(made.get(), in[1] + 1, 2, 1);
    return made;
}

/// Does something with a record and writes out what is then in it.
template <auto act, int width = 3, int least_squares = 0>
double on_record(In in, Out out) {
    record = record_of(in, width, least_squares);
    BCDF* r = record.get();
    const double result = act(r, in[1]);
    double* at = out[0];
    for (const PNTLST* part : {r->points, r->parameters, r->weights, r->slopes, r->slope_parameters,
                               r->curvatures, r->curvature_parameters})
        if (part != nullptr) at = std::copy_n(part->points, part->num_points * part->dimension, at);
    record.reset();
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

template <auto act>
std::vector<Call> rows_with(const char* name) {
    std::vector<Call> rows;
    for (const auto run : {on_record<act>, on_record<act, 4>, on_record<act, 3, 1>})
        rows.push_back({name, {24, 6}, {160}, run});
    return rows;
}

}  // namespace

void release_held() {
    list.reset();
    record.reset();
    original.reset();
    array.reset();
}

std::vector<Call> curve_calls() {
    return joined({
        {
            {"PNTLST_insert_points", {12}, {3, 6}, list_edits},
            {"BCDF_copy_structure", {24, 6}, {3, 6}, whole_records},
            row<bc_POLE_average_in_3d, 3>({12}, {3}),
            row<bc_POLE_identical_poles_in_3d, 3>({12}),
            row<bc_xyz_box, 3>({12}, {6}),
            row<knot_seq_order_4, 7, 1>({7}, {13, 2, 2}, ascending),
            row<BCDF_CALC_parameters, 4, 3>({12, 1}, {4}),
            row<BCDF_CALC_weights, 9>({9}, {9}),
            row<BCDF_CALC_single_weight, 9, 4>({9}),
            row<BCDF_CALC_quadratic_apprx, 1, 2>({3, 3, 3, 3, 1}, {9}),
            changing<h813_, fifth, 3, 5>({3, 1, 1, 3}, {3}),
        },
        rows_with<queries>("queries of a curve record"),
        rows_with<edits_of_points>("edits of its points"),
        rows_with<edits_of_slopes>("edits of its slopes"),
        rows_with<edits_of_curvatures>("edits of its curvatures"),
        rows_with<edits_of_fits>("edits of its fit"),
    });
}

}  // namespace ztmath_test
