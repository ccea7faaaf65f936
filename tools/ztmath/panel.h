// A panel of a picture: a box with axes.
#pragma once

#include <string>

#include "axis.h"
#include "svg.h"

namespace tool {

struct Panel {
    Box box;
    Range x;
    Range y;
    double smallest_y_step = 0.0;  // 1 where y counts

    Pixel at(double u, double v) const {
        return {box.x + (u - x.low) / x.length() * box.width,
                box.bottom() - (v - y.low) / y.length() * box.height};
    }
};

/// A panel in true proportion that shows the ranges: the box is as wide as allowed, and as high as
/// they ask for within the limits; the shorter range is widened to fill it.
Panel true_panel(Pixel corner, double width, Range heights, Range x, Range y);

struct PanelLabels {
    std::string heading;
    std::string note;  // at the right end of the heading's line
    std::string x;
    std::string y;
};

/// Background, grid and ticks; what the panel holds is drawn over it, then the border.
void draw_axes(Svg& svg, const Panel& panel, const PanelLabels& labels);
void draw_border(Svg& svg, const Panel& panel);

}  // namespace tool
