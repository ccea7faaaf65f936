// Cholesky factors of flat matrices: the strict lower triangle in the matrix, the diagonal apart.
#pragma once

namespace ztmath {

/// Decomposes in place; false, with what has been reached, if the matrix is not positive definite.
bool cholesky_decompose(int n, double* a, double* diagonal);

/// Replaces the lower triangle of a factor, diagonal included, by that of its inverse.
void cholesky_invert(int n, const double* diagonal, double* a);

}  // namespace ztmath
