// Least-squares circles, in the plane and in space.
#include "arc_spline/point_circles.h"
#include "fit/line_plane.h"
#include "fit/round.h"
#include "frame/work_array.h"
#include "kit/unitize.h"
#include "ztmath/lsfit.h"

namespace ztmath {

namespace {

struct CircleFit : RoundFit<2> {
    bool line_converged = true;

    Vec2 centre() const { return {round.centre[0], round.centre[1]}; }
};

/// The circle through the first point, the one in the middle and the last, unless the points lie
/// nearly on a line.
void fit_three_points(const double* points, int n, CircleFit& fit) {
    constexpr double least_rms = 0.005;
    constexpr double tolerances[] = {1.0e-10, 0.001};
    const LineFit line = fit_line(points, n);
    fit.line_converged = line.converged;
    fit.failed = line.coincident || line.statistics.rms < least_rms;
    if (fit.failed != 0) return;
    const auto point = [=](std::ptrdiff_t i) { return load2(points + 2 * i); };
    const Constructed made = circle_through(point(0), point(n / 2), point(n - 1), tolerances);
    fit.failed = made.status;
    if (made.status != 0) return;
    const Circle circle = circle_of(made.segment);
    fit.round = {{circle.center.x, circle.center.y}, circle.radius};
}

CircleFit fit_circle(const double* points, int n) {
    CircleFit fit{fit_round<2>(points, n)};
    if (fit.needs_fallback) fit_three_points(points, n, fit);
    return fit;
}

struct SpaceCircleFit {
    Vec3 normal{};
    PlaneFrame frame;
    Vec3 plane_point{};
    bool plane_converged = true;
    Vec3 centre{};
    CircleFit circle;
};

SpaceCircleFit fit_space_circle(const double* points, int n, Vec3 given_normal) {
    SpaceCircleFit fit;
    if (length_squared(given_normal) <= null_length_squared) {
        const PlaneFit plane = fit_plane(points, n);
        fit.plane_point = plane.point;
        fit.normal = plane.normal;
        fit.plane_converged = plane.converged;
        fit.circle.statistics = plane.statistics;
        fit.circle.failed = plane.collinear ? 1 : 0;
        if (plane.collinear) return fit;
    } else {
        fit.plane_point = centroid_of(points, n);
        fit.normal = given_normal;
    }
    fit.frame = plane_frame(fit.plane_point, fit.normal);
    WorkArray<double, 512> in_plane(element_count(n, 2));
    map_into_plane(points, n, fit.frame, in_plane.data());
    fit.circle = fit_circle(in_plane.data(), n);
    if (fit.circle.failed == 0) fit.centre = fit.frame.in_space(fit.circle.centre());
    return fit;
}

/// Reports what a stored fit has to report.
void report_circle(int n, bool plane_converged, const CircleFit& fit) {
    report_fit(n > 0, plane_converged);
    report(fit.pencil);
    report_fit(true, fit.line_converged);
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

void LSFIT_circle_to_points_2d(const double* points, int n, double centre[2], double* radius,
                               int* failed, double stats[3]) {
    const CircleFit fit = n > 0 ? fit_circle(points, n) : CircleFit{};
    store(fit.centre(), centre);
    *radius = fit.round.radius;
    *failed = fit.failed;
    store(fit.statistics, stats);
    report_circle(n, true, fit);
}

void LSFIT_circle_to_points_3d(const double* points, int n, double plane_point[3], double normal[3],
                               double centre[3], double* radius, int* failed, double stats[3],
                               double frame[12]) {
    const SpaceCircleFit fit =
        n > 0 ? fit_space_circle(points, n, load3(normal)) : SpaceCircleFit{};
    store(fit.plane_point, plane_point);
    store(fit.normal, normal);
    store(fit.centre, centre);
    *radius = fit.circle.round.radius;
    *failed = fit.circle.failed;
    store(fit.circle.statistics, stats);
    store(fit.frame, frame);
    report_circle(n, fit.plane_converged, fit.circle);
}
