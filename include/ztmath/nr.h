/*
 * nr.h - eigenvalues of symmetric matrices, Cholesky factors, and helpers on matrices.
 *
 * Matrices come in two forms, both row-major with indices from 0: row pointers (double **), an
 * array of pointers to rows that must not overlap each other; and flat (double *), element (i, j)
 * of a matrix with cols columns at i * cols + j. Counts below 1 stand for an empty matrix.
 * Eigenvectors are the columns of the matrix that holds them; eigenvalues are not sorted.
 *
 * Work memory comes from the platform and goes back before the routine returns. Outputs may alias
 * or overlap inputs. Reports are made by module "nr_eigensystems", whatever the checking level.
 */
#ifndef ZTMATH_NR_H
#define ZTMATH_NR_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/* ---- Eigenvalues ----------------------------------------------------------------------------- */

/*
 * Finds eigenvalues and eigenvectors of a symmetric matrix by cyclic Jacobi rotations with a
 * threshold (Jacobi, 1846; Rutishauser, 1966).
 *
 * a           n rows of n; only the diagonal and the strict upper triangle are read. The strict
 *             upper triangle is not to be relied on afterwards
 * max_sweeps  sweeps are made while fewer than max_sweeps have been begun, so at most
 *             max_sweeps - 1
 * d           out (n): the eigenvalues
 * v           out: n rows of n, the eigenvectors as columns, orthonormal
 * nrot        out: the number of rotations
 *
 * Elements off the diagonal are negligible in absolute terms: the iteration ends when their
 * absolute values add up to at most 1e-10. When the sweeps run out the outputs hold what has been
 * reached and "Too many iterations in routine NR_ask_eigenvalues_jacobi." is reported by
 * ERROR_internal.
 */
ZTMATH_API void NR_ask_eigenvalues_jacobi(double **a, int n, int max_sweeps, double *d, double **v,
                                          int *nrot);

/*
 * Solves A x = lambda B x for a symmetric A and a symmetric positive definite B, by the Cholesky
 * factor B = L L^T and the Jacobi rotations of L^-1 A L^-T (Wilkinson, 1965).
 *
 * A, B               flat n x n; not to be relied on afterwards
 * max_sweeps         as for NR_ask_eigenvalues_jacobi, whose report is made when they run out
 * eigenvalues        out (n)
 * eigenvector_block  the flat n x n block for the eigenvectors, which may be A or B; null in it has
 *                    a block allocated, which the caller frees with SM_free. Vectors are columns,
 *                    of length 1 in the norm of B: x^T B x = 1
 * nrot               out: the number of rotations
 * status             out: 0, or 1 when B is not positive definite; then eigenvalues holds what
 *                    diagonal of L has been reached, and block and nrot are untouched
 *
 * A factor L with a row that has become zero is reported by ERROR_internal, "The third call of
 * SOLVE_lu_solver failed."; the block then holds the eigenvectors of L^-1 A L^-T.
 */
ZTMATH_API void NR_generalized_eigenvalues_symm(double *A, double *B, int n, int max_sweeps,
                                                double *eigenvalues, double **eigenvector_block,
                                                int *nrot, int *status);

/*
 * Finds the eigenvalue of largest absolute value by power iteration (von Mises, 1929).
 *
 * a               n rows of n, any matrix
 * max_iterations  the largest number of products with a
 * start           (n) start vector
 * eigenvalue      out: the element of largest absolute value of the last product; 0.0 without one
 * eigenvector     out (n): scaled to that element being 1
 * not_converged   out: 0 when two successive vectors came within 1e-5 of each other relative to
 *                 their length, else 1
 */
ZTMATH_API void NR_ask_max_eigen_val_vec(int n, double **a, int max_iterations, const double *start,
                                         double *eigenvalue, double *eigenvector,
                                         int *not_converged);

/* ---- Cholesky factors ---------------------------------------------------------------------------
 *
 * The factor L of a flat n x n matrix: its strict lower triangle in a, its diagonal in p. The upper
 * triangle and diagonal of a keep the matrix.
 */

/*
 * Decomposes a = L L^T (Cholesky; Benoit, 1924).
 *
 * a       flat n x n, symmetric; the upper triangle is read; out: L below the diagonal
 * p       out (n): the diagonal of L
 * status  out: 0, or 1 when a diagonal remainder is below 1e-10: the matrix is not positive
 *         definite or too close to singular. What has been reached stays in a and p
 */
ZTMATH_API void NR_cholesky_decomp(int n, double *a, double *p, int *status);

/*
 * Substitutes forward and back with a Cholesky factor. The back substitution leaves out row 0: x[0]
 * keeps the value of the forward substitution, and the other unknowns are those of L L^T x = b.
 *
 * a, p  the factor
 * b     (n) right-hand side
 * x     out (n)
 *
 * Returns 0, which tells nothing.
 */
ZTMATH_API int NR_cholesky_solver(const double *a, int n, const double *p, const double *b,
                                  double *x);

/* Inverts a factor: out, the lower triangle of a, diagonal included, holds L^-1. */
ZTMATH_API void NR_cholesky_inverse(int n, const double *p, double *a);

/* ---- Matrices: row pointers ------------------------------------------------------------------ */

/*
 * Makes a matrix of row pointers over one contiguous block.
 *
 * block  the block of rows * cols doubles; null in it has one allocated, contents undefined
 *
 * Returns the row pointers. The caller frees pointers and block, one by one, with SM_free.
 */
ZTMATH_API double **NR_2d_matrix_allo(int rows, int cols, double **block);

/* Fills a matrix with the identity, or with zeros. */
ZTMATH_API void NR_2d_matrix_identity(double **matrix, int n);
ZTMATH_API void NR_2d_matrix_init_zero(double **matrix, int rows, int cols);

/* Transposes a square matrix in place. */
ZTMATH_API void NR_2d_matrix_nxn_transp(double **matrix, int n);

/* product (l x n) = a (l x m) times b (m x n). product may alias a or b. */
ZTMATH_API void NR_2d_matrix_product_of_2(double **a, double **b, int l, int m, int n,
                                          double **product);

/* ---- Matrices: flat -------------------------------------------------------------------------- */

/* Fills a matrix with the identity, or with zeros. */
ZTMATH_API void NR_matrix_2d_as_1d_identity(double *matrix, int n);
ZTMATH_API void NR_matrix_2d_as_1d_init_zero(double *matrix, int rows, int cols);

/* Zeroes the strict upper, or the strict lower, triangle of a square matrix. */
ZTMATH_API void NR_matrix_2d_as_1d_init_zero_ut(double *matrix, int n);
ZTMATH_API void NR_matrix_2d_as_1d_init_zero_lt(double *matrix, int n);

/* Transposes a square matrix in place. */
ZTMATH_API void NR_matrix_2d_as_1d_nxn_transp(double *matrix, int n);

/* product (l x n) = a (l x m) times b (m x n). product may alias a or b. */
ZTMATH_API void NR_matrix_2d_as_1d_product_of_2(double *a, double *b, int l, int m, int n,
                                                double *product);

/* ---- Between the forms ----------------------------------------------------------------------- */

/* Copy a matrix from one form to the other. Source and target may overlap. */
ZTMATH_API void NR_matrix_copy_1d_to_2d(const double *source, int rows, int cols, double **target);
ZTMATH_API void NR_matrix_copy_2d_to_1d(double **source, int rows, int cols, double *target);

ZTMATH_END_DECLS

#endif
