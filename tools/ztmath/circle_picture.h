// The picture of a circle fit: points and circle in true proportion, and the distances enlarged
// along the circle.
#pragma once

#include <string>

#include "fit.h"

namespace tool {

std::string circle_picture(const Points& points, const CircleFit& fit, const Unit& unit,
                           const std::string& source);

/// A circle in space is seen square to its plane.
std::string circle_picture(const Points& points, const Circle3Fit& fit, const Unit& unit,
                           const std::string& source);

}  // namespace tool
