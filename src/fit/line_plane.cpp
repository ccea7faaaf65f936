// Least-squares lines and planes.
//
// A fit is computed as a whole before any output is stored, so that outputs may lie anywhere over
// the inputs; what it has to report is reported last.
#include "fit/line_plane.h"

#include <algorithm>
#include <cmath>
#include <type_traits>

#include "fit/distances.h"
#include "fit/moments.h"
#include "frame/work_array.h"
#include "kit/mtx3.h"
#include "kit/vec2.h"
#include "kit/vec3.h"
#include "solve/jacobi.h"
#include "ztmath/lsfit.h"

namespace ztmath {

namespace {

/// Where the search for the smallest eigenvalue starts: no value at or beyond it is used.
constexpr double no_eigenvalue = 1e19;

/// Eigenvalues up to this are 0, in square millimetres.
constexpr double null_eigenvalue = 1e-10;

/// The smallest eigenvalue of a scatter matrix that is not negative, if there is a usable one.
template <int Dimension>
struct SmallestEigenpair {
    bool usable;
    bool converged;
    double value;
    std::array<double, Dimension> vector;
};

template <int Dimension>
SmallestEigenpair<Dimension> smallest_eigenpair(const Moments<Dimension>& m) {
    double matrix[Dimension * Dimension];
    double vectors[Dimension * Dimension];
    double values[Dimension];
    double work[2 * Dimension];
    for (int i = 0, k = 0; i < Dimension; ++i)
        for (int j = i; j < Dimension; ++j, ++k)
            matrix[i * Dimension + j] = matrix[j * Dimension + i] = m.scatter[k];
    const JacobiResult result = jacobi({matrix, vectors, values, work},
                                       std::integral_constant<int, Dimension>{}, fit_sweeps);

    SmallestEigenpair<Dimension> smallest{false, result.converged, no_eigenvalue, {}};
    for (int i = 0; i < Dimension; ++i) {
        const double value = std::fabs(values[i]) <= null_eigenvalue ? 0.0 : values[i];
        if (value >= 0.0 && value < smallest.value) {
            smallest.usable = true;
            smallest.value = value;
            std::copy_n(vectors + i * Dimension, Dimension, smallest.vector.begin());
        }
    }
    return smallest;
}

/// The root-mean-square distance of a fit by an eigenvalue comes from it; of a fallback, from the
/// distances.
template <int Dimension>
FitStatistics statistics(const DistanceSums& sums, const SmallestEigenpair<Dimension>& eigenpair,
                         int n) {
    const double squares = eigenpair.usable ? eigenpair.value : sums.sum_of_squares;
    return {sums.max, std::sqrt(squares / n), sums.sum / n};
}

Vec2 vector_of(const std::array<double, 2>& v) {
    return {v[0], v[1]};
}

Vec3 vector_of(const std::array<double, 3>& v) {
    return {v[0], v[1], v[2]};
}

// ---- Lines in the plane ------------------------------------------------------------------------

/// A line through the centroid and the point farthest from it; nothing if the points coincide.
struct FallbackLine {
    bool found;
    Vec2 point;
    Vec2 direction;
};

FallbackLine line_through_farthest(const double* points, int n, Vec2 centroid) {
    const Farthest farthest =
        farthest_point<2>(points, n, [=](const double* p) { return length(load2(p) - centroid); });
    if (!(farthest.distance >= coincidence_tolerance)) return {false, {}, {}};
    return {true, centroid, unitize(load2(farthest.point) - centroid).unit};
}

}  // namespace

LineFit fit_line(const double* points, int n) {
    const Moments<2> m = moments<2>(points, n);
    const auto eigenpair = smallest_eigenpair(m);
    const Vec2 centroid = vector_of(m.mean);

    LineFit fit;
    fit.converged = eigenpair.converged;
    if (eigenpair.usable) {
        fit.normal = unitize(vector_of(eigenpair.vector)).unit;
        // Kept as it stands: the centroid's x in both coordinates. Callers correct for it, and the
        // statistics are measured from this point.
        fit.point = {centroid.x, centroid.x};
    } else {
        const FallbackLine line = line_through_farthest(points, n, centroid);
        fit.coincident = !line.found;
        if (fit.coincident) return fit;
        fit.normal = {-line.direction.y, line.direction.x};
        fit.point = line.point;
    }
    const auto [a, b] = fit.normal;
    const double e = -(a * fit.point.x + b * fit.point.y);
    const DistanceSums sums = distance_sums<2>(points, n, [a = a, b = b, e](const PointPair<2>& p) {
        return magnitude(a * p[0] + b * p[1] + e);
    });
    fit.statistics = statistics(sums, eigenpair, n);
    return fit;
}

// ---- Planes ------------------------------------------------------------------------------------

namespace {

/// The normal where no eigenvalue can be used: of the plane through the centroid, the point
/// farthest from it and the point farthest from the line through the two.
void set_fallback_normal(const double* points, int n, PlaneFit& fit) {
    const Vec3 centroid = fit.point;
    const Farthest end =
        farthest_point<3>(points, n, [=](const double* p) { return length(load3(p) - centroid); });
    if (!(end.distance >= coincidence_tolerance)) {
        fit.normal = {0.0, 0.0, 1.0};
        return;
    }
    const Vec3 direction = unitize(load3(end.point) - centroid).unit;
    const Farthest side = farthest_point<3>(
        points, n, [=](const double* p) { return length(cross(direction, load3(p) - centroid)); });
    fit.collinear = !(side.distance >= coincidence_tolerance);
    fit.normal = unitize(fit.collinear ? perpendicular(direction)
                                       : cross(direction, load3(side.point) - centroid))
                     .unit;
}

}  // namespace

PlaneFit fit_plane(const double* points, int n) {
    const Moments<3> m = moments<3>(points, n);
    const auto eigenpair = smallest_eigenpair(m);

    PlaneFit fit;
    fit.converged = eigenpair.converged;
    fit.point = vector_of(m.mean);
    if (eigenpair.usable)
        fit.normal = unitize(vector_of(eigenpair.vector)).unit;
    else
        set_fallback_normal(points, n, fit);

    DistanceSums sums =
        distance_sums<3>(points, n, [q = fit.point, normal = fit.normal](const PointPair<3>& p) {
            return magnitude((p[0] - q.x) * normal.x + (p[1] - q.y) * normal.y +
                             (p[2] - q.z) * normal.z);
        });
    const double normal_length = length(fit.normal);
    sums.max /= normal_length;
    sums.sum /= normal_length;
    sums.sum_of_squares /= normal_length * normal_length;
    fit.statistics = statistics(sums, eigenpair, n);
    return fit;
}

// ---- Lines in space ----------------------------------------------------------------------------

Vec3 centroid_of(const double* points, int n) {
    return vector_of(moments<3>(points, n).mean);
}

PlaneFrame plane_frame(Vec3 origin, Vec3 normal) {
    return {origin, frame_from_z(normal).value_or(Mat3{})};
}

void map_into_plane(const double* points, int n, const PlaneFrame& frame, double* in_plane) {
    for (std::ptrdiff_t i = 0; i < n; ++i) {
        const Vec3 p = frame.axes * (load3(points + 3 * i) - frame.origin);
        store(Vec2{p.x, p.y}, in_plane + 2 * i);
    }
}

void store(const PlaneFrame& frame, double* record) {
    store(frame.origin, record);
    store(frame.axes, record + 3);
}

namespace {

struct SpaceLineFit {
    Vec3 normal{};
    int collinear = 0;
    bool coincident = false;
    Vec3 point{};
    Vec3 direction{};
    FitStatistics plane_statistics;
    PlaneFrame frame;
    bool converged = true;
};

/// Carries a line of the plane into space.
void set_line(const Vec2& point, const Vec2& direction, SpaceLineFit& fit) {
    fit.point = fit.frame.in_space(point);
    fit.direction = transposed_times(fit.frame.axes, {direction.x, direction.y, 0.0});
}

/// Fits the line within the plane whose frame and flag are set.
void fit_line_in_plane(const double* points, int n, SpaceLineFit& fit) {
    SmArray<double> in_plane(element_count(n, 2));
    map_into_plane(points, n, fit.frame, in_plane.data());
    if (fit.collinear != 0) {
        const Vec2 centroid = vector_of(moments<2>(in_plane.data(), n).mean);
        const FallbackLine line = line_through_farthest(in_plane.data(), n, centroid);
        fit.coincident = !line.found;
        if (fit.coincident)
            fit.collinear = 1;
        else
            set_line(line.point, line.direction, fit);
        return;
    }
    const LineFit line = fit_line(in_plane.data(), n);
    fit.coincident = line.coincident;
    fit.converged = fit.converged && line.converged;
    if (!fit.coincident) set_line(line.point, {line.normal.y, -line.normal.x}, fit);
}

SpaceLineFit fit_space_line(const double* points, int n, Vec3 given_normal, int given_collinear) {
    constexpr int fit_the_plane = -1;
    SpaceLineFit fit;
    if (length_squared(given_normal) >= null_length_squared && given_collinear != fit_the_plane) {
        fit.normal = given_normal;
        fit.collinear = given_collinear;
        fit.frame = plane_frame(centroid_of(points, n), given_normal);
    } else {
        const PlaneFit plane = fit_plane(points, n);
        fit.normal = plane.normal;
        fit.collinear = plane.collinear;
        fit.plane_statistics = plane.statistics;
        fit.frame = plane_frame(plane.point, plane.normal);
        fit.converged = plane.converged;
    }
    fit_line_in_plane(points, n, fit);
    return fit;
}

}  // namespace

void report_fit(bool has_points, bool converged) {
    if (!has_points) lsfit_module.internal("There are no input points.");
    report_exhaustion({0, converged});
}

}  // namespace ztmath

using namespace ztmath;

void LSFIT_line_to_points_2d(const double* points, int n, double point[2], double normal[2],
                             int* coincident, double stats[3]) {
    const LineFit fit = n > 0 ? fit_line(points, n) : LineFit{};
    store(fit.point, point);
    store(fit.normal, normal);
    *coincident = fit.coincident;
    store(fit.statistics, stats);
    report_fit(n > 0, fit.converged);
}

int LSFIT_plane_to_points(const double* points, int n, double point[3], double normal[3],
                          int* collinear, double stats[3]) {
    const PlaneFit fit = n > 0 ? fit_plane(points, n) : PlaneFit{};
    store(fit.point, point);
    store(fit.normal, normal);
    *collinear = fit.collinear;
    store(fit.statistics, stats);
    report_fit(n > 0, fit.converged);
    return 0;
}

void LSFIT_line_to_points_3d(const double* points, int n, double normal[3], int* collinear,
                             int* coincident, double point[3], double direction[3],
                             double plane_stats[3], double frame[12]) {
    const SpaceLineFit fit =
        n > 0 ? fit_space_line(points, n, load3(normal), *collinear) : SpaceLineFit{};
    store(fit.normal, normal);
    *collinear = fit.collinear;
    *coincident = fit.coincident;
    store(fit.point, point);
    store(fit.direction, direction);
    store(fit.plane_statistics, plane_stats);
    store(fit.frame, frame);
    report_fit(n > 0, fit.converged);
}
