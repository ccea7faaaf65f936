/*
 * vec3.h - vectors of three dimensions: unitizing, parallel and perpendicular, angles.
 *
 * A vector is three consecutive doubles x, y, z. It is null when its squared length is at
 * most 1.0e-20; that threshold is fixed and depends on no tolerance. Truth values are 1 and 0.
 *
 * Inputs are asserted to be finite where said, that is, to have components of absolute value below
 * 1.0e19; a failed assertion is reported, when the checking level is above 0, by module "vec3", and
 * the computation goes on. Nothing else is reported. Outputs may alias or overlap inputs.
 */
#ifndef ZTMATH_VEC3_H
#define ZTMATH_VEC3_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/*
 * Unitizes a vector. Asserts "VEC3_is_finite (u)".
 *
 * tolerance  a length: a vector as long as this, or shorter, fails
 * magnitude  out: the length of u, or 0.0
 * unit       out: u times the reciprocal of its length, or the zero vector
 *
 * Returns 1, or 0 if tolerance * tolerance >= |u|^2.
 */
ZTMATH_API int VEC3_unitize(const double u[3], double tolerance, double *magnitude, double unit[3]);

/*
 * Whether two vectors are parallel or antiparallel. Asserts "VEC3_is_finite( u )" and
 * "VEC3_is_finite( v )".
 *
 * tolerance  the sine of the largest angle accepted
 *
 * Returns 1 or 0; a null vector is parallel to everything.
 */
ZTMATH_API int VEC3_is_parallel(const double u[3], const double v[3], double tolerance);

/*
 * Whether two vectors are perpendicular. Asserts as VEC3_is_parallel.
 *
 * tolerance  the absolute cosine of the angle farthest from a right one that is accepted
 *
 * Returns 1 or 0; a null vector is perpendicular to everything.
 */
ZTMATH_API int VEC3_is_perpendicular(const double u[3], const double v[3], double tolerance);

/*
 * Finds a vector perpendicular to another. Asserts "VEC3_is_finite (u)".
 *
 * out  out: u with its component of least absolute value zeroed (of equal ones z before y before x)
 * and the other two exchanged, the smaller one negated (of equal ones: between x and y the x is
 *      negated, between y and z the z, between x and z the z). Not unitized. Zero if u is null
 *
 * Returns 1, or 0 if u is null.
 */
ZTMATH_API int VEC3_ask_perpendicular(const double u[3], double out[3]);

/*
 * Measures the angle from u to v, counter-clockwise about a reference direction, in radians.
 *
 * reference  tells which side of the plane of u and v is looked at; its length does not matter, and
 *            perpendicular to u x v it counts as the side that makes the angle at most pi
 *
 * Returns the angle in [0, 2 pi); 0.0 when it is within 1.0e-10 of 0, or when u or v is not longer
 * than 1.0e-10. Asserts "VEC3_is_finite (u)" of u and v.
 */
ZTMATH_API double VEC3_angle_between(const double u[3], const double v[3],
                                     const double reference[3]);

/*
 * Splits a vector into parts along and across an axis. Nothing is unitized or tested.
 *
 * a       unit vector, the axis
 * across  out: u - along
 * third   out: a x across
 * along   out: (u . a) a
 */
ZTMATH_API void VEC3_make_trihedral(const double u[3], const double a[3], double across[3],
                                    double third[3], double along[3]);

ZTMATH_END_DECLS

#endif
