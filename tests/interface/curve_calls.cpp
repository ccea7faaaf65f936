// What of point lists, curve records and poles the headers do not tell.
#include "interface/row.h"

namespace ztmath_test {

namespace {

/// Everything that a record hands out.
void copied(const BCDF* record) {
    int number = 0;
    int dimension = 0;
    SM_free(BCDF_create_slope_pos_array(record, &number));
    SM_free(BCDF_create_crvatr_pos_array(record, &number));
    SM_free(PNTLST_copy_points(record->points, &number, &dimension));
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
}

std::vector<Call> curve_calls() {
    return {
        row<copied>(),
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
