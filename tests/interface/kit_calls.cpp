// Vectors, matrices and transforms, predicates on points, planes, boxes and frames, differential
// geometry.
#include "interface/row.h"

namespace ztmath_test {

namespace {

/// Makes arrays of three the axes of a rotation, stretched, and the next three those of another.
void prepare_axes(Random& random, Arrays& inputs) {
    Matrix r;
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        if (i % 3 == 0) r = random_rotation(random);
        const double stretch = random.uniform(0.5, 3);
        for (std::size_t k = 0; k < 3; ++k)
            inputs[i][k] = r[3 * (i % 3) + k] * stretch;
    }
}

void prepare_plane_axes(Random&, Arrays& inputs) {
    inputs[1] = {-3 * inputs[0][1], 3 * inputs[0][0]};
}

/// A rotation that has drifted.
void prepare_drifted(Random& random, Arrays& inputs) {
    prepare_rotations(random, inputs);
    for (double& element : inputs[0])
        element += 1.0e-7 * random.normal();
}

}  // namespace

std::vector<Call> kit_calls() {
    return joined({
        rows_of<2, VEC2_is_parallel, VEC2_is_perpendicular, VEC2_ask_perpendicular>(),
        rows_of<3, VEC3_is_parallel, VEC3_is_perpendicular, VEC3_ask_perpendicular,
                VEC3_angle_between, VEC3_make_trihedral, MC_v_copy, MC_AmB, MC_ApB, MC_aA, MC_aApB,
                MC_AxB, MC_A_dot_B, MC_triple_product, MC_length, MC_length2, MC_dist, MC_dist2,
                MC_q_parallel, MC_q_perp, MC_get_angle, MC_perp_vec, MC_dist_lines,
                MC_signed_dist_planes, MC_signed_dist_plane_axis, MC_proj_point_onto_line,
                MC_perp_from_line_to_point, MC_q_point_on_line, MC_proj_point_onto_plane,
                MC_axis_plane_x, PNT3_is_colinear, PNT3_colinear_condition, DGEOM_crv_curvature,
                DGEOM_crv_torsion, DGEOM_crv_curvature_variation, DGEOM_convert_crvatr_to_radius,
                DGEOM_convert_radius_to_crvatr, DGEOM_convert_crvatr_to_deriv2>(),
        rows_of<6, PLN3_is_coincident, PLN3_is_equal>(),
        rows_of<16, MTX4_multiply, MTX4_multiply_t, MTX4_invert>(),
        {
            row<VEC2_unitize>({2, 1}, {1, 2}),
            row<VEC2_components>({2, 2, 2, 1}, {1, 1}),
            row<VEC2_ask_shortest_vector, 5>({10}),
            row<VEC3_unitize>({3, 1}, {1, 3}),
            row<MTX2_init>({2, 2}, {4}, prepare_plane_axes),
            row<MTX3_init>({3, 3}, {9}, prepare_axes),
            row<MTX3_init_y_z>({3, 3}, {9}, prepare_axes),
            row<MTX3_init_x_y_z>({3, 3, 3}, {9}, prepare_axes),
            row<MTX3_init_x>({3}, {9}),
            row<MTX3_init_z>({3}, {9}),
            row<MTX3_init_no_check>({3, 3}, {9}),
            row<MTX3_rot_about_axis>({1, 3}, {9}),
            row<MTX3_init_roll_pitch_yaw>({1, 1, 1}, {9}),
            row<MTX3_ask_roll_pitch_yaw>({9}, {1, 1, 1}, prepare_rotations),
            row<MTX3_ask_all_roll_pitch_yaw>({9}, {2, 24}, prepare_rotations),
            row<MTX3_is_ortho_normal>({9}, {}, prepare_rotations),
            changing<MTX3_ortho_normalize, first, 9>({9}, {9}, prepare_drifted),
            row<MTX3_is_equal>({9, 9, 1}, {}, prepare_rotations),
            row<MTX3_is_identity>({9, 1}, {}, prepare_rotations),
            row<MTX3_multiply>({9, 9}, {9}, prepare_rotations),
            row<MTX3_multiply_t>({9, 9}, {9}, prepare_rotations),
            changing<MC_v_unit, first, 3>(),
            row<MC_determinant>({12}),
            row<MC_solve_3>({12}, {3}),
            row<MC_apply_transform_to_vector>({16, 3}, {3}),
            row<MC_apply_transform_to_point>({16, 3}, {3}),
            row<MC_calc_csys_to_csys_transform>({12, 12}, {16}, prepare_rotations),
            row<MTX4_is_ortho_normal>({16}, {}, prepare_rotations),
            changing<MTX4_ortho_normalize, first, 16>({16}, {16}, prepare_rotations),
            changing<MTX4_fixup, first, 16>({16}, {16}, prepare_rotations),
            row<MTX4_is_equal>({16, 16, 1}, {}, prepare_rotations),
            row<MTX4_is_identity>({16, 1}, {}, prepare_rotations),
            row<MTX4_is_equal_transform>({16, 16, 1, 1, 1}, {}, prepare_rotations),
            row<MTX4_scaling>({3, 3}, {16}),
            row<MTX4_rotation>({3, 3, 1}, {16}),
            row<MTX4_mirror>({3, 3}, {16}),
            row<MTX4_csys_to_csys>({3, 3, 3, 3, 3, 3}, {16}, prepare_axes),
            row<PLN3_is_point_on_plane>({6, 3, 1}),
            row<PLN3_is_segment_intersecting>({6, 3, 3, 1}),
            row<PNT3_ask_closest_point, 4>({3, 3, 12}, {3}),
            changing<BOX3_expand_with_box, second, 6>(),
            row<CSYS_map_csys>({12, 12}, {12}, prepare_rotations),
            row<DGEOM_crv_diff_property, 1>({3, 3, 3}, {11}),
            row<DGEOM_srf_curvatures, 1>({3, 3, 3, 3, 3}, {7}),
            row<DGEOM_srf_normal_curvature>({3, 3, 3, 3, 3, 3, 3}, {1}),
        },
    });
}

}  // namespace ztmath_test
