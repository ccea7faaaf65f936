// Triangles of polygons, against CGAL's constrained Delaunay triangulation of the whole hull, its
// vertices inserted in spatial order as its manual advises, against ear clipping by Mapbox's
// earcut, which comes as a module for Python (calling it takes some microseconds), and against the
// sweep of libtess2 in single precision. The coast is a map's, its edges divided to the size asked
// for.
#include <CGAL/Constrained_Delaunay_triangulation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <benchmark/benchmark.h>
#include <pybind11/embed.h>
#include <pybind11/numpy.h>

#include <cstdint>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "support/polygons.h"
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

Polygon coast(int n) {
    std::ifstream file(DEMO_DATA "/great_britain.txt");
    Polygon all;
    for (double x; file >> x;)
        all.push_back(1.0e4 * x);
    if (n >= vertex_count(all)) return densified(all, n);
    Polygon some;
    for (int i = 0; i < n; ++i) {
        const auto k =
            2 * (static_cast<std::size_t>(i) * all.size() / 2 / static_cast<std::size_t>(n));
        some.insert(some.end(), {all[k], all[k + 1]});
    }
    return some;
}

using Maker = Polygon (*)(int);
const std::pair<const char*, Maker> kinds[]{
    {"convex", [](int n) { return convex_polygon(n); }},
    {"star", [](int n) { return star_polygon(n, 1); }},
    {"comb", [](int n) { return comb_polygon(n, 10.0); }},
    {"spiral", [](int n) { return spiral_polygon(n); }},
    {"monotone", [](int n) { return monotone_polygon(n, 1); }},
    {"coast", coast},
};

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
    const std::vector<int> most_sizes{10, 100, 1'000, 10'000, 100'000};
    std::vector<int> all_sizes = most_sizes;
    all_sizes.push_back(1'000'000);
    for (const auto& [kind, maker] : kinds) {
        const std::string name = kind;
        // A hundred thousand vertices of teeth on one straight edge are beyond the rule: its
        // circles have no digits left, and the fill ends with a status.
        const std::vector<int> sizes(all_sizes.begin(), all_sizes.end() - (name == "comb" ? 2 : 0));
        add("fill_" + name, "ztmath", fill_ztmath, maker, sizes);
        add("fill_" + name, "cgal", fill_cgal, maker, sizes);
        for (const char* const task : {"fill_", "ears_"}) {
            add(task + name, "earcut", triangulate_earcut, maker, most_sizes);
            add(task + name, "tess2", triangulate_tess2, maker, most_sizes);
        }
        add("ears_" + name, "ztmath", clip_ztmath, maker, most_sizes);
    }
    return true;
}();

}  // namespace
