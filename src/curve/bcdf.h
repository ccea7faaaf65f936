// B-curve defining data seen from inside.
#pragma once

#include <cmath>
#include <span>

#include "curve/point_list.h"
#include "ztmath/bcdf.h"

namespace ztmath {

inline constexpr Module bcdf_module{"bcdf"};
inline constexpr Module bcdf_gen_module{"bcdf_gen"};

/// Reason codes of raised reports.
enum CurveReason {
    reason_point_position = 1005302,
    reason_no_parameters = 1005303,
    reason_no_points = 1005304,
    reason_no_slopes = 1005305,
    reason_no_slope_parameters = 1005306,
    reason_periodic_fit = 1005312,
    reason_dimension = 1005313,
    reason_zero_slope = 1005314,
    reason_position = 1005315,
    reason_removal = 1005316,
};

/// The lists of a record.
inline constexpr PNTLST* BCDF::*record_lists[] = {
    &BCDF::points,           &BCDF::weights,    &BCDF::parameters,          &BCDF::slopes,
    &BCDF::slope_parameters, &BCDF::curvatures, &BCDF::curvature_parameters};

/// Parameters match when they differ by at most this.
inline constexpr double parameter_tolerance = 1.0e-10;

inline bool parameters_match(double a, double b) {
    return std::fabs(a - b) <= parameter_tolerance;
}

/// The parameters of points, slopes and curvatures, one each.
inline std::span<double> parameters(const BCDF& record) {
    return coordinates(record.parameters);
}
inline std::span<double> slope_parameters(const BCDF& record) {
    return coordinates(record.slope_parameters);
}
inline std::span<double> curvature_parameters(const BCDF& record) {
    return coordinates(record.curvature_parameters);
}

/// Whether the first slope is at the first parameter, and the last at the last.
inline bool has_start_slope(const BCDF& record) {
    const auto t = parameters(record);
    const auto s = slope_parameters(record);
    return !t.empty() && !s.empty() && parameters_match(s.front(), t.front());
}
inline bool has_end_slope(const BCDF& record) {
    const auto t = parameters(record);
    const auto s = slope_parameters(record);
    return !t.empty() && !s.empty() && parameters_match(s.back(), t.back());
}

/// Owns a record until it is handed on.
class RecordOwner {
  public:
    explicit RecordOwner(BCDF* record) : record_(record) {}
    ~RecordOwner() { BCDF_free_structure(record_); }
    RecordOwner(const RecordOwner&) = delete;
    RecordOwner& operator=(const RecordOwner&) = delete;

    BCDF* get() const { return record_; }
    BCDF* operator->() const { return record_; }
    BCDF* release() { return std::exchange(record_, nullptr); }

  private:
    BCDF* record_;
};

}  // namespace ztmath
