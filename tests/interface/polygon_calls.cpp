// Triangles of polygons.
#include <algorithm>
#include <cmath>

#include "interface/row.h"
#include "ztmath/facet.h"
#include "ztmath/ptf.h"

namespace ztmath_test {

namespace {

constexpr int size = 24;

/// Around the origin, dimension by dimension: a star, so that it can be filled.
template <std::size_t dimension>
void prepare_star(Random&, Arrays& inputs) {
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

double clip_ears(In in, Out out) {
    int triangles[3 * (size - 2)] = {};
    FACET_ask_triangles_of_polygon(size, in[0], in[1], triangles);
    std::copy(std::begin(triangles), std::end(triangles), out[0]);
    return 0.0;
}

}  // namespace

std::vector<Call> polygon_calls() {
    return {
        copying("PTF_poly_tri_fill", {2 * size}, {7 * size}, fill, prepare_star<2>),
        row<PTF_validate_boundary, size>({2 * size}, {}, prepare_star<2>),
        copying("FACET_ask_triangles_of_polygon", {3 * size, 3}, {3 * (size - 2)}, clip_ears,
                prepare_star<3>),
    };
}

}  // namespace ztmath_test
