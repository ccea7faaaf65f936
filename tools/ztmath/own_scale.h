// Points at a size that the library's thresholds are made for, whatever their unit and place.
#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

namespace tool {

/// Coordinates relative to the first point, times the power of two that makes them some hundred
/// thousand wide; none of it rounds, but for points far from the first.
struct OwnScale {
    std::vector<double> coordinates;
    int exponent = 0;

    OwnScale(const std::vector<double>& given, std::size_t dimension) : coordinates(given) {
        constexpr int width = 17;
        double extent = 0.0;
        for (std::size_t i = 0; i < given.size(); ++i) {
            coordinates[i] -= given[i % dimension];
            extent = std::fmax(extent, std::fabs(coordinates[i]));
        }
        if (extent > 0.0) exponent = width - std::ilogb(extent);
        for (double& x : coordinates)
            x = to_scale(x);
    }

    double to_scale(double length) const { return std::ldexp(length, exponent); }
    double from_scale(double length) const { return std::ldexp(length, -exponent); }
};

}  // namespace tool
