// The points, lines and circles that an arcs command is given, in words and numbers.
#pragma once

#include <ztmath/arc_spline.h>

#include <optional>
#include <string>
#include <vector>

#include "command.h"
#include "vec.h"

namespace tool {

using Segment = ARC_SPLINE_1_seg_2d_t;

struct Entity {
    enum Kind { point, line, circle, segment, arc };

    Kind kind = point;
    std::string name;      // "circle 2"
    Vec2 place{};          // the point; one of the line; the start; the centre
    Vec2 direction{};      // of a line; of a segment the way to its end
    double radius = 0.0;   // of a circle or an arc
    double start = 0.0;    // of an arc, degrees: where it starts, as seen from the centre
    double covered = 0.0;  // of an arc, degrees: negative clockwise

    /// What the library is given for it; points have no such record.
    Segment record() const;

    bool is_round() const { return kind == circle || kind == arc; }
    Vec2 end() const { return along(place, 1.0, direction); }
    /// The point of the circle in a direction.
    Vec2 at(double degrees) const;
};

struct Given {
    std::vector<Entity> entities;
    std::optional<double> radius;
    std::optional<Vec2> at;
    std::optional<double> angle;  // degrees

    int count(Entity::Kind kind) const;
    /// The one of that number, from 0, among those of its kind.
    const Entity& of(Entity::Kind kind, int number) const;
    /// The largest absolute number among places and radii.
    double size() const;
    /// "2 circles and a radius"
    std::string words() const;
};

/// The words that a command takes, as options and in its file: "point", "radius", ...
using EntityWords = std::vector<std::string>;

/// Options and file of a command, and where their results go.
struct ArcsOptions {
    Given given;
    EntityWords words;
    std::string file;  // "" for none
    std::optional<double> tolerance;
    bool json = false;
    std::string svg;  // "" for none
};

/// An option for each of the words, --file, --tolerance, --json and --svg.
void add_arcs_options(CLI::App& command, ArcsOptions& options, const EntityWords& words);

/// What options and file give together.
Given all_given(const ArcsOptions& options);

/// Distance and angle for the library: that of --tolerance, or what rounding asks for.
struct Tolerances {
    double values[3];

    const double* data() const { return values; }
    double distance() const { return values[0]; }
};
Tolerances tolerances(const ArcsOptions& options, const Given& given);

/// What the help texts say about the file.
extern const char* const entities_file_help;

}  // namespace tool
