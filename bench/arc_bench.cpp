// Segments of arc splines: the point and tangent at a parameter, the foot of a point, and where two
// lines meet, against the same geometry written with Eigen.
#include <benchmark/benchmark.h>

#include <Eigen/Geometry>
#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include "ztmath/arc_spline_primitives.h"

namespace {

using Eigen::Vector2d;

constexpr int samples = 1024;
constexpr double degree = std::numbers::pi / 180.0;
constexpr double tols[] = {1e-6, 1e-3};

/// A quarter of a circle of radius 3, counter-clockwise.
ARC_SPLINE_1_seg_2d_t quarter() {
    const double start[] = {1.0, 2.0};
    const double tangent[] = {0.6, 0.8};
    double end[2], end_tangent[2];
    ARC_SPLINE_1_seg_2d_t s;
    return *ARC_SPLINE_cre_arc_seg_2d(start, tangent, 90.0, 3.0, 1, &s, end, end_tangent);
}

std::vector<double> numbers(int count, double low, double high) {
    std::mt19937_64 engine(11);
    std::uniform_real_distribution<double> distribution(low, high);
    std::vector<double> drawn(static_cast<std::size_t>(count));
    for (double& number : drawn)
        number = distribution(engine);
    return drawn;
}

/// Times a step over the samples, one after another.
template <class Step>
void run(benchmark::State& state, const Step& step) {
    for (auto _ : state)
        for (int i = 0; i < samples; ++i)
            benchmark::DoNotOptimize(step(static_cast<std::size_t>(i)));
    state.SetItemsProcessed(state.iterations() * samples);
}

void evaluate_ztmath(benchmark::State& state) {
    const auto s = quarter();
    const auto parms = numbers(samples, s.start_angle, s.end_angle);
    run(state, [&](std::size_t i) {
        double pt[2], tangent[2];
        int status;
        ARC_SPLINE_evaluate_1_seg_2d(&s, 0, parms[i], pt, tangent, &status);
        return Vector2d(pt) + Vector2d(tangent);
    });
}

void evaluate_eigen(benchmark::State& state) {
    const auto s = quarter();
    const Vector2d center(s.center);
    const auto parms = numbers(samples, s.start_angle, s.end_angle);
    run(state, [&](std::size_t i) -> Vector2d {
        const Vector2d tangent = Eigen::Rotation2Dd(parms[i] * degree) * Vector2d::UnitX();
        return center + s.radius * Vector2d(tangent.y(), -tangent.x()) + tangent;
    });
}

void length_ztmath(benchmark::State& state) {
    const auto s = quarter();
    const auto parms = numbers(samples, s.start_angle, s.end_angle);
    run(state, [&](std::size_t i) {
        int status;
        return ARC_SPLINE_ask_arcl_to_parm_of_1_seg_2d(&s, parms[i], &status);
    });
}

void foot_ztmath(benchmark::State& state) {
    const auto s = quarter();
    const auto points = numbers(2 * samples, -5.0, 5.0);
    run(state, [&](std::size_t i) {
        double foot[2], parm;
        int domain, status;
        ARC_SPLINE_ask_parm_at_a_point_2d(&s, &points[2 * i], tols, foot, &parm, &domain, &status);
        return Vector2d(foot) * parm;
    });
}

void foot_eigen(benchmark::State& state) {
    const auto s = quarter();
    const Vector2d center(s.center);
    const auto points = numbers(2 * samples, -5.0, 5.0);
    run(state, [&](std::size_t i) -> Vector2d {
        const Vector2d outwards = (Vector2d(&points[2 * i]) - center).normalized();
        double parm = std::atan2(outwards.x(), -outwards.y()) / degree;
        while (parm < s.start_angle)
            parm += 360.0;
        return (center + s.radius * outwards) * parm;
    });
}

void lines_ztmath(benchmark::State& state) {
    const auto x = numbers(8 * samples, -5.0, 5.0);
    run(state, [&](std::size_t i) {
        const double* p = &x[8 * i];
        double d1[] = {p[4], p[5]}, d2[] = {p[6], p[7]};
        double pt[2] = {}, parms[2] = {}, cosine;
        int status;
        ARC_SPLINE_inter_line_line_2d(tols, p, p + 2, 0, d1, d2, pt, parms, &cosine, &status);
        return Vector2d(pt);
    });
}

void lines_eigen(benchmark::State& state) {
    using Line = Eigen::Hyperplane<double, 2>;
    const auto x = numbers(8 * samples, -5.0, 5.0);
    run(state, [&](std::size_t i) -> Vector2d {
        const double* p = &x[8 * i];
        const Line first(
            Eigen::ParametrizedLine<double, 2>(Vector2d(p), Vector2d(p + 4).normalized()));
        const Line second(
            Eigen::ParametrizedLine<double, 2>(Vector2d(p + 2), Vector2d(p + 6).normalized()));
        return first.intersection(second);
    });
}

BENCHMARK(evaluate_ztmath)->Name("arc_evaluate/ztmath");
BENCHMARK(evaluate_eigen)->Name("arc_evaluate/Eigen");
BENCHMARK(length_ztmath)->Name("arc_length/ztmath");
BENCHMARK(foot_ztmath)->Name("arc_foot/ztmath");
BENCHMARK(foot_eigen)->Name("arc_foot/Eigen");
BENCHMARK(lines_ztmath)->Name("line_line/ztmath");
BENCHMARK(lines_eigen)->Name("line_line/Eigen");

}  // namespace
