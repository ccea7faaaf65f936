#include "facet/poly_tri_fill.h"

#include <algorithm>

#include "facet/fill_log.h"
#include "facet/fill_neighbors.h"
#include "frame/work_array.h"

namespace ztmath {

namespace {

/// Whether fills are recorded: at entry, and again when they have succeeded.
constexpr bool logs_fills = false;

void log_fill(int n, const double* points) {
    if (logs_fills) write_ansys_log(n, points, 0, nullptr);
}

template <class T>
void clear(T* out) {
    if (out != nullptr) *out = {};
}

PTF_neighbor_list_t* neighbor_lists_of(int n, const PTF_triangle_t* triangles) {
    NeighborLists lists(n);
    for (int t = 0; t < n - 2; ++t)
        lists.add(triangles[t]);
    return lists.release();
}

void find_vertex_edges(int n, const PTF_triangle_t* triangles, PTF_vertex_edge_t* edges) {
    std::fill_n(edges, n, PTF_vertex_edge_t{-1, -1});
    for (int t = 0; t < n - 2; ++t)
        set_vertex_edges(triangles[t], t, edges);
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

int PTF_poly_tri_fill(int num_pts, const double* points, int* num_tris, PTF_triangle_t** triangles,
                      PTF_vertex_edge_t** vertex_edges, PTF_neighbor_list_t** neighbor_lists) {
    clear(num_tris);
    clear(triangles);
    clear(vertex_edges);
    clear(neighbor_lists);
    log_fill(num_pts, points);
    if (num_pts < 3) return 2;
    SmArray<PTF_triangle_t> filled(num_pts - 2);
    if (!fill_polygon(num_pts, points, filled.data())) return 1;

    SmArray<PTF_vertex_edge_t> edges(vertex_edges != nullptr ? num_pts : 0);
    if (vertex_edges != nullptr) find_vertex_edges(num_pts, filled.data(), edges.data());
    if (neighbor_lists != nullptr) *neighbor_lists = neighbor_lists_of(num_pts, filled.data());
    if (vertex_edges != nullptr) *vertex_edges = edges.release();
    if (triangles != nullptr) *triangles = filled.release();
    if (num_tris != nullptr) *num_tris = num_pts - 2;
    log_fill(num_pts, points);
    return 0;
}

int PTF_validate_boundary(int num_pts, const double* points) {
    return PTF_poly_tri_fill(num_pts, points, nullptr, nullptr, nullptr, nullptr) == 0;
}

void PTF_free_output(int num_pts, PTF_triangle_t* triangles, PTF_neighbor_list_t* neighbor_lists,
                     PTF_vertex_edge_t* vertex_edges) {
    free_neighbor_lists(num_pts, neighbor_lists);
    SM_free(triangles);
    SM_free(vertex_edges);
}
