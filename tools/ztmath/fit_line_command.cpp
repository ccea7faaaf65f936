// ztmath fit line
#include <CLI/CLI.hpp>
#include <memory>

#include "fit_command.h"
#include "line_picture.h"
#include "number.h"
#include "output.h"

namespace tool {

namespace {

constexpr FitKind line_kind{"line", 2, "not coincident", ""};

struct LineOptions : FitOptions {
    bool plane_points = false;  // --2d
};

template <class Fit>
constexpr int dimension_of = std::tuple_size_v<decltype(Fit::point)>;

template <class Fit>
Table line_table(const FitReport& report, const Fit& fit) {
    const char* symbol = report.options.unit().symbol;
    Table table = report.table();
    if (report.shape != Shape::regular) return table;
    constexpr int dimension = dimension_of<Fit>;
    table.gap();
    table.row("", dimension == 2 ? std::vector<std::string>{"x", "y"}
                                 : std::vector<std::string>{"x", "y", "z"});
    table.row("point (centroid)", point_cells(fit.point.data(), dimension, fit.extent.length()),
              symbol);
    table.row("direction", direction_cells(fit.direction.data(), dimension));
    table.row(dimension == 2 ? "normal" : "normal of plane",
              direction_cells(fit.normal.data(), dimension));
    table.gap();
    table.row("extent", {rounded(fit.extent.length(), 6)}, symbol);
    table.gap();
    report.add(table, dimension == 2 ? "distance" : "distance from line", fit.distances);
    return table;
}

template <class Fit>
Json line_json(const FitReport& report, const Fit& fit) {
    Json json = report.json();
    json["dimension"] = dimension_of<Fit>;
    json["coincident"] = report.shape == Shape::coincident;
    if (report.shape != Shape::regular) return json;
    json["point"] = fit.point;
    json["direction"] = fit.direction;
    json["normal"] = fit.normal;
    json["extent"] = fit.extent.length();
    json["distances"] = report.json(fit.distances);
    return json;
}

template <class Fit>
ExitCode finish(const FitReport& report, const Fit& fit, const Table& table, const Json& json) {
    const FitOptions& options = report.options;
    report.print(table, json);
    if (!options.svg.empty() && fit.shape == Shape::regular)
        write_file(options.svg, line_picture(report.points, fit, options.unit(), options.source()));
    return report.conclude();
}

ExitCode run_2d(const FitOptions& options) {
    const Points points = read_points(options.file, 2);
    const Line2Fit fit = fit_line_2d(points, options.unit());
    const FitReport report{options, line_kind, points, fit.shape};
    return finish(report, fit, line_table(report, fit), line_json(report, fit));
}

ExitCode run_3d(const FitOptions& options) {
    const Points points = read_points(options.file, 3);
    const Line3Fit fit = fit_line_3d(points, options.unit());
    const FitReport report{options, line_kind, points, fit.shape};
    Table table = line_table(report, fit);
    Json json = line_json(report, fit);
    if (fit.shape == Shape::regular) {
        table.gap();
        report.add(table, "distance from plane", fit.plane_distances);
        json["plane_distances"] = report.json(fit.plane_distances);
    }
    return finish(report, fit, table, json);
}

}  // namespace

void add_fit_line_command(CLI::App& fit, Commands& commands) {
    const auto options = std::make_shared<LineOptions>();
    CLI::App* command = fit.add_subcommand(
        "line", "Fits the line whose squared distances from points of space or plane are least");
    add_fit_options(*command, *options);
    command->add_flag("--2d", options->plane_points, "Points of the plane: x y instead of x y z");
    command->footer(
        fit_help("  ztmath fit line edge.txt\n"
                 "  ztmath fit line --2d --svg border.svg --unit deg border.txt\n"
                 "  cut -f 1,2 survey.tsv | ztmath fit line --2d --json -\n"));
    commands.push_back({command, [options] {
                            return options->plane_points ? run_2d(*options) : run_3d(*options);
                        }});
}

}  // namespace tool
