// Simple polygons for tests and benchmarks: x and y of each vertex, counter-clockwise. What looks
// random is drawn from a seed, the same on every machine.
#pragma once

#include "support/prelude.h"

namespace ztmath_test {

using Polygon = std::vector<double>;

inline int vertex_count(const Polygon& p) {
    return static_cast<int>(p.size() / 2);
}

/// Numbers in [0, 1): a linear congruence, its upper bits.
class Draws {
  public:
    explicit Draws(std::uint64_t seed) : state_(seed * 2 + 1) {}
    double operator()() {
        state_ = state_ * 6364136223846793005U + 1442695040888963407U;
        return static_cast<double>(state_ >> 11) * 0x1p-53;
    }

  private:
    std::uint64_t state_;
};

inline void add_polar(Polygon& p, double radius, double angle) {
    p.insert(p.end(), {radius * std::cos(angle), radius * std::sin(angle)});
}

/// An ellipse; a circle where all vertices tie.
inline Polygon convex_polygon(int n, double across = 600.0) {
    Polygon p;
    for (int i = 0; i < n; ++i)
        p.insert(p.end(),
                 {1000.0 * std::cos(2 * M_PI * i / n), across * std::sin(2 * M_PI * i / n)});
    return p;
}

/// Spikes of any length around a centre.
inline Polygon star_polygon(int n, std::uint64_t seed) {
    Draws draw(seed);
    Polygon p;
    for (int i = 0; i < n; ++i)
        add_polar(p, 1000.0 * (0.3 + 0.7 * draw()), 2 * M_PI * i / n);
    return p;
}

/// Two ragged banks of a band along the x axis.
inline Polygon monotone_polygon(int n, std::uint64_t seed) {
    Draws draw(seed);
    const int half = n / 2;
    Polygon p;
    for (int i = 0; i < half; ++i)
        p.insert(p.end(), {i + 0.9 * draw(), -1.0 - 20.0 * draw()});
    for (int i = n - half - 1; i >= 0; --i)
        p.insert(p.end(), {i + 0.9 * draw(), 1.0 + 20.0 * draw()});
    return p;
}

/// Teeth of a height upon a back of one edge.
inline Polygon comb_polygon(int n, double height) {
    const int teeth = std::max(1, (n - 2) / 4);
    Polygon p{0.0, 0.0, 1.0 * teeth, 0.0};
    for (int i = teeth - 1; i >= 0; --i)
        p.insert(p.end(), {i + 0.9, 1.0, i + 0.8, height, i + 0.3, height, i + 0.1, 1.0});
    return p;
}

/// A corridor that winds around a centre.
inline Polygon spiral_polygon(int n) {
    const int half = n / 2;
    const double turns = 1.0 + std::sqrt(n) / 8.0;
    Polygon p;
    const auto add_wall = [&](int i, double offset) {
        const double angle = 2 * M_PI * turns * std::sqrt(static_cast<double>(i) / half + 0.01);
        add_polar(p, 10.0 * angle + offset, angle);
    };
    for (int i = 0; i < half; ++i)
        add_wall(i, 25.0);
    for (int i = half - 1; i >= 0; --i)
        add_wall(i, -5.0);
    return p;
}

inline Polygon turned(Polygon p, double angle) {
    for (std::size_t i = 0; i < p.size(); i += 2) {
        const double x = p[i], y = p[i + 1];
        p[i] = x * std::cos(angle) - y * std::sin(angle);
        p[i + 1] = x * std::sin(angle) + y * std::cos(angle);
    }
    return p;
}

/// Every coordinate rounded to a multiple of the step: collinear runs, ties, and vertices that may
/// fall together.
inline Polygon snapped(Polygon p, double step) {
    for (double& x : p)
        x = step * std::round(x / step);
    return p;
}

/// The polygon with at least n vertices: edges are halved, and their middles moved a little.
inline Polygon densified(Polygon p, int n) {
    Draws draw(1);
    while (vertex_count(p) < n) {
        const int before = vertex_count(p);
        Polygon finer;
        for (int i = 0; i < before; ++i) {
            const double* const a = &p[2 * static_cast<std::size_t>(i)];
            const double* const b = &p[2 * static_cast<std::size_t>((i + 1) % before)];
            finer.insert(finer.end(), {a[0], a[1]});
            if (vertex_count(finer) - i > n - before + 1) continue;
            const double along = 0.4 + 0.2 * draw();
            const double across = 0.001 * (draw() - 0.5);
            const double x = b[0] - a[0];
            const double y = b[1] - a[1];
            finer.insert(finer.end(),
                         {a[0] + along * x - across * y, a[1] + along * y + across * x});
        }
        p = finer;
    }
    return p;
}

inline Polygon reversed(const Polygon& p) {
    Polygon r;
    for (std::size_t i = p.size(); i >= 2; i -= 2)
        r.insert(r.end(), {p[i - 2], p[i - 1]});
    return r;
}

inline double doubled_area(const Polygon& p) {
    long double sum = 0;
    for (std::size_t i = 2; i + 3 < p.size(); i += 2)
        sum += static_cast<long double>(p[i] - p[0]) * (p[i + 3] - p[1]) -
               static_cast<long double>(p[i + 2] - p[0]) * (p[i + 1] - p[1]);
    return static_cast<double>(sum);
}

/// Of the triangle of three of its vertices.
inline double doubled_area(const Polygon& p, const int corners[3]) {
    Polygon triangle;
    for (int k = 0; k < 3; ++k) {
        const auto i = 2 * static_cast<std::size_t>(corners[k]);
        triangle.insert(triangle.end(), {p[i], p[i + 1]});
    }
    return doubled_area(triangle);
}

}  // namespace ztmath_test
