// ztmath transform: points scaled, rotated, mirrored, or carried from one frame to another.
#pragma once

#include "command.h"

namespace tool {

void add_transform_commands(CLI::App& program, Commands& commands);

}  // namespace tool
