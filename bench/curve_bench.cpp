// Curve defining data beside the number of points: growing a list, an edit in the middle of a large
// one, and passes over whole records. There is no peer; a pass is to take time in proportion.
#include <benchmark/benchmark.h>

#include <cmath>

#include "syss/syss.h"
#include "ztmath/bcdf_gen.h"

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

void insert_and_remove(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const double point[3] = {1, 2, 3};
    PNTLST* list = PNTLST_allocate_struct(3, n + 1);
    for (int i = 0; i < n; ++i)
        PNTLST_concat_one_point(list, point);
    for (auto _ : state) {
        PNTLST_insert_points(list, 1, n - 10, point);
        PNTLST_remove_points(list, n - 10, 1);
    }
    PNTLST_free_structure(list);
}

BCDF* wave(int n) {
    auto* points = static_cast<double*>(SM_alloc(sizeof(double) * 3 * static_cast<size_t>(n)));
    for (int i = 0; i < n; ++i) {
        points[3 * i] = i;
        points[3 * i + 1] = std::sin(0.1 * i);
        points[3 * i + 2] = 0.0;
    }
    BCDF* record = BCDF_create_df_from_pts(points, n, 3, 0);
    for (int i = 0; i < n; ++i)
        BCDF_change_slope(record, 0, nullptr, i);
    return record;
}

template <class Pass>
void over_record(benchmark::State& state, Pass pass) {
    BCDF* record = wave(static_cast<int>(state.range(0)));
    for (auto _ : state)
        pass(record);
    BCDF_free_structure(record);
    state.SetComplexityN(state.range(0));
}

void replace_point(benchmark::State& state) {
    over_record(state, [](BCDF* record) {
        const double point[3] = {1, 2, 3};
        BCDF_replace_defining_point(record, point, BCDF_return_num_of_points(record) / 2, 3);
    });
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

void update_slopes(benchmark::State& state) {
    over_record(state, BCDF_update_slopes);
}

void add_params(benchmark::State& state) {
    over_record(state, [](BCDF* record) { BCDF_add_params(record, nullptr); });
}

void sizes(benchmark::internal::Benchmark* problem) {
    problem->RangeMultiplier(10)->Range(1000, 1'000'000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(append)->Name("append/ztmath")->Apply(sizes)->Complexity(benchmark::oN);
BENCHMARK(insert_and_remove)->Name("insert_near_end/ztmath")->Apply(sizes);
BENCHMARK(replace_point)->Name("replace_point/ztmath")->Apply(sizes);
BENCHMARK(position_array)->Name("position_array/ztmath")->Apply(sizes)->Complexity(benchmark::oN);
BENCHMARK(copy)->Name("copy_record/ztmath")->Apply(sizes)->Complexity(benchmark::oN);
BENCHMARK(update_slopes)->Name("update_slopes_all/ztmath")->Apply(sizes)->Complexity(benchmark::oN);
BENCHMARK(add_params)->Name("add_params_all/ztmath")->Apply(sizes)->Complexity(benchmark::oN);

}  // namespace
