#include "curve_data.h"

#include <syss/syss.h>
#include <ztmath/bcdf_calc.h>
#include <ztmath/bcdf_gen.h>

#include <algorithm>
#include <memory>

#include "library_call.h"
#include "own_scale.h"

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

Record open_record(const OwnScale& scale, std::size_t dimension, int number) {
    const std::size_t n = static_cast<std::size_t>(number);
    Block block(static_cast<double*>(SM_alloc(3 * n * sizeof(double))));
    std::fill_n(block.get(), 3 * n, 0.0);
    for (std::size_t i = 0; i < n; ++i)
        std::copy_n(&scale.coordinates[dimension * i], dimension, block.get() + 3 * i);
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

void make_fit(BCDF* record, const CurveOptions& options, const OwnScale& scale) {
    BCDF_convert_to_least_squares(record);
    if (options.segments != 0)
        BCDF_change_number_of_segments(record, options.segments);
    else
        BCDF_change_tolerance(record, scale.to_scale(options.tolerance));
}

CurvePoint point_of(const BCDF* record, int position, const OwnScale& scale) {
    CurvePoint p{};
    int number = 0;
    int index = 0;
    p.parameter = scale.from_scale(BCDF_return_param_array(record, &number)[position]);
    if (BCDF_slope_at_point(record, position, &index) != 0) {
        p.slope.emplace();
        BCDF_copy_single_3d_slope(record, index, p.slope->vector.data(), &p.slope->type);
    }
    const double* weights = BCDF_return_weight_array(record, &number);
    if (weights != nullptr) p.weight = scale.from_scale(weights[position]);
    return p;
}

/// Without slopes in the record, so that they play no part.
std::vector<Vec3> curvatures_of(const BCDF* record, int number, const OwnScale& scale) {
    std::vector<Vec3> curvatures(static_cast<std::size_t>(number));
    for (int i = 0; i < number; ++i) {
        Vec3& curvature = curvatures[static_cast<std::size_t>(i)];
        BCDF_CALC_auto_curvature(record, i, curvature.data());
        for (double& x : curvature)
            x = scale.to_scale(x);
    }
    return curvatures;
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
    if (options.periodic)
        return "too few points: a periodic curve needs 2 besides the one that closes it";
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
    const int number = open_count(options, points);
    const OwnScale scale(points.coordinates, static_cast<std::size_t>(points.dimension));
    call_library([&] {
        const Record record =
            open_record(scale, static_cast<std::size_t>(points.dimension), number);
        if (options.periodic) BCDF_toggle_periodicity(record.get());
        BCDF_change_order(record.get(), options.order);
        const std::vector<Vec3> curvatures = curvatures_of(record.get(), number, scale);
        add_slopes(record.get(), number, options, slopes);
        if (options.least_squares) make_fit(record.get(), options, scale);
        for (int i = 0; i < number; ++i) {
            data.points.push_back(point_of(record.get(), i, scale));
            data.points.back().at = space_point(points, i);
            data.points.back().curvature = curvatures[static_cast<std::size_t>(i)];
        }
        data.status = BCDF_check_defining_data(record.get());
        data.coincident = coincident_points(record.get(), points, number);
        data.constraints = BCDF_return_num_of_constraints(record.get());
        data.continuity = BCDF_ask_continuity(record.get());
        data.length = scale.from_scale(BCDF_calc_df_polygon_length(record.get()));
    });
    return data;
}

}  // namespace tool
