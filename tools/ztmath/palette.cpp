#include "palette.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace tool {

namespace {

using Color = std::array<double, 3>;

/// Evenly spaced from the lower limit to the upper: a scale that the colour-blind can read too.
constexpr std::array<Color, 7> stops{{{33, 82, 145},
                                      {72, 135, 192},
                                      {152, 191, 220},
                                      {222, 223, 224},
                                      {240, 174, 140},
                                      {212, 96, 77},
                                      {158, 24, 43}}};

}  // namespace

std::string Palette::color(double distance) const {
    const double fraction = limit_ > 0.0 ? std::clamp(distance / limit_, -1.0, 1.0) : 0.0;
    const double place = 0.5 * (fraction + 1.0) * (stops.size() - 1);
    const std::size_t below = std::min(static_cast<std::size_t>(place), stops.size() - 2);
    const double part = place - static_cast<double>(below);
    int c[3];
    for (std::size_t k = 0; k < 3; ++k)
        c[k] = static_cast<int>(
            std::lround(stops[below][k] + part * (stops[below + 1][k] - stops[below][k])));
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", static_cast<unsigned>(c[0]) & 0xffU,
                  static_cast<unsigned>(c[1]) & 0xffU, static_cast<unsigned>(c[2]) & 0xffU);
    return text;
}

}  // namespace tool
