// ztmath arcs: circles and tangents that touch, and where lines and arcs meet.
#pragma once

#include "command.h"

namespace tool {

void add_arcs_commands(CLI::App& program, Commands& commands);

}  // namespace tool
