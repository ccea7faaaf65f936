// Outlines of countries, as maps have them.
#pragma once

#include "support/polygons.h"

namespace ztmath_test {

/// The largest ring of a country, in ten-thousandths of a degree: in degrees, finely divided edges
/// make triangles that count as degenerate.
inline Polygon outline_of(const std::string& country) {
    std::ifstream file(ZTMATH_OUTLINES "/" + country + ".txt");
    Polygon outline;
    for (double degrees; file >> degrees;)
        outline.push_back(1.0e4 * degrees);
    if (outline.empty()) throw std::runtime_error("no outline of " + country);
    return outline;
}

/// n of the vertices, evenly drawn. They may be the vertices of an outline that meets itself.
inline Polygon thinned(const Polygon& p, int n) {
    Polygon some;
    for (int i = 0; i < n; ++i) {
        const auto k = 2 * static_cast<std::size_t>(std::int64_t{i} * vertex_count(p) / n);
        some.insert(some.end(), {p[k], p[k + 1]});
    }
    return some;
}

}  // namespace ztmath_test
