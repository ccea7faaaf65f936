#include "curve_command.h"

#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>

#include "curve_picture.h"
#include "number.h"
#include "output.h"
#include "table.h"

namespace tool {

namespace {

using Json = nlohmann::ordered_json;

constexpr int digits = 8;

const char* const curve_help = R"(
Examples:
  ztmath curve profile.txt
  ztmath curve --all-slopes --svg comb.svg profile.txt
  ztmath curve --periodic --json ring.txt
  ztmath curve --least-squares --segments 12 track.txt
  ztmath curve --slopes directions.txt --slope-type 2 points.txt

Parameters run by chord length from 0. An open cubic gets automatic slopes at ends that have
none. A slope file has a vector for each point, in order; 0 0 0 asks for an automatic slope.
Slope types: 1 as given; 2 a direction, its length normalised; 3 as 2, kept by later updates;
4 and 5 a direction with the length of an arc. Curvatures are those of the parabola through a
point and its neighbours; a comb's teeth stand away from the centre of curvature.

A periodic curve closes itself: its first point is repeated at the end if the file does not.

Exit codes: 0 a curve can be made; 1 it cannot, for the reason shown; 2 wrong usage; 3 a file
cannot be read or is malformed; 4 the result cannot be written; 5 the library reported a
failure, or memory ran out.)";

Table curve_table(const CurveOptions& options, const CurveData& data) {
    Table table("Defining data of " + options.source() + '\n');
    table.text("points", counted(static_cast<long long>(data.points.size())));
    table.text("order", std::to_string(options.order) +
                            (options.periodic ? ", periodic" : ", open") +
                            (options.least_squares ? ", least squares" : ", interpolation"));
    table.text("constraints", std::to_string(data.constraints));
    table.text("continuity", std::to_string(data.continuity));
    table.text("polygon length", rounded(data.length, digits));
    table.text("validation", data.status_words());
    table.gap();
    std::vector<std::string> head{"parameter", "slope x", "y", "z", "curvature"};
    if (options.least_squares) head.emplace_back("weight");
    table.row("", head);
    int number = 0;
    for (const CurvePoint& p : data.points) {
        std::vector<std::string> cells{rounded(p.parameter, digits)};
        for (const double x : p.slope)
            cells.push_back(p.has_slope ? rounded(x, digits) : "-");
        cells.push_back(rounded(length(p.curvature), digits));
        if (options.least_squares) cells.push_back(rounded(p.weight, digits));
        table.row(std::to_string(++number), cells);
    }
    return table;
}

Json curve_json(const CurveOptions& options, const CurveData& data) {
    Json json{{"source", options.source()},        {"order", options.order},
              {"periodic", options.periodic},      {"least squares", options.least_squares},
              {"constraints", data.constraints},   {"continuity", data.continuity},
              {"polygon length", data.length},     {"status", data.status},
              {"validation", data.status_words()}, {"points", Json::array()}};
    for (const CurvePoint& p : data.points) {
        Json point{{"point", p.at}, {"parameter", p.parameter}, {"curvature", p.curvature}};
        if (p.has_slope) point["slope"] = p.slope;
        if (options.least_squares) point["weight"] = p.weight;
        json["points"].push_back(point);
    }
    return json;
}

/// Says something on the standard error.
ExitCode complain(const CurveOptions& options, const std::string& what) {
    std::fprintf(stderr, "ztmath: %s: %s\n", options.source().c_str(), what.c_str());
    return ExitCode::degenerate;
}

std::string result_text(const CurveOptions& options, const CurveData& data) {
    if (!options.json) return curve_table(options, data).str();
    return curve_json(options, data).dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

ExitCode run(const CurveOptions& options) {
    const int dimension = options.planar ? 2 : 3;
    const Points points = read_points(options.file, dimension);
    std::optional<Points> slopes;
    if (!options.slopes.empty()) slopes = read_points(options.slopes, dimension);
    if (points.count() < 2) return complain(options, "too few points: a curve needs 2");
    if (slopes && slopes->count() != points.count())
        throw Failure{ExitCode::input, source_name(options.slopes) + ": " +
                                           std::to_string(slopes->count()) + " slopes for " +
                                           std::to_string(points.count()) + " points"};
    const CurveData data = curve_data(options, points, slopes ? &*slopes : nullptr);
    print(result_text(options, data));
    if (!options.svg.empty()) write_file(options.svg, curve_picture(data, options.source()));
    if (data.status != 0) return complain(options, data.status_words());
    return ExitCode::success;
}

}  // namespace

void add_curve_command(CLI::App& program, Commands& commands) {
    const auto options = std::make_shared<CurveOptions>();
    CLI::App* command =
        program.add_subcommand("curve", "Show what defines a B-spline curve through points");
    command->add_option("FILE", options->file, "File of points x y z, or - for the standard input")
        ->required();
    command->add_flag("--2d", options->planar, "Points and slopes are x y");
    command->add_option("--slopes", options->slopes, "Take slopes from a file, one for each point")
        ->type_name("FILE");
    command->add_option("--slope-type", options->slope_type, "How these are taken, 1 to 5")
        ->check(CLI::Range(1, 5))
        ->type_name("N");
    command->add_flag("--all-slopes", options->all_slopes, "Automatic slopes at all points");
    command->add_option("--order", options->order, "Order of the curve, 2 to 25; 4 is cubic")
        ->check(CLI::Range(2, 25))
        ->type_name("N");
    CLI::Option* periodic =
        command->add_flag("--periodic", options->periodic, "A closed, smooth curve");
    CLI::Option* fit = command
                           ->add_flag("--least-squares", options->least_squares,
                                      "Pass near the points instead of through them")
                           ->excludes(periodic);
    command->add_option("--tolerance", options->tolerance, "How near")
        ->needs(fit)
        ->check(CLI::PositiveNumber)
        ->type_name("LENGTH");
    command->add_option("--segments", options->segments, "With how many segments")
        ->needs(fit)
        ->check(CLI::PositiveNumber)
        ->type_name("N");
    command->add_flag("--json", options->json, "Print the result as JSON");
    command->add_option("--svg", options->svg, "Draw points, slopes and curvatures into a file")
        ->type_name("OUT");
    command->footer(std::string(curve_help) + "\n\n" + points_file_help);
    commands.push_back({command, [options] { return run(*options); }});
}

}  // namespace tool
