// Real roots of polynomials, against GSL's closed forms and companion matrix, and Eigen's companion
// matrix.
//
// Every row solves the same polynomials, one after the other; a polynomial is an item. A third of
// the polynomials have nothing but real roots, the others a complex pair, or two.
#include <benchmark/benchmark.h>
#include <gsl/gsl_poly.h>

#include <array>
#include <complex>
#include <random>
#include <unsupported/Eigen/Polynomials>
#include <vector>

#include "ztmath/roots.h"
#include "ztmath/session.h"
#include "ztmath/tolerance.h"

namespace {

template <int Degree>
using Coefficients = std::array<double, Degree + 1>;

using Complex = std::complex<double>;

template <int Degree>
Coefficients<Degree> expanded(const std::array<Complex, Degree>& roots) {
    std::array<Complex, Degree + 1> c{1.0};
    for (int i = 0; i < Degree; ++i) {
        for (int j = i + 1; j > 0; --j)
            c[j] = c[j - 1] - roots[i] * c[j];
        c[0] *= -roots[i];
    }
    Coefficients<Degree> real;
    for (int i = 0; i <= Degree; ++i)
        real[i] = c[i].real();
    return real;
}

template <int Degree>
std::vector<Coefficients<Degree>> polynomials() {
    std::mt19937_64 engine(11);
    std::uniform_real_distribution<double> uniform(-10.0, 10.0);
    std::vector<Coefficients<Degree>> list;
    for (int i = 0; i < 600; ++i) {
        const int pairs = i % 3;
        std::array<Complex, Degree> roots;
        for (int j = 0; j < Degree; ++j)
            roots[j] = uniform(engine);
        for (int j = 0; j < pairs && 2 * j + 1 < Degree; ++j) {
            roots[2 * j].imag(uniform(engine));
            roots[2 * j + 1] = std::conj(roots[2 * j]);
        }
        list.push_back(expanded<Degree>(roots));
        const double leading = uniform(engine);
        for (double& c : list.back())
            c *= leading;
    }
    return list;
}

void set_up_session() {
    const int mode = 0;
    sys10_(&mode);
    sys21_();
}

/// Times solve(coefficients), which returns a number that depends on the roots.
template <int Degree, class Solve>
void run(benchmark::State& state, Solve solve) {
    set_up_session();
    const auto list = polynomials<Degree>();
    for (auto _ : state)
        for (const auto& c : list)
            benchmark::DoNotOptimize(solve(c));
    state.SetItemsProcessed(state.iterations() * static_cast<long>(list.size()));
}

void quadratic_ztmath(benchmark::State& state) {
    run<2>(state, [](const auto& c) {
        double x[2];
        return SOLVE_quadratic(c.data(), x) > 0 ? x[0] : 0.0;
    });
}

void quadratic_gsl(benchmark::State& state) {
    run<2>(state, [](const auto& c) {
        double x[2];
        return gsl_poly_solve_quadratic(c[2], c[1], c[0], &x[0], &x[1]) > 0 ? x[0] : 0.0;
    });
}

void cubic_ztmath(benchmark::State& state) {
    run<3>(state, [](const auto& c) {
        double x[3];
        return SOLVE_cubic(c.data(), x) > 0 ? x[0] : 0.0;
    });
}

/// GSL takes the cubic with leading coefficient 1.
void cubic_gsl(benchmark::State& state) {
    run<3>(state, [](const auto& c) {
        double x[3];
        return gsl_poly_solve_cubic(c[2] / c[3], c[1] / c[3], c[0] / c[3], &x[0], &x[1], &x[2]) > 0
                   ? x[0]
                   : 0.0;
    });
}

void quartic_ztmath(benchmark::State& state) {
    run<4>(state, [](const auto& c) {
        double x[4];
        return SOLVE_quartic(c.data(), x) > 0 ? x[0] : 0.0;
    });
}

template <int Degree>
void iterated_ztmath(benchmark::State& state) {
    run<Degree>(state, [](const auto& c) {
        double x[Degree];
        return SOLVE_polynomial(Degree, c.data(), x) > 0 ? x[0] : 0.0;
    });
}

/// GSL has no closed form beyond the cubic.
template <int Degree>
void companion_gsl(benchmark::State& state) {
    gsl_poly_complex_workspace* work = gsl_poly_complex_workspace_alloc(Degree + 1);
    run<Degree>(state, [work](const auto& c) {
        double x[2 * Degree];
        gsl_poly_complex_solve(c.data(), Degree + 1, work, x);
        return x[0];
    });
    gsl_poly_complex_workspace_free(work);
}

template <int Degree>
void companion_eigen(benchmark::State& state) {
    Eigen::PolynomialSolver<double, Degree> solver;
    run<Degree>(state, [&solver](const auto& c) {
        solver.compute(Eigen::Map<const Eigen::Matrix<double, Degree + 1, 1>>(c.data()));
        return solver.roots()[0].real();
    });
}

BENCHMARK(quadratic_ztmath)->Name("quadratic/ztmath");
BENCHMARK(quadratic_gsl)->Name("quadratic/gsl");
BENCHMARK(companion_eigen<2>)->Name("quadratic/eigen");
BENCHMARK(cubic_ztmath)->Name("cubic/ztmath");
BENCHMARK(cubic_gsl)->Name("cubic/gsl");
BENCHMARK(companion_eigen<3>)->Name("cubic/eigen");
BENCHMARK(quartic_ztmath)->Name("quartic/ztmath");
BENCHMARK(iterated_ztmath<4>)->Name("quartic/ztmath_laguerre");
BENCHMARK(companion_gsl<4>)->Name("quartic/gsl");
BENCHMARK(companion_eigen<4>)->Name("quartic/eigen");

}  // namespace
