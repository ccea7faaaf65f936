// A fit as its picture is told about it, and what the pictures of all fits draw alike.
#pragma once

#include <string>
#include <vector>

#include "fit.h"
#include "palette.h"
#include "svg.h"

namespace tool {

constexpr double picture_width = 1000.0;
constexpr double picture_left = 92.0;    // of the panels
constexpr double picture_right = 968.0;  // of the panels
constexpr double heading_height = 130.0;

/// The file's name without its folders, its middle left out if it is longer than the title has room
/// for.
std::string shown_name(const std::string& source);

class Pictured {
  public:
    /// `shape` is "plane" or "line"; `extent` is the larger one, and `size` says it in words.
    Pictured(const Points& points, const Deviations& distances, const Unit& unit, std::string shape,
             const std::string& source, double extent, std::string size);

    const Points& points;
    const Deviations& distances;
    const Unit& unit;

    /// Whether the points lie on the fit but for the rounding of their coordinates.
    bool is_exact() const { return exact_; }

    /// The distance that panels must have room for.
    double reach() const { return reach_; }

    /// Colours for the distances: strongest at three times the rms, where outliers do not wash out
    /// the rest.
    Palette palette() const;

    /// "Plane through points.txt"
    std::string title() const;

    /// Title, source and how good the fit is, in the top `heading_height` pixels.
    void draw_heading(Svg& svg) const;

    /// The dot of a point.
    void draw_dot(Svg& svg, Pixel at, int point, std::size_t drawn) const;

    /// A ring around the farthest point, if any is far.
    void draw_ring(Svg& svg, Pixel at) const;

    /// The ring, and beside it the distance and the point's line in the file.
    void mark_farthest(Svg& svg, const Box& box, Pixel at) const;

  private:
    std::string subtitle() const;

    std::string shape_;
    std::string file_;
    std::string size_;
    bool exact_;
    double reach_;
};

/// The points to draw: all of them, or, from a few thousand on, an even choice and the farthest.
/// The farther a point from the fit, the later it is drawn.
std::vector<int> evenly_chosen(const Deviations& distances);

/// The same, and the smallest and the largest distance of every stretch of the fit, so that its
/// outline is that of all points.
std::vector<int> evenly_chosen_with_extremes(const Deviations& distances,
                                             const std::vector<double>& position);

/// The drawn points whose distances are drawn as lines: all, or none where they would blacken the
/// panel.
std::vector<int> with_residuals(const std::vector<int>& drawn);

}  // namespace tool
