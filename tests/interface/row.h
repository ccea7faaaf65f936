// Rows of functions whose parameters say what they read and write.
#pragma once

#include <algorithm>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "interface/table.h"

namespace ztmath_test {

/// The next argument of a call: an input array, a number in an array of its own, an output array.
struct Arguments {
    template <class Parameter>
    Parameter next() {
        if constexpr (std::is_same_v<Parameter, double*>)
            return *out++;
        else if constexpr (std::is_same_v<Parameter, const double*>)
            return *in++;
        else
            return **in++;
    }
    In in;
    Out out;
};

template <class Result, class... Parameters>
double called(Result (*function)(Parameters...), In in, Out out) {
    Arguments arguments{in, out};
    const std::tuple<Parameters...> values{arguments.next<Parameters>()...};
    if constexpr (std::is_void_v<Result>) {
        std::apply(function, values);
        return 0;
    } else {
        return std::apply(function, values);
    }
}

/// The row of a function whose parameters say which of its arrays are written.
template <auto function>
Call row(const char* name, std::vector<std::size_t> inputs, std::vector<std::size_t> outputs = {},
         void (*prepare)(Random&, Arrays&) = nullptr) {
    return {name, std::move(inputs), std::move(outputs),
            [](In in, Out out) { return called(function, in, out); }, prepare};
}

/// The row of a function that changes an array in place.
template <auto function, std::size_t size>
Call in_place(const char* name, void (*prepare)(Random&, Arrays&) = nullptr) {
    const auto run = [](In in, Out out) {
        std::copy_n(in[0], size, out[0]);
        return called(function, in, out);
    };
    return {name, {size}, {size}, run, prepare, false};
}

/// The row of a call that copies what it passes on, or makes it anew.
inline Call copying(std::string name, std::vector<std::size_t> inputs,
                    std::vector<std::size_t> outputs, double (*run)(In, Out),
                    void (*prepare)(Random&, Arrays&) = nullptr) {
    return {std::move(name), std::move(inputs), std::move(outputs), run, prepare, false};
}

}  // namespace ztmath_test
