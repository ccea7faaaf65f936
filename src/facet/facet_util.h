// Facet utilities: what their files share.
#pragma once

#include "frame/report.h"

namespace ztmath {

inline constexpr Module facet_util_module{"facet_util_math"};

}  // namespace ztmath
