// Making a drifted rotation matrix orthonormal again.
#include <cmath>

#include "kit/mtx3.h"
#include "kit/roll_pitch_yaw.h"
#include "ztmath/mtx3.h"

namespace ztmath {

namespace {

/// Repairs that help take one to three passes; a matrix that none helps stays as the last one left
/// it.
constexpr int max_passes = 32;

/// Snaps the elements of a row to 0 and +-1; at the first one that snaps to +-1 the rest of the row
/// becomes 0.
void snap(Vec3& row) {
    double* const elements[] = {&row.x, &row.y, &row.z};
    for (double* element : elements) {
        const double magnitude = std::fabs(*element);
        if (magnitude == 0.0 || magnitude == 1.0) continue;
        if (magnitude <= element_tolerance) {
            *element = 0.0;
        } else if (std::fabs(magnitude - 1.0) <= element_tolerance) {
            const double snapped = *element > 0.0 ? 1.0 : -1.0;
            row = {0.0, 0.0, 0.0};
            *element = snapped;
            return;
        }
    }
}

void snap(Mat3& m) {
    snap(m.x);
    snap(m.y);
    snap(m.z);
}

bool has_perpendicular_x_z(const Mat3& m) {
    constexpr double too_short_squared = 1.0e-28;
    return length_squared(m.x) > too_short_squared && length_squared(m.z) > too_short_squared &&
           std::fabs(dot(m.x, m.z)) <= ortho_normal_tolerance;
}

void repair_once(Mat3& m, bool first_pass) {
    if (has_perpendicular_x_z(m)) {
        m = frame_from_y_z(cross(m.z, m.x), m.z).value_or(m);
        return;
    }
    if (first_pass) snap(m);
    m = rotation_matrix(cleaned_roll_pitch_yaw(m));
    if (first_pass) snap(m);
}

}  // namespace

bool ortho_normalize(Mat3& m) {
    int passes = 0;
    while (passes < max_passes && !is_ortho_normal(m)) {
        repair_once(m, passes == 0);
        ++passes;
    }
    return passes > 0;
}

}  // namespace ztmath

int MTX3_ortho_normalize(double m[9]) {
    ztmath::Mat3 matrix = ztmath::load_mat3(m);
    if (!ztmath::ortho_normalize(matrix)) return 0;
    ztmath::store(matrix, m);
    return 1;
}
