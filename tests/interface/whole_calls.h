// Calls that take more than numbers and arrays: functions of the caller's, facets, blocks that are
// handed out. Here they are functions of numbers and arrays, for rows and for the sweep of counts.
#pragma once

#include "interface/structures.h"

namespace ztmath_test {

/// The solution of a system of 66 equations at most.
inline int lu_solved(double** a, int n, double* d, const double* b, double* x) {
    int exchanges[66] = {};
    const int status = ludcmp_a(a, n, exchanges, d);
    std::copy_n(b, n, x);
    if (status == 0) lubksb_a(a, n, exchanges, x);
    return status;
}

/// Of facets, 40 at most, of nine coordinates and a normal each, around the vertices 0, 1 and 3.
inline void vertex_normal(int given, int vertex, int n, const double* numbers, int weights,
                          const double* parameters, double* normal) {
    constexpr int vertices[] = {0, 1, 3};
    FACET_facet_t facets[40];
    for (int i = 0; i < n; ++i) {
        std::copy_n(numbers + 12 * i, 9, facets[i].vertices[0]);
        std::copy_n(numbers + 12 * i + 9, 3, facets[i].normal);
        for (int k = 0; k < 3; ++k)
            facets[i].ids[k] = vertices[(i + k) % 3];
    }
    FACET_interp_normal_at_vertex(given, vertex, n, facets, weights, parameters, normal);
}

/// Writes seven numbers for each corner.
inline int filled(int n, const double* points, int* count, double* numbers) {
    PTF_triangle_t* triangles = nullptr;
    PTF_vertex_edge_t* edges = nullptr;
    PTF_neighbor_list_t* lists = nullptr;
    const int status = PTF_poly_tri_fill(n, points, count, &triangles, &edges, &lists);
    std::fill_n(numbers, 7 * n, 0.0);
    for (int t = 0; t < *count; ++t)
        std::copy_n(&triangles[t].a, 6, numbers + 7 * t);
    for (int i = 0; i < n && status == 0; ++i)
        numbers[7 * i + 6] = 100 * edges[i].edge + edges[i].triangle + 1e4 * lists[i].num_neighbors;
    PTF_free_output(n, triangles, lists, edges);
    return status;
}

/// The callbacks' pointer to input that they only read.
inline void* as_data(const double* in) {
    return const_cast<double*>(in);
}

/// Of a limit that the sweep of counts gives: 3 becomes enough, and 0, 1 and -1 stay what they are.
inline int fifth_power(int limit) {
    return limit * limit * limit * limit * limit;
}

inline int minimised(double** p, const double* values, int n, const double* centre, int limit,
                     double* y, int* evaluations) {
    const auto bowl = [](const double* x, int size, void* data) {
        return std::inner_product(x, x + size, static_cast<const double*>(data), 0.0, std::plus(),
                                  [](double a, double b) { return (a - b) * (a - b); });
    };
    std::copy_n(values, n + 1, y);
    return NR_amoeba(p, y, n, 1e-6, bowl, as_data(centre), fifth_power(limit), evaluations);
}

/// y' = A y + x, each component, over an interval.
inline int equation_integrated(double* y, int n, const double* interval, const double* a, int limit,
                               double* reached, int* good, int* bad) {
    std::pair<int, const double*> system(n, a);
    const auto slope = [](double x, const double* at, double* rates, void* data) {
        const auto& [size, rows] = *static_cast<std::pair<int, const double*>*>(data);
        for (int i = 0; i < size; ++i)
            rates[i] = std::inner_product(at, at + size, rows + i * size, x);
    };
    return NR_odeint(y, n, interval[0], interval[1], 1e-6, 0.0, 0.0, fifth_power(limit), slope,
                     &system, nullptr, reached, good, bad);
}

/// A cubic's value by the four coefficients behind data.
inline double cubic(double x, void* data) {
    const auto* c = static_cast<const double*>(data);
    return ((c[3] * x + c[2]) * x + c[1]) * x + c[0];
}

inline int integrated(const double* coefficients, const double* interval, int max_level,
                      double* integral, int* evaluations) {
    double c[4];
    std::copy_n(coefficients, 4, c);  // the integral may lie over them
    return NR_qsimp(cubic, c, interval[0], interval[1], 1e-9, max_level, integral, evaluations);
}

/// A system of one size and band, of which a smaller one may be solved.
inline int banded_solved(int size, int band, int n, int bw, const double* elements,
                         const double* rhs, double* x) {
    merrorflush();
    double** matrix = nullptr;
    double* b = nullptr;
    msetup_banded(size, band, &matrix, &b);
    if (matrix != nullptr) {
        for (int i = 0; i < size; ++i)
            for (int j = std::max(0, i - band); j <= std::min(size - 1, i + band); ++j)
                matrix[i][j] = *elements++;
        std::copy_n(rhs, size, b);
        mdecompose_banded(matrix, std::min(n, size), std::min(bw, band));
        msolve_banded(matrix, std::min(n, size), std::min(bw, band), b);
        std::copy_n(b, size, x);
    }
    mdispose_banded(&matrix, &b);
    const int number = merrornum() + merrorlevel();
    merrorflush();
    return number;
}

inline PNTLST* list_from_function(int number, int dimension) {
    PNTLST* const list = PNTLST_get_from_func(number, dimension, [](int, double*) { return 0; });
    if (list != nullptr) std::fill_n(list->points, number * std::max(dimension, 0), 1.0);
    return list;
}

inline void hold_block_of_points() {
    int n = 0;
    int dimension = 0;
    held<double>.reset(PNTLST_copy_points(new_list(Values(24, 1.0)).get(), &n, &dimension));
}

/// Releases what a call has taken over; without points that is nothing, and stays the caller's.
template <class Held>
void release_taken(Held& owner, bool is_taken) {
    if (is_taken) static_cast<void>(owner.release());
    owner.reset();
}

inline BCDF* record_over_block(int number, int dimension, int least_squares) {
    hold_block_of_points();
    BCDF* const record =
        BCDF_create_df_from_pts(held<double>.get(), number, dimension, least_squares);
    release_taken(held<double>, number > 0);
    return record;
}

inline BCDF* record_over_list(int number, int dimension, int periodicity, int order,
                              int least_squares) {
    hold_block_of_points();
    held<PNTLST>.reset(PNTLST_create_from_list_of_pts(held<double>.get(), number, dimension));
    release_taken(held<double>, number > 0);
    BCDF* const record =
        BCDF_create_from_pntlst(periodicity, order, least_squares, held<PNTLST>.get(), nullptr,
                                nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    release_taken(held<PNTLST>, record != nullptr);
    return record;
}

}  // namespace ztmath_test
