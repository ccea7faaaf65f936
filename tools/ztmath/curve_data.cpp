#include "curve_data.h"

#include <syss/syss.h>
#include <ztmath/bcdf_calc.h>
#include <ztmath/bcdf_gen.h>

#include <algorithm>
#include <memory>

#include "library_call.h"

namespace tool {

namespace {

struct Release {
    void operator()(BCDF* record) const { BCDF_free_structure(record); }
    void operator()(PNTLST* list) const { PNTLST_free_structure(list); }
};
using Record = std::unique_ptr<BCDF, Release>;

Vec3 space_point(const Points& points, int i) {
    const double* p = points.at(i);
    return {p[0], p[1], points.dimension > 2 ? p[2] : 0.0};
}

/// How many points there are without the one that closes a periodic curve.
int open_count(const CurveOptions& options, const Points& points) {
    const int n = points.count();
    const bool closed =
        options.periodic && n > 1 && space_point(points, 0) == space_point(points, n - 1);
    return closed ? n - 1 : n;
}

Record open_record(const Points& points, int number) {
    std::unique_ptr<PNTLST, Release> list(PNTLST_allocate_struct(3, number));
    for (int i = 0; i < number; ++i)
        PNTLST_concat_one_point(list.get(), space_point(points, i).data());
    Record record(BCDF_create_from_pntlst(0, 4, 0, list.get(), nullptr, nullptr, nullptr, nullptr,
                                          nullptr, nullptr, nullptr, nullptr));
    list.release();
    return record;
}

void add_slopes(BCDF* record, const CurveOptions& options, const Points* slopes) {
    const int n = BCDF_return_num_of_points(record);
    for (int i = 0; slopes != nullptr && i < std::min(n, slopes->count()); ++i) {
        const Vec3 slope = space_point(*slopes, i);
        BCDF_change_slope(record, slope == Vec3{} ? 0 : options.slope_type, slope.data(), i);
    }
    for (int i = 0; slopes == nullptr && options.all_slopes && i < n; ++i)
        BCDF_change_slope(record, 0, nullptr, i);
    BCDF_add_needed_slopes(record);
}

Record record_of(const CurveOptions& options, const Points& points, const Points* slopes) {
    Record record = open_record(points, open_count(options, points));
    if (options.periodic) BCDF_toggle_periodicity(record.get());
    BCDF_change_order(record.get(), options.order);
    add_slopes(record.get(), options, slopes);
    if (options.least_squares) BCDF_convert_to_least_squares(record.get());
    if (options.tolerance > 0.0) BCDF_change_tolerance(record.get(), options.tolerance);
    if (options.segments > 0) BCDF_change_number_of_segments(record.get(), options.segments);
    return record;
}

CurvePoint point_of(const BCDF* record, int i) {
    CurvePoint p{};
    int number = 0;
    int slope = 0;
    int type = 0;
    BCDF_copy_single_3d_point(record, i, p.at.data());
    p.parameter = BCDF_return_param_array(record, &number)[i];
    p.has_slope = BCDF_slope_at_point(record, i, &slope) != 0;
    if (p.has_slope) BCDF_copy_single_3d_slope(record, slope, p.slope.data(), &type);
    BCDF_CALC_auto_curvature(record, i, p.curvature.data());
    const double* weights = BCDF_return_weight_array(record, &number);
    p.weight = weights != nullptr ? weights[i] : 0.0;
    return p;
}

}  // namespace

std::string CurveData::status_words() const {
    switch (status) {
        case 0:
            return "valid";
        case 1005321:
            return "too few points";
        case 1005311:
            return "fewer constraints (points, slopes) than the order";
        case 1005317:
            return "too many constraints";
        case 1005322:
            return "neighbouring points coincide: the parameters do not increase";
        case 1005320:
            return "slopes need order 3 or more, curvatures 4";
        case 1005318:
            return "a curvature at a point without slope";
        case 1005319:
            return "a curvature that is not perpendicular to the slope";
        case 1005006:
            return "the tolerance is negative";
        case 1005005:
            return "more segments than the points allow";
        default:
            return "invalid, status " + std::to_string(status);
    }
}

CurveData curve_data(const CurveOptions& options, const Points& points, const Points* slopes) {
    CurveData data{};
    call_library([&] {
        const Record record = record_of(options, points, slopes);
        data.status = BCDF_check_defining_data(record.get());
        data.constraints = BCDF_return_num_of_constraints(record.get());
        data.continuity = BCDF_ask_continuity(record.get());
        data.length = BCDF_calc_df_polygon_length(record.get());
        for (int i = 0; i < BCDF_return_num_of_points(record.get()); ++i)
            data.points.push_back(point_of(record.get(), i));
    });
    return data;
}

}  // namespace tool
