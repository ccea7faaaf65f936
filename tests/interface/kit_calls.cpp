// Vectors and rotation matrices.
#include "interface/row.h"
#include "ztmath/mtx3.h"
#include "ztmath/vec2.h"
#include "ztmath/vec3.h"

namespace ztmath_test {

namespace {

/// Makes arrays of three the axes of a rotation, stretched.
void prepare_axes(Random& random, Arrays& inputs) {
    const Matrix r = random_rotation(random);
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        const double stretch = random.uniform(0.5, 3);
        for (std::size_t k = 0; k < 3; ++k)
            inputs[i][k] = r[3 * i + k] * stretch;
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
    return {
        row<VEC2_unitize>({2, 1}, {1, 2}),
        row<VEC2_is_parallel>({2, 2, 1}),
        row<VEC2_is_perpendicular>({2, 2, 1}),
        row<VEC2_ask_perpendicular>({2}, {2}),
        row<VEC2_components>({2, 2, 2, 1}, {1, 1}),
        row<VEC2_ask_shortest_vector, 5>({10}),
        row<VEC3_unitize>({3, 1}, {1, 3}),
        row<VEC3_is_parallel>({3, 3, 1}),
        row<VEC3_is_perpendicular>({3, 3, 1}),
        row<VEC3_ask_perpendicular>({3}, {3}),
        row<VEC3_angle_between>({3, 3, 3}),
        row<VEC3_make_trihedral>({3, 3}, {3, 3, 3}),
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
        row<MTX3_ask_all_roll_pitch_yaw>({9}, {24}, prepare_rotations),
        row<MTX3_is_ortho_normal>({9}, {}, prepare_rotations),
        in_place<MTX3_ortho_normalize, 9>(prepare_drifted),
        row<MTX3_is_equal>({9, 9, 1}, {}, prepare_rotations),
        row<MTX3_is_identity>({9, 1}, {}, prepare_rotations),
        row<MTX3_multiply>({9, 9}, {9}, prepare_rotations),
        row<MTX3_multiply_t>({9, 9}, {9}, prepare_rotations),
    };
}

}  // namespace ztmath_test
