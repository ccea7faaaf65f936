// Facet utilities.
#include <algorithm>
#include <cmath>

#include "interface/table.h"
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
    inputs[1] = {1e-9, 2.0};
}

}  // namespace

std::vector<Call> facet_calls() {
    return {
        {"FACET_points_to_param_line",
         {3, 3},
         {6},
         [](In in, Out out) {
             FACET_points_to_param_line(in[0], in[1], 1, out[0]);
             return 0.0;
         }},
        {"FACET_point_on_param_line",
         {3, 3, 1},
         {3},
         [](In in, Out out) {
             FACET_point_on_param_line(in[0], in[1], *in[2], out[0]);
             return 0.0;
         }},
        {"FACET_line_int_plane",
         {3, 3, 3, 1},
         {3, 1},
         [](In in, Out out) -> double {
             return FACET_line_int_plane(in[0], in[1], in[2], *in[3], out[0], out[1]);
         }},
        {"FACET_point_plane_dist",
         {3, 3, 1},
         {},
         [](In in, Out) { return FACET_point_plane_dist(in[0], in[1], *in[2]); }},
        {"FACET_point_plane_proj",
         {3, 3, 1},
         {3},
         [](In in, Out out) -> double {
             return FACET_point_plane_proj(in[0], in[1], *in[2], out[0]);
         }},
        {"FACET_line_line_closest_point",
         {3, 3, 3, 3},
         {1, 1},
         [](In in, Out out) {
             FACET_line_line_closest_point(in[0], in[1], in[2], in[3], out[0], out[1]);
             return 0.0;
         }},
        {"FACET_line_point_dist",
         {3, 3, 3},
         {},
         [](In in, Out) { return FACET_line_point_dist(in[0], in[1], in[2]); }},
        {"FACET_line_line_dist",
         {3, 3, 3, 3},
         {},
         [](In in, Out) { return FACET_line_line_dist(in[0], in[1], in[2], in[3]); }},
        {"FACET_point_line_proj",
         {3, 3, 3},
         {3, 1},
         [](In in, Out out) {
             FACET_point_line_proj(in[0], in[1], in[2], 0, out[0], out[1]);
             return 0.0;
         }},
        {"FACET_compute_undirected_angle",
         {3, 3},
         {},
         [](In in, Out) { return FACET_compute_undirected_angle(in[0], in[1]); }},
        {"FACET_plane_plane_int",
         {3, 1, 3, 1},
         {3, 3},
         [](In in, Out out) -> double {
             return FACET_plane_plane_int(in[0], *in[1], in[2], *in[3], out[0], out[1]);
         }},
        {"FACET_ask_point_on_plane",
         {3, 1},
         {3},
         [](In in, Out out) {
             FACET_ask_point_on_plane(in[0], *in[1], out[0]);
             return 0.0;
         }},
        {"FACET_ask_triangle_area",
         {3, 3, 3},
         {},
         [](In in, Out) { return FACET_ask_triangle_area(in[0], in[1], in[2]); }},
        {"FACET_shepards_weights",
         {12, 2},
         {12},
         [](In in, Out out) {
             FACET_shepards_weights(12, in[0], in[1][0], in[1][1], out[0]);
             return 0.0;
         },
         prepare_distances},
        {"FACET_interp_normal_at_vertex",
         {12 * facet_count, 2},
         {3},
         vertex_normal<0>,
         prepare_parameters,
         false},
        {"FACET_interp_normal_at_vertex",
         {12 * facet_count, 2},
         {3},
         vertex_normal<1>,
         prepare_parameters,
         false},
    };
}

}  // namespace ztmath_test
