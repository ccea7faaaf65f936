// The quadratic that meets three conditions, coordinate by coordinate.
#pragma once

#include "frame/vec.h"

namespace ztmath {

/// Which of the three rows prescribes a derivative instead of a value.
enum class SlopeRow { none = 0, last = 1, middle = 2 };

/// What a curve has to be at a parameter: a point, or a derivative where the row is a slope row.
struct Condition {
    double parameter;
    Vec3 value;
};

/// q(t) = a t^2 + b t + c, and what is asked of it at one parameter.
struct Quadratic {
    Vec3 a, b, c;

    Vec3 at(double t) const { return a * (t * t) + b * t + c; }
    Vec3 first_derivative(double t) const { return a * (2.0 * t) + b; }
    Vec3 second_derivative() const { return a * 2.0; }
};

/// The solver's status, 0 for a quadratic that was found.
struct QuadraticFit {
    int status;
    Quadratic curve;
};

QuadraticFit fit_quadratic(const Condition (&rows)[3], SlopeRow slope_row);

}  // namespace ztmath
