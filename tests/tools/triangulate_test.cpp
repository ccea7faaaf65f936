// ztmath triangulate, as a person or a script calls it.
#include "outline.h"
#include "run_tool.h"
#include "support/polygons.h"
#include "svg_document.h"

namespace {

using namespace ztmath_test;

TEST(Triangulate, ExitCodesAndWordsTellWhatHappened) {
    const Workshop w;
    const std::string in = "ztmath: standard input: ";
    const std::vector<Ending> endings = {
        {"-", 0, "", "0 0\n1 0\n1 1\n0 1\n"},
        {"-", 0, in + "note: the last point repeats the first and is left out\n",
         "0 0\n1 0\n1 1\n0 1\n0 0\n"},
        {"-", 0, in + "note: the outline is clockwise and is turned round\n",
         "0 1\n1 1\n1 0\n0 0\n"},
        {"-", 1, in + "too few points: an outline needs 3\n", "0 0\n1 0\n"},
        {"-", 1, in + "the points on lines 3 and 4 are one and the same at (1.000000, 0)\n",
         "# x y\n0 0\n1 0\n1 0\n0 1\n"},
        {"-", 1,
         in + "the outline turns back on itself at the point on line 4 at (3.000000, 1.000000)\n",
         "0 0\n2 0\n2 1\n3 1\n2 1\n0 2\n"},
        {"-", 1,
         in +
             "the outline meets itself: the edge from line 1 to line 2 and the edge from line 3 to "
             "line 4 at (2.000000, 0)\n",
         "0 0\n4 0\n4 4\n2 0\n0 4\n"},
        {"-", 3, "ztmath: standard input:2: \"x\" is not a number\n", "0 0\n1 x\n"},
        {"--json --obj -", 2, "--json excludes --obj\n"},
    };
    expect_endings(w, "triangulate ", endings);
    for (const Ending& ending : endings)
        EXPECT_EQ(w.run("triangulate -", ending.input).out.empty(), ending.code != 0);
    expect_parts(w.run("triangulate --help").out, {"Exit codes:"});
}

/// The areas of the triangles, each of which must be positive.
double area_of(const json& triangles, const Polygon& p) {
    double sum = 0;
    for (const json& t : triangles) {
        int corners[3];
        std::transform(t.begin(), t.end(), corners, [](int number) { return number - 1; });
        EXPECT_GT(doubled_area(p, corners), 0.0);
        sum += 0.5 * doubled_area(p, corners);
    }
    return sum;
}

TEST(Triangulate, FormatsHoldTheSameTrianglesInEveryUnitAndDirection) {
    const Workshop w;
    for (const double unit : {1.0, 1e-9, 1e9}) {
        Polygon p = star_polygon(300, 8);
        for (double& x : p)
            x *= unit;
        const double area = 0.5 * doubled_area(p);
        for (const bool clockwise : {false, true}) {
            const Polygon given = clockwise ? reversed(p) : p;
            w.file("star", text_of(given, 2));
            for (const char* method : {"", "--ears "}) {
                const std::string command = "triangulate " + std::string(method) + "star ";
                const json result = json_of(w, command);
                const json& triangles = result["triangles"];
                EXPECT_EQ(triangles.size(), 298U);
                EXPECT_EQ(result["clockwise"], clockwise);
                EXPECT_NEAR(result["area"].get<double>() / area, 1, 1e-12);
                EXPECT_NEAR(area_of(triangles, given) / area, 1, 1e-12);
                std::ostringstream rows, faces;
                for (const json& t : triangles) {
                    rows << t[0] << ' ' << t[1] << ' ' << t[2] << '\n';
                    faces << "f " << t[0] << ' ' << t[1] << ' ' << t[2] << '\n';
                }
                EXPECT_EQ(w.run(command).out, rows.str());
                const std::string mesh = w.run(command + "--obj").out;
                EXPECT_EQ(std::count(mesh.begin(), mesh.end(), 'v'), 300);
                EXPECT_EQ(mesh.substr(mesh.find('f')), faces.str());
            }
        }
    }
}

TEST(Triangulate, DrawsEachDiagonalOnce) {
    const Workshop w;
    w.file("spiral", text_of(spiral_polygon(90), 2));
    EXPECT_EQ(w.run("triangulate spiral --svg out.svg").code, 0);
    const SvgDocument picture(contents(w.path("out.svg")));
    EXPECT_EQ(picture.find("triangles", "side").size(), 87U);
    EXPECT_EQ(picture.find("triangles", "outline").size(), 1U);
    expect_parts(picture.words("heading"), {"90 vertices, 88 triangles"});
}

TEST(Triangulate, FaultsOfLargeOutlinesAreFoundOneByOne) {
    Polygon p = densified(star_polygon(500, 2), 200'000);
    const auto fault = [&p] {
        return tool::fault_of(
            tool::outline_of({2, p, std::vector<std::uint32_t>(p.size() / 2, 1)}));
    };
    EXPECT_FALSE(fault());
    p[2 * 150'000] = 0.0;  // a vertex is pulled to the middle of the star, and beyond
    p[2 * 150'000 + 1] = 900.0;
    ASSERT_TRUE(fault());
    EXPECT_EQ(fault()->kind, tool::Fault::meets);
}

}  // namespace
