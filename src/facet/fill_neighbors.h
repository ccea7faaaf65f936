// What a fill says about each vertex: the vertices joined to it, and the triangle at its edge.
#pragma once

#include "facet/poly_tri_fill.h"
#include "frame/work_array.h"

namespace ztmath {

/// Frees the lists' arrays and clears the records; then the block. It may be null.
void free_neighbor_lists(int n, PTF_neighbor_list_t* lists);

/// One list for each vertex, owned until they are handed over.
class NeighborLists {
  public:
    explicit NeighborLists(int n);
    ~NeighborLists() { free_neighbor_lists(n_, lists_.release()); }
    NeighborLists(const NeighborLists&) = delete;
    NeighborLists& operator=(const NeighborLists&) = delete;

    /// Enters the ends of a triangle's edges in each other's lists; edges of the polygon are passed
    /// over, and what is there already.
    void add(const PTF_triangle_t& triangle);

    PTF_neighbor_list_t* release() { return lists_.release(); }

  private:
    NeighborLists(int n, Zeroed zeroed) : n_(n), lists_(n, zeroed) {}

    void join(int i, int j);

    int n_;
    SmArray<PTF_neighbor_list_t> lists_;
};

/// Enters a triangle at the vertices whose polygon edges it holds.
void set_vertex_edges(const PTF_triangle_t& triangle, int t, PTF_vertex_edge_t* edges);

}  // namespace ztmath
