// Parts of a polygon with so few vertices that asking all of them is quicker than leaving out runs.
#pragma once

#include "facet/fill_outline.h"

namespace ztmath {

/// The most vertices of a small part.
inline constexpr int most_of_small_part = 128;

/// The apex of the triangle on the base edge of a part with at least four and at most that many
/// vertices, or -1. Wide lanes only make it quicker, where the processor has them.
int apex_of_small_part(const Outline& outline, int first, int last, bool wide_lanes);

}  // namespace ztmath
