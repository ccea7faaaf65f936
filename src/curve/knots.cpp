// Knot sequences for interpolation by cubics.
#include <algorithm>
#include <climits>

#include "frame/work_array.h"
#include "ztmath/bc_pole.h"

using namespace ztmath;

namespace {

/// How many knots stand before the first parameter, and after the last.
constexpr int outside = 3;

bool decreases(const double* values, int n) {
    for (int i = 1; i < n; ++i)
        if (values[i] < values[i - 1]) return true;
    return false;
}

/// The parameter `steps` before the first one or behind the last one, as if the parameters went on
/// from period to period. There are `n - 1` spans in a period.
double before_first(const double* t, int n, int steps) {
    const int periods = (steps - 1) / (n - 1) + 1;
    return t[periods * (n - 1) - steps] - periods * (t[n - 1] - t[0]);
}
double behind_last(const double* t, int n, int steps) {
    const int periods = (steps - 1) / (n - 1) + 1;
    return t[steps - (periods - 1) * (n - 1)] + periods * (t[n - 1] - t[0]);
}

void write_knots(const double* t, int n, bool periodic, double* knots) {
    double* const inside = knots + outside;
    std::copy(t, t + n, inside);
    for (int i = 1; i <= outside; ++i) {
        inside[-i] = periodic ? before_first(t, n, i) : t[0];
        inside[n - 1 + i] = periodic ? behind_last(t, n, i) : t[n - 1];
    }
}

}  // namespace

void knot_seq_order_4(const double* params, const int* n, const int* periodic, double** knots,
                      int* count, int* status) {
    const int number = *n;
    const bool refused = number < 2 || number > INT_MAX - 2 * outside || decreases(params, number);
    const int length = refused ? 0 : number + 2 * outside;
    double* result = nullptr;
    if (!refused) {
        SmArray<double> sequence(length);
        write_knots(params, number, *periodic != 0, sequence.data());
        result = sequence.release();
    }
    *knots = result;
    *count = length;
    *status = refused ? 1 : 0;
}
