// Calls of the interface with arrays by value.
#pragma once

#include "support/rotation.h"

namespace ztmath_test {

/// What a call is passed for a value: of an array its address, of what is owned a pointer, of a
/// record its address.
template <class Value>
auto passed(Value& value) {
    if constexpr (requires { value.data(); })
        return value.data();
    else if constexpr (requires { value.get(); })
        return value.get();
    else if constexpr (std::is_class_v<Value>)
        return &value;
    else
        return value;
}

/// A call with arrays and records by value, for inputs and outputs alike.
template <class Function, class... Values>
auto called(Function function, Values&&... values) {
    return function(passed(values)...);
}

/// The array that a call writes behind its arguments.
template <class Out = Vector, class Function, class... Values>
Out written(Function function, const Values&... values) {
    Out out;
    function(passed(values)..., out.data());
    return out;
}

/// The same of a call that tells success; one that fails must leave the array.
template <class Out, int success, class Function, class... Values>
Out built(bool expected, Function function, const Values&... values) {
    Out untouched;
    untouched.fill(7);
    Out out = untouched;
    EXPECT_EQ(function(passed(values)..., out.data()), expected ? success : 1 - success);
    EXPECT_EQ(out != untouched, expected);
    return out;
}

/// What a call returns, and makes of an array in place.
template <class Function, class Value>
std::pair<int, Value> changed(Function function, Value value) {
    const int result = function(value.data());
    return {result, value};
}

}  // namespace ztmath_test
