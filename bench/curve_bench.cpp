// Passes over curve defining data: appending all points of a list, and whole records with slopes at
// all points. There is no peer; a pass is to take time in proportion to the points.
#include <benchmark/benchmark.h>

#include "curve_record.h"

namespace {

void append(benchmark::State& state) {
    const double point[3] = {1, 2, 3};
    for (auto _ : state) {
        PNTLST* list = PNTLST_allocate_struct(3, 1);
        for (int i = 0; i < state.range(0); ++i)
            PNTLST_concat_one_point(list, point);
        benchmark::DoNotOptimize(list->points);
        PNTLST_free_structure(list);
    }
    state.SetComplexityN(state.range(0));
}

void create(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(wave_record(static_cast<int>(state.range(0)), 0));
    state.SetComplexityN(state.range(0));
}

template <int slope_type = 0, class Pass>
void over_record(benchmark::State& state, Pass pass) {
    const CurveRecord record = wave_record(static_cast<int>(state.range(0)), slope_type);
    for (auto _ : state)
        pass(record.get());
    state.SetComplexityN(state.range(0));
}

void position_array(benchmark::State& state) {
    over_record(state, [](BCDF* record) {
        int number = 0;
        SM_free(BCDF_create_slope_pos_array(record, &number));
    });
}

void copy(benchmark::State& state) {
    over_record(state, [](BCDF* record) { BCDF_free_structure(BCDF_copy_structure(record)); });
}

void check(benchmark::State& state) {
    over_record(state, [](BCDF* r) { benchmark::DoNotOptimize(BCDF_check_defining_data(r)); });
}

void update_automatic_slopes(benchmark::State& state) {
    over_record(state, BCDF_update_slopes);
}

void update_arc_slopes(benchmark::State& state) {
    over_record<5>(state, BCDF_update_slopes);
}

void add_params(benchmark::State& state) {
    over_record(state, [](BCDF* record) { BCDF_add_params(record, nullptr); });
}

void measure(const char* name, void (*pass)(benchmark::State&)) {
    benchmark::RegisterBenchmark(name, pass)
        ->RangeMultiplier(10)
        ->Range(1000, 1'000'000)
        ->Unit(benchmark::kMicrosecond)
        ->Complexity(benchmark::oN);
}

const bool registered = [] {
    measure("append_points/ztmath", append);
    measure("create_record/ztmath", create);
    measure("position_array/ztmath", position_array);
    measure("copy_record/ztmath", copy);
    measure("check_record/ztmath", check);
    measure("update_slopes_automatic/ztmath", update_automatic_slopes);
    measure("update_slopes_arc/ztmath", update_arc_slopes);
    measure("add_params_all/ztmath", add_params);
    return true;
}();

}  // namespace
