// Rows of functions whose parameters say what they read and write.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "interface/table.h"
#include "support/rotation.h"

namespace ztmath_test {

/// The next argument of a call: an input array, a number in an array of its own, an output array,
/// an integer that the row gives, one that comes back.
struct Arguments {
    template <class Parameter>
    Parameter next() {
        if constexpr (std::is_same_v<Parameter, double*>)
            return *out++;
        else if constexpr (std::is_same_v<Parameter, const double*>)
            return *in++;
        else if constexpr (std::is_same_v<Parameter, double>)
            return **in++;
        else if constexpr (std::is_same_v<Parameter, int*>)
            return &flag;
        else if constexpr (std::is_same_v<Parameter, const int*>)
            return integers++;
        else
            return static_cast<Parameter>(*integers++);
    }
    In in;
    Out out;
    const int* integers;
    int flag = 0;
};

template <class Result, class... Parameters>
double called(Result (*function)(Parameters...), In in, Out out, const int* integers) {
    Arguments arguments{in, out, integers};
    const std::tuple<Parameters...> values{arguments.next<Parameters>()...};
    if constexpr (std::is_void_v<Result>) {
        std::apply(function, values);
        return arguments.flag;
    } else {
        return std::apply(function, values);
    }
}

/// The name of a function, as the compiler spells it.
template <auto function>
std::string name_of() {
    const std::string_view text = __PRETTY_FUNCTION__;  // "... [with auto function = NAME; ..."
    const std::size_t at = text.find_first_not_of("& ", text.find("function = ") + 10);
    return std::string(text.substr(at, text.find_first_of(";]", at) - at));
}

/// The row of a function whose parameters say which of its arrays are written, with the integers
/// that it takes.
template <auto function, int... integers>
Call row(std::vector<std::size_t> inputs, std::vector<std::size_t> outputs = {},
         void (*prepare)(Random&, Arrays&) = nullptr) {
    const auto run = [](In in, Out out) {
        static constexpr int values[] = {integers..., 0};
        return called(function, in, out, values);
    };
    return {name_of<function>(), std::move(inputs), std::move(outputs), run, prepare};
}

/// The row of a function that changes its last array in place; the sizes of those before it follow.
/// Flags are set.
template <auto function, std::size_t size, std::size_t... before>
Call in_place(void (*prepare)(Random&, Arrays&) = nullptr) {
    const auto run = [](In in, Out out) {
        static constexpr int set[] = {1, 0};
        std::copy_n(in[sizeof...(before)], size, out[0]);
        return called(function, in, out, set);
    };
    return {name_of<function>(), {before..., size}, {size}, run, prepare, false};
}

/// Puts rotations in the place of arrays of nine, of the axes of frames and the blocks of
/// transforms.
inline void prepare_rotations(Random& random, Arrays& inputs) {
    for (auto& array : inputs) {
        const Matrix r = random_rotation(random);
        if (array.size() == 9) array.assign(r.begin(), r.end());
        if (array.size() == 12) std::copy(r.begin(), r.end(), array.begin() + 3);
        if (array.size() != 16) continue;
        for (std::size_t i = 0; i < 9; ++i)
            array[i + i / 3] = r[i] + (i % 2 == 0 ? 1.0e-12 : 0);
    }
}

/// The row of a call that copies what it passes on, or makes it anew.
inline Call copying(std::string name, std::vector<std::size_t> inputs,
                    std::vector<std::size_t> outputs, double (*run)(In, Out),
                    void (*prepare)(Random&, Arrays&) = nullptr) {
    return {std::move(name), std::move(inputs), std::move(outputs), run, prepare, false};
}

}  // namespace ztmath_test
