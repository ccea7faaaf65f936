// Counts, and other integers, that ask for little or make no sense.
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "interface/table.h"
#include "support/reports.h"
#include "support/session.h"
#include "ztmath/bc_pole.h"
#include "ztmath/bcdf_calc.h"
#include "ztmath/ztmath.h"

namespace {

using namespace ztmath_test;

/// Lays out whatever a function's parameters ask for: numbers, arrays, matrices by rows, integers.
/// All lie in two blocks, where the neighbours of an array stand guard.
class Bench {
  public:
    /// All integers are 3, but the one that is swept.
    explicit Bench(int swept = -1, int value = 0) : swept_(swept), value_(value) {
        for (int i = 0; i < size; ++i) {  // with large diagonals, 3 and 8 wide
            numbers_[i] = 1.0 / (2 + 37 * i % 1009) + (i % 4 == 0 || i % 9 == 0 ? 4.0 : 0.0);
            integers_[i] = 7;
        }
    }

    template <class Result, class... Parameters>
    void call(Result (*function)(Parameters...)) {
        const std::tuple<Parameters...> values{next<Parameters>()...};
        if constexpr (std::is_same_v<Result, double**>)
            SM_free(std::apply(function, values));
        else
            std::apply(function, values);
        for (int k = 0; k < matrices_; ++k)  // blocks handed out
            if (rows_[k][0] < numbers_ || rows_[k][0] >= numbers_ + size) SM_free(rows_[k][0]);
    }

    int integer_count() const { return integer_count_; }

    /// The places where it holds something else than another.
    std::vector<int> changes_from(const Bench& other) const {
        std::vector<int> places;
        for (int i = 0; i < size; ++i) {
            if (!same_bits(numbers_[i], other.numbers_[i])) places.push_back(2 * i);
            if (integers_[i] != other.integers_[i]) places.push_back(2 * i + 1);
        }
        return places;
    }

  private:
    static constexpr int room = 128;   // of an array and those that guard it
    static constexpr int guards = 32;  // before it
    static constexpr int width = 8;    // of a matrix
    static constexpr int size = 12 * room;

    template <class Parameter>
    Parameter next() {
        const int at = room * array_count_++ + guards;
        if constexpr (std::is_same_v<Parameter, double>) {
            return numbers_[at];
        } else if constexpr (std::is_same_v<Parameter, double**>) {
            for (int i = 0; i < width; ++i)
                rows_[matrices_][i] = &numbers_[at + width * i];
            return rows_[matrices_++];
        } else if constexpr (std::is_convertible_v<double*, Parameter>) {
            return &numbers_[at];
        } else {
            integers_[at] = integer_count_++ == swept_ ? value_ : 3;
            if constexpr (std::is_same_v<Parameter, int>)
                return integers_[at];
            else
                return &integers_[at];
        }
    }

    double numbers_[size];
    int integers_[size];
    double* rows_[3][width];
    int array_count_ = 0;
    int integer_count_ = 0;
    int matrices_ = 0;
    int swept_;
    int value_;
};

void lu_solved(double** a, int n, double* d, double* b) {
    int exchanges[8] = {};
    if (ludcmp_a(a, n, exchanges, d) == 0) lubksb_a(a, n, exchanges, b);
}

void vertex_normal(int given, int vertex, int n, int weights, double* parameters, double* normal) {
    const FACET_facet_t facet = {{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {3, 0, 1}, {0, 0, 1}};
    const FACET_facet_t facets[3] = {facet, facet, facet};
    FACET_interp_normal_at_vertex(given, vertex, n, facets, weights, parameters, normal);
}

void space_line(const double* points, int n, double* normal, int* coincident, double* point,
                double* direction, double* stats, double* frame) {
    int collinear = -1;  // fits a plane
    LSFIT_line_to_points_3d(points, n, normal, &collinear, coincident, point, direction, stats,
                            frame);
}

void space_circle(const double* points, int n, double* point, double* normal, double* centre,
                  double* radius, int* failed, double* stats, double* frame) {
    std::fill_n(normal, 3, 0.0);  // fits a plane
    LSFIT_circle_to_points_3d(points, n, point, normal, centre, radius, failed, stats, frame);
}

struct Row {
    const char* name;
    void (*run)(Bench&);
};

template <auto function>
Row row() {
    return {__PRETTY_FUNCTION__, [](Bench& bench) { bench.call(function); }};
}

template <auto... functions>
std::vector<Row> rows_of() {
    return {row<functions>()...};
}

const std::vector<Row> rows = rows_of<
    lu_solved, vertex_normal, space_line, space_circle, BCDF_CALC_parameters,
    BCDF_CALC_quadratic_apprx, BCDF_CALC_single_weight, BCDF_CALC_weights,
    FACET_ask_triangles_of_polygon, FACET_shepards_weights, LSFIT_circle_to_points_2d,
    LSFIT_line_to_points_2d, LSFIT_plane_to_points, LSFIT_sphere_to_points_3d, NR_2d_matrix_allo,
    NR_2d_matrix_identity, NR_2d_matrix_init_zero, NR_2d_matrix_nxn_transp,
    NR_2d_matrix_product_of_2, NR_ask_eigenvalues_jacobi, NR_ask_max_eigen_val_vec,
    NR_cholesky_decomp, NR_cholesky_inverse, NR_cholesky_solver, NR_generalized_eigenvalues_symm,
    NR_matrix_2d_as_1d_identity, NR_matrix_2d_as_1d_init_zero, NR_matrix_2d_as_1d_init_zero_lt,
    NR_matrix_2d_as_1d_init_zero_ut, NR_matrix_2d_as_1d_nxn_transp, NR_matrix_2d_as_1d_product_of_2,
    NR_matrix_copy_1d_to_2d, NR_matrix_copy_2d_to_1d, PNT3_ask_closest_point, PTF_validate_boundary,
    SOLVE_lu_solver, SOLVE_polynomial, SOLVE_svd_decompose, SOLVE_svd_solver, SOLVE_svd_solver_r,
    VEC2_ask_shortest_vector, bc_POLE_average_in_3d, bc_POLE_identical_poles_in_3d, bc_xyz_box,
    get_unique_reals, knot_seq_order_4>();

Bench called(const Row& row, Bench bench) {
    row.run(bench);
    ++calls_made;
    return bench;
}

TEST(EveryCount, WritesNowhereElseBeingSmallOrNegativeAndLeavesTheNextCallAsItWas) {
    const ReportRecorder quiet;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const NoBlocksLeft watch;
        const Bench usual = called(row, Bench());
        for (int swept = 0; swept < usual.integer_count(); ++swept)
            for (const int value : {0, 1, -1})
                for (const int level : {0, 1}) {
                    const CheckingLevel checking(level);
                    const Bench bench = called(row, Bench(swept, value));
                    EXPECT_TRUE(std::ranges::includes(usual.changes_from(Bench()),
                                                      bench.changes_from(Bench())))
                        << "integer " << swept << " being " << value;
                    EXPECT_TRUE(called(row, Bench()).changes_from(usual).empty());
                }
    }
    tell_calls();
}

}  // namespace
