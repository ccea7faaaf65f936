// The defining data of a curve, drawn: points, slopes and a comb of curvatures.
#pragma once

#include <string>

#include "curve_data.h"

namespace tool {

/// The data must be valid.
std::string curve_picture(const CurveOptions& options, const CurveData& data);

}  // namespace tool
