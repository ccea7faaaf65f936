// A record of curve defining data to measure on.
#pragma once

#include <cmath>
#include <cstddef>
#include <memory>

#include "syss/syss.h"
#include "ztmath/bcdf_gen.h"

struct FreeRecord {
    void operator()(BCDF* record) const { BCDF_free_structure(record); }
};
using CurveRecord = std::unique_ptr<BCDF, FreeRecord>;

/// Points of a wave, one beside the other, with slopes of a type at all of them.
inline CurveRecord wave_record(int n, int slope_type) {
    auto* points = static_cast<double*>(SM_alloc(sizeof(double) * 3 * static_cast<std::size_t>(n)));
    for (int i = 0; i < n; ++i) {
        points[3 * i] = i;
        points[3 * i + 1] = std::sin(0.1 * i);
        points[3 * i + 2] = 0.0;
    }
    CurveRecord record(BCDF_create_df_from_pts(points, n, 3, 0));
    const double along[3] = {1, 0, 0};
    for (int i = 0; i < n; ++i)
        BCDF_change_slope(record.get(), slope_type, along, i);
    return record;
}
