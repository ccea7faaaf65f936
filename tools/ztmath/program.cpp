#include "program.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <new>

#include "arcs_command.h"
#include "command.h"
#include "curve_command.h"
#include "fit_command.h"
#include "output.h"
#include "roots_command.h"
#include "transform_command.h"
#include "triangulate_command.h"

namespace tool {

namespace {

const char* const program_help = R"(
Examples:
  ztmath arcs circles --circle 0,0,1 --circle 4,0,1.5 --circle 1,4,1 --svg touch.svg
  ztmath curve --all-slopes --svg comb.svg profile.txt
  ztmath fit plane --svg flatness.svg points.txt
  ztmath roots 6 -5 1
  ztmath transform rotate --axis 0,0,1 --angle 30 points.txt
  ztmath triangulate --svg plate.svg plate.txt

ztmath COMMAND --help tells more about a command, its files, units and exit codes.)";

/// The subcommand that the command line names; the parser has seen to it that there is one.
ExitCode run_named(const Commands& commands) {
    for (const Command& command : commands)
        if (command.app->parsed()) return command.run();
    return ExitCode::usage;
}

ExitCode parse_and_run(int argc, const char* const* argv) {
    CLI::App program("Geometry and numerical mathematics on the command line", "ztmath");
    program.set_version_flag("--version", "ztmath " ZTMATH_VERSION);
    program.require_subcommand(1);
    program.footer(program_help);
    Commands commands;
    add_arcs_commands(program, commands);
    add_curve_command(program, commands);
    add_fit_commands(program, commands);
    add_transform_commands(program, commands);
    add_roots_command(program, commands);
    add_triangulate_command(program, commands);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        std::fflush(stdout);
        return program.exit(error) == 0 ? ExitCode::success : ExitCode::usage;
    }
    return run_named(commands);
}

ExitCode complain(ExitCode code, const std::string& message) {
    std::fprintf(stderr, "ztmath: %s\n", message.c_str());
    return code;
}

}  // namespace

int run_program(int argc, const char* const* argv) {
    ExitCode code;
    try {
        code = parse_and_run(argc, argv);
    } catch (const Failure& failure) {
        code = complain(failure.code, failure.message);
    } catch (const std::bad_alloc&) {
        code = complain(ExitCode::library, "out of memory");
    }
    return static_cast<int>(code);
}

}  // namespace tool
