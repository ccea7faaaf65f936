// Polygons of any points: filled, and clipped ear by ear.
#include <vector>

#include "fuzz.h"
#include "ztmath/facet.h"
#include "ztmath/ptf.h"

namespace {

void require_triangles(int n, const PTF_triangle_t* triangles, int count) {
    fuzz::require(count == n - 2, "a filled polygon has n - 2 triangles");
    for (int t = 0; t < count; ++t) {
        const int corners[] = {triangles[t].a, triangles[t].b, triangles[t].c};
        const int across[] = {triangles[t].across_bc, triangles[t].across_ca,
                              triangles[t].across_ab};
        for (const int corner : corners)
            fuzz::require(corner >= 0 && corner < n, "corners are vertices");
        for (const int other : across) {
            fuzz::require(other >= -1 && other < count, "neighbours are triangles");
            if (other < 0) continue;
            const PTF_triangle_t& o = triangles[other];
            fuzz::require(o.across_bc == t || o.across_ca == t || o.across_ab == t,
                          "neighbours know each other");
        }
    }
}

}  // namespace

void fuzz::run(Bytes& bytes) {
    const int n = bytes.integer(0, 120);
    const bool on_grid = bytes.flag();
    std::vector<double> points(static_cast<std::size_t>(std::max(n, 1)) * 3);
    std::generate(points.begin(), points.end(),
                  [&] { return on_grid ? bytes.integer(0, 15) : bytes.number(); });

    int count = 0;
    PTF_triangle_t* triangles = nullptr;
    PTF_vertex_edge_t* edges = nullptr;
    PTF_neighbor_list_t* lists = nullptr;
    const int status = PTF_poly_tri_fill(n, points.data(), &count, &triangles, &edges, &lists);
    require(PTF_validate_boundary(n, points.data()) == (status == 0), "validation is a fill");
    require((status == 0) == (triangles != nullptr), "a fill that fails hands nothing out");
    if (status == 0) require_triangles(n, triangles, count);
    PTF_free_output(n, triangles, lists, edges);

    if (n < 3) return;
    const double normal[] = {0.0, 0.0, 1.0};
    std::vector<int> ears(3 * static_cast<std::size_t>(n - 2), 0);
    FACET_ask_triangles_of_polygon(n, points.data(), normal, ears.data());
    for (const int corner : ears)
        require(corner >= 0 && corner < n, "corners of ears are vertices");
}
