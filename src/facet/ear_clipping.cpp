// Ear clipping: corners are clipped in a cyclic walk, each the first ear behind the last one.
//
// A corner that is no ear stays none until something happens to it: a corner in whose triangle
// another one lies waits until that one, its witness, is clipped; a corner that is not convex waits
// until a neighbour is. Only the others are looked at, so that the walk finds the next ear without
// passing all the corners between.
#include <algorithm>

#include "facet/facet_util.h"
#include "facet/index_set.h"
#include "facet/run_boxes.h"
#include "frame/work_array.h"
#include "kit/vec3.h"
#include "ztmath/facet.h"

namespace ztmath {

namespace {

constexpr Module report = facet_util_module.part(1);
constexpr double pi = 3.14159265358979323846;

/// The polygon's points, and their places in its plane, which boxes hold. Areas are taken from the
/// points; the places only tell which of them cannot matter.
class PlanePolygon {
  public:
    PlanePolygon(int n, const double* points, Vec3 normal)
        : points_(n), places_(n), normal_(normal), is_upright_(normal.x == 0.0 && normal.y == 0.0) {
        Vec3 u{normal.z < 0.0 ? -1.0 : 1.0, 0.0, 0.0};
        Vec3 v{0.0, 1.0, 0.0};
        if (!is_upright_ && is_finite(normal)) {
            const Vec3 unit = unitize_unchecked(normal, 0.0).unit;
            u = unitize(perpendicular(unit)).unit;
            v = cross(unit, u);
        }
        Box2 whole = empty_box;
        // Copies, since results may be written over what was passed.
        for (std::ptrdiff_t i = 0; i < n; ++i) {
            points_[i] = load3(points + 3 * i);
            places_[i] = {dot(u, points_[i]), dot(v, points_[i])};
            expand(whole, places_[i]);
        }
        const Vec2 farthest = span(whole, {0.0, 0.0});
        const Vec2 extent = whole.high - whole.low;
        reach_ = farthest.x + farthest.y;
        rounding_ = is_upright_ ? 0.0 : 2.0e-14 * reach_ * (extent.x + extent.y);
    }

    Vec3 normal() const { return normal_; }
    Vec3 point(int i) const { return points_[i]; }
    Vec2 place(int i) const { return places_[i]; }

    /// Whether places are exact, so that areas are monotone in them.
    bool is_upright() const { return is_upright_; }

    /// No place is farther from the origin.
    double reach() const { return reach_; }

    /// By how much twice the area of a triangle may differ from that of its places.
    double rounding() const { return rounding_; }

  private:
    SmArray<Vec3> points_;
    SmArray<Vec2> places_;
    Vec3 normal_;
    bool is_upright_;
    double reach_, rounding_;
};

/// The triangle of a corner.
class CornerTriangle {
  public:
    CornerTriangle(const PlanePolygon& polygon, int a, int b, int c)
        : corners_{polygon.point(a), polygon.point(b), polygon.point(c)},
          edges_{{polygon.place(a), polygon.place(b)},
                 {polygon.place(b), polygon.place(c)},
                 {polygon.place(c), polygon.place(a)}},
          normal_(polygon.normal()),
          around_(empty_box),
          rounding_(polygon.rounding()) {
        for (const Edge& edge : edges_)
            expand(around_, edge.from);
        const Vec2 extent = around_.high - around_.low;
        const double size = extent.x + extent.y;
        const double scale = polygon.is_upright() ? size : polygon.reach();
        // Of a sliver, rounding may put points inside that lie anywhere along it.
        const double area = cross(edges_[2].way, edges_[0].way);
        const double margin = area > 1.0e-10 * scale * size ? 1.0e-3 * size : HUGE_VAL;
        around_.low = around_.low - Vec2{margin, margin};
        around_.high = around_.high + Vec2{margin, margin};
    }

    /// Whether the triangles that a point makes with the edges all have positive areas.
    bool holds(Vec3 p, Vec2 place) const {
        return meet({place, place}, around_) && is_left(corners_[0], corners_[1], p) &&
               is_left(corners_[1], corners_[2], p) && is_left(corners_[2], corners_[0], p);
    }

    /// Whether it holds no point whose place is in the box.
    bool excludes(const Box2& box) const {
        return !meet(box, around_) ||
               !(std::min({most_left(edges_[0], box), most_left(edges_[1], box),
                           most_left(edges_[2], box)}) > -rounding_);
    }

  private:
    /// An edge between places.
    struct Edge {
        Edge(Vec2 start, Vec2 end) : from(start), way(end - start), extremes(way) {}

        Vec2 from, way;
        Extremes extremes;
    };

    /// Twice the largest area of a triangle to the left of the edge that ends in the box.
    static double most_left(const Edge& edge, const Box2& box) {
        return cross(edge.way, edge.extremes.leftmost(box) - edge.from);
    }

    bool is_left(Vec3 a, Vec3 b, Vec3 p) const { return dot(cross(b - a, p - a), normal_) > 0.0; }

    Vec3 corners_[3];
    Edge edges_[3];
    Vec3 normal_;
    Box2 around_;
    double rounding_;
};

class EarClipping {
  public:
    EarClipping(int n, const double* points, Vec3 normal, int* triangles)
        : n_(n),
          polygon_(n, points, normal),
          out_(triangles),
          remaining_(n),
          boxes_(
              n, [this](int i) { return polygon_.place(i); }, false),
          open_(n),
          corners_(n) {
        for (int i = 0; i < n; ++i)
            corners_[i] = {i > 0 ? i - 1 : n - 1, i + 1 < n ? i + 1 : 0, none, none, none, none, 0};
        for (int i = 0; i < n; ++i)
            look_again(i);
    }

    /// Clips all corners but two; the number of triangles.
    int clip_all() {
        int at = 0;
        while (remaining_ > 2) {
            all_convex_ |= reflex_ == 0;
            at = clip(all_convex_ ? at : next_ear(at));
        }
        return made_;
    }

  private:
    static constexpr int none = -1;

    struct Corner {
        int previous, next;
        int witness;        // a corner inside its triangle, if that is why it waits
        int first_waiting;  // the corners whose witness this one is, as a list
        int next_waiting, previous_waiting;
        int is_reflex;
    };

    Vec3 point(int i) const { return polygon_.point(i); }

    /// The first ear from a position on. The last position is taken unseen.
    int next_ear(int start) {
        const int last = corners_[start].previous;
        for (int at = next_open(start); at != none && at != last; at = next_open(at)) {
            const int witness = corner_inside(at);
            if (witness == none) return at;
            wait_for(at, witness);
        }
        return last;
    }

    /// The open corner at a position or behind it, going round.
    int next_open(int at) const {
        const int i = open_.next(at);
        return i >= 0 ? i : open_.next(0);
    }

    /// Clips a corner; the position behind it.
    int clip(int at) {
        const Corner corner = corners_[at];
        append(corner.previous, at, corner.next);
        remove(at);
        if (!all_convex_) {
            look_again(corner.previous);
            look_again(corner.next);
        }
        return corner.next;
    }

    void append(int a, int b, int c) {
        ZTMATH_ASSERT(report, "n_triangles < n_original_vertices - 2", remaining_ > 2);
        int* const triangle = out_ + 3 * static_cast<std::ptrdiff_t>(made_++);
        triangle[0] = a;
        triangle[1] = b;
        triangle[2] = c;
    }

    void remove(int at) {
        Corner& corner = corners_[at];
        corners_[corner.previous].next = corner.next;
        corners_[corner.next].previous = corner.previous;
        corner.next = none;
        --remaining_;
        if (all_convex_) return;
        reflex_ -= corner.is_reflex;
        stop_waiting(at);
        open_.erase(at);
        while (corner.first_waiting != none) {
            const int waiting = corner.first_waiting;
            stop_waiting(waiting);
            open_.insert(waiting);
        }
        boxes_.shrink_around(
            at, [this](int i) { return polygon_.place(i); },
            [this](int i) { return corners_[i].next != none; });
    }

    /// A corner whose neighbours have changed.
    void look_again(int at) {
        Corner& corner = corners_[at];
        const Vec3 previous = point(corner.previous);
        const bool convex = is_convex(previous - point(at), previous - point(corner.next));
        reflex_ += (convex ? 0 : 1) - corner.is_reflex;
        corner.is_reflex = convex ? 0 : 1;
        stop_waiting(at);
        if (convex)
            open_.insert(at);
        else
            open_.erase(at);
    }

    /// Whether a vector of that squared length has a direction, and finite components.
    static bool is_unremarkable(double squared) { return squared > 1.0e-19 && squared < 1.0e37; }

    /// Whether the angle from one vector to another, about the normal, is at most 180 degrees. It
    /// is measured only where the sign of the sine may be in doubt.
    bool is_convex(Vec3 from, Vec3 to) const {
        const double from_squared = length_squared(from);
        const double to_squared = length_squared(to);
        const double sine = dot(cross(from, to), polygon_.normal());
        const double most = from_squared * to_squared * length_squared(polygon_.normal());
        if (is_unremarkable(from_squared) && is_unremarkable(to_squared) &&
            sine * sine > 1.0e-10 * most)
            return sine > 0.0;
        return angle_between(from, to, polygon_.normal()) <= pi;
    }

    void wait_for(int at, int witness) {
        open_.erase(at);
        const int first = corners_[witness].first_waiting;
        corners_[at].witness = witness;
        corners_[at].next_waiting = first;
        corners_[at].previous_waiting = none;
        if (first != none) corners_[first].previous_waiting = at;
        corners_[witness].first_waiting = at;
    }

    void stop_waiting(int at) {
        Corner& corner = corners_[at];
        if (corner.witness == none) return;
        if (corner.previous_waiting != none)
            corners_[corner.previous_waiting].next_waiting = corner.next_waiting;
        else
            corners_[corner.witness].first_waiting = corner.next_waiting;
        if (corner.next_waiting != none)
            corners_[corner.next_waiting].previous_waiting = corner.previous_waiting;
        corner.witness = none;
    }

    /// A remaining corner strictly inside the triangle of another one.
    int corner_inside(int at) {
        const int before = corners_[at].previous;
        const int behind = corners_[at].next;
        const CornerTriangle triangle(polygon_, before, at, behind);
        return boxes_.first_of(
            0, n_ - 1, [&](std::ptrdiff_t run) { return triangle.excludes(boxes_[run]); },
            [&](int i) {
                return corners_[i].next != none && i != at && i != before && i != behind &&
                       triangle.holds(point(i), polygon_.place(i));
            });
    }

    int n_;
    PlanePolygon polygon_;
    int* out_;
    int made_ = 0;
    int remaining_;
    int reflex_ = 0;
    bool all_convex_ = false;  // once entered, this state is kept
    RunBoxes boxes_;
    IndexSet open_;  // the convex corners without a known witness
    SmArray<Corner> corners_;
};

}  // namespace

}  // namespace ztmath

using namespace ztmath;

void FACET_ask_triangles_of_polygon(int n, const double* points, const double normal[3],
                                    int* triangles) {
    int made = 0;
    if (n == 3) {
        for (made = 0; made < 3; ++made)
            triangles[made] = made;
        return;
    }
    if (n > 3) made = EarClipping(n, points, load3(normal), triangles).clip_all();
    ZTMATH_ASSERT(report, "n_triangles == n_original_vertices - 2", made == n - 2);
}
