// Where slopes and curvatures sit: which point a parameter belongs to, and what sits at a point.
//
// Every search is a walk from the first value on. Parameters ascend as a rule, and slopes and
// curvatures stand in the order of their points, so that walks of long lists begin where bisection
// says; short lists are walked whatever their order.
#pragma once

#include <algorithm>
#include <span>

#include "curve/bcdf.h"

namespace ztmath {

/// Where a search ended: at what was looked for, or where that would have to be inserted.
struct Found {
    bool found;
    int index;
};

/// The points that have a parameter.
inline int site_count(const BCDF& record) {
    return std::min(count(record.points), count(record.parameters));
}

inline bool is_site(const BCDF& record, int position) {
    return position >= 0 && position < site_count(record);
}

inline bool is_periodic(const BCDF& record) {
    return record.periodicity == 1;
}

/// The parameters of the slopes, or curvatures, that there are.
inline std::span<double> sites_of(const PNTLST* vectors, const PNTLST* parameters) {
    const auto all = coordinates(parameters);
    return all.first(std::min(all.size(), static_cast<std::size_t>(count(vectors))));
}
inline std::span<double> slope_sites(const BCDF& record) {
    return sites_of(record.slopes, record.slope_parameters);
}
inline std::span<double> curvature_sites(const BCDF& record) {
    return sites_of(record.curvatures, record.curvature_parameters);
}

/// The first parameter that matches t or is greater.
Found find_parameter(std::span<const double> values, double t);

/// The slope at a point: it matches the point's parameter to 1e-10 of the whole span, and is nearer
/// to it than to the parameters of both neighbours. The search ends at the first that is not before
/// it.
Found slope_at_point(const BCDF& record, int position);

/// The curvature at a parameter; the search ends at the first that is not before it.
Found find_curvature(const BCDF& record, double t);
Found curvature_at_point(const BCDF& record, int position);

/// The first point at a parameter. That there is none is reported by the second; the index is then
/// the number of points.
Found find_point(const BCDF& record, double t);
Found point_at_parameter(const BCDF& record, double t);

/// Writes, for each of a row of parameters, position + 1 of its point, found by walking points and
/// parameters together; 0 for all from the first on that no point has.
void write_positions(std::span<const double> points, std::span<const double> sites, int* positions);

}  // namespace ztmath
