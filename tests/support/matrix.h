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
    auto begin() const { return elements_.begin(); }
    auto end() const { return elements_.end(); }
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

/// The matrix whose elements a function of row and column gives, row after row.
template <class Element>
Matrix made_of(int rows, int columns, Element element) {
    Matrix m(rows, columns);
    for (int i = 0; i < rows; ++i)
        for (int j = 0; j < columns; ++j)
            m(i, j) = element(i, j);
    return m;
}

inline Matrix random_matrix(Random& random, int rows, int columns) {
    return made_of(rows, columns, [&](int, int) { return random.normal(); });
}

inline Matrix transposed(const Matrix& a) {
    return made_of(a.columns(), a.rows(), [&](int i, int j) { return a(j, i); });
}

/// The product, each element summed in extended precision.
inline Matrix operator*(const Matrix& a, const Matrix& b) {
    return made_of(a.rows(), b.columns(), [&](int i, int j) {
        long double sum = 0;
        for (int k = 0; k < a.columns(); ++k)
            sum += static_cast<long double>(a(i, k)) * b(k, j);
        return static_cast<double>(sum);
    });
}

inline Matrix diagonal(const std::vector<double>& values) {
    const int n = static_cast<int>(values.size());
    return made_of(n, n, [&](int i, int j) { return i == j ? values[i] : 0.0; });
}

inline Matrix identity(int n) {
    return diagonal(std::vector<double>(n, 1.0));
}

/// A symmetric matrix whose eigenvalues are all `least` or above.
inline Matrix random_definite(Random& random, int n, double least) {
    const Matrix r = random_matrix(random, n, n), m = r * transposed(r);
    return made_of(n, n, [&](int i, int j) { return m(i, j) + (i == j ? least : 0.0); });
}

/// The largest absolute difference of elements; no number where one is none.
inline double distance(const Matrix& a, const Matrix& b) {
    const auto apart = [](double x, double y) { return std::fabs(x - y); };
    const auto larger = [](double x, double y) { return std::isnan(x) || x > y ? x : y; };
    return std::inner_product(a.begin(), a.end(), b.begin(), 0.0, larger, apart);
}

}  // namespace ztmath_test
