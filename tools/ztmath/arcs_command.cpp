#include "arcs_command.h"

#include <cstdio>
#include <memory>

#include "arc_contact.h"
#include "arc_problem.h"
#include "number.h"
#include "output.h"
#include "table.h"
#include "text_file.h"

namespace tool {

namespace {

constexpr int digits = 9;

/// A circle that was found, and how it meets what is given.
struct Solution {
    Entity circle;
    std::vector<Contact> contacts;
};

std::vector<Solution> checked(const std::vector<Entity>& circles, const Given& given) {
    std::vector<Solution> list;
    for (const Entity& circle : circles)
        list.push_back({circle, contacts_of(circle, given)});
    return list;
}

std::string count_words(const ArcSolutions& found) {
    if (!found.remark.empty()) return "none: " + found.remark;
    return found.circles.empty() ? "none: no circle does this"
                                 : std::to_string(found.circles.size());
}

void add_rows(Table& table, const Solution& solution) {
    std::vector<double> numbers{solution.circle.place[0], solution.circle.place[1],
                                solution.circle.radius};
    for (const Contact& contact : solution.contacts)
        numbers.insert(numbers.end(), contact.at.begin(), contact.at.end());
    const std::vector<std::string> cells = arc_cells(numbers);
    table.row(solution.circle.name, {cells[0], cells[1], cells[2]});
    std::size_t next = 3;
    for (const Contact& contact : solution.contacts) {
        table.row("  " + contact.with,
                  {cells[next], cells[next + 1], "", rounded(contact.residual, 2)}, contact.how);
        next += 2;
    }
}

std::string table_of(const ArcProblem& problem, const Given& given, const Tolerances& tols,
                     const ArcSolutions& found, const std::vector<Solution>& solutions) {
    Table table(std::string(problem.name) + '\n');
    table.text("given", given.words());
    table.text("tolerance", rounded(tols.distance(), 2));
    table.text("solutions", count_words(found));
    if (solutions.empty()) return table.str();
    table.gap();
    table.row("", {"x", "y", "radius", "residual"});
    for (const Solution& solution : solutions)
        add_rows(table, solution);
    return table.str();
}

Json json_of(const ArcProblem& problem, const Given& given, const Tolerances& tols,
             const ArcSolutions& found, const std::vector<Solution>& solutions) {
    Json json{{"problem", problem.words},
              {"given", given_json(given)},
              {"tolerance", tols.distance()},
              {"remark", found.remark},
              {"solutions", Json::array()}};
    for (const Solution& solution : solutions) {
        Json contacts = Json::array();
        for (const Contact& contact : solution.contacts)
            contacts.push_back({{"with", contact.with},
                                {"how", contact.how},
                                {"at", contact.at},
                                {"residual", contact.residual}});
        json["solutions"].push_back({{"centre", solution.circle.place},
                                     {"radius", solution.circle.radius},
                                     {"contacts", std::move(contacts)}});
    }
    return json;
}

std::vector<ArcFound> pictured(const std::vector<Solution>& solutions) {
    std::vector<ArcFound> found;
    for (const Solution& solution : solutions) {
        std::vector<Vec2> marks;
        for (const Contact& contact : solution.contacts)
            if (contact.with != "radius") marks.push_back(contact.at);
        found.push_back(
            {solution.circle,
             std::to_string(found.size() + 1) + "   radius " + rounded(solution.circle.radius, 5),
             std::move(marks)});
    }
    return found;
}

ExitCode run_circles(const ArcsOptions& options) {
    const Given given = all_given(options);
    const ArcProblem* problem = problem_of(given);
    if (problem == nullptr)
        throw Failure{misfit_code(options), "no construction of circles for " + given.words() +
                                                "; possible are\n" + possible_problems() +
                                                "and nothing besides"};
    const Tolerances tols = tolerances(options, given);
    const ArcSolutions found = problem->solve(given, tols);
    if (!found.fault.empty()) throw Failure{ExitCode::degenerate, "no circle: " + found.fault};
    const std::vector<Solution> solutions = checked(found.circles, given);
    conclude(options, problem->name, given, table_of(*problem, given, tols, found, solutions),
             json_of(*problem, given, tols, found, solutions), pictured(solutions));
    return ExitCode::success;
}

void add_circles_command(CLI::App& arcs, Commands& commands) {
    const auto options = std::make_shared<ArcsOptions>();
    CLI::App* command = arcs.add_subcommand("circles", "Find the circles that touch what is given");
    add_arcs_options(*command, *options, {"point", "line", "circle", "radius", "at", "angle"});
    command->footer(arcs_help(
        "  ztmath arcs circles --point 0,0 --point 4,0 --point 0,3\n"
        "  ztmath arcs circles --circle 0,0,1 --circle 4,0,1.5 --circle 1,4,1 --svg touch.svg\n"
        "  ztmath arcs circles --line 0,0,1,0 --circle 2,4,1 --at 1,0 --angle 30 --json\n",
        "Problems:\n" + possible_problems() +
            R"(
Solutions: centre and radius, and how each meets what is given: the point where it does, and
the residual, the length by which it misses. Circles that are a line within the tolerance are
no solutions.)"));
    commands.push_back({command, [options] { return run_circles(*options); }});
}

}  // namespace

std::string arcs_help(const std::string& examples, const std::string& words) {
    return "\nExamples:\n" + examples + '\n' + words + "\n\n" + entities_file_help + R"(

Tolerance: lengths up to it count as 0; without --tolerance, a thousand-millionth of the
largest number given.

Exit codes: 0 success, also when nothing is found; 1 what is given allows no answer, as when
points coincide; 2 wrong usage; 3 FILE cannot be read or is malformed; 4 the result cannot be
written; 5 the library reported a failure, or memory ran out.)";
}

std::vector<std::string> arc_cells(const std::vector<double>& numbers) {
    return aligned(numbers, digits);
}

Json given_json(const Given& given) {
    Json list = Json::array();
    for (const Entity& e : given.entities) {
        Json entity{{"name", e.name}, {e.is_round() ? "centre" : "point", e.place}};
        if (e.is_round()) entity["radius"] = e.radius;
        if (e.kind == Entity::line) entity["direction"] = e.direction;
        if (e.kind == Entity::segment) entity["end"] = e.end();
        if (e.kind == Entity::arc) entity.update({{"start", e.start}, {"angle", e.covered}});
        list.push_back(std::move(entity));
    }
    if (given.radius) list.push_back({{"name", "radius"}, {"radius", *given.radius}});
    if (given.at) list.push_back({{"name", "at"}, {"point", *given.at}});
    if (given.angle) list.push_back({{"name", "angle"}, {"angle", *given.angle}});
    return list;
}

void conclude(const ArcsOptions& options, const std::string& title, const Given& given,
              const std::string& table, const Json& json, const std::vector<ArcFound>& found) {
    print(options.json ? json.dump(2) + '\n' : table);
    if (!options.svg.empty()) write_file(options.svg, arc_picture(title, given, found));
}

void add_arcs_commands(CLI::App& program, Commands& commands) {
    CLI::App* arcs = program.add_subcommand("arcs", "Circles and arcs that touch and meet");
    arcs->require_subcommand(1);
    add_circles_command(*arcs, commands);
}

}  // namespace tool
