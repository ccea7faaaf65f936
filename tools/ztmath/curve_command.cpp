#include "curve_command.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>

#include "curve_picture.h"
#include "json.h"
#include "number.h"
#include "output.h"
#include "table.h"

namespace tool {

namespace {

const char* const curve_help = R"(
Examples:
  ztmath curve profile.txt
  ztmath curve --all-slopes --svg comb.svg profile.txt
  ztmath curve --periodic --json ring.txt
  ztmath curve --slopes tangents.txt --slope-type 5 points.txt
  ztmath curve --least-squares --segments 12 track.txt

Parameters run by chord length from 0. A cubic through points gets automatic slopes at the ends
that have none. Curvatures are those of the parabola through a point and its neighbours.

Slopes: a file with a vector for each point, in order; 0 0 0 is none. Types: 1 as given; 2 a
direction, the curve runs at the mean speed of the chords; 3 a direction, at the speed of the
automatic slope; 4 and 5 a direction, at the speed that keeps near an arc. Type 0 is automatic.

A periodic curve closes itself; the points may repeat the first one at the end. A least-squares
curve keeps slopes at its ends only, as unit vectors. Results do not depend on the unit of the points.

Exit codes: 0 success; 1 no curve can be made, for the reason shown; 2 wrong usage; 3 a file
cannot be read or is malformed; 4 the result cannot be written; 5 the library reported a
failure, or memory ran out.)";

/// Beyond the range of squares too.
double size_of(const Vec3& v) {
    return std::hypot(v[0], v[1], v[2]);
}

std::string kind_of_curve(const CurveOptions& options) {
    if (options.least_squares) return "least squares";
    return options.periodic ? "periodic" : "open";
}

// ---- As a table ----

struct Column {
    std::string head;
    std::vector<std::string> cells;
};

constexpr int digits = 7;

/// The numbers that a function finds for each point, with as many decimals.
template <class NumberOf>
Column column(std::string head, const CurveData& data, NumberOf number_of) {
    std::vector<double> numbers;
    for (const CurvePoint& p : data.points)
        numbers.push_back(number_of(p));
    return {std::move(head), aligned(numbers, digits)};
}

/// Corners and flat stretches differ by orders of magnitude: each curvature has its own digits.
Column curvature_column(const CurveData& data) {
    Column curvatures{"curvature", {}};
    for (const CurvePoint& p : data.points)
        curvatures.cells.push_back(rounded(size_of(p.curvature), digits));
    return curvatures;
}

void add_slope_columns(std::vector<Column>& columns, const CurveData& data, int dimension) {
    const std::size_t first = columns.size();
    for (std::size_t k = 0; k < static_cast<std::size_t>(dimension); ++k)
        columns.push_back(column(std::string("slope ") + "xyz"[k], data, [k](const CurvePoint& p) {
            return p.slope ? p.slope->vector[k] : 0.0;
        }));
    Column types{"type", {}};
    for (std::size_t i = 0; i < data.points.size(); ++i) {
        const auto& slope = data.points[i].slope;
        types.cells.push_back(slope ? std::to_string(slope->type) : "-");
        for (std::size_t k = first; !slope && k < columns.size(); ++k)
            columns[k].cells[i] = "-";
    }
    columns.push_back(std::move(types));
}

std::vector<Column> point_columns(const CurveOptions& options, const CurveData& data) {
    std::vector<Column> columns;
    columns.push_back(column("parameter", data, [](const CurvePoint& p) { return p.parameter; }));
    add_slope_columns(columns, data, options.dimension());
    columns.push_back(curvature_column(data));
    if (options.least_squares)
        columns.push_back(column("weight", data, [](const CurvePoint& p) { return p.weight; }));
    return columns;
}

void add_points(Table& table, const CurveOptions& options, const CurveData& data) {
    const std::vector<Column> columns = point_columns(options, data);
    std::vector<std::string> heads;
    for (const Column& c : columns)
        heads.push_back(c.head);
    table.row("point", std::move(heads));
    for (std::size_t i = 0; i < data.points.size(); ++i) {
        std::vector<std::string> cells;
        for (const Column& c : columns)
            cells.push_back(c.cells[i]);
        table.row(std::to_string(i + 1), std::move(cells));
    }
}

Table curve_table(const CurveOptions& options, const CurveData& data) {
    Table table("Defining data of a curve through " + options.source() + '\n');
    table.text("points", counted(static_cast<long long>(data.points.size())));
    table.text("curve", kind_of_curve(options) + ", order " + std::to_string(options.order) +
                            ", continuity " + std::to_string(data.continuity));
    table.text("constraints", counted(data.constraints));
    table.text("polygon length", rounded(data.length, digits));
    table.text("validation", data.validation(options));
    table.gap();
    add_points(table, options, data);
    return table;
}

// ---- As JSON ----

/// Without negative zeros.
Json json_vector(const Vec3& v, int dimension) {
    Json json = Json::array();
    for (std::size_t k = 0; k < static_cast<std::size_t>(dimension); ++k)
        json.push_back(v[k] + 0.0);
    return json;
}

Json point_json(const CurveOptions& options, const CurvePoint& p) {
    const int dimension = options.dimension();
    Json json{{"point", json_vector(p.at, dimension)},
              {"parameter", p.parameter},
              {"curvature", json_vector(p.curvature, dimension)}};
    if (p.slope) {
        json["slope"] = json_vector(p.slope->vector, dimension);
        json["slope type"] = p.slope->type;
    }
    if (options.least_squares) json["weight"] = p.weight;
    return json;
}

Json curve_json(const CurveOptions& options, const CurveData& data) {
    Json json{{"source", options.source()},
              {"count", data.points.size()},
              {"curve", kind_of_curve(options)},
              {"order", options.order},
              {"continuity", data.continuity},
              {"constraints", data.constraints},
              {"polygon length", data.length},
              {"status", data.status},
              {"validation", data.validation(options)},
              {"points", Json::array()}};
    for (const CurvePoint& p : data.points)
        json["points"].push_back(point_json(options, p));
    return json;
}

// ---- The command ----

std::string result_text(const CurveOptions& options, const CurveData& data) {
    if (!options.json) return curve_table(options, data).str();
    return curve_json(options, data).dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

std::optional<Points> read_slopes(const CurveOptions& options, int wanted) {
    if (options.slopes.empty()) return {};
    Points slopes = read_points(options.slopes, options.dimension());
    if (slopes.count() != wanted)
        throw Failure{ExitCode::input, source_name(options.slopes) + ": " +
                                           std::to_string(slopes.count()) + " slopes for " +
                                           std::to_string(wanted) + " points"};
    return slopes;
}

ExitCode run(const CurveOptions& options) {
    const Points points = read_points(options.file, options.dimension());
    if (points.count() < 2) {
        say(options.source(), "too few points: a curve needs 2");
        return ExitCode::degenerate;
    }
    const std::optional<Points> slopes = read_slopes(options, points.count());
    const CurveData data = curve_data(options, points, slopes ? &*slopes : nullptr);
    print(result_text(options, data));
    if (!data.is_valid()) {
        say(options.source(),
            data.validation(options) + (options.svg.empty() ? "" : "; no picture is drawn"));
        return ExitCode::degenerate;
    }
    if (!options.svg.empty()) write_file(options.svg, curve_picture(options, data));
    return ExitCode::success;
}

void add_slope_options(CLI::App& command, CurveOptions& options) {
    CLI::Option* slopes =
        command.add_option("--slopes", options.slopes, "Take slopes from a file, one a point")
            ->type_name("FILE");
    command.add_option("--slope-type", options.slope_type, "What they are, 1 to 5")
        ->needs(slopes)
        ->check(CLI::Range(1, 5))
        ->type_name("N")
        ->capture_default_str();
    command.add_flag("--all-slopes", options.all_slopes, "Automatic slopes where none is given");
}

void add_kind_options(CLI::App& command, CurveOptions& options) {
    command.add_option("--order", options.order, "Order of the curve, 2 to 25; 4 is cubic")
        ->check(CLI::Range(2, 25))
        ->type_name("N")
        ->capture_default_str();
    CLI::Option* periodic =
        command.add_flag("--periodic", options.periodic, "A closed, smooth curve");
    CLI::Option* fit = command
                           .add_flag("--least-squares", options.least_squares,
                                     "Pass near the points instead of through them")
                           ->excludes(periodic);
    CLI::Option* tolerance = command.add_option("--tolerance", options.tolerance, "How near")
                                 ->needs(fit)
                                 ->type_name("LENGTH");
    command.add_option("--segments", options.segments, "With how many segments")
        ->needs(fit)
        ->excludes(tolerance)
        ->type_name("N");
}

}  // namespace

void add_curve_command(CLI::App& program, Commands& commands) {
    const auto options = std::make_shared<CurveOptions>();
    CLI::App* command =
        program.add_subcommand("curve", "Show what defines a B-spline curve through points");
    command->add_option("FILE", options->file, "File of points x y z, or - for the standard input")
        ->required();
    command->add_flag("--2d", options->planar, "Points and slopes are x y");
    add_slope_options(*command, *options);
    add_kind_options(*command, *options);
    command->add_flag("--json", options->json, "Print the result as JSON");
    command->add_option("--svg", options->svg, "Draw points, slopes and a comb of curvatures")
        ->type_name("OUT");
    command->footer(std::string(curve_help) + "\n\n" + points_file_help);
    commands.push_back({command, [options] { return run(*options); }});
}

}  // namespace tool
