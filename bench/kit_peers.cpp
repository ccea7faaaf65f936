#include "kit_peers.h"

#include <Eigen/Dense>

namespace {

using Transform = Eigen::Matrix<double, 4, 4, Eigen::RowMajor>;
using In = Eigen::Map<const Transform>;
using Out = Eigen::Map<Transform>;

}  // namespace

void eigen_multiply(const double* a, const double* b, double* r) {
    Out{r} = In{b} * In{a};
}

void eigen_invert_by_cofactors(const double* m, double* inverse) {
    Out{inverse} = In{m}.inverse();
}

void eigen_invert_by_lu(const double* m, double* inverse) {
    Out{inverse} = In{m}.partialPivLu().inverse();
}

void eigen_map_point(const double* m, const double* p, double* out) {
    const In transform{m};
    Eigen::Map<Eigen::Vector3d>{out} =
        transform.topLeftCorner<3, 3>() * Eigen::Map<const Eigen::Vector3d>{p} +
        transform.topRightCorner<3, 1>();
}
