// Near-duplicates taken out of a sequence.
#include <cmath>

#include "frame/work_array.h"
#include "ztmath/banded.h"

void get_unique_reals(const double* values, int n, double** unique, int* count) {
    constexpr double distinct = 1.0e-10;
    if (n < 1) {
        *count = 0;
        return;
    }
    ztmath::SmArray<double> kept(n);
    int size = 0;
    kept[size++] = values[0];
    // Kept as it stands: each value is compared with the one before it in the input, kept or not.
    for (int i = 1; i < n; ++i)
        if (std::fabs(values[i] - values[i - 1]) > distinct) kept[size++] = values[i];
    *unique = kept.release();
    *count = size;
}
