#include "outline.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "edge_boxes.h"
#include "number.h"

namespace tool {

namespace {

constexpr int place_digits = 7;

/// Twice the signed area of a triangle, relative to its first corner.
long double doubled_area(const double* a, const double* b, const double* c) {
    const long double x = a[0];
    const long double y = a[1];
    return (b[0] - x) * (c[1] - y) - (c[0] - x) * (b[1] - y);
}

double signed_area(const std::vector<double>& coordinates) {
    long double twice = 0.0;
    for (std::size_t i = 2; i + 3 < coordinates.size(); i += 2)
        twice += doubled_area(coordinates.data(), &coordinates[i], &coordinates[i + 2]);
    return static_cast<double>(0.5L * twice);
}

bool same_place(const double* p, const double* q) {
    return p[0] == q[0] && p[1] == q[1];
}

bool apart(double a, double b, double c, double d) {
    return std::max(a, b) < std::min(c, d) || std::max(c, d) < std::min(a, b);
}

/// Whether two edges have a point in common.
bool edges_meet(const double* a, const double* b, const double* c, const double* d) {
    if (apart(a[0], b[0], c[0], d[0]) || apart(a[1], b[1], c[1], d[1])) return false;
    const auto separates = [](const double* p, const double* q, const double* r, const double* s) {
        const long double side = doubled_area(p, q, r);
        const long double other = doubled_area(p, q, s);
        return (side > 0 && other > 0) || (side < 0 && other < 0);
    };
    return !separates(a, b, c, d) && !separates(c, d, a, b);
}

class FaultSearch {
  public:
    explicit FaultSearch(const Outline& outline)
        : outline_(outline), n_(outline.count()), boxes_(outline.coordinates) {}

    std::optional<Fault> first() const {
        for (int i = 0; i < n_; ++i) {
            if (same_place(at(i), at(i + 1))) return fault(Fault::repeated, i, i, at(i));
            if (turns_back(i)) return fault(Fault::turns_back, i, i, at(i));
        }
        for (int i = 0; i < n_; ++i) {
            const int last = i > 0 ? n_ - 1 : n_ - 2;  // the edges beside this one are left out
            const int j = boxes_.first_overlapping(i, i + 2, last, [&](int k) {
                return edges_meet(at(i), at(i + 1), at(k), at(k + 1));
            });
            if (j >= 0) return meeting(i, j);
        }
        return {};
    }

  private:
    const double* at(int i) const { return outline_.at(i % n_); }

    static Fault fault(Fault::Kind kind, int first, int second, const double* place) {
        return {kind, first, second, place[0], place[1]};
    }

    bool turns_back(int i) const {
        const double* const before = at(i + n_ - 1);
        const double* const next = at(i + 1);
        const double* const p = at(i);
        return doubled_area(p, before, next) == 0 &&
               (before[0] - p[0]) * (next[0] - p[0]) + (before[1] - p[1]) * (next[1] - p[1]) > 0;
    }

    Fault meeting(int i, int j) const {
        const long double from = doubled_area(at(j), at(j + 1), at(i));
        const long double to = doubled_area(at(j), at(j + 1), at(i + 1));
        const long double part = from != to ? from / (from - to) : 0;
        const auto along = [&](int k) {
            return static_cast<double>(at(i)[k] + part * (at(i + 1)[k] - at(i)[k]));
        };
        return {Fault::meets, i, j, along(0), along(1)};
    }

    const Outline& outline_;
    int n_;
    EdgeBoxes boxes_;
};

}  // namespace

Outline outline_of(const Points& points) {
    Outline outline;
    outline.coordinates = points.coordinates;
    outline.points.resize(points.lines.size());
    std::iota(outline.points.begin(), outline.points.end(), 0);
    outline.was_closed =
        outline.count() > 3 && same_place(outline.at(0), outline.at(outline.count() - 1));
    if (outline.was_closed) {
        outline.points.pop_back();
        outline.coordinates.resize(outline.coordinates.size() - 2);
    }
    outline.area = signed_area(outline.coordinates);
    outline.was_clockwise = outline.area < 0.0;
    if (outline.was_clockwise) {
        std::reverse(outline.points.begin(), outline.points.end());
        for (std::size_t i = 0; i < outline.points.size(); ++i)
            std::copy_n(points.at(outline.points[i]), 2, &outline.coordinates[2 * i]);
    }
    outline.area = std::fabs(outline.area);
    return outline;
}

std::optional<Fault> fault_of(const Outline& outline) {
    return FaultSearch(outline).first();
}

std::string Fault::words(const Outline& outline, const Points& points) const {
    const auto line = [&](int i) {
        const int vertex = i % outline.count();
        return std::to_string(
            points
                .lines[static_cast<std::size_t>(outline.points[static_cast<std::size_t>(vertex)])]);
    };
    const std::string place =
        " at (" + rounded(x, place_digits) + ", " + rounded(y, place_digits) + ")";
    switch (kind) {
        case repeated:
            return "the points on lines " + line(first) + " and " + line(first + 1) +
                   " are one and the same" + place;
        case turns_back:
            return "the outline turns back on itself at the point on line " + line(first) + place;
        default:
            return "the outline meets itself: the edge from line " + line(first) + " to line " +
                   line(first + 1) + " and the edge from line " + line(second) + " to line " +
                   line(second + 1) + place;
    }
}

}  // namespace tool
