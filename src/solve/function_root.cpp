// The root of a function in a bracket.
#include <cmath>

#include "ztmath/roots.h"

namespace ztmath {

namespace {

constexpr int most_iterations = 20;
constexpr int ran_out = -1;
constexpr int not_bracketed = -2;

struct Sample {
    double x, f;
};

bool signs_differ(Sample a, Sample b) {
    return (a.f < 0.0 && b.f >= 0.0) || (b.f < 0.0 && a.f >= 0.0);
}

struct Bracket {
    Sample low, high;

    /// Narrows to the closest pair with a change of sign; stays as it is without one.
    void narrow(Sample middle, Sample latest) {
        if (signs_differ(middle, latest)) {
            low = middle;
            high = latest;
        } else if (signs_differ(low, latest)) {
            high = latest;
        } else if (signs_differ(high, latest)) {
            low = latest;
        }
    }
};

}  // namespace

}  // namespace ztmath

using namespace ztmath;

int SOLVE_function_root(double (*f)(double x, void* data), void* data, double x1, double x2,
                        double tolerance, double* root) {
    const auto sample = [=](double x) { return Sample{x, f(x, data)}; };
    const Sample first = sample(x1);
    Bracket bracket{first, sample(x2)};
    const auto& [low, high] = bracket;
    if ((low.f > 0.0 && high.f > 0.0) || (low.f < 0.0 && high.f < 0.0)) return not_bracketed;

    double found = 1.0e20;
    *root = found;
    for (int i = 1; i <= most_iterations; ++i) {
        const Sample middle = sample((low.x + high.x) / 2.0);
        const double s = std::sqrt(middle.f * middle.f - low.f * high.f);
        // Kept as it stands: a function that is zero at all three points leaves 1e20 behind.
        if (s <= 0.0) return i;
        const double direction = low.f >= high.f ? 1.0 : -1.0;
        const double x = middle.x + (middle.x - low.x) * (direction * middle.f / s);
        if (std::fabs(x - found) <= tolerance) return i;
        *root = found = x;
        const Sample latest = sample(x);
        if (latest.f == 0.0) return i;
        bracket.narrow(middle, latest);
        if (std::fabs(high.x - low.x) < tolerance) return i;
    }
    return ran_out;
}
