// Arcs and straights, circles as points of space, planes, rotations.
#include "interface/row.h"

namespace ztmath_test {

namespace {

/// Unit normals for the second and fourth array.
void prepare_normals(Random& random, Arrays& inputs) {
    const Matrix r = random_rotation(random);
    std::copy_n(r.begin(), 3, inputs[1].begin());
    std::copy_n(r.begin() + 3, 3, inputs[3].begin());
}

}  // namespace

std::vector<Call> arc_spline_calls() {
    return joined({
        rows_of<first, nullptr, ARC_SPLINE_ask_central_angle_of_1_seg_2d,
                ARC_SPLINE_ask_is_arc_rather_strt_2d, ARC_SPLINE_reverse_parm_of_1_seg_2d,
                ARC_SPLINE_reverse_parm_of_strt_2d, ARC_SPLINE_reverse_parm_of_arc_2d,
                ARC_SPLINE_normalize_monge_plane>(),
        rows_of<second, nullptr, ARC_SPLINE_cre_strt_seg_2d,
                ARC_SPLINE_ask_arcl_of_trimmed_1_seg_2d,
                ARC_SPLINE_ask_central_angle_from_inclination_angles>(),
        rows_of<third, nullptr, ARC_SPLINE_ask_is_parm_in_arc_domain,
                ARC_SPLINE_trim_to_point_1_seg_2d, ARC_SPLINE_adjust_pt_on_pln,
                ARC_SPLINE_adjust_vec_on_pln>(),
        rows_of<second | fourth, nullptr, ARC_SPLINE_ask_are_two_rays_homodromic_2d,
                ARC_SPLINE_ask_isosceles_to_pt_2d, ARC_SPLINE_ask_bisector_of_angle_2d,
                ARC_SPLINE_ask_convexities_of_tri_arc_2d, ARC_SPLINE_cre_arc_from_ray_to_ray_2d>(),
        rows_of<second | third | fourth, nullptr, ARC_SPLINE_re_order_3pts_2d,
                ARC_SPLINE_re_order_3pts_3d>(),
        rows_of<fifth | sixth, nullptr, ARC_SPLINE_inter_line_line_2d>(),
        {row<h053_>({1, 1}, {1}), row<h634_>({3, 3, 3, 3, 1, 1}, {3, 3, 2}, prepare_normals),
         row<ARC_SPLINE_ask_angle_from_tan, 180>(), row<ARC_SPLINE_ask_angle_from_tan, 90>()},
    });
}

}  // namespace ztmath_test
