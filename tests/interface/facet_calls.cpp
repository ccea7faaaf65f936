// Facet utilities, and triangles of polygons.
#include "interface/row.h"
#include "interface/whole_calls.h"

namespace ztmath_test {

namespace {

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

double clipped(In in, Out out) {
    int triangles[3 * size - 6] = {};
    FACET_ask_triangles_of_polygon(size, in[0], in[1], triangles);
    std::copy(std::begin(triangles), std::end(triangles), out[0]);
    return 0.0;
}

}  // namespace

std::vector<Call> facet_calls() {
    constexpr int facets = 40;  // more than work memory holds in place
    return {
        row<FACET_shepards_weights, 12>({12, 1, 1}, {12}, prepare_distances),
        row<vertex_normal, 1, 0, facets, 0>({12 * facets, 2}, {3}, prepare_weights),
        row<vertex_normal, 1, 0, facets, 1>({12 * facets, 2}, {3}, prepare_weights),
        row<filled, size>({2 * size}, {2, 7 * size}, make_star<2>),
        row<PTF_validate_boundary, size>({2 * size}, {}, make_star<2>),
        {"FACET_ask_triangles_of_polygon", {3 * size, 3}, {3 * size - 6}, clipped, make_star<3>},
    };
}

}  // namespace ztmath_test
