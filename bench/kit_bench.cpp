// 4x4 transforms, against Eigen: one call after another on matrices that change from call to call.
//
// Eigen's own inverse of a 4x4 matrix is that of cofactors, without pivots; MTX4_invert is a
// decomposition with partial pivoting, and stands beside Eigen's.
#include <benchmark/benchmark.h>

#include <array>
#include <random>
#include <vector>

#include "kit_peers.h"
#include "ztmath/mc.h"
#include "ztmath/mtx4.h"

namespace {

constexpr std::size_t matrix_count = 256;

std::vector<std::array<double, 16>> random_matrices() {
    std::mt19937_64 engine(5);
    std::normal_distribution<double> normal;
    std::vector<std::array<double, 16>> matrices(matrix_count);
    for (auto& matrix : matrices)
        for (double& element : matrix)
            element = normal(engine);
    return matrices;
}

/// Times a call with two inputs and an output, or with one of each.
template <auto call>
void time(benchmark::State& state) {
    const auto matrices = random_matrices();
    double out[16];
    std::size_t i = 0;
    for (auto _ : state) {
        const double* m = matrices[i].data();
        i = (i + 1) % matrix_count;
        if constexpr (std::is_invocable_v<decltype(call), const double*, double*>)
            call(m, out);
        else
            call(m, matrices[i].data(), out);
        benchmark::DoNotOptimize(out);
    }
}

BENCHMARK(time<MTX4_multiply>)->Name("multiply/ztmath");
BENCHMARK(time<eigen_multiply>)->Name("multiply/eigen");
BENCHMARK(time<MC_apply_transform_to_point>)->Name("map_point/ztmath");
BENCHMARK(time<eigen_map_point>)->Name("map_point/eigen");
BENCHMARK(time<MTX4_invert>)->Name("invert/ztmath");
BENCHMARK(time<eigen_invert_by_lu>)->Name("invert/eigen_lu");
BENCHMARK(time<eigen_invert_by_cofactors>)->Name("invert/eigen_cofactors");

}  // namespace
