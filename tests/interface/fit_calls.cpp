// Least-squares fits.
#include <algorithm>

#include "interface/table.h"
#include "ztmath/lsfit.h"

namespace ztmath_test {

namespace {

constexpr int fitted = 20;

template <int n>
double plane(In in, Out out) {
    int collinear = -1;
    LSFIT_plane_to_points(in[0], n, out[0], out[1], &collinear, out[2]);
    return collinear;
}

double plane_line(In in, Out out) {
    int coincident = -1;
    LSFIT_line_to_points_2d(in[0], fitted, out[0], out[1], &coincident, out[2]);
    return coincident;
}

/// With a plane of the caller's or, for a null normal, one that is fitted.
template <bool own_plane>
double space_line(In in, Out out) {
    std::copy_n(in[1], 3, out[0]);
    int collinear = own_plane ? 0 : -1;
    int coincident = -1;
    LSFIT_line_to_points_3d(in[0], fitted, out[0], &collinear, &coincident, out[1], out[2], out[3],
                            out[4]);
    return 10 * collinear + coincident;
}

}  // namespace

std::vector<Call> fit_calls() {
    return {
        {"LSFIT_plane_to_points", {3 * fitted}, {3, 3, 3}, plane<fitted>},
        {"LSFIT_plane_to_points", {0}, {3, 3, 3}, plane<0>},
        {"LSFIT_line_to_points_2d", {2 * fitted}, {2, 2, 3}, plane_line},
        {"LSFIT_line_to_points_3d",
         {3 * fitted, 3},
         {3, 3, 3, 3, 12},
         space_line<true>,
         nullptr,
         false},
        {"LSFIT_line_to_points_3d",
         {3 * fitted, 3},
         {3, 3, 3, 3, 12},
         space_line<false>,
         nullptr,
         false},
    };
}

}  // namespace ztmath_test
