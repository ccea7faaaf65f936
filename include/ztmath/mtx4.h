/*
 * mtx4.h - 4x4 transforms: products, tests, repair, inversion, and the standard motions.
 *
 * A transform is sixteen doubles, row-major: a 3x3 block laid out as in mtx3.h, a translation in
 * elements 3, 7 and 11, and a last row, which is 0, 0, 0, 1 in every transform built here. It acts
 * on column vectors: a point p goes to (block) p + translation. Lengths are in millimetres.
 *
 * Builders and inversion return 0 for success and 1 for failure, leaving the output untouched then;
 * that is the opposite of mtx3.h. A direction is null when its squared length is at most 1.0e-20.
 * Outputs may alias or overlap inputs. Truth values are 1 and 0.
 *
 * With the checking level above 0, a 3x3 block that is built and not orthonormal is reported by
 * module "mtx3", a direction that is not finite by module "vec3", as in mtx3.h.
 */
#ifndef ZTMATH_MTX4_H
#define ZTMATH_MTX4_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/* ---- Products ---- */

/* Multiplies: r = b a. On points, a acts first, then b. Nothing is repaired. */
ZTMATH_API void MTX4_multiply(const double a[16], const double b[16], double r[16]);

/* As MTX4_multiply, r = b a^T. */
ZTMATH_API void MTX4_multiply_t(const double a[16], const double b[16], double r[16]);

/* ---- Tests and repair ---- */

/* MTX3_is_ortho_normal of the block. */
ZTMATH_API int MTX4_is_ortho_normal(const double m[16]);

/* MTX3_ortho_normalize of the block, in place. Returns 1 if it was changed, else 0. */
ZTMATH_API int MTX4_ortho_normalize(double m[16]);

/*
 * Makes a frame of the block, in place: elements of its rows X and Y within 1.0e-10 of 0 and +-1
 * are snapped to them, X is unitized, Y made perpendicular to it, Z rebuilt.
 *
 * Elements of X and Y that moved by more than 1.0e-10 are reported at every checking level, each by
 * a line of ERROR_lprintf, "MTX3_fixup: Element %d of matrix modified from %25.15f to %25.15f\n",
 * and a note of module "mtx3_privileged", "Element %d of matrix modified from %25.15f to %25.15f".
 *
 * Returns 1, or 0 when row X or Y is null, which is then zero and, with the checking level above 0,
 * noted: "X vector of matrix is zero" or "Y vector of matrix is zero".
 */
ZTMATH_API int MTX4_fixup(double m[16]);

/* Whether all sixteen elements agree within a tolerance and both blocks are orthonormal, or both
   are not. */
ZTMATH_API int MTX4_is_equal(const double a[16], const double b[16], double tolerance);

/* MTX4_is_equal with the identity. */
ZTMATH_API int MTX4_is_identity(const double m[16], double tolerance);

/*
 * Whether two transforms are the same motion.
 *
 * rotation_tolerance     for MTX3_is_equal of the blocks
 * translation_tolerance  the largest distance between the translations
 * scale_tolerance        the largest difference of the last elements, 15
 */
ZTMATH_API int MTX4_is_equal_transform(const double a[16], const double b[16],
                                       double rotation_tolerance, double translation_tolerance,
                                       double scale_tolerance);

/* ---- Inversion ---- */

/*
 * Inverts a matrix, any 4x4 one, with ludcmp_a and lubksb_a.
 *
 * inverse  out: the inverse
 *
 * Returns 0, or 1 when a row is entirely zero. Other singular matrices are inverted all the same,
 * a pivot of exactly 0.0 being replaced by 1e-20: the elements of their inverse are huge.
 */
ZTMATH_API int MTX4_invert(const double m[16], double inverse[16]);

/* ---- Standard motions ---- */

/*
 * Builds the scaling about a point: p goes to centre + S (p - centre).
 *
 * factors  the diagonal of S; any numbers, zero and negative ones too
 */
ZTMATH_API void MTX4_scaling(const double centre[3], const double factors[3], double out[16]);

/*
 * Builds the rotation about an axis (Rodrigues, 1840).
 *
 * point  a point on the axis
 * axis   its direction
 * angle  in degrees, counter-clockwise looking against the axis
 *
 * Returns 0, or 1 if the axis is null.
 */
ZTMATH_API int MTX4_rotation(const double point[3], const double axis[3], double angle,
                             double out[16]);

/* Builds the reflection in the plane through a point. Returns 0, or 1 if the normal is null. */
ZTMATH_API int MTX4_mirror(const double point[3], const double normal[3], double out[16]);

/*
 * Builds the motion that carries one frame onto another: a point with coordinates a, b, c in the
 * first goes to the point with the same coordinates in the second.
 *
 * origin, x, y  of frame 1, then of frame 2. x and y must be perpendicular as for MTX3_init; a pair
 *               that is not stands for the absolute axes
 *
 * Returns 0, or 1 if a direction is null or the axes of frame 2 are not numbers.
 */
ZTMATH_API int MTX4_csys_to_csys(const double origin1[3], const double x1[3], const double y1[3],
                                 const double origin2[3], const double x2[3], const double y2[3],
                                 double out[16]);

ZTMATH_END_DECLS

#endif
