// The compact vector kit, 4x4 transforms, and predicates on planes, points, boxes and frames.
#include <algorithm>

#include "interface/row.h"
#include "ztmath/box3.h"
#include "ztmath/csys.h"
#include "ztmath/mc.h"
#include "ztmath/mtx4.h"
#include "ztmath/pln3.h"
#include "ztmath/pnt3.h"

namespace ztmath_test {

namespace {

/// Makes the inputs of MTX4_csys_to_csys origins and axes.
void prepare_axes(Random& random, Arrays& inputs) {
    for (const std::size_t frame : {0, 3}) {
        const Matrix r = random_rotation(random);
        std::copy_n(r.begin(), 3, inputs[frame + 1].begin());
        std::copy_n(r.begin() + 3, 3, inputs[frame + 2].begin());
    }
}

}  // namespace

std::vector<Call> transform_calls() {
    return {
        row<MC_v_copy>({3}, {3}),
        row<MC_AmB>({3, 3}, {3}),
        row<MC_ApB>({3, 3}, {3}),
        row<MC_aA>({1, 3}, {3}),
        row<MC_aApB>({1, 3, 3}, {3}),
        row<MC_AxB>({3, 3}, {3}),
        row<MC_A_dot_B>({3, 3}),
        row<MC_triple_product>({3, 3, 3}),
        row<MC_length>({3}),
        row<MC_length2>({3}),
        row<MC_dist>({3, 3}),
        row<MC_dist2>({3, 3}),
        in_place<MC_v_unit, 3>(),
        row<MC_q_parallel>({3, 3}),
        row<MC_q_perp>({3, 3}),
        row<MC_get_angle>({3, 3}),
        row<MC_perp_vec>({3}, {3}),
        row<MC_determinant>({12}),
        row<MC_solve_3>({12}, {3}),
        row<MC_dist_lines>({3, 3, 3, 3}),
        row<MC_signed_dist_planes>({3, 1, 3, 1}),
        row<MC_signed_dist_plane_axis>({3, 1, 3, 3}),
        row<MC_proj_point_onto_line>({3, 3, 3}, {3}),
        row<MC_perp_from_line_to_point>({3, 3, 3}, {3}),
        row<MC_q_point_on_line>({3, 3, 3}),
        row<MC_proj_point_onto_plane>({3, 3, 1}, {3}),
        row<MC_axis_plane_x>({3, 3, 3, 1}, {3}),
        row<MC_apply_transform_to_vector>({16, 3}, {3}),
        row<MC_apply_transform_to_point>({16, 3}, {3}),
        row<MC_calc_csys_to_csys_transform>({12, 12}, {16}, prepare_rotations),
        row<MTX4_multiply>({16, 16}, {16}),
        row<MTX4_multiply_t>({16, 16}, {16}),
        row<MTX4_is_ortho_normal>({16}, {}, prepare_rotations),
        in_place<MTX4_ortho_normalize, 16>(prepare_rotations),
        in_place<MTX4_fixup, 16>(prepare_rotations),
        row<MTX4_is_equal>({16, 16, 1}, {}, prepare_rotations),
        row<MTX4_is_identity>({16, 1}, {}, prepare_rotations),
        row<MTX4_is_equal_transform>({16, 16, 1, 1, 1}, {}, prepare_rotations),
        row<MTX4_invert>({16}, {16}),
        row<MTX4_scaling>({3, 3}, {16}),
        row<MTX4_rotation>({3, 3, 1}, {16}),
        row<MTX4_mirror>({3, 3}, {16}),
        row<MTX4_csys_to_csys>({3, 3, 3, 3, 3, 3}, {16}, prepare_axes),
        row<PLN3_is_point_on_plane>({6, 3, 1}),
        row<PLN3_is_coincident>({6, 6, 1, 1}),
        row<PLN3_is_equal>({6, 6, 1, 1}),
        row<PLN3_is_segment_intersecting>({6, 3, 3, 1}),
        row<PNT3_is_colinear>({3, 3, 3, 1}),
        row<PNT3_colinear_condition>({3, 3, 3, 1}),
        row<PNT3_ask_closest_point, 4>({3, 3, 12}, {3}),
        in_place<BOX3_expand_with_box, 6, 6>(),
        row<CSYS_map_csys>({12, 12}, {12}, prepare_rotations),
    };
}

}  // namespace ztmath_test
