// Arc splines: the point and tangent at a parameter, the foot of a point, where lines and segments
// meet, and circles from points and circles, against the same geometry written with Eigen by the
// textbook's formulas, which know no tolerances and no special cases.
#include <benchmark/benchmark.h>

#include <Eigen/Geometry>
#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include "ztmath/arc_spline_constructions.h"
#include "ztmath/arc_spline_intersections.h"
#include "ztmath/arc_spline_primitives.h"
#include "ztmath/arc_spline_tangent_circles.h"

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

void three_points_ztmath(benchmark::State& state) {
    const auto x = numbers(6 * samples, -5.0, 5.0);
    run(state, [&](std::size_t i) {
        ARC_SPLINE_1_seg_2d_t s;
        int status;
        ARC_SPLINE_cre_circle_thru_3_points_2d(&x[6 * i], &x[6 * i + 2], &x[6 * i + 4], tols, &s,
                                               &status);
        return s.radius;
    });
}

void three_points_eigen(benchmark::State& state) {
    const auto x = numbers(6 * samples, -5.0, 5.0);
    run(state, [&](std::size_t i) {
        const Vector2d p(&x[6 * i]);
        const Vector2d a = Vector2d(&x[6 * i + 2]) - p, b = Vector2d(&x[6 * i + 4]) - p;
        const double twice = 2.0 * (a.x() * b.y() - a.y() * b.x());
        const Vector2d center(b.y() * a.squaredNorm() - a.y() * b.squaredNorm(),
                              a.x() * b.squaredNorm() - b.x() * a.squaredNorm());
        return (center / twice).norm();
    });
}

/// Three circles apart from one another.
std::vector<double> circle_triples() {
    std::vector<double> x = numbers(9 * samples, -1.0, 1.0);
    for (int i = 0; i < samples; ++i)
        for (int k = 0; k < 3; ++k) {
            double* circle = &x[static_cast<std::size_t>(9 * i + 3 * k)];
            circle[0] += 5.0 * std::cos(2.0 * k);
            circle[1] += 5.0 * std::sin(2.0 * k);
            circle[2] += 1.5;
        }
    return x;
}

void three_circles_ztmath(benchmark::State& state) {
    const auto x = circle_triples();
    run(state, [&](std::size_t i) {
        ARC_SPLINE_1_seg_2d_t given[3], found[8];
        for (std::size_t k = 0; k < 3; ++k)
            ARC_SPLINE_cre_circle_from_center_and_radius_2d(&x[9 * i + 3 * k], x[9 * i + 3 * k + 2],
                                                            &given[k]);
        int count, status;
        ARC_SPLINE_cre_circle_tangent_to_3_circles(&given[0], &given[1], &given[2], tols, &count,
                                                   found, &status);
        return found[0].radius + count;
    });
}

/// For each choice of signs two linear equations for the centre in terms of the radius, and the
/// quadratic equation that is left (Apollonius of Perga, algebraically).
void three_circles_eigen(benchmark::State& state) {
    const auto x = circle_triples();
    run(state, [&](std::size_t i) {
        const Vector2d c(&x[9 * i]), c2(&x[9 * i + 3]), c3(&x[9 * i + 6]);
        Eigen::Matrix2d m;
        m << (c2 - c).transpose(), (c3 - c).transpose();
        const Eigen::Matrix2d inverse = m.inverse();
        double sum = 0.0;
        for (unsigned signs = 0; signs < 8; ++signs) {
            const auto radius = [&](unsigned k) {
                return (signs >> k & 1U) != 0 ? -x[9 * i + 3 * k + 2] : x[9 * i + 3 * k + 2];
            };
            const double r1 = radius(0), r2 = radius(1), r3 = radius(2);
            const Vector2d constant(m.row(0).squaredNorm() - r2 * r2 + r1 * r1,
                                    m.row(1).squaredNorm() - r3 * r3 + r1 * r1);
            const Vector2d u = inverse * constant * 0.5, v = inverse * Vector2d(r1 - r2, r1 - r3);
            const double a = v.squaredNorm() - 1.0, half = u.dot(v) - r1;
            const double discriminant = half * half - a * (u.squaredNorm() - r1 * r1);
            if (discriminant < 0.0) continue;
            const double first = (-half + std::sqrt(discriminant)) / a;
            const double second = (-half - std::sqrt(discriminant)) / a;
            if (first > 0.0) sum += (c + u + v * first).x();
            if (second > 0.0) sum += (c + u + v * second).x();
        }
        return sum;
    });
}

/// Half circles and straights that mostly cross.
std::vector<ARC_SPLINE_1_seg_2d_t> segments(double central_angle) {
    const auto x = numbers(4 * samples, -1.0, 1.0);
    std::vector<ARC_SPLINE_1_seg_2d_t> made(samples);
    for (std::size_t i = 0; i < made.size(); ++i) {
        const double* p = &x[4 * i];
        const double angle = std::numbers::pi * p[2];
        const double tangent[] = {std::cos(angle), std::sin(angle)};
        double end[] = {p[0] + 4.0 * tangent[0], p[1] + 4.0 * tangent[1]}, end_tangent[2];
        if (central_angle == 0.0)
            ARC_SPLINE_cre_strt_seg_2d(p, end, tangent, &made[i]);
        else
            ARC_SPLINE_cre_arc_seg_2d(p, tangent, central_angle, 2.0 + p[3], 1, &made[i], end,
                                      end_tangent);
    }
    return made;
}

using Crossing = decltype(&ARC_SPLINE_inter_of_2_circular_arcs_2d);

void cross_ztmath(benchmark::State& state, Crossing crossing, double second_angle) {
    const auto first = segments(180.0), second = segments(second_angle);
    run(state, [&](std::size_t i) {
        double pt[2][2], parms[2][2];
        int count, flags[2][2], status;
        crossing(&first[i], &second[samples - 1 - i], 1, 1, tols, &count, pt[0], parms[0], flags[0],
                 pt[1], parms[1], flags[1], &status);
        return pt[0][0] + count;
    });
}

/// Whether a point of its circle lies on a counter-clockwise half circle.
bool is_on(const ARC_SPLINE_1_seg_2d_t& half, const Vector2d& point) {
    const double angle = half.start_angle * degree;
    return (point - Vector2d(half.center)).dot(Vector2d(std::cos(angle), std::sin(angle))) >= 0.0;
}

void arc_arc_eigen(benchmark::State& state) {
    const auto first = segments(180.0), second = segments(180.0);
    run(state, [&](std::size_t i) {
        const auto &s1 = first[i], &s2 = second[samples - 1 - i];
        const Vector2d c(s1.center), way = Vector2d(s2.center) - c;
        const double d = way.norm();
        const double along = (d * d + s1.radius * s1.radius - s2.radius * s2.radius) / (2.0 * d);
        const double squared = s1.radius * s1.radius - along * along;
        double sum = 0.0;
        if (squared < 0.0) return sum;
        const Vector2d foot = c + way * (along / d);
        const Vector2d aside = Vector2d(-way.y(), way.x()) * (std::sqrt(squared) / d);
        for (const Vector2d& p : {Vector2d(foot + aside), Vector2d(foot - aside)})
            if (is_on(s1, p) && is_on(s2, p)) sum += p.x();
        return sum;
    });
}

void arc_straight_eigen(benchmark::State& state) {
    const auto first = segments(180.0), second = segments(0.0);
    run(state, [&](std::size_t i) {
        const auto &arc = first[i], &straight = second[samples - 1 - i];
        const Vector2d p(straight.start_point), u(straight.direction), c(arc.center);
        const double foot = (c - p).dot(u);
        const double squared = arc.radius * arc.radius - (p + foot * u - c).squaredNorm();
        double sum = 0.0;
        if (squared < 0.0) return sum;
        for (const double t : {foot - std::sqrt(squared), foot + std::sqrt(squared)})
            if (t >= 0.0 && t <= straight.radius && is_on(arc, p + t * u)) sum += t;
        return sum;
    });
}

BENCHMARK(evaluate_ztmath)->Name("arc_evaluate/ztmath");
BENCHMARK(evaluate_eigen)->Name("arc_evaluate/Eigen");
BENCHMARK(length_ztmath)->Name("arc_length/ztmath");
BENCHMARK(foot_ztmath)->Name("arc_foot/ztmath");
BENCHMARK(foot_eigen)->Name("arc_foot/Eigen");
BENCHMARK(lines_ztmath)->Name("line_line/ztmath");
BENCHMARK(lines_eigen)->Name("line_line/Eigen");
BENCHMARK(three_points_ztmath)->Name("circle_3_points/ztmath");
BENCHMARK(three_points_eigen)->Name("circle_3_points/Eigen");
BENCHMARK(three_circles_ztmath)->Name("circle_3_circles/ztmath");
BENCHMARK(three_circles_eigen)->Name("circle_3_circles/Eigen");
BENCHMARK_CAPTURE(cross_ztmath, arcs, ARC_SPLINE_inter_of_2_circular_arcs_2d, 180.0)
    ->Name("arc_arc/ztmath");
BENCHMARK(arc_arc_eigen)->Name("arc_arc/Eigen");
BENCHMARK_CAPTURE(cross_ztmath, straight, ARC_SPLINE_inter_circular_arc_line_seg_2d, 0.0)
    ->Name("arc_straight/ztmath");
BENCHMARK(arc_straight_eigen)->Name("arc_straight/Eigen");

}  // namespace
