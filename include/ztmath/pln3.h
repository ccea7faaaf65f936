/*
 * pln3.h - predicates on planes.
 *
 * A plane is six doubles: a point of it, then its normal, which need not be unit. The distance of a
 * point q is normal . (q - point) / |normal|; with a null normal it is not a number, and every
 * comparison with it fails. Lengths are in millimetres. Results are 1 and 0.
 */
#ifndef ZTMATH_PLN3_H
#define ZTMATH_PLN3_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/* Whether a point is at most a tolerance, a length, away from a plane. */
ZTMATH_API int PLN3_is_point_on_plane(const double plane[6], const double point[3],
                                      double tolerance);

/*
 * Whether two planes are the same set of points: opposite normals count.
 *
 * distance_tolerance  the largest distance of the point of plane 2 from plane 1
 * parallel_tolerance  the sine of the largest angle between the normals, as of VEC3_is_parallel,
 *                     which asserts "VEC3_is_finite( u )" and "VEC3_is_finite( v )" of them
 */
ZTMATH_API int PLN3_is_coincident(const double plane1[6], const double plane2[6],
                                  double distance_tolerance, double parallel_tolerance);

/*
 * Whether two planes are the same with the same normal vector: planes with opposite normals, or
 * normals of other lengths, are not equal.
 *
 * distance_tolerance  as of PLN3_is_coincident
 * normal_tolerance    the largest length of the difference between the normals
 */
ZTMATH_API int PLN3_is_equal(const double plane1[6], const double plane2[6],
                             double distance_tolerance, double normal_tolerance);

/*
 * Whether a segment meets or touches a plane: its ends are on different sides, or the product of
 * their distances is at most the tolerance in absolute value.
 *
 * tolerance  an area: it bounds the product of the two distances, not either of them
 */
ZTMATH_API int PLN3_is_segment_intersecting(const double plane[6], const double end1[3],
                                            const double end2[3], double tolerance);

ZTMATH_END_DECLS

#endif
