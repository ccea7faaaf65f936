// LU, singular values and symmetric eigenvalues, against Eigen and LAPACK.
//
// Every row starts from the same matrix: the copy that an in-place routine needs is part of its
// time.
#include <benchmark/benchmark.h>
#include <lapacke.h>

#include <Eigen/Dense>
#include <random>
#include <vector>

#include "ztmath/nr.h"
#include "ztmath/solve.h"

namespace {

using RowMajor = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;

RowMajor random_matrix(int rows, int columns) {
    std::mt19937_64 engine(11);
    std::normal_distribution<double> normal;
    RowMajor m(rows, columns);
    for (int i = 0; i < rows; ++i)
        for (int j = 0; j < columns; ++j)
            m(i, j) = normal(engine);
    return m;
}

RowMajor random_symmetric(int n) {
    const RowMajor m = random_matrix(n, n);
    return m + m.transpose();
}

/// A matrix as the library takes it: rows with pointers to them.
struct Rows {
    explicit Rows(const RowMajor& source) : elements(source), pointers(source.rows()) {
        for (int i = 0; i < source.rows(); ++i)
            pointers[i] = elements.data() + i * source.cols();
    }
    Rows(int rows, int columns) : Rows(RowMajor::Zero(rows, columns)) {}

    RowMajor elements;
    std::vector<double*> pointers;
};

// ---- LU: decomposition and one solution --------------------------------------------------------

void lu_ztmath(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const RowMajor a = random_matrix(n, n);
    const Eigen::VectorXd b = Eigen::VectorXd::Ones(n);
    Rows work(a);
    std::vector<int> exchanges(n);
    Eigen::VectorXd x(n);
    double sign;
    for (auto _ : state) {
        work.elements = a;
        x = b;
        ludcmp_a(work.pointers.data(), n, exchanges.data(), &sign);
        lubksb_a(work.pointers.data(), n, exchanges.data(), x.data());
        benchmark::DoNotOptimize(x.data());
        benchmark::ClobberMemory();
    }
}

void lu_eigen(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const Eigen::MatrixXd a = random_matrix(n, n);
    const Eigen::VectorXd b = Eigen::VectorXd::Ones(n);
    Eigen::PartialPivLU<Eigen::MatrixXd> lu(n);
    Eigen::VectorXd x(n);
    for (auto _ : state) {
        lu.compute(a);
        x = lu.solve(b);
        benchmark::DoNotOptimize(x.data());
        benchmark::ClobberMemory();
    }
}

void lu_lapack(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const Eigen::MatrixXd a = random_matrix(n, n);
    const Eigen::VectorXd b = Eigen::VectorXd::Ones(n);
    Eigen::MatrixXd work(n, n);
    std::vector<int> exchanges(n);
    Eigen::VectorXd x(n);
    for (auto _ : state) {
        work = a;
        x = b;
        LAPACKE_dgesv_work(LAPACK_COL_MAJOR, n, 1, work.data(), n, exchanges.data(), x.data(), n);
        benchmark::DoNotOptimize(x.data());
        benchmark::ClobberMemory();
    }
}

// ---- Singular values with both factors ---------------------------------------------------------

void svd_ztmath(benchmark::State& state) {
    const int m = static_cast<int>(state.range(0));
    const int n = static_cast<int>(state.range(1));
    const RowMajor a = random_matrix(m, n);
    Rows work(a);
    Rows v(n, n);
    std::vector<double> w(n);
    for (auto _ : state) {
        work.elements = a;
        SOLVE_svd_decompose(work.pointers.data(), m, n, w.data(), v.pointers.data());
        benchmark::DoNotOptimize(w.data());
        benchmark::ClobberMemory();
    }
}

template <class Svd>
void svd_eigen(benchmark::State& state) {
    const Eigen::MatrixXd a =
        random_matrix(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    Svd svd(a.rows(), a.cols(), Eigen::ComputeThinU | Eigen::ComputeThinV);
    for (auto _ : state) {
        svd.compute(a);
        benchmark::DoNotOptimize(svd.singularValues().data());
        benchmark::ClobberMemory();
    }
}

void svd_lapack(benchmark::State& state) {
    const int m = static_cast<int>(state.range(0));
    const int n = static_cast<int>(state.range(1));
    const Eigen::MatrixXd a = random_matrix(m, n);
    Eigen::MatrixXd work(m, n), u(m, n), vt(n, n);
    std::vector<double> w(n);
    std::vector<int> integers(8 * n);
    double optimal;
    LAPACKE_dgesdd_work(LAPACK_COL_MAJOR, 'S', m, n, work.data(), m, w.data(), u.data(), m,
                        vt.data(), n, &optimal, -1, integers.data());
    std::vector<double> space(static_cast<std::size_t>(optimal));
    for (auto _ : state) {
        work = a;
        LAPACKE_dgesdd_work(LAPACK_COL_MAJOR, 'S', m, n, work.data(), m, w.data(), u.data(), m,
                            vt.data(), n, space.data(), static_cast<int>(space.size()),
                            integers.data());
        benchmark::DoNotOptimize(w.data());
        benchmark::ClobberMemory();
    }
}

// ---- Symmetric eigenvalues with vectors --------------------------------------------------------

void eigen_ztmath(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const RowMajor a = random_symmetric(n);
    Rows work(a);
    Rows v(n, n);
    std::vector<double> d(n);
    int rotations;
    for (auto _ : state) {
        work.elements = a;
        NR_ask_eigenvalues_jacobi(work.pointers.data(), n, 60, d.data(), v.pointers.data(),
                                  &rotations);
        benchmark::DoNotOptimize(d.data());
        benchmark::ClobberMemory();
    }
}

void eigen_eigen(benchmark::State& state) {
    const Eigen::MatrixXd a = random_symmetric(static_cast<int>(state.range(0)));
    Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> solver(a.rows());
    for (auto _ : state) {
        solver.compute(a);
        benchmark::DoNotOptimize(solver.eigenvalues().data());
        benchmark::ClobberMemory();
    }
}

void eigen_lapack(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const Eigen::MatrixXd a = random_symmetric(n);
    Eigen::MatrixXd work(n, n);
    std::vector<double> d(n);
    double optimal;
    int optimal_integers;
    LAPACKE_dsyevd_work(LAPACK_COL_MAJOR, 'V', 'U', n, work.data(), n, d.data(), &optimal, -1,
                        &optimal_integers, -1);
    std::vector<double> space(static_cast<std::size_t>(optimal));
    std::vector<int> integers(optimal_integers);
    for (auto _ : state) {
        work = a;
        LAPACKE_dsyevd_work(LAPACK_COL_MAJOR, 'V', 'U', n, work.data(), n, d.data(), space.data(),
                            static_cast<int>(space.size()), integers.data(), optimal_integers);
        benchmark::DoNotOptimize(d.data());
        benchmark::ClobberMemory();
    }
}

BENCHMARK(lu_ztmath)->Name("lu/ztmath")->Arg(4)->Arg(16)->Arg(64)->Arg(256);
BENCHMARK(lu_eigen)->Name("lu/eigen")->Arg(4)->Arg(16)->Arg(64)->Arg(256);
BENCHMARK(lu_lapack)->Name("lu/lapack")->Arg(4)->Arg(16)->Arg(64)->Arg(256);

BENCHMARK(svd_ztmath)->Name("svd/ztmath")->Args({10, 10})->Args({100, 50})->Args({200, 200});
BENCHMARK(svd_eigen<Eigen::JacobiSVD<Eigen::MatrixXd>>)
    ->Name("svd/eigen_jacobi")
    ->Args({10, 10})
    ->Args({100, 50})
    ->Args({200, 200});
BENCHMARK(svd_eigen<Eigen::BDCSVD<Eigen::MatrixXd>>)
    ->Name("svd/eigen_bdc")
    ->Args({10, 10})
    ->Args({100, 50})
    ->Args({200, 200});
BENCHMARK(svd_lapack)->Name("svd/lapack")->Args({10, 10})->Args({100, 50})->Args({200, 200});

BENCHMARK(eigen_ztmath)->Name("symmetric_eigen/ztmath")->Arg(3)->Arg(10)->Arg(50);
BENCHMARK(eigen_eigen)->Name("symmetric_eigen/eigen")->Arg(3)->Arg(10)->Arg(50);
BENCHMARK(eigen_lapack)->Name("symmetric_eigen/lapack")->Arg(3)->Arg(10)->Arg(50);

}  // namespace
