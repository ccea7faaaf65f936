/*
 * bcdf_calc.h - calculations on curve defining data: what the user of a curve does not give.
 *
 * Vectors are three doubles; homogeneous points are divided by their weight before anything is made
 * of them. Positions are those of points, from 0; n is the number of points, P their places, p
 * their parameters. Records are only read. Reports are made by module "bcdf_calc" and only with
 * checking; after a raised report, returned or not, outputs are zero and in/out vectors unchanged.
 * Outputs may alias or overlap inputs.
 */
#ifndef ZTMATH_BCDF_CALC_H
#define ZTMATH_BCDF_CALC_H

#include <ztmath/bcdf.h>
#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/* ---- Parameters and weights ------------------------------------------------------------------ */

/*
 * Finds parameters for points: p[0] = 0 and p[i] = p[i - 1] + |P(i) - P(i - 1)|^exponent over all
 * coordinates; exponent 1 is chord length, 1/2 centripetal (Lee, 1989). When the last one comes out
 * within 1e-10 of 0, the points being one, they are equal steps of n - 1: 0, n - 1, 2 (n - 1) ...
 *
 * points      n points of `dimension` doubles
 * parameters  out (n)
 */
ZTMATH_API void BCDF_CALC_parameters(int n, int dimension, const double *points, double exponent,
                                     double *parameters);

/*
 * Finds least-squares weights: half the parameter span between a point's neighbours, at the ends
 * half the span to the only one. Of a single parameter it is 0.
 *
 * weights  out (n)
 */
ZTMATH_API void BCDF_CALC_weights(int n, const double *parameters, double *weights);

/* Returns the weight at one position; 0.0 outside. n < 2 is reported by ERROR_internal, "Not Enough
   Parameters", and gives 0.0. */
ZTMATH_API double BCDF_CALC_single_weight(int n, const double *parameters, int position);

/* Returns (1 - u) p[0] + u p[n - 1]; 0.0 without parameters. */
ZTMATH_API double BCDF_CALC_denormalize_param(const BCDF *record, double u);

/* ---- Automatic derivatives ------------------------------------------------------------------- */

/*
 * Finds the quadratic q, coordinate by coordinate, that meets three conditions, and evaluates it.
 *
 * q0, q1, q2  what q is to be at params[0], params[1] and params[2]; with mode 1 q2 is the
 *             derivative at params[2], with mode 2 q1 the derivative at params[1]
 * t0          where to evaluate
 * k           highest derivative wanted, at most 2; nothing is written below 0
 * out         out (3 (k + 1)): q, q', q'' at t0
 *
 * Returns 0, or 1 when the conditions determine no quadratic, as with equal parameters; out is then
 * untouched.
 */
ZTMATH_API int BCDF_CALC_quadratic_apprx(const double q0[3], const double q1[3], const double q2[3],
                                         const double params[3], int mode, double t0, int k,
                                         double *out);

/*
 * The first k derivatives (1 or 2) at a point, of a quadratic through its surroundings.
 *
 * Inside: through the point and its neighbours. At point 0 of a periodic record: through the point
 * before the closing one, one period back, and points 0 and 1. At the other ends: through the end
 * and two more points; but if the end's neighbour has a slope of type 0, 1 or 3, through both with
 * that derivative at the neighbour; if it has one of type 2, 4 or 5, the derivative is m, that
 * slope mirrored in the chord, and the second one m x w, w being the unit vector of chord x m (zero
 * when that product is shorter than 1e-10). Of two points the derivative is chord over span, the
 * second one zero.
 *
 * out  out (3 k). Where equal parameters determine no quadratic: zero at the ends, untouched inside
 *      and at point 0 of a periodic record
 *
 * Raises 1005315 "An Invalid Point Position Was Given By Calling Routine".
 */
ZTMATH_API void BCDF_CALC_auto_derivatives(const BCDF *record, int position, int k, double *out);

/* The first of these derivatives. */
ZTMATH_API void BCDF_CALC_auto_slope(const BCDF *record, int position, double out[3]);

/* The curvature vector (DGEOM_crv_curvature) of the automatic derivatives; the slope stored at the
   point plays no part. */
ZTMATH_API void BCDF_CALC_auto_curvature(const BCDF *record, int position, double out[3]);

/* ---- Slopes ---------------------------------------------------------------------------------- */

/*
 * Gives a vector the length of its type (bcdf_gen.h) at a point. Types 0 and 1, and codes that are
 * none, leave it as it is. The others put it through h813_ with the automatic slope and
 *
 *   L, D  the lengths of the chords that meet at the point, and the parameter span they take: both
 *         chords inside and at point 0 of a periodic record, the only one at the other ends; the
 *         last point counts as an end in periodic records too
 *
 * by method 5 for type 2, 3 for 3, 4 for 4, 5 for 5. Types 4 and 5 then get the length of an arc:
 *
 * On one side of the point, with c the chord to the neighbour, of length |c| and parameter span h,
 * the length is |c| / h * f(g). g is the cosine of the angle between chord and vector (1 when
 * either is shorter than 1e-10); where the neighbour has a slope of its own, at the cosine g' to
 * the chord, it is (g + 2 g') / 3 (Manning, 1974), of which only the direction matters, so that
 * slopes may be normalised in any order. It is taken as at least -1/2, so that a vector turned
 * against the chord keeps a bounded length. The factor
 *
 *   f(g) = 2 / (1 + g)
 *
 * puts the middle of the cubic with these end derivatives on the arc; when the record has
 * curvatures or order 5 or 6
 *
 *   f(g) = (5 s - sqrt((1 - g) (25 - 7 g))) / (2 s g),  s = sqrt(1 - g^2)
 *
 * (1.6 for |g| <= 1e-10, 1 for |g - 1| <= 1e-10) does so for the quintic with the arc's curvature
 * at both ends. A side whose chord is shorter than 1e-10, or whose span is not positive, leaves the
 * vector as it is. Point 0 of an open record takes the side to the next point, the last point that
 * to the previous one; between them the sides are blended, w of the next and 1 - w of the previous
 * one, w being the share of the next side in the sum of |c| h of both (1/2 if that is 0): a wrong
 * length moves the curve by an amount that grows with the square of the side, so this keeps the
 * larger of the two deviations least.
 *
 * A vector shorter than 1e-10 keeps its length.
 *
 * v  in/out
 *
 * Raises 1005315 "The Point Position Is Not Valid For The Array Of Points".
 */
ZTMATH_API void BCDF_CALC_normalized_slope(const BCDF *record, int type, int position, double v[3]);

/*
 * Gives a slope its length.
 *
 * automatic  the automatic slope a at the point
 * span       parameter span D around the point
 * chord      length L of the chords that take it
 * method     1: v becomes a; 2: v stays as it is; 3: v becomes as long as a; 4 and 5: v becomes
 *            L / D long, the mean speed of the curve. The sense of v is never turned; that of the
 *            slopes of method 4 is looked after by BCDF_update_slopes. Others: v stays
 * v          in/out
 *
 * v stays as it is also where it, or the length it is to have, is at most 1e-10 or that length is
 * 1e19 or more.
 */
ZTMATH_API void h813_(const double automatic[3], const double *span, const double *chord,
                      const int *method, double v[3]);

/*
 * Reflects a slope in the line through two points: what a circle through both that leaves the one
 * with this slope has at the other.
 *
 * out  out: the slope itself when the points are within the length tolerance of each other
 */
ZTMATH_API void BCDF_CALC_mirror_slope(const double slope[3], const double a[3], const double b[3],
                                       double out[3]);

/*
 * Makes a slope unit length.
 *
 * out  out: zero when the slope is at most 1e-10 long, which is raised: 1005314 "The Input Slope
 *      Has Zero Length"
 */
ZTMATH_API void BCDF_CALC_unitize_slope(const double in[3], double out[3]);

ZTMATH_END_DECLS

#endif
