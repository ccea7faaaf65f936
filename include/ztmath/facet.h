/*
 * facet.h - primitives for faceted geometry: parametric lines, planes, distances, projections and
 * intersections, the area of a triangle, the normal at a vertex where facets meet, and the
 * triangles of a plane polygon.
 *
 * Points and vectors are three doubles. A plane is a unit normal and a double d: its points x have
 * normal . x + d = 0. The normals are taken to be unit and are not unitized, except where said.
 * Lengths are in millimetres, and so are the fixed thresholds; angles are in radians except where
 * degrees are said. Outputs may alias or overlap inputs.
 *
 * Reports are made through ERROR_internal by module "facet_util_math", and only by the last two
 * routines. Besides, directions that are unitized are asserted to be finite, as of VEC3_unitize.
 */
#ifndef ZTMATH_FACET_H
#define ZTMATH_FACET_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/*
 * A parametric line from two points.
 *
 * unitize  1 for a unit direction; one not longer than 1e-5 stays as it is
 * line     out: origin a (3), then the direction b - a (3)
 */
ZTMATH_API void FACET_points_to_param_line(const double a[3], const double b[3], int unitize,
                                           double line[6]);

/* The point origin + t direction. */
ZTMATH_API void FACET_point_on_param_line(const double origin[3], const double direction[3],
                                          double t, double point[3]);

/*
 * Where the line a + t (b - a) meets a plane.
 *
 * point, t  out: the common point and its parameter
 *
 * Returns 0; or 1, with nothing written, when |normal . (b - a)| < 1e-10: the line is parallel to
 * the plane, or a and b are close to each other.
 */
ZTMATH_API int FACET_line_int_plane(const double a[3], const double b[3], const double normal[3],
                                    double d, double point[3], double *t);

/* The signed distance of a point from a plane, positive on the side of the normal. */
ZTMATH_API double FACET_point_plane_dist(const double point[3], const double normal[3], double d);

/*
 * Projects a point into a plane along its normal, which may have any length.
 *
 * Returns 0; or 1, with nothing written, when the squared length of the normal is below 1e-10.
 */
ZTMATH_API int FACET_point_plane_proj(const double p[3], const double normal[3], double d,
                                      double point[3]);

/*
 * Parameters of the points a + s u and b + t v where two lines are closest to each other.
 *
 * s, t  out: for lines that are parallel (the determinant |u|^2 |v|^2 - (u . v)^2 is at most 1e-10)
 *       s is 0 and t belongs to the point closest to a; if |v|^2 is at most 1e-6, t is 0 and s
 *       belongs to the point closest to b; if |u|^2 is too, both are 0. In these cases the
 *       parameter is the right one for unit directions, and else is divided by the squared length
 *       once too often, which callers know
 */
ZTMATH_API void FACET_line_line_closest_point(const double a[3], const double u[3],
                                              const double b[3], const double v[3], double *s,
                                              double *t);

/* The distance of p from the line through a and b; from a when b - a is not longer than 1e-5. */
ZTMATH_API double FACET_line_point_dist(const double a[3], const double b[3], const double p[3]);

/*
 * The distance between the lines a + s u and b + t v: positive when b - a has a part along u x v,
 * negative when it has one against it. When |u x v| is below 1e-6 it is the distance, not negative,
 * of a from the second line.
 */
ZTMATH_API double FACET_line_line_dist(const double a[3], const double u[3], const double b[3],
                                       const double v[3]);

/*
 * Projects a point onto a line.
 *
 * unit_direction  0 to have the parameter divided by the squared length of the direction, unless
 *                 that is 0; else the direction is taken to be unit
 * point, t        out: the foot, origin + t direction, and its parameter
 */
ZTMATH_API void FACET_point_line_proj(const double p[3], const double origin[3],
                                      const double direction[3], int unit_direction,
                                      double point[3], double *t);

/* The angle between two vectors of any length, in [0, pi]; 0 when one is zero. */
ZTMATH_API double FACET_compute_undirected_angle(const double u[3], const double v[3]);

/*
 * The line common to two planes.
 *
 * point      out: a point of it, that closest to the foot of the origin in plane 1; not written for
 *            parallel planes
 * direction  out: normal1 x normal2, not unitized, for parallel planes too
 *
 * Returns 2. For planes that are parallel, |direction|^2 being below 1.0000000000000002e-10: 1 when
 * they are at least 1e-10 apart along normal1, 0 when they coincide.
 */
ZTMATH_API int FACET_plane_plane_int(const double normal1[3], double d1, const double normal2[3],
                                     double d2, double point[3], double direction[3]);

/*
 * The point of a plane that is closest to the origin: -d times the normal, which is unitized; zero
 * when the normal is not longer than 1e-10.
 */
ZTMATH_API void FACET_ask_point_on_plane(const double normal[3], double d, double point[3]);

/*
 * The area of a triangle, from the lengths of its edges (Heron); 0 when rounding leaves the product
 * under the root not positive.
 */
ZTMATH_API double FACET_ask_triangle_area(const double a[3], const double b[3], const double c[3]);

/*
 * Inverse-distance weights (Shepard, 1968): each the reciprocal of distance^power, divided by the
 * sum of all.
 *
 * distances  n of them; none if n < 1
 * eps        distances up to this are none: the last of them has the weight 1, all others have 0
 * weights    out: n
 */
ZTMATH_API void FACET_shepards_weights(int n, const double *distances, double eps, double power,
                                       double *weights);

/* A triangle: its corners in order, whom they belong to, and its unit normal. */
typedef struct {
    double vertices[3][3];
    int ids[3]; /* of the vertices that facets share */
    double normal[3];
} FACET_facet_t;

/*
 * The unit normal at a vertex: the mean of the normals of the facets that meet there, weighted by
 * their areas or by their angles.
 *
 * vertex_given  0 when vertex_id is not set, which is reported for angle weights
 * vertex_id     the vertex, for angle weights
 * weight_type   0 for areas, 1 for angles. The angle is that of VEC3_angle_between, from the edge
 *               to the previous corner to the edge to the next about the facet normal: for corners
 *               counter-clockwise about the normal it is 360 degrees less the inner angle
 * parameters    a length: facets with areas below half its square are reported; then the least
 *               angle, in degrees, to which smaller ones are raised
 * normal        out: zero when the weighted normals cancel out or no facet has a weight
 *
 * The weights are those of FACET_shepards_weights for the reciprocals of areas (or angles in
 * degrees) and the power 1. Its eps is half the square of parameters[0]: a facet whose reciprocal
 * is that small, because its area is that large, alone decides.
 *
 * Reported: "The common vertex is not input as expected." (see vertex_given); "Zero area facet
 * occurred.", and a facet of area 0 has no weight; "The facet is not incident at the given vertex.",
 * and it has no weight; "The requested type of weights is not recognizable.", for each facet, and
 * none has a weight.
 */
ZTMATH_API void FACET_interp_normal_at_vertex(int vertex_given, int vertex_id, int n_facets,
                                              const FACET_facet_t *facets, int weight_type,
                                              const double parameters[2], double normal[3]);

/*
 * Triangulates a plane polygon by clipping ears (Meisters, 1975).
 *
 * points     the corners in order (3 * n), not repeated at the end
 * normal     of the polygon's plane, about which the corners run counter-clockwise
 * triangles  out: three indices of corners for each of n - 2 triangles, in the order clipped; the
 *            first is the corner before the ear. Fewer are written where the clipping meets the
 *            same corner twice in a triangle
 *
 * A corner is an ear when it is convex and no other remaining corner lies strictly inside its
 * triangle. When no ear is found, the corner reached is clipped all the same.
 *
 * Asserted, when checking: "n_triangles < n_original_vertices - 2" and "n_triangles ==
 * n_original_vertices - 2".
 */
ZTMATH_API void FACET_ask_triangles_of_polygon(int n, const double *points, const double normal[3],
                                               int *triangles);

ZTMATH_END_DECLS

#endif
