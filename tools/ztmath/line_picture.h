// The pictures of line fits: points and line in true proportion, and the distances enlarged.
#pragma once

#include <string>

#include "fit.h"

namespace tool {

std::string line_picture(const Points& points, const Line2Fit& fit, const Unit& unit,
                         const std::string& source);

/// A line in space is seen in the plane that was fitted with it, and end on.
std::string line_picture(const Points& points, const Line3Fit& fit, const Unit& unit,
                         const std::string& source);

}  // namespace tool
