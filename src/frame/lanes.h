// The inner loops of the dense solvers, written so that compilers put them into vector lanes.
//
// Elementwise loops keep the order of operations of each element. Sums run in lanes of their own
// that are added up in a fixed order, so that results are the same bits at every optimisation
// level.
#pragma once

namespace ztmath {

/// y += s x
inline void add_scaled(double* __restrict y, double s, const double* __restrict x, int n) {
    for (int i = 0; i < n; ++i)
        y[i] += s * x[i];
}

/// y -= s x
inline void subtract_scaled(double* __restrict y, double s, const double* __restrict x, int n) {
    for (int i = 0; i < n; ++i)
        y[i] -= s * x[i];
}

inline void scale(double* y, double s, int n) {
    for (int i = 0; i < n; ++i)
        y[i] *= s;
}

/// The sum of term(0) to term(n - 1), in eight lanes.
template <class Term>
double lane_sum(int n, Term term) {
    constexpr int lanes = 8;
    double sum[lanes] = {};
    int i = 0;
    for (; i + lanes <= n; i += lanes)
        for (int lane = 0; lane < lanes; ++lane)
            sum[lane] += term(i + lane);
    for (int lane = 0; i < n; ++i, ++lane)
        sum[lane] += term(i);
    return ((sum[0] + sum[4]) + (sum[2] + sum[6])) + ((sum[1] + sum[5]) + (sum[3] + sum[7]));
}

inline double dot(const double* x, const double* y, int n) {
    return lane_sum(n, [=](int i) { return x[i] * y[i]; });
}

}  // namespace ztmath
