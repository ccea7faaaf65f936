// Point lists seen from inside.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

#include "frame/report.h"
#include "frame/vec.h"
#include "frame/work_array.h"
#include "ztmath/pntlst.h"

namespace ztmath {

inline constexpr Module pntlst_module{"pntlst_gen"};

/// The number of points of a list; 0 for null.
inline int count(const PNTLST* list) {
    return list != nullptr ? list->num_points : 0;
}

/// The doubles per point of a list; 0 for null.
inline int dimension_of(const PNTLST* list) {
    return list != nullptr ? list->dimension : 0;
}

/// All coordinates, which are the values themselves in a list of scalars; none for null.
inline std::span<double> coordinates(const PNTLST* list) {
    if (list == nullptr || list->points == nullptr) return {};
    return {list->points,
            static_cast<std::size_t>(element_count(list->num_points, list->dimension))};
}

/// Where point i begins.
inline double* point_at(const PNTLST& list, int i) {
    return list.points + static_cast<std::ptrdiff_t>(i) * list.dimension;
}

/// The first three coordinates of point i; those it does not have are 0.
inline Vec3 vector_at(const PNTLST& list, int i) {
    const double* p = point_at(list, i);
    const int dimension = list.dimension;
    return {dimension > 0 ? p[0] : 0.0, dimension > 1 ? p[1] : 0.0, dimension > 2 ? p[2] : 0.0};
}

/// The Cartesian point of a homogeneous one.
inline Vec3 cartesian(const double* pole) {
    const double w = pole[3];
    return {pole[0] / w, pole[1] / w, pole[2] / w};
}

/// The Cartesian point i, of a list that may be homogeneous.
inline Vec3 cartesian_at(const PNTLST& list, int i) {
    return list.dimension == 4 ? cartesian(point_at(list, i)) : vector_at(list, i);
}

/// Owns a list until it is handed on.
class ListOwner {
  public:
    explicit ListOwner(PNTLST* list) : list_(list) {}
    ~ListOwner() { PNTLST_free_structure(list_); }
    ListOwner(const ListOwner&) = delete;
    ListOwner& operator=(const ListOwner&) = delete;

    PNTLST* get() const { return list_; }
    PNTLST* operator->() const { return list_; }
    PNTLST* release() { return std::exchange(list_, nullptr); }

  private:
    PNTLST* list_;
};

}  // namespace ztmath
