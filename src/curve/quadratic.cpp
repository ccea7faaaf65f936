#include "curve/quadratic.h"

#include "frame/mat3.h"
#include "ztmath/solve.h"

namespace ztmath {

namespace {

Vec3 matrix_row(double t, bool is_slope) {
    return is_slope ? Vec3{2.0 * t, 1.0, 0.0} : Vec3{t * t, t, 1.0};
}

}  // namespace

QuadraticFit fit_quadratic(const Condition (&rows)[3], SlopeRow slope_row) {
    double matrix[9];
    store(Mat3{matrix_row(rows[0].parameter, false),
               matrix_row(rows[1].parameter, slope_row == SlopeRow::middle),
               matrix_row(rows[2].parameter, slope_row == SlopeRow::last)},
          matrix);
    const Mat3 values{rows[0].value, rows[1].value, rows[2].value};

    double by_coordinate[9];
    store(transposed(values), by_coordinate);
    double coefficients[9];
    for (int i = 0; i < 9; i += 3)
        if (const int status = SOLVE_solve_3equations(matrix, by_coordinate + i, coefficients + i))
            return {status, {}};
    const Mat3 by_power = transposed(load_mat3(coefficients));
    return {0, {by_power.x, by_power.y, by_power.z}};
}

}  // namespace ztmath
