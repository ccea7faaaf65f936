// Rows of functions that take integers, flags and segment records beside doubles: each is made of
// input numbers before the call, and what is written becomes output numbers after it.
#pragma once

#include <cmath>
#include <cstddef>
#include <tuple>
#include <type_traits>
#include <utility>

#include "interface/row.h"
#include "ztmath/arc_spline.h"

namespace ztmath_test {

using Segment = ARC_SPLINE_1_seg_2d_t;

/// How many numbers a segment is made of, and how many it becomes.
inline constexpr std::size_t segment_in = 7;
inline constexpr std::size_t segment_out = 11;

/// A segment of any kind: kind, orientation, start, inclination, turn, radius or length.
inline Segment segment_of(const double* numbers) {
    const auto [kind, sense, x, y, angle, turn, radius] =
        std::tuple(numbers[0], numbers[1], numbers[2], numbers[3], numbers[4], numbers[5],
                   std::fabs(numbers[6]));
    const double start[] = {x, y};
    const double tangent[] = {std::cos(angle), std::sin(angle)};
    double end[] = {x + radius * tangent[0], y + radius * tangent[1]};
    double end_tangent[2];
    Segment s;
    if (kind > 0.8)
        ARC_SPLINE_cre_strt_seg_2d(start, end, tangent, &s);
    else if (kind > 0.6)
        ARC_SPLINE_cre_single_point_circle_2d(start, &s);
    else if (kind > 0.2)
        ARC_SPLINE_cre_circle_from_center_and_radius_2d(start, radius, &s);
    else
        ARC_SPLINE_cre_arc_seg_2d(start, tangent, std::fabs(turn) * 100.0, radius,
                                  sense < 0.0 ? -1 : 1, &s, end, end_tangent);
    return s;
}

inline void numbers_of(const Segment& s, double* numbers) {
    const double all[segment_out] = {static_cast<double>(s.type),
                                     static_cast<double>(s.orientation),
                                     s.start_point[0],
                                     s.start_point[1],
                                     s.start_angle,
                                     s.end_angle,
                                     s.center[0],
                                     s.center[1],
                                     s.direction[0],
                                     s.direction[1],
                                     s.radius};
    std::copy_n(all, segment_out, numbers);
}

struct Cursor {
    In in;
    Out out;
};

/// What is passed for a parameter. `in_out`: what is written is read as well.
template <class Parameter>
class Passed {
  public:
    Passed(Cursor& at, bool) {
        const double number = **at.in++;
        if constexpr (std::is_same_v<Parameter, double>)
            value_ = number;
        else if constexpr (std::is_same_v<Parameter, char>)
            value_ = number > 0.0 ? 'r' : 'd';
        else
            value_ = number > 0.0 ? 1 : 0;
    }
    Parameter get() { return value_; }
    void finish() {}

  private:
    Parameter value_;
};

template <>
class Passed<const double*> {
  public:
    Passed(Cursor& at, bool) : array_(*at.in++) {}
    const double* get() { return array_; }
    void finish() {}

  private:
    const double* array_;
};

/// In and out arrays are pairs.
template <>
class Passed<double*> {
  public:
    Passed(Cursor& at, bool in_out) : array_(*at.out++) {
        if (in_out) std::copy_n(*at.in++, 2, array_);
    }
    double* get() { return array_; }
    void finish() {}

  private:
    double* array_;
};

/// Integers and characters come out as pairs of numbers.
template <class Whole>
class PassedOut {
  public:
    PassedOut(Cursor& at, bool) : array_(*at.out++) {}
    Whole* get() { return value_; }
    void finish() { std::copy_n(value_, 2, array_); }

  private:
    double* array_;
    Whole value_[2] = {77, 77};
};

template <>
class Passed<int*> : public PassedOut<int> {
    using PassedOut::PassedOut;
};
template <>
class Passed<char*> : public PassedOut<char> {
    using PassedOut::PassedOut;
};

template <>
class Passed<const Segment*> {
  public:
    Passed(Cursor& at, bool) : segment_(segment_of(*at.in++)) {}
    const Segment* get() { return &segment_; }
    void finish() {}

  private:
    Segment segment_;
};

/// Of an array of segments, the first comes out.
template <>
class Passed<Segment*> {
  public:
    Passed(Cursor& at, bool in_out) : array_(*at.out++), segments_{} {
        if (in_out) segments_[0] = segment_of(*at.in++);
    }
    Segment* get() { return segments_; }
    void finish() { numbers_of(segments_[0], array_); }

  private:
    double* array_;
    Segment segments_[8];
};

template <class Result, class... Parameters>
double called_mixed(Result (*function)(Parameters...), unsigned in_out, In in, Out out) {
    Cursor at{in, out};
    unsigned bit = 1;
    const auto is_both = [&] { return (in_out & std::exchange(bit, bit << 1)) != 0; };
    std::tuple<Passed<Parameters>...> passed{Passed<Parameters>(at, is_both())...};
    return std::apply(
        [&](auto&... each) {
            double result = 0.0;
            if constexpr (std::is_arithmetic_v<Result>)
                result = function(each.get()...);
            else
                function(each.get()...);
            (each.finish(), ...);
            return result;
        },
        passed);
}

/// The row of a function; a bit of `in_out` for each parameter that is both.
template <auto function, unsigned in_out = 0>
Call mixed_row(std::vector<std::size_t> inputs, std::vector<std::size_t> outputs = {}) {
    const auto run = [](In in, Out out) { return called_mixed(function, in_out, in, out); };
    return {name_of<function>(), std::move(inputs), std::move(outputs), run, nullptr, in_out == 0};
}

}  // namespace ztmath_test
