// Points as the fits take them.
#pragma once

#include "support/support.h"
#include "ztmath/lsfit.h"

namespace ztmath_test {

using Points = std::vector<Vector>;

/// The coordinates of all points; of those in the plane, the first two.
inline std::vector<double> flat(const Points& points, int dimension) {
    std::vector<double> coordinates;
    for (const Vector& p : points)
        coordinates.insert(coordinates.end(), p.begin(), p.begin() + dimension);
    return coordinates;
}

inline int count_of(const Points& points) {
    return static_cast<int>(points.size());
}

inline const Report no_points = internal("lsfit", "There are no input points.");

}  // namespace ztmath_test
