// Complex numbers as values. Products of large parts are scaled where the plain formula would
// overflow: in the modulus, the quotient and the square root.
#pragma once

#include <cmath>

namespace ztmath {

struct Complex {
    double re, im;

    bool operator==(const Complex&) const = default;
};

constexpr Complex operator+(Complex a, Complex b) {
    return {a.re + b.re, a.im + b.im};
}
constexpr Complex operator-(Complex a, Complex b) {
    return {a.re - b.re, a.im - b.im};
}
constexpr Complex operator*(Complex a, Complex b) {
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
constexpr Complex operator*(double s, Complex a) {
    return {s * a.re, s * a.im};
}

/// The quotient, scaled by the larger part of the denominator (Smith, 1962).
inline Complex operator/(Complex a, Complex b) {
    if (std::fabs(b.re) >= std::fabs(b.im)) {
        const double ratio = b.im / b.re;
        const double denominator = b.re + ratio * b.im;
        return {(a.re + ratio * a.im) / denominator, (a.im - ratio * a.re) / denominator};
    }
    const double ratio = b.re / b.im;
    const double denominator = b.im + ratio * b.re;
    return {(ratio * a.re + a.im) / denominator, (ratio * a.im - a.re) / denominator};
}

inline double modulus(Complex a) {
    const double x = std::fabs(a.re);
    const double y = std::fabs(a.im);
    if (x == 0.0) return y;
    if (y == 0.0) return x;
    const double ratio = x > y ? y / x : x / y;
    return (x > y ? x : y) * std::sqrt(1.0 + ratio * ratio);
}

/// The square root whose real part is not negative, by half-angle formulas; 0 for 0.
inline Complex square_root(Complex a) {
    const double x = std::fabs(a.re);
    const double y = std::fabs(a.im);
    if (x == 0.0 && y == 0.0) return {0.0, 0.0};
    const double ratio = x >= y ? y / x : x / y;
    const double diagonal = std::sqrt(1.0 + ratio * ratio);
    const double w = x >= y ? std::sqrt(x) * std::sqrt(0.5 * (1.0 + diagonal))
                            : std::sqrt(y) * std::sqrt(0.5 * (ratio + diagonal));
    if (a.re >= 0.0) return {w, a.im / (2.0 * w)};
    const double im = a.im >= 0.0 ? w : -w;
    return {a.im / (2.0 * im), im};
}

}  // namespace ztmath
