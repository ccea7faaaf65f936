// An outline: the vertices of a simple polygon, and what keeps points from being one.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "points_file.h"

namespace tool {

/// The points of a file as an outline, and what had to be done to them.
struct Outline {
    std::vector<double> coordinates;  // x and y of each vertex, counter-clockwise
    std::vector<int> points;          // which point of the file each vertex is, from 0
    bool was_closed = false;          // the last point repeated the first, and is left out
    bool was_clockwise = false;
    double area = 0.0;

    int count() const { return static_cast<int>(points.size()); }
    const double* at(int i) const { return coordinates.data() + 2 * static_cast<std::size_t>(i); }
};

Outline outline_of(const Points& points);

/// A place where an outline is not simple.
struct Fault {
    enum Kind { repeated, turns_back, meets } kind;
    int first;   // repeated: a vertex and its next; turns_back: the vertex; meets: an edge, ...
    int second;  // ... and one that it meets, both by the vertex that they leave
    double x, y;

    /// "the edges from line 3 to 4 and from line 9 to 10 meet at (1.5, 2)"
    std::string words(const Outline& outline, const Points& points) const;
};

/// The first fault along the outline, if it has any.
std::optional<Fault> fault_of(const Outline& outline);

}  // namespace tool
