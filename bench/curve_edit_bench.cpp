// Edits of curve defining data with slopes at all points: what one edit costs beside the number of
// points, and the passes over a whole record. There is no peer; the sizes stand beside each other.
#include <benchmark/benchmark.h>

#include <cmath>

#include "syss/syss.h"
#include "ztmath/bcdf_calc.h"
#include "ztmath/bcdf_gen.h"

namespace {

BCDF* record_of(int n) {
    auto* points = static_cast<double*>(SM_alloc(sizeof(double) * 3 * static_cast<size_t>(n)));
    for (int i = 0; i < n; ++i) {
        points[3 * i] = i;
        points[3 * i + 1] = std::sin(0.1 * i);
        points[3 * i + 2] = 0.0;
    }
    BCDF* record = BCDF_create_df_from_pts(points, n, 3, 0);
    const double along[3] = {1, 0, 0};
    for (int i = 0; i < n; ++i)
        BCDF_change_slope(record, 2, along, i);
    return record;
}

template <class Edit>
void run(benchmark::State& state, Edit edit) {
    const int n = static_cast<int>(state.range(0));
    BCDF* record = record_of(n);
    for (auto _ : state)
        edit(record, n / 2);
    BCDF_free_structure(record);
}

void change_slope(benchmark::State& state) {
    run(state, [](BCDF* r, int i) {
        const double v[3] = {1, 1, 0};
        BCDF_change_slope(r, 5, v, i);
    });
}

void remove_and_insert_slope(benchmark::State& state) {
    run(state, [](BCDF* r, int i) {
        BCDF_remove_slopes(r, i, 1);
        BCDF_change_slope(r, 0, nullptr, i);
    });
}

void update_slopes(benchmark::State& state) {
    run(state, [](BCDF* r, int) { BCDF_update_slopes(r); });
}

void add_params(benchmark::State& state) {
    run(state, [](BCDF* r, int) { BCDF_add_params(r, nullptr); });
}

BENCHMARK(change_slope)->Name("change_slope/ztmath")->Arg(1000)->Arg(100'000);
BENCHMARK(remove_and_insert_slope)->Name("remove_insert_slope/ztmath")->Arg(1000)->Arg(100'000);
BENCHMARK(update_slopes)->Name("update_slopes/ztmath")->Arg(1000)->Arg(100'000);
BENCHMARK(add_params)->Name("add_params/ztmath")->Arg(1000)->Arg(100'000);

}  // namespace
