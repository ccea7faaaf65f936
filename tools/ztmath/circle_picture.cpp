#include "circle_picture.h"

#include <algorithm>
#include <cmath>

#include "number.h"
#include "residual_panel.h"

namespace tool {

namespace {

constexpr double panel_width = 430.0;
constexpr Range panel_heights{260.0, 430.0};
constexpr double radians = 0.017453292519943295;

/// Of the points, and of the whole circle where they go around most of it.
Range range_of(const Points& points, const CircleFit& fit, int k) {
    Range range{points.at(0)[k], points.at(0)[k]};
    const auto include = [&range](double x) {
        range = {std::min(range.low, x), std::max(range.high, x)};
    };
    for (int i = 0; i < points.count(); ++i)
        include(points.at(i)[k]);
    if (fit.covered > 180.0)
        for (const double side : {-fit.radius, fit.radius})
            include(fit.centre[static_cast<std::size_t>(k)] + side);
    return padded(range, 0.05);
}

/// Along the circle, from where the points begin after their largest gap.
std::vector<double> places_on(const CircleFit& fit, const Points& points) {
    std::vector<double> places;
    for (int i = 0; i < points.count(); ++i)
        places.push_back(radians * fit.radius * fit.angle_of(load<2>(points.at(i))));
    return places;
}

void draw_circle(Svg& svg, const Panel& panel, const CircleFit& fit) {
    const Pixel centre = panel.at(fit.centre[0], fit.centre[1]);
    svg.circle(centre, fit.radius * panel.box.width / panel.x.length(), "fit", "none");
    svg.line({centre.x - 6.0, centre.y}, {centre.x + 6.0, centre.y}, "fit");
    svg.line({centre.x, centre.y - 6.0}, {centre.x, centre.y + 6.0}, "fit");
}

void draw_true_panel(Svg& svg, const Panel& panel, const Points& points, const CircleFit& fit,
                     const std::vector<int>& drawn, const PanelLabels& labels,
                     const Pictured& pictured) {
    const auto pixel = [&](int i) { return panel.at(points.at(i)[0], points.at(i)[1]); };
    const auto foot = [&](int i) {
        const Vec2 offset = load<2>(points.at(i)) - fit.centre;
        const Vec2 p = along(fit.centre, fit.radius / length(offset), offset);
        return panel.at(p[0], p[1]);
    };
    draw_axes(svg, panel, labels);
    svg.open_clipped_group("points", panel.box);
    draw_circle(svg, panel, fit);
    for (const int i : with_residuals(drawn))
        svg.line(foot(i), pixel(i), "residual");
    for (const int i : drawn)
        pictured.draw_dot(svg, pixel(i), i, drawn.size());
    pictured.draw_ring(svg, pixel(fit.distances.farthest));
    svg.close_group();
    draw_border(svg, panel);
}

std::string circle_drawing(const Points& points, const CircleFit& fit, const PanelLabels& labels,
                           const Unit& unit, const std::string& source) {
    const std::vector<double> position = places_on(fit, points);
    const std::vector<int> drawn = evenly_chosen_with_extremes(fit.distances, position);
    const Pictured pictured(points, fit.distances, unit, "circle", source,
                            radians * fit.radius * fit.covered,
                            "radius " + with_unit(rounded(fit.radius, 6), unit) + ", arc " +
                                rounded(fit.covered, 4) + "\u00b0");
    const Panel panel = true_panel({picture_left, heading_height}, panel_width, panel_heights,
                                   range_of(points, fit, 0), range_of(points, fit, 1));
    const double left = panel.box.right() + 100.0;
    const Box residual_box{left, heading_height, picture_right - left, panel.box.height};
    Svg svg(picture_width, panel.box.bottom() + 58.0, pictured.title(),
            "Points, the circle fitted to them, and their distances from it");
    pictured.draw_heading(svg);
    draw_true_panel(svg, panel, points, fit, drawn, labels, pictured);
    draw_residual_panel(svg, residual_box,
                        {position, drawn, "Roundness", labelled("along the circle", unit),
                         labelled("distance outwards", unit)},
                        pictured);
    return svg.str();
}

}  // namespace

std::string circle_picture(const Points& points, const CircleFit& fit, const Unit& unit,
                           const std::string& source) {
    return circle_drawing(
        points, fit,
        {"Points and circle", "true proportion", labelled("x", unit), labelled("y", unit)}, unit,
        source);
}

std::string circle_picture(const Points& points, const Circle3Fit& fit, const Unit& unit,
                           const std::string& source) {
    Points in_plane = fit.in_plane;
    in_plane.lines = points.lines;
    return circle_drawing(in_plane, fit.circle,
                          {"Points and circle, square to the plane", "true proportion",
                           labelled("along the plane", unit), labelled("across", unit)},
                          unit, source);
}

}  // namespace tool
