// Vector lanes of four doubles, where the processor has them.
//
// Innermost loops of the dense solvers and of the triangle fill are compiled twice: for every
// x86-64, and for those with AVX2. Which one runs changes no bit of a result: each element sees the
// same operations in the same order, and a multiplication is never fused with an addition.
#pragma once

#include <cstring>

#if defined(__x86_64__) && __has_include(<sys/platform/x86.h>)
#if defined(__clang__)
#define _Bool bool  // NOLINT(bugprone-reserved-identifier): the header takes it for granted in C++
#include <sys/platform/x86.h>
#undef _Bool
#else
#include <sys/platform/x86.h>
#endif
#endif

namespace ztmath {

/// Two and four doubles in lanes. Without AVX2 compilers make the latter of two of the former.
using Pair = double __attribute__((vector_size(16)));
using Quad = double __attribute__((vector_size(32)));

/// The larger in each lane; the second where one is not a number.
inline Pair larger(Pair a, Pair b) {
    return a > b ? a : b;
}

// By reference: passing wide lanes by value would depend on what the processor is compiled for.
template <class Lanes>
[[gnu::always_inline]] inline void load(const double* p, Lanes& lanes) {
    std::memcpy(&lanes, p, sizeof lanes);
}

template <class Lanes>
[[gnu::always_inline]] inline void store(const Lanes& lanes, double* p) {
    std::memcpy(p, &lanes, sizeof lanes);
}

/// How many doubles a lane type holds.
template <class Lanes>
inline constexpr int width_of = sizeof(Lanes) / sizeof(double);

/// Whether functions compiled for AVX2 may be called. The C library looked when the program
/// started.
inline bool has_wide_lanes() {
#if defined(__x86_64__) && defined(CPU_FEATURE_ACTIVE)
    return CPU_FEATURE_ACTIVE(AVX2);
#else
    return false;
#endif
}

#if defined(__x86_64__)
#define ZTMATH_WIDE_LANES [[gnu::target("avx2")]]
#else
#define ZTMATH_WIDE_LANES
#endif

}  // namespace ztmath
