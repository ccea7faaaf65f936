// LU decomposition of a row-pointer matrix, and substitution with its factors.
#pragma once

namespace ztmath {

/// Decomposes in place; exchanges[j] is the row exchanged with row j, sign the parity of the
/// exchanges. Returns false, the matrix unchanged, if a row is entirely zero. A pivot of exactly 0
/// becomes 1e-20.
bool lu_decompose(double** a, int n, int* exchanges, double& sign);

/// Replaces the right-hand side b by the solution.
void lu_solve(const double* const* a, int n, const int* exchanges, double* b);

}  // namespace ztmath
