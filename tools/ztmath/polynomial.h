// Polynomials as a person gives them, and their real roots by the library.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tool {

struct Polynomial {
    std::vector<double> coefficients;  // by ascending power

    int degree() const { return static_cast<int>(coefficients.size()) - 1; }

    /// As a person writes it: 6 - 5 x + x^2.
    std::string str() const;
};

/// The largest degree that the library solves.
inline constexpr int largest_degree = 4;

/// The numbers of a text, all lines together; `name` is what messages call it.
Polynomial parse_polynomial(std::string_view text, const std::string& name);

/// The numbers on a command line; what is wrong with them is wrong usage.
Polynomial parse_polynomial(const std::vector<std::string>& words);

enum class Method { closed_form, laguerre };

/// A coefficient up to this counts as zero at the front of a polynomial.
inline constexpr double coefficient_tolerance = 1.0e-10;

struct Root {
    double x;
    double residual;  // of the polynomial at x
    double relative;  // the same beside the sum of its terms' absolute values
};

struct RootList {
    int degree;               // without the leading coefficients that count as zero
    std::vector<Root> roots;  // ascending
};

/// The real roots. A polynomial whose degree is below 1 has none.
RootList real_roots(const Polynomial& polynomial, Method method);

}  // namespace tool
