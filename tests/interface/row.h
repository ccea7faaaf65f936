// Rows of functions whose parameters say what they read and write.
#pragma once

#include "interface/structures.h"
#include "interface/table.h"
#include "support/support.h"
#include "syss/syss.h"

namespace ztmath_test {

/// The numbers in the array that each parameter of a function is, where its header tells, and 0.
using Extents = std::array<std::size_t, 24>;
template <auto function>
inline constexpr Extents extents{};
/// Whether a function hands out a block of numbers, which is the caller's to free.
template <auto function>
inline constexpr bool hands_out = false;
#include "extents.inc"

/// Parameters by their place, where a row tells which ones are read and written.
inline constexpr unsigned first = 1, second = 2, third = 4, fourth = 8, fifth = 16, sixth = 32;

/// The arrays and integers for the parameters that are still to come.
struct Cursor {
    In in;
    Out out;
    const int* integers;  // of the row; null where they are made of input numbers
    unsigned in_out;      // a bit for each parameter that is read and written
};

/// What is passed for a parameter: an array of input or output, rows of `columns` over an output, a
/// place for a block that is handed out, or something made of input numbers and becoming output
/// numbers. Arrays have `size` numbers.
template <class Parameter, std::size_t size, std::size_t columns>
class Passed {
    using Value = std::remove_const_t<std::remove_pointer_t<Parameter>>;
    static constexpr bool is_pointer = std::is_pointer_v<Parameter>;
    static constexpr bool is_written =
        is_pointer && !std::is_const_v<std::remove_pointer_t<Parameter>>;
    static constexpr bool is_array = is_pointer && std::is_same_v<Value, double>;
    static constexpr bool is_matrix = std::is_same_v<Value, double*> && columns > 1;
    static constexpr bool is_block = std::is_same_v<Value, double*> && columns == 1;

  public:
    explicit Passed(Cursor& at) {
        const bool is_read = is_in(at);
        if constexpr (is_written) to_ = *at.out++;
        if constexpr (is_matrix)
            for (std::size_t i = 0; i < std::size(values_); ++i)
                values_[i] = to_ + i * columns;
        else if constexpr (std::is_arithmetic_v<Value>)
            std::fill(std::begin(values_), std::end(values_), Value{77});
        if (!is_read) return;
        if constexpr (std::is_integral_v<Value>)
            if (at.integers != nullptr) {
                values_[0] = static_cast<Value>(*at.integers++);
                return;
            }
        from_ = *at.in++;
        if constexpr (is_structure<Value>)
            hold(from_, values_);
        else if constexpr (is_written && (is_array || is_matrix))
            std::copy_n(from_, size, to_);
        else if constexpr (!is_array && !is_block)
            values_[0] = made_of<Value>(from_);
    }

    Parameter get() {
        if constexpr (is_structure<Value>)
            return held<Value>.get();
        else if constexpr (is_array && is_written)
            return to_;
        else if constexpr (is_array)
            return from_;
        else if constexpr (is_pointer)
            return values_;
        else
            return values_[0];
    }

    void finish() {
        if constexpr (is_structure<Value>) {
            if constexpr (is_written) contents_of(held<Value>.get(), to_);
            held<Value>.reset();
        } else if constexpr (is_matrix) {
            if (values_[0] != to_) SM_free(values_[0]);  // a block that was handed out
        } else if constexpr (is_block) {
            std::copy_n(values_[0], SM_length(values_[0]) / sizeof(double), to_);
            SM_free(values_[0]);
        } else if constexpr (is_written && !is_array) {
            numbers_of(values_[0], to_);
        }
    }

    /// Adds the lengths of the arrays that this takes.
    static void add_lengths(Cursor& at, Call& call) {
        constexpr bool is_plain = is_array || is_matrix;
        const bool is_read = is_in(at);
        if (is_read && at.integers != nullptr && std::is_integral_v<Value>)
            ++call.integers;
        else if (is_read)
            call.inputs.push_back(is_plain ? size : numbers_in<Value>);
        if (is_written) call.outputs.push_back(is_plain ? size : numbers_out<Value>);
    }

  private:
    static bool is_in(Cursor& at) {
        const bool is_read_too = (std::exchange(at.in_out, at.in_out >> 1) & 1) != 0;
        return is_read_too || !is_written || is_structure<Value>;
    }

    const double* from_ = nullptr;
    double* to_ = nullptr;
    Value values_[is_matrix ? size / columns : 8] = {};
};

/// What is passed for each parameter of a function; arrays have `size` numbers where the header
/// does not tell.
template <auto function, std::size_t size, std::size_t columns>
struct Arguments {
    template <class Result, class... Parameters, std::size_t... i>
    static auto of(Result (*)(Parameters...), std::index_sequence<i...>) {
        [[maybe_unused]] constexpr Extents told = extents<function>;
        return std::type_identity<
            std::tuple<Passed<Parameters, told[i] != 0 ? told[i] : size, columns>...>>{};
    }
    template <class Result, class... Parameters>
    static auto of(Result (*f)(Parameters...)) {
        return of(f, std::index_sequence_for<Parameters...>{});
    }
    using Type = decltype(of(function));
};

/// Whether rows call nothing, so that outputs show what is there before a call.
inline bool calls_nothing = false;

/// Calls a function; returns its result if that is a number, and holds one that is a structure.
template <auto function, class... Values>
double result_of(Values... values) {
    using Result = decltype(function(values...));
    using Structure = std::remove_pointer_t<Result>;
    if (calls_nothing) return 0.0;
    if constexpr (std::is_arithmetic_v<Result>)
        return function(values...);
    else if constexpr (is_structure<Structure>)
        held<Structure, true>.reset(function(values...));
    else if constexpr (hands_out<function>)
        SM_free(function(values...));
    else
        function(values...);
    return 0.0;
}

/// The same with what is passed for each parameter. A structure becomes the last output.
template <auto function, class... Each>
double called([[maybe_unused]] Cursor at, std::type_identity<std::tuple<Each...>>) {
    using Structure = std::remove_pointer_t<decltype(function(std::declval<Each>().get()...))>;
    std::tuple<Each...> passed{Each(at)...};
    return std::apply(
        [&](auto&... each) {
            const double result = result_of<function>(each.get()...);
            (each.finish(), ...);
            if constexpr (is_structure<Structure>) {
                contents_of(held<Structure, true>.get(), *at.out);
                held<Structure, true>.reset();
            }
            return result;
        },
        passed);
}

template <class Result, class... Parameters, class... Each>
void add_lengths(Result (*)(Parameters...), [[maybe_unused]] Cursor at, Call& call,
                 std::type_identity<std::tuple<Each...>>) {
    (Each::add_lengths(at, call), ...);
    if (is_structure<std::remove_pointer_t<Result>>) call.outputs.push_back(structure_out);
}

/// The name of a function, as the compiler spells it.
template <auto function>
std::string name_of() {
    const std::string_view text = __PRETTY_FUNCTION__;  // "... [with auto function = NAME; ..."
    const std::size_t at = text.find_first_not_of("& ", text.find("function = ") + 10);
    return std::string(text.substr(at, text.find_first_of(";]", at) - at));
}

/// Integers of a row, in their order; without any, its integers are flags.
template <int... integers>
inline constexpr int listed[] = {integers..., 0};
template <int... integers>
inline constexpr const int* given_integers = sizeof...(integers) > 0 ? listed<integers...>
                                                                     : nullptr;

/// The row of a function that reads and writes some parameters, matrices with so many `columns`
/// among them. Without lengths, arrays have as many numbers as the header tells, and `size` where
/// it does not.
template <auto function, unsigned in_out, std::size_t size, std::size_t columns, const int* given>
Call general_row(const Lengths& inputs = {}, const Lengths& outputs = {},
                 Prepare prepare = nullptr) {
    static constexpr typename Arguments<function, size, columns>::Type arguments;
    const auto run = [](In in, Out out) {
        return called<function>({in, out, given, in_out}, arguments);
    };
    Call call{name_of<function>(), {}, {}, run, prepare, in_out == 0 && columns == 1};
    add_lengths(function, {{}, {}, given, in_out}, call, arguments);
    if (inputs.empty() && outputs.empty()) return call;
    if (inputs.size() != call.inputs.size() || outputs.size() != call.outputs.size())
        throw std::logic_error(call.name + " takes other arrays");
    call.inputs = inputs;
    call.outputs = outputs;
    return call;
}

template <auto function, unsigned in_out, std::size_t columns, std::size_t size, int... integers>
Call on_matrices(const Lengths& inputs = {}, const Lengths& outputs = {},
                 Prepare prepare = nullptr) {
    constexpr const int* given = given_integers<integers...>;
    return general_row<function, in_out, size, columns, given>(inputs, outputs, prepare);
}

template <auto function, unsigned in_out, std::size_t size, int... integers>
Call changing(const Lengths& inputs = {}, const Lengths& outputs = {}, Prepare prepare = nullptr) {
    return on_matrices<function, in_out, 1, size, integers...>(inputs, outputs, prepare);
}

template <auto function, int... integers>
Call row(const Lengths& inputs = {}, const Lengths& outputs = {}, Prepare prepare = nullptr) {
    return changing<function, 0, 2, integers...>(inputs, outputs, prepare);
}

/// Rows of functions that read and write the same parameters and are prepared for in the same way.
template <unsigned in_out, Prepare prepare, auto... functions>
std::vector<Call> rows_of() {
    return {changing<functions, in_out, 3>({}, {}, prepare)...};
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

}  // namespace ztmath_test
