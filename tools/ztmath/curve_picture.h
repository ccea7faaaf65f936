// The defining data of a curve, drawn: points, slopes and a comb of curvatures.
#pragma once

#include <string>

#include "curve_data.h"

namespace tool {

std::string curve_picture(const CurveData& data, const std::string& source);

}  // namespace tool
