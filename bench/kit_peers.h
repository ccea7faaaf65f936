// What kit_bench compares with: the same calls on Eigen, compiled into a library of their own, so
// that both sides are reached by a call that no compiler sees through.
#pragma once

extern "C" {
void eigen_multiply(const double* a, const double* b, double* r);  // r = b a
void eigen_invert_by_cofactors(const double* m, double* inverse);
void eigen_invert_by_lu(const double* m, double* inverse);
void eigen_map_point(const double* m, const double* p, double* out);
}
