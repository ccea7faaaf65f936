// ztmath triangulate: an outline filled with triangles.
#pragma once

#include "command.h"

namespace tool {

void add_triangulate_command(CLI::App& program, Commands& commands);

}  // namespace tool
