// Real roots of a polynomial by Laguerre's method in the complex plane: roots are found one by one,
// divided out, and at the end improved on the polynomial as it was given.
#include <cmath>

#include "frame/acom.h"
#include "solve/roots.h"
#include "ztmath/roots.h"

namespace ztmath {

namespace {

constexpr Module report = solve_module.part(1);

/// Relative accuracy of a root that is only divided out.
constexpr double search_eps = 2.0e-5;

/// A root is real when its imaginary part is at most `eps` times twice its real part.
bool is_as_good_as_real(Complex root, double eps) {
    return std::fabs(root.im) <= 2.0 * eps * std::fabs(root.re);
}

/// A polynomial's value at a point with its first and half its second derivative, and the part of
/// the value that rounding accounts for.
struct Evaluation {
    Complex value, first, half_second;
    double bound;
};

Evaluation evaluate(const Complex* a, int degree, Complex x) {
    Evaluation at{a[degree], {0.0, 0.0}, {0.0, 0.0}, modulus(a[degree])};
    const double size = modulus(x);
    for (int i = degree - 1; i >= 0; --i) {
        at.half_second = x * at.half_second + at.first;
        at.first = x * at.first + at.value;
        at.value = x * at.value + a[i];
        at.bound = modulus(at.value) + size * at.bound;
    }
    at.bound *= 5.0e-16;
    return at;
}

Complex laguerre_step(const Evaluation& at, int degree, Complex x, int iteration) {
    const Complex g = at.first / at.value;
    const Complex g_squared = g * g;
    const Complex h = g_squared - 2.0 * (at.half_second / at.value);
    const double m = degree;
    const Complex root = square_root((m - 1.0) * (m * h - g_squared));
    const Complex plus = g + root;
    const Complex minus = g - root;
    const Complex denominator = modulus(plus) < modulus(minus) ? minus : plus;
    // At a point like 0 of x^3 - 1 no direction is better than another: leave it in any.
    if (modulus(denominator) == 0.0)
        return (1.0 + modulus(x)) * Complex{std::cos(iteration), std::sin(iteration)};
    return Complex{m, 0.0} / denominator;
}

enum class Accuracy { search, polish };

/// Moves `x` to a root of the polynomial (Laguerre, 1880).
Complex laguerre(const Complex* a, int degree, Complex x, Accuracy accuracy) {
    constexpr int most_iterations = 100;
    constexpr int free_iterations = 6;  // in these the step may grow
    double last_size = 0.0;
    for (int iteration = 1; iteration <= most_iterations; ++iteration) {
        const Evaluation at = evaluate(a, degree, x);
        if (modulus(at.value) <= at.bound) return x;
        const Complex step = laguerre_step(at, degree, x, iteration);
        const Complex next = x - step;
        if (next == x) return x;
        x = next;
        const double size = modulus(step);
        // Kept as it stands: steps to and fro that are equal, as between two mirror images, end
        // here as well, on no root.
        if (iteration > free_iterations && size >= last_size) return x;
        last_size = size;
        if (accuracy == Accuracy::search && size <= search_eps * modulus(x)) return x;
    }
    if (checking()) report.internal("Too many iterations in routine laguerre()!!!\n");
    return x;
}

/// Divides a polynomial by (x - root); the remainder is dropped.
void deflate(Complex* a, int degree, Complex root) {
    Complex carried = a[degree];
    for (int i = degree - 1; i >= 0; --i) {
        const Complex coefficient = a[i];
        a[i] = carried;
        carried = root * carried + coefficient;
    }
}

/// All roots of a polynomial; the last element is the one found first.
void all_roots(const Complex* a, int degree, Complex* roots) {
    Complex rest[largest_degree + 1];
    for (int i = 0; i <= degree; ++i)
        rest[i] = a[i];
    for (int j = degree; j >= 1; --j) {
        Complex root = laguerre(rest, j, {0.0, 0.0}, Accuracy::search);
        if (is_as_good_as_real(root, 5.0 * search_eps)) root.im = 0.0;
        roots[j - 1] = root;
        deflate(rest, j, root);
    }
    for (int i = 0; i < degree; ++i)
        roots[i] = laguerre(a, degree, roots[i], Accuracy::polish);
}

/// The degree without the leading coefficients that are within `tol`; -1 if all are.
int effective_degree(int degree, const double* c, double tol) {
    while (degree >= 0 && std::fabs(c[degree]) <= tol)
        --degree;
    return degree;
}

RealRoots polynomial_roots(int degree, const double* c, double tol) {
    if (checking() && degree > largest_degree)
        report.internal("Degree is too large in SOLVE_polynomial())!!!\n");
    const int n = effective_degree(degree, c, tol);
    if (n > largest_degree) {
        if (checking()) report.internal("Degree is too large in routine get_all_roots())!!!\n");
        return {};
    }
    if (n <= 0) return {};
    Complex a[largest_degree + 1];
    for (int i = 0; i <= n; ++i)
        a[i] = {c[i], 0.0};
    Complex roots[largest_degree];
    all_roots(a, n, roots);
    return real_ones(roots, n);
}

}  // namespace

RealRoots real_ones(const Complex* roots, int count) {
    RealRoots real;
    for (int i = 0; i < count; ++i)
        if (roots[i].im == 0.0 || is_as_good_as_real(roots[i], search_eps))
            real.append(roots[i].re);
    return real;
}

}  // namespace ztmath

using namespace ztmath;

int SOLVE_polynomial(int degree, const double* coeffs, double* roots) {
    return store(polynomial_roots(degree, coeffs, number_tolerance()), roots);
}
