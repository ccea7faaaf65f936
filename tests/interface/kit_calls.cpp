// Vectors, matrices and transforms, predicates on points, planes, boxes and frames.
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
        rows_of<0, prepare_axes, MTX3_init, MTX3_init_y_z, MTX3_init_x_y_z, MTX4_csys_to_csys>(),
        rows_of<0, prepare_plane_axes, MTX2_init>(),
        rows_of<0, prepare_rotations, MTX3_ask_roll_pitch_yaw, MTX3_is_ortho_normal, MTX3_is_equal,
                MTX3_is_identity, MTX3_multiply, MTX3_multiply_t, MC_calc_csys_to_csys_transform,
                MTX4_is_ortho_normal, MTX4_is_equal, MTX4_is_identity, MTX4_is_equal_transform,
                CSYS_map_csys>(),
        rows_of<first, prepare_rotations, MTX4_ortho_normalize, MTX4_fixup>(),
        rows_of<first, prepare_drifted, MTX3_ortho_normalize>(),
        rows_of<first, nullptr, MC_v_unit>(),
        rows_of<second, nullptr, BOX3_expand_with_box>(),
        {row<MTX3_ask_all_roll_pitch_yaw>({9}, {2, 24}, prepare_rotations),
         row<VEC2_ask_shortest_vector, 5>({10}), row<PNT3_ask_closest_point, 4>({3, 3, 12}, {3}),
         row<DGEOM_srf_curvatures, 1>({3, 3, 3, 3, 3}, {7})},
    });
}

}  // namespace ztmath_test
