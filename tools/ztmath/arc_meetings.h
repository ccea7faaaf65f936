// Where two lines, segments, circles or arcs meet.
#pragma once

#include "arc_report.h"

namespace tool {

/// The points where the two entities meet; lines and circles are unbounded.
ArcReport meetings_of(const Given& given, const Tolerances& tols);

}  // namespace tool
