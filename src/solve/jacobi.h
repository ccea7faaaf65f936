// Eigenvalues of a symmetric matrix by cyclic Jacobi rotations.
//
// The matrix is worked on as full rows, both triangles kept: a rotation turns two rows in vector
// lanes and copies them into the two columns. The eigenvectors are kept as rows too. The size may
// be a constant (std::integral_constant), so that small problems unroll.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <type_traits>

#include "frame/report.h"
#include "frame/wide_lanes.h"

namespace ztmath {

inline constexpr Module eigen_module{"nr_eigensystems"};

/// Where the iteration works; all arrays are the caller's.
struct JacobiArrays {
    double* matrix;   ///< n x n, both triangles set; destroyed
    double* vectors;  ///< out: n x n, row i is the eigenvector of value i
    double* values;   ///< out: n
    double* work;     ///< 2 n
};

struct JacobiResult {
    int rotations;
    bool converged;
};

/// Reports a result that has not converged, as every routine that calls the iteration does.
void report_exhaustion(const JacobiResult& result);

namespace jacobi_detail {

/// Absolute threshold: sums, differences and elements off the diagonal up to this are nothing.
inline constexpr double negligible = 1e-10;

/// The angle of a rotation: sine, and tan of its half.
struct Rotation {
    double sine, tau;
};

/// Turns two vectors of n, from `first` on, as far as they fill lanes: (g, h) becomes
/// (g - s (h + tau g), h + s (g - h tau)). Returns the first index left.
template <class Lanes>
[[gnu::always_inline]] inline int turn_lanes(Rotation r, double* p, double* q, int first, int n) {
    constexpr int width = width_of<Lanes>;
    int j = first;
    for (; j + width <= n; j += width) {
        Lanes g;
        Lanes h;
        load(p + j, g);
        load(q + j, h);
        store<Lanes>(g - r.sine * (h + g * r.tau), p + j);
        store<Lanes>(h + r.sine * (g - h * r.tau), q + j);
    }
    return j;
}

/// Turns two vectors of n.
inline void turn(Rotation r, double* p, double* q, int n) {
    turn_lanes<double>(r, p, q, turn_lanes<Pair>(r, p, q, 0, n), n);
}

/// Whether g added to a value of this magnitude changes it by no more than the threshold.
inline bool is_lost_in(double magnitude, double g) {
    return std::fabs((magnitude + g) - magnitude) <= negligible;
}

/// The tangent of the smaller angle that makes a(p, q) vanish, h being the difference of the
/// values.
inline double rotation_tangent(double h, double apq, double g) {
    // A difference of exactly 0 is a turn by 45 degrees, however small the element: matrices as
    // plain as circulants have it, and the quotient would be infinite.
    if (is_lost_in(std::fabs(h), g) && h != 0.0) return apq / h;
    const double theta = 0.5 * h / apq;
    const double t = 1.0 / (std::fabs(theta) + std::sqrt(theta * theta + 1.0));
    return theta < 0.0 ? -t : t;
}

template <class Size, void turn_rows(Rotation, double*, double*, int)>
class Iteration {
  public:
    Iteration(const JacobiArrays& arrays, Size n)
        : n_(n),
          a_(arrays.matrix),
          v_(arrays.vectors),
          d_(arrays.values),
          b_(arrays.work),
          z_(arrays.work + n) {
        std::fill_n(v_, row(n), 0.0);
        for (int i = 0; i < n_; ++i) {
            v_[row(i) + i] = 1.0;
            d_[i] = b_[i] = a_[row(i) + i];
            z_[i] = 0.0;
        }
    }

    JacobiResult run(int max_sweeps) {
        for (int sweep = 1; sweep < max_sweeps; ++sweep) {
            const double sum = off_diagonal_sum();
            if (sum <= negligible) return {rotations_, true};
            const bool changed = make_sweep(sweep, sum);
            for (int i = 0; i < n_; ++i) {
                b_[i] += z_[i];
                d_[i] = b_[i];
                z_[i] = 0.0;
            }
            // Nothing but NaN or infinity stops all rotations short of convergence, and for good.
            if (sweep > thresholded_sweeps && !changed) break;
        }
        return {rotations_, false};
    }

  private:
    /// Sweeps that skip elements below a threshold, and sweeps that never drop elements as too
    /// small.
    static constexpr int thresholded_sweeps = 3;
    static constexpr int undropping_sweeps = 4;

    std::ptrdiff_t row(int i) const { return static_cast<std::ptrdiff_t>(i) * n_; }

    double off_diagonal_sum() const {
        double sum = 0.0;
        for (int p = 0; p < n_ - 1; ++p)
            for (int q = p + 1; q < n_; ++q)
                sum += std::fabs(a_[row(p) + q]);
        return sum;
    }

    /// Visits every pair; returns whether any element was changed.
    bool make_sweep(int sweep, double sum) {
        const double size = n_;
        const double threshold = sweep <= thresholded_sweeps ? 0.2 * sum / (size * size) : 0.0;
        bool changed = false;
        for (int p = 0; p < n_ - 1; ++p) {
            for (int q = p + 1; q < n_; ++q) {
                const double apq = a_[row(p) + q];
                const double g = 100.0 * std::fabs(apq);
                if (sweep > undropping_sweeps && is_lost_in(std::fabs(d_[p]), g) &&
                    is_lost_in(std::fabs(d_[q]), g)) {
                    changed |= apq != 0.0;
                    set_symmetric(p, q, 0.0);
                } else if (std::fabs(apq) > threshold) {
                    rotate(p, q, rotation_tangent(d_[q] - d_[p], apq, g));
                    changed = true;
                }
            }
            mirror(p);
        }
        return changed;
    }

    void set_symmetric(int p, int q, double value) { a_[row(p) + q] = a_[row(q) + p] = value; }

    /// Copies a row into the column. Column p is not read while p is paired with each q, and
    /// follows when that is done.
    void mirror(int i) {
        for (int j = 0; j < n_; ++j)
            a_[row(j) + i] = a_[row(i) + j];
    }

    void rotate(int p, int q, double t) {
        const double cosine = 1.0 / std::sqrt(t * t + 1.0);
        const double sine = t * cosine;
        const Rotation rotation{sine, sine / (1.0 + cosine)};
        const double shift = t * a_[row(p) + q];
        z_[p] -= shift;
        z_[q] += shift;
        d_[p] -= shift;
        d_[q] += shift;
        // The four elements where the rows meet the columns come out wrong: the two on the diagonal
        // are not used again, their values being kept apart, and the other two are 0 by
        // construction.
        turn_rows(rotation, a_ + row(p), a_ + row(q), n_);
        set_symmetric(p, q, 0.0);
        mirror(q);
        turn_rows(rotation, v_ + row(p), v_ + row(q), n_);
        ++rotations_;
    }

    Size n_;
    double *a_, *v_, *d_, *b_, *z_;
    int rotations_ = 0;
};

}  // namespace jacobi_detail

/// Runs the iteration for at most max_sweeps - 1 sweeps, unrolled for a size that is a constant.
template <int N>
JacobiResult jacobi(const JacobiArrays& arrays, std::integral_constant<int, N> n, int max_sweeps) {
    return jacobi_detail::Iteration<decltype(n), jacobi_detail::turn>(arrays, n).run(max_sweeps);
}

/// The same for any size.
JacobiResult jacobi(const JacobiArrays& arrays, int n, int max_sweeps);

}  // namespace ztmath
