// A triangulated outline, drawn.
#pragma once

#include <string>
#include <vector>

#include "outline.h"

namespace tool {

using TriangleList = std::vector<int>;  // three vertices of the outline for each triangle

std::string triangulation_picture(const Outline& outline, const TriangleList& triangles,
                                  const std::string& source);

}  // namespace tool
