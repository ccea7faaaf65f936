// How a command ends.
#pragma once

#include <string>

namespace tool {

/// The program's exit codes; the help text lists them.
enum class ExitCode {
    success = 0,
    degenerate = 1,  // the input has no answer: too few points, coincident, collinear
    usage = 2,
    input = 3,   // it cannot be read, or is malformed
    output = 4,  // it cannot be written
    library = 5  // the library reported a failure, or memory ran out
};

/// Thrown by what cannot go on; main prints the message.
struct Failure {
    ExitCode code;
    std::string message;
};

}  // namespace tool
