// Helpers on matrices in both forms.
#include "solve/matrix.h"

#include "ztmath/nr.h"

using namespace ztmath;

namespace {

/// Copies by way of work memory, so that source and target may overlap in any way.
template <class Source, class Target>
void copy_overlapping(Source source, int rows, int columns, Target target) {
    WorkArray<double, 64> elements(element_count(rows, columns));
    const FlatRows between{elements.data(), columns};
    copy(source, rows, columns, between);
    copy(between, rows, columns, target);
}

/// Multiplies by way of work memory, so that the product may overlap its factors.
template <class A, class B, class Product>
void multiply_overlapping(A a, B b, int l, int m, int n, Product product) {
    WorkArray<double, 64> elements(element_count(l, n));
    const FlatRows result{elements.data(), n};
    multiply(a, b, l, m, n, result);
    copy(result, l, n, product);
}

}  // namespace

double** NR_2d_matrix_allo(int rows, int cols, double** block) {
    SmArray<double*> pointers(rows);
    if (*block == nullptr) *block = SmArray<double>(element_count(rows, cols)).release();
    const FlatRows matrix{*block, std::max(cols, 0)};
    for (int i = 0; i < rows; ++i)
        pointers[i] = matrix[i];
    return pointers.release();
}

void NR_matrix_copy_1d_to_2d(const double* source, int rows, int cols, double** target) {
    copy_overlapping(FlatRows{source, cols}, rows, cols, target);
}

void NR_matrix_copy_2d_to_1d(double** source, int rows, int cols, double* target) {
    copy_overlapping(source, rows, cols, FlatRows{target, cols});
}

void NR_2d_matrix_identity(double** matrix, int n) {
    set_identity(matrix, n);
}

void NR_2d_matrix_init_zero(double** matrix, int rows, int cols) {
    set_zero(matrix, rows, cols);
}

void NR_2d_matrix_nxn_transp(double** matrix, int n) {
    transpose(matrix, n);
}

void NR_2d_matrix_product_of_2(double** a, double** b, int l, int m, int n, double** product) {
    multiply_overlapping(a, b, l, m, n, product);
}

void NR_matrix_2d_as_1d_identity(double* matrix, int n) {
    set_identity(FlatRows{matrix, n}, n);
}

void NR_matrix_2d_as_1d_init_zero(double* matrix, int rows, int cols) {
    set_zero(FlatRows{matrix, cols}, rows, cols);
}

void NR_matrix_2d_as_1d_init_zero_ut(double* matrix, int n) {
    zero_upper(FlatRows{matrix, n}, n);
}

void NR_matrix_2d_as_1d_init_zero_lt(double* matrix, int n) {
    zero_lower(FlatRows{matrix, n}, n);
}

void NR_matrix_2d_as_1d_nxn_transp(double* matrix, int n) {
    transpose(FlatRows{matrix, n}, n);
}

void NR_matrix_2d_as_1d_product_of_2(double* a, double* b, int l, int m, int n, double* product) {
    multiply_overlapping(FlatRows{a, m}, FlatRows{b, n}, l, m, n, FlatRows{product, n});
}
