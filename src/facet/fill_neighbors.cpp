#include "facet/fill_neighbors.h"

#include <algorithm>
#include <cstdlib>

namespace ztmath {

namespace {

constexpr Module module_part = ptf_module.part(1);

bool holds(const PTF_neighbor_list_t& list, int vertex) {
    const int* const end = list.neighbors + list.num_neighbors;
    return std::find(static_cast<const int*>(list.neighbors), end, vertex) != end;
}

}  // namespace

void free_neighbor_lists(int n, PTF_neighbor_list_t* lists) {
    if (lists == nullptr) return;
    for (int i = 0; i < n; ++i) {
        SM_free(lists[i].neighbors);
        lists[i] = {};
    }
    SM_free(lists);
}

// The first constructor done, the destructor gives back what the loop has made.
NeighborLists::NeighborLists(int n) : NeighborLists(n, Zeroed{}) {
    for (int i = 0; i < n; ++i) {
        SmArray<int> neighbors(n);
        std::fill_n(neighbors.data(), n, -1);
        lists_[i].neighbors = neighbors.release();
    }
}

void NeighborLists::add(const PTF_triangle_t& triangle) {
    join(triangle.a, triangle.b);
    join(triangle.b, triangle.c);
    join(triangle.a, triangle.c);
}

void NeighborLists::join(int i, int j) {
    const int apart = std::abs(i - j);
    if (apart <= 1 || apart >= n_ - 1) return;
    PTF_neighbor_list_t& list1 = lists_[i];
    PTF_neighbor_list_t& list2 = lists_[j];
    const bool first_is_shorter = list1.num_neighbors <= list2.num_neighbors;
    if (first_is_shorter ? holds(list1, j) : holds(list2, i)) return;
    ZTMATH_ASSERT(module_part, "neighbor1_p->num_neighbors < num_pts", list1.num_neighbors < n_);
    ZTMATH_ASSERT(module_part, "neighbor2_p->num_neighbors < num_pts", list2.num_neighbors < n_);
    list1.neighbors[list1.num_neighbors++] = j;
    list2.neighbors[list2.num_neighbors++] = i;
}

void set_vertex_edges(const PTF_triangle_t& triangle, int t, PTF_vertex_edge_t* edges) {
    if (triangle.across_bc == -1) edges[triangle.b] = {t, 1};
    if (triangle.across_ca == -1) edges[triangle.c] = {t, 2};
    if (triangle.across_ab == -1) edges[triangle.a] = {t, 3};
}

}  // namespace ztmath
