#include "panel.h"

#include <algorithm>
#include <cmath>

#include "number.h"

namespace tool {

namespace {

constexpr double pixels_per_x_tick = 62.0;
constexpr double pixels_per_y_tick = 36.0;

constexpr double character_width = 6.7;

int tick_count(double length, double spacing) {
    return std::max(3, static_cast<int>(length / spacing));
}

Range widened(Range range, double length) {
    return {range.middle() - 0.5 * length, range.middle() + 0.5 * length};
}

}  // namespace

Panel true_panel(Pixel corner, double width, Range heights, Range x, Range y) {
    const double height = std::clamp(width * y.length() / x.length(), heights.low, heights.high);
    const double per_pixel = std::max(x.length() / width, y.length() / height);
    return {{corner.x, corner.y, width, height},
            widened(x, per_pixel * width),
            widened(y, per_pixel * height)};
}

void draw_axes(Svg& svg, const Panel& panel, const PanelLabels& labels) {
    const Box& box = panel.box;
    svg.rectangle(box, "frame");
    for (const Tick& tick : round_ticks(panel.x, tick_count(box.width, pixels_per_x_tick))) {
        const double x = panel.at(tick.value, 0.0).x;
        svg.line({x, box.y}, {x, box.bottom()}, "grid");
        svg.line({x, box.bottom()}, {x, box.bottom() + 4.0}, "tick");
        svg.text({x, box.bottom() + 17.0}, tick.label, "middle");
    }
    double label_width = 0.0;
    for (const Tick& tick :
         round_ticks(panel.y, tick_count(box.height, pixels_per_y_tick), panel.smallest_y_step)) {
        const double y = panel.at(0.0, tick.value).y;
        svg.line({box.x, y}, {box.right(), y}, "grid");
        svg.line({box.x - 4.0, y}, {box.x, y}, "tick");
        svg.text({box.x - 8.0, y + 4.0}, tick.label, "end");
        label_width = std::max(label_width,
                               character_width * static_cast<double>(character_count(tick.label)));
    }
    svg.text({box.x, box.y - 10.0}, labels.heading, "heading");
    if (!labels.note.empty()) svg.text({box.right(), box.y - 10.0}, labels.note, "end");
    svg.text({box.x + 0.5 * box.width, box.bottom() + 35.0}, labels.x, "middle");
    svg.upright_text({box.x - 22.0 - label_width, box.y + 0.5 * box.height}, labels.y, "middle");
}

void draw_border(Svg& svg, const Panel& panel) {
    svg.rectangle(panel.box, "border");
}

}  // namespace tool
