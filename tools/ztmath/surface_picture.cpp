#include "surface_picture.h"

#include <algorithm>
#include <cmath>

#include "number.h"

namespace tool {

namespace {

constexpr double section_height = 250.0;
constexpr double plan_width = 540.0;
constexpr Range plan_heights{200.0, 460.0};

void draw_plan(Svg& svg, const Panel& panel, const Plan& plan, const Pictured& fit) {
    const std::vector<int> drawn = evenly_chosen(fit.distances);
    draw_axes(svg, panel, {plan.heading, "true proportion", plan.u_label, plan.v_label});
    svg.open_clipped_group("plan", panel.box);
    if (plan.outline > 0.0)
        svg.circle(panel.at(0.0, 0.0), plan.outline * panel.box.width / panel.x.length(), "fit",
                   "none");
    for (const int i : drawn)
        fit.draw_dot(svg, plan.at(panel, i), i, drawn.size());
    fit.mark_farthest(svg, panel.box, plan.at(panel, fit.distances.farthest));
    svg.close_group();
    draw_border(svg, panel);
}

/// Counts of distances in intervals of equal width between two limits.
struct Histogram {
    Range range;
    std::vector<int> counts;

    Range interval(std::size_t k) const {
        const double width = range.length() / static_cast<double>(counts.size());
        return {range.low + static_cast<double>(k) * width,
                range.low + static_cast<double>(k + 1) * width};
    }
};

Histogram histogram_of(const std::vector<double>& distances, double reach) {
    const double rough = 1.5 * std::sqrt(static_cast<double>(distances.size()));
    const std::size_t intervals =
        2 * (static_cast<std::size_t>(std::clamp(rough, 7.0, 41.0)) / 2) + 1;
    Histogram histogram{{-reach, reach}, std::vector<int>(intervals, 0)};
    for (const double d : distances) {
        const double part = (d + reach) / (2.0 * reach);
        const auto k = static_cast<std::size_t>(part * static_cast<double>(intervals));
        ++histogram.counts[std::min(k, intervals - 1)];
    }
    return histogram;
}

/// The histogram is the key to the colours too: a strip of them runs along its axis.
void draw_histogram(Svg& svg, const Box& box, const std::string& label, const Pictured& fit) {
    const Palette palette = fit.palette();
    const Histogram histogram = histogram_of(fit.distances.of_point, fit.reach());
    const double strip = 12.0;
    const int most = *std::max_element(histogram.counts.begin(), histogram.counts.end());
    const Panel panel{
        {box.x, box.y, box.width, box.height - strip}, histogram.range, {0.0, 1.08 * most}};
    const Panel axes{box, panel.x, {-strip / panel.box.height * panel.y.high, panel.y.high}, 1.0};
    draw_axes(svg, axes, {"Points by distance", "", labelled(label, fit.unit), ""});
    svg.open_group("histogram");
    for (std::size_t k = 0; k < histogram.counts.size(); ++k) {
        const Range interval = histogram.interval(k);
        const std::string color = palette.color(interval.middle());
        const Pixel top = panel.at(interval.low, histogram.counts[k]);
        const Pixel end = panel.at(interval.high, 0.0);
        svg.rectangle({top.x, end.y, end.x - top.x + 0.3, strip}, "strip", color);
        if (histogram.counts[k] > 0)
            svg.rectangle({top.x, top.y, end.x - top.x, end.y - top.y}, "bar", color);
    }
    svg.close_group();
    draw_border(svg, axes);
    svg.text({box.x + 0.5 * box.width, box.bottom() + 52.0},
             "colours are strongest from \u00b1" + with_unit(rounded(palette.limit(), 3), fit.unit),
             "middle");
}

}  // namespace

std::string surface_picture(const SurfacePicture& picture, const Pictured& fit) {
    const Plan& plan = picture.plan;
    const std::vector<int> drawn = evenly_chosen_with_extremes(fit.distances, picture.position);

    const Box section{picture_left, heading_height, picture_right - picture_left, section_height};
    const double second_row = section.bottom() + 84.0;
    const Panel plan_panel = true_panel({picture_left, second_row}, plan_width, plan_heights,
                                        plan.u_range, plan.v_range);
    const double histogram_left = plan_panel.box.right() + 76.0;
    const Box histogram{histogram_left, second_row, picture_right - histogram_left,
                        plan_panel.box.height};

    Svg svg(picture_width, plan_panel.box.bottom() + 58.0, fit.title(), picture.description);
    fit.draw_heading(svg);
    draw_residual_panel(svg, section,
                        {picture.position, drawn, picture.heading, picture.position_label,
                         labelled("distance", fit.unit)},
                        fit);
    draw_plan(svg, plan_panel, plan, fit);
    draw_histogram(svg, histogram, picture.distance_label, fit);
    return svg.str();
}

std::vector<double> places_along(const Points& points, const Vec3& origin, const Vec3& axis) {
    std::vector<double> places;
    places.reserve(points.lines.size());
    for (int i = 0; i < points.count(); ++i)
        places.push_back(dot(load<3>(points.at(i)) - origin, axis));
    return places;
}

}  // namespace tool
