// Matrices in the two forms of the interface, seen alike: m[i][j] is an element, m[i] a row.
#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>

#include "frame/lanes.h"
#include "frame/work_array.h"

namespace ztmath {

/// A flat matrix as rows.
template <class Element>
struct FlatRows {
    Element* elements;
    int columns;

    Element* operator[](int i) const { return elements + static_cast<std::ptrdiff_t>(i) * columns; }
};

template <class Element>
FlatRows(Element*, int) -> FlatRows<Element>;

template <class Rows>
void set_zero(Rows matrix, int rows, int columns) {
    for (int i = 0; i < rows; ++i)
        std::fill_n(matrix[i], std::max(columns, 0), 0.0);
}

template <class Rows>
void set_identity(Rows matrix, int n) {
    set_zero(matrix, n, n);
    for (int i = 0; i < n; ++i)
        matrix[i][i] = 1.0;
}

/// Zeroes the strict upper triangle.
template <class Rows>
void zero_upper(Rows matrix, int n) {
    for (int i = 0; i < n; ++i)
        std::fill_n(matrix[i] + i + 1, n - i - 1, 0.0);
}

/// Zeroes the strict lower triangle.
template <class Rows>
void zero_lower(Rows matrix, int n) {
    for (int i = 0; i < n; ++i)
        std::fill_n(matrix[i], i, 0.0);
}

template <class Rows>
void transpose(Rows matrix, int n) {
    for (int i = 1; i < n; ++i)
        for (int j = 0; j < i; ++j)
            std::swap(matrix[i][j], matrix[j][i]);
}

template <class Source, class Target>
void copy(Source source, int rows, int columns, Target target) {
    for (int i = 0; i < rows; ++i)
        std::copy_n(source[i], std::max(columns, 0), target[i]);
}

/// product = a b, where product shares no memory with either.
template <class A, class B, class Product>
void multiply(A a, B b, int l, int m, int n, Product product) {
    for (int i = 0; i < l; ++i) {
        double* const row = product[i];
        std::fill_n(row, std::max(n, 0), 0.0);
        for (int k = 0; k < m; ++k)
            add_scaled(row, a[i][k], b[k], n);
    }
}

}  // namespace ztmath
