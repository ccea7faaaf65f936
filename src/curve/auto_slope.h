// What a record says about the curve at a point when the user does not: automatic derivatives, and
// the lengths of slopes whose direction is given.
#pragma once

#include "curve/attached.h"

namespace ztmath {

inline constexpr Module bcdf_calc_module{"bcdf_calc"};

/// The Cartesian point at a position.
Vec3 cartesian_point(const BCDF& record, int position);

/// Derivatives at a point; not defined when points before and behind share a parameter.
struct Derivatives {
    bool defined;
    Vec3 first, second;
};

/// A position without a point is raised; zero.
Derivatives automatic_derivatives(const BCDF& record, int position);

/// Zero where it is not defined.
Vec3 automatic_slope(const BCDF& record, int position);
Vec3 automatic_curvature(const BCDF& record, int position);

/// v with the length that its type asks for at a point.
Vec3 normalized_slope(const BCDF& record, int type, int position, Vec3 v);

/// v / |v|; zero, and raised, when v is too short.
Vec3 unit_slope(Vec3 v);

/// Writes n parameters, at least one, that grow by powers of the distances of points.
void write_parameters(int n, int dimension, const double* points, double exponent, double* out);

/// Writes n weights: half of the parameter span from the previous to the next point.
void write_weights(std::span<const double> parameters, double* out);

}  // namespace ztmath
