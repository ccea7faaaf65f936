// The session's tolerances.
#include "ztmath/tolerance.h"

#include <iterator>

#include "frame/acom.h"

double EQ_ask_number_tolerance() {
    return ztmath::number_tolerance();
}

double EQ_ask_length_tolerance() {
    return acom_.tolerances[ZTMATH_LENGTH_TOLERANCE];
}

double EQ_ask_length_squared_tolerance() {
    return acom_.tolerances[ZTMATH_SQUARED_LENGTH_TOLERANCE];
}

void sys21_() {
    const double number = ztmath::gca(ztmath::gca_fine_tolerance) != 0 ? 1.0e-10 : 1.0e-4;
    const double length = number * acom_.model_scale;
    const double squared = length * length;
    acom_.tolerances[ZTMATH_NUMBER_TOLERANCE] = number;
    acom_.tolerances[ZTMATH_LENGTH_TOLERANCE] = length;
    acom_.tolerances[ZTMATH_SQUARED_LENGTH_TOLERANCE] = squared;
    acom_.tolerances[ZTMATH_WIDE_SQUARED_TOLERANCE] = squared * 10000.0 * 10000.0;
}

void sys22_(const double* value, const int* index, double* result) {
    const bool in_table = *index >= 0 && *index < std::ssize(acom_.tolerances);
    *result = in_table ? acom_.tolerances[*index] * *value : 0.0;
}
