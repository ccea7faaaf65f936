#include "line_picture.h"

#include <algorithm>
#include <cmath>

#include "number.h"
#include "residual_panel.h"

namespace tool {

namespace {

constexpr double residual_height = 260.0;
constexpr double row_gap = 84.0;
constexpr double panel_width = picture_right - picture_left;

using Plane = std::vector<Vec2>;

/// A line drawn among points of the plane.
struct DrawnLine {
    Vec2 point;
    Vec2 direction;
    Extent extent;
};

Range range_of(const Plane& points, std::size_t k, double part) {
    const auto [low, high] = std::minmax_element(
        points.begin(), points.end(), [k](const Vec2& p, const Vec2& q) { return p[k] < q[k]; });
    return padded({(*low)[k], (*high)[k]}, part);
}

Panel panel_for(const Plane& points, Pixel corner, double width, Range heights) {
    return true_panel(corner, width, heights, range_of(points, 0, 0.05), range_of(points, 1, 0.05));
}

Pixel pixel_of(const Panel& panel, const Vec2& p) {
    return panel.at(p[0], p[1]);
}

/// Points, line and the distances between them, in true proportion.
void draw_true_panel(Svg& svg, const Panel& panel, const Plane& points, const DrawnLine& line,
                     const std::vector<int>& drawn, const PanelLabels& labels,
                     const Pictured& fit) {
    const double beyond = 0.03 * line.extent.length();
    const auto on_line = [&](double t) {
        return pixel_of(panel, along(line.point, t, line.direction));
    };
    const auto point = [&](int i) { return points[static_cast<std::size_t>(i)]; };

    draw_axes(svg, panel, labels);
    svg.open_clipped_group("points", panel.box);
    for (const int i : with_residuals(drawn))
        svg.line(on_line(dot(point(i) - line.point, line.direction)), pixel_of(panel, point(i)),
                 "residual");
    svg.line(on_line(line.extent.low - beyond), on_line(line.extent.high + beyond), "fit");
    for (const int i : drawn)
        fit.draw_dot(svg, pixel_of(panel, point(i)), i, drawn.size());
    fit.draw_ring(svg, pixel_of(panel, point(fit.distances.farthest)));
    svg.close_group();
    draw_border(svg, panel);
}

/// The points seen along the line, with a circle of the rms distance.
void draw_end_view(Svg& svg, const Panel& panel, const Plane& points, const std::vector<int>& drawn,
                   const Pictured& fit) {
    draw_axes(svg, panel,
              {"Seen along the line", "", labelled("in the fitted plane", fit.unit),
               labelled("out of it", fit.unit)});
    const double per_unit = panel.box.width / panel.x.length();
    svg.open_clipped_group("end-view", panel.box);
    svg.line(panel.at(panel.x.low, 0.0), panel.at(panel.x.high, 0.0), "tick");
    svg.line(panel.at(0.0, panel.y.low), panel.at(0.0, panel.y.high), "tick");
    svg.circle(panel.at(0.0, 0.0), fit.distances.rms * per_unit, "band");
    svg.circle(panel.at(0.0, 0.0), fit.distances.rms * per_unit, "band-edge");
    for (const int i : drawn)
        fit.draw_dot(svg, pixel_of(panel, points[static_cast<std::size_t>(i)]), i, drawn.size());
    fit.draw_ring(svg, pixel_of(panel, points[static_cast<std::size_t>(fit.distances.farthest)]));
    svg.close_group();
    draw_border(svg, panel);
}

std::vector<double> component(const Plane& points, std::size_t k) {
    std::vector<double> values;
    values.reserve(points.size());
    for (const Vec2& p : points)
        values.push_back(p[k]);
    return values;
}

template <class Fit>
Pictured pictured_line(const Points& points, const Fit& fit, const Unit& unit,
                       const std::string& source) {
    const double extent = fit.extent.length();
    return {points,
            fit.distances,
            unit,
            "line",
            source,
            extent,
            "extent " + with_unit(rounded(extent, 4), unit)};
}

ResidualPanel residuals(const std::vector<double>& position, const std::vector<int>& drawn,
                        const Unit& unit) {
    return {position, drawn, "Distance from the line", labelled("along the line", unit),
            labelled("distance", unit)};
}

}  // namespace

std::string line_picture(const Points& points, const Line2Fit& fit, const Unit& unit,
                         const std::string& source) {
    const Pictured pictured = pictured_line(points, fit, unit, source);
    Plane plane;
    std::vector<double> position;
    for (int i = 0; i < points.count(); ++i) {
        plane.push_back(load<2>(points.at(i)));
        position.push_back(dot(plane.back() - fit.point, fit.direction));
    }
    const std::vector<int> drawn = evenly_chosen_with_extremes(fit.distances, position);
    const PanelLabels labels{"Points and line", "true proportion", labelled("x", unit),
                             labelled("y", unit)};
    const DrawnLine line{fit.point, fit.direction, fit.extent};

    // A line that rises steeply stands beside its distances, any other above them.
    const bool steep = std::fabs(fit.direction[1]) > 1.2 * std::fabs(fit.direction[0]);
    const Panel panel =
        steep ? panel_for(plane, {picture_left, heading_height}, 250.0, {440.0, 440.0})
              : panel_for(plane, {picture_left, heading_height}, panel_width, {130.0, 420.0});
    const double left = panel.box.right() + 100.0;
    const Box residual_box =
        steep ? Box{left, heading_height, picture_right - left, 440.0}
              : Box{picture_left, panel.box.bottom() + row_gap, panel_width, residual_height};
    Svg svg(picture_width, residual_box.bottom() + 58.0, pictured.title(),
            "Points, the line fitted to them, and their distances from it");
    pictured.draw_heading(svg);
    draw_true_panel(svg, panel, plane, line, drawn, labels, pictured);
    draw_residual_panel(svg, residual_box, residuals(position, drawn, unit), pictured);
    return svg.str();
}

std::string line_picture(const Points& points, const Line3Fit& fit, const Unit& unit,
                         const std::string& source) {
    const Pictured pictured = pictured_line(points, fit, unit, source);
    Plane side;  // along the line and across, in the fitted plane
    Plane end;   // across, and out of the plane
    for (int i = 0; i < points.count(); ++i) {
        const Vec3 offset = load<3>(points.at(i)) - fit.point;
        const double across = dot(offset, fit.across);
        side.push_back({dot(offset, fit.direction), across});
        end.push_back({across, dot(offset, fit.normal)});
    }
    const std::vector<double> position = component(side, 0);
    const std::vector<int> drawn = evenly_chosen_with_extremes(fit.distances, position);

    const Panel panel =
        panel_for(side, {picture_left, heading_height}, panel_width, {110.0, 420.0});
    const double second_row = panel.box.bottom() + row_gap;
    const double reach = 1.15 * pictured.reach();
    const Panel end_panel{
        {picture_right - residual_height, second_row, residual_height, residual_height},
        {-reach, reach},
        {-reach, reach}};
    const Box residual_box{picture_left, second_row, end_panel.box.x - 100.0 - picture_left,
                           residual_height};
    Svg svg(picture_width, residual_box.bottom() + 58.0, pictured.title(),
            "Points, the line fitted to them, and their distances from it");
    pictured.draw_heading(svg);
    draw_true_panel(svg, panel, side, {{0.0, 0.0}, {1.0, 0.0}, fit.extent}, drawn,
                    {"Points and line, seen square to the fitted plane", "true proportion",
                     labelled("along the line", unit), labelled("across", unit)},
                    pictured);
    draw_residual_panel(svg, residual_box, residuals(position, drawn, unit), pictured);
    draw_end_view(svg, end_panel, end, drawn, pictured);
    return svg.str();
}

}  // namespace tool
