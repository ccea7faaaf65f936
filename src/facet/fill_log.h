// A diagnostic record of a fill, as commands for the ANSYS preprocessor.
#pragma once

#include "ztmath/ptf.h"

namespace ztmath {

/// Writes the polygon and the triangles to "ansysptf.log" in the working directory; nothing, if
/// that cannot be opened.
void write_ansys_log(int n, const double* points, int triangle_count,
                     const PTF_triangle_t* triangles);

}  // namespace ztmath
