// Singular value decomposition by Householder reflections and implicitly shifted QR steps.
//
// The factors are worked on as the rows of their transposes, so that reflections and rotations of
// columns run along contiguous memory. A tracer sees each change to V at its place.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <type_traits>

#include "frame/lanes.h"
#include "frame/report.h"
#include "solve/rotation_chain.h"

namespace ztmath {

inline constexpr Module svd_module{"svd"};

/// Prints a line on standard output at each change to V.
struct PrintTrace {
    static constexpr bool enabled = true;
    static void print(const char* line) { std::fputs(line, stdout); }
    template <class... Arguments>
    static void print(const char* format, Arguments... arguments) {
        std::printf(format, arguments...);
    }
};

struct NoTrace {
    static constexpr bool enabled = false;
    template <class... Arguments>
    static void print(const char*, Arguments...) {}
};

/// The trace switch. Off in every build; a build for a close look at V turns it on here.
inline constexpr bool svd_trace = false;
using SvdTrace = std::conditional_t<svd_trace, PrintTrace, NoTrace>;

/// Where a decomposition works; all arrays are the caller's.
struct SvdArrays {
    double* u;      ///< n rows of `height`: in, the columns of the matrix; out, the columns of U
    double* v;      ///< n x n; out, row j is the right singular vector of value j
    double* w;      ///< out: n
    double* super;  ///< n: the superdiagonal of the bidiagonal form
    double* work;   ///< n + max(m, n)
    Givens* rotations;  ///< 2 n
    int m, n;
};

template <class Tracer>
class SvdIteration {
  public:
    explicit SvdIteration(const SvdArrays& a)
        : m_(a.m),
          n_(a.n),
          height_(std::max(a.m, a.n)),
          u_(a.u),
          v_(a.v),
          w_(a.w),
          super_(a.super),
          work_(a.work),
          rotations_(a.rotations) {}

    void run() {
        if (m_ < n_) svd_module.note("SVDCMP: You must augment A with extra zero rows");
        bidiagonalize();
        accumulate_right();
        accumulate_left();
        for (int k = n_ - 1; k >= 0; --k)
            find_value(k);
    }

  private:
    /// Elements of the bidiagonal form up to this are zero: an absolute bound, whatever the matrix.
    static constexpr double negligible = 1e-12;
    static constexpr int max_iterations = 30;

    double* u(int j) const { return u_ + static_cast<std::ptrdiff_t>(j) * height_; }
    double* v(int j) const { return v_ + static_cast<std::ptrdiff_t>(j) * n_; }

    static bool is_zero(double value) { return std::fabs(value) <= negligible; }

    static double hypotenuse(double a, double b) {
        const double x = std::fabs(a);
        const double y = std::fabs(b);
        const double larger = std::max(x, y);
        if (larger == 0.0) return 0.0;
        const double ratio = std::min(x, y) / larger;
        return larger * std::sqrt(1.0 + ratio * ratio);
    }

    // ---- Householder reflections ---------------------------------------------------------------

    void bidiagonalize() {
        double left_of_diagonal = 0.0;
        for (int i = 0; i < n_; ++i) {
            super_[i] = left_of_diagonal;
            w_[i] = i < m_ ? reflect_column(i) : 0.0;
            left_of_diagonal = i < m_ ? reflect_row(i) : 0.0;
        }
    }

    /// A reflection that takes a vector onto the first axis.
    struct Reflection {
        double size;  ///< sum of magnitudes that the vector was divided by
        double g;     ///< the image's one component, divided
        double h;     ///< minus half the squared length of the reflection's own vector
    };

    /// Turns x into the vector of its reflection, divided by its size; a size of 0 leaves it.
    static Reflection reflection(double* x, int length) {
        const double size = lane_sum(length, [=](int k) { return std::fabs(x[k]); });
        if (size == 0.0) return {};
        for (int k = 0; k < length; ++k)
            x[k] /= size;
        const double f = x[0];
        const double norm = std::sqrt(dot(x, x, length));
        const double g = -std::copysign(norm, f);
        x[0] = f - g;
        return {size, g, f * g - norm * norm};
    }

    /// Makes column i zero below the diagonal; returns the new diagonal element.
    double reflect_column(int i) {
        double* const x = u(i) + i;
        const int length = m_ - i;
        const Reflection r = reflection(x, length);
        if (r.size == 0.0) return 0.0;
        for (int j = i + 1; j < n_; ++j) {
            double* const y = u(j) + i;
            add_scaled(y, dot(x, y, length) / r.h, x, length);
        }
        scale(x, r.size, length);
        return r.size * r.g;
    }

    /// Makes row i zero right of the superdiagonal; returns the new superdiagonal element.
    double reflect_row(int i) {
        const int first = i + 1;
        const int length = n_ - first;
        double* const x = work_;          // the row
        double* const sums = work_ + n_;  // the row's product with each row below it
        for (int k = 0; k < length; ++k)
            x[k] = u(first + k)[i];
        const Reflection r = reflection(x, length);
        if (r.size == 0.0) return 0.0;
        if (const int below = m_ - first; below > 0) {
            std::fill_n(sums, below, 0.0);
            for (int k = 0; k < length; ++k)
                add_scaled(sums, x[k], u(first + k) + first, below);
            for (int k = 0; k < length; ++k)
                add_scaled(u(first + k) + first, x[k] / r.h, sums, below);
        }
        for (int k = 0; k < length; ++k)
            u(first + k)[i] = x[k] * r.size;
        return r.size * r.g;
    }

    // ---- Accumulation of the reflections -------------------------------------------------------

    void accumulate_right() {
        for (int i = n_ - 1; i >= 0; --i) {
            const int first = i + 1;
            if (first < n_) {
                if (super_[first] != 0.0) accumulate_right_reflection(i);
                for (int j = first; j < n_; ++j) {
                    v(j)[i] = v(i)[j] = 0.0;
                    Tracer::print("SVD_decompose: zero v[i][j] & v[j][i] i = %d j = %d\n", i, j);
                }
            }
            v(i)[i] = 1.0;
            Tracer::print("SVD_decompose: set v[i][i] to 1.0 i = %d\n", i);
        }
    }

    void accumulate_right_reflection(int i) {
        const int first = i + 1;
        const int length = n_ - first;
        double* const row = work_;  // row i of the bidiagonalised matrix
        for (int k = 0; k < length; ++k)
            row[k] = u(first + k)[i];
        double* const x = v(i) + first;
        for (int k = 0; k < length; ++k) {
            // Two divisions, so that the product with the diagonal cannot underflow.
            x[k] = (row[k] / row[0]) / super_[first];
            Tracer::print("SVD_decompose: set v[j][i] j = %d i = %d to %g\n", first + k, i, x[k]);
        }
        for (int j = first; j < n_; ++j) {
            double* const y = v(j) + first;
            add_scaled(y, dot(row, y, length), x, length);
            for (int k = 0; Tracer::enabled && k < length; ++k)
                Tracer::print("SVD_decompose: update v[k][j] k = %d j = %d to %g\n", first + k, j,
                              y[k]);
        }
    }

    void accumulate_left() {
        // Kept as it stands: from column n - 1, also where there are fewer rows, whose missing ones
        // the caller supplies.
        for (int i = n_ - 1; i >= 0; --i) {
            const double g = w_[i];
            for (int j = i + 1; j < n_; ++j)
                u(j)[i] = 0.0;
            double* const x = u(i) + i;
            const int length = std::max(m_ - i, 0);
            if (g == 0.0) {
                std::fill_n(x, length, 0.0);
            } else {
                for (int j = i + 1; j < n_; ++j) {
                    double* const y = u(j) + i;
                    const double f = dot(x + 1, y + 1, length - 1) / x[0] / g;
                    add_scaled(y, f, x, length);
                }
                for (int k = 0; k < length; ++k)
                    x[k] /= g;
            }
            x[0] += 1.0;
        }
    }

    // ---- Diagonalisation -----------------------------------------------------------------------

    void find_value(int k) {
        for (int iteration = 1; iteration <= max_iterations; ++iteration) {
            const int first = split(k);
            if (first == k) {
                make_positive(k);
                return;
            }
            if (iteration == max_iterations)
                svd_module.note("No convergence in 30 SVDCMP iterations");
            step(first, k);
        }
    }

    /// The first index of the block that ends with k, after cancelling what a zero on the diagonal
    /// lets be cancelled.
    int split(int k) {
        for (int first = k; first > 0; --first) {
            if (is_zero(super_[first])) return first;
            if (is_zero(w_[first - 1])) {
                cancel(first, k);
                return first;
            }
        }
        return 0;
    }

    /// Rotates the superdiagonal element above `first` away, the diagonal element beside it being
    /// zero.
    void cancel(int first, int k) {
        double c = 0.0;
        double s = 1.0;
        for (int i = first; i <= k; ++i) {
            const double f = s * super_[i];
            super_[i] *= c;
            if (is_zero(f)) break;
            const double g = w_[i];
            const double h = hypotenuse(f, g);
            w_[i] = h;
            c = g / h;
            s = -f / h;
            rotate(u(first - 1), u(i), {c, s}, m_);
        }
    }

    void make_positive(int k) {
        if (!(w_[k] < 0.0)) return;
        w_[k] = -w_[k];
        Tracer::print("SVD_decompose: update negate all v\n");
        for (int j = 0; j < n_; ++j)
            v(k)[j] = -v(k)[j];
    }

    /// The first element of the shifted matrix's first column, scaled.
    double shift(int first, int k) const {
        const double x = w_[first];
        const double y = w_[k - 1];
        const double z = w_[k];
        const double g = super_[k - 1];
        const double h = super_[k];
        const double f = ((y - z) * (y + z) + (g - h) * (g + h)) / (2.0 * h * y);
        const double root = std::copysign(hypotenuse(f, 1.0), f);
        return ((x - z) * (x + z) + h * (y / (f + root) - h)) / x;
    }

    /// Finds the rotation that takes (f, h) onto the first axis, and its length; without a length
    /// any rotation does, and the one at hand is kept.
    static double turn_onto_axis(double f, double h, Givens& turn) {
        const double z = hypotenuse(f, h);
        if (z != 0.0) turn = {f / z, h / z};
        return z;
    }

    /// One QR step on the block from `first` to `k`. The rotations are found first, and applied to
    /// V and U together: they do not depend on them.
    void step(int first, int k) {
        Givens* const right = rotations_;
        Givens* const left = rotations_ + n_;
        double x = w_[first];
        double f = shift(first, k);
        Givens turn{1.0, 1.0};
        for (int j = first; j < k; ++j) {
            const int i = j + 1;
            double g = turn.c * super_[i];
            double h = turn.s * super_[i];
            super_[j] = turn_onto_axis(f, h, turn);
            right[j] = turn;
            f = x * turn.c + g * turn.s;
            g = g * turn.c - x * turn.s;
            h = w_[i] * turn.s;
            const double y = w_[i] * turn.c;
            w_[j] = turn_onto_axis(f, h, turn);
            left[j] = turn;
            f = turn.c * g + turn.s * y;
            x = turn.c * y - turn.s * g;
        }
        super_[first] = 0.0;
        super_[k] = f;
        w_[k] = x;
        rotate_right(right, first, k);
        rotate_chain(u(first), height_, m_, left + first, k - first);
    }

    void rotate_right(const Givens* rotations, int first, int k) {
        if constexpr (Tracer::enabled) {
            for (int j = first; j < k; ++j) {
                rotate(v(j), v(j + 1), rotations[j], n_);
                for (int jj = 0; jj < n_; ++jj) {
                    Tracer::print("SVD_decompose: jj = %d j = %d v[jj][j] = %g\n", jj, j, v(j)[jj]);
                    Tracer::print("SVD_decompose: jj = %d i = %d v[jj][i] = %g\n", jj, j + 1,
                                  v(j + 1)[jj]);
                }
            }
        } else {
            rotate_chain(v(first), n_, n_, rotations + first, k - first);
        }
    }

    int m_, n_, height_;
    double *u_, *v_, *w_, *super_, *work_;
    Givens* rotations_;
};

}  // namespace ztmath
