// The work coordinate system.
#include "ztmath/wcs.h"

#include "frame/acom.h"
#include "frame/mat3.h"

using namespace ztmath;

namespace {

constexpr Module report = main_module.part(2);

/// The library's number of the reason "the display of the work coordinate system changed".
constexpr int reason_wcs_display_changed = 2;

Mat3 wcs_matrix() {
    return load_mat3(acom_.wcs_matrix);
}

Vec3 wcs_origin() {
    return load3(acom_.wcs_origin);
}

}  // namespace

int WCS_ask_origin(double origin[3]) {
    store(wcs_origin(), origin);
    return 0;
}

int WCS_ask_matrix(double matrix[9]) {
    store(wcs_matrix(), matrix);
    return 0;
}

int WCS_ask_coordinate_system(double csys[12]) {
    const Mat3 matrix = wcs_matrix();
    store(wcs_origin(), csys);
    store(matrix, csys + 3);
    return 0;
}

int WCS_ask_z_axis(double axis[3]) {
    store(wcs_matrix().z, axis);
    return 0;
}

int WCS_ask_work_plane(double plane[6]) {
    const Vec3 z = wcs_matrix().z;
    store(wcs_origin(), plane);
    store(z, plane + 3);
    return 0;
}

void v6051_(double matrix[9], double origin[3]) {
    const Vec3 at = wcs_origin();
    store(wcs_matrix(), matrix);
    store(at, origin);
}

void WCS__set_matrix_values(const double m[9]) {
    store(load_mat3(m), acom_.wcs_matrix);
}

int WCS_ask_view_names_skeleton() {
    return gca(gca_view_names_skeleton);
}

int WCS_ask_skeleton() {
    return gca(gca_wcs_skeleton);
}

int WCS_ask_matrix_tag() {
    return gca(gca_wcs_matrix_tag);
}

int WCS_ask_tag() {
    return gca(gca_wcs_tag);
}

void WCS__set_matrix_tag(int tag) {
    gca(gca_wcs_matrix_tag) = tag;
}

void WCS_set_tag(int tag) {
    gca(gca_wcs_tag) = tag;
}

int WCS_is_linked_to_view() {
    return gca(gca_wcs_unlinked_from_view) == 0;
}

void WCS_set_linked_to_view(int linked) {
    gca(gca_wcs_unlinked_from_view) = linked == 0;
}

int WCS_is_permanent() {
    return gca(gca_wcs_permanent) == 1;
}

int WCS_is_temporary() {
    return gca(gca_wcs_display) == 1;
}

int WCS_ask_wcs_display() {
    return gca(gca_wcs_display);
}

void WCS_set_wcs_display(int status) {
    ZTMATH_ASSERT(report, "display_status == 0 || display_status == 1", status == 0 || status == 1);
    gca(gca_wcs_display) = status;
    CALLBACK_call_list(ZT_REASON_ask_reason_number(reason_wcs_display_changed), &status);
}

void mapvaw_(const double in[3], double out[3]) {
    store(wcs_matrix() * load3(in), out);
}

void mapvwa_(const double in[3], double out[3]) {
    store(transposed_times(wcs_matrix(), load3(in)), out);
}

void mappaw_(const double in[3], double out[3]) {
    store(wcs_matrix() * (load3(in) - wcs_origin()), out);
}

void mappwa_(const double in[3], double out[3]) {
    store(transposed_times(wcs_matrix(), load3(in)) + wcs_origin(), out);
}

void map10_(const double in[3], double out[3]) {
    mapvwa_(in, out);
}

void map11_(const double in[3], double out[3]) {
    mapvaw_(in, out);
}

void map12_(const double in[3], double out[3]) {
    mappwa_(in, out);
}

void map13_(const double in[3], double out[3]) {
    mappaw_(in, out);
}
