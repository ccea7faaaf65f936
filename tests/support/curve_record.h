// Curve defining data for tests: records over points, released on every way out.
#pragma once

#include "support/vectors.h"
#include "syss/syss.h"
#include "ztmath/bcdf.h"
#include "ztmath/bcdf_gen.h"

namespace ztmath_test {

struct Release {
    void operator()(BCDF* record) const { BCDF_free_structure(record); }
    void operator()(PNTLST* list) const { PNTLST_free_structure(list); }
};
using Record = std::unique_ptr<BCDF, Release>;
using List = std::unique_ptr<PNTLST, Release>;
using Values = std::vector<double>;

inline List new_list(const Values& values, int dimension = 3) {
    const int n = static_cast<int>(values.size()) / dimension;
    List list(PNTLST_allocate_struct(dimension, n));
    std::copy(values.begin(), values.end(), list->points);
    list->num_points = n;
    return list;
}

inline Values values_of(const PNTLST* list) {
    if (list == nullptr) return {};
    return {list->points, list->points + list->num_points * list->dimension};
}

/// A record of order 4 with chord-length parameters.
inline Record new_record(const Values& points, int dimension = 3, int periodicity = 0,
                         int least_squares = 0) {
    List list = new_list(points, dimension);
    Record record(BCDF_create_from_pntlst(periodicity, 4, least_squares, list.get(), nullptr,
                                          nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                          nullptr));
    list.release();
    return record;
}

/// Vector k of a list; what a homogeneous one has fourth is left out.
inline Vector vector_in(const PNTLST* list, int k) {
    const double* at = list->points + static_cast<std::ptrdiff_t>(k) * list->dimension;
    return {at[0], at[1], at[2]};
}

}  // namespace ztmath_test
