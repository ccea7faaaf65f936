// What rows mix with arrays of doubles: records, flags and characters, which are made of input
// numbers and become output numbers.
#pragma once

#include "support/prelude.h"
#include "ztmath/ztmath.h"

namespace ztmath_test {

using Segment = ARC_SPLINE_1_seg_2d_t;
using Plane = ARC_SPLINE_monge_plane_t;

/// How many numbers a segment is made of, and how many it becomes.
inline constexpr std::size_t segment_in = 7;
inline constexpr std::size_t segment_out = 12;

template <class Value>
inline constexpr bool is_segment = std::is_same_v<Value, Segment>;
template <class Value>
inline constexpr bool is_plane = std::is_same_v<Value, Plane>;

/// The same of any value. Integers and characters come out in pairs.
template <class Value>
inline constexpr std::size_t numbers_in = is_segment<Value> ? segment_in
                                          : is_plane<Value> ? 4
                                                            : 1;
template <class Value>
inline constexpr std::size_t numbers_out = is_segment<Value> ? segment_out
                                           : is_plane<Value> ? 5
                                                             : 2;

/// A segment of any kind: kind, orientation, start, inclination, turn, radius or length.
inline Segment segment_of(const double* numbers) {
    const double kind = numbers[0], angle = numbers[4], radius = std::fabs(numbers[6]);
    const double* start = numbers + 2;
    const double tangent[] = {std::cos(angle), std::sin(angle)};
    double end[] = {start[0] + radius * tangent[0], start[1] + radius * tangent[1]};
    double end_tangent[2];
    Segment s;
    if (kind > 0.8)
        ARC_SPLINE_cre_strt_seg_2d(start, end, tangent, &s);
    else if (kind > 0.6)
        ARC_SPLINE_cre_single_point_circle_2d(start, &s);
    else if (kind > 0.2)
        ARC_SPLINE_cre_circle_from_center_and_radius_2d(start, radius, &s);
    else
        ARC_SPLINE_cre_arc_seg_2d(start, tangent, std::fabs(numbers[5]) * 100.0, radius,
                                  numbers[1] < 0.0 ? -1 : 1, &s, end, end_tangent);
    return s;
}

template <class Value>
Value made_of(const double* numbers) {
    if constexpr (is_segment<Value>)
        return segment_of(numbers);
    else if constexpr (is_plane<Value>)
        return {{numbers[0], numbers[1], numbers[2]}, numbers[3], 0};
    else if constexpr (std::is_same_v<Value, double>)
        return *numbers;
    else if constexpr (std::is_same_v<Value, char>)
        return *numbers > 0.0 ? 'r' : 'd';
    else
        return *numbers > 0.0 ? 1 : 0;
}

inline void numbers_of(const Segment& s, double* numbers) {
    *numbers++ = s.type;
    *numbers++ = s.orientation;
    std::memcpy(numbers, s.start_point, sizeof s - offsetof(Segment, start_point));
}

inline void numbers_of(const Plane& plane, double* numbers) {
    numbers = std::copy_n(plane.normal, 3, numbers);
    *numbers++ = plane.offset;
    *numbers = plane.normalised;
}

template <class Value>
void numbers_of(const Value& pair, double* numbers) {
    std::copy_n(&pair, 2, numbers);
}

}  // namespace ztmath_test
