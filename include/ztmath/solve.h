/*
 * solve.h - dense linear systems: Cramer's rule, LU decomposition, singular value decomposition.
 *
 * A matrix is an array of row pointers, each row an array of doubles; element (i, j) is a[i][j],
 * from 0. Rows must not overlap each other. Counts below 1 stand for an empty matrix. Work memory
 * comes from the platform and goes back before the routine returns; if it cannot be had, outputs
 * are untouched. Vectors that a routine writes may alias or overlap its inputs, rows of a matrix
 * included.
 */
#ifndef ZTMATH_SOLVE_H
#define ZTMATH_SOLVE_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/*
 * Solves a 3x3 system by Cramer's rule.
 *
 * a  the matrix, row-major
 * b  right-hand side
 * x  out: the solution; may alias a or b
 *
 * Returns 0, or 1 when the determinant is exactly 0.0, leaving x untouched. There is no tolerance.
 */
ZTMATH_API int SOLVE_solve_3equations(const double a[9], const double b[3], double x[3]);

/* ---- LU decomposition ------------------------------------------------------------------------ */

/*
 * Decomposes a matrix into the product of a unit lower and an upper triangular one, rows permuted
 * (Crout, 1941; partial pivoting with rows scaled implicitly by their largest element).
 *
 * a     n rows of n: the matrix; out: U on and above the diagonal, L below it
 * indx  out (n): entry j is the row that was exchanged with row j at step j
 * d     out: +1.0 or -1.0, the parity of the exchanges
 *
 * Among equally good pivots the last row wins. A pivot of exactly 0.0 is replaced by 1e-20: a
 * singular matrix without a zero row is decomposed all the same, and solutions with it are huge.
 *
 * Returns 0, or 1 when a row is entirely zero; a is then unchanged, indx is not written and d
 * is 1.0.
 */
ZTMATH_API int ludcmp_a(double **a, int n, int *indx, double *d);

/*
 * Solves a system with the factors of ludcmp_a.
 *
 * a, indx  as ludcmp_a left them, n rows
 * b        (n) right-hand side; out: the solution
 */
ZTMATH_API void lubksb_a(double **a, int n, const int *indx, double *b);

/*
 * Solves a system for several right-hand sides.
 *
 * a  n rows of n: the matrix; out: its factors, as of ludcmp_a
 * b  n rows of nrhs: the right-hand sides by columns; out: the solutions
 *
 * Returns the status of ludcmp_a: 0, or 1 when a row of a is entirely zero; b is then untouched.
 */
ZTMATH_API int SOLVE_lu_solver(double **a, double **b, int n, int nrhs);

/* ---- Singular values ------------------------------------------------------------------------- */

/*
 * Decomposes a = U diag(w) V^T (Golub and Reinsch, 1970): Householder reflections to bidiagonal
 * form, then QR steps with implicit shifts, at most 30 for a singular value.
 *
 * a  m rows of n; out: U. With m < n there must be n rows: the module "svd" notes "SVDCMP: You must
 *    augment A with extra zero rows", and the decomposition proceeds
 * w  out (n): the singular values, none negative, not sorted
 * v  out: n rows of n, V; column j belongs to singular value j
 *
 * Elements of the bidiagonal form count as zero at an absolute 1e-12, whatever the size of a. A
 * singular value that has not converged is noted by module "svd": "No convergence in 30 SVDCMP
 * iterations".
 */
ZTMATH_API void SOLVE_svd_decompose(double **a, int m, int n, double *w, double **v);

/*
 * Finds the least-squares solution of least norm of a x = b, taking singular values of at most 1e-8
 * times the largest for zero.
 *
 * a  m rows of n, as for SOLVE_svd_decompose; destroyed
 * n  the number of columns; out: the number of singular values kept, the numerical rank
 * b  (m) right-hand side
 * x  out (n): the solution; may alias b
 *
 * Returns 0, which tells nothing. Notes as SOLVE_svd_decompose.
 */
ZTMATH_API int SOLVE_svd_solver(double **a, int m, int *n, const double *b, double *x);

/* As SOLVE_svd_solver, with singular values taken for zero up to relative_threshold times the
   largest. Returns n. */
ZTMATH_API int *SOLVE_svd_solver_r(double **a, int m, int *n, const double *b, double *x,
                                   double relative_threshold);

ZTMATH_END_DECLS

#endif
