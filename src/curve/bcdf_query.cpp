// B-curve defining data: queries of the whole record.
#include <algorithm>

#include "curve/bcdf.h"

using namespace ztmath;

namespace {

constexpr Module module = bcdf_module.part(4);

bool has_interior_slope(const BCDF& record) {
    const auto t = parameters(record);
    return std::ranges::any_of(slope_parameters(record), [t](double s) {
        return !parameters_match(s, t.front()) && !parameters_match(s, t.back());
    });
}

}  // namespace

int BCDF_is_least_squares(const BCDF* record) {
    if (checking() && record == nullptr) module.internal("Defining Data Structure Is NULL");
    return record != nullptr && record->weights != nullptr;
}

int BCDF_is_zt_spline(const BCDF* record) {
    return record->order == 4 && count(record->curvatures) == 0 && count(record->slopes) >= 2 &&
           has_start_slope(*record) && has_end_slope(*record);
}

int BCDF_ask_continuity(const BCDF* record) {
    // The first slope of such a record is at its first parameter, which is all that a periodic one
    // is asked for.
    const bool broken =
        BCDF_is_zt_spline(record) != 0 && (record->periodicity == 1 || has_interior_slope(*record));
    return broken ? 1 : record->order - 2;
}

int BCDF_ask_max_npoles_for_fit(const BCDF* record) {
    if (record->weights == nullptr) return 0;
    return count(record->points) - (record->periodicity == 1 ? 1 : 0);
}

double BCDF_calc_df_polygon_length(const BCDF* record) {
    double sum = 0.0;
    for (int i = 1; i < count(record->points); ++i)
        sum += PNTLST_calc_point_distance(record->points, i - 1, i);
    return sum;
}
