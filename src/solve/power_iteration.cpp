// The dominant eigenvalue by power iteration.
#include <algorithm>
#include <cmath>
#include <utility>

#include "solve/matrix.h"
#include "ztmath/nr.h"

namespace ztmath {

namespace {

/// Squared distance of successive vectors, relative to their squared length, that counts as
/// converged.
constexpr double convergence = 1e-10;

double element_of_largest_magnitude(const double* z, int n) {
    double largest = n > 0 ? z[0] : 0.0;
    for (int i = 1; i < n; ++i)
        if (std::fabs(z[i]) > std::fabs(largest)) largest = z[i];
    return largest;
}

bool has_converged(const double* y, const double* previous, int n) {
    const double length = lane_sum(n, [=](int i) { return previous[i] * previous[i]; });
    const double change = lane_sum(n, [=](int i) {
        const double difference = y[i] - previous[i];
        return difference * difference;
    });
    return convergence * length >= change;
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

void NR_ask_max_eigen_val_vec(int n, double** a, int max_iterations, const double* start,
                              double* eigenvalue, double* eigenvector, int* not_converged) {
    const int size = std::max(n, 0);
    WorkArray<double, 64> vectors(2 * std::ptrdiff_t{size});
    double* y = vectors.data();
    double* previous = y + size;
    std::copy_n(start, size, y);
    double lambda = 0.0;
    bool converged = false;
    for (int iteration = 0; iteration < max_iterations && !converged; ++iteration) {
        std::swap(y, previous);
        for (int i = 0; i < size; ++i)
            y[i] = dot(a[i], previous, size);
        lambda = element_of_largest_magnitude(y, size);
        for (int i = 0; i < size; ++i)
            y[i] /= lambda;
        converged = iteration > 0 && has_converged(y, previous, size);
    }
    *eigenvalue = lambda;
    std::copy_n(y, size, eigenvector);
    *not_converged = !converged;
}
