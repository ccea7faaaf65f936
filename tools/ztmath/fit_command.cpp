#include "fit_command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>

#include "number.h"
#include "output.h"

namespace tool {

namespace {

constexpr int distance_digits = 4;

std::vector<std::string> unit_names() {
    std::vector<std::string> names;
    for (const Unit& unit : units())
        names.emplace_back(unit.name);
    return names;
}

Json json_shape(Shape shape) {
    switch (shape) {
        case Shape::too_few:
            return "too few points";
        case Shape::coincident:
            return "coincident";
        case Shape::collinear:
            return "collinear";
        case Shape::coplanar:
            return "coplanar";
        default:
            return "regular";
    }
}

}  // namespace

void add_fit_commands(CLI::App& program, Commands& commands) {
    CLI::App* fit =
        program.add_subcommand("fit", "Fit a plane, a line, a circle or a sphere to points");
    fit->require_subcommand(1);
    add_fit_plane_command(*fit, commands);
    add_fit_line_command(*fit, commands);
    add_fit_circle_command(*fit, commands);
    add_fit_sphere_command(*fit, commands);
}

void add_fit_options(CLI::App& command, FitOptions& options) {
    command.add_option("FILE", options.file, "File of points, or - for the standard input")
        ->required();
    command
        .add_option("--unit", options.unit_name, "Unit of the points: mm, inch, m, um, deg, none")
        ->check(CLI::IsMember(unit_names()))
        ->type_name("UNIT")
        ->capture_default_str();
    command.add_flag("--json", options.json, "Print the result as JSON");
    command.add_option("--svg", options.svg, "Draw the fit and its distances into a file")
        ->type_name("OUT");
}

std::string fit_help(const std::string& examples) {
    return "\nExamples:\n" + examples + "\n" + points_file_help + R"(

Units: results are in the unit of the points. The fit itself works in millimetres, where
points within 0.001 mm count as coincident. deg and none count one as one millimetre.

Distances: from each point, square to the fit; rms is the root of their mean square.

Exit codes: 0 success; 1 no fit: too few points, or coincident, or collinear for a plane or
a circle, or coplanar for a sphere; 2 wrong usage; 3 FILE cannot be read or is malformed; 4 the result cannot be written;
5 the library reported a failure, or memory ran out.)";
}

Table FitReport::table() const {
    const char* title = shape == Shape::regular ? "Least-squares " : "No ";
    Table table(title + std::string(kind.name) + " through " + options.source() + '\n');
    table.text("points", counted(points.count()));
    table.text("shape", shape_words());
    return table;
}

std::string FitReport::shape_words() const {
    switch (shape) {
        case Shape::too_few:
            return "too few points: a " + std::string(kind.name) + " needs " +
                   std::to_string(kind.points_needed);
        case Shape::coincident:
            return "coincident: all points are one and the same";
        case Shape::collinear:
            return "collinear: the points lie on one line" + std::string(kind.collinear);
        case Shape::coplanar:
            return "coplanar: the points lie in one plane";
        default:
            return kind.regular;
    }
}

Json FitReport::json() const {
    return {{"fit", kind.name},
            {"source", options.source()},
            {"unit", options.unit_name},
            {"count", points.count()},
            {"shape", json_shape(shape)}};
}

void FitReport::add(Table& table, const char* label, const Deviations& distances) const {
    std::vector<std::string> cells =
        aligned({distances.max, distances.rms, distances.mean}, distance_digits);
    table.row("", {"max", "rms", "mean"});
    table.row(label, std::move(cells), options.unit().symbol);
    if (distances.max == 0.0) return;
    table.text(
        "farthest point",
        "line " + std::to_string(points.lines[static_cast<std::size_t>(distances.farthest)]));
}

Json FitReport::json(const Deviations& distances) const {
    return {{"max", distances.max},
            {"rms", distances.rms},
            {"mean", distances.mean},
            {"farthest",
             {{"line", points.lines[static_cast<std::size_t>(distances.farthest)]},
              {"point", std::vector<double>(points.at(distances.farthest),
                                            points.at(distances.farthest) + points.dimension)}}}};
}

void FitReport::print(const Table& table, const Json& json) const {
    // A file's name may hold bytes that are no text; they are replaced.
    tool::print(options.json ? json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n'
                             : table.str());
}

ExitCode FitReport::conclude() const {
    if (shape == Shape::regular) return ExitCode::success;
    say(options.source(), shape_words() + (options.svg.empty() ? "" : "; no picture is drawn"));
    return ExitCode::degenerate;
}

std::vector<std::string> direction_cells(const double* v, int dimension) {
    return aligned(std::vector<double>(v, v + dimension), 8);
}

std::vector<std::string> point_cells(const double* p, int dimension, double extent) {
    constexpr int digits = 7;
    double largest = extent;
    for (int k = 0; k < dimension; ++k)
        largest = std::max(largest, std::fabs(p[k]));
    const int farther = static_cast<int>(std::ceil(std::log10(largest / extent)));
    return aligned(std::vector<double>(p, p + dimension), std::min(digits + farther, 16));
}

}  // namespace tool
