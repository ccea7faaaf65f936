#include "arc_spline/tangent_circle.h"

#include <algorithm>
#include <cmath>

#include "arc_spline/plane.h"
#include "ztmath/solve.h"

namespace ztmath {

namespace {

/// The frame of the data: the first circle's centre as origin, their extent as unit.
struct DataFrame {
    Vec2 origin;
    double unit;

    Touching inwards(const Touching& t) const {
        return {{(t.circle.center - origin) * (1.0 / unit), t.circle.radius / unit}, t.inside};
    }
    Circle outwards(const Circle& c) const { return {origin + c.center * unit, c.radius * unit}; }
};

DataFrame frame_of(const Touching (&three)[3]) {
    const Vec2 origin = three[0].circle.center;
    double extent = 0.0;
    for (const Touching& t : three)
        extent = std::max(extent, length(t.circle.center - origin) + t.circle.radius);
    return {origin, extent};
}

/// The plane that holds what the cone of `t` has in common with that of the first, whose centre is
/// the origin.
MongePlane common_plane(const Touching& first, const Touching& t) {
    const double difference = t.excess() - first.excess();
    const double sum = t.excess() + first.excess();
    const Vec2 c = t.circle.center;
    return {{c.x, c.y, difference}, (difference * sum - length_squared(c)) * 0.5, 0};
}

/// The product of vectors for which cones around the origin are null.
double cone_product(Vec3 u, Vec3 v) {
    return u.x * v.x + u.y * v.y - u.z * v.z;
}

/// Parameters of a line; one at infinity is left out. Doubtful ones are so close to one another
/// that rounding may have made them of one.
struct Roots {
    int count;
    double t[2];
    bool are_doubtful;
};

/// Where a line of space meets the cone around the origin: at the roots of a t^2 + 2 b t + c. Terms
/// that cancel leave their rounding behind, the more the flatter the planes of the line cross; it
/// could make two roots, or none, of the one that circles have that touch one another.
Roots meet_cone(const CommonLine& line, double excess) {
    constexpr double rounding = 4.0e-15;
    const Vec3 d = line.direction;
    const Vec3 p{line.point.x, line.point.y, line.point.z + excess};
    const double reach = length(line.point) + std::fabs(excess);
    const double a = cone_product(d, d);
    const double b = cone_product(p, d);
    const double c = cone_product(p, p);
    if (std::fabs(a) <= rounding)
        return {std::fabs(b) > rounding * reach ? 1 : 0, {c / (-2.0 * b), 0.0}, false};
    const double discriminant = b * b - a * c;
    const double doubt = rounding * reach * reach / line.sine;
    if (!(discriminant >= -doubt)) return {0, {}, false};
    if (!(discriminant > 0.0)) return {1, {-b / a, 0.0}, false};
    const double root = std::sqrt(discriminant);
    const double q = b > 0.0 ? -b - root : root - b;
    return {2, {q / a, c / q}, discriminant <= doubt};
}

double worst_gap(const Circle& c, const Touching (&three)[3]) {
    return std::max(
        {std::fabs(gap(c, three[0])), std::fabs(gap(c, three[1])), std::fabs(gap(c, three[2]))});
}

/// One step of Newton's method on the gaps; the circle itself where there is none. About the centre
/// of one of the three all ways are alike, and the step is no number.
Circle stepped(const Circle& c, const Touching (&three)[3]) {
    double slopes[9];
    double gaps[3];
    double step[3];
    for (std::size_t i = 0; i < 3; ++i) {
        const Vec2 way = c.center - three[i].circle.center;
        const double distance = length(way);
        const bool shrinks = c.radius + three[i].excess() < 0.0;
        store(Vec3{way.x / distance, way.y / distance, shrinks ? 1.0 : -1.0}, slopes + 3 * i);
        gaps[i] = gap(c, three[i]);
    }
    if (SOLVE_solve_3equations(slopes, gaps, step) != 0) return c;
    return {c.center - Vec2{step[0], step[1]}, c.radius - step[2]};
}

/// Improved until the gaps no longer shrink.
Circle refined(Circle c, const Touching (&three)[3]) {
    constexpr int most_steps = 8;
    double worst = worst_gap(c, three);
    for (int i = 0; i < most_steps && worst > 0.0; ++i) {
        const Circle next = stepped(c, three);
        const double next_worst = worst_gap(next, three);
        if (!(next_worst < worst)) break;
        c = next;
        worst = next_worst;
    }
    return c;
}

bool touches_within(double gap, const Circle& c, const Touching (&three)[3]) {
    return worst_gap(c, three) <= gap * std::fmax(1.0, c.radius);
}

/// Where the view has too few digits left to start from, what is found touches nothing.
bool touches(const Circle& c, const Touching (&three)[3]) {
    return touches_within(1.0e-12, c, three);
}

/// Two circles are one if that in their middle touches as well as numbers can tell.
void unite(TwoCircles& found, const Touching (&three)[3]) {
    const auto& [a, b] = found.circles;
    const Circle middle{(a.center + b.center) * 0.5, (a.radius + b.radius) * 0.5};
    if (touches_within(1.0e-14, middle, three)) found = {1, {middle, {}}};
}

}  // namespace

double gap(const Circle& c, const Touching& touched) {
    return length(c.center - touched.circle.center) - std::fabs(c.radius + touched.excess());
}

TwoCircles circles_touching(const Touching (&three)[3]) {
    constexpr double parallel_sine = 1.0e-13;
    const DataFrame frame = frame_of(three);
    const Touching local[3] = {frame.inwards(three[0]), frame.inwards(three[1]),
                               frame.inwards(three[2])};
    const CommonLine line = common_line(common_plane(local[0], local[1]),
                                        common_plane(local[0], local[2]), parallel_sine, 0.0);
    TwoCircles found{0, {}};
    if (line.status != one_line) return found;
    const Roots roots = meet_cone(line, local[0].excess());
    for (int i = 0; i < roots.count; ++i) {
        const Vec3 p = line.point + line.direction * roots.t[i];
        const Circle circle = refined({{p.x, p.y}, p.z}, local);
        if (circle.radius > 0.0 && touches(circle, local)) found.circles[found.count++] = circle;
    }
    if (roots.are_doubtful && found.count == 2) unite(found, local);
    for (Circle& circle : found.circles)
        circle = frame.outwards(circle);
    return found;
}

}  // namespace ztmath
