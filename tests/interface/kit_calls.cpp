// Vectors and rotation matrices.
#include <algorithm>

#include "interface/table.h"
#include "support/rotation.h"
#include "ztmath/mtx3.h"
#include "ztmath/vec2.h"
#include "ztmath/vec3.h"

namespace ztmath_test {

namespace {

/// Makes every array of nine a rotation.
void prepare_rotations(Random& random, Arrays& inputs) {
    for (auto& array : inputs)
        if (array.size() == 9) {
            const Matrix r = random_rotation(random);
            array.assign(r.begin(), r.end());
        }
}

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

double repaired(In in, Out out) {
    std::copy_n(in[0], 9, out[0]);
    return MTX3_ortho_normalize(out[0]);
}

double all_angles(In in, Out out) {
    int count = -1;
    MTX3_ask_all_roll_pitch_yaw(in[0], &count, out[0]);
    return count;
}

}  // namespace

std::vector<Call> kit_calls() {
    return {
        {"VEC2_unitize",
         {2, 1},
         {1, 2},
         [](In in, Out out) -> double { return VEC2_unitize(in[0], *in[1], out[0], out[1]); }},
        {"VEC2_is_parallel",
         {2, 2, 1},
         {},
         [](In in, Out) -> double { return VEC2_is_parallel(in[0], in[1], *in[2]); }},
        {"VEC2_is_perpendicular",
         {2, 2, 1},
         {},
         [](In in, Out) -> double { return VEC2_is_perpendicular(in[0], in[1], *in[2]); }},
        {"VEC2_ask_perpendicular",
         {2},
         {2},
         [](In in, Out out) -> double { return VEC2_ask_perpendicular(in[0], out[0]); }},
        {"VEC2_components",
         {2, 2, 2, 1},
         {1, 1},
         [](In in, Out out) -> double {
             return VEC2_components(in[0], in[1], in[2], *in[3], out[0], out[1]);
         }},
        {"VEC2_ask_shortest_vector",
         {10},
         {},
         [](In in, Out) -> double { return VEC2_ask_shortest_vector(5, in[0]); }},
        {"VEC3_unitize",
         {3, 1},
         {1, 3},
         [](In in, Out out) -> double { return VEC3_unitize(in[0], *in[1], out[0], out[1]); }},
        {"VEC3_is_parallel",
         {3, 3, 1},
         {},
         [](In in, Out) -> double { return VEC3_is_parallel(in[0], in[1], *in[2]); }},
        {"VEC3_is_perpendicular",
         {3, 3, 1},
         {},
         [](In in, Out) -> double { return VEC3_is_perpendicular(in[0], in[1], *in[2]); }},
        {"VEC3_ask_perpendicular",
         {3},
         {3},
         [](In in, Out out) -> double { return VEC3_ask_perpendicular(in[0], out[0]); }},
        {"VEC3_angle_between",
         {3, 3, 3},
         {},
         [](In in, Out) -> double { return VEC3_angle_between(in[0], in[1], in[2]); }},
        {"VEC3_make_trihedral",
         {3, 3},
         {3, 3, 3},
         [](In in, Out out) -> double {
             VEC3_make_trihedral(in[0], in[1], out[0], out[1], out[2]);
             return 0;
         }},
        {"MTX2_init",
         {2, 2},
         {4},
         [](In in, Out out) -> double { return MTX2_init(in[0], in[1], out[0]); },
         prepare_plane_axes},
        {"MTX3_init",
         {3, 3},
         {9},
         [](In in, Out out) -> double { return MTX3_init(in[0], in[1], out[0]); },
         prepare_axes},
        {"MTX3_init_y_z",
         {3, 3},
         {9},
         [](In in, Out out) -> double { return MTX3_init_y_z(in[0], in[1], out[0]); },
         prepare_axes},
        {"MTX3_init_x_y_z",
         {3, 3, 3},
         {9},
         [](In in, Out out) -> double { return MTX3_init_x_y_z(in[0], in[1], in[2], out[0]); },
         prepare_axes},
        {"MTX3_init_x",
         {3},
         {9},
         [](In in, Out out) -> double { return MTX3_init_x(in[0], out[0]); }},
        {"MTX3_init_z",
         {3},
         {9},
         [](In in, Out out) -> double { return MTX3_init_z(in[0], out[0]); }},
        {"MTX3_init_no_check",
         {3, 3},
         {9},
         [](In in, Out out) -> double {
             MTX3_init_no_check(in[0], in[1], out[0]);
             return 0;
         }},
        {"MTX3_rot_about_axis",
         {1, 3},
         {9},
         [](In in, Out out) -> double {
             MTX3_rot_about_axis(*in[0], in[1], out[0]);
             return 0;
         }},
        {"MTX3_init_roll_pitch_yaw",
         {3},
         {9},
         [](In in, Out out) -> double {
             MTX3_init_roll_pitch_yaw(in[0][0], in[0][1], in[0][2], out[0]);
             return 0;
         }},
        {"MTX3_ask_roll_pitch_yaw",
         {9},
         {1, 1, 1},
         [](In in, Out out) -> double {
             MTX3_ask_roll_pitch_yaw(in[0], out[0], out[1], out[2]);
             return 0;
         },
         prepare_rotations},
        {"MTX3_ask_all_roll_pitch_yaw", {9}, {24}, all_angles, prepare_rotations},
        {"MTX3_is_ortho_normal",
         {9},
         {},
         [](In in, Out) -> double { return MTX3_is_ortho_normal(in[0]); },
         prepare_rotations},
        {"MTX3_ortho_normalize", {9}, {9}, repaired, prepare_drifted, false},
        {"MTX3_is_equal",
         {9, 9, 1},
         {},
         [](In in, Out) -> double { return MTX3_is_equal(in[0], in[1], *in[2]); },
         prepare_rotations},
        {"MTX3_is_identity",
         {9, 1},
         {},
         [](In in, Out) -> double { return MTX3_is_identity(in[0], *in[1]); },
         prepare_rotations},
        {"MTX3_multiply",
         {9, 9},
         {9},
         [](In in, Out out) -> double { return MTX3_multiply(in[0], in[1], out[0]); },
         prepare_rotations},
        {"MTX3_multiply_t",
         {9, 9},
         {9},
         [](In in, Out out) -> double { return MTX3_multiply_t(in[0], in[1], out[0]); },
         prepare_rotations},
    };
}

}  // namespace ztmath_test
