// Session state: rows set the words they depend on. MCS_register_display_fn has none, as it takes
// and gives a function, and mdump_banded, which prints, has one in the sweep of counts only.
#include "interface/row.h"

namespace ztmath_test {

namespace {

/// With the WCS matrix, its origin, what is mapped.
template <auto map>
void mapped(const double* matrix, const double* origin, const double* p, double* image) {
    std::copy_n(matrix, 9, acom_.wcs_matrix);
    std::copy_n(origin, 3, acom_.wcs_origin);
    map(p, image);
}

template <auto... maps>
std::vector<Call> mappings() {
    return {row<mapped<maps>>({9, 3, 3}, {3})...};
}

double tolerances(double model_scale, int flag, const double* value, double* out) {
    acom_.model_scale = model_scale;
    acom_.gca[30] = flag;
    sys21_();
    const int wide = ZTMATH_WIDE_SQUARED_TOLERANCE;
    sys22_(value, &wide, out);
    return EQ_ask_number_tolerance() + EQ_ask_length_tolerance() +
           EQ_ask_length_squared_tolerance();
}

template <auto set, auto ask, int bad, int good>
int setting(int is_good) {
    set(is_good != 0 ? good : bad);
    return ask();
}

void error_pushed(int number, int level) {
    merrorpush("row", number, level);
}

void grid_counts(int is_good_u, int is_good_v, int* asked) {
    const int set[2] = {is_good_u != 0 ? 4 : -1, is_good_v != 0 ? 5 : -1};
    PX_set_default_face_grid_counts(set);
    PX_ask_default_face_grid_counts(asked);
}

}  // namespace

std::vector<Call> frame_calls() {
    std::vector<Call> calls = joined({
        rows_of<0, nullptr,
#include "session.inc"
                >(),
        mappings<mapvaw_, mapvwa_, mappaw_, mappwa_, map10_, map11_, map12_, map13_>(),
        {
            row<tolerances>({1, 1, 1}, {1}),
            row<setting<WCS_set_wcs_display, WCS_ask_wcs_display, 2, 1>>({1}),
            row<setting<DISPLAY_set_system_color, DISPLAY_ask_system_color, 0, 217>>({1}),
            row<setting<DISPLAY_set_view_of_last_cursor, DISPLAY_ask_view_of_last_cursor, 0, 3>>(
                {1}),
            row<error_pushed>(),
            row<grid_counts>({1, 1}, {2}),
        },
    });
    for (Call& call : calls)
        call.writes_shared = true;
    return calls;
}

}  // namespace ztmath_test
