// Arc-spline segments, planar primitives and constructions.
#include <algorithm>

#include "interface/mixed_row.h"
#include "ztmath/arc_spline.h"
#include "ztmath/arc_spline_constructions.h"
#include "ztmath/arc_spline_primitives.h"
#include "ztmath/arc_spline_tangent_circles.h"

namespace ztmath_test {

namespace {

constexpr std::size_t in = segment_in;
constexpr std::size_t out = segment_out;

// Parameters that are in and out, by their place.
constexpr unsigned first = 1U << 0;
constexpr unsigned second = 1U << 1;
constexpr unsigned third = 1U << 2;
constexpr unsigned fourth = 1U << 3;

std::vector<Call> segment_calls() {
    return {
        mixed_row<h053_>({1, 1}, {1}),
        mixed_row<ARC_SPLINE_init_1_seg_2d>({}, {out}),
        mixed_row<ARC_SPLINE_copy_1_seg_2d_pre_allocated>({in}, {out}),
        mixed_row<ARC_SPLINE_cre_strt_seg_2d, second>({2, 2, 2}, {2, out}),
        mixed_row<ARC_SPLINE_cre_arc_seg_2d>({2, 2, 1, 1, 1}, {out, 2, 2}),
        mixed_row<ARC_SPLINE_cre_single_point_circle_2d>({2}, {out}),
        mixed_row<ARC_SPLINE_cre_circle_from_center_and_radius_2d>({2, 1}, {out}),
        mixed_row<ARC_SPLINE_cre_circle_from_point_tangent_radius_2d>({2, 2, 1, 1}, {out}),
        mixed_row<ARC_SPLINE_cre_offset_circle_2d>({in, 1, 1}, {out}),
        mixed_row<ARC_SPLINE_cre_offset_straight_2d>({in, 1}, {out}),
        mixed_row<ARC_SPLINE_evaluate_1_seg_2d>({in, 1, 1}, {2, 2, 2}),
        mixed_row<ARC_SPLINE_evaluate_arc_seg_2d>({in, 1, 1}, {2, 2, 2}),
        mixed_row<ARC_SPLINE_evaluate_strt_seg_2d>({in, 1}, {2, 2, 2}),
        mixed_row<ARC_SPLINE_ask_arcl_of_1_seg_2d>({in}, {2}),
        mixed_row<ARC_SPLINE_ask_arcl_to_parm_of_1_seg_2d>({in, 1}, {2}),
        mixed_row<ARC_SPLINE_ask_arcl_of_trimmed_1_seg_2d, second>({in, 2}, {2, 2}),
        mixed_row<ARC_SPLINE_ask_radius_of_1_seg_2d>({in}),
        mixed_row<ARC_SPLINE_ask_central_angle_of_1_seg_2d, first>({in}, {out}),
        mixed_row<ARC_SPLINE_ask_central_angle_from_inclination_angles, second>({1, 2, 1}, {2}),
        mixed_row<ARC_SPLINE_ask_center_radius_of_seg_2d>({in}, {2, 1, 2, 2}),
        mixed_row<ARC_SPLINE_ask_end_pts_of_1_seg_2d>({in}, {2, 2, 2, 2, 2}),
        mixed_row<ARC_SPLINE_ask_1_seg_2d_data>({in, 1}, {2, 2, 2, 1, 1, 2, 2, 2, 2, 2, 2, 2}),
        mixed_row<ARC_SPLINE_ask_is_arc_rather_strt_2d, first>({in, 3}, {out, 2}),
        mixed_row<ARC_SPLINE_ask_perp_vec>({1, 2}, {2}),
        row<ARC_SPLINE_ask_angle_from_tan, 180>({1, 1}),
        row<ARC_SPLINE_ask_angle_from_tan, 90>({1, 1}),
        mixed_row<ARC_SPLINE_reverse_parm_of_1_seg_2d, first>({in}, {out}),
        mixed_row<ARC_SPLINE_reverse_parm_of_strt_2d, first>({in}, {out}),
        mixed_row<ARC_SPLINE_reverse_parm_of_arc_2d, first>({in}, {out}),
        mixed_row<ARC_SPLINE_ask_parm_at_a_point_2d>({in, 2, 3}, {2, 1, 2, 2}),
        mixed_row<ARC_SPLINE_ask_dist_pt_to_1_seg_2d>({in, 2, 1, 3}, {2, 1, 1, 2}),
        mixed_row<ARC_SPLINE_ask_is_parm_in_arc_domain, third>({in, 1, 2}, {2}),
    };
}

std::vector<Call> primitive_calls() {
    return {
        mixed_row<ARC_SPLINE_ask_inclination_angle_from_tan_2d>({2}),
        mixed_row<ARC_SPLINE_ask_tan_2d_from_inclination_angle>({1}, {2}),
        mixed_row<ARC_SPLINE_ask_angle_between_vectors_2d>({2, 2, 1}),
        mixed_row<ARC_SPLINE_ask_interior_angle_of_triangle_2d>({2, 2, 2, 2, 1}, {2}),
        mixed_row<ARC_SPLINE_ask_central_angle_between_tangents_2d>({2, 2}, {2}),
        mixed_row<ARC_SPLINE_ask_min_central_angle>({1, 1}),
        mixed_row<ARC_SPLINE_ask_power_of_a_point_2d>({2, in}),
        mixed_row<ARC_SPLINE_ask_power_of_a_point_3d>({3, 3, 1}),
        mixed_row<ARC_SPLINE_ask_where_is_pt_wrt_circle_2d>({2, in, 1}),
        mixed_row<ARC_SPLINE_ask_where_is_circle_wrt_circle_2d>({in, in, 1}),
        mixed_row<ARC_SPLINE_ask_radical_axis_of_2_circles_2d>({in, in}, {2, 2, 2, 2}),
        mixed_row<ARC_SPLINE_ask_dist_pt_to_line_2d>({2, 2, 2, 1}, {2, 1, 2}),
        mixed_row<ARC_SPLINE_ask_dist_pt_to_line_seg_2d>({2, 2, 2, 1, 1}, {2, 1, 2}),
        mixed_row<ARC_SPLINE_mirror_point_wrt_line_2d>({2, 2, 2, 1}, {2, 2}),
        mixed_row<ARC_SPLINE_inter_line_line_2d, 1U << 4 | 1U << 5>({2, 2, 2, 1, 2, 2},
                                                                    {2, 2, 2, 2, 1, 2}),
        mixed_row<ARC_SPLINE_re_order_3pts_2d, second | third | fourth>({1, 2, 2, 2}, {2, 2, 2, 2}),
        copying("ARC_SPLINE_re_order_3pts_3d", {1, 9}, {9},
                [](In from, Out to) -> double {
                    int status = 0;
                    std::copy_n(from[1], 9, to[0]);
                    ARC_SPLINE_re_order_3pts_3d(*from[0], to[0], to[0] + 3, to[0] + 6, &status);
                    return status;
                }),
        mixed_row<ARC_SPLINE_ask_3pts_collinearity_2d>({2, 2, 2, 2, 1}, {2}),
        mixed_row<ARC_SPLINE_ask_3pts_collinearity_3d>({3, 3, 3, 2, 1}, {2}),
        mixed_row<ARC_SPLINE_ask_sign_of_var>({1, 1}),
        mixed_row<ARC_SPLINE_solve_quadratic_eqt>({1, 1, 1, 1}, {2, 2}),
        mixed_row<ARC_SPLINE_trig_eqt_linear_sin_cos>({1, 1, 1, 1, 1, 1}, {2, 2, 2}),
        mixed_row<ARC_SPLINE_ask_is_pair_in_order>({1, 1, 1}),
        mixed_row<ARC_SPLINE_ask_is_parm_in_interval>({1, 1, 1, 1}),
        {"ARC_SPLINE_ask_are_two_rays_homodromic_2d",
         {2, 2, 2, 2, 2},
         {2, 2, 2},
         [](In from, Out to) -> double {
             std::copy_n(from[1], 2, to[0]);
             std::copy_n(from[3], 2, to[1]);
             int status = 0;
             return ARC_SPLINE_ask_are_two_rays_homodromic_2d(from[0], to[0], from[2], to[1], 0, 1,
                                                              from[4], to[2], &status) +
                    10 * status;
         },
         nullptr,
         false},
        mixed_row<ARC_SPLINE_ask_isosceles_to_pt_2d, second | fourth>({2, 2, 2, 2, 1, 2},
                                                                      {2, 2, 2, 2, 2, 2, 2, 2}),
        mixed_row<ARC_SPLINE_ask_bisector_of_angle_2d, second | fourth>({2, 2, 2, 2, 1, 2},
                                                                        {2, 2, 2, 2, 2}),
        mixed_row<ARC_SPLINE_ask_convexities_of_tri_arc_2d, second | fourth>({2, 2, 2, 2, 1, 2},
                                                                             {2, 2, 2, 2, 2}),
        mixed_row<ARC_SPLINE_ask_inscribed_angle_and_type>({3, 3, 3, 1, 1}, {1, 1, 2}),
        mixed_row<ARC_SPLINE_ask_bisector_of_inscribed_angle>({3, 3, 3, 1, 1}, {3, 1, 2, 2}),
        mixed_row<ARC_SPLINE_ask_bisector_of_polygon_angle>({3, 3, 3, 3, 1}, {3, 1, 2, 2}),
    };
}

std::vector<Call> construction_calls() {
    return {
        mixed_row<ARC_SPLINE_trim_to_point_1_seg_2d, third>({2, 2, in}, {out, 2}),
        mixed_row<ARC_SPLINE_cre_circle_thru_3_points_2d>({2, 2, 2, 2}, {out, 2}),
        mixed_row<ARC_SPLINE_cre_circle_thru_2_points_and_radius>({2, 2, 1, 1, 2},
                                                                  {2, out, out, 2}),
        mixed_row<ARC_SPLINE_cre_circle_thru_2_points_tangent_to_line>({2, 2, 2, 2, 2},
                                                                       {2, out, out, 2}),
        mixed_row<ARC_SPLINE_cre_circle_thru_pt_and_tangent_to_line_at_pt_2d>({2, 2, 2, 2},
                                                                              {out, 2}),
        mixed_row<ARC_SPLINE_cre_circle_from_chord_end_data_2d>({2, 2, 2, 2, 1, 2}, {out, 2}),
        mixed_row<ARC_SPLINE_cre_arc_from_ray_to_ray_2d, second | fourth>({2, 2, 2, 2, 1, 2},
                                                                          {2, 2, out, 2}),
    };
}

std::vector<Call> tangent_calls() {
    return {
        mixed_row<ARC_SPLINE_cre_circle_thru_2_points_tangent_to_circle>({2, 2, in, 2},
                                                                         {2, out, out, 2}),
        mixed_row<ARC_SPLINE_cre_circle_thru_2_points_tangent_to_circle_2>({2, 2, in, 2},
                                                                           {2, out, out, 2}),
        mixed_row<ARC_SPLINE_cre_circle_tangent_to_circle_and_line_at_pt_2d>({in, in, 2, 2},
                                                                             {2, out, out, 2}),
        mixed_row<ARC_SPLINE_cre_circle_tangent_to_line_and_line_at_pt_2d>({in, in, 2, 2},
                                                                           {2, out, out, 2}),
        mixed_row<ARC_SPLINE_cre_circle_at_angle_to_c_tangent_to_l_at_pt_2d>({in, in, 2, 1, 2},
                                                                             {2, out, out, 2}),
        mixed_row<ARC_SPLINE_cre_circle_tangent_to_2_circles_and_a_pt>({in, in, 2, 2}, {2, out, 2}),
        mixed_row<ARC_SPLINE_cre_circle_tangent_to_2_circles_and_given_radius_2d>({in, in, 1, 2},
                                                                                  {2, out, 2}),
        mixed_row<ARC_SPLINE_cre_circle_tangent_to_3_circles>({in, in, in, 2}, {2, out, 2}),
    };
}

}  // namespace

std::vector<Call> arc_spline_calls() {
    std::vector<Call> calls;
    for (const auto rows : {segment_calls, primitive_calls, construction_calls, tangent_calls}) {
        const std::vector<Call> more = rows();
        calls.insert(calls.end(), more.begin(), more.end());
    }
    return calls;
}

}  // namespace ztmath_test
