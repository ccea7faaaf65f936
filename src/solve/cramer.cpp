// Cramer's rule.
#include "frame/mat3.h"
#include "ztmath/solve.h"

using namespace ztmath;

int SOLVE_solve_3equations(const double a[9], const double b[3], double x[3]) {
    const auto [r, s, t] = load_mat3(a);
    const double cofactor_r = s.y * t.z - t.y * s.z;
    const double cofactor_s = r.y * t.z - t.y * r.z;
    const double cofactor_t = r.y * s.z - s.y * r.z;
    const double det = r.x * cofactor_r - s.x * cofactor_s + t.x * cofactor_t;
    if (det == 0.0) return 1;

    const Vec3 adjugate_x{cofactor_r, -cofactor_s, cofactor_t};
    const Vec3 adjugate_y{s.z * t.x - s.x * t.z, r.x * t.z - r.z * t.x, r.z * s.x - r.x * s.z};
    const Vec3 adjugate_z{s.x * t.y - s.y * t.x, r.y * t.x - r.x * t.y, r.x * s.y - r.y * s.x};
    const Vec3 rhs = load3(b);
    store(Vec3{dot(adjugate_x, rhs) / det, dot(adjugate_y, rhs) / det, dot(adjugate_z, rhs) / det},
          x);
    return 0;
}
