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

/// The bins of the sum below, from the smallest magnitudes to the largest.
inline constexpr int magnitude_bins = 4;

inline int magnitude_bin(double size) {
    return int{size > 1.0e-5} + int{size > 1.0} + int{size > 1.0e5};
}

/// Adds terms of like magnitude and sign first: four bins by magnitude, each with the positive
/// terms apart from the others, put together from the bin of the smallest terms to that of the
/// largest.
template <std::size_t N>
TermSum sum_by_magnitude(const double (&terms)[N]) {
    TermSum sum{0.0, 0.0};
    int bins[N];
    for (std::size_t i = 0; i < N; ++i) {
        const double size = std::fabs(terms[i]);
        sum.magnitude += size;
        bins[i] = magnitude_bin(size);
    }
    for (int bin = 0; bin < magnitude_bins; ++bin) {
        double positive = 0.0;
        double rest = 0.0;
        for (std::size_t i = 0; i < N; ++i) {
            const double term = bins[i] == bin ? terms[i] : 0.0;
            positive += term > 0.0 ? term : 0.0;
            rest += term > 0.0 ? 0.0 : term;
        }
        sum.value += positive + rest;
    }
    return sum;
}

/// Two terms come to the same sum whatever their bins.
inline TermSum sum_by_magnitude(const double (&terms)[2]) {
    return {terms[0] + terms[1], std::fabs(terms[0]) + std::fabs(terms[1])};
}

}  // namespace ztmath
