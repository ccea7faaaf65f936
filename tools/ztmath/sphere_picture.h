// The picture of a sphere fit: distances over the angle from the middle of the points, the sphere
// seen from there, and how the distances are spread.
#pragma once

#include <string>

#include "fit.h"

namespace tool {

std::string sphere_picture(const Points& points, const SphereFit& fit, const Unit& unit,
                           const std::string& source);

}  // namespace tool
