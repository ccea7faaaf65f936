// Least-squares fits.
#include <algorithm>
#include <cmath>

#include "interface/row.h"
#include "ztmath/lsfit.h"

namespace ztmath_test {

namespace {

constexpr int fitted = 20;

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

/// Points near a circle in the plane or a sphere, so that there is an eigenvalue to use.
template <std::size_t dimension>
void prepare_round(Random& random, Arrays& inputs) {
    for (std::size_t i = 0; i < inputs[0].size(); i += dimension) {
        double squared = 0;
        for (std::size_t k = 0; k < dimension; ++k)
            squared += inputs[0][i + k] * inputs[0][i + k];
        const double stretch = 10 * (1 + 0.01 * random.normal()) / std::sqrt(squared);
        for (std::size_t k = 0; k < dimension; ++k)
            inputs[0][i + k] *= stretch;
    }
}

template <int n>
double space_circle(In in, Out out) {
    std::copy_n(in[1], 3, out[1]);
    int failed = -1;
    LSFIT_circle_to_points_3d(in[0], n, out[0], out[1], out[2], out[3], &failed, out[4], out[5]);
    return failed;
}

/// The null normal, with which the plane is fitted.
void prepare_no_normal(Random&, Arrays& inputs) {
    inputs[1] = {0, 0, 0};
}

}  // namespace

std::vector<Call> fit_calls() {
    constexpr int many = 300;  // more than work memory holds in place
    return {
        row<LSFIT_plane_to_points, fitted>({3 * fitted}, {3, 3, 3}),
        row<LSFIT_plane_to_points, 0>({0}, {3, 3, 3}),
        row<LSFIT_line_to_points_2d, fitted>({2 * fitted}, {2, 2, 3}),
        copying("LSFIT_line_to_points_3d", {3 * fitted, 3}, {3, 3, 3, 3, 12}, space_line<true>),
        copying("LSFIT_line_to_points_3d", {3 * fitted, 3}, {3, 3, 3, 3, 12}, space_line<false>),
        row<LSFIT_circle_to_points_2d, fitted>({2 * fitted}, {2, 1, 3}, prepare_round<2>),
        row<LSFIT_circle_to_points_2d, 3>({2 * 3}, {2, 1, 3}),
        copying("LSFIT_circle_to_points_3d", {3 * fitted, 3}, {3, 3, 3, 1, 3, 12},
                space_circle<fitted>, prepare_round<3>),
        copying("LSFIT_circle_to_points_3d", {3 * many, 3}, {3, 3, 3, 1, 3, 12}, space_circle<many>,
                prepare_no_normal),
        row<LSFIT_sphere_to_points_3d, fitted>({3 * fitted}, {3, 1, 3}, prepare_round<3>),
        row<LSFIT_sphere_to_points_3d, 4>({3 * 4}, {3, 1, 3}),
    };
}

}  // namespace ztmath_test
