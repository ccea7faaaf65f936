#include "plane_picture.h"

#include "number.h"
#include "surface_picture.h"

namespace tool {

namespace {

Range range_of(const Extent& extent) {
    return padded({extent.low, extent.high}, 0.04);
}

std::string size_text(const PlaneFit& fit, const Unit& unit) {
    const std::vector<std::string> sizes =
        aligned({fit.extents[0].length(), fit.extents[1].length()}, 4);
    return "extent " + sizes[0] + " \u00d7 " + with_unit(sizes[1], unit);
}

}  // namespace

std::string plane_picture(const Points& points, const PlaneFit& fit, const Unit& unit,
                          const std::string& source) {
    const Pictured pictured(points, fit.distances, unit, "plane", source, fit.extents[0].length(),
                            size_text(fit, unit));
    const std::string along_extent = labelled("along the largest extent", unit);
    const std::vector<double> u = places_along(points, fit.point, fit.axes[0]);
    return surface_picture({"Distances of points from the plane fitted to them",
                            {u, places_along(points, fit.point, fit.axes[1]),
                             range_of(fit.extents[0]), range_of(fit.extents[1]),
                             "Plan, coloured by distance", along_extent, labelled("across", unit)},
                            u,
                            "The plane seen edge on",
                            along_extent,
                            "distance from the plane"},
                           pictured);
}

}  // namespace tool
