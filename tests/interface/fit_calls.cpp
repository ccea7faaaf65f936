// Least-squares fits.
#include "interface/row.h"

namespace ztmath_test {

namespace {

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

/// The null normal, with which the plane is fitted.
void prepare_no_normal(Random&, Arrays& inputs) {
    inputs[1] = {0, 0, 0};
}

}  // namespace

std::vector<Call> fit_calls() {
    constexpr int n = 20;
    constexpr int many = 300;  // more than work memory holds in place
    constexpr unsigned line_in_out = third | fourth;
    const Lengths line_outputs = {3, 2, 2, 3, 3, 3, 12};
    const Lengths circle_outputs = {3, 3, 3, 1, 2, 3, 12};
    return {
        row<LSFIT_plane_to_points, n>({3 * n}, {3, 3, 2, 3}),
        row<LSFIT_plane_to_points, 0>({0}, {3, 3, 2, 3}),
        row<LSFIT_line_to_points_2d, n>({2 * n}, {2, 2, 2, 3}),
        // In a plane of the caller's, and in one that is fitted.
        changing<LSFIT_line_to_points_3d, line_in_out, 3, n, 0>({3 * n, 3}, line_outputs),
        changing<LSFIT_line_to_points_3d, line_in_out, 3, n, -1>({3 * n, 3}, line_outputs),
        row<LSFIT_circle_to_points_2d, n>({2 * n}, {2, 1, 2, 3}, prepare_round<2>),
        row<LSFIT_circle_to_points_2d, 3>({2 * 3}, {2, 1, 2, 3}),
        changing<LSFIT_circle_to_points_3d, fourth, 3, n>({3 * n, 3}, circle_outputs,
                                                          prepare_round<3>),
        changing<LSFIT_circle_to_points_3d, fourth, 3, many>({3 * many, 3}, circle_outputs,
                                                             prepare_no_normal),
        row<LSFIT_sphere_to_points_3d, n>({3 * n}, {3, 1, 2, 3}, prepare_round<3>),
        row<LSFIT_sphere_to_points_3d, 4>({3 * 4}, {3, 1, 2, 3}),
    };
}

}  // namespace ztmath_test
