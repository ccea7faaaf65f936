// Editing the points of curve defining data, and what goes with each of them.
#include "curve/editing.h"
#include "ztmath/bcdf_gen.h"

namespace ztmath {

namespace {

constexpr Module report = bcdf_gen_module.part(13);

/// A point as a list of the other width stores it.
struct StoredPoint {
    double coordinates[4];
};

/// A Cartesian point gets the weight of the one it replaces, a homogeneous one loses its own.
StoredPoint fitted(const double* point, int dimension, const PNTLST& list, int position) {
    if (dimension == 3) {
        const bool exists = position >= 0 && position < list.num_points;
        const double w = exists ? point_at(list, position)[3] : 1.0;
        return {{w * point[0], w * point[1], w * point[2], w}};
    }
    const Vec3 p = cartesian(point);
    return {{p.x, p.y, p.z, 0.0}};
}

void replace_point(BCDF& record, const double* point, int position) {
    PNTLST& points = *record.points;
    const int last = points.num_points - 1;
    PNTLST_replace_points(&points, 1, position, point);
    if (!is_periodic(record) || last < 1) return;
    if (position == 0) PNTLST_replace_points(&points, 1, last, point);
    if (position == last) PNTLST_replace_points(&points, 1, 0, point);
}

/// Makes the ends of a periodic record meet after points were removed at an end.
void close_at_start(PNTLST& points) {
    const int last = points.num_points - 1;
    if (last < 1) return;
    std::copy_n(point_at(points, 0), std::min(points.dimension, 3), point_at(points, last));
    // Kept as it stands: the weight goes to the point before the last one. Records in use have been
    // edited this way.
    if (points.dimension == 4) point_at(points, last - 1)[3] = point_at(points, 0)[3];
}

void remove_slopes_at(BCDF& record, Run points) {
    remove_each(
        points.first, points.first + points.number,
        [&](int i) { return slope_at_point(record, i); },
        [&](Run slopes) { remove_slope_run(record, slopes); });
}

void remove_points(BCDF& record, Run run) {
    remove_slopes_at(record, run);
    for (PNTLST* list : {record.points, record.parameters, record.weights})
        if (list != nullptr) PNTLST_remove_points(list, run.first, run.number);
}

/// Gives a list of scalars this many.
PNTLST* resized(PNTLST* list, int number) {
    if (list == nullptr) list = PNTLST_allocate_struct(1, std::max(number, 1));
    if (list->points_allocated < number) PNTLST_allocate_points(list, number);
    return list;
}

/// Slope or curvature parameters follow their points, those that are still there, to new
/// parameters.
void follow(std::span<double> sites, const int* positions, std::span<const double> t) {
    for (std::size_t k = 0; k < sites.size(); ++k)
        if (positions[k] > 0 && positions[k] <= std::ssize(t))
            sites[k] = t[static_cast<std::size_t>(positions[k]) - 1];
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

void BCDF_replace_defining_point(BCDF* record, const double* point, int position, int dimension) {
    if (record->points == nullptr) return;
    const int own = record->points->dimension;
    const bool fits = !(dimension == 3 && own == 4) && !(dimension == 4 && own == 3);
    if (fits) return replace_point(*record, point, position);
    const StoredPoint stored = fitted(point, dimension, *record->points, position);
    replace_point(*record, stored.coordinates, position);
}

void BCDF_remove_defining_points(BCDF* record, int position, int number) {
    const int n = count(record->points);
    const Run run = clipped(position, number, n);
    if (position < 0 || number < 0) return;
    if (checking() && number > n - position) {
        report.raise(reason_removal, "Error While Removing Points");
        return;
    }
    remove_points(*record, run);
    // Kept as it stands: an end is touched by removing the first point or the last but one;
    // removing the last one leaves the other parameters alone.
    const bool touches_end = run.first == 0 || run.first + run.number == n - 1;
    if (touches_end) {
        BCDF_add_params(record, nullptr);
        BCDF_add_needed_slopes(record);
    }
    if (!is_periodic(*record)) return;
    const int left = count(record->points);
    if (touches_end)
        close_at_start(*record->points);
    else if (run.first == n - 1 && left > 0)
        std::copy_n(point_at(*record->points, left - 1), record->points->dimension,
                    point_at(*record->points, 0));
}

void BCDF_add_params(BCDF* record, const double* params) {
    const int n = count(record->points);
    const auto old = parameters(*record);
    const auto slopes = slope_sites(*record);
    const auto curvatures = curvature_sites(*record);
    const bool had = !old.empty();
    const double old_last = had ? old.back() : 0.0;
    WorkArray<int, 64> slope_positions(std::ssize(slopes));
    WorkArray<int, 64> curvature_positions(std::ssize(curvatures));
    write_positions(old, slopes, slope_positions.data());
    write_positions(old, curvatures, curvature_positions.data());

    record->parameters = resized(record->parameters, n);
    record->parameters->num_points = n;
    const auto t = parameters(*record);
    if (t.empty()) return;
    if (params != nullptr)
        std::copy_n(params, n, t.data());
    else
        write_parameters(n, record->points->dimension, record->points->points, 1.0, t.data());
    if (!had) return;
    if (!slopes.empty()) BCDF_scale_slopes(record, old_last / t.back());
    follow(slopes, slope_positions.data(), t);
    follow(curvatures, curvature_positions.data(), t);
}

void BCDF_add_weights(BCDF* record) {
    if (checking() && is_periodic(*record)) {
        report.raise(reason_periodic_fit, "Periodic Least Squares Splines Are Not Allowed");
        return;
    }
    const auto t = parameters(*record);
    record->weights = resized(record->weights, static_cast<int>(t.size()));
    record->weights->num_points = static_cast<int>(t.size());
    write_weights(t, record->weights->points);
}

void BCDF_replace_weight(BCDF* record, int position, double weight) {
    if (record->weights != nullptr) PNTLST_replace_points(record->weights, 1, position, &weight);
}

void BCDF_toggle_periodicity(BCDF* record) {
    const int last = count(record->points) - 1;
    if (last < 0) return;
    const bool opens = is_periodic(*record);
    if (opens) {
        // Its parameter stays until all are computed anew: slopes are scaled from the whole period.
        remove_slopes_at(*record, {last, 1});
        for (PNTLST* list : {record->points, record->weights})
            if (count(list) > last) PNTLST_remove_points(list, last, 1);
    } else {
        if (checking() && record->weights != nullptr)
            report.internal("Periodic Least Squares Curves Are Not Allowed");
        PNTLST_concat_one_point(record->points, record->points->points);
    }
    BCDF_add_params(record, nullptr);
    record->periodicity = opens ? 0 : 1;
}
