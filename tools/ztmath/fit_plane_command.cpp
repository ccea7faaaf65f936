// ztmath fit plane
#include <CLI/CLI.hpp>
#include <memory>

#include "fit_command.h"
#include "number.h"
#include "output.h"
#include "plane_picture.h"

namespace tool {

namespace {

constexpr FitKind plane_kind{"plane", 3, "neither coincident nor collinear",
                             ", every plane through it fits them"};

Table plane_table(const FitReport& report, const PlaneFit& fit) {
    const char* symbol = report.options.unit().symbol;
    Table table = report.table();
    if (report.shape != Shape::regular) return table;
    table.gap();
    table.row("", {"x", "y", "z"});
    table.row("point (centroid)", point_cells(fit.point.data(), 3, fit.extents[0].length()),
              symbol);
    table.row("normal", direction_cells(fit.normal.data(), 3));
    table.gap();
    table.row("", {"length", "width"});
    table.row("extent", aligned({fit.extents[0].length(), fit.extents[1].length()}, 6), symbol);
    table.gap();
    report.add(table, "distance", fit.distances);
    return table;
}

Json plane_json(const FitReport& report, const PlaneFit& fit) {
    Json json = report.json();
    json["collinear"] = report.shape == Shape::collinear;
    if (report.shape != Shape::regular) return json;
    json["point"] = fit.point;
    json["normal"] = fit.normal;
    json["axes"] = {fit.axes[0], fit.axes[1]};
    json["extents"] = {fit.extents[0].length(), fit.extents[1].length()};
    json["distances"] = report.json(fit.distances);
    return json;
}

ExitCode run(const FitOptions& options) {
    const Points points = read_points(options.file, 3);
    const PlaneFit fit = fit_plane(points, options.unit());
    const FitReport report{options, plane_kind, points, fit.shape};
    report.print(plane_table(report, fit), plane_json(report, fit));
    if (!options.svg.empty() && fit.shape == Shape::regular)
        write_file(options.svg, plane_picture(points, fit, options.unit(), options.source()));
    return report.conclude();
}

}  // namespace

void add_fit_plane_command(CLI::App& fit, Commands& commands) {
    const auto options = std::make_shared<FitOptions>();
    CLI::App* command = fit.add_subcommand(
        "plane", "Fits the plane whose squared distances from points of space are least");
    add_fit_options(*command, *options);
    command->footer(
        fit_help("  ztmath fit plane points.txt\n"
                 "  ztmath fit plane --unit inch --svg flatness.svg points.csv\n"
                 "  grep -v outlier points.txt | ztmath fit plane --json -\n"));
    commands.push_back({command, [options] { return run(*options); }});
}

}  // namespace tool
