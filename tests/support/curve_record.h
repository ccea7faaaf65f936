// Curve defining data for tests: records over points, released with the test.
#pragma once

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "support/vectors.h"
#include "syss/syss.h"
#include "ztmath/bcdf.h"
#include "ztmath/bcdf_gen.h"

namespace ztmath_test {

struct FreeRecord {
    void operator()(BCDF* record) const { BCDF_free_structure(record); }
};
using Record = std::unique_ptr<BCDF, FreeRecord>;

inline PNTLST* new_list(const std::vector<double>& values, int dimension) {
    auto* array = static_cast<double*>(SM_alloc(values.size() * sizeof(double)));
    std::copy(values.begin(), values.end(), array);
    return PNTLST_create_from_list_of_pts(array, static_cast<int>(values.size()) / dimension,
                                          dimension);
}

/// A record of order 4 with chord-length parameters.
inline Record new_record(const std::vector<double>& points, int dimension = 3, int periodicity = 0,
                         int least_squares = 0) {
    return Record(BCDF_create_from_pntlst(periodicity, 4, least_squares,
                                          new_list(points, dimension), nullptr, nullptr, nullptr,
                                          nullptr, nullptr, nullptr, nullptr, nullptr));
}

/// The same with given parameters.
inline Record new_record(const std::vector<double>& points, const std::vector<double>& parameters) {
    Record record = new_record(points);
    BCDF_add_params(record.get(), parameters.data());
    return record;
}

/// Vector k of a list; what a homogeneous one has fourth is left out.
inline Vector vector_in(const PNTLST* list, int k) {
    const double* at = list->points + static_cast<std::ptrdiff_t>(k) * list->dimension;
    return {at[0], at[1], at[2]};
}

}  // namespace ztmath_test
