// ztmath roots: real roots of a polynomial.
#pragma once

#include "command.h"

namespace tool {

void add_roots_command(CLI::App& program, Commands& commands);

}  // namespace tool
