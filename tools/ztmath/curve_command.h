// ztmath curve: what defines a B-spline curve through points.
#pragma once

#include "command.h"

namespace tool {

void add_curve_command(CLI::App& program, Commands& commands);

}  // namespace tool
