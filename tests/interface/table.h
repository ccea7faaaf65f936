// One row for each exported function that computes, reports or allocates: how it is called with
// arrays of doubles. The loops over the table try what must hold for all of them: any output over
// any input, any special value anywhere, the same bits at every optimisation, any call of the
// platform leaving by an exception.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "support/random.h"

namespace ztmath_test {

using Arrays = std::vector<std::vector<double>>;
using In = const double* const*;
using Out = double* const*;

struct Call {
    std::string name;                  // of the exported function
    std::vector<std::size_t> inputs;   // the lengths of the arrays that `run` reads
    std::vector<std::size_t> outputs;  // and of those it writes
    /// Calls the function; returns its result. Must own nothing: it is left by long jumps too.
    double (*run)(In in, Out out);
    /// Makes normally distributed numbers into input that the function can serve.
    void (*prepare)(Random& random, Arrays& inputs) = nullptr;
    /// Whether `run` passes the arrays on as they are, so that outputs may lie over inputs.
    bool passes_on = true;
    /// Whether it writes what all calls share: then no other call may run beside it.
    bool writes_shared = false;
};

std::vector<Call> frame_calls();
std::vector<Call> kit_calls();
std::vector<Call> transform_calls();
std::vector<Call> solve_calls();
std::vector<Call> root_calls();
std::vector<Call> fit_calls();
std::vector<Call> dgeom_calls();
std::vector<Call> facet_calls();
std::vector<Call> polygon_calls();

const std::vector<Call>& interface_table();

/// What a function is called with, taken from the arrays in the order of its parameters.
struct Arguments {
    template <class Parameter>
    Parameter next() {
        if constexpr (std::is_same_v<Parameter, double>)
            return **in++;
        else if constexpr (std::is_same_v<Parameter, const double*>)
            return *in++;
        else if constexpr (std::is_same_v<Parameter, double*>)
            return *out++;
        else if constexpr (std::is_same_v<Parameter, int*>)
            return &flag;
        else
            return *integers++;
    }

    In in;
    Out out;
    const int* integers;
    int flag = 0;
};

template <class Result, class... Parameters>
double call_with(Result (*f)(Parameters...), Arguments from) {
    const std::tuple<Parameters...> arguments{from.next<Parameters>()...};
    if constexpr (std::is_void_v<Result>) {
        std::apply(f, arguments);
        return from.flag;
    } else {
        return static_cast<double>(std::apply(f, arguments));
    }
}

/// `run` of a function whose parameters say what they are: constant arrays and numbers are inputs,
/// other arrays outputs; integers are given here, and one may be given back.
template <auto f, int... integers>
double called(In in, Out out) {
    static constexpr int values[] = {integers..., 0};
    return call_with(f, {in, out, values});
}

/// How the numbers of an input are drawn.
enum class Draw { regular, whole_numbers, any_size };
inline constexpr Draw draws[] = {Draw::regular, Draw::whole_numbers, Draw::any_size};

Arrays draw_inputs(const Call& call, Random& random, Draw draw);

/// What a call gave back.
struct Outcome {
    double result;
    Arrays outputs;
};

/// Calls with arrays of their own; outputs hold `fill` before.
Outcome outcome_of(const Call& call, const Arrays& inputs, double fill = 7.0);

inline bool same_bits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool same_bits(const Outcome& a, const Outcome& b);

}  // namespace ztmath_test
