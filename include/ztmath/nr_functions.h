/*
 * nr_functions.h - methods that call a function of the caller's: minimum, differential equation,
 * integral.
 *
 * Each function of the caller's gets the pointer data as it was given. It may leave by an
 * exception: work memory is given back and the arguments are as said below. It may leave by a long
 * jump, which loses a block of work memory if n is above 16. It may call these routines on other
 * data.
 *
 * The amount of work is bounded by an argument, and every way of failing has its status; nothing is
 * reported otherwise. Arguments that are written must not overlap each other.
 */
#ifndef ZTMATH_NR_FUNCTIONS_H
#define ZTMATH_NR_FUNCTIONS_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/*
 * Minimises a function of n variables by the downhill simplex method (Nelder and Mead, 1965), which
 * uses values only. The worst vertex is reflected through the centre of the others (1), the
 * simplex expanded (2), contracted outside or inside (1/2) or shrunk to the best vertex (1/2).
 *
 * p                n + 1 rows of n, the vertices of the starting simplex, which must not lie in one
 *                  hyperplane; out: the last simplex, the best vertex in row 0
 * y                (n + 1) in: the values of f there; out: those at the last simplex
 * tolerance        of the values, relative; at least 0. Rounding limits it to about 1e-16
 * f                called only with x of n elements, which it must not write. Infinity stands for
 *                  a point that is not allowed
 * max_evaluations  the largest number of calls of f
 * evaluations      out: how many were made
 *
 * Ends when 2 |y_high - y_low| <= tolerance (|y_high| + |y_low|) + 1e-20, both being finite. That
 * tells nothing of the size of the simplex: values that happen to be equal end it too. Start again
 * from the result with a fresh simplex to be sure.
 *
 * Returns 0; 1 when max_evaluations ran out, the best so far in row 0; 2 when n < 1,
 * max_evaluations < 1 or the tolerance is negative or not a number, p and y untouched; 3 when f
 * gave something that is not a number, the best so far in row 0, or y held such a value, p and y
 * untouched. Where f throws, y belongs to p, in any order.
 */
ZTMATH_API int NR_amoeba(double **p, double *y, int n, double tolerance,
                         double (*f)(const double *x, int n, void *data), void *data,
                         int max_evaluations, int *evaluations);

/*
 * Integrates y' = f(x, y) from x1 to x2 with a Runge-Kutta pair of order 5(4) (Dormand and Prince,
 * 1980). The solution of order 5 is carried on; the step is chosen from the last two errors
 * (a proportional and integral controller; Gustafsson, 1991) so that in each step
 * |error_i| <= eps (|y_i| + |h y'_i|) + 1e-30, with y_i and y'_i at its start.
 *
 * y                    (n) at x1; out: at *reached
 * x2                   may lie before x1, or be x1
 * eps                  error of a step, relative, above 0; below 1e-14 rounding stands in the way
 * h_first              the length of the first step to be tried, its sign not looked at; 0 lets the
 *                      routine choose
 * h_min                the smallest length of a step, at least 0; the last one may be shorter
 * max_steps            the largest number of steps, failed ones included
 * f                    writes n derivatives to dydx
 * dense                null, or called after each accepted step, the last included
 * reached              out: where y is; x2 on success
 * good_steps           out: the number of steps accepted
 * bad_steps            out: the number of steps tried again with a smaller length
 *
 * Returns 0; 1 when max_steps ran out; 2 when a step of h_min, or one at the rounding level
 * of x, is still too long; 3 when n < 1, max_steps < 1, eps or h_min are out of range, or one of
 * these or x1, x2, x2 - x1, h_first is not finite; 4 when f gave something that is not finite, at
 * x1 or in every step that could still be made from *reached: a step that fails in this way is
 * tried again with a quarter of its length first. y, reached and the counts hold what was accepted,
 * also where f or dense throw: a call that starts there carries on.
 */
ZTMATH_API int NR_odeint(double *y, int n, double x1, double x2, double eps, double h_first,
                         double h_min, int max_steps,
                         void (*f)(double x, const double *y, double *dydx, void *data), void *data,
                         void (*dense)(double x, const double *y, void *data), double *reached,
                         int *good_steps, int *bad_steps);

/*
 * Integrates f over [a, b] by adaptive Simpson quadrature (McKeeman, 1962) with Richardson's
 * correction. Panels are halved until the changes that halving makes, twice in succession, say that
 * the error of a panel is within its share of tolerance times the integral of |f|, or is rounding.
 * The first division is off centre, and three levels are always made: a period that fits the
 * samples does not look like a constant. What is narrower than a sixteenth of the interval may
 * still be missed.
 *
 * f            continuous for good speed; jumps and infinite slopes are narrowed down to
 * b            may lie before a: the integral is then the negative of that from b to a
 * tolerance    at least 0; 0 asks for the rounding level
 * max_level    levels of division, at least 1 (above 60 as 60): 2^max_level panels at most
 * integral     out: the integral; 0.0 with status 2 or 3
 * evaluations  out: the number of calls of f
 *
 * Returns 0; 1 when levels ran out and the errors estimated add up to more than the tolerance, the
 * integral being the best value; 2 when max_level < 1, the tolerance is negative or not a number,
 * or a, b or b - a is not finite; 3 when f gave something that is not finite, or so large that a
 * sum is not. There is no work memory to lose by a long jump.
 */
ZTMATH_API int NR_qsimp(double (*f)(double x, void *data), void *data, double a, double b,
                        double tolerance, int max_level, double *integral, int *evaluations);

ZTMATH_END_DECLS

#endif
