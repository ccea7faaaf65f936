// Rotation matrices: what other modules use of them.
#pragma once

#include <optional>

#include "frame/mat3.h"
#include "frame/report.h"

namespace ztmath {

inline constexpr Module mtx3_module{"mtx3"};

/// How far squared lengths of rows may differ from 1, and dot products of rows from 0.
inline constexpr double ortho_normal_tolerance = 1.0e-14;

/// Elements this close to 0 or +-1 are 0 or +-1 where a matrix is cleaned; directions with a cosine
/// up to this are perpendicular.
inline constexpr double element_tolerance = 1.0e-10;

bool is_ortho_normal(const Mat3& m);

/// Elements within the tolerance, and the same answer of is_ortho_normal.
bool is_equal(const Mat3& a, const Mat3& b, double tolerance);

/// Repairs a matrix in place; true if it was changed.
bool ortho_normalize(Mat3& m);

// Frames; nothing if a direction is null or two are not perpendicular.
std::optional<Mat3> frame_from_x_y(Vec3 x, Vec3 y);
std::optional<Mat3> frame_from_y_z(Vec3 y, Vec3 z);
std::optional<Mat3> frame_from_x_y_z(Vec3 x, Vec3 y, Vec3 z);
std::optional<Mat3> frame_from_x(Vec3 x);
std::optional<Mat3> frame_from_z(Vec3 z);

Mat3 rotation_about(Vec3 axis, double angle);

}  // namespace ztmath
