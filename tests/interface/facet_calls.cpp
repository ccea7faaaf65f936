// Facet utilities, and triangles of polygons.
#include "interface/row.h"

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

void prepare_weights(Random&, Arrays& inputs) {
    inputs[1] = {1e-3, 1.0};
}

void prepare_distances(Random&, Arrays& inputs) {
    for (double& distance : inputs[0])
        distance = std::fabs(distance);
}

constexpr int size = 24;

/// Around the origin, dimension by dimension: a star, so that it can be filled.
template <std::size_t dimension>
void make_star(Random&, Arrays& inputs) {
    for (std::size_t i = 0; i < size; ++i) {
        double* const p = &inputs[0][dimension * i];
        const double radius = 1.0 + std::fabs(p[0]);
        p[0] = radius * std::cos(2 * M_PI * static_cast<double>(i) / size);
        p[1] = radius * std::sin(2 * M_PI * static_cast<double>(i) / size);
    }
}

double fill(In in, Out out) {
    int count = -1;
    PTF_triangle_t* triangles;
    PTF_vertex_edge_t* edges;
    PTF_neighbor_list_t* lists;
    const int status = PTF_poly_tri_fill(size, in[0], &count, &triangles, &edges, &lists);
    std::fill_n(out[0], 7 * size, 0.0);
    for (int t = 0; t < count; ++t)
        std::copy_n(&triangles[t].a, 6, out[0] + 7 * t);
    for (int i = 0; i < size && status == 0; ++i)
        out[0][7 * i + 6] = 100 * edges[i].edge + edges[i].triangle + 1e4 * lists[i].num_neighbors;
    PTF_free_output(size, triangles, lists, edges);
    return 100 * status + count;
}

double clipped(In in, Out out) {
    int triangles[3 * size - 6] = {};
    FACET_ask_triangles_of_polygon(size, in[0], in[1], triangles);
    std::copy(std::begin(triangles), std::end(triangles), out[0]);
    return 0.0;
}

std::vector<Call> other_rows() {
    constexpr std::size_t numbers = 12 * facet_count;
    return {
        row<FACET_points_to_param_line, 1>({3, 3}, {6}),
        row<FACET_line_int_plane>({3, 3, 3, 1}, {3, 1}),
        row<FACET_line_line_closest_point>({3, 3, 3, 3}, {1, 1}),
        row<FACET_point_line_proj, 0>({3, 3, 3}, {3, 1}),
        row<FACET_shepards_weights, 12>({12, 1, 1}, {12}, prepare_distances),
        {"FACET_interp_normal_at_vertex", {numbers, 2}, {3}, vertex_normal<0>, prepare_weights},
        {"FACET_interp_normal_at_vertex", {numbers, 2}, {3}, vertex_normal<1>, prepare_weights},
        {"PTF_poly_tri_fill", {2 * size}, {7 * size}, fill, make_star<2>},
        row<PTF_validate_boundary, size>({2 * size}, {}, make_star<2>),
        {"FACET_ask_triangles_of_polygon", {3 * size, 3}, {3 * size - 6}, clipped, make_star<3>},
    };
}

}  // namespace

std::vector<Call> facet_calls() {
    return joined({
        rows_of<3, FACET_point_on_param_line, FACET_point_plane_dist, FACET_point_plane_proj,
                FACET_line_point_dist, FACET_line_line_dist, FACET_compute_undirected_angle,
                FACET_plane_plane_int, FACET_ask_point_on_plane, FACET_ask_triangle_area>(),
        other_rows(),
    });
}

}  // namespace ztmath_test
