// Points and vectors projected onto a plane.
#include "arc_spline/angle.h"
#include "arc_spline/plane_vectors.h"
#include "kit/vec3.h"
#include "ztmath/arc_spline_planes.h"

using namespace ztmath;

namespace {

Vec3 foot(Vec3 n, Vec3 q, Vec3 p) {
    return p - n * dot(p - q, n);
}

}  // namespace

void ARC_SPLINE_proj_pt_to_pln(const double n[3], const double q[3], const double p[3],
                               double out[3]) {
    store(foot(load3(n), load3(q), load3(p)), out);
}

void ARC_SPLINE_adjust_pt_on_pln(const double n[3], const double q[3], double p[3]) {
    store(foot(load3(n), load3(q), load3(p)), p);
}

void ARC_SPLINE_proj_vec_to_pln(const double n[3], const double v[3], double out[3]) {
    store(in_plane(load3(v), load3(n)), out);
}

int ARC_SPLINE_adjust_vec_on_pln(unsigned char unitize_too, const double n[3], double v[3]) {
    const Vec3 projected = in_plane(load3(v), load3(n));
    if (unitize_too == 0) {
        store(projected, v);
        return 0;
    }
    const auto result = unitize(projected);
    store(result.unit, v);
    return result.done;
}

void ARC_SPLINE_proj_pt_along_vec_on_plane(const double p[3], const double q[3], const double n[3],
                                           const double v[3], const double* tols, double out[3],
                                           double* parm, int* status) {
    const Vec3 point = load3(p);
    const Vec3 along = load3(v);
    const Vec3 normal = load3(n);
    const double above = dot(point - load3(q), normal);
    const double rate = dot(along, normal);
    // The sine of the angular tolerance.
    if (std::fabs(rate) <= std::cos((90.0 - tols[1]) * radians_per_degree)) {
        const bool is_on_plane = std::fabs(above) <= tols[0];
        if (is_on_plane) {
            store(point, out);
            *parm = 0.0;
        }
        *status = is_on_plane ? -1 : 1;
        return;
    }
    const double t = -above / rate;
    store(point + along * t, out);
    *parm = t;
    *status = 0;
}
