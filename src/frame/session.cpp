// The session's settings other than the work coordinate system.
#include "ztmath/session.h"

#include "frame/acom.h"

using namespace ztmath;

namespace {

constexpr Module report = main_module.part(1);

constexpr int display_min_color = 1;
constexpr int display_max_color = 216;
constexpr int dss_no_view = 0;

}  // namespace

int pxsfac_[4];

double ACOM_ask_MEC() {
    return acom_.model_scale;
}

int ACOM_ask_MESW() {
    return gca(gca_model_mode);
}

int ACOM_ask_application() {
    return gca(gca_application);
}

void ACOM_set_application(int application) {
    gca(gca_application) = application;
}

int QUIB_in_batch() {
    constexpr int batch = 2;
    return gca(gca_run_mode) == batch;
}

int inquib_() {
    return gca(gca_in_interpreter) == 1;
}

int cu0007_() {
    return gca(gca_flag_word);
}

void cu0008_(const int* value) {
    gca(gca_flag_word) = *value;
}

int DISPLAY_ask_system_color() {
    const int color = gca(gca_system_color);
    ZTMATH_ASSERT(report, "GCA(6) >= DISPLAY_MIN_COLOR", color >= display_min_color);
    ZTMATH_ASSERT(report, "GCA(6) <= DISPLAY_MAX_COLOR", color <= display_max_color);
    return color;
}

void DISPLAY_set_system_color(int color) {
    ZTMATH_ASSERT(report, "color >= DISPLAY_MIN_COLOR", color >= display_min_color);
    ZTMATH_ASSERT(report, "color <= DISPLAY_MAX_COLOR", color <= display_max_color);
    gca(gca_system_color) = color;
}

int DISPLAY_ask_view_of_last_cursor() {
    return gca(gca_view_of_last_cursor);
}

void DISPLAY_set_view_of_last_cursor(int in_vsn) {
    ZTMATH_ASSERT(report, "in_vsn != DSS_NO_VIEW", in_vsn != dss_no_view);
    gca(gca_view_of_last_cursor) = in_vsn;
}

void PX_ask_default_face_grid_counts(int counts[2]) {
    const int u = gca(gca_face_grid_u);
    const int v = gca(gca_face_grid_v);
    ZTMATH_ASSERT(report, "GCA(17) >= 0", u >= 0);
    ZTMATH_ASSERT(report, "GCA(18) >= 0", v >= 0);
    counts[0] = u;
    counts[1] = v;
}

void PX_set_default_face_grid_counts(const int counts[2]) {
    const int u = counts[0];
    const int v = counts[1];
    ZTMATH_ASSERT(report, "u_and_v_grid_counts[0] >= 0", u >= 0);
    ZTMATH_ASSERT(report, "u_and_v_grid_counts[1] >= 0", v >= 0);
    gca(gca_face_grid_u) = u;
    gca(gca_face_grid_v) = v;
}

void pxsfac_read_pszt_(int first[2], int second[2]) {
    const auto [p0, p1, p2, p3] = pxsfac_;
    first[0] = p2;
    first[1] = p3;
    second[0] = p0;
    second[1] = p1;
}
