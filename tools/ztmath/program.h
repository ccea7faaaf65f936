// The whole program behind main.
#pragma once

namespace tool {

/// Runs a command line; the exit code.
int run_program(int argc, const char* const* argv);

}  // namespace tool
