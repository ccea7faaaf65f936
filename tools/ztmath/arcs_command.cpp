#include "arcs_command.h"

#include <CLI/CLI.hpp>
#include <memory>

#include "arc_meetings.h"
#include "arc_problem.h"
#include "arc_report.h"
#include "arc_tangents.h"

namespace tool {

namespace {

std::string arcs_help(const std::string& examples, const std::string& words) {
    return "\nExamples:\n" + examples + '\n' + words + "\n\n" + entities_file_help + R"(

Tolerance: lengths up to it count as 0; without --tolerance, a thousand-millionth of the
largest number given.

Exit codes: 0 success, also when nothing is found; 1 what is given allows no answer, as when
points coincide; 2 wrong usage; 3 FILE cannot be read or is malformed; 4 the result cannot be
written; 5 the library reported a failure, or memory ran out.)";
}

[[noreturn]] void refuse(const ArcsOptions& options, const std::string& what) {
    throw Failure{options.file.empty() ? ExitCode::usage : ExitCode::input, what};
}

/// A subcommand of arcs.
struct ArcsCommand {
    const char* name;
    const char* description;
    EntityWords words;
    ExitCode (*run)(const ArcsOptions& options);
    std::string help;
};

void add(CLI::App& arcs, Commands& commands, const ArcsCommand& c) {
    const auto options = std::make_shared<ArcsOptions>();
    CLI::App* command = arcs.add_subcommand(c.name, c.description);
    add_arcs_options(*command, *options, c.words);
    command->footer(c.help);
    commands.push_back({command, [options, run = c.run] { return run(*options); }});
}

ExitCode run_circles(const ArcsOptions& options) {
    const Given given = all_given(options);
    const ArcProblem* problem = problem_of(given);
    if (problem == nullptr)
        refuse(options, "no construction of circles from " + given.words() +
                            "; there is one from\n" + possible_problems());
    const Tolerances tols = tolerances(options, given);
    const ArcSolutions solutions = problem->solve(given, tols);
    if (!solutions.fault.empty())
        throw Failure{ExitCode::degenerate, "no circle: " + solutions.fault};
    ArcReport report{problem->name, "solutions", {}, solutions.remark};
    for (const Entity& circle : solutions.circles)
        report.found.push_back({circle, contacts_of(circle, given)});
    conclude(report, options, given, tols);
    return ExitCode::success;
}

ExitCode run_tangents(const ArcsOptions& options) {
    const Given given = all_given(options);
    if (given.entities.size() != 2 || given.count(Entity::point) > 1)
        refuse(options,
               "tangents are those of two circles or arcs, or of one through a point, not of " +
                   given.words());
    const Tolerances tols = tolerances(options, given);
    conclude(tangents_of(given, tols), options, given, tols);
    return ExitCode::success;
}

ExitCode run_intersect(const ArcsOptions& options) {
    const Given given = all_given(options);
    if (given.entities.size() != 2)
        refuse(options, "two lines, segments, circles or arcs meet, not " + given.words());
    const Tolerances tols = tolerances(options, given);
    conclude(meetings_of(given, tols), options, given, tols);
    return ExitCode::success;
}

}  // namespace

void add_arcs_commands(CLI::App& program, Commands& commands) {
    CLI::App& arcs = *program.add_subcommand("arcs", "Circles and arcs that touch and meet");
    arcs.require_subcommand(1);
    add(arcs, commands,
        {"circles",
         "Finds the circles that touch what is given",
         {"point", "line", "circle", "radius", "at", "angle"},
         run_circles,
         arcs_help("  ztmath arcs circles --point 0,0 --point 4,0 --point 0,3\n"
                   "  ztmath arcs circles --circle 0,0,1 --circle 4,0,1.5 --circle 1,4,1 "
                   "--svg touch.svg\n"
                   "  ztmath arcs circles --line 0,0,1,0 --circle 2,4,1 --at 1,0 --angle 30 "
                   "--json\n",
                   "There are constructions from\n" + possible_problems() + R"(
Solutions: centre and radius, and how each meets what is given: the point where it does, and
the residual, the length by which it misses. Lines are no solutions.)")});
    add(arcs, commands,
        {"tangents",
         "Finds the common tangents of two circles, or those through a point",
         {"circle", "arc", "point"},
         run_tangents,
         arcs_help(
             "  ztmath arcs tangents --circle 0,0,2 --circle 6,1,1 --svg belt.svg\n"
             "  ztmath arcs tangents --arc 0,0,2,0,180 --point 0,5\n",
             R"(Tangents: where each touches the circles, with the inclination of the circle's tangent there
in degrees as the parameter, and the residual, by which its distance from the centre misses
the radius. The outer ones of two circles have both on one side, the inner ones do not. Of an
arc only tangents that touch it count.)")});
    add(arcs, commands,
        {"intersect",
         "Finds where two lines, segments, circles or arcs meet",
         {"line", "segment", "circle", "arc"},
         run_intersect,
         arcs_help(
             "  ztmath arcs intersect --circle 0,0,2 --line 0,1,1,0.2\n"
             "  ztmath arcs intersect --arc 0,0,2,0,180 --arc 2,0,2,90,-180 --svg lens.svg\n",
             R"(Points: each with its parameter on both, the length from the start of a straight or the
inclination of the tangent of an arc in degrees, and where that is on a segment or an arc; and
the residual, by which the point misses the line or the circle.)")});
}

}  // namespace tool
