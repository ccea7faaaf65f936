// Session state: each row sets the words it depends on.
#include "interface/row.h"

namespace ztmath_test {

namespace {

/// With the WCS matrix, its origin, what is mapped.
template <void (*map)(const double*, double*)>
Call mapping() {
    const auto run = [](In in, Out out) -> double {
        std::copy_n(in[0], 9, acom_.wcs_matrix);
        std::copy_n(in[1], 3, acom_.wcs_origin);
        map(in[2], out[0]);
        return 0;
    };
    return {name_of<map>(), {9, 3, 3}, {3}, run, nullptr, true};
}

double tolerances(In in, Out out) {
    acom_.model_scale = *in[0];
    acom_.gca[30] = *in[1] > 0 ? 1 : 0;
    sys21_();
    const int wide = ZTMATH_WIDE_SQUARED_TOLERANCE;
    sys22_(in[2], &wide, out[0]);
    return EQ_ask_number_tolerance() + EQ_ask_length_tolerance() +
           EQ_ask_length_squared_tolerance();
}

/// An integer argument, in range or not.
int chosen(double number, int bad, int good) {
    return number > 0 ? good : bad;
}

template <void (*set)(int), int (*ask)(), int bad, int good>
Call setting() {
    const auto run = [](In in, Out) -> double {
        set(chosen(*in[0], bad, good));
        return ask();
    };
    return {name_of<set>(), {1}, {}, run};
}

double grid_counts(In in, Out out) {
    const int set[2] = {chosen(in[0][0], -1, 4), chosen(in[0][1], -1, 5)};
    int asked[2];
    PX_set_default_face_grid_counts(set);
    PX_ask_default_face_grid_counts(asked);
    std::copy_n(asked, 2, out[0]);
    return 0;
}

}  // namespace

std::vector<Call> frame_calls() {
    std::vector<Call> calls = {
        {"sys22_", {1, 1, 1}, {1}, tolerances, nullptr, true},
        mapping<mapvaw_>(),
        mapping<mapvwa_>(),
        mapping<mappaw_>(),
        mapping<mappwa_>(),
        mapping<map10_>(),
        mapping<map11_>(),
        mapping<map12_>(),
        mapping<map13_>(),
        setting<WCS_set_wcs_display, WCS_ask_wcs_display, 2, 1>(),
        setting<DISPLAY_set_system_color, DISPLAY_ask_system_color, 0, 217>(),
        setting<DISPLAY_set_view_of_last_cursor, DISPLAY_ask_view_of_last_cursor, 0, 3>(),
        {"PX_set_default_face_grid_counts", {2}, {2}, grid_counts},
    };
    for (Call& call : calls)
        call.writes_shared = true;
    return calls;
}

}  // namespace ztmath_test
