// The compact vector kit: 3x3 systems by Cramer's rule, and the line and plane that make one.
#include <cmath>
#include <cstdio>

#include "kit/mc_math.h"
#include "ztmath/mc.h"

using namespace ztmath;

namespace {

constexpr Module report = mc_math_module.part(2);

/// A row of the system: coefficients and right-hand side.
struct Equation {
    Vec3 coefficients;
    double value;
};

/// The system by columns, the form in which Cramer's rule puts the right-hand side in their place.
struct System {
    Vec3 x, y, z, values;
};

System system_of(const Equation& a, const Equation& b, const Equation& c) {
    return {{a.coefficients.x, b.coefficients.x, c.coefficients.x},
            {a.coefficients.y, b.coefficients.y, c.coefficients.y},
            {a.coefficients.z, b.coefficients.z, c.coefficients.z},
            {a.value, b.value, c.value}};
}

Equation load_equation(const double* p) {
    return {load3(p), p[3]};
}

System load_system(const double* p) {
    return system_of(load_equation(p), load_equation(p + 4), load_equation(p + 8));
}

/// The determinant of three columns by the rule of Sarrus, its terms in this order.
double determinant(Vec3 x, Vec3 y, Vec3 z) {
    return x.x * y.y * z.z + y.x * z.y * x.z + z.x * x.y * y.z - x.z * y.y * z.x - y.z * z.y * x.x -
           z.z * x.y * y.x;
}

/// A singular system is reported, and divided by its determinant all the same.
Vec3 solve(const System& s) {
    constexpr double singular = 1.0e-8;
    const double d = determinant(s.x, s.y, s.z);
    if (std::fabs(d) < singular) {
        std::fputs("\nERROR: zero determinant in 3 by 3 system\n", stdout);
        report.raise(mc_reason, "zero determinant in linear system");
    }
    return {determinant(s.values, s.y, s.z) / d, determinant(s.x, s.values, s.z) / d,
            determinant(s.x, s.y, s.values) / d};
}

/// The component of largest absolute value, the first one of equals.
int dominant_component(Vec3 v) {
    const double x = std::fabs(v.x);
    const double y = std::fabs(v.y);
    const double z = std::fabs(v.z);
    const int of_x_and_y = y > x ? 1 : 0;
    return z > (of_x_and_y == 1 ? y : x) ? 2 : of_x_and_y;
}

/// The plane, and two planes through the line that its dominant component keeps apart.
System line_and_plane(Vec3 e, Vec3 p, const Equation& plane) {
    const Equation across_x{{0.0, e.z, -e.y}, e.z * p.y - e.y * p.z};
    const Equation across_y{{-e.z, 0.0, e.x}, e.x * p.z - e.z * p.x};
    const Equation across_z{{e.y, -e.x, 0.0}, e.y * p.x - e.x * p.y};
    switch (dominant_component(e)) {
        case 0:
            return system_of(plane, across_y, across_z);
        case 1:
            return system_of(plane, across_x, across_z);
        default:
            return system_of(plane, across_x, across_y);
    }
}

}  // namespace

double MC_determinant(const double system[12]) {
    const System s = load_system(system);
    return determinant(s.x, s.y, s.z);
}

void MC_solve_3(const double system[12], double x[3]) {
    store(solve(load_system(system)), x);
}

void MC_axis_plane_x(const double direction[3], const double point[3], const double normal[3],
                     double d, double out[3]) {
    store(solve(line_and_plane(load3(direction), load3(point), {load3(normal), d})), out);
}
