/*
 * roots.h - real roots of polynomials up to degree four, and the root of a function in a bracket.
 *
 * Coefficients stand by ascending power: coeffs[i] multiplies x^i. Only real roots are returned; a
 * double root stands twice, a triple root three times. Roots are not sorted; their order is said
 * with each routine. Only as many elements of roots are written as there are roots. roots may alias
 * or overlap coeffs.
 *
 * "tol" is the number tolerance (EQ_ask_number_tolerance) and is compared with coefficients as they
 * stand: scale a polynomial so that its coefficients are of the order of 1. Apart from that no
 * quantity is compared with a tolerance: it counts as zero when it is as small beside the terms it
 * was summed from as rounding leaves it. Coefficients that are not finite, or whose products
 * overflow, make the roots meaningless, nothing worse. No routine keeps anything between calls.
 */
#ifndef ZTMATH_ROOTS_H
#define ZTMATH_ROOTS_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/* ---- Closed forms -------------------------------------------------------------------------------
 * Reports: none. */

/*
 * Solves c0 + c1 x + c2 x^2 = 0.
 *
 * roots  out (2): the root that is free of cancellation and, by the product of the roots, the
 *        other; of a polynomial with |c2| <= tol the one of c0 + c1 x
 *
 * Returns the number of real roots, 0, 1 or 2. With |c1| <= tol as well there are none, whatever c0
 * is. A discriminant of at most 5e-16 of its terms makes a double root.
 */
ZTMATH_API int SOLVE_quadratic(const double coeffs[3], double roots[2]);

/*
 * Solves c0 + c1 x + c2 x^2 + c3 x^3 = 0 (Cardano; Vieta's cosines for three real roots).
 *
 * roots  out (3): a single root; or the simple root before the double one; or three roots, the
 *        smallest first, the largest second
 *
 * Returns the number of real roots, 0 to 3. With |c3| <= tol the cubic is a quadratic, with
 * |c0| <= tol^3 it has the root 0.0, which then comes last. Errors are relative to the size of
 * the largest root, and grow where roots stand close together.
 */
ZTMATH_API int SOLVE_cubic(const double coeffs[4], double roots[3]);

/*
 * Solves c0 + c1 x + c2 x^2 + c3 x^3 + c4 x^4 = 0 (Ferrari).
 *
 * roots  out (4): by the two quadratic factors, first the one with the larger sum of roots; of
 *        each factor the larger root first
 *
 * Returns the number of real roots, 0 to 4. With |c4| <= tol the quartic is a cubic, with
 * |c0| <= tol^4 it has the root 0.0, which then comes last. With |c1| <= tol and |c3| <= tol it is
 * a quadratic in x^2: each positive root of that, in its order, gives a root and its negative.
 * With the mean of all four roots as a root, the other three come first, as a cubic's or, lying in
 * mirror image, as a quadratic's roots with the mean. Roots closer to each other than about 1e-6 of
 * the largest root may come out as one double root. The error of a root is relative to the largest
 * root's size.
 */
ZTMATH_API int SOLVE_quartic(const double coeffs[5], double roots[4]);

/* ---- Iterations -------------------------------------------------------------------------------*/

/*
 * Finds the real roots of a polynomial by Laguerre's method (Laguerre, 1880) with deflation; every
 * root is then improved on the polynomial as given. Slower than the closed forms, and accurate for
 * each root's own size.
 *
 * degree  4 at most
 * coeffs  (degree + 1); leading ones within tol are dropped
 * roots   out (degree): those found later come first
 *
 * Returns the number of real roots; 0 for a constant, or when more than four degrees are left. A
 * root counts as real when its imaginary part is at most 4e-5 of its real part.
 *
 * Reports, with the checking level above 0, by ERROR_internal of module "solve": "Degree is too
 * large in SOLVE_polynomial())!!!\n" of a degree above 4, "Degree is too large in routine
 * get_all_roots())!!!\n" when it still is without the coefficients dropped, and "Too many
 * iterations in routine laguerre()!!!\n" when 100 have not come to rest; the last value is then
 * taken.
 *
 * An iteration that goes to and fro in equal steps ends there, without a word, and what it ends on
 * counts as a root: of -1 - 3 x - 3 x^2 - 5 x^3, 0. Of whole coefficients within 5, some six cubics in
 * a thousand do that; SOLVE_cubic and SOLVE_quartic do not.
 */
ZTMATH_API int SOLVE_polynomial(int degree, const double *coeffs, double *roots);

/*
 * Finds a root of a function between two points by Ridders' method (Ridders, 1979).
 *
 * f          the function; data is handed to it. It may leave by an exception or a long jump
 * x1, x2     where the function has opposite signs, or is zero. Zero at an end is not looked at by
 *            itself: the iteration runs
 * tolerance  the iteration ends when the root moves by no more, or the bracket is narrower
 * root       out: the root before the last step; untouched without a bracket. 1.0e20 when the first
 *            step already fails because the function's values, or their squares, vanish
 *
 * Returns the number of iterations, at least 1; -1 when 20 were not enough, root then being the
 * last value; -2 when f is positive at both points, or negative at both. Reports: none.
 */
ZTMATH_API int SOLVE_function_root(double (*f)(double x, void *data), void *data, double x1,
                                   double x2, double tolerance, double *root);

ZTMATH_END_DECLS

#endif
