// Point lists, whole records of curve defining data, and poles.
#include <algorithm>
#include <utility>

#include "interface/row.h"
#include "support/curve_record.h"
#include "ztmath/bc_pole.h"

namespace ztmath_test {

namespace {

thread_local std::unique_ptr<PNTLST, Release> list;
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
    release_curves();
    return sum;
}

double knots_of(In in, Out out) {
    const int n = 7;
    const int periodic = 1;
    double* knots = nullptr;
    int count = 0;
    int status = -1;
    knot_seq_order_4(in[0], &n, &periodic, &knots, &count, &status);
    std::copy_n(knots, count, out[0]);
    SM_free(knots);
    return status;
}

void ascending(Random&, Arrays& inputs) {
    std::sort(inputs[0].begin(), inputs[0].end());
}

}  // namespace

void release_curves() {
    list.reset();
    record.reset();
    original.reset();
    array.reset();
}

std::vector<Call> curve_calls() {
    return {
        {"PNTLST_insert_points", {12}, {3, 6}, list_edits, nullptr, false},
        {"BCDF_copy_structure", {24, 6}, {3, 6}, whole_records, nullptr, false},
        row<bc_POLE_equal_in_4d>({4, 4}),
        row<bc_POLE_3d_distance>({4, 4}, {3}),
        row<bc_POLE_translate_pole>({4, 3}, {4}),
        row<bc_POLE_project_to_line>({4, 4, 4}, {4}),
        row<bc_POLE_average_in_3d, 3>({12}, {3}),
        row<bc_POLE_identical_poles_in_3d, 3>({12}),
        row<bc_xyz_box, 3>({12}, {6}),
        row<h430_>({3, 3, 3}, {3}),
        {"knot_seq_order_4", {7}, {13}, knots_of, ascending},
    };
}

}  // namespace ztmath_test
