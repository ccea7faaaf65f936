// What of point lists, curve records and poles the headers do not tell.
#include "interface/row.h"
#include "interface/whole_calls.h"

namespace ztmath_test {

namespace {

void record_points_left(BCDF* record) {
    double* const points = record->points->points;
    BCDF_free_all_but_points(held<BCDF>.release());
    SM_free(points);
}

void list_points_left(PNTLST* list) {
    double* const points = list->points;
    PNTLST_free_all_but_points(held<PNTLST>.release());
    SM_free(points);
}

void made_persistent(BCDF* record) {
    BCDF* const kept = BCDF_make_bcdf_data_persistent(record);
    static_cast<void>(held<BCDF>.release());
    held<BCDF>.reset(kept);
}

void ascending(Random&, Arrays& inputs) {
    std::sort(inputs[0].begin(), inputs[0].end());
}

}  // namespace

void release_held() {
    held<PNTLST>.reset();
    held<PNTLST, true>.reset();
    held<BCDF>.reset();
    held<BCDF, true>.reset();
    held<double>.reset();
}

std::vector<Call> curve_calls() {
    return {
        row<record_points_left>(),
        row<list_points_left>(),
        row<list_from_function, 4, 3>(),
        row<record_over_block, 8, 3, 1>(),
        row<record_over_list, 8, 3, 1, 4, 0>(),
        row<made_persistent>(),
        row<BCDF_replace_defining_point, 1, 3>(),
        row<BCDF_remove_defining_points, 0, 2>(),
        row<BCDF_change_slope, 4, 1>(),
        row<BCDF_replace_slope, 2, 1>(),
        row<BCDF_change_curvature, 1, 3>(),
        row<BCDF_change_order, 5>(),
        row<BCDF_change_number_of_segments, 3>(),
        changing<BCDF_CALC_normalized_slope, fourth, 12, 5, 3>(),
        row<BCDF_CALC_auto_derivatives, 0, 2>({structure_in}, {9}),
        row<BCDF_point_at_curvature, 2>(),
        row<BCDF_scale_slopes>(),
        row<PNTLST_copy_single_point, 1>({structure_in}, {4}),
        row<bc_POLE_average_in_3d, 3>({12}, {3}),
        row<bc_POLE_identical_poles_in_3d, 3>({12}),
        row<bc_xyz_box, 3>({12}, {6}),
        row<knot_seq_order_4, 7, 1>({7}, {13, 2, 2}, ascending),
        row<BCDF_CALC_parameters, 4, 3>({12, 1}, {4}),
        row<BCDF_CALC_weights, 9>({9}, {9}),
        row<BCDF_CALC_single_weight, 9, 4>({9}),
        row<BCDF_CALC_quadratic_apprx, 1, 2>({3, 3, 3, 3, 1}, {9}),
        changing<h813_, fifth, 3, 5>({3, 1, 1, 3}, {3}),
    };
}

}  // namespace ztmath_test
