// Tangent lines: common to two circles or arcs, or through a point.
#pragma once

#include "arc_report.h"

namespace tool {

/// The entities are two circles or arcs, or one and a point. A Failure says what allows no answer.
ArcReport tangents_of(const Given& given, const Tolerances& tols);

}  // namespace tool
