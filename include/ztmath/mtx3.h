/*
 * mtx3.h - rotation matrices and frames: building, reading, testing, repairing and composing them.
 *
 * A 3x3 matrix is nine doubles, row-major; its rows are the X, Y and Z axes of a frame in absolute
 * coordinates. A frame built here is right-handed, Z = X x Y. Roll, pitch and yaw are in radians
 * and always stand in that order. Truth values and results are 1 and 0.
 *
 * A direction is null when it is not longer than 1.0e-10; two directions count as perpendicular
 * when the dot product of their unit vectors is at most 1.0e-10 in absolute value. A builder that
 * returns 0 leaves its output untouched. Outputs may alias or overlap inputs.
 *
 * With the checking level above 0, module "mtx3" reports a built matrix that is not orthonormal by
 * the assertion "MTX3_is_ortho_normal (r)", and module "vec3" a direction that is not finite by
 * "VEC3_is_finite (u)". Nothing else is reported.
 */
#ifndef ZTMATH_MTX3_H
#define ZTMATH_MTX3_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/* ---- Frames from directions ------------------------------------------------------------------ */

/*
 * Builds the frame of two perpendicular directions. They must be perpendicular already: nothing is
 * projected away. X keeps its direction; Y is rebuilt as Z x X.
 *
 * Returns 1, or 0 if x or y is null or they are not perpendicular.
 */
ZTMATH_API int MTX3_init(const double x[3], const double y[3], double matrix[9]);

/* As MTX3_init, from Y and Z: Z keeps its direction, X = Y x Z, and Y is rebuilt as Z x X. */
ZTMATH_API int MTX3_init_y_z(const double y[3], const double z[3], double matrix[9]);

/*
 * As MTX3_init, of three directions that must be perpendicular in pairs. z is only tested: the
 * frame is that of x and y, right-handed also where x, y, z are not.
 */
ZTMATH_API int MTX3_init_x_y_z(const double x[3], const double y[3], const double z[3],
                               double matrix[9]);

/* Builds a frame from its X direction; Y is the one that VEC3_ask_perpendicular chooses. Returns 1,
   or 0 if x is null. */
ZTMATH_API int MTX3_init_x(const double x[3], double matrix[9]);

/*
 * Builds a frame from its Z direction: X is perpendicular to Z and to the absolute Y axis, or to
 * the absolute X axis when the unit Z has |z.y| > 0.9. Returns 1, or 0 if z is null.
 */
ZTMATH_API int MTX3_init_z(const double z[3], double matrix[9]);

/* Writes the rows x, y and x cross y. Nothing is unitized or tested. */
ZTMATH_API void MTX3_init_no_check(const double x[3], const double y[3], double matrix[9]);

/*
 * Builds the 2x2 matrix, row-major, whose rows are two perpendicular directions of the plane,
 * unitized. Either handedness is taken.
 *
 * Returns 1, or 0 if x or y is null or they are not perpendicular.
 */
ZTMATH_API int MTX2_init(const double x[2], const double y[2], double matrix[4]);

/* ---- Rotations ------------------------------------------------------------------------------- */

/*
 * Builds the rotation about an axis, as it acts on column vectors (Rodrigues, 1840).
 *
 * angle  in radians, counter-clockwise looking against the axis
 * axis   a direction; when null, r is the identity
 */
ZTMATH_API void MTX3_rot_about_axis(double angle, const double axis[3], double r[9]);

/* Builds the rotation of roll about X, then pitch about Y, then yaw about Z, as it acts on column
   vectors. Asserts "MTX3_is_ortho_normal (rot_mat)". */
ZTMATH_API void MTX3_init_roll_pitch_yaw(double roll, double pitch, double yaw, double matrix[9]);

/*
 * Reads roll, pitch and yaw of a rotation. An angle whose sine or cosine is beyond 0.9999999999,
 * that is, within 1.4e-5 of a multiple of a right angle, comes out as that multiple. At a pitch
 * within 1.0e-10 of +-pi/2, yaw is 0.
 *
 * roll, yaw  out: in (-pi, pi]
 * pitch      out: in [-pi/2, pi/2]
 */
ZTMATH_API void MTX3_ask_roll_pitch_yaw(const double m[9], double *roll, double *pitch,
                                        double *yaw);

/*
 * Finds every triple of roll, pitch and yaw that gives back a rotation within 1.0e-10 in each
 * element: two of them, sometimes one or more than two where pitch is +-pi/2, none for a matrix
 * that is no rotation. A triple with a roll or yaw within some 1e-6 of +-pi/2, but not exactly
 * there, may be missing: the arc sine does not give such an angle closely enough.
 *
 * count    out: the number of triples
 * triples  out: the triples one after the other; room for 8 of them (24)
 *
 * Angles are what asin(x) and pi - asin(x) give, in [-pi/2, 3 pi/2].
 */
ZTMATH_API void MTX3_ask_all_roll_pitch_yaw(const double m[9], int *count, double triples[24]);

/* ---- Tests and repair ------------------------------------------------------------------------ */

/* Whether each row has a squared length within 1.0e-14 of 1 and each pair of rows a dot product of
   at most 1.0e-14 in absolute value. */
ZTMATH_API int MTX3_is_ortho_normal(const double m[9]);

/*
 * Makes a matrix that has drifted orthonormal, in place. Rows X and Z that are perpendicular are
 * kept in direction; otherwise the matrix is rebuilt from its cleaned roll, pitch and yaw, elements
 * within 1.0e-10 of 0 and +-1 being snapped to them. Passes are repeated until MTX3_is_ortho_normal
 * holds, at most 32 times; a matrix of which nothing can be made is left as the last pass gave it.
 *
 * Returns 1 if the matrix was changed, 0 if it was orthonormal.
 */
ZTMATH_API int MTX3_ortho_normalize(double m[9]);

/* Whether all elements agree within a tolerance and both matrices, or neither, are orthonormal. */
ZTMATH_API int MTX3_is_equal(const double a[9], const double b[9], double tolerance);

/* MTX3_is_equal with the identity. */
ZTMATH_API int MTX3_is_identity(const double m[9], double tolerance);

/* ---- Products -------------------------------------------------------------------------------- */

/*
 * Multiplies: r = b a. Each row of b is carried through the frame a. The product of two orthonormal
 * matrices is repaired by MTX3_ortho_normalize.
 *
 * Returns 1 if the product was repaired, else 0.
 */
ZTMATH_API int MTX3_multiply(const double a[9], const double b[9], double r[9]);

/* As MTX3_multiply, r = b a^T: row i holds the components of row i of b along the axes of a. */
ZTMATH_API int MTX3_multiply_t(const double a[9], const double b[9], double r[9]);

ZTMATH_END_DECLS

#endif
