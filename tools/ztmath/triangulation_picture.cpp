#include "triangulation_picture.h"

#include <algorithm>

#include "number.h"
#include "panel.h"
#include "pictured.h"

namespace tool {

namespace {

constexpr Range panel_heights{200.0, 1000.0};

Range range_of(const Outline& outline, int axis) {
    Range range{outline.at(0)[axis], outline.at(0)[axis]};
    for (int i = 1; i < outline.count(); ++i) {
        range.low = std::min(range.low, outline.at(i)[axis]);
        range.high = std::max(range.high, outline.at(i)[axis]);
    }
    return padded(range, 0.03);
}

/// A diagonal is an edge of two triangles; it is drawn with the one that it runs up in.
bool is_drawn(int from, int to, int count) {
    return to - from > 1 && to - from < count - 1;
}

}  // namespace

std::string triangulation_picture(const Outline& outline, const TriangleList& triangles,
                                  const std::string& source) {
    const Panel panel = true_panel({picture_left, 120.0}, picture_right - picture_left,
                                   panel_heights, range_of(outline, 0), range_of(outline, 1));
    const auto pixel_of = [&](int i) { return panel.at(outline.at(i)[0], outline.at(i)[1]); };
    std::vector<Pixel> vertices;
    for (int i = 0; i < outline.count(); ++i)
        vertices.push_back(pixel_of(i));

    const std::string title = "Triangles of " + shown_name(source);
    Svg svg(picture_width, panel.box.bottom() + 58.0, title, "An outline filled with triangles");
    svg.open_group("heading");
    svg.text({32.0, 48.0}, title, "title");
    svg.text({32.0, 74.0},
             counted(outline.count()) + " vertices, " +
                 counted(static_cast<long long>(triangles.size() / 3)) + " triangles, area " +
                 rounded(outline.area, 6),
             "subtitle");
    svg.close_group();
    draw_axes(svg, panel, {"", "", "x", "y"});
    svg.open_clipped_group("triangles", panel.box);
    svg.polygon(vertices, "face");
    for (std::size_t t = 0; t < triangles.size(); t += 3)
        for (std::size_t k = 0; k < 3; ++k) {
            const int from = triangles[t + k];
            const int to = triangles[t + (k + 1) % 3];
            if (is_drawn(from, to, outline.count())) svg.line(pixel_of(from), pixel_of(to), "side");
        }
    svg.polygon(vertices, "outline");
    svg.close_group();
    draw_border(svg, panel);
    return svg.str();
}

}  // namespace tool
