// The picture of a plane fit: the plane seen edge on, the plan coloured by distance, and how the
// distances are spread.
#pragma once

#include <string>

#include "fit.h"

namespace tool {

std::string plane_picture(const Points& points, const PlaneFit& fit, const Unit& unit,
                          const std::string& source);

}  // namespace tool
