// Editing the curvatures of curve defining data.
#include "curve/editing.h"
#include "curve/slope_length.h"
#include "kit/vec3.h"
#include "ztmath/bcdf_gen.h"

namespace ztmath {

namespace {

constexpr Module report = bcdf_gen_module.part(12);

/// Across the slope at a point, for want of a curvature.
Vec3 direction_across_slope(const BCDF& record, int position) {
    const Found at = slope_at_point(record, position);
    if (at.found) return perpendicular(unit_slope(vector_at(*record.slopes, at.index)));
    if (checking()) report.internal("Point With Assigned Curvature Has No Slope");
    return {};
}

Vec3 curvature_with_radius(const BCDF& record, int position, double radius) {
    Vec3 direction = automatic_curvature(record, position);
    if (length(direction) < no_direction) direction = direction_across_slope(record, position);
    const double size = length(direction);
    return size > 0.0 ? direction * (1.0 / radius / size) : Vec3{};
}

}  // namespace

void replace_curvature(BCDF& record, Vec3 curvature, int position, int type) {
    if (!is_site(record, position)) return;
    const Found at = curvature_at_point(record, position);
    if (at.found)
        overwrite(curvatures_of(record), at.index, curvature, type);
    else
        insert(curvatures_of(record), record.points->dimension, at.index, curvature,
               parameters(record)[static_cast<std::size_t>(position)], type);
}

}  // namespace ztmath

using namespace ztmath;

void BCDF_change_curvature(BCDF* record, int type, const double vector[3], int position,
                           double radius) {
    if (type == curvature_fixed) replace_curvature(*record, load3(vector), position, type);
    if (type == curvature_of_radius)
        replace_curvature(*record, curvature_with_radius(*record, position, radius), position,
                          type);
}

void BCDF_replace_curvature(BCDF* record, const double vector[3], int position, int type) {
    replace_curvature(*record, load3(vector), position, type);
}

void BCDF_remove_curvatures(BCDF* record, int first, int number) {
    const int all = count(curvatures_of(*record));
    const Run run = clipped(number == all ? 0 : first, number, all);
    if (number >= 1 && run.number >= 1)
        remove(curvatures_of(*record), run.first, run.number, number);
}

void BCDF_update_curvatures(BCDF* record) {
    const int number = count(curvatures_of(*record));
    for (int k = 0; k < number; ++k) {
        if (curvature_type(*record, k) != curvature_of_radius) continue;
        const double radius = 1.0 / length(vector_at(*record->curvatures, k));
        const int position = BCDF_point_at_curvature(record, k);
        if (is_site(*record, position))
            BCDF_change_curvature(record, curvature_of_radius, nullptr, position, radius);
    }
}
