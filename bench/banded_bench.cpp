// Banded systems, set up anew, factored and solved, against LAPACK's general band solver.
//
// Every row starts from the same matrix: the copy that an in-place routine needs is part of its
// time. The matrix is diagonally dominant, so that LAPACK finds nothing to exchange.
#include <benchmark/benchmark.h>
#include <lapacke.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <vector>

#include "ztmath/banded.h"

namespace {

/// The elements of a band, row by row: 2 bw + 1 of each, those outside the matrix unused.
struct Band {
    Band(int order, int half_width)
        : n(order), bw(half_width), elements(static_cast<std::size_t>(n) * (2 * bw + 1)) {
        std::mt19937_64 engine(11);
        std::uniform_real_distribution<double> uniform(-1.0, 1.0);
        for (int i = 0; i < n; ++i)
            for (int j = i - bw; j <= i + bw; ++j)
                at(i, j) = uniform(engine) + (i == j ? 2.0 * bw : 0.0);
    }

    double& at(int i, int j) {
        return elements[static_cast<std::size_t>(i) * (2 * bw + 1) + (j - i + bw)];
    }
    int first(int i) const { return std::max(0, i - bw); }
    int last(int i) const { return std::min(n - 1, i + bw); }

    int n, bw;
    std::vector<double> elements;
};

void arguments(benchmark::internal::Benchmark* b) {
    b->Args({10000, 3})->Args({2000, 40})->Args({100000, 8})->Unit(benchmark::kMicrosecond);
}

void banded_ztmath(benchmark::State& state) {
    Band source(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    double** matrix;
    double* b;
    merrorflush();
    msetup_banded(source.n, source.bw, &matrix, &b);
    for (auto _ : state) {
        for (int i = 0; i < source.n; ++i)
            std::copy(&source.at(i, source.first(i)), &source.at(i, source.last(i)) + 1,
                      matrix[i] + source.first(i));
        std::fill_n(b, source.n, 1.0);
        mdecompose_banded(matrix, source.n, source.bw);
        msolve_banded(matrix, source.n, source.bw, b);
        benchmark::DoNotOptimize(b);
        benchmark::ClobberMemory();
    }
    if (merrorlevel() != 0) std::abort();
    mdispose_banded(&matrix, &b);
}

void banded_lapack(benchmark::State& state) {
    Band source(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    const int n = source.n;
    const int bw = source.bw;
    const int leading = 3 * bw + 1;
    std::vector<double> band(static_cast<std::size_t>(leading) * n);
    for (int i = 0; i < n; ++i)
        for (int j = source.first(i); j <= source.last(i); ++j)
            band[static_cast<std::size_t>(j) * leading + (2 * bw + i - j)] = source.at(i, j);
    std::vector<double> work(band.size());
    std::vector<double> b(n);
    std::vector<int> exchanges(n);
    for (auto _ : state) {
        std::copy(band.begin(), band.end(), work.begin());
        std::fill(b.begin(), b.end(), 1.0);
        if (LAPACKE_dgbsv_work(LAPACK_COL_MAJOR, n, bw, bw, 1, work.data(), leading,
                               exchanges.data(), b.data(), n) != 0)
            std::abort();
        benchmark::DoNotOptimize(b.data());
        benchmark::ClobberMemory();
    }
}

BENCHMARK(banded_ztmath)->Name("banded/ztmath")->Apply(arguments);
BENCHMARK(banded_lapack)->Name("banded/lapack")->Apply(arguments);

}  // namespace
