// Matrices as tests make them, and the arithmetic that checks results.
#pragma once

#include "support/random.h"

namespace ztmath_test {

/// A matrix with its rows contiguous and pointers to them, as the interface takes either.
class Matrix {
  public:
    Matrix(int rows, int columns, std::vector<double> elements = {})
        : rows_(rows), columns_(columns), elements_(std::move(elements)) {
        elements_.resize(static_cast<std::size_t>(rows) * columns);
    }

    int rows() const { return rows_; }
    int columns() const { return columns_; }
    double& operator()(int i, int j) { return elements_[at(i, j)]; }
    double operator()(int i, int j) const { return elements_[at(i, j)]; }
    double* flat() { return elements_.data(); }
    double** pointers() {
        pointers_.resize(rows_);
        for (int i = 0; i < rows_; ++i)
            pointers_[i] = &elements_[at(i, 0)];
        return pointers_.data();
    }
    bool operator==(const Matrix& other) const { return elements_ == other.elements_; }

  private:
    std::size_t at(int i, int j) const { return static_cast<std::size_t>(i) * columns_ + j; }

    int rows_, columns_;
    std::vector<double> elements_;
    std::vector<double*> pointers_;
};

inline Matrix random_matrix(Random& random, int rows, int columns) {
    Matrix m(rows, columns);
    for (int i = 0; i < rows; ++i)
        for (int j = 0; j < columns; ++j)
            m(i, j) = random.normal();
    return m;
}

inline Matrix transposed(const Matrix& a) {
    Matrix t(a.columns(), a.rows());
    for (int i = 0; i < a.rows(); ++i)
        for (int j = 0; j < a.columns(); ++j)
            t(j, i) = a(i, j);
    return t;
}

/// The product, each element summed in extended precision.
inline Matrix operator*(const Matrix& a, const Matrix& b) {
    Matrix product(a.rows(), b.columns());
    for (int i = 0; i < a.rows(); ++i)
        for (int j = 0; j < b.columns(); ++j) {
            long double sum = 0;
            for (int k = 0; k < a.columns(); ++k)
                sum += static_cast<long double>(a(i, k)) * b(k, j);
            product(i, j) = static_cast<double>(sum);
        }
    return product;
}

inline Matrix diagonal(const std::vector<double>& values) {
    const int n = static_cast<int>(values.size());
    Matrix m(n, n);
    for (int i = 0; i < n; ++i)
        m(i, i) = values[i];
    return m;
}

inline Matrix identity(int n) {
    return diagonal(std::vector<double>(n, 1.0));
}

/// A symmetric matrix whose eigenvalues are all `least` or above.
inline Matrix random_definite(Random& random, int n, double least) {
    const Matrix r = random_matrix(random, n, n);
    Matrix m = r * transposed(r);
    for (int i = 0; i < n; ++i)
        m(i, i) += least;
    return m;
}

/// The largest absolute difference of elements; no number where one is none.
inline double distance(const Matrix& a, const Matrix& b) {
    double largest = 0.0;
    for (int i = 0; i < a.rows(); ++i)
        for (int j = 0; j < a.columns(); ++j) {
            const double difference = std::fabs(a(i, j) - b(i, j));
            if (std::isnan(difference)) return difference;
            largest = std::fmax(largest, difference);
        }
    return largest;
}

}  // namespace ztmath_test
