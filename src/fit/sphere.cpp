// Least-squares spheres.
#include <optional>

#include "fit/line_plane.h"
#include "fit/round.h"
#include "kit/vec3.h"
#include "ztmath/lsfit.h"

namespace ztmath {

namespace {

constexpr Module report_part = lsfit_module.part(1);

/// Where the selection of four points ended.
enum class Selection {
    complete,
    not_spread,  ///< the points lie in a plane, or closer together than the tolerance
    no_point_off_plane,
    no_point_off_line,
    no_least_point,
    no_point_off_three
};

struct FourPoints {
    Selection end;
    Vec3 p[4];
};

/// The point at which a measure is largest, the first of equals; a NaN is never the largest.
struct Extreme {
    bool found = false;
    double measure = 0.0;
    Vec3 point{};
};

template <class Measure>
Extreme most(const double* points, std::ptrdiff_t n, Measure measure) {
    Extreme extreme;
    for (std::ptrdiff_t i = 0; i < n; ++i) {
        const Vec3 p = load3(points + 3 * i);
        const double m = measure(p);
        if (extreme.found ? m > extreme.measure : m == m) extreme = {true, m, p};
    }
    return extreme;
}

bool is_spread(double distance) {
    return distance >= coincidence_tolerance;
}

/// Four points of which none lies close to where the ones before it are: the farthest from the
/// plane fitted to all; the farthest from the normal through that one; within the plane, the
/// farthest from both on the centroid's side; the farthest from the plane of the three.
FourPoints select_four(const double* points, int n, const PlaneFit& plane) {
    FourPoints four{Selection::not_spread, {}};
    Vec3& p1 = four.p[0];
    Vec3& p2 = four.p[1];
    Vec3& p3 = four.p[2];
    Vec3& p4 = four.p[3];
    const auto ended = [&four](Selection end) {
        four.end = end;
        return four;
    };
    const auto off_plane = [](Vec3 origin, Vec3 normal) {
        return [=](Vec3 p) { return std::fabs(dot(p - origin, normal)); };
    };

    const Extreme first = most(points, n, off_plane(plane.point, plane.normal));
    if (!first.found) return ended(Selection::no_point_off_plane);
    if (plane.collinear || !is_spread(first.measure)) return four;
    p1 = first.point;

    const Extreme second =
        most(points, n, [&](Vec3 p) { return length(cross(plane.normal, p - p1)); });
    if (!second.found) return ended(Selection::no_point_off_line);
    if (!is_spread(second.measure)) return four;
    p2 = second.point;

    // Of the two directions square to both, that from which the first point lies ahead.
    Vec3 direction = unitize(cross(plane.normal, p2 - p1)).unit;
    if (dot(p1 - plane.point, direction) < 0.0) direction = -direction;
    const Extreme third = most(points, n, [&](Vec3 p) { return -dot(p - plane.point, direction); });
    if (!third.found) return ended(Selection::no_least_point);
    p3 = third.point;

    const auto normal = unitize(cross(p2 - p1, p3 - p1));
    if (!normal.done) return four;
    const Extreme fourth = most(points, n, off_plane(p1, normal.unit));
    if (!fourth.found) return ended(Selection::no_point_off_three);
    if (!is_spread(fourth.measure)) return four;
    p4 = fourth.point;
    return ended(Selection::complete);
}

/// The sphere through four points that do not lie in a plane.
std::optional<Round<3>> sphere_through(const Vec3 (&p)[4]) {
    const Vec3 a = p[1] - p[0];
    const Vec3 b = p[2] - p[0];
    const Vec3 c = p[3] - p[0];
    const Vec3 sum = cross(b, c) * length_squared(a) + cross(c, a) * length_squared(b) +
                     cross(a, b) * length_squared(c);
    const Vec3 offset = sum * (0.5 / dot(a, cross(b, c)));
    const double radius = length(offset);
    if (!is_finite(radius)) return std::nullopt;
    const Vec3 centre = p[0] + offset;
    return Round<3>{{centre.x, centre.y, centre.z}, radius};
}

struct SphereFit : RoundFit<3> {
    bool plane_converged = true;
    Selection selection = Selection::complete;
};

void fit_four_points(const double* points, int n, SphereFit& fit) {
    const PlaneFit plane = fit_plane(points, n);
    fit.plane_converged = plane.converged;
    const FourPoints four = select_four(points, n, plane);
    fit.selection = four.end;
    if (four.end == Selection::complete)
        if (const auto sphere = sphere_through(four.p)) {
            fit.round = *sphere;
            return;
        }
    fit.failed = 1;
}

SphereFit fit_sphere(const double* points, int n) {
    SphereFit fit{fit_round<3>(points, n)};
    if (fit.needs_fallback) fit_four_points(points, n, fit);
    return fit;
}

void report_selection(Selection selection) {
    switch (selection) {
        case Selection::no_point_off_plane:
            report_part.internal(
                "There was no point found at max distance from the plane (pl_pt,pl_n).");
            break;
        // GCOVR_EXCL_START never reached: the points found before have measures themselves
        case Selection::no_point_off_line:
            report_part.internal(
                "There was no point found at max distance from the line (p1,pl_n).");
            break;
        case Selection::no_least_point:
            report_part.internal(
                "There was no point found at min parameter on the line (pl_pt,u0).");
            break;
        case Selection::no_point_off_three:
            report_part.internal(
                "There was no point found at max distance from the plane (p1,p2,p3).");
            break;
        // GCOVR_EXCL_STOP
        default:
            break;
    }
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

void LSFIT_sphere_to_points_3d(const double* points, int n, double centre[3], double* radius,
                               int* failed, double stats[3]) {
    const SphereFit fit = n > 0 ? fit_sphere(points, n) : SphereFit{};
    std::copy_n(fit.round.centre.data(), 3, centre);
    *radius = fit.round.radius;
    *failed = fit.failed;
    store(fit.statistics, stats);
    report_fit(n > 0, true);
    report(fit.pencil);
    report_fit(true, fit.plane_converged);
    report_selection(fit.selection);
}
