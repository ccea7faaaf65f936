/*
 * vec2.h - vectors of two dimensions: unitizing, parallel and perpendicular, components.
 *
 * A vector is two consecutive doubles x, y. It is null when its squared length is at most 1.0e-20;
 * that threshold is fixed and depends on no tolerance. Truth values are 1 and 0.
 *
 * Inputs are asserted to be finite where said, that is, to have components of absolute value below
 * 1.0e19; a failed assertion is reported, when the checking level is above 0, by module "vec2", and
 * the computation goes on. Nothing else is reported. Outputs may alias or overlap inputs.
 */
#ifndef ZTMATH_VEC2_H
#define ZTMATH_VEC2_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/* As VEC3_unitize, of two dimensions. Asserts "VEC2_is_finite (u)". */
ZTMATH_API int VEC2_unitize(const double u[2], double tolerance, double *magnitude, double unit[2]);

/* As VEC3_is_parallel, of two dimensions. Asserts "VEC2_is_finite( u )", "VEC2_is_finite( v )". */
ZTMATH_API int VEC2_is_parallel(const double u[2], const double v[2], double tolerance);

/* As VEC3_is_perpendicular, of two dimensions. Asserts as VEC2_is_parallel. */
ZTMATH_API int VEC2_is_perpendicular(const double u[2], const double v[2], double tolerance);

/*
 * Turns a vector by a quarter turn. Asserts "VEC2_is_finite (u)".
 *
 * out  out: (u.y, -u.x), clockwise, if |u.y| <= |u.x|; (-u.y, u.x), counter-clockwise, if |u.y| is
 *      the larger; zero if u is null. Callers rely on the sign pattern of the two directions
 *
 * Returns 1, or 0 if u is null.
 */
ZTMATH_API int VEC2_ask_perpendicular(const double u[2], double out[2]);

/*
 * Finds the components of w in the pair u, v: w = a u + b v.
 *
 * tolerance  the absolute determinant u x v, an area, at or below which the pair counts as parallel
 * a, b       out: the components, or both positive infinity
 *
 * Returns 1, or 0 if the pair is parallel.
 */
ZTMATH_API int VEC2_components(const double u[2], const double v[2], const double w[2],
                               double tolerance, double *a, double *b);

/*
 * Finds the shortest vector of an array.
 *
 * count    the number of vectors; asserted "count > 0"
 * vectors  x0, y0, x1, y1, ... (2 * count)
 *
 * Returns its index from 0, the first of equally short ones; 0 when count is not positive.
 */
ZTMATH_API int VEC2_ask_shortest_vector(int count, const double *vectors);

ZTMATH_END_DECLS

#endif
