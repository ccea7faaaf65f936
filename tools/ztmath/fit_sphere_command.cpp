// ztmath fit sphere
#include <CLI/CLI.hpp>
#include <memory>

#include "fit_command.h"
#include "number.h"
#include "output.h"
#include "sphere_picture.h"

namespace tool {

namespace {

constexpr FitKind sphere_kind{"sphere", 4, "not in one plane", ""};

ExitCode run(const FitOptions& options) {
    const Points points = read_points(options.file, 3);
    const SphereFit fit = fit_sphere(points, options.unit());
    const FitReport report{options, sphere_kind, points, fit.shape};
    Table table = report.table();
    Json json = report.json();
    if (fit.shape == Shape::regular) {
        const char* symbol = options.unit().symbol;
        table.gap();
        table.row("", {"x", "y", "z"});
        table.row("centre", point_cells(fit.centre.data(), 3, fit.radius), symbol);
        table.gap();
        table.row("radius", {rounded(fit.radius, 9)}, symbol);
        table.gap();
        report.add(table, "distance", fit.distances);
        json["centre"] = fit.centre;
        json["radius"] = fit.radius;
        json["distances"] = report.json(fit.distances);
    }
    report.print(table, json);
    if (!options.svg.empty() && fit.shape == Shape::regular)
        write_file(options.svg, sphere_picture(points, fit, options.unit(), options.source()));
    return report.conclude();
}

}  // namespace

void add_fit_sphere_command(CLI::App& fit, Commands& commands) {
    const auto options = std::make_shared<FitOptions>();
    CLI::App* command =
        fit.add_subcommand("sphere", "Fits a sphere to points of space (Pratt, 1987)");
    add_fit_options(*command, *options);
    command->footer(
        fit_help("  ztmath fit sphere ball.txt\n"
                 "  ztmath fit sphere --unit um --svg form.svg ball.csv\n"
                 "  grep -v outlier ball.txt | ztmath fit sphere --json -\n"));
    commands.push_back({command, [options] { return run(*options); }});
}

}  // namespace tool
