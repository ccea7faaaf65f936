// The shared block seen from inside.
#pragma once

#include "frame/report.h"
#include "ztmath/acom.h"

namespace ztmath {

/// The module of the session's accessors.
inline constexpr Module main_module{"libztmath_main"};

/// Element k, counted from 1, of the block's table of integers.
inline int& gca(int k) {
    return acom_.gca[k - 1];
}

/// The number tolerance: EQ_ask_number_tolerance without the call.
inline double number_tolerance() {
    return acom_.tolerances[ZTMATH_NUMBER_TOLERANCE];
}

/// Names for the elements of GCA that the library gives a meaning to.
enum Gca {
    gca_system_color = 6,
    gca_flag_word = 9,
    gca_face_grid_u = 17,
    gca_face_grid_v = 18,
    gca_always_six = 24,
    gca_application = 29,
    gca_in_interpreter = 30,
    gca_fine_tolerance = 31,
    gca_view_names_skeleton = 41,
    gca_wcs_skeleton = 42,
    gca_wcs_matrix_tag = 45,
    gca_wcs_unlinked_from_view = 47,
    gca_wcs_permanent = 48,
    gca_wcs_display = 49,
    gca_wcs_tag = 50,
    gca_model_mode = 51,
    gca_run_mode = 73,
    gca_view_of_last_cursor = 114,
};

}  // namespace ztmath
