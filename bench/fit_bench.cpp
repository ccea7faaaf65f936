// Plane fit with its statistics, against the same fit written with Eigen: centroid, scatter matrix,
// direct 3x3 eigen solver, largest and mean distance.
#include <benchmark/benchmark.h>

#include <Eigen/Dense>
#include <random>
#include <vector>

#include "ztmath/lsfit.h"

namespace {

/// Points near a tilted plane, far from the origin, as a scanner in map coordinates delivers them.
std::vector<double> points_near_plane(int n) {
    std::mt19937_64 engine(7);
    std::uniform_real_distribution<double> extent(-500.0, 500.0);
    std::normal_distribution<double> noise(0.0, 0.02);
    std::vector<double> points;
    for (int i = 0; i < n; ++i) {
        const double x = extent(engine);
        const double y = extent(engine);
        points.insert(points.end(), {1000.0 + x, -2000.0 + y, 0.3 * x - 0.2 * y + noise(engine)});
    }
    return points;
}

void fit_ztmath(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const std::vector<double> points = points_near_plane(n);
    double point[3], normal[3], stats[3];
    int collinear;
    for (auto _ : state) {
        LSFIT_plane_to_points(points.data(), n, point, normal, &collinear, stats);
        benchmark::DoNotOptimize(stats);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * n);
}

struct EigenFit {
    Eigen::Vector3d point, normal;
    double max, rms, mean;
};

EigenFit fit_with_eigen(const Eigen::Map<const Eigen::Matrix3Xd>& points) {
    EigenFit fit;
    fit.point = points.rowwise().mean();
    const Eigen::Matrix3Xd centred = points.colwise() - fit.point;
    const Eigen::Matrix3d scatter = centred * centred.transpose();
    Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solver;
    solver.computeDirect(scatter);
    fit.normal = solver.eigenvectors().col(0);
    const auto distances = (fit.normal.transpose() * centred).array().abs();
    const Eigen::RowVectorXd evaluated = distances;
    fit.max = evaluated.maxCoeff();
    fit.mean = evaluated.mean();
    fit.rms =
        std::sqrt(std::max(solver.eigenvalues()[0], 0.0) / static_cast<double>(points.cols()));
    return fit;
}

void fit_eigen(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const std::vector<double> points = points_near_plane(n);
    for (auto _ : state) {
        EigenFit fit = fit_with_eigen(Eigen::Map<const Eigen::Matrix3Xd>(points.data(), 3, n));
        benchmark::DoNotOptimize(fit);
    }
    state.SetItemsProcessed(state.iterations() * n);
}

BENCHMARK(fit_ztmath)->Name("plane_fit/ztmath")->Arg(100)->Arg(10'000)->Arg(1'000'000);
BENCHMARK(fit_eigen)->Name("plane_fit/eigen")->Arg(100)->Arg(10'000)->Arg(1'000'000);

}  // namespace
