// Rotations, reflections, translations, and maps from vectors to vectors.
#include <optional>

#include "arc_spline/plane_vectors.h"
#include "kit/mtx4.h"
#include "kit/vec3.h"
#include "ztmath/arc_spline_planes.h"
#include "ztmath/solve.h"

using namespace ztmath;

namespace {

Mat3 negated(const Mat3& m) {
    return {-m.x, -m.y, -m.z};
}

/// The unit vector half way between unit vectors, unless they are opposite.
///
/// The sum of nearly opposite vectors holds the rounding of their lengths in good part; what of it
/// lies along their difference is taken off.
Unitized<Vec3> half_way(Vec3 a, Vec3 b) {
    const auto middle = unitize(a + b);
    if (!middle.done || dot(a, b) >= 0.0) return middle;
    return unitize(in_plane(middle.unit, unitize(a - b).unit));
}

/// Two reflections: the first turns `from` about, the second takes that to `to`.
Mat3 smallest_rotation(Vec3 from, Vec3 to) {
    const auto middle = half_way(from, to);
    if (middle.done) return reflection_along(middle.unit) * reflection_along(from);
    return negated(reflection_along(unitize(perpendicular(from)).unit));
}

std::optional<Mat3> householder_rotation(Vec3 from, Vec3 to) {
    const auto f = unitize(from);
    const auto t = unitize(to);
    if (!f.done || !t.done) return std::nullopt;
    return smallest_rotation(f.unit, t.unit);
}

/// The frame of a direction and a half plane that it bounds.
std::optional<Mat3> frame_of(Vec3 first, Vec3 second) {
    const auto x = unitize(first);
    const auto other = unitize(second);
    if (!x.done || !other.done) return std::nullopt;
    const auto rough = unitize(other.unit - x.unit * dot(x.unit, other.unit));
    if (!rough.done) return std::nullopt;
    // Once more: what is left of nearly parallel vectors is rounding in good part.
    const Vec3 y = unitize(rough.unit - x.unit * dot(x.unit, rough.unit)).unit;
    return Mat3{x.unit, y, cross(x.unit, y)};
}

std::optional<Mat3> rotation_of_pairs(Vec3 a1, Vec3 a2, Vec3 b1, Vec3 b2) {
    const auto from = frame_of(a1, a2);
    const auto to = frame_of(b1, b2);
    if (!from || !to) return std::nullopt;
    return transposed(*to) * *from;
}

/// Row by row: each row's products with the a's are that component of the b's.
std::optional<Mat3> map_of_triples(const Mat3& a, const Mat3& b) {
    double system[9];
    double rows[9];
    store(a, system);
    store(transposed(b), rows);
    for (double* row = rows; row != rows + 9; row += 3)
        if (SOLVE_solve_3equations(system, row, row) != 0) return std::nullopt;
    return load_mat3(rows);
}

void store_or_identity(const std::optional<Mat3>& m, double* out, int* status) {
    store(m.value_or(identity3), out);
    *status = m ? 0 : 1;
}

}  // namespace

void ARC_SPLINE_ask_householder_rotation(const double from[3], const double to[3], double r[9],
                                         int* status) {
    store_or_identity(householder_rotation(load3(from), load3(to)), r, status);
}

void ARC_SPLINE_ask_householder_transformation(const double pt[3], const double normal[3],
                                               double m[16], int* status) {
    const auto n = unitize(load3(normal));
    store(n.done ? about(load3(pt), reflection_along(n.unit)) : identity4, m);
    *status = n.done ? 0 : 1;
}

void ARC_SPLINE_ask_translation_matrix(const double v[3], double m[16]) {
    store(translation_by(load3(v)), m);
}

void ARC_SPLINE_combine_translation_matrix(const double v[3], const double m[16], double out[16]) {
    store(translation_by(load3(v)) * load_mat4(m), out);
}

void ARC_SPLINE_combine_rotation_translation(const double r[9], const double v[3], double m[16]) {
    store(transform(load_mat3(r), load3(v)), m);
}

void ARC_SPLINE_cre_mtx3_from_2_vecs_to_2_vecs(const double a1[3], const double a2[3],
                                               const double b1[3], const double b2[3], double r[9],
                                               int* status) {
    store_or_identity(rotation_of_pairs(load3(a1), load3(a2), load3(b1), load3(b2)), r, status);
}

void ARC_SPLINE_cre_mtx3_from_3_vecs_to_3_vecs(const double a1[3], const double a2[3],
                                               const double a3[3], const double b1[3],
                                               const double b2[3], const double b3[3], double r[9],
                                               int* status) {
    store_or_identity(
        map_of_triples({load3(a1), load3(a2), load3(a3)}, {load3(b1), load3(b2), load3(b3)}), r,
        status);
}
