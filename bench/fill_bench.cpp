// Triangles of polygons, against CGAL's constrained Delaunay triangulation of the whole hull, its
// vertices inserted in spatial order as its manual advises, against ear clipping by Mapbox's
// earcut, which comes as a module for Python (calling it takes some microseconds), and against the
// sweep of libtess2 in single precision. Maps are outlines of countries as they are; beyond the
// largest one's 20,028 vertices its edges are divided to the size asked for.
#include <CGAL/Constrained_Delaunay_triangulation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <benchmark/benchmark.h>
#include <pybind11/embed.h>
#include <pybind11/numpy.h>

#include <cstdint>
#include <string>
#include <vector>

#include "support/outlines.h"
#include "ztmath/facet.h"
#include "ztmath/ptf.h"

// As libtess2's manual declares them; its package has no header.
extern "C" {
struct TESStesselator;
TESStesselator* tessNewTess(void* allocator);
void tessDeleteTess(TESStesselator* tess);
void tessAddContour(TESStesselator* tess, int size, const void* points, int stride, int count);
int tessTesselate(TESStesselator* tess, int winding_rule, int element_type, int poly_size,
                  int vertex_size, const float* normal);
int tessGetElementCount(TESStesselator* tess);
}

namespace {

using namespace ztmath_test;

/// The outline of the country with just so many vertices, or else of one with more, thinned, or of
/// the largest, divided.
Polygon map(int n) {
    for (const char* const country : {"switzerland", "slovenia", "italy", "norway", "canada"}) {
        const Polygon outline = outline_of(country);
        if (n <= vertex_count(outline)) return thinned(outline, n);
    }
    return densified(outline_of("canada"), n);
}

using Maker = Polygon (*)(int);
struct Kind {
    std::string name;
    Maker maker;
    std::vector<int> sizes;
};

std::vector<Kind> kinds() {
    const std::vector<int> sizes{10, 100, 1'000, 10'000, 100'000, 1'000'000};
    return {
        {"convex", [](int n) { return convex_polygon(n); }, sizes},
        {"star", [](int n) { return star_polygon(n, 1); }, sizes},
        // A hundred thousand vertices of teeth on one straight edge are beyond the rule: its
        // circles have no digits left, and the fill ends with a status.
        {"comb", [](int n) { return comb_polygon(n, 10.0); }, {10, 100, 1'000, 10'000}},
        {"spiral", [](int n) { return spiral_polygon(n); }, sizes},
        {"monotone", [](int n) { return monotone_polygon(n, 1); }, sizes},
        {"map", map, {10, 186, 505, 1'934, 7'897, 20'028, 100'000, 1'000'000}},
    };
}

using Runner = void (*)(benchmark::State&, const Polygon&);

void fill_ztmath(benchmark::State& state, const Polygon& p) {
    for (auto _ : state) {
        PTF_triangle_t* triangles;
        if (PTF_poly_tri_fill(vertex_count(p), p.data(), nullptr, &triangles, nullptr, nullptr) !=
            0)
            state.SkipWithError("not filled");
        benchmark::DoNotOptimize(triangles);
        PTF_free_output(vertex_count(p), triangles, nullptr, nullptr);
    }
}

void fill_cgal(benchmark::State& state, const Polygon& p) {
    using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
    using Triangulation = CGAL::Constrained_Delaunay_triangulation_2<Kernel>;
    const auto n = static_cast<std::size_t>(vertex_count(p));
    std::vector<Kernel::Point_2> points;
    std::vector<std::pair<std::size_t, std::size_t>> edges;
    for (std::size_t i = 0; i < n; ++i) {
        points.emplace_back(p[2 * i], p[2 * i + 1]);
        edges.emplace_back(i, (i + 1) % n);
    }
    try {
        for (auto _ : state) {
            Triangulation triangulation;
            triangulation.insert_constraints(points.begin(), points.end(), edges.begin(),
                                             edges.end());
            benchmark::DoNotOptimize(triangulation);
        }
    } catch (const Triangulation::Intersection_of_constraints_exception&) {
        state.SkipWithError("the outline meets itself");
    }
}

void clip_ztmath(benchmark::State& state, const Polygon& p) {
    std::vector<double> points;
    for (std::size_t i = 0; i < p.size(); i += 2)
        points.insert(points.end(), {p[i], p[i + 1], 0.0});
    std::vector<int> triangles(points.size());
    const double normal[3] = {0.0, 0.0, 1.0};
    for (auto _ : state) {
        FACET_ask_triangles_of_polygon(vertex_count(p), points.data(), normal, triangles.data());
        benchmark::ClobberMemory();
    }
}

void triangulate_earcut(benchmark::State& state, const Polygon& p) {
    static const pybind11::scoped_interpreter interpreter;
    const auto earcut = pybind11::module_::import("mapbox_earcut").attr("triangulate_float64");
    const int n = vertex_count(p);
    const pybind11::array_t<double> points({n, 2}, p.data());
    const pybind11::array_t<std::uint32_t> ring_ends(1, std::vector<std::uint32_t>(1, n).data());
    for (auto _ : state)
        benchmark::DoNotOptimize(earcut(points, ring_ends).ptr());
}

void triangulate_tess2(benchmark::State& state, const Polygon& p) {
    constexpr int odd = 0;
    constexpr int polygons = 0;
    const std::vector<float> points(p.begin(), p.end());
    for (auto _ : state) {
        TESStesselator* const tess = tessNewTess(nullptr);
        tessAddContour(tess, 2, points.data(), 2 * sizeof(float), vertex_count(p));
        if (tessTesselate(tess, odd, polygons, 3, 2, nullptr) == 0) state.SkipWithError("none");
        benchmark::DoNotOptimize(tessGetElementCount(tess));
        tessDeleteTess(tess);
    }
}

void add(const std::string& problem, const char* who, Runner runner, Maker maker,
         const std::vector<int>& sizes) {
    auto* const rows = benchmark::RegisterBenchmark(
        (problem + '/' + who).c_str(), [runner, maker](benchmark::State& state) {
            runner(state, maker(static_cast<int>(state.range(0))));
        });
    for (const int n : sizes)
        rows->Arg(n);
    rows->Unit(benchmark::kMicrosecond);
}

const bool added = [] {
    for (const auto& [name, maker, sizes] : kinds()) {
        std::vector<int> most_sizes = sizes;
        std::erase(most_sizes, 1'000'000);
        add("fill_" + name, "ztmath", fill_ztmath, maker, sizes);
        add("fill_" + name, "cgal", fill_cgal, maker, sizes);
        add("ears_" + name, "ztmath", clip_ztmath, maker, most_sizes);
        for (const char* const task : {"fill_", "ears_"}) {
            add(task + name, "earcut", triangulate_earcut, maker, most_sizes);
            add(task + name, "tess2", triangulate_tess2, maker, most_sizes);
        }
    }
    return true;
}();

}  // namespace
