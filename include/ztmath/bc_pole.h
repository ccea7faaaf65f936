/*
 * bc_pole.h - poles of B-curves: comparing, measuring and moving them; their box; knots for them.
 *
 * A pole is homogeneous, (w x, w y, w z, w), and stands for the Cartesian point (x, y, z); its
 * weight w must not be 0. Outputs may alias or overlap inputs. Nothing is reported.
 */
#ifndef ZTMATH_BC_POLE_H
#define ZTMATH_BC_POLE_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/* ---- Comparing ------------------------------------------------------------------------------- */

/* Whether the Cartesian points are equal within the length tolerance: 1 or 0. */
ZTMATH_API int bc_POLE_equal_in_3d(const double a[4], const double b[4]);

/* Whether, besides, the weights differ by at most 1e-10: 1 or 0. */
ZTMATH_API int bc_POLE_equal_in_4d(const double a[4], const double b[4]);

/*
 * Whether all of n poles stand for one point: 1 or 0; 1 for fewer than two. Pole 0 must equal the
 * middle one, ceil(n / 2), by bc_POLE_equal_in_3d, and every one must lie within (n - 1) / n times
 * 1e-10 of the mean, whatever the length tolerance.
 */
ZTMATH_API int bc_POLE_identical_poles_in_3d(const double *poles, int n);

/* ---- Measuring ------------------------------------------------------------------------------- */

/* Subtracts the Cartesian point of b from that of a; returns the length of the difference. */
ZTMATH_API double bc_POLE_3d_distance(const double a[4], const double b[4], double difference[3]);

/* The mean of the Cartesian points of n poles; zero without any. */
ZTMATH_API void bc_POLE_average_in_3d(const double *poles, int n, double out[3]);

/*
 * The box of the Cartesian points of n poles, for a box of their curve: x min, x max, y min, y max,
 * z min, z max. Zero without any pole. A coordinate that is NaN is left out of the box.
 */
ZTMATH_API void bc_xyz_box(const double *poles, const int *n, double box[6]);

/* ---- Moving ---------------------------------------------------------------------------------- */

/* Moves the Cartesian point by a translation; the weight is kept. */
ZTMATH_API void bc_POLE_translate_pole(const double pole[4], const double translation[3],
                                       double out[4]);

/* Projects the Cartesian point onto the line through those of a and b (h430_); the weight is kept.
 */
ZTMATH_API void bc_POLE_project_to_line(const double pole[4], const double a[4], const double b[4],
                                        double out[4]);

/* The foot of the perpendicular from p to the line through points a and b; a where they are equal.
 */
ZTMATH_API void h430_(const double a[3], const double b[3], const double p[3], double foot[3]);

/* ---- Knots ----------------------------------------------------------------------------------- */

/*
 * The knots with which a cubic interpolates at n parameters, slopes at both ends given (de Boor,
 * 1978): open, the first and the last parameter four times and the others once; periodic, the
 * parameters extended by three on both sides, period after period.
 *
 * params    (n) not decreasing
 * periodic  1 or 0; periodic parameters include the closing one
 * knots     out: n + 6 knots in a new array, which the caller frees with SM_free
 * count     out: n + 6
 * status    out: 0, or 1 when n is below 2 or the parameters decrease; then knots is null and count
 *           0
 */
ZTMATH_API void knot_seq_order_4(const double *params, const int *n, const int *periodic,
                                 double **knots, int *count, int *status);

ZTMATH_END_DECLS

#endif
