#include "residual_panel.h"

#include <algorithm>
#include <cmath>

#include "number.h"

namespace tool {

namespace {

/// The band of the rms distance, on both sides of the fit where the panel has two.
void draw_band(Svg& svg, const Panel& panel, const Pictured& fit) {
    const double rms = fit.distances.rms;
    const bool two_sided = panel.y.low < 0.0;
    const Pixel top = panel.at(panel.x.low, rms);
    const Pixel bottom = panel.at(panel.x.high, two_sided ? -rms : 0.0);
    svg.rectangle({top.x, top.y, bottom.x - top.x, bottom.y - top.y}, "band");
    svg.line(top, {bottom.x, top.y}, "band-edge");
    if (two_sided) svg.line({top.x, bottom.y}, bottom, "band-edge");
}

/// Labels the band at the end that is farther from the farthest point, whose label might cover it.
void label_band(Svg& svg, const Panel& panel, const Pictured& fit, Pixel farthest) {
    const double rms = fit.distances.rms;
    const double y = panel.at(panel.x.high, rms).y - 5.0;
    const std::string words =
        (panel.y.low < 0.0 ? "\u00b1 rms " : "rms ") + with_unit(rounded(rms, 3), fit.unit);
    if (farthest.x < panel.box.x + 0.5 * panel.box.width)
        svg.text({panel.box.right() - 6.0, y}, words, "band-label end");
    else
        svg.text({panel.box.x + 6.0, y}, words, "band-label");
}

std::string enlargement(const Panel& panel) {
    const double factor =
        (panel.box.height / panel.y.length()) / (panel.box.width / panel.x.length());
    const double unit = std::pow(10.0, std::floor(std::log10(factor)) - 1.0);
    return "distances drawn about " + grouped(std::round(factor / unit) * unit) +
           " times as large as lengths";
}

}  // namespace

void draw_residual_panel(Svg& svg, const Box& box, const ResidualPanel& what, const Pictured& fit) {
    const std::vector<double>& d = fit.distances.of_point;
    const auto [first, last] = std::minmax_element(what.position.begin(), what.position.end());
    const double reach = 1.2 * fit.reach();
    const bool two_sided = fit.is_exact() || *std::min_element(d.begin(), d.end()) < 0.0;
    const Panel panel{box, padded({*first, *last}, 0.03), {two_sided ? -reach : 0.0, reach}};
    const auto place = [&](int i, double height) {
        return panel.at(what.position[static_cast<std::size_t>(i)], height);
    };
    const auto point = [&](int i) { return place(i, d[static_cast<std::size_t>(i)]); };

    draw_axes(svg, panel, {what.heading, enlargement(panel), what.x_label, what.y_label});
    svg.open_clipped_group("distances", box);
    if (!fit.is_exact()) draw_band(svg, panel, fit);
    svg.line(panel.at(panel.x.low, 0.0), panel.at(panel.x.high, 0.0), "fit");
    for (const int i : with_residuals(what.drawn))
        svg.line(place(i, 0.0), point(i), "residual");
    for (const int i : what.drawn)
        fit.draw_dot(svg, point(i), i, what.drawn.size());
    const Pixel farthest = point(fit.distances.farthest);
    if (!fit.is_exact()) label_band(svg, panel, fit, farthest);
    fit.mark_farthest(svg, box, farthest);
    svg.close_group();
    draw_border(svg, panel);
}

}  // namespace tool
