// The normal at a vertex, weighted over the facets that meet there.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <optional>

#include "facet/facet_util.h"
#include "frame/work_array.h"
#include "kit/vec3.h"
#include "ztmath/facet.h"

namespace ztmath {

namespace {

constexpr Module report = facet_util_module.part(2);

double triangle_area(Vec3 p, Vec3 q, Vec3 r) {
    const double a = length(q - p);
    const double b = length(r - q);
    const double c = length(p - r);
    const double s = (a + b + c) / 2.0;
    const double squared = s * (s - a) * (s - b) * (s - c);
    return squared <= 0.0 ? 0.0 : std::sqrt(squared);
}

/// The weights may overlap the distances.
void shepards_weights(int n, const double* distances, double eps, double power, double* weights) {
    int nearest = -1;
    for (int i = 0; i < n; ++i)
        if (distances[i] <= eps) nearest = i;
    if (nearest >= 0) {
        std::fill_n(weights, n, 0.0);
        weights[nearest] = 1.0;
        return;
    }
    if (n > 0) std::memmove(weights, distances, bytes_of<double>(n));
    double sum = 0.0;
    for (int i = 0; i < n; ++i) {
        weights[i] = 1.0 / (power == 1.0 ? weights[i] : std::pow(weights[i], power));
        sum += weights[i];
    }
    for (int i = 0; i < n; ++i)
        weights[i] /= sum;
}

/// What is asked for, beside the facets.
struct VertexQuery {
    int vertex_id;
    int weight_type;
    double least_area;
    double least_angle;  ///< degrees
};

constexpr int by_area = 0;
constexpr int by_angle = 1;

Vec3 corner(const FACET_facet_t& facet, int i) {
    return load3(facet.vertices[i % 3]);
}

double area_of(const FACET_facet_t& facet, double least_area) {
    const double area = triangle_area(corner(facet, 0), corner(facet, 1), corner(facet, 2));
    if (area < least_area) report.internal("Zero area facet occurred.");
    return area;
}

std::optional<double> angle_of(const FACET_facet_t& facet, const VertexQuery& query) {
    constexpr double degrees = 57.29577951308235;
    const int at =
        static_cast<int>(std::find(facet.ids, facet.ids + 3, query.vertex_id) - facet.ids);
    if (at == 3) {
        report.internal("The facet is not incident at the given vertex.");
        return std::nullopt;
    }
    const Vec3 to_previous = corner(facet, at + 2) - corner(facet, at);
    const Vec3 to_next = corner(facet, at + 1) - corner(facet, at);
    // Kept as it stands: from the previous to the next, so that corners counter-clockwise about the
    // normal have the outer angle; the weights of existing meshes depend on it.
    const double angle =
        degrees * std::fabs(angle_between(to_previous, to_next, load3(facet.normal)));
    return angle < query.least_angle ? query.least_angle : angle;
}

/// What a facet counts in proportion to, if it counts.
std::optional<double> measure_of(const FACET_facet_t& facet, const VertexQuery& query) {
    if (query.weight_type == by_area) return area_of(facet, query.least_area);
    if (query.weight_type == by_angle) return angle_of(facet, query);
    report.internal("The requested type of weights is not recognizable.");
    return std::nullopt;
}

Vec3 normal_at_vertex(int n, const FACET_facet_t* facets, const VertexQuery& query) {
    constexpr int facets_in_place = 32;
    WorkArray<double, facets_in_place> weights(n);
    WorkArray<int, facets_in_place> weighted(n);
    int count = 0;
    for (int i = 0; i < n; ++i)
        // A facet without area has the weight 0; left out, it cannot make all weights 0 / 0.
        if (const auto measure = measure_of(facets[i], query); measure && *measure != 0.0) {
            weights[count] = 1.0 / *measure;
            weighted[count] = i;
            ++count;
        }
    // Kept as it stands: the bound of areas stands for the least reciprocal too, of areas and
    // angles, so that a facet large enough decides alone.
    shepards_weights(count, weights.data(), query.least_area, 1.0, weights.data());
    Vec3 sum{};
    for (int i = 0; i < count; ++i)
        sum = sum + load3(facets[weighted[i]].normal) * weights[i];
    return unitize(sum).unit;
}

}  // namespace

}  // namespace ztmath

using namespace ztmath;

double FACET_ask_triangle_area(const double a[3], const double b[3], const double c[3]) {
    return triangle_area(load3(a), load3(b), load3(c));
}

void FACET_shepards_weights(int n, const double* distances, double eps, double power,
                            double* weights) {
    shepards_weights(n, distances, eps, power, weights);
}

void FACET_interp_normal_at_vertex(int vertex_given, int vertex_id, int n_facets,
                                   const FACET_facet_t* facets, int weight_type,
                                   const double parameters[2], double normal[3]) {
    const double tolerance = parameters[0];
    const VertexQuery query{vertex_id, weight_type, 0.5 * (tolerance * tolerance), parameters[1]};
    if (weight_type == by_angle && vertex_given == 0)
        report.internal("The common vertex is not input as expected.");
    store(normal_at_vertex(n_facets, facets, query), normal);
}
