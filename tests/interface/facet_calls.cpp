// Facet utilities.
#include <algorithm>
#include <cmath>

#include "interface/row.h"
#include "ztmath/facet.h"

namespace ztmath_test {

namespace {

constexpr std::size_t facet_count = 40;

/// Facets of nine coordinates and a normal each, around the vertex 0.
template <int weight_type>
double vertex_normal(In in, Out out) {
    FACET_facet_t facets[facet_count];
    for (std::size_t i = 0; i < facet_count; ++i) {
        std::copy_n(in[0] + 12 * i, 9, facets[i].vertices[0]);
        std::copy_n(in[0] + 12 * i + 9, 3, facets[i].normal);
        for (std::size_t k = 0; k < 3; ++k)
            facets[i].ids[k] = static_cast<int>((i + k) % 3);
    }
    FACET_interp_normal_at_vertex(1, 0, facet_count, facets, weight_type, in[1], out[0]);
    return 0;
}

void prepare_parameters(Random&, Arrays& inputs) {
    inputs[1] = {1e-3, 1.0};
}

void prepare_distances(Random&, Arrays& inputs) {
    for (double& distance : inputs[0])
        distance = std::fabs(distance);
}

}  // namespace

std::vector<Call> facet_calls() {
    constexpr std::size_t coordinates = 12 * facet_count;
    return {
        row<FACET_points_to_param_line, 1>({3, 3}, {6}),
        row<FACET_point_on_param_line>({3, 3, 1}, {3}),
        row<FACET_line_int_plane>({3, 3, 3, 1}, {3, 1}),
        row<FACET_point_plane_dist>({3, 3, 1}),
        row<FACET_point_plane_proj>({3, 3, 1}, {3}),
        row<FACET_line_line_closest_point>({3, 3, 3, 3}, {1, 1}),
        row<FACET_line_point_dist>({3, 3, 3}),
        row<FACET_line_line_dist>({3, 3, 3, 3}),
        row<FACET_point_line_proj, 0>({3, 3, 3}, {3, 1}),
        row<FACET_compute_undirected_angle>({3, 3}),
        row<FACET_plane_plane_int>({3, 1, 3, 1}, {3, 3}),
        row<FACET_ask_point_on_plane>({3, 1}, {3}),
        row<FACET_ask_triangle_area>({3, 3, 3}),
        row<FACET_shepards_weights, 12>({12, 1, 1}, {12}, prepare_distances),
        copying("FACET_interp_normal_at_vertex", {coordinates, 2}, {3}, vertex_normal<0>,
                prepare_parameters),
        copying("FACET_interp_normal_at_vertex", {coordinates, 2}, {3}, vertex_normal<1>,
                prepare_parameters),
    };
}

}  // namespace ztmath_test
