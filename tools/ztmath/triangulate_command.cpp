#include "triangulate_command.h"

#include <ztmath/facet.h>
#include <ztmath/ptf.h>
#include <CLI/CLI.hpp>

#include <memory>

#include "json.h"
#include "library_call.h"
#include "number.h"
#include "outline.h"
#include "output.h"
#include "own_scale.h"
#include "triangulation_picture.h"

namespace tool {

namespace {

struct TriangulateOptions {
    std::string file;
    bool ears = false;
    bool json = false;
    bool obj = false;
    std::string svg;  // "" for none

    std::string source() const { return source_name(file); }
};

const char* const triangulate_help = R"(
Examples:
  ztmath triangulate plate.txt >triangles.txt
  ztmath triangulate --svg plate.svg --json plate.txt
  ztmath triangulate --ears --obj coast.txt >coast.obj

Outline: the points in order around it, in either direction; it may repeat its first point
at the end. It must not meet itself. What is changed or wrong is said on the standard error,
with the place.

Triangles: n - 2 for n vertices, all of them counter-clockwise; without --ears, those of the
constrained Delaunay triangulation. A line of the output is a triangle, its corners counted
from 1 as the points stand in FILE; JSON has the same numbers, and OBJ is a mesh in the plane
z = 0. Results do not depend on the unit of the points.

Exit codes: 0 success; 1 the outline cannot be filled: it has too few points, meets itself, or
has no area; 2 wrong usage; 3 FILE cannot be read or is malformed; 4 the result cannot be
written; 5 the library reported a failure, or memory ran out.)";

/// The fill's triangles; none if it fails.
TriangleList filled(const Outline& outline) {
    const std::vector<double> coordinates = OwnScale(outline.coordinates, 2).coordinates;
    int count = 0;
    PTF_triangle_t* triangles = nullptr;
    call_library([&] {
        PTF_poly_tri_fill(outline.count(), coordinates.data(), &count, &triangles, nullptr,
                          nullptr);
    });
    TriangleList list;
    for (int t = 0; t < count; ++t)
        list.insert(list.end(), {triangles[t].a, triangles[t].b, triangles[t].c});
    PTF_free_output(outline.count(), triangles, nullptr, nullptr);
    return list;
}

TriangleList clipped(const Outline& outline) {
    std::vector<double> points;
    for (int i = 0; i < outline.count(); ++i)
        points.insert(points.end(), {outline.at(i)[0], outline.at(i)[1], 0.0});
    const double normal[3] = {0.0, 0.0, 1.0};
    TriangleList list(3 * static_cast<std::size_t>(outline.count() - 2));
    call_library([&] {
        FACET_ask_triangles_of_polygon(outline.count(), points.data(), normal, list.data());
    });
    return list;
}

/// A corner's number as it is shown.
int number_of(const Outline& outline, int vertex) {
    return outline.points[static_cast<std::size_t>(vertex)] + 1;
}

std::string rows(const Outline& outline, const TriangleList& triangles, const char* before) {
    std::string text;
    for (std::size_t i = 0; i < triangles.size(); ++i) {
        text += i % 3 == 0 ? before : " ";
        text += std::to_string(number_of(outline, triangles[i]));
        if (i % 3 == 2) text += '\n';
    }
    return text;
}

std::string obj_text(const Points& points, const Outline& outline, const TriangleList& triangles) {
    std::string text;
    for (int i = 0; i < points.count(); ++i)
        text += "v " + exact(points.at(i)[0]) + ' ' + exact(points.at(i)[1]) + " 0\n";
    return text + rows(outline, triangles, "f ");
}

Json json_of(const TriangulateOptions& options, const Outline& outline,
             const TriangleList& triangles) {
    Json json{
        {"source", options.source()},          {"method", options.ears ? "ear clipping" : "fill"},
        {"vertices", outline.count()},         {"clockwise", outline.was_clockwise},
        {"closing point", outline.was_closed}, {"area", outline.area},
        {"triangles", Json::array()}};
    for (std::size_t t = 0; t < triangles.size(); t += 3)
        json["triangles"].push_back({number_of(outline, triangles[t]),
                                     number_of(outline, triangles[t + 1]),
                                     number_of(outline, triangles[t + 2])});
    return json;
}

std::string result_text(const TriangulateOptions& options, const Points& points,
                        const Outline& outline, const TriangleList& triangles) {
    if (options.json)
        return json_of(options, outline, triangles)
                   .dump(-1, ' ', false, Json::error_handler_t::replace) +
               '\n';
    return options.obj ? obj_text(points, outline, triangles) : rows(outline, triangles, "");
}

ExitCode run(const TriangulateOptions& options) {
    const Points points = read_points(options.file, 2);
    const Outline outline = outline_of(points);
    if (outline.count() < 3) {
        say(options.source(), "too few points: an outline needs 3");
        return ExitCode::degenerate;
    }
    if (const auto fault = fault_of(outline)) {
        say(options.source(), fault->words(outline, points));
        return ExitCode::degenerate;
    }
    if (outline.was_closed)
        say(options.source(), "note: the last point repeats the first and is left out");
    if (outline.was_clockwise)
        say(options.source(), "note: the outline is clockwise and is turned round");
    const TriangleList triangles = options.ears ? clipped(outline) : filled(outline);
    if (triangles.empty()) {
        say(options.source(),
            "the outline cannot be filled: parts of it are too thin to tell from a line");
        return ExitCode::degenerate;
    }
    print(result_text(options, points, outline, triangles));
    if (!options.svg.empty())
        write_file(options.svg, triangulation_picture(outline, triangles, options.source()));
    return ExitCode::success;
}

}  // namespace

void add_triangulate_command(CLI::App& program, Commands& commands) {
    const auto options = std::make_shared<TriangulateOptions>();
    CLI::App* command = program.add_subcommand("triangulate", "Fill an outline with triangles");
    command->add_option("FILE", options->file, "File of points x y, or - for the standard input")
        ->required();
    command->add_flag("--ears", options->ears, "Clip ears instead: other triangles, less even");
    CLI::Option* json = command->add_flag("--json", options->json, "Print the result as JSON");
    command->add_flag("--obj", options->obj, "Print a mesh in OBJ format")->excludes(json);
    command->add_option("--svg", options->svg, "Draw outline and triangles into a file")
        ->type_name("OUT");
    command->footer(std::string(triangulate_help) + "\n\n" + points_file_help);
    commands.push_back({command, [options] { return run(*options); }});
}

}  // namespace tool
