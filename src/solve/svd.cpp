// Singular value decomposition: the exported routines.
#include "solve/svd.h"

#include <algorithm>

#include "frame/work_array.h"
#include "ztmath/solve.h"

namespace ztmath {

namespace {

/// Singular values up to this part of the largest are taken for zero.
constexpr double default_relative_threshold = 1e-8;

/// A decomposition at work, its memory included.
class Svd {
  public:
    Svd(int m, int n)
        : m_(std::max(m, 0)),
          n_(std::max(n, 0)),
          height_(std::max(m_, n_)),
          memory_(element_count(n_, height_) + element_count(n_, n_) + 3 * std::ptrdiff_t{n_} +
                  height_),
          rotations_(2 * std::ptrdiff_t{n_}),
          u_(memory_.data()),
          v_(u_ + element_count(n_, height_)),
          w_(v_ + element_count(n_, n_)) {}

    void decompose(double** a) {
        for (int i = 0; i < height_; ++i)
            for (int j = 0; j < n_; ++j)
                u(j)[i] = a[i][j];
        double* const super = w_ + n_;
        SvdIteration<SvdTrace>({u_, v_, w_, super, super + n_, rotations_.data(), m_, n_}).run();
    }

    void store_factors(double** a, double* w, double** v) const {
        for (int i = 0; i < height_; ++i)
            for (int j = 0; j < n_; ++j)
                a[i][j] = u(j)[i];
        for (int i = 0; i < n_; ++i)
            for (int j = 0; j < n_; ++j)
                v[i][j] = this->v(j)[i];
        std::copy_n(w_, n_, w);
    }

    /// Writes the least-squares solution of least norm; returns the number of singular values kept.
    int solve(const double* b, double relative_threshold, double* x) {
        double largest = 0.0;
        for (int j = 0; j < n_; ++j)
            if (w_[j] > largest) largest = w_[j];
        const double threshold = largest * relative_threshold;
        double* const solution = w_ + n_;
        std::fill_n(solution, n_, 0.0);
        int kept = n_;
        for (int j = 0; j < n_; ++j) {
            if (std::fabs(w_[j]) > threshold)
                add_scaled(solution, dot(u(j), b, m_) / w_[j], v(j), n_);
            else
                --kept;
        }
        std::copy_n(solution, n_, x);
        return kept;
    }

  private:
    double* u(int j) const { return u_ + static_cast<std::ptrdiff_t>(j) * height_; }
    double* v(int j) const { return v_ + static_cast<std::ptrdiff_t>(j) * n_; }

    int m_, n_, height_;
    WorkArray<double, 320> memory_;  // 10 x 10 stays on the stack
    WorkArray<Givens, 32> rotations_;
    double *u_, *v_, *w_;
};

}  // namespace

}  // namespace ztmath

using namespace ztmath;

void SOLVE_svd_decompose(double** a, int m, int n, double* w, double** v) {
    Svd svd(m, n);
    svd.decompose(a);
    svd.store_factors(a, w, v);
}

int SOLVE_svd_solver(double** a, int m, int* n, const double* b, double* x) {
    SOLVE_svd_solver_r(a, m, n, b, x, default_relative_threshold);
    return 0;
}

int* SOLVE_svd_solver_r(double** a, int m, int* n, const double* b, double* x,
                        double relative_threshold) {
    Svd svd(m, *n);
    svd.decompose(a);
    *n = svd.solve(b, relative_threshold, x);
    return n;
}
