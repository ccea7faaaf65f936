// Curve records and lists of points for rows: made of input numbers, and becoming output numbers.
#pragma once

#include "interface/records.h"
#include "support/curve_record.h"

namespace ztmath_test {

template <class Value>
inline constexpr bool is_structure = std::is_same_v<Value, BCDF> || std::is_same_v<Value, PNTLST>;

/// How many numbers a structure is made of, and how many it becomes at most.
inline constexpr std::size_t structure_in = 30;
inline constexpr std::size_t structure_out = 200;

/// The structure, or block of numbers, that a call works on, or has handed out: not on the stack,
/// so that it can be released wherever a call is left.
template <class Structure, bool is_handed_out = false>
inline thread_local std::unique_ptr<Structure, Release> held;

template <class Value>
requires is_structure<Value>
inline constexpr std::size_t numbers_in<Value> = structure_in;
template <class Value>
requires is_structure<Value>
inline constexpr std::size_t numbers_out<Value> = structure_out;

/// Makes the list that a call works on, of points of the space or homogeneous ones.
inline void hold(const double* numbers, const PNTLST*) {
    held<PNTLST> = new_list({numbers, numbers + 24}, numbers[24] < -0.8 ? 4 : 3);
}

/// Makes the record that a call works on: for interpolation or a fit, with slopes and curvatures at
/// some points; at all of them, when all numbers are positive.
inline void hold(const double* numbers, const BCDF*) {
    const int dimension = numbers[24] < -0.8 ? 4 : 3;
    const bool is_fit = numbers[25] < -0.8;
    held<BCDF> = new_record({numbers, numbers + 24}, dimension, 0, is_fit ? 1 : 0);
    for (int i = 0; i < 24 / dimension; ++i) {
        const double* const vector = numbers + i;
        const int type = numbers[24 + i % 6] > 0 ? 0 : (i + 4) % 6;
        if (vector[0] > -1) BCDF_replace_slope(held<BCDF>.get(), vector, i, type);
        if (vector[0] > 0 && !is_fit) BCDF_replace_curvature(held<BCDF>.get(), vector, i, 0);
    }
}

/// Writes what a list holds; returns the end.
inline double* contents_of(const PNTLST* list, double* numbers) {
    if (list == nullptr) return numbers;
    const int used = std::min(list->num_points, list->points_allocated);  // the caller's duty
    for (const int field : {list->num_points, list->points_allocated, list->dimension})
        *numbers++ = field;
    return std::copy_n(list->points, used * list->dimension, numbers);
}

inline void contents_of(const BCDF* record, double* numbers) {
    if (record == nullptr) return;
    for (const int field : {record->order, record->periodicity, record->ls_num_segments,
                            record->num_knots, BCDF_check_defining_data(record)})
        *numbers++ = field;
    for (const PNTLST* list :
         {record->points, record->parameters, record->weights, record->slopes,
          record->slope_parameters, record->curvatures, record->curvature_parameters})
        numbers = contents_of(list, numbers);
}

}  // namespace ztmath_test
