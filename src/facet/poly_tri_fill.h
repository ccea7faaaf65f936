// The triangle fill of a polygon: what its files share.
#pragma once

#include "frame/report.h"
#include "ztmath/ptf.h"

namespace ztmath {

inline constexpr Module ptf_module{"ptf_poly_tri_fill"};

/// Fills a polygon of at least three points with n - 2 triangles; false if they cannot be found.
bool fill_polygon(int n, const double* points, PTF_triangle_t* triangles);

}  // namespace ztmath
