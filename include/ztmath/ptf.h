/*
 * ptf.h - the triangle fill of a polygon of the plane.
 *
 * A polygon is its vertices, x and y of each, counter-clockwise; the edge from the last vertex to
 * the first closes it, and the first vertex is not repeated. It should be simple: an outline that
 * touches or crosses itself may or may not be filled, and what fills it may overlap.
 *
 * The fill has n - 2 triangles, whose corners are vertices of the polygon. On each edge in turn it
 * prefers the triangle whose circumcircle holds no other vertex that can be seen from the edge, so
 * that, but for ties, it is the constrained Delaunay triangulation (Lee and Lin, 1986) of the
 * polygon. On real outlines time grows little faster than n, and memory, but for the lists of
 * neighbours, with n. Thousands of teeth along one straight edge, as of a rack, take time that grows
 * with n squared; so may outlines that are not simple.
 *
 * Triangles with twice an area of at most 1e-10 count as degenerate, and points are told apart to
 * about 1e-10: polygons far smaller than a millimetre, or far larger than a kilometre, should be
 * scaled. Blocks are handed out to be given back with PTF_free_output. With the checking level
 * above 0, failed assertions are reported by module "ptf_poly_tri_fill".
 */
#ifndef ZTMATH_PTF_H
#define ZTMATH_PTF_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/* A triangle: its corners, counter-clockwise, and the triangles across its edges, -1 across an edge
 * of the polygon. */
typedef struct {
    int a, b, c;
    int across_bc, across_ca, across_ab;
} PTF_triangle_t;

/* The triangle at the polygon's edge that leaves a vertex, and which edge of that triangle it is:
 * 1 for (b, c), 2 for (c, a), 3 for (a, b). */
typedef struct {
    int triangle, edge;
} PTF_vertex_edge_t;

/* The vertices that diagonals join to a vertex, each once, in the order found. The array has room
 * for as many as the polygon has vertices; what is not used holds -1. */
typedef struct {
    int num_neighbors;
    int *neighbors;
} PTF_neighbor_list_t;

/*
 * Fills a polygon with triangles. Any output may be null, and is then not made.
 *
 * num_pts         number of vertices
 * points          x, y of each (2 * num_pts)
 * num_tris        out: num_pts - 2
 * triangles       out: block of num_pts - 2 triangles. A part of the polygon stands before what
 *                 it leaves: first the triangle on the edge from the last vertex to the first,
 *                 then what fills the part up to its apex, then what fills the part behind it
 * vertex_edges    out: block of one record for each vertex
 * neighbor_lists  out: block of one record for each vertex, each with an array of num_pts ints of
 *                 its own: memory that grows with the square of num_pts
 *
 * Outputs are zero and null unless the polygon is filled.
 *
 * Returns 0; 1 if the polygon cannot be filled, as when it is clockwise or degenerate; 2 if it has
 * fewer than three vertices. Asserts "(*itri) < num_tris", "neighbor1_p->num_neighbors < num_pts"
 * and "neighbor2_p->num_neighbors < num_pts".
 */
ZTMATH_API int PTF_poly_tri_fill(int num_pts, const double *points, int *num_tris,
                                 PTF_triangle_t **triangles, PTF_vertex_edge_t **vertex_edges,
                                 PTF_neighbor_list_t **neighbor_lists);

/* Whether PTF_poly_tri_fill can fill a polygon: 1 or 0. */
ZTMATH_API int PTF_validate_boundary(int num_pts, const double *points);

/*
 * Gives back what PTF_poly_tri_fill handed out. Any of the blocks may be null.
 *
 * num_pts         number of vertices, as it was passed to PTF_poly_tri_fill
 * neighbor_lists  its records are cleared and their arrays given back, then the block itself
 */
ZTMATH_API void PTF_free_output(int num_pts, PTF_triangle_t *triangles,
                                PTF_neighbor_list_t *neighbor_lists,
                                PTF_vertex_edge_t *vertex_edges);

ZTMATH_END_DECLS

#endif
