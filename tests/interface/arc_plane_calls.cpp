// Circles as points of space, planes, projections, rotations and maps from vectors.
#include "interface/row.h"
#include "interface/table.h"
#include "support/rotation.h"
#include "ztmath/arc_spline_planes.h"

namespace ztmath_test {

namespace {

using Plane = ARC_SPLINE_monge_plane_t;

Plane plane_of(const double* p) {
    return {{p[0], p[1], p[2]}, p[3], 0};
}

void write(const Plane& plane, double* out) {
    std::copy_n(plane.normal, 3, out);
    out[3] = plane.offset;
    out[4] = plane.normalised;
}

/// A last argument that is a status becomes the result.
template <auto function, std::size_t... i, std::size_t... o>
double with_status(In in, Out out, std::index_sequence<i...>, std::index_sequence<o...>) {
    int status = -9;
    function(in[i]..., out[o]..., &status);
    return status;
}

template <auto function, std::size_t inputs, std::size_t outputs>
double answered(In in, Out out) {
    return with_status<function>(in, out, std::make_index_sequence<inputs>(),
                                 std::make_index_sequence<outputs>());
}

double circle_from_point(In in, Out out) {
    ARC_SPLINE_1_seg_2d_t circle{};
    unsigned char valid = 9;
    ARC_SPLINE_convert_3d_pt_to_circle_2d(in[0], &valid, &circle);
    std::copy_n(circle.center, 2, out[0]);
    out[0][2] = circle.radius;
    return valid;
}

double three_planes(In in, Out out) {
    const Plane planes[] = {plane_of(in[0]), plane_of(in[1]), plane_of(in[2])};
    int status[3];
    ARC_SPLINE_inter_3_monge_planes(planes, planes + 1, planes + 2, in[3], out[0], status,
                                    status + 1, status + 2);
    return 100 * status[0] + 10 * status[1] + status[2];
}

/// Unit normals for the second and fourth array.
void prepare_normals(Random& random, Arrays& inputs) {
    const Matrix r = random_rotation(random);
    std::copy_n(r.begin(), 3, inputs[1].begin());
    std::copy_n(r.begin() + 3, 3, inputs[3].begin());
}

}  // namespace

std::vector<Call> arc_plane_calls() {
    return {
        row<ARC_SPLINE_convert_circle_to_3d_pt>({2, 1}, {3}),
        copying("ARC_SPLINE_convert_3d_pt_to_circle_2d", {3}, {3}, circle_from_point),
        copying("ARC_SPLINE_ask_polar_plane_of_circle", {2, 1}, {5},
                [](In in, Out out) -> double {
                    Plane plane;
                    ARC_SPLINE_ask_polar_plane_of_circle(in[0], *in[1], &plane);
                    write(plane, out[0]);
                    return 0;
                }),
        copying("ARC_SPLINE_copy_monge_plane", {4}, {5},
                [](In in, Out out) -> double {
                    const Plane plane = plane_of(in[0]);
                    Plane copy;
                    ARC_SPLINE_copy_monge_plane(&plane, &copy);
                    write(copy, out[0]);
                    return 0;
                }),
        copying("ARC_SPLINE_normalize_monge_plane", {4}, {5},
                [](In in, Out out) -> double {
                    Plane plane = plane_of(in[0]);
                    ARC_SPLINE_normalize_monge_plane(&plane);
                    write(plane, out[0]);
                    return 0;
                }),
        copying("ARC_SPLINE_ask_pt_and_normal_of_monge_plane", {4}, {3, 3},
                [](In in, Out out) -> double {
                    const Plane plane = plane_of(in[0]);
                    ARC_SPLINE_ask_pt_and_normal_of_monge_plane(&plane, out[0], out[1]);
                    return 0;
                }),
        copying("ARC_SPLINE_inter_2_monge_planes", {4, 4, 2}, {3, 3},
                [](In in, Out out) -> double {
                    const Plane planes[] = {plane_of(in[0]), plane_of(in[1])};
                    int status = -9;
                    ARC_SPLINE_inter_2_monge_planes(planes, planes + 1, in[2], out[0], out[1],
                                                    &status);
                    return status;
                }),
        copying("ARC_SPLINE_inter_3_monge_planes", {4, 4, 4, 2}, {3}, three_planes),
        {"h634_", {3, 3, 3, 3, 1, 1}, {3, 3}, answered<h634_, 6, 2>, prepare_normals},
        row<ARC_SPLINE_proj_pt_to_pln>({3, 3, 3}, {3}),
        copying("ARC_SPLINE_adjust_pt_on_pln", {3, 3, 3}, {3},
                [](In in, Out out) -> double {
                    std::copy_n(in[2], 3, out[0]);
                    ARC_SPLINE_adjust_pt_on_pln(in[0], in[1], out[0]);
                    return 0;
                }),
        row<ARC_SPLINE_proj_vec_to_pln>({3, 3}, {3}),
        copying("ARC_SPLINE_adjust_vec_on_pln", {3, 3}, {3},
                [](In in, Out out) -> double {
                    std::copy_n(in[1], 3, out[0]);
                    return ARC_SPLINE_adjust_vec_on_pln(1, in[0], out[0]);
                }),
        {"ARC_SPLINE_proj_pt_along_vec_on_plane",
         {3, 3, 3, 3, 2},
         {3, 1},
         answered<ARC_SPLINE_proj_pt_along_vec_on_plane, 5, 2>},
        {"ARC_SPLINE_ask_householder_rotation",
         {3, 3},
         {9},
         answered<ARC_SPLINE_ask_householder_rotation, 2, 1>},
        {"ARC_SPLINE_ask_householder_transformation",
         {3, 3},
         {16},
         answered<ARC_SPLINE_ask_householder_transformation, 2, 1>},
        row<ARC_SPLINE_ask_translation_matrix>({3}, {16}),
        row<ARC_SPLINE_combine_translation_matrix>({3, 16}, {16}),
        row<ARC_SPLINE_combine_rotation_translation>({9, 3}, {16}),
        {"ARC_SPLINE_cre_mtx3_from_2_vecs_to_2_vecs",
         {3, 3, 3, 3},
         {9},
         answered<ARC_SPLINE_cre_mtx3_from_2_vecs_to_2_vecs, 4, 1>},
        {"ARC_SPLINE_cre_mtx3_from_3_vecs_to_3_vecs",
         {3, 3, 3, 3, 3, 3},
         {9},
         answered<ARC_SPLINE_cre_mtx3_from_3_vecs_to_3_vecs, 6, 1>},
    };
}

}  // namespace ztmath_test
