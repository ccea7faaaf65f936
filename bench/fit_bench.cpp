// Fits with their statistics, against the same fits written with Eigen: of a plane by centroid,
// scatter matrix and direct 3x3 eigen solver; of circles and spheres by centroid, moments and
// generalized eigen solver; then the largest and the mean distance.
#include <benchmark/benchmark.h>

#include <Eigen/Dense>
#include <cmath>
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

/// Points near a quarter of a circle, or of a sphere around its equator.
template <int Dimension>
std::vector<double> points_near_round(int n) {
    std::mt19937_64 engine(8);
    std::uniform_real_distribution<double> angle(0.0, 1.57);
    std::normal_distribution<double> noise(0.0, 0.02);
    std::vector<double> points;
    for (int i = 0; i < n; ++i) {
        const double a = angle(engine);
        const double b = Dimension == 3 ? angle(engine) : 0.0;
        const double r = 25.0 + noise(engine);
        points.insert(points.end(), {1000.0 + r * std::cos(a) * std::cos(b),
                                     -2000.0 + r * std::sin(a) * std::cos(b)});
        if (Dimension == 3) points.push_back(r * std::sin(b));
    }
    return points;
}

template <int Dimension>
void round_ztmath(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const std::vector<double> points = points_near_round<Dimension>(n);
    const auto fit = Dimension == 2 ? LSFIT_circle_to_points_2d : LSFIT_sphere_to_points_3d;
    double centre[3], radius, stats[3];
    int failed;
    for (auto _ : state) {
        fit(points.data(), n, centre, &radius, &failed, stats);
        benchmark::DoNotOptimize(stats);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * n);
}

template <int Dimension>
struct EigenRound {
    Eigen::Matrix<double, Dimension, 1> centre;
    double radius, max, rms, mean;
};

template <int Dimension>
EigenRound<Dimension> round_with_eigen(
    const Eigen::Map<const Eigen::Matrix<double, Dimension, Eigen::Dynamic>>& points) {
    constexpr int size = Dimension + 2;
    using Vector = Eigen::Matrix<double, Dimension, 1>;
    using Square = Eigen::Matrix<double, size, size>;
    const Vector mean = points.rowwise().mean();
    Eigen::Matrix<double, size, Eigen::Dynamic> terms(size, points.cols());
    terms.row(0).setOnes();
    terms.template middleRows<Dimension>(1) = points.colwise() - mean;
    terms.row(size - 1) = terms.template middleRows<Dimension>(1).colwise().squaredNorm();
    const Square moments = terms * terms.transpose();
    Square constraint = Square::Identity();
    constraint(0, 0) = constraint(size - 1, size - 1) = 0.0;
    constraint(0, size - 1) = constraint(size - 1, 0) = -2.0;
    const Eigen::GeneralizedSelfAdjointEigenSolver<Square> solver(constraint, moments);
    const Eigen::Matrix<double, size, 1> x = solver.eigenvectors().col(size - 1);
    const Vector offset = -0.5 / x[size - 1] * x.template segment<Dimension>(1);

    EigenRound<Dimension> fit;
    fit.centre = mean + offset;
    fit.radius = std::sqrt(std::fabs(offset.squaredNorm() - x[0] / x[size - 1]));
    const Eigen::RowVectorXd deviations =
        ((points.colwise() - fit.centre).colwise().norm().array() - fit.radius).abs();
    fit.max = deviations.maxCoeff();
    fit.mean = deviations.mean();
    fit.rms = std::sqrt(1.0 / solver.eigenvalues()[size - 1] / static_cast<double>(points.cols()));
    return fit;
}

template <int Dimension>
void round_eigen(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const std::vector<double> points = points_near_round<Dimension>(n);
    for (auto _ : state) {
        auto fit = round_with_eigen<Dimension>({points.data(), Dimension, n});
        benchmark::DoNotOptimize(fit);
    }
    state.SetItemsProcessed(state.iterations() * n);
}

BENCHMARK(fit_ztmath)->Name("plane_fit/ztmath")->Arg(100)->Arg(10'000)->Arg(1'000'000);
BENCHMARK(fit_eigen)->Name("plane_fit/eigen")->Arg(100)->Arg(10'000)->Arg(1'000'000);
BENCHMARK(round_ztmath<2>)->Name("circle_fit/ztmath")->Arg(100)->Arg(10'000)->Arg(1'000'000);
BENCHMARK(round_eigen<2>)->Name("circle_fit/eigen")->Arg(100)->Arg(10'000)->Arg(1'000'000);
BENCHMARK(round_ztmath<3>)->Name("sphere_fit/ztmath")->Arg(100)->Arg(10'000)->Arg(1'000'000);
BENCHMARK(round_eigen<3>)->Name("sphere_fit/eigen")->Arg(100)->Arg(10'000)->Arg(1'000'000);

}  // namespace
