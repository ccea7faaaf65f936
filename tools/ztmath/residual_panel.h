// The panel that shows each point's distance from a fit over its place along it.
#pragma once

#include <string>
#include <vector>

#include "panel.h"
#include "pictured.h"

namespace tool {

struct ResidualPanel {
    const std::vector<double>& position;
    const std::vector<int>& drawn;
    std::string heading;
    std::string x_label;
    std::string y_label;
};

/// Distances are enlarged as far as the box allows, and the panel says how far.
void draw_residual_panel(Svg& svg, const Box& box, const ResidualPanel& what, const Pictured& fit);

}  // namespace tool
