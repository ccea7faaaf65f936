// Edits of curve defining data, one after the other.
#include <memory>

#include "fuzz.h"
#include "syss/syss.h"
#include "ztmath/bcdf.h"
#include "ztmath/bcdf_calc.h"
#include "ztmath/bcdf_gen.h"

namespace {

using Record = std::unique_ptr<BCDF, decltype(&BCDF_free_structure)>;

Record new_record(fuzz::Bytes& bytes, int n, int dimension) {
    auto* points = static_cast<double*>(SM_alloc(sizeof(double) * n * dimension));
    std::generate_n(points, n * dimension, [&] { return bytes.number(); });
    return {BCDF_create_df_from_pts(points, n, dimension, bytes.flag() ? 1 : 0),
            BCDF_free_structure};
}

/// One edit, at a point that there is or beside the record.
void edit(BCDF* record, fuzz::Bytes& bytes) {
    const int n = BCDF_return_num_of_points(record);
    const double vector[] = {bytes.number(), bytes.number(), bytes.number(), bytes.number()};
    const int at = bytes.integer(-2, n + 1);
    switch (bytes.integer(0, 14)) {
        case 0:
            return BCDF_change_slope(record, bytes.integer(-1, 6), vector, at);
        case 1:
            return BCDF_replace_slope(record, vector, at, bytes.integer(-1, 6));
        case 2:
            return BCDF_remove_slopes(record, at, bytes.integer(-1, n));
        case 3:
            return BCDF_change_curvature(record, bytes.integer(-1, 2), vector, at, bytes.number());
        case 4:
            return BCDF_remove_curvatures(record, at, bytes.integer(-1, n));
        case 5:
            return BCDF_update_slopes(record);
        case 6:
            return BCDF_update_curvatures(record);
        case 7:
            return BCDF_replace_defining_point(record, vector, at, bytes.integer(3, 4));
        case 8:
            return BCDF_remove_defining_points(record, at, bytes.integer(-1, n));
        case 9:
            return BCDF_add_params(record, nullptr);
        case 10:
            return BCDF_add_needed_slopes(record);
        case 11:
            return BCDF_change_order(record, bytes.integer(-1, 30));
        case 12:
            return BCDF_toggle_periodicity(record);
        case 13:
            return BCDF_convert_4d_to_3d(record);
        default:
            return BCDF_change_tolerance(record, vector[0]);
    }
}

void require_whole(const BCDF* record) {
    const int slopes = BCDF_return_num_of_slopes(record);
    int number = 0;
    BCDF_return_slope_pars_array(record, &number);
    fuzz::require(number == slopes, "every slope has a parameter");
    BCDF_return_param_array(record, &number);
    fuzz::require(number == BCDF_return_num_of_points(record), "every point has a parameter");
}

}  // namespace

void fuzz::run(Bytes& bytes) {
    const int n = bytes.integer(1, 12);
    Record record = new_record(bytes, n, bytes.integer(3, 4));
    // Where parameters coincide, no slope is found at its point: updates store each once more, and
    // their number doubles.
    const auto is_small = [&] { return BCDF_return_num_of_slopes(record.get()) < 300; };
    for (int i = 0; i < 40 && !bytes.empty() && is_small(); ++i) {
        edit(record.get(), bytes);
        require_whole(record.get());
        BCDF_check_defining_data(record.get());
    }
    const Record copy{BCDF_copy_structure(record.get()), BCDF_free_structure};
    require_whole(copy.get());
}
