// The triangle fill: a polygon is split by the triangle on its base edge, the edge from its last
// vertex to its first, and the two parts beside that triangle are filled in the same way.
//
// A part is a run of consecutive vertices, its base edge a diagonal of the whole. A part of m
// vertices takes m - 2 triangles, so the places of all its triangles are known when it is cut off,
// and the parts can be filled in any order: the smaller one first, so that few are ever waiting.
#include "facet/apex_search.h"
#include "facet/poly_tri_fill.h"
#include "facet/small_part.h"

namespace ztmath {

namespace {

/// A part of the polygon that is still to be filled.
struct Part {
    int first, last;  // its vertices
    int triangle;     // the place of its first triangle
    int parent;       // the triangle on the other side of its base edge, or -1

    int size() const { return last - first + 1; }
};

/// Parts that wait. Each is at least as large as all that come after it together, so that as many
/// as a number has bits is enough.
class WaitingParts {
  public:
    bool empty() const { return count_ == 0; }
    void push(const Part& part) { parts_[count_++] = part; }
    Part pop() { return parts_[--count_]; }

  private:
    Part parts_[40];
    int count_ = 0;
};

/// The part that a triangle with the apex leaves on one side, if it leaves one.
bool is_part(int first, int last) {
    return last - first > 1;
}

bool three_make_triangle(const Outline& outline, int first) {
    return !BaseEdge(outline.point(first), outline.point(first + 1))
                .rejects(outline.point(first + 2));
}

}  // namespace

bool fill_polygon(int n, const double* points, PTF_triangle_t* triangles) {
    Outline outline(n, points);
    const bool wide_lanes = has_wide_lanes();
    WaitingParts waiting;
    waiting.push({0, n - 1, 0, -1});
    while (!waiting.empty()) {
        const Part part = waiting.pop();
        const auto [first, last, t, parent] = part;
        ZTMATH_ASSERT(ptf_module, "(*itri) < num_tris", t < n - 2);
        int k = first + 1;
        if (part.size() == 3) {
            if (!three_make_triangle(outline, first)) return false;
        } else {
            k = part.size() <= most_of_small_part
                    ? apex_of_small_part(outline, first, last, wide_lanes)
                    : ApexSearch(outline, first, last).apex();
            if (k < 0) return false;
        }
        const Part left{first, k, t + 1, t};
        const Part right{k, last, t + k - first, t};
        const bool has_left = is_part(first, k);
        const bool has_right = is_part(k, last);
        triangles[t] = {
            last, first, k, has_left ? left.triangle : -1, has_right ? right.triangle : -1, parent};
        const bool left_waits = left.size() > right.size();
        if (left_waits && has_left) waiting.push(left);
        if (has_right) waiting.push(right);
        if (!left_waits && has_left) waiting.push(left);
    }
    return true;
}

}  // namespace ztmath
