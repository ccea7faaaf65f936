// Ordinary differential equations by the embedded Runge-Kutta pair of Dormand and Prince.
#include <algorithm>
#include <cmath>
#include <limits>

#include "frame/work_array.h"
#include "ztmath/nr_functions.h"

namespace ztmath {

namespace {

enum Status {
    done = 0,
    steps_ran_out = 1,
    step_too_small = 2,
    bad_arguments = 3,
    not_finite = 4,
};

constexpr int stages = 7;

/// Where the stages stand, and what each is made of. The last one stands at the new point: its
/// weights are the solution of order 5, and its derivative is the first of the next step.
constexpr double nodes[stages] = {0.0, 1.0 / 5.0, 3.0 / 10.0, 4.0 / 5.0, 8.0 / 9.0, 1.0, 1.0};
constexpr double weights[stages][stages - 1] = {
    {},
    {1.0 / 5.0},
    {3.0 / 40.0, 9.0 / 40.0},
    {44.0 / 45.0, -56.0 / 15.0, 32.0 / 9.0},
    {19372.0 / 6561.0, -25360.0 / 2187.0, 64448.0 / 6561.0, -212.0 / 729.0},
    {9017.0 / 3168.0, -355.0 / 33.0, 46732.0 / 5247.0, 49.0 / 176.0, -5103.0 / 18656.0},
    {35.0 / 384.0, 0.0, 500.0 / 1113.0, 125.0 / 192.0, -2187.0 / 6784.0, 11.0 / 84.0},
};

/// The solution of order 5 less that of order 4.
constexpr double error_weights[stages] = {
    71.0 / 57600.0,      0.0,          -71.0 / 16695.0, 71.0 / 1920.0,
    -17253.0 / 339200.0, 22.0 / 525.0, -1.0 / 40.0,
};

struct Equation {
    int n;
    void (*f)(double x, const double* y, double* dydx, void* data);
    void* data;
};

/// Derivatives at the stages, and the values at the latest one.
struct Stages {
    double* k[stages];
    double* y;

    // cppcheck-suppress uninitMemberVar ; the loop writes k
    Stages(double* work, int n) : y(work + std::ptrdiff_t{stages} * n) {
        for (double*& row : k) {
            row = work;
            work += n;
        }
    }
};

bool all_finite(const double* values, int n) {
    return std::all_of(values, values + n, [](double value) { return std::isfinite(value); });
}

/// Takes a step of length h; false when that leads to something that is not finite.
bool try_step(const Equation& equation, double x, double h, const double* y, Stages& s) {
    for (int stage = 1; stage < stages; ++stage) {
        for (int i = 0; i < equation.n; ++i) {
            double slope = 0.0;
            for (int j = 0; j < stage; ++j)
                slope += weights[stage][j] * s.k[j][i];
            s.y[i] = y[i] + h * slope;
        }
        equation.f(x + nodes[stage] * h, s.y, s.k[stage], equation.data);
        if (!all_finite(s.k[stage], equation.n)) return false;
    }
    return all_finite(s.y, equation.n);
}

double error_scale(double y, double slope, double h, double eps) {
    return eps * (std::fabs(y) + std::fabs(h * slope)) + 1.0e-30;
}

/// The largest error of a step, 1 being what is allowed; not a number if any error is.
double step_error(const Stages& s, int n, const double* y, double h, double eps) {
    double largest = 0.0;
    for (int i = 0; i < n; ++i) {
        double slope = 0.0;
        for (int stage = 0; stage < stages; ++stage)
            slope += error_weights[stage] * s.k[stage][i];
        const double error = std::fabs(h * slope) / error_scale(y[i], s.k[0][i], h, eps);
        if (!(error <= largest)) largest = error;
        if (std::isnan(largest)) return largest;
    }
    return largest;
}

/// Chooses step sizes from the errors of this step and the one before, so that they settle instead
/// of swinging.
class Controller {
  public:
    double after_accepted(double error) {
        const double change = std::pow(last_error_, damping) * safety * std::pow(error, -response);
        last_error_ = std::max(error, 1.0e-4);
        const double limit = failed_ ? 1.0 : 10.0;  // no growth straight after a failure
        failed_ = false;
        return std::min(change, limit);
    }

    double after_failed(double error) {
        failed_ = true;
        return std::isfinite(error) ? std::max(0.2, safety * std::pow(error, -response)) : 0.25;
    }

  private:
    static constexpr double safety = 0.9;
    static constexpr double damping = 0.04;
    static constexpr double response = 0.2 - 0.75 * damping;

    double last_error_ = 1.0e-4;
    bool failed_ = false;
};

/// A step that moves no value by more than about a hundredth of its size.
double modest_step(const double* y, const double* slope, int n, double eps) {
    double ratio = 0.0;
    for (int i = 0; i < n; ++i)
        ratio = std::max(ratio, std::fabs(slope[i]) / (std::fabs(y[i]) + eps));
    return ratio > 0.0 ? 0.01 / ratio : HUGE_VAL;
}

struct Settings {
    double eps, h_first, h_min;
    int max_steps;
    void (*dense)(double x, const double* y, void* data);
};

/// What the caller sees of the integration: always as of the last accepted step.
struct Progress {
    double* y;
    double *x, x_end;
    int *good, *bad;

    double remaining() const { return x_end - *x; }

    /// Whether the digits of x are too few for a step of length h.
    bool is_at_rounding_level(double h) const {
        return 0.1 * std::fabs(h) <= std::numeric_limits<double>::epsilon() * std::fabs(*x);
    }

    void accept(double x_new, const double* y_new, int n) const {
        std::copy_n(y_new, n, y);
        *x = x_new;
        ++*good;
    }
};

/// Integrates with step lengths h >= 0 in the direction of the end.
Status integrate(const Equation& equation, const Settings& settings, const Progress& progress) {
    const int n = equation.n;
    WorkArray<double, std::ptrdiff_t{stages + 1} * 16> work(std::ptrdiff_t{stages + 1} * n);
    Stages s(work.data(), n);
    equation.f(*progress.x, progress.y, s.k[0], equation.data);
    if (!all_finite(s.k[0], n)) return not_finite;
    double h = settings.h_first != 0.0 ? std::fabs(settings.h_first)
                                       : modest_step(progress.y, s.k[0], n, settings.eps);
    Controller controller;
    Status too_small = step_too_small;  // what it means if the steps become so
    for (int attempt = 0; attempt < settings.max_steps; ++attempt) {
        const double remaining = progress.remaining();
        h = std::max(h, settings.h_min);
        const bool is_last = h >= std::fabs(remaining) * (1.0 - 1.0e-12);
        if (!is_last && progress.is_at_rounding_level(h)) return too_small;
        const double signed_h = is_last ? remaining : std::copysign(h, remaining);
        const double length = std::fabs(signed_h);
        const double error = try_step(equation, *progress.x, signed_h, progress.y, s)
                                 ? step_error(s, n, progress.y, signed_h, settings.eps)
                                 : std::numeric_limits<double>::quiet_NaN();
        if (error <= 1.0) {
            const double x = is_last ? progress.x_end : *progress.x + signed_h;
            progress.accept(x, s.y, n);
            std::swap(s.k[0], s.k[stages - 1]);
            h = length * controller.after_accepted(error);
            too_small = step_too_small;
            if (settings.dense != nullptr) settings.dense(x, progress.y, equation.data);
            if (is_last) return done;
        } else {
            ++*progress.bad;
            h = length * controller.after_failed(error);
            too_small = std::isfinite(error) ? step_too_small : not_finite;
            if (length <= settings.h_min) return too_small;
        }
    }
    return steps_ran_out;
}

bool are_valid(const Equation& equation, const Settings& settings, double x1, double x2) {
    return equation.n >= 1 && settings.max_steps >= 1 && settings.eps > 0.0 &&
           std::isfinite(settings.eps) && settings.h_min >= 0.0 && std::isfinite(settings.h_min) &&
           std::isfinite(settings.h_first) && std::isfinite(x1) && std::isfinite(x2) &&
           std::isfinite(x2 - x1);
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

int NR_odeint(double* y, int n, double x1, double x2, double eps, double h_first, double h_min,
              int max_steps, void (*f)(double x, const double* y, double* dydx, void* data),
              void* data, void (*dense)(double x, const double* y, void* data), double* reached,
              int* good_steps, int* bad_steps) {
    *reached = x1;
    *good_steps = 0;
    *bad_steps = 0;
    const Equation equation{n, f, data};
    const Settings settings{eps, h_first, h_min, max_steps, dense};
    if (!are_valid(equation, settings, x1, x2)) return bad_arguments;
    if (x1 == x2) return done;
    return integrate(equation, settings, {y, reached, x2, good_steps, bad_steps});
}
