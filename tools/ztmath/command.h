// How a subcommand joins the program: it adds its options to its parent and itself to the list.
#pragma once

#include <functional>
#include <vector>

#include "failure.h"

namespace CLI {
class App;
}

namespace tool {

struct Command {
    CLI::App* app;
    std::function<ExitCode()> run;  // when app was named on the command line
};

using Commands = std::vector<Command>;

}  // namespace tool
