// Predicates on planes.
#include "ztmath/pln3.h"

#include <cmath>

#include "kit/vec3.h"

using namespace ztmath;

namespace {

struct Plane {
    Vec3 point, normal;
};

Plane load_plane(const double* p) {
    return {load3(p), load3(p + 3)};
}

double signed_distance(const Plane& plane, Vec3 q) {
    return dot(plane.normal, q - plane.point) / length(plane.normal);
}

bool is_on(const Plane& plane, Vec3 q, double tolerance) {
    return std::fabs(signed_distance(plane, q)) <= tolerance;
}

}  // namespace

int PLN3_is_point_on_plane(const double plane[6], const double point[3], double tolerance) {
    return is_on(load_plane(plane), load3(point), tolerance);
}

int PLN3_is_coincident(const double plane1[6], const double plane2[6], double distance_tolerance,
                       double parallel_tolerance) {
    const Plane first = load_plane(plane1);
    const Plane second = load_plane(plane2);
    return is_parallel(first.normal, second.normal, parallel_tolerance) &&
           is_on(first, second.point, distance_tolerance);
}

int PLN3_is_equal(const double plane1[6], const double plane2[6], double distance_tolerance,
                  double normal_tolerance) {
    const Plane first = load_plane(plane1);
    const Plane second = load_plane(plane2);
    // Kept as it stands: normals are compared as vectors, so planes that coincide differ when one
    // is turned over or its normal scaled.
    return length_squared(first.normal - second.normal) <= normal_tolerance * normal_tolerance &&
           is_on(first, second.point, distance_tolerance);
}

int PLN3_is_segment_intersecting(const double plane[6], const double end1[3], const double end2[3],
                                 double tolerance) {
    const Plane p = load_plane(plane);
    const double product = signed_distance(p, load3(end1)) * signed_distance(p, load3(end2));
    // Kept as it stands: the tolerance bounds the product of the two distances, not either of them;
    // callers choose it as such.
    return std::fabs(product) <= tolerance || product < 0.0;
}
