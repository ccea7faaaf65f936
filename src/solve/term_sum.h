// Sums of a few terms that know how large their terms were, and so whether what is left after
// cancellation means anything.
#pragma once

#include <cmath>
#include <cstddef>

namespace ztmath {

struct TermSum {
    double value;
    double magnitude;  ///< the sum of the terms' absolute values
};

/// Whether a sum is so small beside its terms that it counts as zero.
inline bool is_insignificant(TermSum sum, double eps) {
    return sum.magnitude * eps >= std::fabs(sum.value);
}

/// Adds terms of like magnitude and sign first: four bins by magnitude, each with the positive
/// terms apart from the others, put together from the bin of the smallest terms to that of the
/// largest.
template <std::size_t N>
TermSum sum_by_magnitude(const double (&terms)[N]) {
    double bins[4][2] = {};
    double magnitude = 0.0;
    for (const double term : terms) {
        const double size = std::fabs(term);
        const int bin = int{size > 1.0e-5} + int{size > 1.0} + int{size > 1.0e5};
        bins[bin][int{term > 0.0}] += term;
        magnitude += size;
    }
    double value = 0.0;
    for (const auto& bin : bins)
        value += bin[1] + bin[0];
    return {value, magnitude};
}

/// Two terms come to the same sum whatever their bins.
inline TermSum sum_by_magnitude(const double (&terms)[2]) {
    return {terms[0] + terms[1], std::fabs(terms[0]) + std::fabs(terms[1])};
}

}  // namespace ztmath
