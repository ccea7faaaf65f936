// ztmath fit circle
#include <CLI/CLI.hpp>
#include <memory>

#include "circle_picture.h"
#include "fit_command.h"
#include "number.h"
#include "output.h"

namespace tool {

namespace {

constexpr FitKind circle_kind{"circle", 3, "neither coincident nor collinear",
                              ", or so nearly that no circle can be told"};

struct CircleOptions : FitOptions {
    bool space_points = false;  // --3d
};

void add_size(Table& table, const char* symbol, const CircleFit& circle) {
    table.gap();
    table.row("radius", {rounded(circle.radius, 9)}, symbol);
    table.row("arc covered", {rounded(circle.covered, 4)}, "\u00b0");
    table.gap();
}

Json size_json(const CircleFit& circle) {
    return {{"radius", circle.radius}, {"arc_degrees", circle.covered}};
}

ExitCode run_2d(const CircleOptions& options) {
    const Points points = read_points(options.file, 2);
    const CircleFit fit = fit_circle(points, options.unit());
    const FitReport report{options, circle_kind, points, fit.shape};
    Table table = report.table();
    Json json = report.json();
    json["dimension"] = 2;
    if (fit.shape == Shape::regular) {
        const char* symbol = options.unit().symbol;
        table.gap();
        table.row("", {"x", "y"});
        table.row("centre", point_cells(fit.centre.data(), 2, fit.radius), symbol);
        add_size(table, symbol, fit);
        report.add(table, "distance", fit.distances);
        json["centre"] = fit.centre;
        json.update(size_json(fit));
        json["distances"] = report.json(fit.distances);
    }
    report.print(table, json);
    if (!options.svg.empty() && fit.shape == Shape::regular)
        write_file(options.svg, circle_picture(points, fit, options.unit(), options.source()));
    return report.conclude();
}

ExitCode run_3d(const CircleOptions& options) {
    const Points points = read_points(options.file, 3);
    const Circle3Fit fit = fit_circle_3d(points, options.unit());
    const FitReport report{options, circle_kind, points, fit.shape};
    Table table = report.table();
    Json json = report.json();
    json["dimension"] = 3;
    if (fit.shape == Shape::regular) {
        const char* symbol = options.unit().symbol;
        table.gap();
        table.row("", {"x", "y", "z"});
        table.row("centre", point_cells(fit.centre.data(), 3, fit.circle.radius), symbol);
        table.row("normal of plane", direction_cells(fit.normal.data(), 3));
        add_size(table, symbol, fit.circle);
        report.add(table, "distance within plane", fit.circle.distances);
        table.gap();
        report.add(table, "distance from plane", fit.plane_distances);
        json["centre"] = fit.centre;
        json["normal"] = fit.normal;
        json.update(size_json(fit.circle));
        json["distances"] = report.json(fit.circle.distances);
        json["plane_distances"] = report.json(fit.plane_distances);
    }
    report.print(table, json);
    if (!options.svg.empty() && fit.shape == Shape::regular)
        write_file(options.svg, circle_picture(points, fit, options.unit(), options.source()));
    return report.conclude();
}

}  // namespace

void add_fit_circle_command(CLI::App& fit, Commands& commands) {
    const auto options = std::make_shared<CircleOptions>();
    CLI::App* command = fit.add_subcommand(
        "circle", "Fits a circle to points of the plane, or of space with --3d (Pratt, 1987)");
    add_fit_options(*command, *options);
    command->add_flag("--3d", options->space_points, "Points of space: x y z instead of x y");
    command->footer(
        fit_help("  ztmath fit circle bore.txt\n"
                 "  ztmath fit circle --unit inch --svg roundness.svg bore.csv\n"
                 "  ztmath fit circle --3d --json flange.txt\n"));
    commands.push_back({command, [options] {
                            return options->space_points ? run_3d(*options) : run_2d(*options);
                        }});
}

}  // namespace tool
