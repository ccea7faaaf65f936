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
    void operator()(double* block) const { SM_free(block); }
};
using Record = std::unique_ptr<BCDF, Release>;
using Block = std::unique_ptr<double, Release>;

Vec3 space_point(const Points& points, int i) {
    const double* p = points.at(i);
    return {p[0], p[1], points.dimension > 2 ? p[2] : 0.0};
}

/// How many points there are without one that closes a periodic curve.
int open_count(const CurveOptions& options, const Points& points) {
    const int last = points.count() - 1;
    const bool closed =
        options.periodic && last > 0 && space_point(points, 0) == space_point(points, last);
    return closed ? last : last + 1;
}

Record open_record(const Points& points, int number) {
    const std::size_t size = 3 * static_cast<std::size_t>(number);
    Block block(static_cast<double*>(SM_alloc(sizeof(double) * size)));
    for (int i = 0; i < number; ++i) {
        const Vec3 p = space_point(points, i);
        std::copy(p.begin(), p.end(), block.get() + 3 * static_cast<std::size_t>(i));
    }
    Record record(BCDF_create_df_from_pts(block.get(), number, 3, 0));
    block.release();
    return record;
}

/// Slopes go to the first points of a record.
void add_slopes(BCDF* record, int number, const CurveOptions& options, const Points* slopes) {
    for (int i = 0; i < number; ++i) {
        const Vec3 slope = slopes != nullptr ? space_point(*slopes, i) : Vec3{};
        if (slope != Vec3{})
            BCDF_change_slope(record, options.slope_type, slope.data(), i);
        else if (options.all_slopes)
            BCDF_change_slope(record, 0, nullptr, i);
    }
    if (!options.least_squares) BCDF_add_needed_slopes(record);
    // Lengths and ends depend on the slopes of the neighbours, which are all there now.
    BCDF_update_slopes(record);
}

void make_fit(BCDF* record, const CurveOptions& options) {
    BCDF_convert_to_least_squares(record);
    if (options.segments != 0)
        BCDF_change_number_of_segments(record, options.segments);
    else
        BCDF_change_tolerance(record, options.tolerance);
}

/// Places and curvatures: slopes play no part in them yet.
std::vector<CurvePoint> bare_points(const BCDF* record, int number) {
    std::vector<CurvePoint> points(static_cast<std::size_t>(number));
    for (int i = 0; i < number; ++i) {
        CurvePoint& p = points[static_cast<std::size_t>(i)];
        BCDF_copy_single_3d_point(record, i, p.at.data());
        BCDF_CALC_auto_curvature(record, i, p.curvature.data());
    }
    return points;
}

void complete(CurvePoint& p, const BCDF* record, int position) {
    int number = 0;
    int index = 0;
    p.parameter = BCDF_return_param_array(record, &number)[position];
    if (BCDF_slope_at_point(record, position, &index) != 0) {
        p.slope.emplace();
        BCDF_copy_single_3d_slope(record, index, p.slope->vector.data(), &p.slope->type);
    }
    const double* weights = BCDF_return_weight_array(record, &number);
    if (weights != nullptr) p.weight = weights[position];
}

/// Points that are all one have increasing parameters, as validation wants them; distances tell.
std::optional<CoincidentPoints> coincident_points(const BCDF* record, const Points& points,
                                                  int number) {
    int count = 0;
    const double* t = BCDF_return_param_array(record, &count);
    for (int i = 0; i + 1 < count; ++i) {
        const auto line = [&](int k) { return points.lines[static_cast<std::size_t>(k % number)]; };
        if (t[i + 1] <= t[i] || PNTLST_calc_point_distance(record->points, i, i + 1) == 0.0)
            return CoincidentPoints{line(i), line(i + 1)};
    }
    return {};
}

std::string too_few_points(const CurveOptions& options) {
    if (options.periodic) return "too few points: a periodic curve needs 3";
    return "too few points: a fit of order " + std::to_string(options.order) + " needs " +
           std::to_string(options.order);
}

}  // namespace

std::string CurveData::validation(const CurveOptions& options) const {
    const std::string order = std::to_string(options.order);
    const auto most_segments = static_cast<long long>(points.size()) - options.order + 1;
    switch (status) {
        case 1005321:
            return too_few_points(options);
        case 1005311:
            return "too few constraints: order " + order + " needs " + order +
                   " points and slopes, there are " + std::to_string(constraints);
        case 1005317:
            return "too many constraints";
        case 1005320:
            return "the order is too low: slopes need 3, curvatures 4";
        case 1005318:
            return "a curvature at a point without slope";
        case 1005319:
            return "a curvature that is not perpendicular to its slope";
        case 1005006:
            return "the tolerance must be 0 or more";
        case 1005005:
            return "the number of segments is not within 1 and " + std::to_string(most_segments) +
                   ", which the points allow";
        default:
            break;
    }
    if (coincident)
        return "the points on lines " + std::to_string(coincident->first) + " and " +
               std::to_string(coincident->second) + " are one and the same";
    if (status == 1005322) return "the parameters do not increase";
    return status == 0 ? "valid" : "invalid: status " + std::to_string(status);
}

CurveData curve_data(const CurveOptions& options, const Points& points, const Points* slopes) {
    CurveData data{};
    call_library([&] {
        const int number = open_count(options, points);
        const Record record = open_record(points, number);
        if (options.periodic) BCDF_toggle_periodicity(record.get());
        BCDF_change_order(record.get(), options.order);
        data.points = bare_points(record.get(), number);
        add_slopes(record.get(), number, options, slopes);
        if (options.least_squares) make_fit(record.get(), options);
        for (int i = 0; i < number; ++i)
            complete(data.points[static_cast<std::size_t>(i)], record.get(), i);
        data.status = BCDF_check_defining_data(record.get());
        data.coincident = coincident_points(record.get(), points, number);
        data.constraints = BCDF_return_num_of_constraints(record.get());
        data.continuity = BCDF_ask_continuity(record.get());
        data.length = BCDF_calc_df_polygon_length(record.get());
    });
    return data;
}

}  // namespace tool
