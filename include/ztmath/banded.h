/*
 * banded.h - linear systems whose matrix is a band, and the error register that tells how it went.
 *
 * A band matrix of order n and half-bandwidth bw has elements (i, j) with |i - j| <= bw, and no
 * others may be touched: row i holds columns max(0, i - bw) to min(n - 1, i + bw), addressed as
 * matrix[i][j] with j the true column. The elements lie row after row in one block; matrix[-1] is
 * that block. Only msetup_banded makes such a matrix.
 *
 *     merrorflush();
 *     msetup_banded(n, bw, &matrix, &rhs);
 *     ... fill matrix and rhs if they are not null ...
 *     mdecompose_banded(matrix, n, bw);
 *     msolve_banded(matrix, n, bw, rhs);
 *     if (merrorlevel() == 0) ... the solution is in rhs ...
 *     mdispose_banded(&matrix, &rhs);
 *
 * There is no pivoting: the matrix should be diagonally dominant or positive definite. What fails
 * is pushed into the error register, a pair of integers shared by the process, and nothing is
 * reported: solves in parallel get their solutions right but share the register.
 */
#ifndef ZTMATH_BANDED_H
#define ZTMATH_BANDED_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/* ---- Systems ----------------------------------------------------------------------------------*/

/*
 * Makes a band matrix of zeros and an uninitialised right-hand side.
 *
 * n, bw   order and half-bandwidth; a bandwidth beyond the order is a full matrix
 * matrix  out: the rows
 * rhs     out: n doubles
 *
 * Pushes 280 at level 4 if n < 1 or bw < 0, 950 at level 4 if there would be no element. Both
 * outputs are null then, also when an allocation unwinds, and also when the register still holds an
 * error of before: flush it first.
 */
ZTMATH_API void msetup_banded(int n, int bw, double ***matrix, double **rhs);

/*
 * Factors a band matrix in place into L U, L having a unit diagonal (Gauss' elimination by rows).
 *
 * Pushes 7235 at level 4 when a pivot that is to be divided by is below 1e-15 in absolute value,
 * and leaves the matrix half factored. The last diagonal element is not looked at here, nor is any
 * when bw < 1. The time taken goes with n * bw^2.
 */
ZTMATH_API void mdecompose_banded(double **matrix, int n, int bw);

/*
 * Solves a system with the factors of mdecompose_banded.
 *
 * b  (n) right-hand side; out: the solution. May overlap the matrix
 *
 * Pushes 7235 at level 4 when a diagonal element is below 1e-15 in absolute value; then the
 * elements of b after it are solved, the others are not.
 */
ZTMATH_API void msolve_banded(double **matrix, int n, int bw, double *b);

/* Frees what msetup_banded made and nulls both pointers; a null one has nothing to free. */
ZTMATH_API void mdispose_banded(double ***matrix, double **rhs);

/*
 * Prints a system on standard output, a line for each row: n columns "%10.5f  ", blank with a 0
 * outside the band, and the right-hand side "%10.5f".
 *
 * matrix, rhs  either may be null and is then left out
 */
ZTMATH_API void mdump_banded(double **matrix, const double *rhs, int n, int bw);

/* ---- The error register -------------------------------------------------------------------------
 * Clear, both numbers are 0. The last push wins. */

/* Sets the register; context is not looked at. */
ZTMATH_API void merrorpush(const void *context, int number, int level);

/* Clears the register. */
ZTMATH_API void merrorflush(void);

/* Return the register. */
ZTMATH_API int merrornum(void);
ZTMATH_API int merrorlevel(void);

/* ---- Values -----------------------------------------------------------------------------------*/

/*
 * Copies values, leaving out each that is within 1e-10 of the one just before it in the input. A
 * slow drift therefore leaves only its first value. A value that is not a number is left out, and
 * so is the one after it; the first value always stays.
 *
 * unique  out: the copy, n doubles of which count are used; the caller frees it with SM_free.
 *         Untouched if n is below 1
 * count   out: the number kept; 0 if n is below 1
 */
ZTMATH_API void get_unique_reals(const double *values, int n, double **unique, int *count);

ZTMATH_END_DECLS

#endif
