#include "polynomial.h"

#include <ztmath/acom.h>
#include <ztmath/roots.h>
#include <ztmath/session.h>
#include <ztmath/tolerance.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

#include "failure.h"
#include "field.h"
#include "library_call.h"

namespace tool {

namespace {

/// The switch in the shared block that selects the fine number tolerance, counted from 1.
constexpr int fine_tolerance_switch = 31;

/// The closed forms compare coefficients with the session's number tolerance: the fine one, which
/// is the library's smallest.
void start_session() {
    const int mode = 0;
    sys10_(&mode);
    acom_.model_scale = 1.0;
    acom_.gca[fine_tolerance_switch - 1] = 1;
    sys21_();
}

std::string power(int exponent) {
    return exponent == 1 ? "x" : "x^" + std::to_string(exponent);
}

std::string term(double size, int exponent) {
    if (size == 1.0 && exponent > 0) return power(exponent);
    char number[40];
    std::snprintf(number, sizeof number, "%g", size);
    return exponent > 0 ? std::string(number) + ' ' + power(exponent) : number;
}

/// Adds the numbers of a line; the complaint about the first field that is none.
std::string add_numbers(std::string_view line, std::vector<double>& numbers) {
    for (std::string_view text; !(text = take_field(line)).empty();) {
        const Field field = read_field(text, std::numeric_limits<double>::max());
        if (field.kind == Field::no_number) return quoted(text) + " is not a number";
        if (field.kind != Field::number) return quoted(text) + " is not a finite number";
        numbers.push_back(field.value);
    }
    return "";
}

/// What is wrong with the count of the coefficients.
std::string count_complaint(std::size_t count) {
    if (count == 0) return "no coefficients";
    if (count <= largest_degree + 1) return "";
    return std::to_string(count) + " coefficients: the largest degree is " +
           std::to_string(largest_degree) + ", with " + std::to_string(largest_degree + 1);
}

Root checked(const Polynomial& polynomial, double x) {
    long double value = 0.0L;
    long double size = 0.0L;
    for (int i = polynomial.degree(); i >= 0; --i) {
        const long double coefficient = polynomial.coefficients[static_cast<std::size_t>(i)];
        value = value * x + coefficient;
        size = size * std::fabs(x) + std::fabs(coefficient);
    }
    const double residual = static_cast<double>(std::fabs(value));
    return {x, residual, size > 0.0L ? static_cast<double>(std::fabs(value) / size) : 0.0};
}

int solve(const Polynomial& polynomial, Method method, double* roots) {
    double c[largest_degree + 1] = {};
    std::copy(polynomial.coefficients.begin(), polynomial.coefficients.end(), c);
    if (method == Method::laguerre) return SOLVE_polynomial(polynomial.degree(), c, roots);
    switch (polynomial.degree()) {
        case 4:
            return SOLVE_quartic(c, roots);
        case 3:
            return SOLVE_cubic(c, roots);
        default:
            return SOLVE_quadratic(c, roots);
    }
}

}  // namespace

std::string Polynomial::str() const {
    std::string text;
    for (int i = 0; i <= degree(); ++i) {
        const double c = coefficients[static_cast<std::size_t>(i)];
        if (c == 0.0) continue;
        if (!text.empty())
            text += c < 0.0 ? " - " : " + ";
        else if (c < 0.0)
            text += '-';
        text += term(std::fabs(c), i);
    }
    return text.empty() ? "0" : text;
}

Polynomial parse_polynomial(std::string_view text, const std::string& name) {
    Polynomial polynomial;
    if (text.starts_with("\xef\xbb\xbf")) text.remove_prefix(3);
    for (int line = 1; !text.empty(); ++line) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string complaint = add_numbers(text.substr(0, end), polynomial.coefficients);
        if (!complaint.empty())
            throw Failure{ExitCode::input, name + ':' + std::to_string(line) + ": " + complaint};
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    const std::string complaint = count_complaint(polynomial.coefficients.size());
    if (!complaint.empty()) throw Failure{ExitCode::input, name + ": " + complaint};
    return polynomial;
}

Polynomial parse_polynomial(const std::vector<std::string>& words) {
    Polynomial polynomial;
    std::string complaint;
    for (const std::string& word : words)
        if (complaint.empty()) complaint = add_numbers(word, polynomial.coefficients);
    if (complaint.empty()) complaint = count_complaint(polynomial.coefficients.size());
    if (!complaint.empty()) throw Failure{ExitCode::usage, complaint};
    return polynomial;
}

RootList real_roots(const Polynomial& polynomial, Method method) {
    RootList list{polynomial.degree(), {}};
    while (list.degree >= 0 &&
           std::fabs(polynomial.coefficients[static_cast<std::size_t>(list.degree)]) <=
               coefficient_tolerance)
        --list.degree;
    if (list.degree < 1) return list;
    double roots[largest_degree];
    int count = 0;
    call_library([&] {
        start_session();
        count = solve(polynomial, method, roots);
    });
    for (int i = 0; i < count; ++i)
        list.roots.push_back(checked(polynomial, roots[i]));
    std::sort(list.roots.begin(), list.roots.end(),
              [](const Root& a, const Root& b) { return a.x < b.x; });
    return list;
}

}  // namespace tool
