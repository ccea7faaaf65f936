// A quadratic equation, and a linear one in sine and cosine.
#pragma once

namespace ztmath {

/// status: the number of roots, -2 a complex pair (real part, imaginary part), -3 no equation.
struct QuadraticRoots {
    int status;
    double x[2];
};

QuadraticRoots quadratic_roots(double k2, double k1, double k0, bool normalise);

/// -1, 0 or 1; equality with the tolerance counts as 0.
inline int sign_of(double x, double tol) {
    if ((x < 0.0 ? -x : x) <= tol) return 0;
    return x < 0.0 ? -1 : 1;
}

}  // namespace ztmath
