// One row for each exported function that computes, reports or allocates: how it is called with
// arrays of doubles. The loops over the table try what must hold for all of them: any output over
// any input, any special value anywhere, the same bits at every optimisation, any call of the
// platform leaving by an exception.
#pragma once

#include <atomic>
#include <cstdio>

#include "support/support.h"

namespace ztmath_test {

using Arrays = std::vector<std::vector<double>>;
using Lengths = std::vector<std::size_t>;
using In = const double* const*;
using Out = double* const*;
using Prepare = void (*)(Random& random, Arrays& inputs);

struct Call {
    std::string name;  // of the exported function
    Lengths inputs;    // of the arrays that `run` reads
    Lengths outputs;   // and of those it writes
    /// Calls the function; returns its result. Must own nothing: it is left by long jumps too.
    double (*run)(In in, Out out);
    /// Makes normally distributed numbers into input that the function can serve.
    Prepare prepare = nullptr;
    /// Whether `run` passes the arrays on as they are, so that outputs may lie over inputs.
    bool passes_on = false;
    /// Whether it writes what all calls share: then no other call may run beside it.
    bool writes_shared = false;
    /// The number of integers it is given, not counting those made of input.
    int integers = 0;
};

inline std::vector<Call> joined(const std::vector<std::vector<Call>>& parts) {
    std::vector<Call> all;
    for (const std::vector<Call>& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::vector<Call> arc_spline_calls();
std::vector<Call> curve_calls();
std::vector<Call> facet_calls();
std::vector<Call> fit_calls();
std::vector<Call> frame_calls();
std::vector<Call> kit_calls();
std::vector<Call> solve_calls();

/// Releases what a row works on; to be called wherever a call may have been left.
void release_held();

const std::vector<Call>& interface_table();

/// How many calls of the library the sweeps have made.
inline std::atomic<long> calls_made{0};

/// Tells how many they were since it last told.
inline void tell_calls() {
    std::printf("%ld calls\n", calls_made.exchange(0));
}

/// How the numbers of an input are drawn.
enum class Draw { regular, whole_numbers, any_size };
inline constexpr Draw draws[] = {Draw::regular, Draw::whole_numbers, Draw::any_size};

Arrays draw_inputs(const Call& call, Random& random, Draw draw);

/// Pointers to arrays, as a call takes them.
template <class AnyArrays>
auto pointers_to(AnyArrays& arrays) {
    std::vector<decltype(arrays[0].data())> pointers;
    for (auto& array : arrays)
        pointers.push_back(array.data());
    return pointers;
}

/// What a call gave back.
struct Outcome {
    double result;
    Arrays outputs;
};

/// Calls with arrays of their own; outputs hold `fill` before. Throws when a call writes beside its
/// outputs.
Outcome outcome_of(const Call& call, const Arrays& inputs, double fill = 7.0);

inline bool same_bits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool same_bits(const Outcome& a, const Outcome& b);

}  // namespace ztmath_test
