// Minimum of a function by the downhill simplex method of Nelder and Mead.
#include <algorithm>
#include <cmath>

#include "frame/work_array.h"
#include "ztmath/nr_functions.h"

namespace ztmath {

namespace {

enum Status { done = 0, evaluations_ran_out = 1, bad_arguments = 2, not_a_number = 3 };

/// The function with its budget; `status` says why a value is not to be used.
struct Function {
    double (*f)(const double* x, int n, void* data);
    void* data;
    int n;
    int budget;
    int* evaluations;
    Status status = done;

    /// False when the budget is spent or the value is not a number.
    bool evaluate(const double* x, double& value) {
        if (*evaluations >= budget) status = evaluations_ran_out;
        if (status != done) return false;
        ++*evaluations;
        value = f(x, n, data);
        if (std::isnan(value)) status = not_a_number;
        return status == done;
    }
};

/// The caller's vertices and values. A vertex and its value change together, after the function has
/// returned.
struct Simplex {
    double** p;
    double* y;
    int n;

    void replace(int vertex, const double* x, double value) const {
        std::copy_n(x, n, p[vertex]);
        y[vertex] = value;
    }

    void swap(int i, int j) const {
        std::swap_ranges(p[i], p[i] + n, p[j]);
        std::swap(y[i], y[j]);
    }
};

/// The vertices that a step is decided by.
struct Order {
    int best, second_worst, worst;
};

Order order_of(const Simplex& s) {
    Order o{0, s.y[0] > s.y[1] ? 1 : 0, s.y[0] > s.y[1] ? 0 : 1};
    for (int i = 0; i <= s.n; ++i) {
        if (s.y[i] < s.y[o.best]) o.best = i;
        if (s.y[i] > s.y[o.worst]) {
            o.second_worst = o.worst;
            o.worst = i;
        } else if (i != o.worst && s.y[i] > s.y[o.second_worst]) {
            o.second_worst = i;
        }
    }
    return o;
}

bool has_converged(double low, double high, double tolerance) {
    return std::isfinite(low) && std::isfinite(high) &&
           2.0 * std::fabs(high - low) <= tolerance * (std::fabs(high) + std::fabs(low)) + 1.0e-20;
}

/// The centre of the vertices other than the worst one.
void find_centre(const Simplex& s, int worst, double* centre) {
    std::fill_n(centre, s.n, 0.0);
    for (int i = 0; i <= s.n; ++i)
        for (int j = 0; i != worst && j < s.n; ++j)
            centre[j] += s.p[i][j];
    for (int j = 0; j < s.n; ++j)
        centre[j] /= s.n;
}

/// The point at centre + t (centre - vertex).
void extrapolate(const double* centre, const double* vertex, double t, int n, double* x) {
    for (int j = 0; j < n; ++j)
        x[j] = centre[j] + t * (centre[j] - vertex[j]);
}

/// Moves all vertices halfway to the best one.
bool shrink(const Simplex& s, int best, Function& f, double* x) {
    for (int i = 0; i <= s.n; ++i) {
        if (i == best) continue;
        for (int j = 0; j < s.n; ++j)
            x[j] = s.p[best][j] + 0.5 * (s.p[i][j] - s.p[best][j]);
        double value;
        if (!f.evaluate(x, value)) return false;
        s.replace(i, x, value);
    }
    return true;
}

/// Where a step works: the centre, a reflected point, and a point tried after it.
struct Workspace {
    double *centre, *reflected, *tried;
};

enum class Outcome { stopped, taken, refused };

/// Tries the point at t beyond the centre and takes it for the worst vertex if it is below `limit`.
Outcome try_at(const Simplex& s, int worst, double t, double limit, Function& f,
               const Workspace& w) {
    double value;
    extrapolate(w.centre, s.p[worst], t, s.n, w.tried);
    if (!f.evaluate(w.tried, value)) return Outcome::stopped;
    if (!(value < limit)) return Outcome::refused;
    s.replace(worst, w.tried, value);
    return Outcome::taken;
}

/// One step; false when the function has to stop.
bool step(const Simplex& s, const Order& o, Function& f, const Workspace& w) {
    double value;
    find_centre(s, o.worst, w.centre);
    extrapolate(w.centre, s.p[o.worst], 1.0, s.n, w.reflected);
    if (!f.evaluate(w.reflected, value)) return false;
    if (value < s.y[o.best]) {
        const Outcome expanded = try_at(s, o.worst, 2.0, value, f, w);
        if (expanded != Outcome::taken) s.replace(o.worst, w.reflected, value);
        return expanded != Outcome::stopped;
    }
    if (value < s.y[o.second_worst]) {
        s.replace(o.worst, w.reflected, value);
        return true;
    }
    const bool outside = value < s.y[o.worst];
    const Outcome contracted = outside ? try_at(s, o.worst, 0.5, value, f, w)
                                       : try_at(s, o.worst, -0.5, s.y[o.worst], f, w);
    if (contracted != Outcome::refused) return contracted == Outcome::taken;
    return shrink(s, o.best, f, w.tried);
}

Status minimise(const Simplex& s, double tolerance, Function& f) {
    if (std::any_of(s.y, s.y + s.n + 1, [](double value) { return std::isnan(value); }))
        return not_a_number;
    const auto n = std::ptrdiff_t{s.n};
    WorkArray<double, std::ptrdiff_t{3} * 16> work(3 * n);
    const Workspace w{work.data(), work.data() + n, work.data() + 2 * n};
    Order o = order_of(s);
    while (!has_converged(s.y[o.best], s.y[o.worst], tolerance) && step(s, o, f, w))
        o = order_of(s);
    const int best = order_of(s).best;
    if (best != 0) s.swap(0, best);
    return f.status;
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

int NR_amoeba(double** p, double* y, int n, double tolerance,
              double (*f)(const double* x, int n, void* data), void* data, int max_evaluations,
              int* evaluations) {
    *evaluations = 0;
    if (n < 1 || max_evaluations < 1 || !(tolerance >= 0.0)) return bad_arguments;
    Function function{f, data, n, max_evaluations, evaluations};
    return minimise({p, y, n}, tolerance, function);
}
