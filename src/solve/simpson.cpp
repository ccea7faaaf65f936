// Adaptive Simpson quadrature with a stack of its own.
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "ztmath/nr_functions.h"

namespace ztmath {

namespace {

enum Status { done = 0, levels_ran_out = 1, bad_arguments = 2, not_finite = 3 };

constexpr double epsilon = std::numeric_limits<double>::epsilon();

/// Where the interval is first divided: far from every simple fraction.
constexpr double first_cut = 0.4384471871911697;

/// Levels that are made whatever the errors look like.
constexpr int least_levels = 3;

/// Halving an interval more often meets the spacing of doubles.
constexpr int most_levels = 60;

struct Integrand {
    double (*f)(double x, void* data);
    void* data;
    int* evaluations;
    bool finite = true;

    double operator()(double x) {
        ++*evaluations;
        const double value = f(x, data);
        finite = finite && std::isfinite(value);
        return value;
    }
};

struct Sample {
    double x, f;
};

struct Panel {
    Sample left, middle, right;
    int level;
    double change_before;  ///< what the division that made it changed, for both halves together

    double width() const { return right.x - left.x; }

    double integral() const { return width() / 6.0 * (left.f + 4.0 * middle.f + right.f); }

    /// The integral of |f|.
    double magnitude() const {
        return width() / 6.0 * (std::fabs(left.f) + 4.0 * std::fabs(middle.f) + std::fabs(right.f));
    }

    /// Whether there are no doubles left to sample between its samples.
    bool is_narrow() const {
        const double quarter = width() / 4.0;
        return left.x + quarter == left.x || right.x - quarter == right.x;
    }
};

Panel make_panel(Integrand& f, Sample left, Sample right, int level) {
    const double x = left.x + (right.x - left.x) / 2.0;
    return {left, {x, f(x)}, right, level, HUGE_VAL};
}

/// The panels still to be looked at, the leftmost on top: one for each level and one more at most.
class Stack {
  public:
    void push(const Panel& panel) { panels_[size_++] = panel; }
    Panel pop() { return panels_[--size_]; }
    const Panel& top() const { return panels_[size_ - 1]; }
    bool is_empty() const { return size_ == 0; }

  private:
    Panel panels_[most_levels + 1];
    int size_ = 0;
};

/// What one pass over the interval has found.
struct Pass {
    double integral = 0.0;
    double error = 0.0;
    double magnitude = 0.0;  ///< the integral of |f| by the finest panels there are
    bool reached_last_level = false;
};

struct Goal {
    double tolerance;
    double magnitude;  ///< the integral of |f| as far as known before the pass
    int max_level;
};

/// Half of the tolerance goes by what a panel holds of the integral of |f|, so that peaks need not
/// be better than the rest; half goes by width, so that zeros need not be, either.
double allowed_error(double tolerance, const Panel& panel, double magnitude, double share) {
    return 0.5 * tolerance * (panel.magnitude() + magnitude * share);
}

/// Whether a panel need not be divided further. One small change may be an accident; where the
/// integrand is smooth the change before was 32 times as large, and hardly larger anywhere else.
bool is_resolved(const Panel& panel, double change, double allowed) {
    const double size = std::fabs(change);
    return (size <= 15.0 * allowed && panel.change_before <= 64.0 * 15.0 * allowed) ||
           size <= 8.0 * epsilon * panel.magnitude();
}

Pass integrate(Integrand& f, double a, double b, const Goal& goal) {
    Pass pass;
    Stack stack;
    const Sample left{a, f(a)};
    const Sample right{b, f(b)};
    const double cut_at = a + first_cut * (b - a);
    const Sample cut{cut_at, f(cut_at)};
    stack.push(make_panel(f, cut, right, 1));
    const Panel first = make_panel(f, left, cut, 1);
    pass.magnitude = first.magnitude() + stack.top().magnitude();
    stack.push(first);
    while (!stack.is_empty() && f.finite) {
        const Panel panel = stack.pop();
        Panel low = make_panel(f, panel.left, panel.middle, panel.level + 1);
        Panel high = make_panel(f, panel.middle, panel.right, panel.level + 1);
        const double integral = low.integral() + high.integral();
        const double change = integral - panel.integral();
        pass.magnitude += low.magnitude() + high.magnitude() - panel.magnitude();
        f.finite = f.finite && std::isfinite(change);
        const double known = std::min(pass.magnitude, goal.magnitude);
        const double allowed = allowed_error(goal.tolerance, panel, known, panel.width() / (b - a));
        const bool is_last = panel.level >= goal.max_level || panel.is_narrow();
        const bool may_stop = panel.level >= least_levels && is_resolved(panel, change, allowed);
        if (is_last || may_stop) {
            pass.integral += integral + change / 15.0;
            pass.error += std::fabs(change) / 15.0;
            pass.reached_last_level = pass.reached_last_level || (is_last && !may_stop);
        } else {
            low.change_before = high.change_before = std::fabs(change);
            stack.push(high);
            stack.push(low);
        }
    }
    return pass;
}

bool is_good(const Pass& pass, double tolerance) {
    return pass.error <= std::max(tolerance, 8.0 * epsilon) * pass.magnitude;
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

int NR_qsimp(double (*f)(double x, void* data), void* data, double a, double b, double tolerance,
             int max_level, double* integral, int* evaluations) {
    *integral = 0.0;
    *evaluations = 0;
    if (max_level < 1 || !(tolerance >= 0.0) || !std::isfinite(b - a)) return bad_arguments;
    if (a == b) return done;
    Integrand integrand{f, data, evaluations};
    const auto [low, high] = std::minmax(a, b);
    Goal goal{tolerance, HUGE_VAL, std::min(max_level, most_levels)};
    Pass pass = integrate(integrand, low, high, goal);
    // What was allowed at first rested on a rough integral of |f|: go over it again if it was too
    // large.
    if (integrand.finite && !is_good(pass, tolerance) && !pass.reached_last_level) {
        goal.magnitude = pass.magnitude;
        pass = integrate(integrand, low, high, goal);
    }
    if (!integrand.finite) return not_finite;
    *integral = a < b ? pass.integral : -pass.integral;
    return is_good(pass, tolerance) ? done : levels_ran_out;
}
