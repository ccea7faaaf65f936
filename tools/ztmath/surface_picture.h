// The picture of a surface: distances over the places of the points, the plan coloured by distance,
// and how the distances are spread.
#pragma once

#include <string>
#include <vector>

#include "pictured.h"
#include "residual_panel.h"

namespace tool {

/// Where points lie in a plan.
struct Plan {
    std::vector<double> u;
    std::vector<double> v;
    Range u_range;
    Range v_range;
    std::string heading;
    std::string u_label;
    std::string v_label;
    double outline = 0.0;  // radius of a circle drawn about the origin

    Pixel at(const Panel& panel, int i) const {
        return panel.at(u[static_cast<std::size_t>(i)], v[static_cast<std::size_t>(i)]);
    }
};

struct SurfacePicture {
    std::string description;
    Plan plan;
    std::vector<double> position;  // of the points in the panel of distances
    std::string heading;           // of that panel
    std::string position_label;
    std::string distance_label;  // of the histogram
};

std::string surface_picture(const SurfacePicture& picture, const Pictured& fit);

std::vector<double> places_along(const Points& points, const Vec3& origin, const Vec3& axis);

}  // namespace tool
