/*
 * pnt3.h - points of space: collinear ones, and the closest of many.
 *
 * A point is three doubles, in millimetres.
 */
#ifndef ZTMATH_PNT3_H
#define ZTMATH_PNT3_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/*
 * Whether three points are collinear: the smallest of their squared distances is less than the
 * tolerance, or the squared sine of the bend at b is.
 *
 * tolerance  compared as it stands with a squared length, and with a squared sine
 *
 * Returns 1 or 0.
 */
ZTMATH_API int PNT3_is_colinear(const double a[3], const double b[3], const double c[3],
                                double tolerance);

/*
 * Tells where c lies relative to the segment from a to b.
 *
 * tolerance  as of PNT3_is_colinear; as a length, within which c is at a or at b
 *
 * Returns 1 when the points are not collinear, else along the line 2 before a, 3 at a, 4 between a
 * and b, 5 at b, 6 beyond b.
 */
ZTMATH_API int PNT3_colinear_condition(const double a[3], const double b[3], const double c[3],
                                       double tolerance);

/*
 * Finds the point of an array that is closest to a point.
 *
 * axis    decides between points that are equally far away within the session's length tolerance
 *         (EQ_ask_length_tolerance): the one from which the way to p makes the smaller angle with
 *         this direction, the earlier one when the angles agree within 1.0e-10
 * points  x, y, z of each point (3 * count)
 * out     out: the closest; untouched when count < 1
 *
 * Each point of the array is compared with the best one before it. Angles are measured by
 * VEC3_angle_between, which asserts "VEC3_is_finite (u)" of the axis and of the ways.
 */
ZTMATH_API void PNT3_ask_closest_point(const double p[3], const double axis[3],
                                       const double *points, int count, double out[3]);

ZTMATH_END_DECLS

#endif
