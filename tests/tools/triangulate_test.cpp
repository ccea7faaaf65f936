// ztmath triangulate, as a person or a script calls it.
#include "outline.h"
#include "run_tool.h"
#include "support/polygons.h"

namespace {

using namespace ztmath_test;

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

TEST(Triangulate, FillsOutlinesInEveryUnitAndDirection) {
    const Workshop w;
    for (const double unit : {1.0, 1e-9, 1e9}) {
        Polygon p = star_polygon(300, 8);
        for (double& x : p)
            x *= unit;
        const double area = 0.5 * doubled_area(p);
        for (const bool clockwise : {false, true}) {
            const Polygon given = clockwise ? reversed(p) : p;
            w.file("star", text_of(given, 2));
            for (const char* method : {"", "--ears"}) {
                const json result = json_of(w, "triangulate star " + std::string(method));
                const json& triangles = result["triangles"];
                EXPECT_EQ(triangles.size(), 298U);
                EXPECT_EQ(result["clockwise"], clockwise);
                EXPECT_NEAR(result["area"].get<double>() / area, 1, 1e-12);
                EXPECT_NEAR(area_of(triangles, given) / area, 1, 1e-12);
            }
        }
    }
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
