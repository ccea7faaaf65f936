// Arcs and straights, circles as points of space, planes, rotations.
#include "interface/row.h"

namespace ztmath_test {

namespace {

constexpr std::size_t segment = numbers_in<Segment>;

/// Unit normals for the second and fourth array.
void prepare_normals(Random& random, Arrays& inputs) {
    const Matrix r = random_rotation(random);
    std::copy_n(r.begin(), 3, inputs[1].begin());
    std::copy_n(r.begin() + 3, 3, inputs[3].begin());
}

}  // namespace

std::vector<Call> arc_spline_calls() {
    return joined({
        rows_of<
            2, ARC_SPLINE_init_1_seg_2d, ARC_SPLINE_copy_1_seg_2d_pre_allocated,
            ARC_SPLINE_cre_arc_seg_2d, ARC_SPLINE_cre_single_point_circle_2d,
            ARC_SPLINE_cre_circle_from_center_and_radius_2d,
            ARC_SPLINE_cre_circle_from_point_tangent_radius_2d, ARC_SPLINE_cre_offset_circle_2d,
            ARC_SPLINE_cre_offset_straight_2d, ARC_SPLINE_evaluate_1_seg_2d,
            ARC_SPLINE_evaluate_arc_seg_2d, ARC_SPLINE_evaluate_strt_seg_2d,
            ARC_SPLINE_ask_arcl_of_1_seg_2d, ARC_SPLINE_ask_arcl_to_parm_of_1_seg_2d,
            ARC_SPLINE_ask_radius_of_1_seg_2d, ARC_SPLINE_ask_end_pts_of_1_seg_2d,
            ARC_SPLINE_ask_perp_vec, ARC_SPLINE_ask_inclination_angle_from_tan_2d,
            ARC_SPLINE_ask_tan_2d_from_inclination_angle, ARC_SPLINE_ask_angle_between_vectors_2d,
            ARC_SPLINE_ask_interior_angle_of_triangle_2d,
            ARC_SPLINE_ask_central_angle_between_tangents_2d, ARC_SPLINE_ask_min_central_angle,
            ARC_SPLINE_ask_power_of_a_point_2d, ARC_SPLINE_ask_where_is_pt_wrt_circle_2d,
            ARC_SPLINE_ask_where_is_circle_wrt_circle_2d,
            ARC_SPLINE_ask_radical_axis_of_2_circles_2d, ARC_SPLINE_mirror_point_wrt_line_2d,
            ARC_SPLINE_ask_3pts_collinearity_2d, ARC_SPLINE_ask_sign_of_var,
            ARC_SPLINE_solve_quadratic_eqt, ARC_SPLINE_ask_is_pair_in_order,
            ARC_SPLINE_ask_is_parm_in_interval, ARC_SPLINE_cre_circle_thru_3_points_2d,
            ARC_SPLINE_cre_circle_thru_2_points_and_radius,
            ARC_SPLINE_cre_circle_thru_2_points_tangent_to_line,
            ARC_SPLINE_cre_circle_thru_pt_and_tangent_to_line_at_pt_2d,
            ARC_SPLINE_cre_circle_from_chord_end_data_2d,
            ARC_SPLINE_cre_circle_thru_2_points_tangent_to_circle,
            ARC_SPLINE_cre_circle_thru_2_points_tangent_to_circle_2,
            ARC_SPLINE_cre_circle_tangent_to_circle_and_line_at_pt_2d,
            ARC_SPLINE_cre_circle_tangent_to_line_and_line_at_pt_2d,
            ARC_SPLINE_cre_circle_at_angle_to_c_tangent_to_l_at_pt_2d,
            ARC_SPLINE_cre_circle_tangent_to_2_circles_and_a_pt,
            ARC_SPLINE_cre_circle_tangent_to_2_circles_and_given_radius_2d,
            ARC_SPLINE_cre_circle_tangent_to_3_circles, ARC_SPLINE_ask_tangents_thru_a_point_2d,
            ARC_SPLINE_ask_tangents_exterior_to_circles_2d,
            ARC_SPLINE_ask_tangents_interior_to_circles_2d,
            ARC_SPLINE_compute_tangent_at_other_end_of_chord_2d,
            ARC_SPLINE_inter_of_2_circular_arcs_2d, ARC_SPLINE_inter_circular_arc_line_seg_2d>(),
        rows_of<3, ARC_SPLINE_ask_power_of_a_point_3d, ARC_SPLINE_convert_3d_pt_to_circle_2d,
                ARC_SPLINE_copy_monge_plane, ARC_SPLINE_ask_pt_and_normal_of_monge_plane,
                ARC_SPLINE_proj_pt_to_pln, ARC_SPLINE_proj_vec_to_pln>(),
        {
            changing<ARC_SPLINE_cre_strt_seg_2d, second>(),
            changing<ARC_SPLINE_ask_arcl_of_trimmed_1_seg_2d, second>(),
            changing<ARC_SPLINE_ask_central_angle_of_1_seg_2d, first>(),
            changing<ARC_SPLINE_ask_central_angle_from_inclination_angles, second>({1, 2, 1}, {2}),
            changing<ARC_SPLINE_ask_is_arc_rather_strt_2d, first, 3>(),
            changing<ARC_SPLINE_reverse_parm_of_1_seg_2d, first>(),
            changing<ARC_SPLINE_reverse_parm_of_strt_2d, first>(),
            changing<ARC_SPLINE_reverse_parm_of_arc_2d, first>(),
            changing<ARC_SPLINE_ask_is_parm_in_arc_domain, third>(),
            changing<ARC_SPLINE_inter_line_line_2d, fifth | sixth>({2, 2, 2, 1, 2, 2},
                                                                   {2, 2, 2, 2, 1, 2}),
            changing<ARC_SPLINE_re_order_3pts_2d, second | third | fourth>(),
            changing<ARC_SPLINE_re_order_3pts_3d, second | third | fourth, 3>(),
            changing<ARC_SPLINE_ask_are_two_rays_homodromic_2d, second | fourth, 2, 0, 1>(),
            changing<ARC_SPLINE_ask_isosceles_to_pt_2d, second | fourth>(),
            changing<ARC_SPLINE_ask_bisector_of_angle_2d, second | fourth>(),
            changing<ARC_SPLINE_ask_convexities_of_tri_arc_2d, second | fourth>(),
            changing<ARC_SPLINE_trim_to_point_1_seg_2d, third>(),
            changing<ARC_SPLINE_cre_arc_from_ray_to_ray_2d, second | fourth>(),
            changing<ARC_SPLINE_normalize_monge_plane, first>(),
            changing<ARC_SPLINE_adjust_pt_on_pln, third, 3>(),
            changing<ARC_SPLINE_adjust_vec_on_pln, third, 3, 1>(),
        },
        {
            row<h053_>({1, 1}, {1}),
            row<ARC_SPLINE_ask_center_radius_of_seg_2d>({segment}, {2, 1, 2, 2}),
            row<ARC_SPLINE_ask_1_seg_2d_data>({segment, 1}, {2, 2, 2, 1, 1, 2, 2, 2, 2, 2, 2, 2}),
            row<ARC_SPLINE_ask_angle_from_tan, 180>({1, 1}),
            row<ARC_SPLINE_ask_angle_from_tan, 90>({1, 1}),
            row<ARC_SPLINE_ask_parm_at_a_point_2d>({segment, 2, 3}, {2, 1, 2, 2}),
            row<ARC_SPLINE_ask_dist_pt_to_1_seg_2d>({segment, 2, 1, 3}, {2, 1, 1, 2}),
            row<ARC_SPLINE_ask_dist_pt_to_line_2d>({2, 2, 2, 1}, {2, 1, 2}),
            row<ARC_SPLINE_ask_dist_pt_to_line_seg_2d>({2, 2, 2, 1, 1}, {2, 1, 2}),
            row<ARC_SPLINE_ask_3pts_collinearity_3d>({3, 3, 3, 2, 1}, {2}),
            row<ARC_SPLINE_trig_eqt_linear_sin_cos>({1, 1, 1, 1, 1, 1}, {2, 2, 2}),
            row<ARC_SPLINE_ask_inscribed_angle_and_type>({3, 3, 3, 1, 1}, {1, 1, 2}),
            row<ARC_SPLINE_ask_bisector_of_inscribed_angle>({3, 3, 3, 1, 1}, {3, 1, 2, 2}),
            row<ARC_SPLINE_ask_bisector_of_polygon_angle>({3, 3, 3, 3, 1}, {3, 1, 2, 2}),
            row<ARC_SPLINE_convert_circle_to_3d_pt>({2, 1}, {3}),
            row<ARC_SPLINE_ask_polar_plane_of_circle>({2, 1}, {5}),
            row<ARC_SPLINE_inter_2_monge_planes>({4, 4, 2}, {3, 3, 2}),
            row<ARC_SPLINE_inter_3_monge_planes>({4, 4, 4, 2}, {3, 2, 2, 2}),
            row<h634_>({3, 3, 3, 3, 1, 1}, {3, 3, 2}, prepare_normals),
            row<ARC_SPLINE_proj_pt_along_vec_on_plane>({3, 3, 3, 3, 2}, {3, 1, 2}),
            row<ARC_SPLINE_ask_householder_rotation>({3, 3}, {9, 2}),
            row<ARC_SPLINE_ask_householder_transformation>({3, 3}, {16, 2}),
            row<ARC_SPLINE_ask_translation_matrix>({3}, {16}),
            row<ARC_SPLINE_combine_translation_matrix>({3, 16}, {16}),
            row<ARC_SPLINE_combine_rotation_translation>({9, 3}, {16}),
            row<ARC_SPLINE_cre_mtx3_from_2_vecs_to_2_vecs>({3, 3, 3, 3}, {9, 2}),
            row<ARC_SPLINE_cre_mtx3_from_3_vecs_to_3_vecs>({3, 3, 3, 3, 3, 3}, {9, 2}),
        },
    });
}

}  // namespace ztmath_test
