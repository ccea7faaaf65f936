// The fix-up of a frame that has been read from elsewhere.
#include "kit/mtx3_privileged.h"

#include <cmath>

#include "kit/mtx3.h"
#include "kit/vec3.h"

namespace ztmath {

namespace {

constexpr Module report{"mtx3_privileged"};

double snapped(double element) {
    const double magnitude = std::fabs(element);
    if (magnitude <= element_tolerance) return 0.0;
    if (std::fabs(magnitude - 1.0) <= element_tolerance) return element > 0.0 ? 1.0 : -1.0;
    return element;
}

Vec3 snapped(Vec3 row) {
    return {snapped(row.x), snapped(row.y), snapped(row.z)};
}

void report_if_moved(int index, double before, double after) {
    if (!(std::fabs(after - before) > element_tolerance)) return;
    ERROR_lprintf("MTX3_fixup: Element %d of matrix modified from %25.15f to %25.15f\n", index,
                  before, after);
    report.note("Element %d of matrix modified from %25.15f to %25.15f", index, before, after);
}

void report_moved_elements(int first_index, Vec3 before, Vec3 after) {
    report_if_moved(first_index, before.x, after.x);
    report_if_moved(first_index + 1, before.y, after.y);
    report_if_moved(first_index + 2, before.z, after.z);
}

}  // namespace

bool fixup(Mat3& m) {
    const Mat3 before = m;
    m.x = snapped(m.x);
    m.y = snapped(m.y);

    const auto x = unitize(m.x);
    m.x = x.unit;
    if (!x.done) {
        if (checking()) report.note("X vector of matrix is zero");
        return false;
    }
    const auto y = unitize(m.y);
    m.y = y.unit;
    if (!y.done) {
        if (checking()) report.note("Y vector of matrix is zero");
        return false;
    }
    m.z = unitize(cross(m.x, m.y)).unit;
    m.y = cross(m.z, m.x);

    report_moved_elements(0, before.x, m.x);
    report_moved_elements(3, before.y, m.y);
    return true;
}

}  // namespace ztmath
