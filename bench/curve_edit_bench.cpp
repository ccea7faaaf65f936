// Edits of one point or slope in the middle of curve defining data with slopes at all points: what
// one edit costs beside the number of points. There is no peer; the sizes stand beside each other.
#include <benchmark/benchmark.h>

#include "curve_record.h"

namespace {

const double vector[3] = {1, 2, 3};

template <class Edit>
void edit_middle(benchmark::State& state, int slope_type, Edit edit) {
    const int n = static_cast<int>(state.range(0));
    const CurveRecord record = wave_record(n, slope_type);
    for (auto _ : state)
        edit(record.get(), n / 2);
}

void insert_and_remove_point(benchmark::State& state) {
    edit_middle(state, 0, [](BCDF* record, int i) {
        PNTLST_insert_points(record->points, 1, i, vector);
        PNTLST_remove_points(record->points, i, 1);
    });
}

/// With what belongs to it. The record is made anew when a tenth is gone.
void remove_defining_point(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    CurveRecord record = wave_record(n, 0);
    for (auto _ : state) {
        BCDF_remove_defining_points(record.get(), n / 2, 1);
        if (BCDF_return_num_of_points(record.get()) > n - n / 10) continue;
        state.PauseTiming();
        record = wave_record(n, 0);
        state.ResumeTiming();
    }
}

void replace_point(benchmark::State& state) {
    edit_middle(state, 0,
                [](BCDF* record, int i) { BCDF_replace_defining_point(record, vector, i, 3); });
}

void change_slope(benchmark::State& state) {
    edit_middle(state, 2, [](BCDF* record, int i) { BCDF_change_slope(record, 5, vector, i); });
}

void remove_and_insert_slope(benchmark::State& state) {
    edit_middle(state, 2, [](BCDF* record, int i) {
        BCDF_remove_slopes(record, i, 1);
        BCDF_change_slope(record, 0, nullptr, i);
    });
}

void measure(const char* name, void (*edits)(benchmark::State&)) {
    benchmark::RegisterBenchmark(name, edits)->RangeMultiplier(10)->Range(1000, 1'000'000);
}

const bool registered = [] {
    measure("insert_remove_point/ztmath", insert_and_remove_point);
    measure("remove_defining_point/ztmath", remove_defining_point);
    measure("replace_point/ztmath", replace_point);
    measure("change_slope/ztmath", change_slope);
    measure("remove_insert_slope/ztmath", remove_and_insert_slope);
    return true;
}();

}  // namespace
